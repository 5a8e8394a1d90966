#include "Rows.h"

#include <ZqXmlLib9/types/BigInteger.h>
#include <ZqXmlLib9/types/Decimal.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace ZqXmlLib9 {
namespace {

/// Another file's static initialiser sees the class statics ready.
const std::string kEarly = U8(CBigInteger::MIN_LONGLONG.ToString());

TEST(BigInteger, ReadsTheDigitsThatStandLast)
{
    const std::pair<const char16_t*, const char*> rows[] = {
        {u"", "0"},     {u"   ", "0"},    {u"-", "0"},       {u"+", "0"},      {u"-0", "0"},
        {u"007", "7"},  {u"-007", "-7"},  {u"  -7  ", "-7"}, {u"+123", "123"}, {u"1 2", "2"},
        {u"12-3", "3"}, {u"-12-3", "-3"}, {u"12\n", "0"},    {u"\t-12", "12"}, {u"1.5", "1"},
        {u"1.51", "2"}, {u"2.5", "2"},    {u"-1.6", "-2"},   {u"1.5E1", "15"}, {u"-2.5", "-2"}};
    for (const auto& [text, result] : rows)
        EXPECT_EQ(U8(CBigInteger(text).ToString()), result) << U8(text);
    EXPECT_EQ(InvalidValue([] { CBigInteger(u"abc"); }),
              "The string representing a Decimal, contained an invalid char at position 0 [abc]");
    EXPECT_THROW(CBigInteger(std::u16string_view(u"5\0", 2)), CZqInvalidValueException);
    EXPECT_EQ(kEarly, "-9223372036854775808");
}

TEST(BigInteger, KeepsTheSignOfZeroForOrderAlone)
{
    const CBigInteger zeros[] = {CBigInteger(u"-"), CBigInteger(u"-0"), CBigInteger(-1) / 2,
                                 CBigInteger(-4) % 2, CBigInteger(-5) * 0};
    for (const CBigInteger& zero : zeros) {
        EXPECT_TRUE(zero == 0 && 0 == zero && !(zero != 0));
        EXPECT_TRUE(zero < 0 && zero <= 0 && !(zero >= 0) && 0 > zero);
        EXPECT_EQ(U8(zero.ToString()), "0");
    }
    EXPECT_FALSE(CBigInteger(u"-5") + 5 < 0);
    EXPECT_FALSE(zeros[0] / 7 < 0);
    EXPECT_FALSE(zeros[0] % 7 < 0);
}

TEST(BigInteger, DividesTowardsZero)
{
    EXPECT_TRUE(CBigInteger(7) / -2 == -3 && CBigInteger(-7) / 2 == -3
                && CBigInteger(-7) % 2 == -1);
    // A limb of the quotient is estimated one too large.
    const CBigInteger dividend(u"500000000999999998000000000499999999");
    EXPECT_EQ(U8((dividend / CBigInteger(u"500000000999999998000000002")).ToString()), "999999999");
    CBigInteger x = 7;
    EXPECT_EQ(InvalidValue([&] { x / 0; }), "ERROR: Overflow in operator/.");
    EXPECT_EQ(InvalidValue([&] { x /= 0; }), "ERROR: Overflow in operator /=.");
    for (const int divisor : {0, -2})
        EXPECT_EQ(InvalidValue([&] { x % divisor; }), "ERROR: Overflow in operator%.");
    EXPECT_EQ(InvalidValue([&] { x %= -2; }), "ERROR: Overflow in operator%=.");
    EXPECT_EQ(x, 7);
}

TEST(BigInteger, MeetsTheMachineTypesAtTheirEnds)
{
    EXPECT_EQ(static_cast<int>(CBigInteger(2147483647)), 2147483647);
    EXPECT_EQ(static_cast<int>(CBigInteger(u"-2147483648")), INT32_MIN);
    EXPECT_EQ(static_cast<long long>(CBigInteger::MIN_LONGLONG), INT64_MIN);
    EXPECT_EQ(static_cast<long>(CBigInteger(INT64_MAX)), INT64_MAX);
    EXPECT_EQ(U8(CBigInteger(UINT64_MAX).ToString()), "18446744073709551615");
    EXPECT_EQ(InvalidValue([] { int(CBigInteger(2147483648LL)); }),
              "ERROR: Value out of bound of int.");
    EXPECT_EQ(InvalidValue([] { long(CBigInteger::MIN_LONGLONG - 1); }),
              "ERROR: Value out of bound of LONGLONG.");
}

TEST(BigInteger, RoundsADoubleWithHalvesDown)
{
    const std::pair<double, long long> rows[] = {
        {2.5, 2},         {2.6, 3}, {-2.5, -2}, {-2.6, -3}, {0.3, 0}, {1e15, 1'000'000'000'000'000},
        {std::nan(""), 0}};
    for (const auto& [value, rounded] : rows)
        EXPECT_EQ(CBigInteger(value), rounded) << value;
    EXPECT_THROW(CBigInteger(-std::numeric_limits<double>::infinity()), CZqInvalidValueException);
}

TEST(BigInteger, TakesSquareRoots)
{
    for (int i = 1; i < 1000; ++i) {
        const CBigInteger root = CBigInteger(i).SquareRoot();
        EXPECT_TRUE(root * root <= i && (root + 1) * (root + 1) > i) << i;
    }
    EXPECT_EQ(InvalidValue([] { CBigInteger(0).SquareRoot(); }), "ERROR: Overflow in operator/.");
    EXPECT_EQ(InvalidValue([] { CBigInteger(-4).SquareRoot(); }),
              "ERROR: Negative Number in function SquareRoot().");
}

TEST(BigInteger, MinusChangesItsOperand)
{
    CBigInteger x = 5;
    EXPECT_TRUE(-x == -5 && x == -5);
    EXPECT_EQ(x -= x, 0);
    const CBigInteger moved = std::move(x = 12);
    EXPECT_EQ(moved * moved / moved, 12);
}

/// A number of up to 200 digits in which the limbs at the ends of their range are frequent.
CBigInteger RandomNumber(std::mt19937& random)
{
    std::u16string text(1 + random() % 200, u'0');
    const bool isExtreme = random() % 2 == 0;
    for (char16_t& c : text)
        c = isExtreme ? (random() % 2 == 0 ? u'0' : u'9')
                      : static_cast<char16_t>(u'0' + random() % 10);
    return CBigInteger((random() % 2 == 0 ? u"-" : u"") + text);
}

TEST(BigInteger, HoldsTheLawsOfArithmetic)
{
    std::mt19937 random(20);
    for (int i = 0; i < 2000; ++i) {
        const CBigInteger a = RandomNumber(random);
        const CBigInteger b = RandomNumber(random);
        ASSERT_EQ((a + b) * (a - b), a * a - b * b);
        ASSERT_EQ(CBigInteger(a.ToString()), a);
        if (b == 0)
            continue;
        const CBigInteger rest = a - a / b * b;
        ASSERT_LT(rest.GetAbs(), b.GetAbs());
        ASSERT_EQ(a % b.GetAbs(), rest);
    }
}

}  // namespace
}  // namespace ZqXmlLib9
