/// \file StringBuffer.h
/// Wide text that grows without being moved.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/InstanceMonitor.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ZqXmlLib9 {

/// Text in a chain of blocks of 4095 code units, each with room for a terminating NUL.
///
/// A block never moves until `GetText()` asks for one text. Every block is zero-filled when it is
/// made, so the text of the last one is terminated at any time. Lengths have 32 bits.
/// One thread at a time.
class ZQXMLLIB9_API CStringBuffer : public CInstanceMonitor {
public:
    CStringBuffer();
    CStringBuffer(const CStringBuffer&) = delete;
    CStringBuffer& operator=(const CStringBuffer&) = delete;
    ~CStringBuffer() override;

    /// \throws CZqOverFlowException  the text would have 2^32 code units or more
    void Append(char16_t unit);
    void Append(const char16_t* text);
    void Append(const std::u16string& text);
    void Append(std::u16string_view text);
    /// The length of the text, in code units.
    std::uint32_t GetPendingLength() const noexcept { return m_totalLength; }

    /// The whole text, ended by a NUL, in one piece; it belongs to this object and is good until
    /// the next change. Never null.
    const char16_t* GetText();

    /// Empties the buffer and keeps its block, if it has just one.
    void Clear();
    /// Empties the buffer and frees its blocks.
    void Reset();

private:
    friend class CTextStream;

    /// Appends texts one behind the other, for little more than one of them costs. Arrays are
    /// literals.
    /// \throws CZqOverFlowException  as `Append`; the first ones may have been appended
    template <typename... TText>
    void AppendAll(const TText&... texts)
    {
        AppendViews(ViewOf(texts)...);
    }

    /// The length of a literal is known without counting.
    template <std::size_t size>
    static constexpr std::u16string_view ViewOf(const char16_t (&literal)[size]) noexcept
    {
        return {literal, size - 1};
    }
    static std::u16string_view ViewOf(std::u16string_view text) noexcept { return text; }

    template <typename... TView>
    void AppendViews(TView... texts)
    {
        const std::size_t length = (texts.size() + ...);
        if (length > m_capacity - m_position || length > UINT32_MAX - m_totalLength) {
            (Append(texts), ...);
            return;
        }
        char16_t* end = m_end;
        ((end = Copy(texts, end)), ...);
        Advance(end);
    }

    /// \return the place behind the copy
    static char16_t* Copy(std::u16string_view text, char16_t* to) noexcept
    {
        // Most pieces are short, and a call would cost more than they do: two moves take 4 to 8
        // units, or 8 to 16, where they may overlap.
        constexpr std::size_t kHalf = 4 * sizeof(char16_t);
        const std::size_t length = text.size();
        char16_t* const end = to + length;
        if (length < 4) {
            for (const char16_t unit : text)
                *to++ = unit;
        }
        else if (length <= 8) {
            std::memcpy(to, text.data(), kHalf);
            std::memcpy(end - 4, text.data() + length - 4, kHalf);
        }
        else if (length <= 16) {
            std::memcpy(to, text.data(), 2 * kHalf);
            std::memcpy(end - 8, text.data() + length - 8, 2 * kHalf);
        }
        else {
            std::memcpy(to, text.data(), length * sizeof(char16_t));
        }
        return end;
    }

    void Advance(char16_t* end) noexcept
    {
        const auto length = static_cast<std::uint32_t>(end - m_end);
        m_end = end;
        m_position += length;
        m_totalLength += length;
    }

    void AddBlock();

    struct SBlock {
        std::unique_ptr<char16_t[]> units;
        std::uint32_t length;  ///< capacity, without the terminator
    };

    std::vector<SBlock> m_blocks;
    char16_t* m_end = nullptr;     ///< of the text in the last block
    std::uint32_t m_position = 0;  ///< code units used in the last block
    std::uint32_t m_capacity = 0;  ///< code units that the last block can take
    std::uint32_t m_totalLength = 0;
};

}  // namespace ZqXmlLib9
