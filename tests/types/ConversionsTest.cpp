// The texts of all value types, through the variant, which uses each conversion once; and the white
// space rules over the same texts.
#include "Rows.h"

#include <ZqXmlLib9/engine/ZqVariant.h>
#include <ZqXmlLib9/types/Conversions.h>

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <string>

namespace ZqXmlLib9 {
namespace {

using Rule = CWhitespaceUtils::WhitespaceRule;
constexpr Rule kNone = CWhitespaceUtils::WhitespaceRule_None;
constexpr Rule kCollapse = CWhitespaceUtils::WhitespaceRule_Collapse;

std::string Reprint(ItemType type, std::u16string_view text, Rule rule = kNone)
{
    ZqVariant value;
    value.FromString(std::u16string(text), type, rule);
    EXPECT_EQ(value.GetTypeAsEnum(), type);
    return U8(value.ToString(nullptr));
}

/// Reads the rows `type:text=result`, where what is left out is the text again.
template <typename TUse>
void ForEach(const char* rows, TUse&& use)
{
    for (const std::string& row : Words(rows)) {
        const std::size_t colon = row.find(':'), sign = std::min(row.find('='), row.size());
        const std::string text = row.substr(colon + 1, sign - colon - 1);
        SCOPED_TRACE(row);
        use(row.substr(0, colon), text, sign < row.size() ? row.substr(sign + 1) : text);
    }
}

TEST(Conversions, ReadAndPrint)
{
    ForEach(
        "i1:-128 i2:+32767=32767 i4:=0 i4:-2147483648 i8:-9223372036854775808 ui1:-4294967295=1 "
        "i8:00000000000000000000000000000000000000001=1 ui2:65535 ui4:-1=4294967295 ui4:-0=0 "
        "ui8:-1=18446744073709551615 r8:1.0=1 r8:0.1 r8:1e16=1e+16 r8:=NaN r8:1.#QNAN=NaN "
        "r8:-1.2345678901234567e-300=-1.234567890123457e-300 r8:-NAN=NaN r8:nan=NaN r8:-INF "
        "r8:1E400=INF r8:-100000E99999999999999999999=-INF r8:10e9223372036854775807=INF "
        "r8:0.00001e-9223372036854775807=0 r8:1e-400=0 r8:-0.0001e-330=-0 r4:0.1 r4:1E300=INF "
        "r8:4.9e-324=4.940656458412465e-324 r4:16777217=1.677722e+07 r4:INF boolean:tRuE=true "
        "boolean:0=false decimal:-01.5E1=-15 integer:-1.5e2=-150 date:2001-02-03 date:--05 "
        "yearMonth:2001-02Z monthDay:--02-29 datetime:2001-02-03T04:05:06.7-08:00 "
        "time:10:00:00.50=10:00:00.5 day:---05 day:2001-02-13=---13 month:--05 year:0005=5 "
        "year:-0001=65535 duration:P1Y2M3DT4H5M6.789S hexBinary:0aFF=0AFF base64Binary:TW*u=",
        [](const auto& type, const auto& text, const auto& result) {
            EXPECT_EQ(Reprint(TypeOf(type), ToUtf16(text)), result);
        });
    const std::tuple<ItemType, Rule, const char16_t*, const char*> withBlanks[] = {
        {ItemType_i4, kNone, u" \t\n\v\f\r12", "12"},
        {ItemType_r8, kNone, u"  +.5e+1", "5"},
        {ItemType_char, kNone, u" ", " "},
        {ItemType_string, kNone, u" a\r ", " a\r "},
        {ItemType_base64Binary, kNone, u"T Q", "TQ=="},
        {ItemType_i4, kCollapse, u"\n 12 ", "12"},
        {ItemType_boolean, kCollapse, u" 1\n", "true"},
        {ItemType_string, kCollapse, u"\t a  b\r\n", "a b"}};
    for (const auto& [type, rule, text, result] : withBlanks)
        EXPECT_EQ(Reprint(type, text, rule), result);
}

TEST(Conversions, RefuseWithTheText)
{
    const auto message = [](ItemType type, const std::u16string& text, Rule rule = kNone) {
        return MessageOf<CZqInvalidValueException>([&] { Reprint(type, text, rule); });
    };
    const auto check = [&](const char* rows, const std::string& words) {
        ForEach(rows, [&](const auto& type, const auto& text, const auto& named) {
            const std::string& shown = named != text ? named : type;
            EXPECT_EQ(message(TypeOf(type), ToUtf16(text)), "The value [" + text + words + shown);
        });
    };
    check("i1:128 i1:-129 i2:-32769 i4:2147483648 i4:99999999999x i8:9223372036854775808 ui1:-1 "
          "ui2:4294967296=ui4 ui4:-4294967296 ui8:18446744073709551616",
          "] is to large to fit in a ");
    check("i1:x=i4 i4:+ i4:\u0661 r8:1,5 r8:0x10 r8:--1", "] can not be converted to a ");
    const std::string blanks = "The value [ ] can not be converted to a ";
    EXPECT_EQ(message(ItemType_i4, u" "), blanks + "i4");
    EXPECT_EQ(message(ItemType_r8, u" "), blanks + "r8");
    EXPECT_EQ(message(ItemType_r4, u"1e5 "), "The value [1e5 ] can not be converted to a r4");
    for (const ItemType type : {ItemType_decimal, ItemType_integer})
        EXPECT_EQ(
            message(type, u"1E1000"),
            "The string representing a Decimal, contained an invalid char at position 1 [1E1000]");
    // The narrow kinds show the text as it came in only for their own range.
    EXPECT_EQ(message(ItemType_i1, u" 300 ", kCollapse),
              "The value [ 300 ] is to large to fit in a i1");
    EXPECT_EQ(message(ItemType_i1, u" 3x ", kCollapse),
              "The value [3x] can not be converted to a i4");
    EXPECT_EQ(message(ItemType_boolean, u""),
              "A Boolean Value read from an XML document was invalid []. Valid values are 'true', "
              "'false', '1', or '0'");
    EXPECT_EQ(message(ItemType_char, u"\U0001F600"),
              "The value [\U0001F600] can not be a char as it is either empty of greater than 1 "
              "char long");
    EXPECT_EQ(MessageOf<CZqInvalidStateException>([] { Reprint(ItemType_day, u"2001"); }),
              "Failed to GetDay. Invalid Date Type: gYear.");
    for (int type = ItemType_hexBinary; type <= ItemType_integer; ++type) {
        const auto kind = static_cast<ItemType>(type);
        if (kind != ItemType_string && kind != ItemType_base64Binary) {
            EXPECT_THROW(Reprint(kind, {u"1\0", 2}), CZqException) << type;
        }
        EXPECT_EQ(MessageOf([&] { Reprint(kind, u"1", static_cast<Rule>(4)); }),
                  "Unknown WhitespaceRule");
    }
}

TEST(Conversions, KeepPrintFormatsFromTheLocale)
{
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
    const std::string fixed = U8(CConversions::r8ToString(-1234.5, u"%012.3f"));
    const std::string plain = Reprint(ItemType_r4, u"1.5");
    std::setlocale(LC_ALL, "C");
    EXPECT_EQ(fixed, "-0001234.500");
    EXPECT_EQ(plain, "1.5");
    EXPECT_EQ(U8(CConversions::r8ToString(std::nan(""), u"%5.1f")), "NaN");
    EXPECT_EQ(U8(CConversions::r4ToString(1e30f, u"%.100f")).size(), 132U);
    for (const char16_t* format : {u"%n", u"%s", u"%d", u"%.3f %f", u"abc", u""})
        EXPECT_THROW(CConversions::r8ToString(1, format), CZqInvalidParamException);
}

TEST(Conversions, ReadTheFormatOfADecimal)
{
    const std::pair<const char16_t*, const char*> rows[] = {
        {nullptr, "1.5"}, {u" +3x", "1.500"}, {u"x", "2."}, {u"", "2."}, {u"-0", "2."}};
    for (const auto& [format, result] : rows)
        EXPECT_EQ(U8(CConversions::decimalToString(CDecimal(u"1.5"), format)), result);
    for (const char16_t* format : {u"-1", u"4294967296", u"-99999999999999999999"})
        EXPECT_THROW(CConversions::decimalToString(CDecimal(1), format), CZqInvalidParamException);
}

TEST(Variant, KeepsItsValueWhenTheTextIsRefused)
{
    ZqVariant value;
    value.SetMonthDay(CDateTime(2001, 2, 3));
    EXPECT_EQ(U8(value.GetType() + value.ToString(u"%5.1f")), "monthDay2001-02-03");
    value.SetDecimal(CDecimal(u"1.5"));
    const auto read = [&](const char16_t* text, ItemType type) {
        return MessageOf([&] { value.FromString(text, type, kNone); });
    };
    EXPECT_EQ(read(u"1", ItemType_xmlObject), "Invalid Type 27 to convert to string");
    EXPECT_EQ(read(u"1", static_cast<ItemType>(99)), "Invalid Type 99 to convert to string");
    EXPECT_EQ(U8(value.ToString(u"1")), "1.5");
    EXPECT_EQ(U8(value.GetType()), "decimal");
    EXPECT_THROW(value.GetInteger(), CZqInvalidStateException);
    value.Clear();
    EXPECT_EQ(MessageOf([&] { value.ToString(nullptr); }), "Invalid Type 0 to convert to string");
    EXPECT_EQ(MessageOf([&] { value.GetType(); }), "Invalid Type 0");
    EXPECT_TRUE(value.GetDecimal() == 0 && value.GetHexBinary().GetData() == nullptr);
}

// Other blanks of Unicode, control characters, and units that look like a blank in one octet.
const std::u16string kNoWhiteSpace = u"\v\f\u0085\u00A0\u0120\u2000\u2020\u2028\u3000\uFEFF";

TEST(WhiteSpace, FollowsEachRule)
{
    // As it is, preserved, replaced, collapsed.
    const std::u16string rows[][4] = {
        {u" \r ", u"  ", u"  ", u""},
        {u"\t a b\n", u"\t a b\n", u"  a b ", u"a b"},
        {u"a\rb", u"ab", u"ab", u"ab"},
        {u"  a \r\n  b  ", u"  a \n  b  ", u"  a    b  ", u"a b"},
        {u"a \r", u"a ", u"a ", u"a"},
        {u"\r a", u" a", u" a", u"a"},
        {kNoWhiteSpace, kNoWhiteSpace, kNoWhiteSpace, kNoWhiteSpace},
        {{u"a\0 \r\0", 5}, {u"a\0 \0", 4}, {u"a\0 \0", 4}, {u"a\0 \0", 4}}};
    for (const auto& row : rows)
        for (int rule = 0; rule < 4; ++rule)
            EXPECT_EQ(U8(CWhitespaceUtils::ApplyRule(Rule(rule), row[0])), U8(row[rule])) << rule;
    EXPECT_EQ(CWhitespaceUtils::Preserve(u"a\r\nb\rc", 5), u"a\nb");
    EXPECT_EQ(CWhitespaceUtils::Preserve(u"a", 0), u"");
}

}  // namespace
}  // namespace ZqXmlLib9
