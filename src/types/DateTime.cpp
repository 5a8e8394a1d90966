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

/// Runs `set` for the constructors, which swallow an invalid value.
template <typename TSet>
void SetOrReset(CDateTime& date, TSet&& set)
{
    try {
        set();
    }
    catch (const CZqInvalidValueException&) {
        date = {};
    }
}

bool IsDate(DTType type)
{
    return type == DTType_date || type == DTType_dateTime;
}

}  // namespace

CDateTime::CDateTime(CDateNumber year, CDateNumber month, CDateNumber day)
{
    SetOrReset(*this, [&] { SetDate(year, month, day); });
}

CDateTime::CDateTime(CDateNumber year, CDateNumber month, CDateNumber day, CDateNumber hour,
                     CDateNumber minute, CDateNumber second, CDateNumber milli, CDateNumber micro,
                     CDateNumber nano)
{
    SetOrReset(*this,
               [&] { SetDateTime(year, month, day, hour, minute, second, milli, micro, nano); });
}

CDateTime::CDateTime(const SYSTEMTIME& time)
{
    SetOrReset(*this, [&] { *this = time; });
}

CDateTime::CDateTime(const FILETIME& time)
{
    SetOrReset(*this, [&] { *this = time; });
}

CDateTime::CDateTime(CDateNumber time)
{
    SetOrReset(*this, [&] { *this = time; });
}

CDateTime::~CDateTime() = default;

SYSTEMTIME CDateTime::ToSystemTime(const FILETIME& time)
{
    const std::optional<SYSTEMTIME> record = SystemTimeFromFileTime(time);
    if (!record)
        throw CZqInvalidValueException(u"Failed to convert FILETIME to SYSTEMTIME");
    return *record;
}

CDateTime& CDateTime::operator=(CDateNumber time)
{
    const std::optional<SCalendarTime> utc = UtcFromTime(time);
    if (!utc)
        throw CZqInvalidValueException(
            FormatString(u"Failed to convert the time [%I64d] to a date", std::int64_t{time}));
    SetDateTime(utc->year, utc->month, utc->day, utc->hour, utc->minute, utc->second);
    return *this;
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

SDateTimeFields CDateTime::GetFields() const noexcept
{
    return {m_year, m_month, m_day, m_hour, m_minute, m_second, m_milli, m_micro, m_nano};
}

void CDateTime::SetFields(DTType type, std::int64_t year, std::int64_t month, std::int64_t day,
                          std::int64_t hour, std::int64_t minute, std::int64_t second,
                          std::int64_t milli, std::int64_t micro, std::int64_t nano)
{
    if (m_type != DTType_yearZero && m_type != type)
        throw CZqInvalidStateException(
            FormatString(u"Failed to copy CDateTime. Invalid Date Type: %s, expected: %s.",
                         TypeWord(type), TypeWord(m_type)));
    *this = CDateTime(type);
    m_year = Saturate<std::int16_t>(year);
    m_month = Saturate<std::uint8_t>(month);
    m_day = Saturate<std::uint8_t>(day);
    m_hour = Saturate<std::uint8_t>(hour);
    m_minute = Saturate<std::uint8_t>(minute);
    m_second = Saturate<std::uint8_t>(second);
    m_milli = Saturate<std::uint16_t>(milli);
    m_micro = Saturate<std::uint16_t>(micro);
    m_nano = Saturate<std::uint16_t>(nano);
    ValidateFields(type, {year, month, day, hour, minute, second, milli, micro, nano});
}

double CDateTime::GetRealSecond() const
{
    RequireType<CZqInvalidStateException>(HasField(m_type, EField::Second), u"GetRealSecond",
                                          m_type);
    return m_second + m_milli / 1000.0 + m_micro / 1e6 + m_nano / 1e9;
}

std::uint16_t CDateTime::GetDayOfYear() const
{
    RequireType<CZqInvalidStateException>(IsDate(m_type), u"GetDayOfYear", m_type);
    if (m_month < 1 || m_month > 12)
        RefuseField(EField::Month, m_month);
    return static_cast<std::uint16_t>(FirstDayOf(m_year, m_month) - FirstDayOf(m_year, 1) + m_day);
}

std::uint8_t CDateTime::GetDayOfWeek() const
{
    RequireType<CZqInvalidStateException>(IsDate(m_type), u"GetDayOfWeek", m_type);
    return static_cast<std::uint8_t>(LocalFromTime(GetTime()).dayOfWeek + 1);
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

void CDateTime::SetTimeZone(CDateNumber hour, CDateNumber minute)
{
    if (hour < -23 || hour > 23 || minute < 0 || minute > 59)
        throw CZqInvalidValueException(FormatString(u"Invalid TimeZone [%I64d:%I64d]",
                                                    std::int64_t{hour}, std::int64_t{minute}));
    m_isUtc = true;
    m_hasZone = true;
    m_zoneHour = static_cast<std::int16_t>(hour);
    m_zoneMinute = static_cast<std::uint8_t>(minute);
}

const CDateTime& CDateTime::RequireZone() const
{
    if (!m_hasZone)
        throw CZqInvalidStateException(u"TimeZone is not been used");
    return *this;
}

std::int64_t CDateTime::GetTime() const
{
    RequireType<CZqInvalidValueException>(IsDate(m_type),
                                          u"GetTime, Date Status must be dateTime or date", m_type);
    const CDateTime utc = GetNormalized();
    std::int64_t time = 86'400 * (FirstDayOf(utc.m_year, utc.m_month) + utc.m_day - 1);
    if (m_type == DTType_dateTime)
        time += 3600 * utc.m_hour + 60 * utc.m_minute + utc.m_second;
    return time;
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
