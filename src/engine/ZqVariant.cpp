#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/ZqVariant.h>

#include <array>
#include <utility>

namespace ZqXmlLib9 {
namespace {

/// The words of the item types, from 0; a type without a word has null.
constexpr std::array<const char16_t*, 29> kWords{
    nullptr,    u"hexBinary", u"base64Binary", u"i1",       u"i2",   u"i4",
    u"i8",      u"ui1",       u"ui2",          u"ui4",      u"ui8",  u"r4",
    u"r8",      u"duration",  u"yearMonth",    u"monthDay", u"year", u"month",
    u"day",     u"date",      u"datetime",     u"time",     u"char", u"string",
    u"boolean", u"decimal",   u"integer",      nullptr,     nullptr,
};

[[noreturn]] void ThrowWithoutText(ItemType type)
{
    throw CZqException(FormatString(u"Invalid Type %d to convert to string", type));
}

}  // namespace

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
    const auto index = static_cast<std::size_t>(m_type);
    if (index >= kWords.size() || kWords[index] == nullptr)
        throw CZqException(FormatString(u"Invalid Type %d", m_type));
    return kWords[index];
}

void ZqVariant::Clear()
{
    m_type = ItemType_invalid;
    m_payload.emplace<std::monostate>();
}

template <typename TValue>
void ZqVariant::Set(ItemType type, TValue&& value)
{
    m_payload = std::forward<TValue>(value);
    m_type = type;
}

template <typename TValue>
const TValue& ZqVariant::Get() const
{
    static const TValue kNothing{};
    if (!IsValid())
        return kNothing;
    const TValue* const value = std::get_if<TValue>(&m_payload);
    if (value == nullptr)
        throw CZqInvalidStateException(
            FormatString(u"The value has the type %d, which is not the one asked for", m_type));
    return *value;
}

void ZqVariant::SetI4(std::int32_t value)
{
    Set(ItemType_i4, value);
}

std::int32_t ZqVariant::GetI4() const
{
    return Get<std::int32_t>();
}

void ZqVariant::SetString(std::u16string value)
{
    Set(ItemType_string, std::move(value));
}

const std::u16string& ZqVariant::GetString() const
{
    return Get<std::u16string>();
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

std::u16string ZqVariant::ToString(const char16_t*) const
{
    if (m_type != ItemType_string)
        ThrowWithoutText(m_type);
    return GetString();
}

void ZqVariant::FromString(const std::u16string& text, ItemType type,
                           CWhitespaceUtils::WhitespaceRule rule)
{
    if (type != ItemType_string)
        ThrowWithoutText(type);
    SetString(CWhitespaceUtils::ApplyRule(rule, text));
}

}  // namespace ZqXmlLib9
