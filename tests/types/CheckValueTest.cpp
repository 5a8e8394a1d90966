// The facets, through the test by item type that the metadata runs.
#include "Rows.h"

#include <ZqXmlLib9/engine/ZqVariant.h>
#include <ZqXmlLib9/metadata/RestrictionCheck.h>
#include <ZqXmlLib9/types/CheckValue.h>

#include <gtest/gtest.h>

namespace ZqXmlLib9 {
namespace {

/// One facet: a sign and its text or number.
CPrimitiveRestrictions Facet(const std::u16string& facet)
{
    CPrimitiveRestrictions result;
    const bool hasTwo = facet[0] == u'l' || facet[1] == u'=';
    const std::u16string sign = facet.substr(0, hasTwo ? 2 : 1), text = facet.substr(sign.size());
    for (const auto& [word, field] : {std::pair(u"p", &CPrimitiveRestrictions::m_pattern),
                                      {u">=", &CPrimitiveRestrictions::m_minInclusive},
                                      {u"<=", &CPrimitiveRestrictions::m_maxInclusive},
                                      {u">", &CPrimitiveRestrictions::m_minExclusive},
                                      {u"<", &CPrimitiveRestrictions::m_maxExclusive}})
        if (sign == word)
            result.*field = text;
    for (const auto& [word, field] : {std::pair(u"l>", &CPrimitiveRestrictions::m_minLength),
                                      {u"l<", &CPrimitiveRestrictions::m_maxLength},
                                      {u"l=", &CPrimitiveRestrictions::m_length}})
        if (sign == word)
            result.*field = std::stoi(U8(text));
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

TEST(CheckValue, TestsEachFacet)
{
    // Type, value, facet, and the value as the message shows it, "ok" where it passes.
    const std::vector<std::string> words = Words(R"(
        string abc l=3 ok      string abc l=2 abc      string abc l>0 ok   string abc l>4 abc
        string abc >=d ok      hexBinary 0a0b l<1 0A0B base64Binary Cgs= l=3 0A0B
        base64Binary Cgs= l=2 ok  boolean true l=9 ok  i1 -5 >=-4 -5  i2 5 >5 5  i4 5 l=9 ok
        i8 9223372036854775807 <9223372036854775807 9223372036854775807
        ui1 200 <=199 200      ui4 4294967295 <5 -1    ui8 18446744073709551615 >1 ok
        r4 0.5 <0.5 0.500000   r8 NaN >=-INF nan       r8 1 <=INF ok
        decimal -0.50 >-0.5 -0.5  decimal -0 >=0 ok
        integer 100000000000000000000 <99999999999999999999 100000000000000000000
        year 1999 >=2000 1999  month --05 <=--04 5     day ---05 >---05 5
        date 2000-01-01 >=2000-01-01Z ok  date 2000-01-01 >=2000-01-02 2000-01-01
        datetime 2000-01-01T00:00:00Z >2000-01-01T02:00:00+02:00 2000-01-01T00:00:00Z
        time 10:00:00 <10:00:00 10:00:00  monthDay --02-29 <=--02-28 --02-29
        yearMonth 2000-02 <=2000-02 ok    duration P1M <=P30D ok  duration P1M <=P27D P1M)");
    for (std::size_t i = 0; i < words.size(); i += 4) {
        const std::string shown = words[i + 3];
        EXPECT_EQ(Check(TypeOf(words[i]), ToUtf16(words[i + 1]), ToUtf16(words[i + 2])),
                  shown == "ok" ? "" : "Invalid Value for a [" + shown + "]")
            << words[i] << ' ' << words[i + 1] << ' ' << words[i + 2];
    }
    EXPECT_EQ(Check(ItemType_string, u"\U0001F600", u"l<1"), "Invalid Value for a [\U0001F600]");
    EXPECT_EQ(Check(ItemType_i4, u"5", u">= 5 "), "");
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
    // A pattern, a value that matches, and one that doesn't.
    const std::vector<std::string> rows = Words(
        "[0-9]+ 123 123a a|ab a ab \\i\\c* x-1 1x \\I\\C 1+ a+ \\\\i \\i a \\p{Lu} \u00C9 \u00E9 "
        "\\p{IsBasicLatin}+ abc ab\u00E9 \\p{IsLatin-1Supplement} \u00E9 e . \U0001F600 ab "
        "\\p{IsLatinExtended-A} \u0153 \u00E9 "
        "(x+x+)+y xxy xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx");
    for (std::size_t i = 0; i < 2 * rows.size(); i += 3) {  // compiled, and kept
        const std::string* const row = &rows[i % rows.size()];
        const std::u16string facet = u"p" + ToUtf16(row[0]);
        EXPECT_EQ(Check(ItemType_string, ToUtf16(row[1]), facet), "") << row[0];
        EXPECT_EQ(Check(ItemType_string, ToUtf16(row[2]), facet),
                  "Invalid Value for a [" + row[2] + "]");
    }
    EXPECT_EQ(Check(ItemType_string, u"", u"p[0-9]+"), "Invalid Value for a []");
    EXPECT_EQ(Check(ItemType_string, u"v", u"p("),
              "Invalid Regular Expression: ( Error: 'missing closing parenthesis'\n"
              "Invalid Value for a [v]");
    for (const char16_t* bad : {u"p\\p{IsLatinExtended-B}", u"p[\\i-:]+["})
        EXPECT_NE(Check(ItemType_string, u"v", bad).find("Invalid Regular Expression: "),
                  std::string::npos);
    EXPECT_NE(MessageOf([] {
                  CheckValue<ItemType_string>(u"a", std::u16string(1, char16_t{0xD800}),
                                              Facet(u"p."));
              }).find("\nInvalid Value for a ["),
              std::string::npos);
    for (int i = 0; i < 1000; ++i)  // more than are kept
        EXPECT_EQ(Check(ItemType_string, u"xxx", u"px{0," + ToUtf16(std::to_string(i + 3)) + u"}"),
                  "");
}

}  // namespace
}  // namespace ZqXmlLib9
