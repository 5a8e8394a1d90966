// Machine numbers from text, whatever the locale: the scans of strtol, strtoul and strtod in the
// "C" locale (C17, 7.22.1), over UTF-16 and with widths that are the same everywhere.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ZqXmlLib9 {

/// A whole number at the start of a text.
struct SWholeNumber {
    std::uint64_t magnitude = 0;
    bool isNegative = false;
    bool isTooLarge = false;  ///< for 64 bits; the magnitude then says nothing
    std::size_t length = 0;   ///< code units, with blanks in front and sign; 0: there is no digit
};

/// Reads blanks, a sign and digits, up to what is none.
SWholeNumber ReadWholeNumber(std::u16string_view text);

/// Reads blanks, a sign, digits with a point and an exponent, or one of the words inf, infinity and
/// nan in any case; no hexadecimal form. Beyond the range of a double stands an infinity or 0.
/// \return the code units taken; 0: there is no number, and `value` is unchanged
std::size_t ReadDouble(std::u16string_view text, double& value);

}  // namespace ZqXmlLib9
