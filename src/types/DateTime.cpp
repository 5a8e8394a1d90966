// Setting and reading the fields of dates, and the records of other interfaces that they exchange.

#include "../platform/Clock.h"
#include "DateTimeFields.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/types/DateTime.h>

#include <algorithm>
#include <limits>
#include <optional>

namespace ZqXmlLib9 {
namespace {

/// The nearest number that the field can hold.
template <typename TField>
TField Saturate(std::int64_t value)
{
    using Limits = std::numeric_limits<TField>;
    return static_cast<TField>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

/// Runs `set` for the constructors that swallow an invalid value.
/// \return false if it was invalid
template <typename TSet>
bool Succeeds(TSet&& set)
{
    try {
        set();
        return true;
    }
    catch (const CZqInvalidValueException&) {
        return false;
    }
}

template <typename TValue>
TValue Given(const std::optional<TValue>& value, const char16_t* failure)
{
    if (!value)
        throw CZqInvalidValueException(failure);
    return *value;
}

template <typename TException>
void RequireType(bool isAllowed, const char16_t* operation, DTType type)
{
    if (!isAllowed)
        throw TException(
            FormatString(u"Failed to %s. Invalid Date Type: %s.", operation, TypeWord(type)));
}

bool IsDate(DTType type)
{
    return type == DTType_date || type == DTType_dateTime;
}

}  // namespace

CDateTime::CDateTime() noexcept = default;

CDateTime::CDateTime(DTType type) noexcept : m_type(type) {}

CDateTime::CDateTime(std::int64_t year, std::int64_t month, std::int64_t day)
{
    if (!Succeeds([&] { SetDate(year, month, day); }))
        Clear();
}

CDateTime::CDateTime(std::int64_t year, std::int64_t month, std::int64_t day, std::int64_t hour,
                     std::int64_t minute, std::int64_t second, std::int64_t milli,
                     std::int64_t micro, std::int64_t nano)
{
    if (!Succeeds([&] { SetDateTime(year, month, day, hour, minute, second, milli, micro, nano); }))
        Clear();
}

CDateTime::CDateTime(const SYSTEMTIME& time)
{
    if (!Succeeds([&] { *this = time; }))
        Clear();
}

CDateTime::CDateTime(const FILETIME& time)
{
    if (!Succeeds([&] { *this = time; }))
        Clear();
}

void CDateTime::TrySetTime64(std::int64_t time)
{
    if (!Succeeds([&] { SetTime64(time); }))
        Clear();
}

CDateTime::CDateTime(const char16_t* text)
{
    ParseXSDDateTime(text);
}

CDateTime::CDateTime(std::u16string_view text)
{
    ParseXSDDateTime(text);
}

CDateTime::~CDateTime() = default;

CDateTime& CDateTime::operator=(const SYSTEMTIME& time)
{
    SetDateTime(time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond,
                time.wMilliseconds);
    return *this;
}

CDateTime& CDateTime::operator=(const FILETIME& time)
{
    return *this = Given(SystemTimeFromFileTime(time), u"Failed to convert FILETIME to SYSTEMTIME");
}

void CDateTime::SetTime64(std::int64_t time)
{
    const std::optional<SCalendarTime> utc = UtcFromTime(time);
    if (!utc)
        throw CZqInvalidValueException(
            FormatString(u"Failed to convert the time [%I64d] to a date", time));
    SetDateTime(utc->year, utc->month, utc->day, utc->hour, utc->minute, utc->second);
}

void CDateTime::SetDateTime(const CDateTime& source, DTType type)
{
    if (!CanConvert(source.m_type, type))
        throw CZqInvalidValueException(FormatString(
            u"Attempting to set a CDateTime of type %s using an XmlDateTime of type %s. The source "
            u"CDateTime does not contian enough data to allow the conversion.",
            TypeWord(type), TypeWord(source.m_type)));
    *this = source;
    m_type = type;
}

void CDateTime::Clear() noexcept
{
    *this = CDateTime();
}

SDateTimeFields CDateTime::GetFields() const noexcept
{
    return {m_year, m_month, m_day, m_hour, m_minute, m_second, m_milli, m_micro, m_nano};
}

void CDateTime::SetFields(DTType type, const SDateTimeFields& fields)
{
    if (m_type != DTType_yearZero && m_type != type)
        throw CZqInvalidStateException(
            FormatString(u"Failed to copy CDateTime. Invalid Date Type: %s, expected: %s.",
                         TypeWord(type), TypeWord(m_type)));
    Clear();
    m_type = type;
    m_year = Saturate<std::int16_t>(fields.year);
    m_month = Saturate<std::uint8_t>(fields.month);
    m_day = Saturate<std::uint8_t>(fields.day);
    m_hour = Saturate<std::uint8_t>(fields.hour);
    m_minute = Saturate<std::uint8_t>(fields.minute);
    m_second = Saturate<std::uint8_t>(fields.second);
    m_milli = Saturate<std::uint16_t>(fields.milli);
    m_micro = Saturate<std::uint16_t>(fields.micro);
    m_nano = Saturate<std::uint16_t>(fields.nano);
    ValidateFields(type, fields);
}

void CDateTime::Validate() const
{
    ValidateFields(m_type, GetFields());
}

void CDateTime::RequireField(DTField field) const
{
    RequireType<CZqInvalidStateException>(HasField(m_type, field), GetterName(field), m_type);
}

void CDateTime::RefuseField(DTField field, std::int64_t value)
{
    RefuseFieldValue(field, value);
}

double CDateTime::GetRealSecond() const
{
    RequireType<CZqInvalidStateException>(HasField(m_type, DTField::Second), u"GetRealSecond",
                                          m_type);
    return RealSecond();
}

double CDateTime::RealSecond() const noexcept
{
    return m_second + m_milli / 1000.0 + m_micro / 1e6 + m_nano / 1e9;
}

std::uint16_t CDateTime::GetDayOfYear() const
{
    RequireType<CZqInvalidStateException>(IsDate(m_type), u"GetDayOfYear", m_type);
    if (m_month < 1 || m_month > 12)
        RefuseField(DTField::Month, m_month);
    return static_cast<std::uint16_t>(DaysBeforeMonth(m_year, m_month) + m_day);
}

std::uint8_t CDateTime::GetDayOfWeek() const
{
    RequireType<CZqInvalidStateException>(IsDate(m_type), u"GetDayOfWeek", m_type);
    const SCalendarTime local =
        Given(LocalFromTime(GetTime()), u"Failed to GetDayOfWeek. The date is out of range.");
    return static_cast<std::uint8_t>(local.dayOfWeek + 1);
}

std::u16string CDateTime::GetTypeAsString() const
{
    return TypeWord(m_type);
}

void CDateTime::SetUTC() noexcept
{
    m_isUtc = true;
    m_hasZone = false;
    m_zoneHour = 0;
    m_zoneMinute = 0;
}

void CDateTime::SetTimeZone(std::int64_t hour, std::int64_t minute)
{
    if (hour < -23 || hour > 23 || minute < 0 || minute > 59)
        throw CZqInvalidValueException(
            FormatString(u"Invalid TimeZone [%I64d:%I64d]", hour, minute));
    m_isUtc = true;
    m_hasZone = true;
    m_zoneHour = static_cast<std::int16_t>(hour);
    m_zoneMinute = static_cast<std::uint8_t>(minute);
}

std::int16_t CDateTime::GetZoneHour() const
{
    if (!m_hasZone)
        throw CZqInvalidStateException(u"TimeZone is not been used");
    return m_zoneHour;
}

std::uint8_t CDateTime::GetZoneMinute() const
{
    if (!m_hasZone)
        throw CZqInvalidStateException(u"TimeZone is not been used");
    return m_zoneMinute;
}

std::int64_t CDateTime::GetTime() const
{
    RequireType<CZqInvalidValueException>(IsDate(m_type),
                                          u"GetTime, Date Status must be dateTime or date", m_type);
    const CDateTime utc = GetNormalized();
    SCalendarTime fields{.year = utc.m_year, .month = utc.m_month, .day = utc.m_day};
    if (m_type == DTType_dateTime) {
        fields.hour = utc.m_hour;
        fields.minute = utc.m_minute;
        fields.second = utc.m_second;
    }
    return Given(TimeFromUtc(fields), u"Failed to GetTime. The date is out of range.");
}

SYSTEMTIME CDateTime::GetAsSystemTime() const
{
    RequireType<CZqInvalidValueException>(m_type == DTType_dateTime,
                                          u"GetAsSystemTime, Date Status must be dateTime", m_type);
    if (m_year < 0)
        throw CZqInvalidValueException(
            FormatString(u"Failed to GetAsSystemTime. Invalid Year [%d]", m_year));
    return {.wYear = static_cast<std::uint16_t>(m_year),
            .wMonth = m_month,
            .wDayOfWeek = static_cast<std::uint16_t>(GetDayOfWeek() - 1),
            .wDay = m_day,
            .wHour = m_hour,
            .wMinute = m_minute,
            .wSecond = m_second,
            .wMilliseconds = m_milli};
}

CDateTime CDateTime::GetTickCount()
{
    return CDateTime(LocalSystemTime());
}

}  // namespace ZqXmlLib9
