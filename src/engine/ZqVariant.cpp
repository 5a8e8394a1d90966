#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/ZqVariant.h>
#include <ZqXmlLib9/types/ValueKind.h>

#include <cstdint>
#include <iterator>
#include <utility>

namespace ZqXmlLib9 {
namespace {

[[noreturn]] void ThrowWithoutText(ItemType type)
{
    throw CZqException(FormatString(u"Invalid Type %d to convert to string", type));
}

}  // namespace

/// What is known of a type: its word and the two ways to its text.
struct ZqVariant::SKind {
    const char16_t* word;
    std::u16string (*print)(const Payload& value, const char16_t* format);
    Payload (*read)(std::u16string_view text, CWhitespaceUtils::WhitespaceRule rule);

    template <ItemType type>
    static constexpr SKind Of(const char16_t* word)
    {
        return {
            word,
            [](const Payload& value, const char16_t* format) {
                return SValueKind<type>::Print(std::get<ValueOf<type>>(value), format);
            },
            [](std::u16string_view text, CWhitespaceUtils::WhitespaceRule rule) {
                return Payload(std::in_place_type<ValueOf<type>>,
                               SValueKind<type>::Read(text, rule));
            },
        };
    }
};

/// \return null for a type without text
const ZqVariant::SKind* ZqVariant::FindKind(ItemType type)
{
    // From the first type that has a text, in the order of ItemType.
    static constexpr SKind kKinds[] = {
        SKind::Of<ItemType_hexBinary>(u"hexBinary"),
        SKind::Of<ItemType_base64Binary>(u"base64Binary"),
        SKind::Of<ItemType_i1>(u"i1"),
        SKind::Of<ItemType_i2>(u"i2"),
        SKind::Of<ItemType_i4>(u"i4"),
        SKind::Of<ItemType_i8>(u"i8"),
        SKind::Of<ItemType_ui1>(u"ui1"),
        SKind::Of<ItemType_ui2>(u"ui2"),
        SKind::Of<ItemType_ui4>(u"ui4"),
        SKind::Of<ItemType_ui8>(u"ui8"),
        SKind::Of<ItemType_r4>(u"r4"),
        SKind::Of<ItemType_r8>(u"r8"),
        SKind::Of<ItemType_duration>(u"duration"),
        SKind::Of<ItemType_yearMonth>(u"yearMonth"),
        SKind::Of<ItemType_monthDay>(u"monthDay"),
        SKind::Of<ItemType_year>(u"year"),
        SKind::Of<ItemType_month>(u"month"),
        SKind::Of<ItemType_day>(u"day"),
        SKind::Of<ItemType_date>(u"date"),
        SKind::Of<ItemType_datetime>(u"datetime"),
        SKind::Of<ItemType_time>(u"time"),
        SKind::Of<ItemType_char>(u"char"),
        SKind::Of<ItemType_string>(u"string"),
        SKind::Of<ItemType_boolean>(u"boolean"),
        SKind::Of<ItemType_decimal>(u"decimal"),
        SKind::Of<ItemType_integer>(u"integer"),
    };
    const auto index = std::int64_t{type} - ItemType_hexBinary;
    return index >= 0 && index < std::ssize(kKinds) ? &kKinds[index] : nullptr;
}

ZqVariant::ZqVariant() = default;
ZqVariant::ZqVariant(const ZqVariant& other) = default;
ZqVariant::~ZqVariant() = default;

ZqVariant::ZqVariant(ZqVariant&& other) noexcept
    : m_type(std::exchange(other.m_type, ItemType_invalid)),
      m_payload(std::exchange(other.m_payload, Payload()))
{}

ZqVariant& ZqVariant::operator=(const ZqVariant& other)
{
    return *this = ZqVariant(other);
}

ZqVariant& ZqVariant::operator=(ZqVariant&& other) noexcept
{
    ZqVariant taken(std::move(other));
    std::swap(m_type, taken.m_type);
    std::swap(m_payload, taken.m_payload);
    return *this;
}

std::u16string ZqVariant::GetType() const
{
    const SKind* const kind = FindKind(m_type);
    if (kind == nullptr)
        throw CZqException(FormatString(u"Invalid Type %d", m_type));
    return kind->word;
}

void ZqVariant::Clear()
{
    m_type = ItemType_invalid;
    m_payload.emplace<std::monostate>();
}

template <typename TValue>
void ZqVariant::Set(ItemType type, TValue value)
{
    m_payload.emplace<TValue>(std::move(value));
    m_type = type;
}

template <typename TValue>
const TValue& ZqVariant::Get() const
{
    // Never destroyed, since destructors of static objects may still read values.
    static const TValue& nothing = *new TValue{};
    if (!IsValid())
        return nothing;
    const TValue* const value = std::get_if<TValue>(&m_payload);
    if (value == nullptr)
        throw CZqInvalidStateException(
            FormatString(u"The value has the type %d, which is not the one asked for", m_type));
    return *value;
}

void ZqVariant::SetHexBinary(const CBinaryData& value)
{
    Set<CBinaryData>(ItemType_hexBinary, value);
}

const CBinaryData& ZqVariant::GetHexBinary() const
{
    return Get<CBinaryData>();
}

void ZqVariant::SetBase64Binary(const CBinaryData& value)
{
    Set<CBinaryData>(ItemType_base64Binary, value);
}

const CBinaryData& ZqVariant::GetBase64Binary() const
{
    return Get<CBinaryData>();
}

void ZqVariant::SetI1(std::int8_t value)
{
    Set<std::int8_t>(ItemType_i1, value);
}

std::int8_t ZqVariant::GetI1() const
{
    return Get<std::int8_t>();
}

void ZqVariant::SetI2(std::int16_t value)
{
    Set<std::int16_t>(ItemType_i2, value);
}

std::int16_t ZqVariant::GetI2() const
{
    return Get<std::int16_t>();
}

void ZqVariant::SetI4(std::int32_t value)
{
    Set<std::int32_t>(ItemType_i4, value);
}

std::int32_t ZqVariant::GetI4() const
{
    return Get<std::int32_t>();
}

void ZqVariant::SetI8(std::int64_t value)
{
    Set<std::int64_t>(ItemType_i8, value);
}

std::int64_t ZqVariant::GetI8() const
{
    return Get<std::int64_t>();
}

void ZqVariant::SetUI1(std::uint8_t value)
{
    Set<std::uint8_t>(ItemType_ui1, value);
}

std::uint8_t ZqVariant::GetUI1() const
{
    return Get<std::uint8_t>();
}

void ZqVariant::SetUI2(std::uint16_t value)
{
    Set<std::uint16_t>(ItemType_ui2, value);
}

std::uint16_t ZqVariant::GetUI2() const
{
    return Get<std::uint16_t>();
}

void ZqVariant::SetUI4(std::uint32_t value)
{
    Set<std::uint32_t>(ItemType_ui4, value);
}

std::uint32_t ZqVariant::GetUI4() const
{
    return Get<std::uint32_t>();
}

void ZqVariant::SetUI8(std::uint64_t value)
{
    Set<std::uint64_t>(ItemType_ui8, value);
}

std::uint64_t ZqVariant::GetUI8() const
{
    return Get<std::uint64_t>();
}

void ZqVariant::SetR4(float value)
{
    Set<float>(ItemType_r4, value);
}

float ZqVariant::GetR4() const
{
    return Get<float>();
}

void ZqVariant::SetR8(double value)
{
    Set<double>(ItemType_r8, value);
}

double ZqVariant::GetR8() const
{
    return Get<double>();
}

void ZqVariant::SetDuration(const CDateTimeSpan& value)
{
    Set<CDateTimeSpan>(ItemType_duration, value);
}

const CDateTimeSpan& ZqVariant::GetDuration() const
{
    return Get<CDateTimeSpan>();
}

void ZqVariant::SetYearMonth(const CDateTime& value)
{
    Set<CDateTime>(ItemType_yearMonth, value);
}

const CDateTime& ZqVariant::GetYearMonth() const
{
    return Get<CDateTime>();
}

void ZqVariant::SetMonthDay(const CDateTime& value)
{
    Set<CDateTime>(ItemType_monthDay, value);
}

const CDateTime& ZqVariant::GetMonthDay() const
{
    return Get<CDateTime>();
}

void ZqVariant::SetYear(std::uint16_t value)
{
    Set<std::uint16_t>(ItemType_year, value);
}

std::uint16_t ZqVariant::GetYear() const
{
    return Get<std::uint16_t>();
}

void ZqVariant::SetMonth(std::uint8_t value)
{
    Set<std::uint8_t>(ItemType_month, value);
}

std::uint8_t ZqVariant::GetMonth() const
{
    return Get<std::uint8_t>();
}

void ZqVariant::SetDay(std::uint8_t value)
{
    Set<std::uint8_t>(ItemType_day, value);
}

std::uint8_t ZqVariant::GetDay() const
{
    return Get<std::uint8_t>();
}

void ZqVariant::SetDate(const CDateTime& value)
{
    Set<CDateTime>(ItemType_date, value);
}

const CDateTime& ZqVariant::GetDate() const
{
    return Get<CDateTime>();
}

void ZqVariant::SetDateTime(const CDateTime& value)
{
    Set<CDateTime>(ItemType_datetime, value);
}

const CDateTime& ZqVariant::GetDateTime() const
{
    return Get<CDateTime>();
}

void ZqVariant::SetTime(const CDateTime& value)
{
    Set<CDateTime>(ItemType_time, value);
}

const CDateTime& ZqVariant::GetTime() const
{
    return Get<CDateTime>();
}

void ZqVariant::SetChar(char16_t value)
{
    Set<char16_t>(ItemType_char, value);
}

char16_t ZqVariant::GetChar() const
{
    return Get<char16_t>();
}

void ZqVariant::SetString(std::u16string value)
{
    Set<std::u16string>(ItemType_string, std::move(value));
}

const std::u16string& ZqVariant::GetString() const
{
    return Get<std::u16string>();
}

void ZqVariant::SetBoolean(bool value)
{
    Set<bool>(ItemType_boolean, value);
}

bool ZqVariant::GetBoolean() const
{
    return Get<bool>();
}

void ZqVariant::SetDecimal(const CDecimal& value)
{
    Set<CDecimal>(ItemType_decimal, value);
}

const CDecimal& ZqVariant::GetDecimal() const
{
    return Get<CDecimal>();
}

void ZqVariant::SetInteger(const CBigInteger& value)
{
    Set<CBigInteger>(ItemType_integer, value);
}

const CBigInteger& ZqVariant::GetInteger() const
{
    return Get<CBigInteger>();
}

void ZqVariant::SetXmlObject(CXmlObjectBase* object)
{
    Set(ItemType_xmlObject, CSmartPtr<CXmlObjectBase>(object));
}

CSmartPtr<CXmlObjectBase> ZqVariant::GetXmlObject() const
{
    return Get<CSmartPtr<CXmlObjectBase>>();
}

void ZqVariant::SetXmlCollection(CXmlCollectionBase* collection)
{
    Set(ItemType_xmlCollection, CSmartPtr<CXmlCollectionBase>(collection));
}

CSmartPtr<CXmlCollectionBase> ZqVariant::GetXmlCollection() const
{
    return Get<CSmartPtr<CXmlCollectionBase>>();
}

std::u16string ZqVariant::ToString(const char16_t* format) const
{
    const SKind* const kind = FindKind(m_type);
    if (kind == nullptr)
        ThrowWithoutText(m_type);
    return kind->print(m_payload, format);
}

void ZqVariant::FromString(const std::u16string& text, ItemType type,
                           CWhitespaceUtils::WhitespaceRule rule)
{
    const SKind* const kind = FindKind(type);
    if (kind == nullptr)
        ThrowWithoutText(type);
    m_payload = kind->read(text, rule);
    m_type = type;
}

}  // namespace ZqXmlLib9
