// Tables of the tests of values, written as text.
#pragma once

#include "support/Print.h"

#include <ZqXmlLib9/types/ItemType.h>

#include <algorithm>
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

inline ItemType TypeOf(const std::string& word)
{
    static const std::vector<std::string> words =
        Words("invalid hexBinary base64Binary i1 i2 i4 i8 ui1 ui2 ui4 ui8 r4 r8 duration yearMonth "
              "monthDay year month day date datetime time char string boolean decimal integer");
    return static_cast<ItemType>(std::ranges::find(words, word) - words.begin());
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
