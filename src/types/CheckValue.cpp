// The facets of each kind of value. A kind is known by its type: dates and durations have
// CompareTo, the rest that has bounds the operators of order.

#include "Pattern.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/types/CheckValue.h>

#include <array>
#include <concepts>
#include <cstdint>

namespace ZqXmlLib9 {
namespace {

template <typename T>
concept PartlyOrdered = requires(const T& value)
{
    {
        value.CompareTo(value)
        } -> std::same_as<DTCompareResult>;
};

/// What a value must be, seen from a bound.
enum class EBound : std::uint8_t { AtLeast, AtMost, Above, Below };

struct SBound {
    std::u16string CPrimitiveRestrictions::*text;
    EBound bound;
};

/// In the order of their tests.
constexpr std::array<SBound, 4> kBounds{{
    {&CPrimitiveRestrictions::m_minInclusive, EBound::AtLeast},
    {&CPrimitiveRestrictions::m_maxInclusive, EBound::AtMost},
    {&CPrimitiveRestrictions::m_minExclusive, EBound::Above},
    {&CPrimitiveRestrictions::m_maxExclusive, EBound::Below},
}};

template <typename T>
bool Passes(const T& value, EBound bound, const T& limit)
{
    switch (bound) {
    case EBound::AtLeast: return value >= limit;
    case EBound::AtMost: return value <= limit;
    case EBound::Above: return value > limit;
    case EBound::Below: break;
    }
    return value < limit;
}

template <PartlyOrdered T>
bool Passes(const T& value, EBound bound, const T& limit)
{
    const DTCompareResult result = value.CompareTo(limit);
    if (result == DTCompareResult_Equal)
        return bound == EBound::AtLeast || bound == EBound::AtMost;
    const bool isLower = bound == EBound::AtLeast || bound == EBound::Above;
    return result != (isLower ? DTCompareResult_LessThan : DTCompareResult_GreaterThan);
}

/// \param format  of the message, for name and value
template <typename TValue>
[[noreturn]] void Refuse(const char16_t* format, const char16_t* name, const TValue& value)
{
    throw CZqException(FormatString(format, name, value));
}

template <ItemType type>
[[noreturn]] void Refuse(const char16_t* name, const ValueOf<type>& value)
{
    if constexpr (std::is_floating_point_v<ValueOf<type>>)
        Refuse(u"Invalid Value for %s [%f]", name, value);
    else if constexpr (std::is_integral_v<ValueOf<type>> && sizeof(value) <= 4)
        Refuse(u"Invalid Value for %s [%d]", name, value);
    else if constexpr (type == ItemType_base64Binary)
        Refuse(u"Invalid Value for %s [%s]", name, value.GetAsHexString());
    else
        Refuse(u"Invalid Value for %s [%s]", name, SValueKind<type>::Print(value, nullptr));
}

bool HasLength(std::int64_t length, const CPrimitiveRestrictions& restrictions)
{
    return (restrictions.m_minLength < 0 || length >= restrictions.m_minLength)
           && (restrictions.m_maxLength < 0 || length <= restrictions.m_maxLength)
           && (restrictions.m_length < 0 || length == restrictions.m_length);
}

bool HasPattern(const char16_t* name, const std::u16string& value, const std::u16string& pattern)
{
    try {
        return MatchPattern(pattern, value);
    }
    catch (const CZqException& failure) {
        throw CZqException(
            FormatString(u"%s\nInvalid Value for %s [%s]", failure.GetFullMessage(), name, value));
    }
}

template <ItemType type>
bool IsWithinBounds(const ValueOf<type>& value, const CPrimitiveRestrictions& restrictions)
{
    for (const SBound& bound : kBounds) {
        const std::u16string& text = restrictions.*bound.text;
        if (!text.empty()
            && !Passes(value, bound.bound,
                       SValueKind<type>::Read(text, CWhitespaceUtils::WhitespaceRule_Collapse)))
            return false;
    }
    return true;
}

}  // namespace

template <ItemType type>
void CheckValue(const char16_t* name, const ValueOf<type>& value,
                const CPrimitiveRestrictions& restrictions)
{
    bool isValid = true;
    if constexpr (type == ItemType_string)
        isValid =
            HasLength(std::ssize(value), restrictions)
            && (restrictions.m_pattern.empty() || HasPattern(name, value, restrictions.m_pattern));
    else if constexpr (std::is_same_v<ValueOf<type>, CBinaryData>)
        isValid = HasLength(value.GetLength(), restrictions);
    else if constexpr (type != ItemType_boolean)
        isValid = IsWithinBounds<type>(value, restrictions);
    if (!isValid)
        Refuse<type>(name, value);
}

template void CheckValue<ItemType_hexBinary>(const char16_t*, const ValueOf<ItemType_hexBinary>&,
                                             const CPrimitiveRestrictions&);
template void CheckValue<ItemType_base64Binary>(const char16_t*,
                                                const ValueOf<ItemType_base64Binary>&,
                                                const CPrimitiveRestrictions&);
template void CheckValue<ItemType_i1>(const char16_t*, const ValueOf<ItemType_i1>&,
                                      const CPrimitiveRestrictions&);
template void CheckValue<ItemType_i2>(const char16_t*, const ValueOf<ItemType_i2>&,
                                      const CPrimitiveRestrictions&);
template void CheckValue<ItemType_i4>(const char16_t*, const ValueOf<ItemType_i4>&,
                                      const CPrimitiveRestrictions&);
template void CheckValue<ItemType_i8>(const char16_t*, const ValueOf<ItemType_i8>&,
                                      const CPrimitiveRestrictions&);
template void CheckValue<ItemType_ui1>(const char16_t*, const ValueOf<ItemType_ui1>&,
                                       const CPrimitiveRestrictions&);
template void CheckValue<ItemType_ui2>(const char16_t*, const ValueOf<ItemType_ui2>&,
                                       const CPrimitiveRestrictions&);
template void CheckValue<ItemType_ui4>(const char16_t*, const ValueOf<ItemType_ui4>&,
                                       const CPrimitiveRestrictions&);
template void CheckValue<ItemType_ui8>(const char16_t*, const ValueOf<ItemType_ui8>&,
                                       const CPrimitiveRestrictions&);
template void CheckValue<ItemType_r4>(const char16_t*, const ValueOf<ItemType_r4>&,
                                      const CPrimitiveRestrictions&);
template void CheckValue<ItemType_r8>(const char16_t*, const ValueOf<ItemType_r8>&,
                                      const CPrimitiveRestrictions&);
template void CheckValue<ItemType_duration>(const char16_t*, const ValueOf<ItemType_duration>&,
                                            const CPrimitiveRestrictions&);
template void CheckValue<ItemType_yearMonth>(const char16_t*, const ValueOf<ItemType_yearMonth>&,
                                             const CPrimitiveRestrictions&);
template void CheckValue<ItemType_monthDay>(const char16_t*, const ValueOf<ItemType_monthDay>&,
                                            const CPrimitiveRestrictions&);
template void CheckValue<ItemType_year>(const char16_t*, const ValueOf<ItemType_year>&,
                                        const CPrimitiveRestrictions&);
template void CheckValue<ItemType_month>(const char16_t*, const ValueOf<ItemType_month>&,
                                         const CPrimitiveRestrictions&);
template void CheckValue<ItemType_day>(const char16_t*, const ValueOf<ItemType_day>&,
                                       const CPrimitiveRestrictions&);
template void CheckValue<ItemType_date>(const char16_t*, const ValueOf<ItemType_date>&,
                                        const CPrimitiveRestrictions&);
template void CheckValue<ItemType_datetime>(const char16_t*, const ValueOf<ItemType_datetime>&,
                                            const CPrimitiveRestrictions&);
template void CheckValue<ItemType_time>(const char16_t*, const ValueOf<ItemType_time>&,
                                        const CPrimitiveRestrictions&);
template void CheckValue<ItemType_string>(const char16_t*, const ValueOf<ItemType_string>&,
                                          const CPrimitiveRestrictions&);
template void CheckValue<ItemType_boolean>(const char16_t*, const ValueOf<ItemType_boolean>&,
                                           const CPrimitiveRestrictions&);
template void CheckValue<ItemType_decimal>(const char16_t*, const ValueOf<ItemType_decimal>&,
                                           const CPrimitiveRestrictions&);
template void CheckValue<ItemType_integer>(const char16_t*, const ValueOf<ItemType_integer>&,
                                           const CPrimitiveRestrictions&);

}  // namespace ZqXmlLib9
