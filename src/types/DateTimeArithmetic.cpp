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

constexpr std::int64_t FloorDiv(std::int64_t a, std::int64_t b)
{
    return a / b - (a % b < 0 ? 1 : 0);
}

constexpr std::int64_t FloorMod(std::int64_t a, std::int64_t b)
{
    return a % b + (a % b < 0 ? b : 0);
}

/// `a` plus, or minus, `b` in 64 bits, which wrap: the minutes of a span have 64 without a sign.
std::int64_t AddSigned(std::int64_t a, std::uint64_t b, bool isNegative)
{
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) + (isNegative ? 0 - b : b));
}

constexpr std::int64_t kFirstYear = std::numeric_limits<std::int16_t>::min();
constexpr std::int64_t kLastYear = std::numeric_limits<std::int16_t>::max();

/// The days from the start of the first stored year to that of `year`.
constexpr std::int64_t DaysBeforeYear(std::int64_t year)
{
    // From a multiple of 400 below all stored years, so that the leap years before a year are the
    // multiples of 4, 100 and 400 in [0, y).
    const auto count = [](std::int64_t from0) {
        const std::int64_t y = from0 + 32'800;
        return 365 * y + (y + 3) / 4 - (y + 99) / 100 + (y + 399) / 400;
    };
    return count(year) - count(kFirstYear);
}

constexpr std::int64_t kDaysOfAllYears = DaysBeforeYear(kLastYear + 1);
constexpr std::int64_t kDaysOf400Years = 146'097;
static_assert(DaysBeforeYear(400) - DaysBeforeYear(0) == kDaysOf400Years);

/// The year that has the day `number`, counted from the start of the first stored year.
std::int64_t YearOfDay(std::int64_t number)
{
    // By the mean length of a year, off by one at most.
    std::int64_t year = kFirstYear + number * 400 / kDaysOf400Years;
    while (DaysBeforeYear(year) > number)
        --year;
    while (DaysBeforeYear(year + 1) <= number)
        ++year;
    return year;
}

}  // namespace

void CDateTime::AddDateTimeSpan(const CDateTimeSpan& span) noexcept
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
}

// The month is valid here, the day may be any number. It goes over the ends of months only where
// it must: a day beyond its month's end stays there while it goes back within the month, and at 0.
void CDateTime::AddDays(std::int64_t days) noexcept
{
    if (days == 0 || (days < 0 && m_day + days >= 1)) {
        m_day = static_cast<std::uint8_t>(m_day + days);
        return;
    }
    const std::int64_t number =
        FloorMod(DaysBeforeYear(m_year) + DaysBeforeMonth(m_year, m_month) + m_day - 1 + days,
                 kDaysOfAllYears);
    const std::int64_t year = YearOfDay(number);
    std::int64_t day = number - DaysBeforeYear(year);
    int month = 1;
    for (; day >= DaysInMonth(year, month); ++month)
        day -= DaysInMonth(year, month);
    m_year = static_cast<std::int16_t>(year);
    m_month = static_cast<std::uint8_t>(month);
    m_day = static_cast<std::uint8_t>(day + 1);
}

CDateTime& CDateTime::operator+=(const CDateTimeSpan& span) noexcept
{
    AddDateTimeSpan(span);
    return *this;
}

CDateTime& CDateTime::operator-=(const CDateTimeSpan& span) noexcept
{
    return *this += span.GetAsNegative();
}

CDateTime CDateTime::operator+(const CDateTimeSpan& span) const noexcept
{
    return CDateTime(*this) += span;
}

CDateTime CDateTime::operator-(const CDateTimeSpan& span) const noexcept
{
    return CDateTime(*this) -= span;
}

CDateTimeSpan CDateTime::operator-(const CDateTime&) const noexcept
{
    return {};
}

CDateTime CDateTime::GetNormalized() const noexcept
{
    CDateTime normalized = *this;
    if (!m_hasZone)
        return normalized;
    CDateTimeSpan offset;
    offset.SetHours(std::abs(m_zoneHour));
    offset.SetMinutes(m_zoneMinute);
    if (m_zoneHour >= 0)
        normalized -= offset;
    else
        normalized += offset;
    normalized.m_zoneHour = 0;
    normalized.m_zoneMinute = 0;
    return normalized;
}

/// The moment that this value without a zone is at the offset.
CDateTime CDateTime::AtOffset(int hour) const noexcept
{
    CDateTime value = *this;
    value.m_isUtc = true;
    value.m_hasZone = true;
    value.m_zoneHour = static_cast<std::int16_t>(hour);
    value.m_zoneMinute = 0;
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
        const auto inUse = [&](DTField field, double value) {
            return HasField(date.m_type, field) ? value : -1;
        };
        return std::array{
            inUse(DTField::Year, date.m_year),     inUse(DTField::Month, date.m_month),
            inUse(DTField::Day, date.m_day),       inUse(DTField::Hour, date.m_hour),
            inUse(DTField::Minute, date.m_minute), inUse(DTField::Second, date.RealSecond())};
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
