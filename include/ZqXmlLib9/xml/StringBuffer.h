/// \file StringBuffer.h
/// Wide text that grows without being moved.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/InstanceMonitor.h>

#include <cstdint>
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
    void AddBlock();

    struct SBlock {
        std::unique_ptr<char16_t[]> units;
        std::uint32_t length;  ///< capacity, without the terminator
    };

    std::vector<SBlock> m_blocks;
    std::uint32_t m_position = 0;  ///< code units used in the last block
    std::uint32_t m_capacity = 0;  ///< code units that the last block can take
    std::uint32_t m_totalLength = 0;
};

}  // namespace ZqXmlLib9
