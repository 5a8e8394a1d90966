#include "Clock.h"

#include <time.h>

#include <utility>

namespace ZqXmlLib9 {
namespace {

static_assert(sizeof(time_t) == sizeof(std::int64_t));

/// What `tm_year` counts from.
constexpr int kTmYearBase = 1900;

/// From 1601-01-01 to 1970-01-01, in seconds.
constexpr std::int64_t kFileTimeEpoch = 11'644'473'600;

constexpr std::uint64_t kFileTimePerSecond = 10'000'000;
constexpr std::uint64_t kFileTimePerMilliSecond = 10'000;

std::optional<SCalendarTime> Convert(std::int64_t time, tm* (*convert)(const time_t*, tm*))
{
    tm fields{};
    const time_t seconds = time;
    if (convert(&seconds, &fields) == nullptr)
        return std::nullopt;
    return SCalendarTime{std::int64_t{fields.tm_year} + kTmYearBase,
                         fields.tm_mon + 1,
                         fields.tm_mday,
                         fields.tm_hour,
                         fields.tm_min,
                         fields.tm_sec,
                         fields.tm_wday};
}

SYSTEMTIME ToSystemTime(const SCalendarTime& time, std::int64_t milliSeconds)
{
    const auto word = [](std::int64_t value) { return static_cast<std::uint16_t>(value); };
    return {word(time.year), word(time.month),  word(time.dayOfWeek), word(time.day),
            word(time.hour), word(time.minute), word(time.second),    word(milliSeconds)};
}

}  // namespace

std::optional<SCalendarTime> UtcFromTime(std::int64_t time)
{
    return Convert(time, gmtime_r);
}

SCalendarTime LocalFromTime(std::int64_t time)
{
    return Convert(time, localtime_r).value_or(SCalendarTime());
}

std::optional<SYSTEMTIME> SystemTimeFromFileTime(const FILETIME& fileTime)
{
    const std::uint64_t units =
        std::uint64_t{fileTime.dwHighDateTime} << 32 | fileTime.dwLowDateTime;
    if (!std::in_range<std::int64_t>(units))
        return std::nullopt;
    const auto seconds = static_cast<std::int64_t>(units / kFileTimePerSecond) - kFileTimeEpoch;
    // Never refused: the last year is 30828.
    return ToSystemTime(
        *UtcFromTime(seconds),
        static_cast<std::int64_t>(units % kFileTimePerSecond / kFileTimePerMilliSecond));
}

SYSTEMTIME LocalSystemTime()
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return ToSystemTime(LocalFromTime(now.tv_sec), now.tv_nsec / 1'000'000);
}

}  // namespace ZqXmlLib9
