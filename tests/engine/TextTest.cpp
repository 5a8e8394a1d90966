// UTF-8 and UTF-16 turn into each other without loss; what is malformed is named with its place.

#include "support/Print.h"

#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>

namespace ZqXmlLib9 {
namespace {

/// The compiler writes both forms of the edges.
TEST(Utf8, HoldsEveryCharacterOfUnicode)
{
    const std::u16string utf16(u"\0\x7F\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF",
                               12);
    const std::string utf8("\0\x7F\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF", 26);
    EXPECT_EQ(ToUtf8(utf16), utf8);
    EXPECT_EQ(ToUtf16(utf8), utf16);
}

TEST(UnpairedSurrogate, HasNoUtf8)
{
    for (const auto& [text, fault] :
         {std::pair(u"\xD800", "D800] at position 0"), std::pair(u"a\xDBFF", "DBFF] at position 1"),
          std::pair(u"ab\xDC00z", "DC00] at position 2"),
          std::pair(u"\xD83D\U0001F600", "D83D] at position 0"),
          std::pair(u"\U0001F600\xDFFF", "DFFF] at position 2")})
        EXPECT_EQ(MessageOf<CZqInvalidValueException>([&t = text] { ToUtf8(t); }),
                  std::string("The text has an unpaired surrogate [0x") + fault);
}

/// Unicode Standard, table 3-7: the edges of its rows.
TEST(MalformedUtf8, IsNamedWhereverItStands)
{
    const std::string front = "a\xC3\xA4\xF0\x9F\x98\x80";
    for (const std::string malformed : {
             "\x80", "\xBF", "\xFE", "\xFF", "\xF8\x88\x80\x80\x80",          // no first octet
             "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF",      // overlong
             "\xED\xA0\x80", "\xED\xBF\xBF",                                  // surrogates
             "\xF4\x90\x80\x80", "\xF5\x80\x80\x80",                          // above U+10FFFF
             "\xC3", "\xE2\x82", "\xF0", "\xF0\x9F\x98", "\xF0\x9F\x98\xC0",  // cut
         })
        for (const std::string& behind : {std::string(), front})
            EXPECT_EQ(
                MessageOf<CZqInvalidValueException>([&] { ToUtf16(front + malformed + behind); }),
                U8(FormatString(u"The text is not well-formed UTF-8: octet [0x%02X] at position 7",
                                malformed[0])));
}

}  // namespace
}  // namespace ZqXmlLib9
