#include <ZqXmlLib9/types/Base64.h>

#include <array>
#include <cstddef>

namespace {

constexpr std::u16string_view kAlphabet =
    u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr std::uint8_t kSkip = 0xFE;
constexpr std::uint8_t kInvalid = 0xFF;

/// The six bits of each character, or one of the two marks.
constexpr std::array<std::uint8_t, 128> kSixBits = [] {
    std::array<std::uint8_t, 128> table{};
    table.fill(kInvalid);
    for (std::size_t i = 0; i < kAlphabet.size(); ++i)
        table[kAlphabet[i]] = static_cast<std::uint8_t>(i);
    for (const char16_t c : std::u16string_view(u"= \t\r\n"))
        table[c] = kSkip;
    return table;
}();

}  // namespace

CBase64::CBase64() = default;
CBase64::~CBase64() = default;

void CBase64::Push(std::uint32_t bits, unsigned count)
{
    m_accumulator = (m_accumulator << count) | bits;
    m_bitCount += count;
}

std::uint32_t CBase64::Pop(unsigned count)
{
    m_bitCount -= count;
    return (m_accumulator >> m_bitCount) & ((1u << count) - 1);
}

std::u16string CBase64::Encode(const unsigned char* octets, std::uint32_t length)
{
    m_accumulator = 0;
    m_bitCount = 0;
    std::u16string text;
    text.reserve((std::size_t{length} + 2) / 3 * 4);
    for (std::uint32_t i = 0; i < length; ++i) {
        Push(octets[i], 8);
        while (m_bitCount >= 6)
            text.push_back(kAlphabet[Pop(6)]);
    }
    if (m_bitCount != 0) {
        Push(0, 6 - m_bitCount);
        text.push_back(kAlphabet[Pop(6)]);
    }
    text.resize((text.size() + 3) / 4 * 4, u'=');
    return text;
}

std::uint32_t CBase64::Decode(std::u16string_view text, unsigned char* output)
{
    m_accumulator = 0;
    m_bitCount = 0;
    std::uint32_t count = 0;
    for (const char16_t c : text) {
        const std::uint8_t bits = kSixBits[c & 0x7F];
        if (bits == kInvalid)
            return 0;
        if (bits == kSkip)
            continue;
        Push(bits, 6);
        if (m_bitCount >= 8)
            output[count++] = static_cast<unsigned char>(Pop(8));
    }
    return count;
}
