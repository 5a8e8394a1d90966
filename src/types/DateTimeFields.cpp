#include "DateTimeFields.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>

#include <iterator>

namespace ZqXmlLib9 {
namespace {

using EField = CDateTime::EField;
using enum CDateTime::EField;
using Fields = SDateTimeFields;

constexpr unsigned Bit(EField field)
{
    return 1u << static_cast<unsigned>(field);
}
constexpr unsigned Bit(DTType type)
{
    return 1u << static_cast<unsigned>(type);
}

constexpr unsigned kYear = Bit(Year);
constexpr unsigned kMonth = Bit(Month);
constexpr unsigned kDay = Bit(Day);
constexpr unsigned kTimeOfDay =
    Bit(Hour) | Bit(Minute) | Bit(Second) | Bit(Milli) | Bit(Micro) | Bit(Nano);

struct SType {
    const char16_t* word;
    unsigned fields;   ///< a bit for each field in use
    unsigned targets;  ///< a bit for each type that its fields suffice for, without itself
};

/// In the order of `DTType`.
constexpr SType kTypes[] = {
    {u"yearZero", 0, 0},
    {u"dateTime", kYear | kMonth | kDay | kTimeOfDay, ~0u},
    {u"date", kYear | kMonth | kDay,
     Bit(DTType_gDay) | Bit(DTType_gMonth) | Bit(DTType_gYear) | Bit(DTType_gMonthDay)
         | Bit(DTType_gYearMonth)},
    {u"gYearMonth", kYear | kMonth, Bit(DTType_gMonth) | Bit(DTType_gYear)},
    {u"gYear", kYear, 0},
    {u"time", kTimeOfDay, 0},
    {u"gDay", kDay, 0},
    {u"gMonth", kMonth, 0},
    {u"gMonthDay", kMonth | kDay, Bit(DTType_gDay) | Bit(DTType_gMonth)},
};

constexpr SType kUnknownType = {u"unknown", 0, 0};

bool IsKnown(DTType type)
{
    return type >= 0 && static_cast<std::size_t>(type) < std::size(kTypes);
}

const SType& TypeOf(DTType type)
{
    return IsKnown(type) ? kTypes[type] : kUnknownType;
}

struct SField {
    EField field;
    const char16_t* name;
    const char16_t* getter;
    std::int64_t Fields::*value;
    std::int64_t min;
    std::int64_t max;
    const char16_t* range;  ///< the end of the message
};

/// In the order of `EField`.
constexpr SField kFields[] = {
    {Month, u"Month", u"GetMonth", &Fields::month, 1, 12, u"(1 <= month <= 12)"},
    {Year, u"Year", u"GetYear", &Fields::year, CDateTime::kMinYear, CDateTime::kMaxYear,
     u"(-9999 <= year <= 9999 && year != 0)"},
    {Day, u"Day", u"GetDay", &Fields::day, 1, 31, u"(1 <= day <= 31)"},
    {Hour, u"Hour", u"GetHour", &Fields::hour, 0, 23, u"(0 <= hour <= 23)"},
    {Minute, u"Minute", u"GetMinute", &Fields::minute, 0, 59, u"(0 <= minute <= 59)"},
    {Second, u"Second", u"GetSecond", &Fields::second, 0, 59, u"(0 <= second <= 59)"},
    {Milli, u"Milli-Second", u"GetMilliSecond", &Fields::milli, 0, 999, u"(0 <= milli <= 999)"},
    {Micro, u"Micro-Second", u"GetMicroSecond", &Fields::micro, 0, 999, u"(0 <= micro <= 999)"},
    {Nano, u"Nano-Second", u"GetNanoSecond", &Fields::nano, 0, 999, u"(0 <= nano <= 999)"},
};

const SField& FieldOf(EField field)
{
    return kFields[static_cast<std::size_t>(field)];
}

/// Any leap year: a gMonthDay may be February 29th.
constexpr std::int64_t kLeapYear = 4;

[[noreturn]] void Refuse(const SField& field, std::int64_t value, const char16_t* range)
{
    throw CZqInvalidValueException(
        FormatString(u"Invalid %s [%I64d] %s", field.name, value, range));
}

}  // namespace

const char16_t* TypeWord(DTType type) noexcept
{
    return TypeOf(type).word;
}

bool HasField(DTType type, EField field) noexcept
{
    return (TypeOf(type).fields & Bit(field)) != 0;
}

bool CanConvert(DTType source, DTType target)
{
    if (source == target || target == DTType_yearZero)
        return true;
    for (const DTType type : {source, target})
        if (!IsKnown(type))
            throw CZqInvalidValueException(FormatString(u"Unknown date type %d.", type));
    return (TypeOf(source).targets & Bit(target)) != 0;
}

void ValidateFields(DTType type, const SDateTimeFields& fields)
{
    if (type == DTType_yearZero)
        throw CZqInvalidValueException(u"Invalid Year Zero");
    const unsigned inUse = TypeOf(type).fields;
    for (const SField& field : kFields) {
        const std::int64_t value = fields.*field.value;
        const unsigned bit = Bit(field.field);
        if ((inUse & bit) == 0) {
            if (value != 0)
                throw CZqInvalidValueException(FormatString(u"Invalid %s [%I64d] for type %s",
                                                            field.name, value, TypeWord(type)));
        }
        else if (bit == kDay && (inUse & kMonth) != 0) {
            const bool hasYear = (inUse & kYear) != 0;
            if (value < 1 || value > DaysInMonth(hasYear ? fields.year : kLeapYear, fields.month))
                Refuse(field, value,
                       hasYear ? u"(1 <= day <= days in month" : u"(1 <= day <= days in month)");
        }
        else if (value < field.min || value > field.max || (bit == kYear && value == 0))
            Refuse(field, value, field.range);
    }
}

const CDateTime& CDateTime::RequireField(EField field) const
{
    RequireType<CZqInvalidStateException>(HasField(m_type, field), FieldOf(field).getter, m_type);
    return *this;
}

void CDateTime::RefuseField(EField field, std::int64_t value)
{
    Refuse(FieldOf(field), value, FieldOf(field).range);
}

}  // namespace ZqXmlLib9
