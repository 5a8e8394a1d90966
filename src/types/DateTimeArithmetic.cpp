// Adding durations to dates, and the partial order of dates.
//
// Sources: XML Schema Part 2, appendix E (addition) and 3.2.7.4 (order). Other than there, a day
// isn't pinned to the end of its month, and the calendar of stored years has a year 0 and goes
// around: -32768 follows 32767.

#include "DateTimeFields.h"

#include <ZqXmlLib9/types/DateTime.h>

#include <array>
#include <cstdlib>
#include <limits>
#include <type_traits>

namespace ZqXmlLib9 {
namespace {

/// `a` plus, or minus, `b` in 64 bits, which wrap: the minutes of a span have 64 without a sign.
std::int64_t AddSigned(std::int64_t a, std::uint64_t b, bool isNegative)
{
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) + (isNegative ? 0 - b : b));
}

constexpr std::int64_t kFirstDay = FirstDayOf(std::numeric_limits<std::int16_t>::min(), 1);
constexpr std::int64_t kDaysOfAllYears =
    FirstDayOf(std::numeric_limits<std::int16_t>::max(), 13) - kFirstDay;

}  // namespace

CDateTime& CDateTime::operator+=(const CDateTimeSpan& span) noexcept
{
    const bool isNegative = span.IsNegative();

    // Months count from 0 here.
    std::int64_t carry = AddSigned(m_month - 1, span.GetMonths(), isNegative);
    m_month = static_cast<std::uint8_t>(FloorMod(carry, 12) + 1);
    carry = FloorDiv(carry, 12);
    m_year = static_cast<std::int16_t>(AddSigned(m_year + carry, span.GetYears(), isNegative));

    carry = 0;
    const auto add = [&](auto& field, std::uint64_t count, std::int64_t base) {
        const std::int64_t sum = AddSigned(field + carry, count, isNegative);
        field = static_cast<std::remove_reference_t<decltype(field)>>(FloorMod(sum, base));
        carry = FloorDiv(sum, base);
    };
    add(m_nano, span.GetNanoSeconds(), 1000);
    add(m_micro, span.GetMicroSeconds(), 1000);
    add(m_milli, span.GetMilliSeconds(), 1000);
    add(m_second, span.GetSeconds(), 60);
    add(m_minute, span.GetMinutes(), 60);
    add(m_hour, span.GetHours(), 24);
    AddDays(static_cast<std::int32_t>(AddSigned(carry, span.GetDays(), isNegative)));
    return *this;
}

// The month is valid here, the day may be any number. It goes over the ends of months only where
// it must: a day beyond its month's end stays there while it goes back within the month, and at 0.
void CDateTime::AddDays(std::int64_t days) noexcept
{
    if (days == 0 || (days < 0 && m_day + days >= 1)) {
        m_day = static_cast<std::uint8_t>(m_day + days);
        return;
    }
    const std::int64_t sum = FirstDayOf(m_year, m_month) + m_day - 1 + days;
    const std::int64_t number = FloorMod(sum - kFirstDay, kDaysOfAllYears) + kFirstDay;
    const std::chrono::year_month_day date{
        std::chrono::sys_days(std::chrono::days(FloorMod(number, kDaysOf400Years)))};
    m_year = static_cast<std::int16_t>(int{date.year()} + 400 * FloorDiv(number, kDaysOf400Years));
    m_month = static_cast<std::uint8_t>(unsigned{date.month()});
    m_day = static_cast<std::uint8_t>(unsigned{date.day()});
}

CDateTime CDateTime::GetNormalized() const noexcept
{
    CDateTime normalized = *this;
    if (!m_hasZone)
        return normalized;
    CDateTimeSpan offset(std::abs(m_zoneHour), m_zoneMinute, 0);
    if (m_zoneHour >= 0)
        offset.Negate();
    normalized += offset;
    normalized.m_zoneHour = 0;
    normalized.m_zoneMinute = 0;
    return normalized;
}

/// The moment that this value without a zone is at the offset.
CDateTime CDateTime::AtOffset(int hour) const noexcept
{
    CDateTime value = *this;
    value.SetTimeZone(hour, 0);
    return value.GetNormalized();
}

DTCompareResult CDateTime::CompareTo(const CDateTime& other) const noexcept
{
    const CDateTime a = GetNormalized();
    const CDateTime b = other.GetNormalized();
    if (m_isUtc == other.m_isUtc)
        return a.CompareFields(b);
    // The side without a zone may be anywhere between its moments at the two ends.
    if (m_isUtc) {
        if (a.CompareFields(b.AtOffset(14)) == DTCompareResult_LessThan)
            return DTCompareResult_LessThan;
        if (a.CompareFields(b.AtOffset(-14)) == DTCompareResult_GreaterThan)
            return DTCompareResult_GreaterThan;
    }
    else {
        if (a.AtOffset(14).CompareFields(b) == DTCompareResult_GreaterThan)
            return DTCompareResult_GreaterThan;
        if (a.AtOffset(-14).CompareFields(b) == DTCompareResult_LessThan)
            return DTCompareResult_LessThan;
    }
    return DTCompareResult_Indeterminate;
}

DTCompareResult CDateTime::CompareFields(const CDateTime& other) const noexcept
{
    // A field that isn't in use counts as -1.
    const auto read = [](const CDateTime& date) {
        const auto inUse = [&](EField field, double value) {
            return HasField(date.m_type, field) ? value : -1;
        };
        return std::array{inUse(EField::Year, date.m_year),
                          inUse(EField::Month, date.m_month),
                          inUse(EField::Day, date.m_day),
                          inUse(EField::Hour, date.m_hour),
                          inUse(EField::Minute, date.m_minute),
                          HasField(date.m_type, EField::Second) ? date.GetRealSecond() : -1};
    };
    const auto left = read(*this);
    const auto right = read(other);
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (left[i] * right[i] < 0)
            return DTCompareResult_Indeterminate;
        if (left[i] != right[i])
            return left[i] < right[i] ? DTCompareResult_LessThan : DTCompareResult_GreaterThan;
    }
    return DTCompareResult_Equal;
}

}  // namespace ZqXmlLib9
