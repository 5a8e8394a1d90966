#include "support/Print.h"

#include <ZqXmlLib9/types/Decimal.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace ZqXmlLib9 {
namespace {

std::string Print(std::u16string_view text)
{
    return U8(CDecimal(text).ToString());
}

TEST(Decimal, ReadsAndWrites)
{
    const std::u16string nines31 = u"0." + std::u16string(31, u'9');
    const std::u16string long31 = u"0.123456789012345678901234567890";
    const std::string long30 = "0.123456789012345678901234567890";
    const std::pair<std::u16string, std::string> rows[] = {
        {u"", "0"},
        {u".", "0"},
        {u"-", "0"},
        {u".5", "0.5"},
        {u"5.", "5"},
        {u"1.500", "1.5"},
        {u"1.000", "1"},
        {u"-0.5", "-0.5"},
        {u"1E2", "100"},
        {u"1E", "1"},
        {u"1.5e-1", "0.15"},
        {u"1E 2", "100"},
        {u"1 2", "12"},
        {u"1-2", "-12"},
        {u"-1+2", "12"},
        {u"1. 5 0", "1.5"},
        {u"1E-+2", "100"},
        {u"-0E5", "0"},
        {u"-0.05", "-0.05"},
        {u"00012.50", "12.5"},
        {long31 + u"5", long30},
        {long31 + u"51", long30.substr(0, 31) + "1"},
        {nines31, "1"},
        {u"-" + nines31, "-1"},
        {u"0.1" + std::u16string(30, u'9'), "0.2" + std::string(29, '0')},
        {u"1E-30", "0." + std::string(29, '0') + "1"},
        {u"1E-31", "0"},
        {u"6E-31", "0." + std::string(29, '0') + "1"},
        {u"1E-999999999999999999999", "0"},
        {u"0E999999999999999999999", "0"},
        {u"0.90500095950005599907E-25", "0." + std::string(25, '0') + "905"},
        {u"0.1234567890123456789012345678905001E-0", "0.12345678901234567890123456789"},
    };
    for (const auto& [text, result] : rows)
        EXPECT_EQ(Print(text), result) << U8(text);
    EXPECT_EQ(Print(u"1E999999").size(), 1'000'000U);
    const std::u16string digits(5000, u'7');
    EXPECT_EQ(Print(digits), U8(digits));
}

TEST(Decimal, NamesThePlaceOfAWrongCharacter)
{
    const std::pair<std::u16string_view, int> rows[] = {
        {u"abc", 0},
        {u"1.5.5", 3},
        {u"1E2 ", 3},
        {u"1.-5", 2},
        {u"1E2E3", 3},
        {u"1E2+", 3},
        {u"\u0665", 0},
        {{u"1\0005", 3}, 1},
        {u"1E1000000", 1},
        {u"-10E999999", 3},
        {u"1E99999999999999999999", 1},
    };
    for (const auto& [text, position] : rows)
        EXPECT_EQ(MessageOf<CZqInvalidValueException>([&] { CDecimal{text}; }),
                  "The string representing a Decimal, contained an invalid char at position "
                      + std::to_string(position) + " [" + U8(text) + "]");
    EXPECT_THROW(CDecimal(std::nan("")), CZqInvalidValueException);
}

TEST(Decimal, Calculates)
{
    const auto d = [](const char16_t* text) { return CDecimal(text); };
    EXPECT_EQ(U8((d(u"1") / d(u"3")).ToString()), "0." + std::string(30, '3'));
    EXPECT_EQ(U8((d(u"2") / d(u"3")).ToString()), "0." + std::string(29, '6') + "7");
    EXPECT_EQ(U8((d(u"-5") - d(u"-8.00")).ToString()), "3");
    EXPECT_EQ(U8((d(u"1.5") - d(u"1.5")).ToString()), "0");
    EXPECT_EQ(U8((d(u"-1.5") + 1).ToString()), "-0.5");
    EXPECT_EQ(U8((d(u"1.5") + -2).ToString()), "-0.5");
    EXPECT_EQ(U8((d(u"-1.25") * d(u"0.8")).ToString()), "-1");
    EXPECT_EQ(d(u"0.1") + d(u"0.2"), d(u"0.3"));
    // The quotient is cut two digits beyond the cap, which turns this remainder into a tie.
    EXPECT_EQ(d(u"5000001E-37") / 1, d(u"0"));
    // Sums keep more places than the cap.
    EXPECT_EQ(U8((d(u"1E-30") / 1 + d(u"1")).ToString()), "1." + std::string(29, '0') + "1");
    EXPECT_EQ(MessageOf<CZqInvalidValueException>([&] { d(u"1") / d(u"0.0"); }),
              "ERROR: Overflow in operator/.");
    CDecimal x = d(u"1.5");
    EXPECT_EQ(x++, d(u"1.5"));
    EXPECT_EQ(x, 2.5);
    EXPECT_EQ(--x, d(u"1.5"));
    x /= x;
    EXPECT_EQ(x, 1);
    EXPECT_TRUE(CDecimal(0.1) == d(u"0.1") && CDecimal(1.0E-14) == 0 && CDecimal(5LL) == 5);
}

TEST(Decimal, ComparesByValue)
{
    const char16_t* const ascending[] = {u"-10",  u"-9.99", u"-0.5", u"-0.05", u"0",
                                         u"0.05", u"0.5",   u"9.99", u"10",    u"10.01"};
    for (const char16_t* const& left : ascending)
        for (const char16_t* const& right : ascending) {
            const CDecimal a(left);
            const CDecimal b(right);
            EXPECT_EQ(a < b, &left < &right && a != b && b > a);
            EXPECT_TRUE((a <= b) == !(a > b) && (a >= b) == !(a < b));
        }
    EXPECT_TRUE(CDecimal(u"-0") == 0 && !(CDecimal(u"-0") < 0) && CDecimal(u"-1") >= -1);
}

TEST(Decimal, PrintsWithPlacesRoundedHalfAwayFromZero)
{
    struct SRow {
        const char16_t* text;
        int places;
        const char* result;
    };
    const SRow rows[] = {
        {u"1.005", 2, "1.01"},  {u"1.004", 2, "1.00"}, {u"-1.005", 2, "-1.01"},
        {u"1.995", 2, "2.0"},   {u"0", 2, "0.00"},     {u"1.5", 0, "2."},
        {u"1.4", 0, "1."},      {u"9.96", 1, "10.0"},  {u"-99.95", 1, "-100.0"},
        {u"1.9951", 2, "2.00"}, {u"1.495", 2, "1.5"},  {u"12", 3, "12.000"},
        {u"0.05", 1, "0.1"},    {u"0.04", 1, "0.0"},   {u"-0.004", 2, "-0.00"},
    };
    for (const SRow& row : rows)
        EXPECT_EQ(U8(CDecimal(row.text).ToString(row.places)), row.result) << U8(row.text);
    EXPECT_THROW(CDecimal(1).ToString(-1), CZqInvalidParamException);
}

TEST(Decimal, ConvertsToMachineTypes)
{
    EXPECT_EQ(CDecimal(u"2.5").ToLong(), 2);
    EXPECT_EQ(CDecimal(u"2.6").ToLong(), 3);
    EXPECT_EQ(CDecimal(u"-2.51").ToLong(), -3);
    EXPECT_EQ(CDecimal(u"2.6").ToLongLong(), 2);
    EXPECT_EQ(CDecimal(u"2.96").ToLongLong(), 3);
    EXPECT_EQ(CDecimal(u"-2.95").ToLongLong(), -2);
    EXPECT_EQ(CDecimal(u"-1234.5e-2").ToDouble(), -12.345);
    EXPECT_EQ(CDecimal(2147483648LL).ToBigInteger(), 2147483648LL);
    EXPECT_EQ(MessageOf<CZqOverFlowException>([] { CDecimal(2147483648LL).ToLong(); }),
              "The Decimal value if to large to fit into a LONG");
    EXPECT_EQ(
        MessageOf<CZqOverFlowException>([] { CDecimal(u"9223372036854775808").ToLongLong(); }),
        "The Decimal value if to large to fit into a LONGLONG");
    EXPECT_EQ(MessageOf<CZqOverFlowException>([] { CDecimal(u"-1.8E308").ToDouble(); }),
              "The Decimal value if to large to fit into a Double");
}

TEST(Decimal, MeetsANewCapAtItsNextProduct)
{
    const CDecimal third = CDecimal(1) / 3;
    CDecimal::SetMaxDecimalPlaces(2);
    const std::string sum = U8((third + 0).ToString());
    const std::string product = U8((third * 1).ToString());
    CDecimal::SetMaxDecimalPlaces(30);
    EXPECT_EQ(sum, "0." + std::string(30, '3'));
    EXPECT_EQ(product, "0.33");
    EXPECT_THROW(CDecimal::SetMaxDecimalPlaces(0), CZqInvalidParamException);
}

}  // namespace
}  // namespace ZqXmlLib9
