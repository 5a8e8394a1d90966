#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/fastinfoset/FastInfosetBinaryData.h>
#include <ZqXmlLib9/types/Base64.h>
#include <ZqXmlLib9/types/Conversions.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <span>
#include <type_traits>

namespace ZqXmlLib9 {
namespace {

using Octets = std::span<const unsigned char>;

constexpr auto kNoRule = CWhitespaceUtils::WhitespaceRule_None;

template <std::size_t size>
using Bits = std::conditional_t<size == 2, std::uint16_t,
                                std::conditional_t<size == 4, std::uint32_t, std::uint64_t>>;

template <typename TNumber>
TNumber FromOctets(Octets octets)
{
    Bits<sizeof(TNumber)> bits = 0;
    for (const unsigned char octet : octets)
        bits = static_cast<Bits<sizeof(TNumber)>>(bits << 8 | octet);
    return std::bit_cast<TNumber>(bits);
}

/// \return the octet count
template <typename TNumber>
std::size_t PutOctets(TNumber number, std::array<unsigned char, 8>& octets)
{
    auto bits = std::bit_cast<Bits<sizeof(TNumber)>>(number);
    for (std::size_t i = sizeof(TNumber); i-- > 0;) {
        octets[i] = static_cast<unsigned char>(bits);
        bits = static_cast<Bits<sizeof(TNumber)>>(bits >> 8);
    }
    return sizeof(TNumber);
}

/// An algorithm whose values have one and the same length.
struct SGroups {
    std::uint32_t algorithm;
    std::size_t size;
    const char16_t* name;
    std::u16string (*print)(Octets octets);
};

constexpr SGroups kGroups[] = {
    {3, 2, u"SHORT",
     [](Octets o) { return CConversions::i2ToString(FromOctets<std::int16_t>(o)); }},
    {4, 4, u"INT", [](Octets o) { return CConversions::i4ToString(FromOctets<std::int32_t>(o)); }},
    {5, 8, u"LONG", [](Octets o) { return CConversions::i8ToString(FromOctets<std::int64_t>(o)); }},
    {7, 4, u"FLOAT",
     [](Octets o) { return CConversions::r4ToString(FromOctets<float>(o), nullptr); }},
    {8, 8, u"DOUBLE",
     [](Octets o) { return CConversions::r8ToString(FromOctets<double>(o), nullptr); }},
};

[[noreturn]] void ThrowUnknown()
{
    throw CZqException(u"Unknown byte encoding.");
}

std::u16string PrintGroups(const SGroups& groups, Octets octets)
{
    if (octets.size() % groups.size != 0)
        throw CZqException(FormatString(u"Invalid value for %s byte encoding.", groups.name));
    std::u16string text;
    for (; !octets.empty(); octets = octets.subspan(groups.size)) {
        if (!text.empty())
            text += u' ';
        text += groups.print(octets.first(groups.size));
    }
    return text;
}

/// The first half octet counts the unused bits at the end; the bits follow.
std::u16string PrintBooleans(Octets octets)
{
    std::u16string text;
    if (octets.empty())
        return text;
    const std::size_t unused = octets[0] / 16U;
    for (std::size_t bit = 4; bit + unused < octets.size() * 8; ++bit) {
        if (!text.empty())
            text += u' ';
        text += CConversions::booleanToString((octets[bit / 8] >> (7 - bit % 8) & 1) != 0);
    }
    return text;
}

}  // namespace

CFastInfosetBinaryData::CFastInfosetBinaryData() noexcept = default;
CFastInfosetBinaryData::CFastInfosetBinaryData(const CBinaryData& data) : CBinaryData(data) {}
CFastInfosetBinaryData::CFastInfosetBinaryData(const CFastInfosetBinaryData&) = default;
CFastInfosetBinaryData& CFastInfosetBinaryData::operator=(const CFastInfosetBinaryData&) = default;
CFastInfosetBinaryData::~CFastInfosetBinaryData() = default;

std::u16string CFastInfosetBinaryData::GetAsString(std::uint32_t algorithm) const
{
    if (GetData() == nullptr)
        return {};
    return GetAsString(algorithm, Octets(GetData(), GetLength()));
}

std::u16string CFastInfosetBinaryData::GetAsString(std::uint32_t algorithm,
                                                   std::span<const unsigned char> octets)
{
    const auto length = static_cast<std::uint32_t>(octets.size());
    switch (algorithm) {
    case 1: return GetAsHexString(octets.data(), length);
    case 2: return CBase64().Encode(octets.data(), length);
    case 6: return PrintBooleans(octets);
    case 9: return PrintGroups({9, 16, u"UUID", GetAsUuid}, octets);
    default: break;
    }
    const auto* const groups = std::ranges::find(kGroups, algorithm, &SGroups::algorithm);
    if (groups == std::end(kGroups))
        ThrowUnknown();
    return PrintGroups(*groups, octets);
}

std::u16string CFastInfosetBinaryData::GetAsUuid(std::span<const unsigned char> octets)
{
    return GetAsHexString(octets.data(), static_cast<std::uint32_t>(octets.size()));
}

std::size_t CFastInfosetBinaryData::EncodeNumber(std::uint32_t algorithm, std::u16string_view text,
                                                 std::array<unsigned char, 8>& octets)
{
    switch (algorithm) {
    case 3: return PutOctets(CConversions::i2FromString(text, kNoRule), octets);
    case 4: return PutOctets(CConversions::i4FromString(text, kNoRule), octets);
    case 5: return PutOctets(CConversions::i8FromString(text, kNoRule), octets);
    case 6: octets[0] = CConversions::booleanFromString(text, kNoRule) ? 0x38 : 0x30; return 1;
    case 7: return PutOctets(CConversions::r4FromString(text, kNoRule), octets);
    case 8: return PutOctets(CConversions::r8FromString(text, kNoRule), octets);
    default: return 0;
    }
}

void CFastInfosetBinaryData::SetAsEncodedString(std::uint32_t algorithm, const char16_t* text)
{
    SetAsEncodedString(algorithm, TextOrEmpty(text));
}

void CFastInfosetBinaryData::SetAsEncodedString(std::uint32_t algorithm, std::u16string_view text)
{
    Clear();
    std::array<unsigned char, 8> octets;
    if (const std::size_t count = EncodeNumber(algorithm, text, octets)) {
        Append(octets.data(), count);
        return;
    }
    switch (algorithm) {
    case 1:
    case 9: SetAsHexString(text); break;
    case 2: SetAsBase64(text); break;
    case 10: {
        const std::string utf8 = ToUtf8(text);
        Append(std::as_bytes(std::span(utf8)));
        break;
    }
    default: ThrowUnknown();
    }
}

}  // namespace ZqXmlLib9
