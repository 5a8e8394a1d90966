/// \file DateTimeSpan.h
/// The value of xs:duration, and the outcome of comparing durations or dates.
/// Source: XML Schema Part 2, 3.2.6.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/types/MachineInteger.h>

#include <concepts>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

namespace ZqXmlLib9 {

/// XML Schema orders dates and durations partially: two values may be incomparable.
enum DTCompareResult : std::int32_t {
    DTCompareResult_Equal = 0,
    DTCompareResult_LessThan = 1,
    DTCompareResult_GreaterThan = 2,
    DTCompareResult_Indeterminate = 3,
};

/// \throws CZqInvalidValueException  always, with the message of `CSpanCount`
[[noreturn]] ZQXMLLIB9_API void RefuseSpanCount(bool isNegative, std::uint64_t count,
                                                std::uint64_t max);

/// An argument for a field of a duration: made of any integer, and never wrapped.
template <std::unsigned_integral TField>
class CSpanCount {
public:
    /// \throws CZqInvalidValueException  "Invalid count [%I64d] (0 <= count <= %I64u)" if the field
    ///         can't hold the count
    template <MachineInteger TNumber>
    CSpanCount(TNumber count) : m_count(static_cast<TField>(count))
    {
        if (!std::in_range<TField>(count))
            RefuseSpanCount(std::cmp_less(count, 0), static_cast<std::uint64_t>(count),
                            std::numeric_limits<TField>::max());
    }

    operator TField() const noexcept { return m_count; }

private:
    TField m_count;
};

/// A duration: separate counts of years to nanoseconds under one sign.
///
/// It is never normalised: P1M and P30D remain different values, PT90M keeps its 90. Each field
/// takes every count of its width, so a span may hold 5000 milliseconds.
///
/// A plain value: copies are independent, any number of threads may read one.
class ZQXMLLIB9_API CDateTimeSpan {
public:
    using Count16 = CSpanCount<std::uint16_t>;
    using Count32 = CSpanCount<std::uint32_t>;
    using Count64 = CSpanCount<std::uint64_t>;

    /// All fields 0, not negative.
    CDateTimeSpan() noexcept;
    CDateTimeSpan(Count16 years, Count32 months, Count32 days, Count32 hours, Count64 minutes,
                  Count64 seconds, Count16 milliSeconds = 0, Count16 microSeconds = 0,
                  Count16 nanoSeconds = 0) noexcept;
    /// The fields that are not given are 0.
    CDateTimeSpan(Count32 hours, Count64 minutes, Count64 seconds) noexcept;
    CDateTimeSpan(const CDateTimeSpan&) noexcept = default;
    CDateTimeSpan& operator=(const CDateTimeSpan&) noexcept = default;
    virtual ~CDateTimeSpan();

    /// Takes the arguments of each of the constructors, with its result: the sign is reset too.
    template <MachineInteger... TNumbers>
    void SetDateTimeSpan(TNumbers... counts)
    {
        *this = CDateTimeSpan(counts...);
    }

    std::uint16_t GetYears() const noexcept { return m_years; }
    void SetYears(Count16 years) noexcept { m_years = years; }
    std::uint32_t GetMonths() const noexcept { return m_months; }
    void SetMonths(Count32 months) noexcept { m_months = months; }
    std::uint32_t GetDays() const noexcept { return m_days; }
    void SetDays(Count32 days) noexcept { m_days = days; }
    std::uint32_t GetHours() const noexcept { return m_hours; }
    void SetHours(Count32 hours) noexcept { m_hours = hours; }
    std::uint64_t GetMinutes() const noexcept { return m_minutes; }
    void SetMinutes(Count64 minutes) noexcept { m_minutes = minutes; }
    std::uint64_t GetSeconds() const noexcept { return m_seconds; }
    void SetSeconds(Count64 seconds) noexcept { m_seconds = seconds; }

    /// The fraction of a second: milliseconds are its digits 1 to 3, microseconds 4 to 6,
    /// nanoseconds 7 to 9.
    std::uint16_t GetMilliSeconds() const noexcept { return m_milliSeconds; }
    void SetMilliSeconds(Count16 milliSeconds) noexcept { m_milliSeconds = milliSeconds; }
    std::uint16_t GetMicroSeconds() const noexcept { return m_microSeconds; }
    void SetMicroSeconds(Count16 microSeconds) noexcept { m_microSeconds = microSeconds; }
    std::uint16_t GetNanoSeconds() const noexcept { return m_nanoSeconds; }
    void SetNanoSeconds(Count16 nanoSeconds) noexcept { m_nanoSeconds = nanoSeconds; }

    bool IsNegative() const noexcept { return m_negative; }
    /// Turns the sign around.
    void Negate() noexcept { m_negative = !m_negative; }
    /// A copy with the sign set; it is set if it was set before.
    CDateTimeSpan GetAsNegative() const noexcept;

    /// Reads `[-]P[nY][nM][nD][T[nH][nM][nS.ff]]`, with at most nine digits of a fraction.
    ///
    /// More is accepted than XML Schema does: a designator may lack its digits and counts 0 then
    /// ("PY"), digits before the "T" are dropped, and nothing need follow the point. A count is
    /// read as a signed number of 32 bits, and more digits wrap; in a wider field a negative one
    /// wraps from the field's end, so that "PT4294967295M" holds 2^64 - 1 minutes. White space must
    /// be gone. After a failure, the fields read so far are set.
    /// \throws CZqInvalidValueException  "Invalid XSD Duration (Null String)",
    ///         "Invalid XSD Duration (Empty String)",
    ///         "Invalid XSD Duration [%s] Fraction part too long", or
    ///         "Invalid XSD Duration [%s] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]"
    void ParseXSDDuration(const char16_t* text);
    void ParseXSDDuration(std::u16string_view text);

    /// The text of XML Schema, without the fields that are 0; "P" or "-P" if all are.
    ///
    /// A fraction has room for 999 of each of its fields; what is above is counted in the seconds
    /// of the text: 5000 milliseconds are "PT5S".
    std::u16string ToString() const;

    /// Adds both spans to four dates, as XML Schema Part 2, 3.2.6.2 says, and compares the sums.
    DTCompareResult CompareTo(const CDateTimeSpan& other) const;

    /// `==` is Equal, so that `!=` holds for incomparable spans as well.
    bool operator==(const CDateTimeSpan& other) const
    {
        return CompareTo(other) == DTCompareResult_Equal;
    }
    bool operator<(const CDateTimeSpan& other) const
    {
        return CompareTo(other) == DTCompareResult_LessThan;
    }
    bool operator>(const CDateTimeSpan& other) const
    {
        return CompareTo(other) == DTCompareResult_GreaterThan;
    }

private:
    std::uint16_t m_years = 0;
    std::uint32_t m_months = 0;
    std::uint32_t m_days = 0;
    std::uint32_t m_hours = 0;
    std::uint64_t m_minutes = 0;
    std::uint64_t m_seconds = 0;
    std::uint16_t m_milliSeconds = 0;
    std::uint16_t m_microSeconds = 0;
    std::uint16_t m_nanoSeconds = 0;
    bool m_negative = false;
};

}  // namespace ZqXmlLib9
