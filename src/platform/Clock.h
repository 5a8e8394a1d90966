// The machine's calendar and clock: the only place with <time.h>.
//
// A time is in seconds since 1970-01-01T00:00:00Z. No value means that the machine refuses the
// conversion, since a year of it has 32 bits.
#pragma once

#include <ZqXmlLib9/platform/SystemTime.h>

#include <cstdint>
#include <optional>

namespace ZqXmlLib9 {

/// A date and time of day, without a zone.
struct SCalendarTime {
    std::int64_t year = 0;
    int month = 0;  ///< from 1
    int day = 0;    ///< from 1
    int hour = 0;
    int minute = 0;
    int second = 0;
    int dayOfWeek = 0;  ///< 0 is Sunday
};

std::optional<SCalendarTime> UtcFromTime(std::int64_t time);

/// In the machine's zone; all fields 0 for a time that it refuses. A program that changes `TZ`
/// calls `tzset` itself.
SCalendarTime LocalFromTime(std::int64_t time);

/// In UTC. Moments from 2^63 units on are refused.
std::optional<SYSTEMTIME> SystemTimeFromFileTime(const FILETIME& fileTime);

/// Now, in the machine's zone.
SYSTEMTIME LocalSystemTime();

}  // namespace ZqXmlLib9
