/// \file DateTime.h
/// The value of xs:dateTime, xs:date, xs:time and the xs:g... types.
/// Source: XML Schema Part 2, 3.2.7 to 3.2.14.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/platform/SystemTime.h>
#include <ZqXmlLib9/types/DateTimeSpan.h>

#include <compare>
#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace ZqXmlLib9 {

/// The type of a date; it says which fields are in use.
enum DTType : std::int32_t {
    DTType_yearZero = 0,    ///< none: the value is not set
    DTType_dateTime = 1,    ///< all
    DTType_date = 2,        ///< year, month, day
    DTType_gYearMonth = 3,  ///< year, month
    DTType_gYear = 4,       ///< year
    DTType_time = 5,        ///< hour to nanosecond
    DTType_gDay = 6,        ///< day
    DTType_gMonth = 7,      ///< month
    DTType_gMonthDay = 8,   ///< month, day
};

struct SDateTimeFields;  // internal, in DateTimeFields.h

/// An argument of a date: made of any integer. From 2^63 on it is the largest one, which is out of
/// range for every field.
class CDateNumber {
public:
    template <MachineInteger TNumber>
    CDateNumber(TNumber number) noexcept
        : m_number(std::in_range<std::int64_t>(number) ? static_cast<std::int64_t>(number)
                                                       : INT64_MAX)
    {}

    operator std::int64_t() const noexcept { return m_number; }

private:
    std::int64_t m_number;
};

/// A date or time of one of the eight types of XML Schema, or a value that is not set.
///
/// The year is -9999 to 9999 and not 0; -1 is the year before 1. A year is leap by its number as
/// it stands: -4 is, -1 is not. The fraction of a second has nine digits: milli 1 to 3, micro 4 to
/// 6, nano 7 to 9. The three zone states:
///
/// | state          | `IsUTC()` | `HasTimeZone()` | text                   |
/// |----------------|-----------|-----------------|------------------------|
/// | no zone        | false     | false           | nothing                |
/// | UTC by "Z"     | true      | false           | "Z"                    |
/// | numeric offset | true      | true            | sign, hh, ":", mm      |
///
/// The hour carries the sign of an offset, so "-00:30" is stored and treated as "+00:30".
///
/// A number that its field can't hold is never wrapped: it is the failure of a number out of range.
///
/// A plain value: copies are independent, any number of threads may read one.
class ZQXMLLIB9_API CDateTime {
public:
    static constexpr int kMinYear = -9999;
    static constexpr int kMaxYear = 9999;

    /// The fields, in the order in which they are tested.
    enum class EField : std::uint8_t { Month, Year, Day, Hour, Minute, Second, Milli, Micro, Nano };

    /// Not set.
    CDateTime() noexcept = default;
    /// All fields 0, which most types don't allow; they are set later.
    explicit CDateTime(DTType type) noexcept : m_type(type) {}

    /// \name From numbers
    ///
    /// What `SetDate`, `SetDateTime` or the assignment would refuse gives a value that is not set,
    /// and no failure.
    /// @{
    CDateTime(CDateNumber year, CDateNumber month, CDateNumber day);
    CDateTime(CDateNumber year, CDateNumber month, CDateNumber day, CDateNumber hour,
              CDateNumber minute, CDateNumber second, CDateNumber milli = 0, CDateNumber micro = 0,
              CDateNumber nano = 0);
    explicit CDateTime(const SYSTEMTIME& time);
    explicit CDateTime(const FILETIME& time);
    /// \param time  in seconds since 1970-01-01T00:00:00Z
    template <MachineInteger TNumber>
    explicit CDateTime(TNumber time) : CDateTime(CDateNumber(time))
    {}
    /// @}

    /// As `ParseXSDDateTime`, with its failures.
    explicit CDateTime(const char16_t* text) { ParseXSDDateTime(text); }
    explicit CDateTime(std::u16string_view text) { ParseXSDDateTime(text); }

    CDateTime(const CDateTime&) noexcept = default;
    CDateTime& operator=(const CDateTime&) noexcept = default;
    virtual ~CDateTime();

    /// \name Assignments of other records: all are `SetDateTime`, with its failures
    ///
    /// Records only by their names, so that `date = {}` resets.
    /// @{
    template <std::same_as<SYSTEMTIME> TTime>
    CDateTime& operator=(const TTime& time)
    {
        SetDateTime(time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond,
                    time.wMilliseconds);
        return *this;
    }
    /// \throws CZqInvalidValueException  "Failed to convert FILETIME to SYSTEMTIME" from 2^63 units
    template <std::same_as<FILETIME> TTime>
    CDateTime& operator=(const TTime& time)
    {
        return *this = ToSystemTime(time);
    }
    /// \param time  in seconds since 1970-01-01T00:00:00Z
    /// \throws CZqInvalidValueException  "Failed to convert the time [%I64d] to a date" where the
    ///         year would not have 32 bits
    CDateTime& operator=(CDateNumber time);
    /// @}

    /// \name Whole values
    ///
    /// Each resets every field, the zone included, sets type and fields, and tests them. It works
    /// on a value that is not set or of that type already. If the test fails, the new fields stay;
    /// of a number that its field can't hold, the nearest one that it can.
    /// \throws CZqInvalidStateException  "Failed to copy CDateTime. Invalid Date Type: %s,
    ///         expected: %s." on a value of another type, which is the second word
    /// \throws CZqInvalidValueException  for the first field at fault, such as
    ///         "Invalid Month [%d] (1 <= month <= 12)"
    /// @{
    void SetDateTime(CDateNumber year, CDateNumber month, CDateNumber day, CDateNumber hour,
                     CDateNumber minute, CDateNumber second, CDateNumber milli = 0,
                     CDateNumber micro = 0, CDateNumber nano = 0)
    {
        SetFields(DTType_dateTime, year, month, day, hour, minute, second, milli, micro, nano);
    }
    void SetDate(CDateNumber year, CDateNumber month, CDateNumber day)
    {
        SetFields(DTType_date, year, month, day);
    }
    void SetTime(CDateNumber hour, CDateNumber minute, CDateNumber second, CDateNumber milli = 0,
                 CDateNumber micro = 0, CDateNumber nano = 0)
    {
        SetFields(DTType_time, 0, 0, 0, hour, minute, second, milli, micro, nano);
    }
    void SetFracTime(CDateNumber milli, CDateNumber micro, CDateNumber nano)
    {
        SetTime(0, 0, 0, milli, micro, nano);
    }
    void SetGYearMonth(CDateNumber year, CDateNumber month)
    {
        SetFields(DTType_gYearMonth, year, month);
    }
    void SetGYear(CDateNumber year) { SetFields(DTType_gYear, year); }
    void SetGMonthDay(CDateNumber month, CDateNumber day)
    {
        SetFields(DTType_gMonthDay, 0, month, day);
    }
    void SetGMonth(CDateNumber month) { SetFields(DTType_gMonth, 0, month); }
    void SetGDay(CDateNumber day) { SetFields(DTType_gDay, 0, 0, day); }
    /// @}

    /// Takes every field of `source`, the zone included, as the type `type`. Fields that the type
    /// lacks remain in the object, out of use; none is tested, but both types are.
    /// \throws CZqInvalidValueException  "Attempting to set a CDateTime of type %s using an
    ///         XmlDateTime of type %s. The source CDateTime does not contian enough data to allow
    ///         the conversion.", or "Unknown date type %d."
    void SetDateTime(const CDateTime& source, DTType type);

    /// \name Fields
    ///
    /// A setter writes its field and tests nothing else: the whole may then be no date.
    /// \throws CZqInvalidStateException  "Failed to GetYear. Invalid Date Type: %s." and its like,
    ///         from getter and setter, if the type has no such field
    /// \throws CZqInvalidValueException  the message of the field's range, from a setter, for a
    ///         number that the field can't hold
    /// @{
    std::int16_t GetYear() const { return RequireField(EField::Year).m_year; }
    void SetYear(CDateNumber year) { SetField(EField::Year, m_year, year); }
    std::uint8_t GetMonth() const { return RequireField(EField::Month).m_month; }
    void SetMonth(CDateNumber month) { SetField(EField::Month, m_month, month); }
    std::uint8_t GetDay() const { return RequireField(EField::Day).m_day; }
    void SetDay(CDateNumber day) { SetField(EField::Day, m_day, day); }
    std::uint8_t GetHour() const { return RequireField(EField::Hour).m_hour; }
    void SetHour(CDateNumber hour) { SetField(EField::Hour, m_hour, hour); }
    std::uint8_t GetMinute() const { return RequireField(EField::Minute).m_minute; }
    void SetMinute(CDateNumber minute) { SetField(EField::Minute, m_minute, minute); }
    std::uint8_t GetSecond() const { return RequireField(EField::Second).m_second; }
    void SetSecond(CDateNumber second) { SetField(EField::Second, m_second, second); }
    std::uint16_t GetMilliSecond() const { return RequireField(EField::Milli).m_milli; }
    void SetMilliSecond(CDateNumber milli) { SetField(EField::Milli, m_milli, milli); }
    std::uint16_t GetMicroSecond() const { return RequireField(EField::Micro).m_micro; }
    void SetMicroSecond(CDateNumber micro) { SetField(EField::Micro, m_micro, micro); }
    std::uint16_t GetNanoSecond() const { return RequireField(EField::Nano).m_nano; }
    void SetNanoSecond(CDateNumber nano) { SetField(EField::Nano, m_nano, nano); }
    /// @}

    /// The second with its fraction.
    /// \throws CZqInvalidStateException  "Failed to GetRealSecond. Invalid Date Type: %s."
    double GetRealSecond() const;

    /// 1 for January 1st.
    /// \throws CZqInvalidStateException  "Failed to GetDayOfYear. Invalid Date Type: %s.", but for
    ///         dateTime and date
    /// \throws CZqInvalidValueException  "Invalid Month [%d] (1 <= month <= 12)"
    std::uint16_t GetDayOfYear() const;

    /// 1 for Sunday to 7 for Saturday: the weekday that the machine's own zone has at the moment
    /// `GetTime()`, which may be the day before or after that of the fields.
    /// \throws CZqInvalidStateException  "Failed to GetDayOfWeek. Invalid Date Type: %s.", but for
    ///         dateTime and date
    std::uint8_t GetDayOfWeek() const;

    DTType GetType() const noexcept { return m_type; }
    /// Such as "gYearMonth"; "yearZero" if not set, "unknown" for what is no `DTType`.
    std::u16string GetTypeAsString() const;

    /// The zone state "Z".
    void SetUTC() noexcept;
    /// The offset from UTC, to 23:59; XML Schema itself ends at 14 hours.
    /// \throws CZqInvalidValueException  "Invalid TimeZone [%d:%d]"
    void SetTimeZone(CDateNumber hour, CDateNumber minute);
    /// The sign of the offset is in the hour.
    /// \throws CZqInvalidStateException  "TimeZone is not been used" unless `HasTimeZone()`
    std::int16_t GetZoneHour() const { return RequireZone().m_zoneHour; }
    std::uint8_t GetZoneMinute() const { return RequireZone().m_zoneMinute; }
    /// There is a zone, by "Z" or by an offset.
    bool IsUTC() const noexcept { return m_isUtc; }
    /// There is an offset.
    bool HasTimeZone() const noexcept { return m_hasZone; }
    /// A copy at the offset +00:00; the plain copy if there is no offset.
    CDateTime GetNormalized() const noexcept;

    /// \name Reading text
    ///
    /// Years have four digits. An offset is "+hh:mm" or "-hh:mm"; the hour 24 is read as 0. White
    /// space must be gone. Text behind a time that doesn't open as a zone is ignored, and so is
    /// what stands behind a "Z" there. The value is reset first, so its type is that of the text;
    /// after a failure it holds what was read so far.
    /// \throws CZqInvalidValueException  where the text is null, empty or malformed, with the text,
    ///         or where a field is out of range
    /// @{

    /// Reads a date and a time with a "T" between. A null text, or one without a "T", leaves the
    /// value as it was.
    void ParseXSDDateTime(const char16_t* text);
    void ParseXSDDateTime(std::u16string_view text);
    /// Reads any type that has no time; the form of the text decides. "--MM--" is a gMonth too. Of
    /// a text with a ":", the last six characters are the zone; without a sign or a "Z" in front of
    /// them they are ignored.
    void ParseXSDDate(const char16_t* text);
    void ParseXSDDate(std::u16string_view text);
    void ParseXSDTime(const char16_t* text);
    void ParseXSDTime(std::u16string_view text);
    /// @}

    /// The text of XML Schema.
    /// \throws CZqInvalidValueException  "Date Not Set" if the value isn't set, or has all fields 0
    ///         and is no time
    std::u16string ToString() const;
    /// \param format  "s": the text of XML Schema; null, empty or "G": an empty text; for any other
    ///                the result is "Unknown Format: " and the format
    /// \throws CZqInvalidValueException  as above
    std::u16string ToString(const char16_t* format) const;

    /// Adds to the fields, whatever the type, with carry. The zone stays, nothing is tested.
    ///
    /// The day is not pinned to the month's end: 2001-01-31 and P1M make 2001-02-31, and with
    /// P1M1D 2001-03-04. The year 0 counts as a year, so the day after -0001-12-31 is in it.
    /// Arithmetic has 64 bits, the days that result 32, the year 16; what is beyond them wraps.
    ///
    /// Fields that the type lacks take part as 0. The month 0 is December of the year before, so a
    /// gYear loses a year, even by a span of 0; the same holds where it is normalised.
    CDateTime& operator+=(const CDateTimeSpan& span) noexcept;
    /// Goes backwards, whatever the sign of the span.
    CDateTime& operator-=(const CDateTimeSpan& span) noexcept
    {
        return *this += span.GetAsNegative();
    }
    CDateTime operator+(const CDateTimeSpan& span) const noexcept
    {
        return CDateTime(*this) += span;
    }
    CDateTime operator-(const CDateTimeSpan& span) const noexcept
    {
        return CDateTime(*this) -= span;
    }
    /// No difference: always a span of 0.
    CDateTimeSpan operator-(const CDateTime&) const noexcept { return {}; }

    /// Compares field by field, at UTC where there are offsets. A value without a zone against one
    /// with a zone is compared at both ends, +14:00 and -14:00, and is Indeterminate in between.
    /// A field that a type lacks counts as -1; two numbers of opposite signs make the outcome
    /// Indeterminate, unless a field before them decides.
    /// Source: XML Schema Part 2, 3.2.7.4.
    DTCompareResult CompareTo(const CDateTime& other) const noexcept;

    /// `==` is Equal, so that `!=` holds for incomparable values as well.
    bool operator==(const CDateTime& other) const noexcept
    {
        return CompareTo(other) == DTCompareResult_Equal;
    }
    std::partial_ordering operator<=>(const CDateTime& other) const noexcept
    {
        using Order = std::partial_ordering;
        constexpr Order kOrders[] = {Order::equivalent, Order::less, Order::greater,
                                     Order::unordered};
        return kOrders[CompareTo(other)];
    }

    /// In seconds since 1970-01-01T00:00:00Z; a value without a zone counts as UTC.
    /// \throws CZqInvalidValueException  "Failed to GetTime, Date Status must be dateTime or date.
    ///         Invalid Date Type: %s."
    std::int64_t GetTime() const;

    /// \throws CZqInvalidValueException  "Failed to GetAsSystemTime, Date Status must be dateTime.
    ///         Invalid Date Type: %s.", or "Failed to GetAsSystemTime. Invalid Year [%d]" for a
    ///         year below 0, which the record has no room for
    SYSTEMTIME GetAsSystemTime() const;

    /// Now: a dateTime in the machine's zone, with milliseconds, and without a zone of its own.
    static CDateTime GetTickCount();

private:
    explicit CDateTime(CDateNumber time);

    template <typename TValue>
    void SetField(EField field, TValue& target, std::int64_t value)
    {
        RequireField(field);
        if (!std::in_range<TValue>(value))
            RefuseField(field, value);
        target = static_cast<TValue>(value);
    }
    const CDateTime& RequireField(EField field) const;
    const CDateTime& RequireZone() const;
    [[noreturn]] static void RefuseField(EField field, std::int64_t value);
    static SYSTEMTIME ToSystemTime(const FILETIME& time);

    SDateTimeFields GetFields() const noexcept;
    void SetFields(DTType type, std::int64_t year, std::int64_t month = 0, std::int64_t day = 0,
                   std::int64_t hour = 0, std::int64_t minute = 0, std::int64_t second = 0,
                   std::int64_t milli = 0, std::int64_t micro = 0, std::int64_t nano = 0);

    void SetXSDDate(std::u16string_view text);
    void SetXSDTime(std::u16string_view text);
    void SetZone(std::u16string_view text);

    void AddDays(std::int64_t days) noexcept;
    CDateTime AtOffset(int hour) const noexcept;
    DTCompareResult CompareFields(const CDateTime& other) const noexcept;

    DTType m_type = DTType_yearZero;
    std::int16_t m_year = 0;
    std::uint8_t m_month = 0;
    std::uint8_t m_day = 0;
    std::uint8_t m_hour = 0;
    std::uint8_t m_minute = 0;
    std::uint8_t m_second = 0;
    std::uint16_t m_milli = 0;
    std::uint16_t m_micro = 0;
    std::uint16_t m_nano = 0;
    bool m_isUtc = false;
    bool m_hasZone = false;
    std::int16_t m_zoneHour = 0;
    std::uint8_t m_zoneMinute = 0;
};

}  // namespace ZqXmlLib9
