// The tables behind CDateTime: which type has which fields, what a field may hold, the calendar.
#pragma once

#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/types/DateTime.h>

#include <chrono>
#include <cstdint>

namespace ZqXmlLib9 {

/// The fields of a date as numbers that may be out of range.
struct SDateTimeFields {
    std::int64_t year = 0;
    std::int64_t month = 0;
    std::int64_t day = 0;
    std::int64_t hour = 0;
    std::int64_t minute = 0;
    std::int64_t second = 0;
    std::int64_t milli = 0;
    std::int64_t micro = 0;
    std::int64_t nano = 0;

    bool operator==(const SDateTimeFields&) const = default;
};

/// "unknown" for what is no `DTType`, which has no fields.
const char16_t* TypeWord(DTType type) noexcept;
bool HasField(DTType type, CDateTime::EField field) noexcept;

/// For an operation that not every type has.
template <typename TException>
void RequireType(bool isAllowed, const char16_t* operation, DTType type)
{
    if (!isAllowed)
        throw TException(
            FormatString(u"Failed to %s. Invalid Date Type: %s.", operation, TypeWord(type)));
}

/// Whether a value of type `source` may become one of type `target`.
/// \throws CZqInvalidValueException  "Unknown date type %d."
bool CanConvert(DTType source, DTType target);

/// \throws CZqInvalidValueException  for the first fault, in the order of `CDateTime::EField`
void ValidateFields(DTType type, const SDateTimeFields& fields);

constexpr std::int64_t FloorDiv(std::int64_t a, std::int64_t b) noexcept
{
    return a / b - (a % b < 0 ? 1 : 0);
}

constexpr std::int64_t FloorMod(std::int64_t a, std::int64_t b) noexcept
{
    return a % b + (a % b < 0 ? b : 0);
}

/// The calendar is the Gregorian one on the number of the year as it stands, 0 and negative ones
/// included. It repeats itself after so many days, and <chrono> gets years 0 to 399 only.
constexpr std::int64_t kDaysOf400Years = 146'097;

/// \param month  1 to 12
constexpr std::chrono::year_month MonthOf400Years(std::int64_t year, std::int64_t month) noexcept
{
    return std::chrono::year(static_cast<int>(FloorMod(year, 400)))
           / std::chrono::month(static_cast<unsigned>(month));
}

/// \param month  1 to 12
constexpr std::int64_t DaysInMonth(std::int64_t year, std::int64_t month) noexcept
{
    return unsigned{(MonthOf400Years(year, month) / std::chrono::last).day()};
}

/// The first day of a month, counted from 1970-01-01.
/// \param month  carries into the year beyond 1 to 12
constexpr std::int64_t FirstDayOf(std::int64_t year, std::int64_t month) noexcept
{
    year += FloorDiv(month - 1, 12);
    const std::chrono::sys_days day = MonthOf400Years(year, FloorMod(month - 1, 12) + 1) / 1;
    return FloorDiv(year, 400) * kDaysOf400Years + day.time_since_epoch().count();
}

}  // namespace ZqXmlLib9
