// ASCII digits and words, whatever the locale.
#pragma once

#include <algorithm>
#include <string_view>

namespace ZqXmlLib9 {

constexpr bool IsDigit(char16_t c) noexcept
{
    return c >= u'0' && c <= u'9';
}

/// \param word  in lower case
inline bool EqualsIgnoringCase(std::u16string_view text, std::u16string_view word)
{
    return std::ranges::equal(text, word, [](char16_t c, char16_t lower) {
        return (c >= u'A' && c <= u'Z' ? c - u'A' + u'a' : c) == lower;
    });
}

}  // namespace ZqXmlLib9
