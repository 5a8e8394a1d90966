/// \file SystemTime.h
/// Two records of a moment that applications exchange with `CDateTime`.
#pragma once

#include <cstdint>

namespace ZqXmlLib9 {

/// A date and a time of day, field by field.
struct SYSTEMTIME {
    std::uint16_t wYear = 0;
    std::uint16_t wMonth = 0;      ///< from 1
    std::uint16_t wDayOfWeek = 0;  ///< 0 is Sunday
    std::uint16_t wDay = 0;        ///< from 1
    std::uint16_t wHour = 0;
    std::uint16_t wMinute = 0;
    std::uint16_t wSecond = 0;
    std::uint16_t wMilliseconds = 0;
};

/// A moment in units of 100 nanoseconds since 1601-01-01T00:00:00Z, in two halves of 32 bits.
struct FILETIME {
    std::uint32_t dwLowDateTime = 0;
    std::uint32_t dwHighDateTime = 0;
};

}  // namespace ZqXmlLib9
