#include "Rows.h"

#include <ZqXmlLib9/types/Decimal.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace ZqXmlLib9 {
namespace {

TEST(Decimal, ReadsAndWrites)
{
    const auto read = [](const std::u16string& text) { return CDecimal(text); };
    CheckTexts(
        "=0 .=0 -=0 .5=0.5 5.=5 1.500=1.5 1.000=1 -0.5 1E2=100 1E=1 1.5e-1=0.15 1-2=-12 "
        "-1+2=12 1E-+2=100 -0E5=0 -0.05 00012.50=12.5 1E-31=0 1E-999999999999999999999=0 "
        "0.1234567890123456789012345678905=0.123456789012345678901234567890 "
        "0.12345678901234567890123456789051=0.123456789012345678901234567891 "
        "0.9999999999999999999999999999999=1 -0.9999999999999999999999999999999=-1 "
        "0.1999999999999999999999999999999=0.200000000000000000000000000000 "
        "1E-30=0.000000000000000000000000000001 6E-31=0.000000000000000000000000000001 "
        "0E999999999999999999999=0 0.90500095950005599907E-25=0.0000000000000000000000000905 "
        "0.1234567890123456789012345678905001E-0=0.12345678901234567890123456789",
        read);
    for (const auto& [text, result] :
         {std::pair(u"1E 2", u"100"), {u"1 2", u"12"}, {u"1. 5 0", u"1.5"}})
        EXPECT_EQ(read(text).ToString(), result);
    EXPECT_EQ(read(u"1E999999").ToString().size(), 1'000'000U);
    const std::u16string digits(5000, u'7');
    EXPECT_EQ(read(digits).ToString(), digits);
}

TEST(Decimal, NamesThePlaceOfAWrongCharacter)
{
    const auto check = [](const std::u16string& text, const std::string& position) {
        EXPECT_EQ(InvalidValue([&] { CDecimal{text}; }),
                  "The string representing a Decimal, contained an invalid char at position "
                      + position + " [" + U8(text) + "]");
    };
    const std::vector<std::string> rows =
        Words("abc 0 1.5.5 3 1.-5 2 1E2E3 3 1E2+ 3 \u0665 0 1E1000000 1 -10E999999 3 "
              "1E99999999999999999999 1");
    for (std::size_t i = 0; i < rows.size(); i += 2)
        check(ToUtf16(rows[i]), rows[i + 1]);
    check(u"1E2 ", "3");
    check({u"1\0005", 3}, "1");
    EXPECT_THROW(CDecimal(std::nan("")), CZqInvalidValueException);
}

TEST(Decimal, Calculates)
{
    const auto d = [](const char16_t* text) { return CDecimal(text); };
    for (const auto& [result, text] :
         {std::pair(d(u"1") / d(u"3"), "0." + std::string(30, '3')),
          {d(u"2") / d(u"3"), "0." + std::string(29, '6') + "7"},
          {d(u"-5") - d(u"-8.00"), "3"},
          {d(u"1.5") - d(u"1.5"), "0"},
          {d(u"-1.5") + 1, "-0.5"},
          {d(u"1.5") + -2, "-0.5"},
          {d(u"-1.25") * d(u"0.8"), "-1"},
          // Sums keep more places than the cap.
          {d(u"1E-30") / 1 + d(u"1"), "1." + std::string(29, '0') + "1"}})
        EXPECT_EQ(U8(result.ToString()), text);
    EXPECT_EQ(d(u"0.1") + d(u"0.2"), d(u"0.3"));
    // The quotient is cut two digits beyond the cap, which turns this remainder into a tie.
    EXPECT_EQ(d(u"5000001E-37") / 1, d(u"0"));
    EXPECT_EQ(InvalidValue([&] { d(u"1") / d(u"0.0"); }), "ERROR: Overflow in operator/.");
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
    const std::vector<std::string> ascending =
        Words("-10 -9.99 -0.5 -0.05 0 0.05 0.5 9.99 10 10.01");
    for (const std::string& left : ascending)
        for (const std::string& right : ascending) {
            const CDecimal a(ToUtf16(left)), b(ToUtf16(right));
            EXPECT_EQ(a < b, &left < &right && a != b && b > a);
            EXPECT_TRUE((a <= b) == !(a > b) && (a >= b) == !(a < b));
        }
    EXPECT_TRUE(CDecimal(u"-0") == 0 && !(CDecimal(u"-0") < 0) && CDecimal(u"-1") >= -1);
}

TEST(Decimal, PrintsWithPlacesRoundedHalfAwayFromZero)
{
    const std::tuple<const char16_t*, int, const char*> rows[] = {
        {u"1.005", 2, "1.01"},  {u"1.004", 2, "1.00"}, {u"-1.005", 2, "-1.01"},
        {u"1.995", 2, "2.0"},   {u"0", 2, "0.00"},     {u"1.5", 0, "2."},
        {u"1.4", 0, "1."},      {u"9.96", 1, "10.0"},  {u"-99.95", 1, "-100.0"},
        {u"1.9951", 2, "2.00"}, {u"1.495", 2, "1.5"},  {u"12", 3, "12.000"},
        {u"0.05", 1, "0.1"},    {u"0.04", 1, "0.0"},   {u"-0.004", 2, "-0.00"}};
    for (const auto& [text, places, result] : rows)
        EXPECT_EQ(U8(CDecimal(text).ToString(places)), result) << U8(text);
    EXPECT_THROW(CDecimal(1).ToString(-1), CZqInvalidParamException);
}

TEST(Decimal, ConvertsToMachineTypes)
{
    for (const auto& [text, value] : {std::pair(u"2.5", 2), {u"2.6", 3}, {u"-2.51", -3}})
        EXPECT_EQ(CDecimal(text).ToLong(), value);
    for (const auto& [text, value] : {std::pair(u"2.6", 2), {u"2.96", 3}, {u"-2.95", -2}})
        EXPECT_EQ(CDecimal(text).ToLongLong(), value);
    EXPECT_EQ(CDecimal(u"-1234.5e-2").ToDouble(), -12.345);
    EXPECT_EQ(CDecimal(2147483648LL).ToBigInteger(), 2147483648LL);
    const auto fault = [](auto step) { return MessageOf<CZqOverFlowException>(step); };
    const std::string tooLarge = "The Decimal value if to large to fit into a ";
    EXPECT_EQ(fault([] { CDecimal(2147483648LL).ToLong(); }), tooLarge + "LONG");
    EXPECT_EQ(fault([] { CDecimal(u"9223372036854775808").ToLongLong(); }), tooLarge + "LONGLONG");
    EXPECT_EQ(fault([] { CDecimal(u"-1.8E308").ToDouble(); }), tooLarge + "Double");
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
