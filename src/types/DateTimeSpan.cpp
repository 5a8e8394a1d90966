#include "DateTimeText.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/types/DateTime.h>
#include <ZqXmlLib9/types/DateTimeSpan.h>

#include <utility>

namespace ZqXmlLib9 {
namespace {

/// How far the designators of a text have come.
enum EState { Nothing, Years, Months, Days, Time, Hours, Minutes, Seconds, Fraction };

/// A letter that may stand behind a number.
struct SDesignator {
    char16_t letter;
    EState first, last;  ///< the states in which it may stand
    EState next;
    /// A negative number wraps to the width of the field, from its end.
    void (*store)(CDateTimeSpan& span, std::int32_t number);
};

using Span = CDateTimeSpan;

template <typename TField, void (Span::*set)(CSpanCount<TField>) noexcept>
void Store(Span& span, std::int32_t number)
{
    (span.*set)(static_cast<TField>(number));
}

constexpr SDesignator kDesignators[] = {
    {u'Y', Nothing, Nothing, Years, Store<std::uint16_t, &Span::SetYears>},
    {u'M', Nothing, Years, Months, Store<std::uint32_t, &Span::SetMonths>},
    {u'D', Nothing, Months, Days, Store<std::uint32_t, &Span::SetDays>},
    {u'T', Nothing, Days, Time, [](Span&, std::int32_t) {}},
    {u'H', Time, Time, Hours, Store<std::uint32_t, &Span::SetHours>},
    {u'M', Time, Hours, Minutes, Store<std::uint64_t, &Span::SetMinutes>},
    {u'S', Time, Minutes, Seconds, Store<std::uint64_t, &Span::SetSeconds>},
    {u'.', Time, Minutes, Fraction, Store<std::uint64_t, &Span::SetSeconds>},
};

/// Takes the digits at the front of `text`, as 32 bits with a sign, which wrap.
std::int32_t TakeNumber(std::u16string_view& text)
{
    std::uint32_t number = 0;
    for (; !text.empty() && IsDigit(text.front()); text.remove_prefix(1))
        number = 10 * number + (text.front() - u'0');
    return static_cast<std::int32_t>(number);
}

/// Takes the designator at the front of `text`; null if none may stand there.
const SDesignator* TakeDesignator(std::u16string_view& text, EState state)
{
    for (const SDesignator& row : kDesignators)
        if (text.starts_with(row.letter) && state >= row.first && state <= row.last) {
            text.remove_prefix(1);
            return &row;
        }
    return nullptr;
}

void PutCount(CShortText& text, std::uint64_t count, char16_t designator)
{
    if (count == 0)
        return;
    text.PutDigits(count, 1);
    text.Put(designator);
}

}  // namespace

void RefuseSpanCount(bool isNegative, std::uint64_t count, std::uint64_t max)
{
    throw CZqInvalidValueException(
        FormatString(isNegative ? u"Invalid count [%I64d] (0 <= count <= %I64u)"
                                : u"Invalid count [%I64u] (0 <= count <= %I64u)",
                     count, max));
}

CDateTimeSpan::CDateTimeSpan() noexcept = default;

CDateTimeSpan::CDateTimeSpan(Count16 years, Count32 months, Count32 days, Count32 hours,
                             Count64 minutes, Count64 seconds, Count16 milliSeconds,
                             Count16 microSeconds, Count16 nanoSeconds) noexcept
    : m_years(years), m_months(months), m_days(days), m_hours(hours), m_minutes(minutes),
      m_seconds(seconds), m_milliSeconds(milliSeconds), m_microSeconds(microSeconds),
      m_nanoSeconds(nanoSeconds)
{}

CDateTimeSpan::CDateTimeSpan(Count32 hours, Count64 minutes, Count64 seconds) noexcept
    : CDateTimeSpan(0, 0, 0, hours, minutes, seconds)
{}

CDateTimeSpan::~CDateTimeSpan() = default;

CDateTimeSpan CDateTimeSpan::GetAsNegative() const noexcept
{
    CDateTimeSpan negative = *this;
    negative.m_negative = true;
    return negative;
}

void CDateTimeSpan::ParseXSDDuration(const char16_t* text)
{
    SetDateTimeSpan();
    ParseXSDDuration(Required(text, u"Invalid XSD Duration (Null String)"));
}

void CDateTimeSpan::ParseXSDDuration(std::u16string_view text)
{
    SetDateTimeSpan();
    if (text.empty())
        throw CZqInvalidValueException(u"Invalid XSD Duration (Empty String)");
    const auto require = [&](bool isWellFormed) {
        if (!isWellFormed)
            throw CZqInvalidValueException(FormatString(
                u"Invalid XSD Duration [%s] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]", text));
    };
    std::u16string_view rest = text;
    const auto take = [&](char16_t c) {
        const bool isThere = rest.starts_with(c);
        rest.remove_prefix(isThere ? 1 : 0);
        return isThere;
    };

    m_negative = take(u'-');
    require(take(u'P'));
    EState state = Nothing;
    while (!rest.empty()) {
        const std::int32_t number = TakeNumber(rest);
        const SDesignator* const designator = TakeDesignator(rest, state);
        require(designator != nullptr);
        designator->store(*this, number);
        state = designator->next;
        if (state == Fraction && !rest.empty()) {
            if (!TakeFraction(rest, m_milliSeconds, m_microSeconds, m_nanoSeconds))
                throw CZqInvalidValueException(
                    FormatString(u"Invalid XSD Duration [%s] Fraction part too long", text));
            require(take(u'S'));
        }
    }
    require(state != Nothing && state != Time);
}

std::u16string CDateTimeSpan::ToString() const
{
    CShortText text;
    if (m_negative)
        text.Put(u'-');
    text.Put(u'P');
    PutCount(text, m_years, u'Y');
    PutCount(text, m_months, u'M');
    PutCount(text, m_days, u'D');
    const bool hasSeconds =
        m_seconds != 0 || m_milliSeconds != 0 || m_microSeconds != 0 || m_nanoSeconds != 0;
    if (hasSeconds || m_hours != 0 || m_minutes != 0)
        text.Put(u'T');
    PutCount(text, m_hours, u'H');
    PutCount(text, m_minutes, u'M');
    if (hasSeconds) {
        text.PutSeconds(m_seconds, 1, m_milliSeconds, m_microSeconds, m_nanoSeconds);
        text.Put(u'S');
    }
    return std::u16string(text.GetText());
}

DTCompareResult CDateTimeSpan::CompareTo(const CDateTimeSpan& other) const
{
    const auto compareFrom = [&](int year, int month) {
        CDateTime reference(year, month, 1, 0, 0, 0);
        reference.SetUTC();
        return (reference + *this).CompareTo(reference + other);
    };
    // XML Schema Part 2, 3.2.6.2: the months behind these dates have every order of lengths.
    const DTCompareResult result = compareFrom(1696, 9);
    for (const auto& [year, month] : {std::pair(1697, 2), std::pair(1903, 3), std::pair(1903, 7)})
        if (compareFrom(year, month) != result)
            return DTCompareResult_Indeterminate;
    return result;
}

}  // namespace ZqXmlLib9
