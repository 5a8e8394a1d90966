// Tables of the tests of dates and durations, written as text.
#pragma once

#include "support/Print.h"

#include <ZqXmlLib9/types/DateTimeSpan.h>

#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace ZqXmlLib9 {

const auto InvalidValue = [](auto&& step) { return MessageOf<CZqInvalidValueException>(step); };

/// The words between blanks and line ends.
inline std::vector<std::string> Words(const char* text)
{
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}

/// Each "text" is written as it was read, "text=written" as it says.
template <typename TRead>
void CheckTexts(const char* rows, TRead&& read)
{
    for (const std::string& row : Words(rows)) {
        const std::string text = row.substr(0, row.find('='));
        EXPECT_EQ(U8(read(ToUtf16(text)).ToString()), row.substr(row.rfind('=') + 1)) << row;
    }
}

/// Each three words are two values and the sign between them; `?` is Indeterminate.
template <typename TRead>
void CheckOrder(const char* rows, TRead&& read)
{
    const std::vector<std::string> words = Words(rows);
    for (std::size_t i = 0; i < words.size(); i += 3) {
        const auto a = read(ToUtf16(words[i])), b = read(ToUtf16(words[i + 2]));
        const char sign = words[i + 1][0];
        EXPECT_EQ("=<>?"[a.CompareTo(b)], sign) << words[i] << " " << words[i + 2];
        EXPECT_EQ("=><?"[b.CompareTo(a)], sign) << words[i] << " " << words[i + 2];
        EXPECT_TRUE((a == b) == (sign == '=') && (a != b) == (sign != '=')
                    && (a < b) == (sign == '<') && (a > b) == (sign == '>'));
    }
}

}  // namespace ZqXmlLib9
