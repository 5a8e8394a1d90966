// The tables behind CDateTime: which type has which fields, what a field may hold, the calendar.
#pragma once

#include <ZqXmlLib9/types/DateTime.h>

#include <cstddef>
#include <cstdint>

namespace ZqXmlLib9 {

/// "unknown" for what is no `DTType`, which has no fields.
const char16_t* TypeWord(DTType type) noexcept;
bool HasField(DTType type, DTField field) noexcept;

/// The operation that messages name for a field, such as "GetYear".
const char16_t* GetterName(DTField field) noexcept;

/// Whether a value of type `source` may become one of type `target`.
/// \throws CZqInvalidValueException  "Unknown date type %d."
bool CanConvert(DTType source, DTType target);

/// \throws CZqInvalidValueException  for the first fault, in the order of `DTField`
void ValidateFields(DTType type, const SDateTimeFields& fields);

/// \throws CZqInvalidValueException  always, such as "Invalid Hour [%d] (0 <= hour <= 23)"
[[noreturn]] void RefuseFieldValue(DTField field, std::int64_t value);

/// The Gregorian rule on the number as it stands, 0 and negative ones included.
constexpr bool IsLeapYear(std::int64_t year) noexcept
{
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

/// In a year that is not leap; the last entry is the whole year.
constexpr int kDaysBeforeMonth[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365};

/// \param month  1 to 12
constexpr int DaysBeforeMonth(std::int64_t year, std::int64_t month) noexcept
{
    return kDaysBeforeMonth[month - 1] + (month > 2 && IsLeapYear(year) ? 1 : 0);
}

/// \param month  1 to 12
constexpr int DaysInMonth(std::int64_t year, std::int64_t month) noexcept
{
    return kDaysBeforeMonth[month] - kDaysBeforeMonth[month - 1]
           + (month == 2 && IsLeapYear(year) ? 1 : 0);
}

}  // namespace ZqXmlLib9
