// The facets, through the test by item type that the metadata runs.
#include "support/Print.h"

#include <ZqXmlLib9/engine/ZqVariant.h>
#include <ZqXmlLib9/metadata/RestrictionCheck.h>
#include <ZqXmlLib9/types/CheckValue.h>

#include <gtest/gtest.h>

#include <string>

namespace ZqXmlLib9 {
namespace {

/// One facet: a sign and its text or number.
CPrimitiveRestrictions Facet(const std::u16string& facet)
{
    CPrimitiveRestrictions result;
    const std::u16string text = facet.substr(2);
    const std::string sign = U8(facet.substr(0, 2));
    if (sign == "p ")
        result.m_pattern = text;
    else if (sign == ">=")
        result.m_minInclusive = text;
    else if (sign == "<=")
        result.m_maxInclusive = text;
    else if (sign == "> ")
        result.m_minExclusive = text;
    else if (sign == "< ")
        result.m_maxExclusive = text;
    else
        (sign == "l>"   ? result.m_minLength
         : sign == "l<" ? result.m_maxLength
                        : result.m_length) = std::stoi(U8(text));
    return result;
}

/// What the test says, nothing if the value passes.
std::string Check(ItemType type, const std::u16string& text, const std::u16string& facet)
{
    return TextOrMessage([&] {
        ZqVariant value;
        value.FromString(text, type, CWhitespaceUtils::WhitespaceRule_None);
        CheckRestrictionValue(u"a", value, type, Facet(facet));
        return std::string();
    });
}

struct SCase {
    ItemType type;
    const char16_t* value;
    const char16_t* facet;
    const char* shown;  ///< the value in the message, null if it passes
};

TEST(CheckValue, TestsEachFacet)
{
    const SCase rows[] = {
        {ItemType_string, u"abc", u"l=3", nullptr},
        {ItemType_string, u"abc", u"l=2", "abc"},
        {ItemType_string, u"abc", u"l>0", nullptr},
        {ItemType_string, u"abc", u"l>4", "abc"},
        {ItemType_string, u"\U0001F600", u"l<1", "\U0001F600"},
        {ItemType_string, u"abc", u">=d", nullptr},
        {ItemType_hexBinary, u"0a0b", u"l<1", "0A0B"},
        {ItemType_base64Binary, u"Cgs=", u"l=3", "0A0B"},
        {ItemType_base64Binary, u"Cgs=", u"l=2", nullptr},
        {ItemType_boolean, u"true", u"l=9", nullptr},
        {ItemType_i1, u"-5", u">=-4", "-5"},
        {ItemType_i2, u"5", u"> 5", "5"},
        {ItemType_i4, u"5", u">= 5 ", nullptr},
        {ItemType_i4, u"5", u"l=9", nullptr},
        {ItemType_i8, u"9223372036854775807", u"< 9223372036854775807", "9223372036854775807"},
        {ItemType_ui1, u"200", u"<=199", "200"},
        {ItemType_ui4, u"4294967295", u"< 5", "-1"},
        {ItemType_ui8, u"18446744073709551615", u"> 1", nullptr},
        {ItemType_r4, u"0.5", u"< 0.5", "0.500000"},
        {ItemType_r8, u"NaN", u">=-INF", "nan"},
        {ItemType_r8, u"1", u"<=INF", nullptr},
        {ItemType_decimal, u"-0.50", u"> -0.5", "-0.5"},
        {ItemType_decimal, u"-0", u">=0", nullptr},
        {ItemType_integer, u"100000000000000000000", u"< 99999999999999999999",
         "100000000000000000000"},
        {ItemType_year, u"1999", u">=2000", "1999"},
        {ItemType_month, u"--05", u"<=--04", "5"},
        {ItemType_day, u"---05", u"> ---05", "5"},
        {ItemType_date, u"2000-01-01", u">=2000-01-01Z", nullptr},
        {ItemType_date, u"2000-01-01", u">=2000-01-02", "2000-01-01"},
        {ItemType_datetime, u"2000-01-01T00:00:00Z", u"> 2000-01-01T02:00:00+02:00",
         "2000-01-01T00:00:00Z"},
        {ItemType_time, u"10:00:00", u"< 10:00:00", "10:00:00"},
        {ItemType_monthDay, u"--02-29", u"<=--02-28", "--02-29"},
        {ItemType_yearMonth, u"2000-02", u"<=2000-02", nullptr},
        {ItemType_duration, u"P1M", u"<=P30D", nullptr},
        {ItemType_duration, u"P1M", u"<=P27D", "P1M"},
    };
    for (const SCase& row : rows)
        EXPECT_EQ(Check(row.type, row.value, row.facet),
                  row.shown != nullptr ? "Invalid Value for a [" + std::string(row.shown) + "]"
                                       : "")
            << row.type << ' ' << U8(row.value) << ' ' << U8(row.facet);
    EXPECT_EQ(Check(ItemType_i4, u"5", u">=abc"), "The value [abc] can not be converted to a i4");
    EXPECT_EQ(Check(ItemType_char, u"c", u"l=1"), "unknown type [char]");
    EXPECT_EQ(MessageOf([] { CheckRestrictionValue(u"a", {}, ItemType_xmlObject, {}); }),
              "Invalid Type 0");
}

TEST(CheckValue, TestsBoundsInTheirOrderAndLengthsBeforeThePattern)
{
    const CPrimitiveRestrictions bounds(u"", -1, -1, u"5", u"x", u"", u"", -1);
    EXPECT_EQ(MessageOf([&] { CheckValue<ItemType_i4>(u"a", 4, bounds); }),
              "Invalid Value for a [4]");
    EXPECT_THROW(CheckValue<ItemType_i4>(u"a", 5, bounds), CZqInvalidValueException);
    const CPrimitiveRestrictions pattern(u"(", 2, -1, u"", u"", u"", u"", -1);
    EXPECT_EQ(MessageOf([&] { CheckValue<ItemType_string>(u"a", u"x", pattern); }),
              "Invalid Value for a [x]");
}

TEST(CheckValue, MatchesTheWholeValueWithTheFirstMatch)
{
    struct SPattern {
        const char16_t* pattern;
        const char16_t* matched;
        const char16_t* refused;
    };
    const SPattern rows[] = {
        {u"[0-9]+", u"123", u"123a"},
        {u"[0-9]+", u"0", u""},
        {u"a|ab", u"a", u"ab"},
        {u"\\i\\c*", u"x-1", u"1x"},
        {u"\\I\\C", u"1 ", u"a "},
        {u"\\\\i", u"\\i", u"a"},
        {u"\\p{IsBasicLatin}+", u"abc", u"ab\u00E9"},
        {u"\\p{IsLatin-1Supplement}", u"\u00E9", u"e"},
        {u"\\p{IsLatinExtended-A}", u"\u0153", u"\u00E9"},
        {u"\\p{Lu}", u"\u00C9", u"\u00E9"},
        {u".", u"\U0001F600", u"ab"},
        {u"(x+x+)+y", u"xxy", u"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"},
    };
    for (int round = 0; round < 2; ++round)  // compiled, and kept
        for (const SPattern& row : rows) {
            const std::u16string facet = u"p " + std::u16string(row.pattern);
            EXPECT_EQ(Check(ItemType_string, row.matched, facet), "") << U8(facet);
            EXPECT_EQ(Check(ItemType_string, row.refused, facet),
                      "Invalid Value for a [" + U8(row.refused) + "]")
                << U8(facet);
        }
    EXPECT_EQ(Check(ItemType_string, u"v", u"p ("),
              "Invalid Regular Expression: ( Error: 'missing closing parenthesis'\n"
              "Invalid Value for a [v]");
    for (const char16_t* bad : {u"p \\p{IsLatinExtended-B}", u"p [\\i-:]+["})
        EXPECT_NE(Check(ItemType_string, u"v", bad).find("Invalid Regular Expression: "),
                  std::string::npos);
    EXPECT_NE(MessageOf([] {
                  CheckValue<ItemType_string>(u"a", std::u16string(1, char16_t{0xD800}),
                                              Facet(u"p ."));
              }).find("\nInvalid Value for a ["),
              std::string::npos);
    for (int i = 0; i < 1000; ++i)  // more than are kept
        EXPECT_EQ(Check(ItemType_string, u"xxx", u"p x{0," + ToUtf16(std::to_string(i + 3)) + u"}"),
                  "");
}

}  // namespace
}  // namespace ZqXmlLib9
