// The memory of one parser, in proportion to its document.
//
// Expat copies the namespace of each attribute of an element before anybody hears of the element,
// so that a long namespace and many attributes take memory by the square of the document.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ZqXmlLib9 {

/// It must outlive the parser that was made while it was in use.
class CParserHeap {
public:
    /// While it lives, parsers on this thread take new blocks from the heap.
    class CUse {
    public:
        explicit CUse(CParserHeap& heap) noexcept;
        CUse(const CUse&) = delete;
        CUse& operator=(const CUse&) = delete;
        ~CUse();

    private:
        CParserHeap* m_former;
    };

    CParserHeap() = default;
    CParserHeap(const CParserHeap&) = delete;
    CParserHeap& operator=(const CParserHeap&) = delete;

    void SetLimit(std::uint64_t octets) noexcept { m_limit = octets; }
    /// Whether memory was refused because of the limit.
    bool IsExhausted() const noexcept { return m_isExhausted; }

    /// \name The functions of C that a parser is given
    /// @{
    static void* Allocate(std::size_t size) noexcept;
    static void* Reallocate(void* memory, std::size_t size) noexcept;
    static void Free(void* memory) noexcept;
    /// @}

private:
    std::uint64_t m_used = 0;
    std::uint64_t m_limit = UINT64_MAX;
    bool m_isExhausted = false;
};

}  // namespace ZqXmlLib9
