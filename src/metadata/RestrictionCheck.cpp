#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/ZqVariant.h>
#include <ZqXmlLib9/metadata/RestrictionCheck.h>
#include <ZqXmlLib9/types/CheckValue.h>

#include <array>
#include <cstdint>

namespace ZqXmlLib9 {
namespace {

using Check = void (*)(const char16_t* name, const ZqVariant& value,
                       const CPrimitiveRestrictions& restrictions);

template <ItemType type, auto getter>
constexpr Check CheckOf()
{
    return [](const char16_t* name, const ZqVariant& value,
              const CPrimitiveRestrictions& restrictions) {
        CheckValue<type>(name, (value.*getter)(), restrictions);
    };
}

/// From the first item type that has a test, in the order of ItemType; null: a type has none.
constexpr std::array<Check, 26> kChecks{
    CheckOf<ItemType_hexBinary, &ZqVariant::GetHexBinary>(),
    CheckOf<ItemType_base64Binary, &ZqVariant::GetBase64Binary>(),
    CheckOf<ItemType_i1, &ZqVariant::GetI1>(),
    CheckOf<ItemType_i2, &ZqVariant::GetI2>(),
    CheckOf<ItemType_i4, &ZqVariant::GetI4>(),
    CheckOf<ItemType_i8, &ZqVariant::GetI8>(),
    CheckOf<ItemType_ui1, &ZqVariant::GetUI1>(),
    CheckOf<ItemType_ui2, &ZqVariant::GetUI2>(),
    CheckOf<ItemType_ui4, &ZqVariant::GetUI4>(),
    CheckOf<ItemType_ui8, &ZqVariant::GetUI8>(),
    CheckOf<ItemType_r4, &ZqVariant::GetR4>(),
    CheckOf<ItemType_r8, &ZqVariant::GetR8>(),
    CheckOf<ItemType_duration, &ZqVariant::GetDuration>(),
    CheckOf<ItemType_yearMonth, &ZqVariant::GetYearMonth>(),
    CheckOf<ItemType_monthDay, &ZqVariant::GetMonthDay>(),
    CheckOf<ItemType_year, &ZqVariant::GetYear>(),
    CheckOf<ItemType_month, &ZqVariant::GetMonth>(),
    CheckOf<ItemType_day, &ZqVariant::GetDay>(),
    CheckOf<ItemType_date, &ZqVariant::GetDate>(),
    CheckOf<ItemType_datetime, &ZqVariant::GetDateTime>(),
    CheckOf<ItemType_time, &ZqVariant::GetTime>(),
    nullptr,
    CheckOf<ItemType_string, &ZqVariant::GetString>(),
    CheckOf<ItemType_boolean, &ZqVariant::GetBoolean>(),
    CheckOf<ItemType_decimal, &ZqVariant::GetDecimal>(),
    CheckOf<ItemType_integer, &ZqVariant::GetInteger>(),
};

}  // namespace

void CheckRestrictionValue(const char16_t* name, const ZqVariant& value, ItemType type,
                           const CPrimitiveRestrictions& restrictions)
{
    const auto index = static_cast<std::size_t>(std::int64_t{type} - ItemType_hexBinary);
    if (index >= kChecks.size() || kChecks[index] == nullptr)
        throw CZqInvalidValueException(FormatString(u"unknown type [%s]", value.GetType()));
    kChecks[index](name, value, restrictions);
}

}  // namespace ZqXmlLib9
