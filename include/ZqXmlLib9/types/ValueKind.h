/// \file ValueKind.h
/// Which C++ type each item type has, and which conversions.
#pragma once

#include <ZqXmlLib9/types/Conversions.h>
#include <ZqXmlLib9/types/ItemType.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace ZqXmlLib9 {

template <typename TValue, auto toString, auto fromString>
struct SValueKindOf {
    using Value = TValue;

    /// \param format  ignored by the types that have none
    static std::u16string Print(const Value& value, const char16_t* format)
    {
        if constexpr (std::is_invocable_v<decltype(toString), const Value&, const char16_t*>)
            return toString(value, format);
        else
            return toString(value);
    }

    static Value Read(std::u16string_view text, CWhitespaceUtils::WhitespaceRule rule)
    {
        return fromString(text, rule);
    }
};

/// The type `Value` of the values of an item type, and the way to and from their text.
template <ItemType type>
struct SValueKind;

template <>
struct SValueKind<ItemType_hexBinary> : SValueKindOf<CBinaryData, CConversions::hexBinaryToString,
                                                     CConversions::hexBinaryFromString> {};
template <>
struct SValueKind<ItemType_base64Binary>
    : SValueKindOf<CBinaryData, CConversions::base64BinaryToString,
                   CConversions::base64BinaryFromString> {};
template <>
struct SValueKind<ItemType_i1>
    : SValueKindOf<std::int8_t, CConversions::i1ToString, CConversions::i1FromString> {};
template <>
struct SValueKind<ItemType_i2>
    : SValueKindOf<std::int16_t, CConversions::i2ToString, CConversions::i2FromString> {};
template <>
struct SValueKind<ItemType_i4>
    : SValueKindOf<std::int32_t, CConversions::i4ToString, CConversions::i4FromString> {};
template <>
struct SValueKind<ItemType_i8>
    : SValueKindOf<std::int64_t, CConversions::i8ToString, CConversions::i8FromString> {};
template <>
struct SValueKind<ItemType_ui1>
    : SValueKindOf<std::uint8_t, CConversions::ui1ToString, CConversions::ui1FromString> {};
template <>
struct SValueKind<ItemType_ui2>
    : SValueKindOf<std::uint16_t, CConversions::ui2ToString, CConversions::ui2FromString> {};
template <>
struct SValueKind<ItemType_ui4>
    : SValueKindOf<std::uint32_t, CConversions::ui4ToString, CConversions::ui4FromString> {};
template <>
struct SValueKind<ItemType_ui8>
    : SValueKindOf<std::uint64_t, CConversions::ui8ToString, CConversions::ui8FromString> {};
template <>
struct SValueKind<ItemType_r4>
    : SValueKindOf<float, CConversions::r4ToString, CConversions::r4FromString> {};
template <>
struct SValueKind<ItemType_r8>
    : SValueKindOf<double, CConversions::r8ToString, CConversions::r8FromString> {};
template <>
struct SValueKind<ItemType_duration> : SValueKindOf<CDateTimeSpan, CConversions::durationToString,
                                                    CConversions::durationFromString> {};
template <>
struct SValueKind<ItemType_yearMonth>
    : SValueKindOf<CDateTime, CConversions::yearMonthToString, CConversions::yearMonthFromString> {
};
template <>
struct SValueKind<ItemType_monthDay>
    : SValueKindOf<CDateTime, CConversions::monthDayToString, CConversions::monthDayFromString> {};
template <>
struct SValueKind<ItemType_year>
    : SValueKindOf<std::uint16_t, CConversions::yearToString, CConversions::yearFromString> {};
template <>
struct SValueKind<ItemType_month>
    : SValueKindOf<std::uint8_t, CConversions::monthToString, CConversions::monthFromString> {};
template <>
struct SValueKind<ItemType_day>
    : SValueKindOf<std::uint8_t, CConversions::dayToString, CConversions::dayFromString> {};
template <>
struct SValueKind<ItemType_date>
    : SValueKindOf<CDateTime, CConversions::dateToString, CConversions::dateFromString> {};
template <>
struct SValueKind<ItemType_datetime>
    : SValueKindOf<CDateTime, CConversions::datetimeToString, CConversions::datetimeFromString> {};
template <>
struct SValueKind<ItemType_time>
    : SValueKindOf<CDateTime, CConversions::timeToString, CConversions::timeFromString> {};
template <>
struct SValueKind<ItemType_char>
    : SValueKindOf<char16_t, CConversions::charToString, CConversions::charFromString> {};
template <>
struct SValueKind<ItemType_string>
    : SValueKindOf<std::u16string, CConversions::stringToString, CConversions::stringFromString> {};
template <>
struct SValueKind<ItemType_boolean>
    : SValueKindOf<bool, CConversions::booleanToString, CConversions::booleanFromString> {};
template <>
struct SValueKind<ItemType_decimal>
    : SValueKindOf<CDecimal, CConversions::decimalToString, CConversions::decimalFromString> {};
template <>
struct SValueKind<ItemType_integer>
    : SValueKindOf<CBigInteger, CConversions::integerToString, CConversions::integerFromString> {};

template <ItemType type>
using ValueOf = typename SValueKind<type>::Value;

}  // namespace ZqXmlLib9
