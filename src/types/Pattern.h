// The pattern facet: regular expressions of XML Schema, run by PCRE2.
#pragma once

#include <string_view>

namespace ZqXmlLib9 {

/// Whether the first match at the start of the value is the whole value. A match that is stopped
/// by the limits of steps and memory is none.
/// \throws CZqException  "Invalid Regular Expression: %s Error: '%s'", with the pattern as it was
///         translated
/// \throws CZqInvalidValueException  half a surrogate pair in pattern or value
bool MatchPattern(std::u16string_view pattern, std::u16string_view value);

}  // namespace ZqXmlLib9
