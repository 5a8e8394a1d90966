// Conversions between UTF-16 and UTF-8 that report the place of a fault instead of throwing: the
// floor above turns it into its exception.
//
// Standard: the Unicode Standard, 3.9 (UTF-8 and UTF-16, well-formed code unit sequences).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ZqXmlLib9 {

inline constexpr std::size_t kWholeText = static_cast<std::size_t>(-1);

constexpr bool IsHighSurrogate(char32_t c)
{
    return c >= 0xD800 && c <= 0xDBFF;
}

constexpr bool IsLowSurrogate(char32_t c)
{
    return c >= 0xDC00 && c <= 0xDFFF;
}

/// The index of the first code unit that is half a surrogate pair without the other, or kWholeText.
std::size_t FindUnpairedSurrogate(std::u16string_view text);

/// The part of a text in front of its first unpaired surrogate.
struct SWellFormedPart {
    std::size_t units;   ///< its length in code units
    std::size_t octets;  ///< its length in UTF-8
};

SWellFormedPart MeasureAsUtf8(std::u16string_view text);

/// Writes well-formed text to `utf8`, which has the room that `MeasureAsUtf8` asks for.
void WriteAsUtf8(std::u16string_view text, char* utf8);

/// Appends `text` to `utf8`, up to the first unpaired surrogate.
/// \return the index of that code unit, or kWholeText
std::size_t AppendAsUtf8(std::u16string_view text, std::string& utf8);

/// Appends `text` to `utf16`, up to the first octet that begins no well-formed sequence.
/// \return the index of that octet, or kWholeText
std::size_t AppendAsUtf16(std::string_view text, std::u16string& utf16);

/// For messages, which must come out whatever they hold: U+FFFD stands for what is malformed.
std::string ToPrintableUtf8(std::u16string_view text);
std::u16string ToPrintableUtf16(std::string_view text);

}  // namespace ZqXmlLib9
