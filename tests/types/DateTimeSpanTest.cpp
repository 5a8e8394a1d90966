// Durations: the texts, the counts that fields take, the partial order.

#include "Rows.h"

#include <ZqXmlLib9/types/DateTimeSpan.h>

namespace ZqXmlLib9 {
namespace {

CDateTimeSpan Read(std::u16string_view text)
{
    CDateTimeSpan span;
    span.ParseXSDDuration(text);
    return span;
}

TEST(Duration, IsReadAndWritten)
{
    CheckTexts("P1Y2M3DT4H5M6.789S -P1D PT90M P1M PT0.5S PT0.000000001S PT1.12003S PT1.000S=PT1S "
               "PT1.S=PT1S PT1.=PT1S PT0S=P -P0D=-P PY=P P5T1H=PT1H P007M=P7M P65537Y=P1Y "
               "P4294967297M=P1M P4294967295D PT4294967295M=PT18446744073709551615M PT2147483647S",
               Read);
    constexpr auto k16 = UINT16_MAX;
    constexpr auto k32 = UINT32_MAX;
    EXPECT_EQ(
        U8(CDateTimeSpan(k16, k32, k32, k32, UINT64_MAX, UINT64_MAX, k16, k16, k16).ToString()),
        "P65535Y4294967295M4294967295DT4294967295H18446744073709551615M"
        "18446744073709551680.600600535S");
}

TEST(Duration, NamesItsFault)
{
    for (const std::string& text :
         Words("- P -P PT P1DT P1 PT1 +P1D P-1D 1D P1D- PT1H2H PT1M1H P1M1Y P1D1M P1S P1H PT1D "
               "PT1TH PT1.5 PT1.5H PT1.5S1S PT1S.5S P1.5D P\uFF11D p1d"))
        EXPECT_EQ(InvalidValue([&] { Read(ToUtf16(text)); }),
                  "Invalid XSD Duration [" + text
                      + "] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]");
    EXPECT_THROW(Read({u"P1D\0", 4}), CZqInvalidValueException);
    CDateTimeSpan span;
    EXPECT_EQ(InvalidValue([&] { span.ParseXSDDuration(u"PT1.1234567890S"); }),
              "Invalid XSD Duration [PT1.1234567890S] Fraction part too long");
    EXPECT_EQ(span.ToString(), u"PT1.123456789S");
    EXPECT_EQ(InvalidValue([&] { span.ParseXSDDuration(u""); }),
              "Invalid XSD Duration (Empty String)");
    EXPECT_EQ(InvalidValue([&] { span.ParseXSDDuration(nullptr); }),
              "Invalid XSD Duration (Null String)");
    EXPECT_EQ(span.ToString(), u"P");
}

TEST(Duration, TakesCountsWithoutWrapping)
{
    CDateTimeSpan span;
    EXPECT_EQ(InvalidValue([&] { span.SetYears(65'536); }),
              "Invalid count [65536] (0 <= count <= 65535)");
    EXPECT_EQ(InvalidValue([] { CDateTimeSpan(0, -1, 0); }),
              "Invalid count [-1] (0 <= count <= 18446744073709551615)");
    EXPECT_EQ(InvalidValue([&] { span.SetDays(UINT64_MAX); }),
              "Invalid count [18446744073709551615] (0 <= count <= 4294967295)");
    span.Negate();
    EXPECT_TRUE(span.GetAsNegative().IsNegative());
    span.SetDateTimeSpan(1, 2, 3, 4, 5, 6);
    EXPECT_EQ(span.ToString(), u"P1Y2M3DT4H5M6S");
}

TEST(Duration, IsPartiallyOrdered)
{
    CheckOrder("P1D = PT24H  P1M ? P30D  P1M < P32D  P1M > P27D  P1M ? P28D  P1M ? P31D "
               "P1Y ? P365D  P1Y < P367D  P1Y = P12M  P5M ? P153D  P5M < P154D  PT1H < PT2H "
               "P1D > -P1D  -P1M > -P32D  PT60S = PT1M  -P3000Y ? P1Y  PT0.1S < PT0.2S",
               Read);
}

}  // namespace
}  // namespace ZqXmlLib9
