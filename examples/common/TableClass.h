// What the classes of an example have in common: each is its members and a table of properties, and
// the engine's metadata is made from that table.
//
// A row of the table binds a member to a name and a kind, in the order of the schema; its index is
// the number of the property. For `<link href="..."><text>...</text></link>`:
//
//     CTableClass::CTable& CLink::GetTable() const
//     {
//         static constexpr SProperty properties[] = {
//             Attribute<&CLink::m_href>(u"href", kUri),
//             Element<&CLink::m_text>(u"text"),
//         };
//         static CTable table(u"linkType", kNamespace, properties);
//         return table;
//     }
#pragma once

#include <ZqXmlLib9/ZqXmlLib9.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace Examples {

using ZqXmlLib9::CBigInteger;
using ZqXmlLib9::CDateTime;
using ZqXmlLib9::CDecimal;
using ZqXmlLib9::CElementCol;
using ZqXmlLib9::CSmartPtr;
using ZqXmlLib9::CWhitespaceUtils;
using ZqXmlLib9::CXmlObjectBase;
using ZqXmlLib9::CXmlObjectCollection;
using ZqXmlLib9::ZqVariant;
using ZqXmlLib9Data::CAttributeInfo;
using ZqXmlLib9Data::CElementInfo;
using ZqXmlLib9Data::CParentElementInfo;

/// A year of our era, xs:gYear; its zone isn't kept.
using CYear = std::uint16_t;

class CTableClass;

/// One property of a class. Names and namespaces are literals; attributes have no namespace.
struct SProperty {
    const char16_t* name;
    CWhitespaceUtils::WhitespaceRule rule;
    CAttributeInfo* (*makeAttribute)(const SProperty& self, int index);  ///< null: an element
    CElementInfo* (*makeElement)(const SProperty& self, const char16_t* ns, int index);
    void (*access)(CTableClass& object, bool read, ZqVariant& value);
    /// Leaves the property as it is in a new object.
    void (*reset)(const SProperty& self, const char16_t* ns, CTableClass& object);
    int minOccurs = 0;  ///< of a collection
};

/// The base of the classes. Their objects are not copied, since a copy would share the children.
class CTableClass : public ZqXmlLib9::CXmlGeneratedClass {
public:
    CTableClass(const CTableClass&) = delete;
    CTableClass& operator=(const CTableClass&) = delete;

    using CXmlGeneratedClass::GetBase;
    CXmlObjectBase* GetBase() override { return this; }
    std::u16string GetTargetNamespace() const override;
    std::u16string GetNamespace() const override;
    /// Leaves every property as it is in a new object; constructors call it too.
    void Init() override;

protected:
    class CTable;

    explicit CTableClass(const char16_t* elementName) { SetElementName(elementName); }

    /// The one table of the class.
    virtual CTable& GetTable() const = 0;

    void AccessProperty(int propertyIndex, bool read, ZqVariant& value) override;
    CParentElementInfo* GetClassInfo() const override;
    CElementInfo** GetClassElementInfo() const override;
    CAttributeInfo** GetClassAttributeInfo() const override;
};

/// The properties of a class, and its metadata: built when it is first asked for, freed when the
/// program ends. All objects of the class and all threads share it.
class CTableClass::CTable {
public:
    struct SMetadata {
        CParentElementInfo* parent = nullptr;
        CElementInfo** elements = nullptr;
        CAttributeInfo** attributes = nullptr;
    };

    /// \param ns          of the class and of its elements
    /// \param properties  must outlive the table
    CTable(const char16_t* typeName, const char16_t* ns, std::span<const SProperty> properties)
        : m_typeName(typeName), m_namespace(ns), m_properties(properties)
    {}
    CTable(const CTable&) = delete;
    CTable& operator=(const CTable&) = delete;
    ~CTable() { Clean(); }

    const char16_t* GetNamespace() const { return m_namespace; }
    std::span<const SProperty> GetProperties() const { return m_properties; }
    const SMetadata& GetMetadata();

private:
    void Build();
    void Clean() { CleanMetaData(m_metadata.parent, m_metadata.elements, m_metadata.attributes); }

    const char16_t* m_typeName;
    const char16_t* m_namespace;
    std::span<const SProperty> m_properties;
    SMetadata m_metadata;
    std::atomic<bool> m_isBuilt{false};
};

/// The white space of an xs:anyURI, which is kept as a text.
inline constexpr auto kUri = CWhitespaceUtils::WhitespaceRule_Collapse;

/// \name The kinds of properties
/// @{

template <typename TMember>
struct SMember;
template <typename TValue, typename TClass>
struct SMember<TValue TClass::*> {
    using Value = TValue;
    using Class = TClass;
};

template <auto member>
using Value = typename SMember<decltype(member)>::Value;

/// A member of the kind `Children`.
template <typename T>
using Collection = CSmartPtr<CXmlObjectCollection<T>>;

/// What a member that is a CSmartPtr points to.
template <auto member>
using Held = std::remove_pointer_t<decltype(std::declval<Value<member>>().Get())>;

template <auto member>
Value<member>& Of(CTableClass& object)
{
    return static_cast<typename SMember<decltype(member)>::Class&>(object).*member;
}

/// What an optional member may hold, and any other member holds.
template <typename T>
struct SContent {
    using Type = T;
    static constexpr bool kIsOptional = false;
};
template <typename T>
struct SContent<std::optional<T>> {
    using Type = T;
    static constexpr bool kIsOptional = true;
};

template <auto member>
using Content = typename SContent<Value<member>>::Type;
template <auto member>
inline constexpr bool kIsOptional = SContent<Value<member>>::kIsOptional;

/// How a simple type is kept: its number, and the setter and getter of the value that crosses to
/// the engine.
template <typename T>
struct SSimple;

template <ZqXmlLib9::ItemType type, auto setter, auto getter>
struct SSimpleOf {
    static constexpr ZqXmlLib9::ItemType kType = type;
    static constexpr auto kSet = setter;
    static constexpr auto kGet = getter;
};

template <>
struct SSimple<std::u16string>
    : SSimpleOf<ZqXmlLib9::ItemType_string, &ZqVariant::SetString, &ZqVariant::GetString> {};
template <>
struct SSimple<CDecimal>
    : SSimpleOf<ZqXmlLib9::ItemType_decimal, &ZqVariant::SetDecimal, &ZqVariant::GetDecimal> {};
template <>
struct SSimple<CBigInteger>
    : SSimpleOf<ZqXmlLib9::ItemType_integer, &ZqVariant::SetInteger, &ZqVariant::GetInteger> {};
template <>
struct SSimple<CDateTime>
    : SSimpleOf<ZqXmlLib9::ItemType_datetime, &ZqVariant::SetDateTime, &ZqVariant::GetDateTime> {};
template <>
struct SSimple<std::int32_t>
    : SSimpleOf<ZqXmlLib9::ItemType_i4, &ZqVariant::SetI4, &ZqVariant::GetI4> {};
template <>
struct SSimple<std::uint32_t>
    : SSimpleOf<ZqXmlLib9::ItemType_ui4, &ZqVariant::SetUI4, &ZqVariant::GetUI4> {};
template <>
struct SSimple<double> : SSimpleOf<ZqXmlLib9::ItemType_r8, &ZqVariant::SetR8, &ZqVariant::GetR8> {};
template <>
struct SSimple<CYear>
    : SSimpleOf<ZqXmlLib9::ItemType_year, &ZqVariant::SetYear, &ZqVariant::GetYear> {};

/// White space belongs to a text and surrounds any other value.
template <typename T>
inline constexpr CWhitespaceUtils::WhitespaceRule kUsualRule =
    std::is_same_v<T, std::u16string> ? CWhitespaceUtils::WhitespaceRule_Preserve
                                      : CWhitespaceUtils::WhitespaceRule_Collapse;

/// A date without a time: `Element<&CItem::m_shipDate, SDate>(u"shipDate")`.
struct SDate : SSimpleOf<ZqXmlLib9::ItemType_date, &ZqVariant::SetDate, &ZqVariant::GetDate> {};

/// The words of an enumeration, in the order of its enumerators, which begin at 0.
template <std::size_t n>
struct SWords {
    const char16_t* kind;  ///< for messages
    std::array<const char16_t*, n> words;

    constexpr std::size_t size() const { return n; }
    constexpr const char16_t* operator[](std::size_t i) const { return words[i]; }
};

template <const auto& words>
const char16_t* ToWord(int number)
{
    if (number < 0 || static_cast<std::size_t>(number) >= words.size())
        throw ZqXmlLib9::CZqInvalidValueException(
            ZqXmlLib9::FormatString(u"The %s %d has no word", words.kind, number));
    return words[static_cast<std::size_t>(number)];
}

template <const auto& words>
int FromWord(const char16_t* text)
{
    std::u16string all;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (std::u16string_view(words[i]) == text)
            return static_cast<int>(i);
        all.append(i == 0 ? u"" : u", ").append(words[i]);
    }
    throw ZqXmlLib9::CZqInvalidValueException(
        ZqXmlLib9::FormatString(u"The %s [%s] is not one of %s", words.kind, text, all));
}

/// \name Ways to a member, for the kinds below
/// @{

template <auto member, typename TSimple>
void AccessValue(CTableClass& object, bool read, ZqVariant& value)
{
    auto& held = Of<member>(object);
    if (!read)
        held = (value.*TSimple::kGet)();
    else if constexpr (!kIsOptional<member>)
        (value.*TSimple::kSet)(held);
    else if (held)
        (value.*TSimple::kSet)(*held);
}

template <auto member>
void AccessEnum(CTableClass& object, bool read, ZqVariant& value)
{
    auto& held = Of<member>(object);
    if (!read)
        held = static_cast<Content<member>>(value.GetI4());
    else if (held)
        value.SetI4(*held);
}

template <auto member>
void AccessChild(CTableClass& object, bool read, ZqVariant& value)
{
    if (read)
        value.SetXmlObject(Of<member>(object).Get());
    else
        Of<member>(object) = dynamic_cast<Held<member>*>(value.GetXmlObject().Get());
}

/// A collection is handed out and never replaced.
template <auto member>
void AccessCollection(CTableClass& object, bool read, ZqVariant& value)
{
    if (read)
        value.SetXmlCollection(Of<member>(object).Get());
}

template <auto member>
void ResetValue(const SProperty&, const char16_t*, CTableClass& object)
{
    Of<member>(object) = Value<member>();
}

/// Empties a collection.
/// \param arguments  of the one that is made first
template <auto member, typename... TArguments>
void ResetCollection(CTableClass& object, TArguments... arguments)
{
    if (Of<member>(object) == nullptr)
        Of<member>(object) = new Held<member>(arguments...);
    Of<member>(object)->Clear();
}

template <auto member>
CSmartPtr<CXmlObjectBase> MakeChild(int, const char16_t* elementName)
{
    return new Held<member>(elementName);
}

/// @}

/// An attribute; the member is a value of a simple type, and optional where the attribute is.
template <auto member, typename TSimple = SSimple<Content<member>>>
constexpr SProperty Attribute(const char16_t* name,
                              CWhitespaceUtils::WhitespaceRule rule = kUsualRule<Content<member>>)
{
    return {name,
            rule,
            [](const SProperty& self, int index) -> CAttributeInfo* {
                return new ZqXmlLib9Data::CAttributeInfoPrimitive(
                    self.name, u"", index, kIsOptional<member>, TSimple::kType, nullptr, self.rule,
                    {}, /*defaultValue*/ nullptr);
            },
            nullptr,
            AccessValue<member, TSimple>,
            ResetValue<member>};
}

/// An optional attribute with a word of an enumeration; the member is an optional enum.
template <auto member, const auto& words>
constexpr SProperty EnumAttribute(const char16_t* name)
{
    return {name,
            CWhitespaceUtils::WhitespaceRule_None,
            [](const SProperty& self, int index) -> CAttributeInfo* {
                return new ZqXmlLib9Data::CAttributeInfoEnum(
                    self.name, u"", index, /*optional*/ true, ToWord<words>, FromWord<words>,
                    /*defaultValue*/ nullptr);
            },
            nullptr,
            AccessEnum<member>,
            ResetValue<member>};
}

/// An element; the member is a value of a simple type, and optional where the element is.
template <auto member, typename TSimple = SSimple<Content<member>>>
constexpr SProperty Element(const char16_t* name,
                            CWhitespaceUtils::WhitespaceRule rule = kUsualRule<Content<member>>)
{
    using Info = std::conditional_t<kIsOptional<member>, ZqXmlLib9Data::CElementInfoSeqPrimOpt,
                                    ZqXmlLib9Data::CElementInfoSeqPrimMnd>;
    return {name,
            rule,
            nullptr,
            [](const SProperty& self, const char16_t* ns, int index) -> CElementInfo* {
                return new Info(self.name, ns, index, TSimple::kType, nullptr, self.rule, {});
            },
            AccessValue<member, TSimple>,
            ResetValue<member>};
}

/// An optional element with a word of an enumeration; the member is an optional enum.
template <auto member, const auto& words>
constexpr SProperty Enumeration(const char16_t* name)
{
    return {name,
            CWhitespaceUtils::WhitespaceRule_None,
            nullptr,
            [](const SProperty& self, const char16_t* ns, int index) -> CElementInfo* {
                return new ZqXmlLib9Data::CElementInfoSeqEnumOpt(self.name, ns, index,
                                                                 ToWord<words>, FromWord<words>);
            },
            AccessEnum<member>,
            ResetValue<member>};
}

/// An optional child; the member is a CSmartPtr to its class.
template <auto member>
constexpr SProperty Child(const char16_t* name)
{
    return {name,
            CWhitespaceUtils::WhitespaceRule_None,
            nullptr,
            [](const SProperty& self, const char16_t* ns, int index) -> CElementInfo* {
                return new ZqXmlLib9Data::CElementInfoSeqClsOpt(
                    self.name, ns, index, ZqXmlLib9Data::XmlElementType_Element, MakeChild<member>,
                    /*classId*/ 0);
            },
            AccessChild<member>,
            ResetValue<member>};
}

/// A child that always exists; the member is a CSmartPtr to its class.
template <auto member>
constexpr SProperty RequiredChild(const char16_t* name)
{
    return {name,
            CWhitespaceUtils::WhitespaceRule_None,
            nullptr,
            [](const SProperty& self, const char16_t* ns, int index) -> CElementInfo* {
                return new ZqXmlLib9Data::CElementInfoSeqClsMnd(
                    self.name, ns, index, ZqXmlLib9Data::XmlElementType_Element, MakeChild<member>,
                    /*classId*/ 0, /*hasRequiredContent*/ true);
            },
            AccessChild<member>,
            [](const SProperty& self, const char16_t*, CTableClass& object) {
                if (Of<member>(object) == nullptr)
                    Of<member>(object) = new Held<member>(self.name);
                else
                    Of<member>(object)->Init();
            }};
}

/// Any number of children; the member is a CSmartPtr to a CXmlObjectCollection of their class.
template <auto member>
constexpr SProperty Children(const char16_t* name, int minOccurs = 0)
{
    return {name,
            CWhitespaceUtils::WhitespaceRule_None,
            nullptr,
            [](const SProperty& self, const char16_t* ns, int index) -> CElementInfo* {
                return new ZqXmlLib9Data::CElementInfoSeqClsCol(
                    self.name, ns, index, ZqXmlLib9Data::XmlElementType_Element);
            },
            AccessCollection<member>,
            [](const SProperty& self, const char16_t* ns, CTableClass& object) {
                ResetCollection<member>(object, self.name, ns, self.minOccurs, /*maxOccurs*/ -1);
            },
            minOccurs};
}

/// Any number of elements of a simple type; the member is a CSmartPtr to a value collection.
template <auto member>
constexpr SProperty
Values(const char16_t* name,
       CWhitespaceUtils::WhitespaceRule rule = kUsualRule<typename Held<member>::Value>)
{
    return {name,
            rule,
            nullptr,
            [](const SProperty& self, const char16_t* ns, int index) -> CElementInfo* {
                return new ZqXmlLib9Data::CElementInfoSeqPrimCol(self.name, ns, index);
            },
            AccessCollection<member>,
            [](const SProperty& self, const char16_t* ns, CTableClass& object) {
                // No facets: an absent length is -1, an absent text is empty.
                ResetCollection<member>(object, self.name, ns, /*minOccurs*/ 0, /*maxOccurs*/ -1,
                                        u"", -1, -1, u"", u"", u"", u"", -1, self.rule,
                                        static_cast<const char16_t*>(nullptr));
            }};
}

/// Any number of elements of other vocabularies (xs:any); the member is a CSmartPtr to a
/// CElementCol.
template <auto member>
constexpr SProperty OpenContent()
{
    return {u"AnyElement",
            CWhitespaceUtils::WhitespaceRule_None,
            nullptr,
            [](const SProperty& self, const char16_t*, int index) -> CElementInfo* {
                return new ZqXmlLib9Data::CElementInfoSeqUntpdCol(self.name, u"", index);
            },
            AccessCollection<member>,
            [](const SProperty&, const char16_t* ns, CTableClass& object) {
                ResetCollection<member>(object, u"", u"##other", ns, /*minOccurs*/ 0,
                                        /*maxOccurs*/ -1);
            }};
}

/// @}

}  // namespace Examples
