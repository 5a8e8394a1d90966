#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/xml/StringBuffer.h>

#include <algorithm>
#include <limits>

namespace ZqXmlLib9 {
namespace {

/// With its terminator a block takes 8192 octets.
constexpr std::uint32_t kBlockSize = 4095;

}  // namespace

CStringBuffer::CStringBuffer() : CInstanceMonitor(u"CStringBuffer") {}
CStringBuffer::~CStringBuffer() = default;

void CStringBuffer::AddBlock()
{
    m_blocks.push_back({std::make_unique<char16_t[]>(kBlockSize + 1), kBlockSize});
    m_end = m_blocks.back().units.get();
    m_position = 0;
    m_capacity = kBlockSize;
}

void CStringBuffer::Append(char16_t unit)
{
    Append(std::u16string_view(&unit, 1));
}

void CStringBuffer::Append(const char16_t* text)
{
    Append(TextOrEmpty(text));
}

void CStringBuffer::Append(const std::u16string& text)
{
    Append(std::u16string_view(text));
}

void CStringBuffer::Append(std::u16string_view text)
{
    if (text.size() > std::numeric_limits<std::uint32_t>::max() - m_totalLength)
        throw CZqOverFlowException(u"The text is longer than 4294967295 characters");
    while (text.size() > m_capacity - m_position) {
        const std::u16string_view part = text.substr(0, m_capacity - m_position);
        Advance(Copy(part, m_end));
        text.remove_prefix(part.size());
        AddBlock();
    }
    Advance(Copy(text, m_end));
}

const char16_t* CStringBuffer::GetText()
{
    if (m_blocks.empty())
        return u"";
    if (m_blocks.size() > 1) {
        auto whole = std::make_unique_for_overwrite<char16_t[]>(std::size_t{m_totalLength} + 1);
        char16_t* end = whole.get();
        for (const SBlock& block : m_blocks) {
            const bool isLast = &block == &m_blocks.back();
            end = std::copy_n(block.units.get(), isLast ? m_position : block.length, end);
        }
        *end = u'\0';
        m_blocks.resize(1);
        m_blocks[0] = {std::move(whole), m_totalLength};
        m_end = m_blocks[0].units.get() + m_totalLength;
        m_position = m_totalLength;
        m_capacity = m_totalLength;
    }
    return m_blocks[0].units.get();
}

void CStringBuffer::Clear()
{
    if (m_blocks.size() != 1) {
        Reset();
        return;
    }
    // Behind the text the block is still zero. It may be large, and a stream is cleared often.
    std::fill_n(m_blocks[0].units.get(), m_position, u'\0');
    m_end = m_blocks[0].units.get();
    m_position = 0;
    m_totalLength = 0;
}

void CStringBuffer::Reset()
{
    m_blocks.clear();
    m_end = nullptr;
    m_position = 0;
    m_capacity = 0;
    m_totalLength = 0;
}

}  // namespace ZqXmlLib9
