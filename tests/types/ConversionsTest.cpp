// The texts of all value types, through the variant, which uses each conversion once.
#include "support/Print.h"

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

struct SGood {
    ItemType type;
    std::u16string_view text;
    const char* result;
};

struct SBad {
    ItemType type;
    std::u16string_view text;
    const char* message;
};

std::string Reprint(ItemType type, std::u16string_view text, Rule rule = kNone)
{
    ZqVariant value;
    value.FromString(std::u16string(text), type, rule);
    EXPECT_EQ(value.GetTypeAsEnum(), type);
    return U8(value.ToString(nullptr));
}

const SGood kGood[] = {
    {ItemType_i1, u"-128", "-128"},
    {ItemType_i2, u"+32767", "32767"},
    {ItemType_i4, u"", "0"},
    {ItemType_i4, u" \t\n\v\f\r12", "12"},
    {ItemType_i4, u"-2147483648", "-2147483648"},
    {ItemType_i8, u"-9223372036854775808", "-9223372036854775808"},
    {ItemType_i8, u"00000000000000000000000000000000000000001", "1"},
    {ItemType_ui1, u"-4294967295", "1"},
    {ItemType_ui2, u"65535", "65535"},
    {ItemType_ui4, u"-1", "4294967295"},
    {ItemType_ui4, u"-0", "0"},
    {ItemType_ui8, u"-1", "18446744073709551615"},
    {ItemType_r8, u"1.0", "1"},
    {ItemType_r8, u"  +.5e+1", "5"},
    {ItemType_r8, u"0.1", "0.1"},
    {ItemType_r8, u"1e16", "1e+16"},
    {ItemType_r8, u"-1.2345678901234567e-300", "-1.234567890123457e-300"},
    {ItemType_r8, u"", "NaN"},
    {ItemType_r8, u"1.#QNAN", "NaN"},
    {ItemType_r8, u"-NAN", "NaN"},
    {ItemType_r8, u"nan", "NaN"},
    {ItemType_r8, u"-INF", "-INF"},
    {ItemType_r8, u"1E400", "INF"},
    {ItemType_r8, u"-100000E99999999999999999999", "-INF"},
    {ItemType_r8, u"10e9223372036854775807", "INF"},
    {ItemType_r8, u"0.00001e-9223372036854775807", "0"},
    {ItemType_r8, u"1e-400", "0"},
    {ItemType_r8, u"-0.0001e-330", "-0"},
    {ItemType_r8, u"4.9e-324", "4.940656458412465e-324"},
    {ItemType_r4, u"0.1", "0.1"},
    {ItemType_r4, u"16777217", "1.677722e+07"},
    {ItemType_r4, u"1E300", "INF"},
    {ItemType_r4, u"INF", "INF"},
    {ItemType_boolean, u"tRuE", "true"},
    {ItemType_boolean, u"0", "false"},
    {ItemType_char, u" ", " "},
    {ItemType_string, u" a\r\n ", " a\r\n "},
    {ItemType_decimal, u"-01.50", "-1.5"},
    {ItemType_integer, u"-007", "-7"},
    {ItemType_date, u"2001-02-03", "2001-02-03"},
    {ItemType_date, u"--05", "--05"},
    {ItemType_yearMonth, u"2001-02Z", "2001-02Z"},
    {ItemType_monthDay, u"--02-29", "--02-29"},
    {ItemType_datetime, u"2001-02-03T04:05:06.7-08:00", "2001-02-03T04:05:06.7-08:00"},
    {ItemType_time, u"10:00:00.50", "10:00:00.5"},
    {ItemType_day, u"---05", "---05"},
    {ItemType_day, u"2001-02-13", "---13"},
    {ItemType_month, u"--05", "--05"},
    {ItemType_year, u"0005", "5"},
    {ItemType_year, u"-0001", "65535"},
    {ItemType_duration, u"P1Y2M3DT4H5M6.789S", "P1Y2M3DT4H5M6.789S"},
    {ItemType_hexBinary, u"0aFF", "0AFF"},
    {ItemType_base64Binary, u"T Q", "TQ=="},
    {ItemType_base64Binary, u"TW*u", ""},
};

const SBad kBad[] = {
    {ItemType_i1, u"128", "The value [128] is to large to fit in a i1"},
    {ItemType_i1, u"-129", "The value [-129] is to large to fit in a i1"},
    {ItemType_i1, u"x", "The value [x] can not be converted to a i4"},
    {ItemType_i2, u"-32769", "The value [-32769] is to large to fit in a i2"},
    {ItemType_i4, u"2147483648", "The value [2147483648] is to large to fit in a i4"},
    {ItemType_i4, u"99999999999x", "The value [99999999999x] is to large to fit in a i4"},
    {ItemType_i4, u"12  ", "The value [12  ] can not be converted to a i4"},
    {ItemType_i4, u"+", "The value [+] can not be converted to a i4"},
    {ItemType_i4, u" ", "The value [ ] can not be converted to a i4"},
    {ItemType_i4, u"\u0661", "The value [\u0661] can not be converted to a i4"},
    {ItemType_i8, u"9223372036854775808",
     "The value [9223372036854775808] is to large to fit in a i8"},
    {ItemType_ui1, u"-1", "The value [-1] is to large to fit in a ui1"},
    {ItemType_ui2, u"4294967296", "The value [4294967296] is to large to fit in a ui4"},
    {ItemType_ui4, u"-4294967296", "The value [-4294967296] is to large to fit in a ui4"},
    {ItemType_ui8, u"18446744073709551616",
     "The value [18446744073709551616] is to large to fit in a ui8"},
    {ItemType_r8, u"1,5", "The value [1,5] can not be converted to a r8"},
    {ItemType_r8, u"0x10", "The value [0x10] can not be converted to a r8"},
    {ItemType_r8, u"--1", "The value [--1] can not be converted to a r8"},
    {ItemType_r8, u" ", "The value [ ] can not be converted to a r8"},
    {ItemType_r4, u"1e5 ", "The value [1e5 ] can not be converted to a r4"},
    {ItemType_boolean, u"",
     "A Boolean Value read from an XML document was invalid []. Valid values are 'true', 'false', "
     "'1', or '0'"},
    {ItemType_char, u"\U0001F600",
     "The value [\U0001F600] can not be a char as it is either empty of greater than 1 char long"},
};

TEST(Conversions, ReadAndPrint)
{
    for (const SGood& row : kGood)
        EXPECT_EQ(Reprint(row.type, row.text), row.result) << row.type << ' ' << U8(row.text);
    EXPECT_EQ(Reprint(ItemType_boolean, u" 1\n", kCollapse), "true");
    EXPECT_EQ(Reprint(ItemType_i4, u"\n 12 ", kCollapse), "12");
    EXPECT_EQ(Reprint(ItemType_string, u"\t a  b\r\n", kCollapse), "a b");
}

TEST(Conversions, RefuseWithTheText)
{
    for (const SBad& row : kBad)
        EXPECT_EQ(MessageOf<CZqInvalidValueException>([&] { Reprint(row.type, row.text); }),
                  row.message);
    // The narrow kinds show the text as it came in only for their own range.
    EXPECT_EQ(
        MessageOf<CZqInvalidValueException>([] { Reprint(ItemType_i1, u" 300 ", kCollapse); }),
        "The value [ 300 ] is to large to fit in a i1");
    EXPECT_EQ(MessageOf<CZqInvalidValueException>([] { Reprint(ItemType_i1, u" 3x ", kCollapse); }),
              "The value [3x] can not be converted to a i4");
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
        {nullptr, "1.5"}, {u" +3x", "1.500"}, {u"x", "2."}, {u"", "2."}, {u"-0", "2."},
    };
    for (const auto& [format, result] : rows)
        EXPECT_EQ(U8(CConversions::decimalToString(CDecimal(u"1.5"), format)), result);
    for (const char16_t* format : {u"-1", u"4294967296", u"-99999999999999999999"})
        EXPECT_THROW(CConversions::decimalToString(CDecimal(1), format), CZqInvalidParamException);
}

TEST(Variant, KeepsItsValueWhenTheTextIsRefused)
{
    ZqVariant value;
    value.SetDecimal(CDecimal(u"1.5"));
    const auto read = [&](const char16_t* text, ItemType type) {
        return MessageOf([&] { value.FromString(text, type, kNone); });
    };
    EXPECT_THROW(value.FromString(u"x", ItemType_i8, kNone), CZqInvalidValueException);
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

TEST(Variant, TellsTheSetterNotTheTypeOfADate)
{
    ZqVariant value;
    value.SetMonthDay(CDateTime(2001, 2, 3));
    ZqVariant copy;
    copy.SetHexBinary(CBinaryData(u"ab"));
    copy = value;
    value.SetI1(-5);
    EXPECT_EQ(U8(copy.GetType()), "monthDay");
    EXPECT_EQ(U8(copy.ToString(u"%5.1f")), "2001-02-03");
    EXPECT_EQ(U8(value.ToString(nullptr)), "-5");
}

}  // namespace
}  // namespace ZqXmlLib9
