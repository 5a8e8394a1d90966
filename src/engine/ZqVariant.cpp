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
struct __attribute__((visibility("hidden"))) ZqVariant::SKind {
    const char16_t* word;
    std::u16string (*print)(const Payload& value, const char16_t* format);
    void (*read)(Payload& value, std::u16string_view text, CWhitespaceUtils::WhitespaceRule rule);

    template <ItemType type>
    static constexpr SKind Of(const char16_t* word)
    {
        return {
            word,
            [](const Payload& value, const char16_t* format) {
                if constexpr (type == ItemType_string)
                    if (const auto* const lent = std::get_if<SLentText>(&value))
                        return *lent->text;
                return SValueKind<type>::Print(std::get<ValueOf<type>>(value), format);
            },
            [](Payload& value, std::u16string_view text, CWhitespaceUtils::WhitespaceRule rule) {
                // What is there goes only once the text has been read.
                ValueOf<type> read = SValueKind<type>::Read(text, rule);
                value.emplace<ValueOf<type>>(std::move(read));
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
ZqVariant::~ZqVariant() = default;

ZqVariant::ZqVariant(const ZqVariant& other) : m_type(other.m_type), m_payload(other.m_payload)
{
    OwnString();
}

ZqVariant::ZqVariant(ZqVariant&& other)
{
    other.OwnString();
    m_type = std::exchange(other.m_type, ItemType_invalid);
    m_payload = std::exchange(other.m_payload, Payload());
}

void ZqVariant::OwnString()
{
    if (const auto* const lent = std::get_if<SLentText>(&m_payload)) {
        std::u16string own = *lent->text;
        m_payload.emplace<std::u16string>(std::move(own));
    }
}

ZqVariant& ZqVariant::operator=(const ZqVariant& other)
{
    return *this = ZqVariant(other);
}

ZqVariant& ZqVariant::operator=(ZqVariant&& other)
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

void ZqVariant::ThrowOtherKind() const
{
    throw CZqInvalidStateException(
        FormatString(u"The value has the type %d, which is not the one asked for", m_type));
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
    kind->read(m_payload, text, rule);
    m_type = type;
}

}  // namespace ZqXmlLib9
