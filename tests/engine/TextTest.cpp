// Formatting is that of printf in the "C" locale; a format that doesn't fit its arguments fails.
// UTF-8 and UTF-16 turn into each other without loss; what is malformed is named with its place.

#include "support/Print.h"

#include <ZqXmlLib9/engine/FormatString.h>

#include <cfloat>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstdio>

namespace ZqXmlLib9 {
namespace {

/// Compares with what the C library prints in its own locale.
template <typename... TArguments>
void ExpectAsInC(const std::string& ours, const std::string& inC, TArguments... arguments)
{
    static const locale_t kPlain = ::newlocale(LC_ALL_MASK, "C", nullptr);
    const locale_t former = ::uselocale(kPlain);
    std::string text(2000, '\0');
    text.resize(std::size_t(std::snprintf(text.data(), text.size(), inC.c_str(), arguments...)));
    ::uselocale(former);
    EXPECT_EQ(U8(FormatString(ToUtf16(ours).c_str(), arguments...)), text) << ours;
}

TEST(Number, PrintsAsInC)
{
    for (const std::string flags : {"", "-", "+", " ", "0", "+-", " 0", "#", "#0", "#+-"})
        for (const std::string size : {"", ".", ".3", ".22", "30", "9.1", "30.", "30.25"}) {
            const std::string field = '%' + flags + size;
            // C leaves # open for the decimal kinds.
            for (const char kind : std::string(flags[0] == '#' ? "oxX" : "oxXdiu")) {
                for (const int value : {0, 1, 70000, INT_MAX, INT_MIN}) {
                    ExpectAsInC(field + kind, field + kind, value);
                    ExpectAsInC(field + 'h' + kind, field + 'h' + kind, value);
                    ExpectAsInC(field + 'l' + kind, field + kind, value);
                }
                for (const long long value : {0LL, -1LL, 1LL << 32, LLONG_MAX, LLONG_MIN})
                    ExpectAsInC(field + "I64" + kind, field + "ll" + kind, value);
            }
            for (const char kind : std::string("eEfgG"))
                for (const double value : {0.0, -0.0, 2.5, 9.5, 1.0 / 3, 0.00009999, 99999.95, 1e21,
                                           DBL_MAX, DBL_TRUE_MIN, -HUGE_VAL, double(NAN)})
                    ExpectAsInC(field + kind, field + kind, value);
        }
    ExpectAsInC("%.1200lf", "%.1200f", DBL_TRUE_MIN);
    for (const int width : {-12, 12}) {
        ExpectAsInC("[%*.*lld]", "[%*.*lld]", width, 8, LLONG_MAX);
        ExpectAsInC("[%0*.*x]", "[%0*.*x]", width, -3, 4711);
    }
}

TEST(Text, IsPrintedByItsKind)
{
    const std::u16string mixed = u"\u00E4\U0001F600";
    EXPECT_EQ(FormatString(u"%s|%ls|%lS", mixed, u"b", u"c"), mixed + u"|b|c");
    EXPECT_EQ(FormatString(u"%S|%hs|%S", U8(mixed), "b", "\xFFz"), mixed + u"|b|\uFFFDz");
    EXPECT_EQ(FormatString(u"[%*.*s|%.0s|%-4.2S]", 3, 2, u"abc", u"abc", "abc"), u"[ ab||ab  ]");
    EXPECT_EQ(FormatString(u"%c|%3C|%-3c|", u'\u00E4', 'b', 0x263A), u"\u00E4|  b|\u263A  |");
    const char* const none = nullptr;
    EXPECT_EQ(FormatString(u"%s|%-8s|%9S", nullptr, nullptr, none), u"(null)|(null)  |   (null)");
    EXPECT_EQ(FormatString(u"%p|%18p", reinterpret_cast<const void*>(0xDEADBEEF1), nullptr),
              u"0000000DEADBEEF1|  0000000000000000");
    EXPECT_EQ(FormatString(u"100%%d%%%Fd %Nd", 4294967295u, -1, u"too many"), u"100%d%-1 -1");
    const std::u16string text(1'000'000, u'x');
    EXPECT_TRUE(FormatString((text + u"%s%S").c_str(), text, U8(text)) == text + text + text);
}

template <typename... TArguments>
void ExpectRefused(std::initializer_list<const char16_t*> formats, const TArguments&... arguments)
{
    for (const char16_t* const format : formats)
        EXPECT_THROW(FormatString(format, arguments...), CZqInvalidParamException) << U8(format);
}

TEST(Mistake, IsRefused)
{
    // The kind of the argument, of which there may be one too few.
    ExpectRefused({u"%d", u"%f", u"%c", u"%p", u"%S", u"%hs", u"%*d"}, u"1");
    ExpectRefused({u"%d", u"%I64x", u"%s", u"%c"}, 1.0);
    ExpectRefused({u"%f", u"%s", u"%p", u"%d %s", u"%*d", u"%.*d"}, 1);
    // Cut, and unknown.
    ExpectRefused({u"100%", u"%-", u"%12", u"%.", u"%l", u"%I64", u"%n", u"%y", u"%I32d"}, 1);
    // Out of range.
    ExpectRefused({u"%d", u"%u", u"%lx", u"%hd", u"%*d"}, std::int64_t{1} << 32, 1);
    ExpectRefused({u"%d", u"%u", u"%lx", u"%hd", u"%*d"}, std::int64_t{INT_MIN} - 1, 1);
    ExpectRefused({u"%c", u"%1000001d", u"%.1000001d", u"%1099511627777d"}, 0x10000);
    ExpectRefused({u"%*d", u"%.*d"}, INT_MIN, 1);
}

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
