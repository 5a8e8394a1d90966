// Reading and printing dates. A layout gives the form of a text, for both directions: a letter
// stands for one digit of a field, `?` for any character, every other character for itself.

#include "DateTimeText.h"

#include "DateTimeFields.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/types/DateTime.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <optional>
#include <string>

namespace ZqXmlLib9 {
namespace {

constexpr std::u16string_view kTimeLayout = u"hh:mm:ss";
constexpr std::u16string_view kZoneLayout = u"?hh:mm";

struct SLayout {
    DTType type;
    std::u16string_view layout;
};

/// The first row of a type is the form in which it is printed.
constexpr SLayout kLayouts[] = {
    {DTType_dateTime, u"YYYY-MM-DDThh:mm:ss"},
    {DTType_time, kTimeLayout},
    {DTType_date, u"YYYY-MM-DD"},
    {DTType_gYearMonth, u"YYYY-MM"},
    {DTType_gYear, u"YYYY"},
    {DTType_gDay, u"---DD"},
    {DTType_gMonth, u"--MM"},
    {DTType_gMonth, u"--MM??"},  // the form of the first edition of XML Schema, "--MM--"
    {DTType_gMonthDay, u"--MM-DD"},
};

/// The field whose digits a letter of a layout stands for; null for other characters.
std::int64_t SDateTimeFields::*FieldOf(char16_t letter)
{
    switch (letter) {
    case u'Y': return &SDateTimeFields::year;
    case u'M': return &SDateTimeFields::month;
    case u'D': return &SDateTimeFields::day;
    case u'h': return &SDateTimeFields::hour;
    case u'm': return &SDateTimeFields::minute;
    case u's': return &SDateTimeFields::second;
    default: return nullptr;
    }
}

/// The fields of a text that has the layout; none if it hasn't.
std::optional<SDateTimeFields> Read(std::u16string_view text, std::u16string_view layout)
{
    if (text.size() != layout.size())
        return std::nullopt;
    SDateTimeFields fields;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (const auto field = FieldOf(layout[i])) {
            if (!IsDigit(text[i]))
                return std::nullopt;
            fields.*field = 10 * (fields.*field) + (text[i] - u'0');
        }
        else if (layout[i] != u'?' && layout[i] != text[i]) {
            return std::nullopt;
        }
    }
    return fields;
}

void Print(CShortText& text, std::u16string_view layout, const SDateTimeFields& fields)
{
    while (!layout.empty()) {
        const char16_t c = layout.front();
        const std::size_t run = std::min(layout.find_first_not_of(c), layout.size());
        const auto field = FieldOf(c);
        if (field == &SDateTimeFields::second)
            text.PutSeconds(static_cast<std::uint64_t>(fields.second), run, fields.milli,
                            fields.micro, fields.nano);
        else if (field != nullptr)
            text.PutDigits(static_cast<std::uint64_t>(std::abs(fields.*field)), run);
        else
            for (std::size_t i = 0; i < run; ++i)
                text.Put(c);
        layout.remove_prefix(run);
    }
}

[[noreturn]] void Refuse(const char16_t* message, std::u16string_view text)
{
    throw CZqInvalidValueException(FormatString(message, text));
}

}  // namespace

std::u16string_view Required(const char16_t* text, const char16_t* failure)
{
    if (text == nullptr)
        throw CZqInvalidValueException(failure);
    return text;
}

bool TakeFraction(std::u16string_view& text, std::uint16_t& milli, std::uint16_t& micro,
                  std::uint16_t& nano)
{
    std::uint16_t* const parts[] = {&milli, &micro, &nano};
    static constexpr int kWeights[] = {100, 10, 1};
    for (std::size_t digits = 0; !text.empty() && IsDigit(text.front()); ++digits) {
        if (digits == 9)
            return false;
        std::uint16_t& part = *parts[digits / 3];
        part = static_cast<std::uint16_t>(part + (text.front() - u'0') * kWeights[digits % 3]);
        text.remove_prefix(1);
    }
    return true;
}

void CShortText::PutDigits(std::uint64_t value, std::size_t minDigits)
{
    char digits[20];
    const char* const end =
        value != 0 ? std::to_chars(digits, std::end(digits), value).ptr : digits;
    for (std::size_t count = static_cast<std::size_t>(end - digits); count < minDigits; ++count)
        Put(u'0');
    for (const char* digit = digits; digit != end; ++digit)
        Put(static_cast<char16_t>(*digit));
}

void CShortText::PutSeconds(std::uint64_t seconds, std::size_t minDigits, std::int64_t milli,
                            std::int64_t micro, std::int64_t nano)
{
    constexpr std::uint64_t kNanosPerSecond = 1'000'000'000;
    const auto nanos = static_cast<std::uint64_t>((milli * 1000 + micro) * 1000 + nano);
    // The last digit by itself: with the carry, all together may have more than 64 bits.
    const std::uint64_t units = seconds % 10 + nanos / kNanosPerSecond;
    PutDigits(seconds / 10 + units / 10, minDigits - 1);
    PutDigits(units % 10, 1);
    if (nanos % kNanosPerSecond == 0)
        return;
    Put(u'.');
    PutDigits(nanos % kNanosPerSecond, 9);
    while (m_text[m_length - 1] == u'0')
        --m_length;
}

void CDateTime::ParseXSDDate(const char16_t* text)
{
    *this = {};
    ParseXSDDate(Required(text, u"Invalid Date (Null String)"));
}

void CDateTime::ParseXSDDate(std::u16string_view text)
{
    *this = {};
    SetXSDDate(text);
    ValidateFields(m_type, GetFields());
}

void CDateTime::ParseXSDTime(const char16_t* text)
{
    *this = {};
    ParseXSDTime(Required(text, u"Invalid Time (Null String)"));
}

void CDateTime::ParseXSDTime(std::u16string_view text)
{
    *this = {};
    SetXSDTime(text);
    ValidateFields(m_type, GetFields());
}

void CDateTime::ParseXSDDateTime(const char16_t* text)
{
    ParseXSDDateTime(Required(text, u"Invalid DateTime (Null String)"));
}

void CDateTime::ParseXSDDateTime(std::u16string_view text)
{
    const std::size_t separator = text.find(u'T');
    if (separator == std::u16string_view::npos)
        Refuse(u"Invalid XSD DateTime [%s]", text);
    *this = {};
    SetXSDDate(text.substr(0, separator));
    if (m_type != DTType_date)
        Refuse(u"Invalid XSD DateTime [%s] expected CCYY-MM-DDThh:mm:ss[.ff]", text);
    SetXSDTime(text.substr(separator + 1));
    m_type = DTType_dateTime;
    ValidateFields(m_type, GetFields());
}

void CDateTime::SetXSDDate(std::u16string_view text)
{
    if (text.empty())
        throw CZqInvalidValueException(u"Invalid Date (Empty String)");
    if (text.find(u'T') != std::u16string_view::npos)
        throw CZqInvalidValueException(u"Invalid Date ('T' not allowed)");
    const bool hasLetter = text.back() == u'Z';
    const bool hasOffset = text.find(u':') != std::u16string_view::npos;
    if (hasLetter && hasOffset)
        throw CZqInvalidValueException(u"Invalid Date (Bad Zone value)");

    // The zone is told by its length from the end, whatever it holds.
    const std::size_t zoneLength = hasLetter ? 1 : hasOffset ? kZoneLayout.size() : 0;
    const bool isNegative = text.front() == u'-' && !text.starts_with(u"--");
    const std::u16string_view unsignedText = text.substr(isNegative ? 1 : 0);
    if (zoneLength < unsignedText.size()) {
        const std::u16string_view date = unsignedText.substr(0, unsignedText.size() - zoneLength);
        for (const SLayout& row : kLayouts) {
            if (row.type == DTType_time)
                continue;
            const std::optional<SDateTimeFields> fields = Read(date, row.layout);
            if (!fields)
                continue;
            m_type = row.type;
            m_year = static_cast<std::int16_t>(isNegative ? -fields->year : fields->year);
            m_month = static_cast<std::uint8_t>(fields->month);
            m_day = static_cast<std::uint8_t>(fields->day);
            SetZone(unsignedText.substr(date.size()));
            return;
        }
    }
    Refuse(u"Invalid XSD Date [%s] expected CCYY-MM-DD[Z|[+|-]hh:mm]", text);
}

void CDateTime::SetXSDTime(std::u16string_view text)
{
    if (text.empty())
        throw CZqInvalidValueException(u"Invalid XSD Time (Empty String)");
    const std::optional<SDateTimeFields> fields =
        Read(text.substr(0, kTimeLayout.size()), kTimeLayout);
    if (!fields || fields->hour > 23 || fields->minute > 59 || fields->second > 59)
        Refuse(u"Invalid XSD Time [%s] expected hh:mm:ss[.ff]", text);
    m_hour = static_cast<std::uint8_t>(fields->hour);
    m_minute = static_cast<std::uint8_t>(fields->minute);
    m_second = static_cast<std::uint8_t>(fields->second);

    std::u16string_view rest = text.substr(kTimeLayout.size());
    if (rest.starts_with(u'.')) {
        rest.remove_prefix(1);
        if (!TakeFraction(rest, m_milli, m_micro, m_nano))
            Refuse(u"Invalid XSD Time [%s] Fraction part too long", text);
    }
    SetZone(rest);
    m_type = DTType_time;
}

void CDateTime::SetZone(std::u16string_view text)
{
    if (text.starts_with(u'Z')) {
        SetUTC();
    }
    else if (text.starts_with(u'+') || text.starts_with(u'-')) {
        const std::optional<SDateTimeFields> zone = Read(text, kZoneLayout);
        if (!zone)
            Refuse(u"Invalid XSD Time Zone [%s]", text);
        const std::int64_t hour = zone->hour == 24 ? 0 : zone->hour;
        SetTimeZone(text.front() == u'-' ? -hour : hour, zone->minute);
    }
}

std::u16string CDateTime::ToString() const
{
    const auto isPrinted = [this](const SLayout& row) { return row.type == m_type; };
    const auto row = std::ranges::find_if(kLayouts, isPrinted);
    const bool isEmpty = GetFields() == SDateTimeFields();
    if (row == std::end(kLayouts) || (isEmpty && m_type != DTType_time))
        throw CZqInvalidValueException(u"Date Not Set");

    CShortText text;
    if (m_year < 0 && HasField(m_type, EField::Year))
        text.Put(u'-');
    Print(text, row->layout, GetFields());
    if (m_hasZone) {
        text.Put(m_zoneHour < 0 ? u'-' : u'+');
        Print(text, kZoneLayout.substr(1), {.hour = m_zoneHour, .minute = m_zoneMinute});
    }
    else if (m_isUtc) {
        text.Put(u'Z');
    }
    return std::u16string(text.GetText());
}

std::u16string CDateTime::ToString(const char16_t* format) const
{
    std::u16string text = ToString();
    const std::u16string_view name = TextOrEmpty(format);
    if (name == u"s")
        return text;
    if (name.empty() || name == u"G")
        return {};
    return u"Unknown Format: " + std::u16string(name);
}

}  // namespace ZqXmlLib9
