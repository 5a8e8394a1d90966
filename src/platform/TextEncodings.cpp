#include "TextEncodings.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace ZqXmlLib9 {
namespace {

constexpr bool IsAscii(char32_t c)
{
    return c < 0x80;
}

/// \return the place behind what was written
char* WriteScalarAsUtf8(char32_t c, char* utf8)
{
    const auto put = [&](char32_t octet) { *utf8++ = static_cast<char>(octet); };
    const auto tail = [&](unsigned shift) { put(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80) {
        put(c);
    }
    else if (c < 0x800) {
        put(0xC0 | (c >> 6));
        tail(0);
    }
    else if (c < 0x10000) {
        put(0xE0 | (c >> 12));
        tail(6);
        tail(0);
    }
    else {
        put(0xF0 | (c >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
    return utf8;
}

/// Where the run of ASCII ends that begins at `i`, if any does. Blocks let the compiler take many
/// units at a time.
std::size_t AsciiEnd(std::u16string_view text, std::size_t i)
{
    constexpr std::size_t kBlock = 32;
    for (; text.size() - i >= kBlock; i += kBlock) {
        unsigned all = 0;
        for (const char16_t c : text.substr(i, kBlock))
            all |= c;
        if (!IsAscii(all))
            break;
    }
    for (std::uint64_t four = 0; text.size() - i >= 4; i += 4) {
        std::memcpy(&four, text.data() + i, sizeof(four));
        if ((four & 0xFF80FF80FF80FF80u) != 0)
            break;
    }
    while (i < text.size() && IsAscii(text[i]))
        ++i;
    return i;
}

/// The same for octets.
std::size_t AsciiEnd(std::string_view text, std::size_t i)
{
    for (std::uint64_t eight = 0; text.size() - i >= 8; i += 8) {
        std::memcpy(&eight, text.data() + i, sizeof(eight));
        if ((eight & 0x8080808080808080u) != 0)
            break;
    }
    while (i < text.size() && IsAscii(static_cast<std::uint8_t>(text[i])))
        ++i;
    return i;
}

bool IsPair(std::u16string_view text, std::size_t i)
{
    return IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1]);
}

void AppendScalarAsUtf16(char32_t c, std::u16string& utf16)
{
    if (c < 0x10000) {
        utf16.push_back(static_cast<char16_t>(c));
        return;
    }
    utf16.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)));
    utf16.push_back(static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
}

/// The well-formed sequences by their first octet (Unicode Standard, table 3-7): how long they
/// are, and which second octets exclude overlong forms, surrogates and what is above U+10FFFF.
struct SSequence {
    std::uint8_t firstLow, firstHigh;
    std::uint8_t length;
    std::uint8_t secondLow, secondHigh;
};

constexpr std::array<SSequence, 8> kSequences{{
    {0xC2, 0xDF, 2, 0x80, 0xBF},
    {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF},
    {0xED, 0xED, 3, 0x80, 0x9F},
    {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF},
    {0xF1, 0xF3, 4, 0x80, 0xBF},
    {0xF4, 0xF4, 4, 0x80, 0x8F},
}};

/// Reads the sequence of two to four octets at `index` and moves `index` behind it.
/// \return false if it is malformed; `index` then stays
bool ReadSequence(std::string_view text, std::size_t& index, char32_t& c)
{
    const auto octet = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
    const std::uint8_t first = octet(index);
    const auto* const row = std::find_if(kSequences.begin(), kSequences.end(), [&](const auto& r) {
        return first >= r.firstLow && first <= r.firstHigh;
    });
    if (row == kSequences.end() || text.size() - index < row->length)
        return false;
    if (octet(index + 1) < row->secondLow || octet(index + 1) > row->secondHigh)
        return false;
    c = first & (0x7Fu >> row->length);
    for (std::size_t i = 1; i < row->length; ++i) {
        if ((octet(index + i) & 0xC0) != 0x80)
            return false;
        c = (c << 6) | (octet(index + i) & 0x3Fu);
    }
    index += row->length;
    return true;
}

}  // namespace

SWellFormedPart MeasureAsUtf8(std::u16string_view text)
{
    std::size_t octets = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        if (IsAscii(c)) {
            const std::size_t end = AsciiEnd(text, i);
            octets += end - i;
            i = end - 1;
        }
        else if (!IsHighSurrogate(c) && !IsLowSurrogate(c)) {
            octets += c < 0x800 ? 2 : 3;
        }
        else if (IsPair(text, i)) {
            octets += 4;
            ++i;
        }
        else {
            return {i, octets};
        }
    }
    return {text.size(), octets};
}

void WriteAsUtf8(std::u16string_view text, char* utf8)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        if (IsAscii(c)) {
            const std::u16string_view run = text.substr(i, AsciiEnd(text, i) - i);
            utf8 = std::copy(run.begin(), run.end(), utf8);
            i += run.size() - 1;
        }
        else if (IsPair(text, i)) {
            const char32_t low = text[++i];
            utf8 =
                WriteScalarAsUtf8(0x10000 + ((char32_t{c} - 0xD800) << 10) + (low - 0xDC00), utf8);
        }
        else {
            utf8 = WriteScalarAsUtf8(c, utf8);
        }
    }
}

std::size_t FindUnpairedSurrogate(std::u16string_view text)
{
    const std::size_t units = MeasureAsUtf8(text).units;
    return units == text.size() ? kWholeText : units;
}

std::size_t AppendAsUtf8(std::u16string_view text, std::string& utf8)
{
    const SWellFormedPart part = MeasureAsUtf8(text);
    const std::size_t before = utf8.size();
    utf8.resize(before + part.octets);
    WriteAsUtf8(text.substr(0, part.units), utf8.data() + before);
    return part.units == text.size() ? kWholeText : part.units;
}

std::size_t AppendAsUtf16(std::string_view text, std::u16string& utf16)
{
    utf16.reserve(utf16.size() + text.size());
    for (std::size_t i = 0; i < text.size();) {
        if (const std::size_t end = AsciiEnd(text, i); end != i) {
            const std::size_t before = utf16.size();
            utf16.resize(before + end - i);
            std::copy(text.begin() + static_cast<std::ptrdiff_t>(i),
                      text.begin() + static_cast<std::ptrdiff_t>(end), utf16.data() + before);
            i = end;
            continue;
        }
        char32_t c = 0;
        if (!ReadSequence(text, i, c))
            return i;
        AppendScalarAsUtf16(c, utf16);
    }
    return kWholeText;
}

std::string ToPrintableUtf8(std::u16string_view text)
{
    std::string utf8;
    for (std::size_t bad = 0; (bad = AppendAsUtf8(text, utf8)) != kWholeText;) {
        utf8 += "\xEF\xBF\xBD";
        text.remove_prefix(bad + 1);
    }
    return utf8;
}

std::u16string ToPrintableUtf16(std::string_view text)
{
    std::u16string utf16;
    for (std::size_t bad = 0; (bad = AppendAsUtf16(text, utf16)) != kWholeText;) {
        utf16.push_back(u'\xFFFD');
        text.remove_prefix(bad + 1);
    }
    return utf16;
}

}  // namespace ZqXmlLib9
