// Dates: the texts, the fields of each type, the calendar, the partial order, the addition of
// spans, and the records of other interfaces. Durations: the texts, the counts, the partial order.

#include "Rows.h"

#include <ZqXmlLib9/types/DateTime.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <utility>

namespace ZqXmlLib9 {
namespace {

/// Reads a text by the form that it has.
CDateTime Read(std::u16string_view text)
{
    CDateTime date;
    if (text.find(u'T') != text.npos)
        date.ParseXSDDateTime(text);
    else if (text.find(u':') == 2)
        date.ParseXSDTime(text);
    else
        date.ParseXSDDate(text);
    return date;
}

CDateTimeSpan ReadSpan(std::u16string_view text)
{
    CDateTimeSpan span;
    span.ParseXSDDuration(text);
    return span;
}

/// The form of what is written tells the type.
TEST(Date, IsReadAndWritten)
{
    CheckTexts("2000-02-29 -0004-02-29 -0001-01-01 9999-12-31Z 2001-07 -2001-07+01:00 2001 "
               "-0044-23:59 ---31 ---01Z --12 --02-29 --05--=--05 --05xy-10:00=--05-10:00 "
               "00:00:00 23:59:59.123456789 10:00:00.5+14:30 10:00:00.000001 10:00:00.00007 "
               "10:00:00.000000001Z 10:00:00.500=10:00:00.5 10:00:00.000=10:00:00 "
               "10:00:00.Z=10:00:00Z 10:00:00xyz=10:00:00 10:00:00Zxyz=10:00:00Z "
               "2001-01-01x02:00=2001-01-01 2001-01-01T10:00:00+24:00=2001-01-01T10:00:00+00:00 "
               "2001-01-01T10:00:00-00:30=2001-01-01T10:00:00+00:30 "
               "2001-01-01ZT10:00:00.=2001-01-01T10:00:00Z",
               Read);
    const CDateTime time(DTType_time);
    EXPECT_EQ(time.ToString(u"x") + time.ToString(u"G") + time.ToString(nullptr),
              u"Unknown Format: x");
    for (const CDateTime& date : {CDateTime(), CDateTime(DTType_date), CDateTime(DTType(9))})
        EXPECT_EQ(InvalidValue([&] { date.ToString(u"G"); }), "Date Not Set");
}

TEST(Date, NamesItsFault)
{
    const auto message = [](std::u16string_view text) { return InvalidValue([&] { Read(text); }); };
    for (const std::string& text :
         Words("12001-01-01 +2001 - -- Z -Z 2001: 200 2001-1-1 2001/01/01 20o1 ----1 --05- --5 "
               "\uFF12\uFF10\uFF10\uFF11 20010101 2001-01-01+1:00 2001-01-01_ ----- "
               "24:00:00 10:60:00 10:00:60 10:00 10:00-00")) {
        const bool isTime = text.find(':') == 2;
        EXPECT_EQ(message(ToUtf16(text)),
                  std::string("Invalid XSD ") + (isTime ? "Time [" : "Date [") + text
                      + "] expected " + (isTime ? "hh:mm:ss[.ff]" : "CCYY-MM-DD[Z|[+|-]hh:mm]"));
    }
    const std::pair<std::u16string_view, const char*> rows[] = {
        {u"", "Date (Empty String)"},
        {u"2001-01-01T", "XSD Time (Empty String)"},
        {u"--05T10:00:00", "XSD DateTime [--05T10:00:00] expected CCYY-MM-DDThh:mm:ss[.ff]"},
        {u"2001-01-01+10:00Z", "Date (Bad Zone value)"},
        {u"10:00:00.1234567890", "XSD Time [10:00:00.1234567890] Fraction part too long"},
        {u"10:00:00+1", "XSD Time Zone [+1]"},
        {u"2001-01-01-10:60", "TimeZone [-10:60]"},
        {u"0000-01-01", "Year [0] (-9999 <= year <= 9999 && year != 0)"},
        {u"1900-02-29", "Day [29] (1 <= day <= days in month"},
        {u"--02-30", "Day [30] (1 <= day <= days in month)"}};
    for (const auto& [text, fault] : rows)
        EXPECT_EQ(message(text), std::string("Invalid ") + fault);
    EXPECT_THROW(Read({u"10:00:00+01:00\0", 15}), CZqInvalidValueException);
}

/// Setters get a number that the field can't hold, which they look at only if it is in use.
TEST(Date, HasTheFieldsOfItsType)
{
    const std::string words[] = {"yearZero", "dateTime", "date",   "gYearMonth", "gYear",
                                 "time",     "gDay",     "gMonth", "gMonthDay",  "unknown"};
    const std::string targets[] = {"0",  "012345678", "0234678", "0347", "04",
                                   "05", "06",        "07",      "0678", "0"};
    for (int type = 0; type <= 9; ++type) {
        CDateTime date{DTType(type)};
        EXPECT_EQ(U8(date.GetTypeAsString()), words[type]);
        const auto check = [&](const std::string& name, const std::string& types, auto get,
                               auto set) {
            const auto fails = [&](auto step) { return MessageOf<CZqInvalidStateException>(step); };
            const std::string fault = "Failed to " + name + ". Invalid Date Type: " + words[type];
            if (types.find(std::to_string(type)) != types.npos) {
                EXPECT_EQ((date.*get)(), 0);
                EXPECT_THROW((date.*set)(1 << 16), CZqInvalidValueException) << name;
                return;
            }
            EXPECT_EQ(fails([&] { (date.*get)(); }), fault + ".");
            EXPECT_EQ(fails([&] { (date.*set)(1 << 16); }), fault + ".");
        };
        check("GetYear", "1234", &CDateTime::GetYear, &CDateTime::SetYear);
        check("GetMonth", "12378", &CDateTime::GetMonth, &CDateTime::SetMonth);
        check("GetDay", "1268", &CDateTime::GetDay, &CDateTime::SetDay);
        check("GetHour", "15", &CDateTime::GetHour, &CDateTime::SetHour);
        check("GetMinute", "15", &CDateTime::GetMinute, &CDateTime::SetMinute);
        check("GetSecond", "15", &CDateTime::GetSecond, &CDateTime::SetSecond);
        check("GetMilliSecond", "15", &CDateTime::GetMilliSecond, &CDateTime::SetMilliSecond);
        check("GetMicroSecond", "15", &CDateTime::GetMicroSecond, &CDateTime::SetMicroSecond);
        check("GetNanoSecond", "15", &CDateTime::GetNanoSecond, &CDateTime::SetNanoSecond);
        for (int target = 0; target < 9; ++target) {
            const auto convert = [&] { CDateTime().SetDateTime(date, DTType(target)); };
            if (targets[type].find(std::to_string(target)) != std::string::npos)
                EXPECT_NO_THROW(convert()) << type << " to " << target;
            else
                EXPECT_THROW(convert(), CZqInvalidValueException) << type << " to " << target;
        }
    }
    EXPECT_EQ(InvalidValue([] { CDateTime().SetDateTime(CDateTime(DTType_gDay), DTType_date); }),
              "Attempting to set a CDateTime of type date using an XmlDateTime of type gDay. The "
              "source CDateTime does not contian enough data to allow the conversion.");
}

TEST(Date, NamesTheStepThatItRefuses)
{
    const std::pair<const char*, void (*)(CDateTime&)> rows[] = {
        {"Month [300] (1 <= month <= 12)", [](auto& d) { d.SetDate(0, 300, 1); }},
        {"Year [65537] (-9999 <= year <= 9999 && year != 0)", [](auto& d) { d.SetGYear(65'537); }},
        {"Day [257] (1 <= day <= 31)", [](auto& d) { d.SetGDay(257); }},
        {"Hour [4294967296] (0 <= hour <= 23)", [](auto& d) { d.SetTime(1LL << 32, 60, 0); }},
        {"Minute [-1] (0 <= minute <= 59)", [](auto& d) { d.SetTime(0, -1, 60); }},
        {"Second [60] (0 <= second <= 59)", [](auto& d) { d.SetTime(0, 0, 60, 1000); }},
        {"Milli-Second [1000] (0 <= milli <= 999)", [](auto& d) { d.SetFracTime(1000, 1000, 0); }},
        {"Micro-Second [1000] (0 <= micro <= 999)", [](auto& d) { d.SetFracTime(0, 1000, 1000); }},
        {"Nano-Second [1000] (0 <= nano <= 999)", [](auto& d) { d.SetFracTime(0, 0, 1000); }},
        {"TimeZone [24:0]", [](auto& d) { d.SetTimeZone(24, 0); }},
        {"TimeZone [-24:256]", [](auto& d) { d.SetTimeZone(-24, 256); }},
        {"DateTime (Null String)", [](auto&) { CDateTime(nullptr); }},
        {"Date (Null String)", [](auto& d) { d.ParseXSDDate(nullptr); }},
        {"Time (Null String)", [](auto& d) { d.ParseXSDTime(nullptr); }},
        {"Date ('T' not allowed)", [](auto& d) { d.ParseXSDDate(u"T"); }}};
    for (const auto& [message, step] : rows) {
        CDateTime date;
        EXPECT_EQ(InvalidValue([&, &f = step] { f(date); }), std::string("Invalid ") + message);
    }
    CDateTime date(2001, 2, 3, 4, 5, 6);
    EXPECT_THROW(date.ParseXSDDateTime(u"x"), CZqInvalidValueException);
    EXPECT_EQ(MessageOf<CZqInvalidStateException>([&] { date.SetDate(2001, 13, 1); }),
              "Failed to copy CDateTime. Invalid Date Type: date, expected: dateTime.");
    EXPECT_EQ(MessageOf<CZqInvalidStateException>([&] { date.GetZoneHour(); }),
              "TimeZone is not been used");
    EXPECT_THROW(date.SetDateTime(2001, 13, 2, 0, 0, 0), CZqInvalidValueException);
    EXPECT_EQ(date.ToString(), u"2001-13-02T00:00:00");
    EXPECT_EQ(InvalidValue([&] { date.GetDayOfYear(); }), "Invalid Month [13] (1 <= month <= 12)");
    EXPECT_THROW((date = CDateTime(2001, 1, 1)).ParseXSDDate(nullptr), CZqInvalidValueException);
    EXPECT_EQ(date.GetType(), DTType_yearZero);
}

TEST(Date, IsPartiallyOrdered)
{
    CheckOrder(R"(2000-01-01T00:00:00Z ? 2000-01-01T00:00:00
                  2000-01-01T00:00:00Z ? 2000-01-01T14:00:00
                  2000-01-01T00:00:00Z < 2000-01-01T14:00:01
                  2000-01-01T00:00:00Z ? 1999-12-31T10:00:00
                  2000-01-01T00:00:00Z > 1999-12-31T09:59:59
                  2000-01-01T12:00:00+02:00 = 2000-01-01T10:00:00Z
                  2000-01-01T00:00:00-00:30 = 1999-12-31T23:30:00Z
                  23:00:00-02:00 = 01:00:00+00:00  10:00:00.000000001 < 10:00:00.000000002
                  2000-01-01T00:00:00 > 2000-01-01  2000-01-01T01:00:00 ? 2000-01-01
                  ---01 ? --01  -0001 ? 0001  -0002 < -0001  2001 > 2000-12)",
               Read);
    EXPECT_TRUE(CDateTime(2001, 1, 1) <= CDateTime(2001, 1, 1));
    EXPECT_FALSE(Read(u"---01") <= Read(u"--01") || Read(u"---01") >= Read(u"--01"));
}

/// XML Schema Part 2, E, without its zones and its cut of the day; fields may come out of range.
TEST(Date, IsMovedBySpans)
{
    const std::vector<std::string> words = Words(R"(
        2000-01-12T12:13:14 P1Y3M5DT7H10M3.3S 2001-04-17T19:23:17.3
        2000-01-31T00:00:00 P1M 2000-02-31T00:00:00  2000-03-01T00:00:00 -P1D 2000-02-29T00:00:00
        1900-03-01T00:00:00 -P1D 1900-02-28T00:00:00
        2001-02-28T23:59:59.999999999 PT0.000000001S 2001-03-01T00:00:00
        2001-01-01T00:00:00 -PT0.000000001S 2000-12-31T23:59:59.999999999
        2000-12-31T12:00:00 PT12H 2001-01-01T00:00:00
        2000-01-01T00:00:00 P13M 2001-02-01T00:00:00
        2000-01-01T00:00:00 -P13M 1998-12-01T00:00:00
        1999-11-30T01:02:03 -P1Y11M30DT25H61M61.5S 1997-11-28T23:00:01.5
        2000-01-01T00:00:00 P146097D 2400-01-01T00:00:00
        2000-02-29T00:00:00 -P146097D 1600-02-29T00:00:00
        2000-03-01T00:00:00 P36524D 2100-03-01T00:00:00
        2000-01-01T00:00:00 -P36525D 1899-12-31T00:00:00
        0001-01-01T00:00:00 -P1D 0000-12-31T00:00:00  -0001-12-31T00:00:00 P1D 0000-01-01T00:00:00
        0004-03-01T00:00:00 -P1D 0004-02-29T00:00:00
        -0004-03-01T00:00:00 -P1D -0004-02-29T00:00:00
        2000-01-31T00:00:00 P1M1D 2000-03-03T00:00:00
        2000-03-31T00:00:00 -P1M31D 2000-01-31T00:00:00
        2000-01-01T00:00:00 P4294967295D 1999-12-31T00:00:00
        2000-01-01T00:00:00 PT18446744073709551615M 1999-12-31T23:59:00
        2000-01-01T00:00:00 P65535Y 1999-01-01T00:00:00
        9999-12-31T00:00:00 P1D 10000-01-01T00:00:00
        -9999-01-01T00:00:00 -P1D -10000-12-31T00:00:00)");
    for (std::size_t i = 0; i < words.size(); i += 3) {
        const CDateTime sum = Read(ToUtf16(words[i])) + ReadSpan(ToUtf16(words[i + 1]));
        EXPECT_EQ(U8(sum.ToString()), words[i + 2]) << words[i] << " + " << words[i + 1];
    }
    for (const auto* const day : {u"P1D", u"-P1D"})
        EXPECT_EQ((CDateTime(2000, 3, 1) - ReadSpan(day)).ToString(), u"2000-02-29");
    EXPECT_EQ((CDateTime(2000, 3, 1) - CDateTime(2001, 1, 1)).ToString(), u"P");
    EXPECT_EQ(Read(u"23:00:00-02:00").GetNormalized().ToString(), u"01:00:00+00:00");
    EXPECT_EQ((Read(u"2001") + CDateTimeSpan()).ToString(), u"2000");
    EXPECT_EQ((Read(u"---31") + CDateTimeSpan(24, 0, 0)).ToString(), u"---01");
}

TEST(DateOfTheMachine, ComesFromEveryRecord)
{
    const FILETIME start{0xD53E8000u, 0x019DB1DEu};  // 1970-01-01, in units since 1601
    const FILETIME late{0, 0x80000000};
    for (const CDateTime& date : {CDateTime(0), CDateTime(0LL), CDateTime(0u), CDateTime(start)})
        EXPECT_EQ(date.ToString(), u"1970-01-01T00:00:00");
    EXPECT_EQ(CDateTime(253'402'300'799).GetTime(), 253'402'300'799);
    EXPECT_EQ(CDateTime(FILETIME{123'456, 0}).ToString(), u"1601-01-01T00:00:00.012");
    const SYSTEMTIME record = CDateTime(2000, 2, 29, 1, 2, 3, 4).GetAsSystemTime();
    EXPECT_EQ(CDateTime(record).ToString(), u"2000-02-29T01:02:03.004");
    for (const CDateTime& date :
         {CDateTime(253'402'300'800), CDateTime(2'005'949'145'600), CDateTime(UINT64_MAX),
          CDateTime(INT64_MIN), CDateTime(SYSTEMTIME()), CDateTime(FILETIME{0, 0x7FFFFFFF}),
          CDateTime(late), CDateTime(2001, 257, 1), CDateTime(2001, 13, 1)})
        EXPECT_EQ(date.GetType(), DTType_yearZero);
    EXPECT_EQ(InvalidValue([] { CDateTime() = 2'005'949'145'600; }),
              "Invalid Year [65536] (-9999 <= year <= 9999 && year != 0)");
    EXPECT_EQ(InvalidValue([] { CDateTime() = INT64_MAX; }),
              "Failed to convert the time [9223372036854775807] to a date");
    CDateTime date(2001, 1, 1);
    EXPECT_EQ(InvalidValue([&] { date = late; }), "Failed to convert FILETIME to SYSTEMTIME");
}

TEST(DateOfTheMachine, HasTheWeekdayOfItsZone)
{
    const char* const before = std::getenv("TZ");
    const std::string former = before != nullptr ? before : "";
    // 2000-01-01 was a Saturday, the 7.
    for (const auto& [zone, weekdays] :
         {std::pair("UTC", "77677"), {"Asia/Tokyo", "17777"}, {"America/New_York", "76666"}}) {
        setenv("TZ", zone, 1);
        tzset();
        std::string found;
        for (const auto text : {u"2000-01-01T20:00:00Z", u"2000-01-01T02:00:00",
                                u"2000-01-01T02:00:00+05:00", u"2000-01-01", u"2000-01-02+08:00"})
            found += std::to_string(Read(text).GetDayOfWeek());
        EXPECT_EQ(found, weekdays) << zone;
        EXPECT_EQ(Read(u"2000-07-01T10:00:00-03:00").GetTime(), 962'456'400);
    }
    before != nullptr ? setenv("TZ", former.c_str(), 1) : unsetenv("TZ");
    tzset();
    EXPECT_EQ(Read(u"1600-03-01").GetTime(), -11'670'912'000);
    EXPECT_EQ(Read(u"2000-03-01").GetDayOfYear(), 61);
    EXPECT_EQ(InvalidValue([] { Read(u"2001").GetTime(); }),
              "Failed to GetTime, Date Status must be dateTime or date. Invalid Date Type: gYear.");
}

TEST(Duration, IsReadAndWritten)
{
    CheckTexts("P1Y2M3DT4H5M6.789S -P1D PT90M P1M PT0.5S PT0.000000001S PT1.12003S PT1.000S=PT1S "
               "PT1.S=PT1S PT1.=PT1S PT0S=P -P0D=-P PY=P P5T1H=PT1H P007M=P7M P65537Y=P1Y "
               "P4294967297M=P1M P4294967295D PT4294967295M=PT18446744073709551615M PT2147483647S",
               ReadSpan);
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
        EXPECT_EQ(InvalidValue([&] { ReadSpan(ToUtf16(text)); }),
                  "Invalid XSD Duration [" + text
                      + "] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]");
    EXPECT_THROW(ReadSpan({u"P1D\0", 4}), CZqInvalidValueException);
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
               ReadSpan);
}

}  // namespace
}  // namespace ZqXmlLib9
