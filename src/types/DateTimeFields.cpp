#include "DateTimeFields.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>

#include <iterator>
#include <string>

namespace ZqXmlLib9 {
namespace {

constexpr unsigned Bit(DTField field)
{
    return 1u << static_cast<unsigned>(field);
}
constexpr unsigned Bit(DTType type)
{
    return 1u << static_cast<unsigned>(type);
}

constexpr unsigned kYear = Bit(DTField::Year);
constexpr unsigned kMonth = Bit(DTField::Month);
constexpr unsigned kDay = Bit(DTField::Day);
constexpr unsigned kTimeOfDay = Bit(DTField::Hour) | Bit(DTField::Minute) | Bit(DTField::Second)
                                | Bit(DTField::Milli) | Bit(DTField::Micro) | Bit(DTField::Nano);

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
    const char16_t* name;
    const char16_t* getter;
    std::int64_t SDateTimeFields::*value;
    std::int64_t min;
    std::int64_t max;
    const char16_t* range;  ///< the end of the message
};

/// In the order of `DTField`.
constexpr SField kFields[] = {
    {u"Month", u"GetMonth", &SDateTimeFields::month, 1, 12, u"(1 <= month <= 12)"},
    {u"Year", u"GetYear", &SDateTimeFields::year, CDateTime::kMinYear, CDateTime::kMaxYear,
     u"(-9999 <= year <= 9999 && year != 0)"},
    {u"Day", u"GetDay", &SDateTimeFields::day, 1, 31, u"(1 <= day <= 31)"},
    {u"Hour", u"GetHour", &SDateTimeFields::hour, 0, 23, u"(0 <= hour <= 23)"},
    {u"Minute", u"GetMinute", &SDateTimeFields::minute, 0, 59, u"(0 <= minute <= 59)"},
    {u"Second", u"GetSecond", &SDateTimeFields::second, 0, 59, u"(0 <= second <= 59)"},
    {u"Milli-Second", u"GetMilliSecond", &SDateTimeFields::milli, 0, 999, u"(0 <= milli <= 999)"},
    {u"Micro-Second", u"GetMicroSecond", &SDateTimeFields::micro, 0, 999, u"(0 <= micro <= 999)"},
    {u"Nano-Second", u"GetNanoSecond", &SDateTimeFields::nano, 0, 999, u"(0 <= nano <= 999)"},
};

/// Any leap year: a gMonthDay may be February 29th.
constexpr std::int64_t kLeapYear = 4;

[[noreturn]] void Refuse(const SField& field, std::int64_t value, const char16_t* range)
{
    throw CZqInvalidValueException(
        FormatString(u"Invalid %s [%I64d] %s", field.name, value, range));
}

/// For types with a month, once that is known to be valid.
void ValidateDayOfMonth(const SField& field, bool hasYear, const SDateTimeFields& fields)
{
    const std::int64_t year = hasYear ? fields.year : kLeapYear;
    if (fields.day < 1 || fields.day > DaysInMonth(year, fields.month))
        Refuse(field, fields.day,
               hasYear ? u"(1 <= day <= days in month" : u"(1 <= day <= days in month)");
}

}  // namespace

const char16_t* TypeWord(DTType type) noexcept
{
    return TypeOf(type).word;
}

bool HasField(DTType type, DTField field) noexcept
{
    return (TypeOf(type).fields & Bit(field)) != 0;
}

const char16_t* GetterName(DTField field) noexcept
{
    return kFields[static_cast<std::size_t>(field)].getter;
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
        const unsigned bit = 1u << (&field - kFields);
        if ((inUse & bit) == 0) {
            if (value != 0)
                throw CZqInvalidValueException(FormatString(u"Invalid %s [%I64d] for type %s",
                                                            field.name, value, TypeWord(type)));
        }
        else if (bit == kDay && (inUse & kMonth) != 0)
            ValidateDayOfMonth(field, (inUse & kYear) != 0, fields);
        else if (value < field.min || value > field.max || (bit == kYear && value == 0))
            Refuse(field, value, field.range);
    }
}

void RefuseFieldValue(DTField field, std::int64_t value)
{
    const SField& info = kFields[static_cast<std::size_t>(field)];
    Refuse(info, value, info.range);
}

}  // namespace ZqXmlLib9
