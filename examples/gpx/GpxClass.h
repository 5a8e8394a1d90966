// What the classes of GPX 1.1 have in common: each is its members and a table of properties, and
// the engine's metadata is made from that table.
//
// A row of the table binds a member to a name and a kind, in the order of the schema; its index is
// the number of the property. For `<link href="..."><text>...</text></link>`:
//
//     CGpxClass::CTable& CLink::GetTable() const
//     {
//         static constexpr SProperty properties[] = {
//             Attribute<&CLink::m_href>(u"href", kUri),
//             Element<&CLink::m_text>(u"text"),
//         };
//         static CTable table(u"linkType", properties);
//         return table;
//     }
#pragma once

#include <ZqXmlLib9/ZqXmlLib9.h>

#include <atomic>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <type_traits>
#include <utility>

namespace Gpx {

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

/// The namespace of GPX 1.1 and of all its elements; its attributes have none.
inline constexpr char16_t kNamespace[] = u"http://www.topografix.com/GPX/1/1";

/// A year of our era, xs:gYear; its zone isn't kept.
using CYear = std::uint16_t;

class CGpxClass;

/// One property of a class. Names are literals.
struct SProperty {
    const char16_t* name;
    CWhitespaceUtils::WhitespaceRule rule;
    CAttributeInfo* (*makeAttribute)(const SProperty& self, int index);  ///< null: an element
    CElementInfo* (*makeElement)(const SProperty& self, int index);      ///< null: an attribute
    void (*access)(CGpxClass& object, bool read, ZqVariant& value);
    /// Leaves the property as it is in a new object.
    void (*reset)(const SProperty& self, CGpxClass& object);
};

/// The base of the classes. Their objects are not copied, since a copy would share the children.
class CGpxClass : public ZqXmlLib9::CXmlGeneratedClass {
public:
    CGpxClass(const CGpxClass&) = delete;
    CGpxClass& operator=(const CGpxClass&) = delete;

    using CXmlGeneratedClass::GetBase;
    CXmlObjectBase* GetBase() override { return this; }
    std::u16string GetTargetNamespace() const override { return kNamespace; }
    std::u16string GetNamespace() const override { return kNamespace; }

protected:
    class CTable;

    explicit CGpxClass(const char16_t* elementName) { SetElementName(elementName); }

    /// The one table of the class.
    virtual CTable& GetTable() const = 0;

    void AccessProperty(int propertyIndex, bool read, ZqVariant& value) override;
    CParentElementInfo* GetClassInfo() const override;
    CElementInfo** GetClassElementInfo() const override;
    CAttributeInfo** GetClassAttributeInfo() const override;
    /// Constructors call it too: it makes the collections.
    void Init() override;
};

/// The properties of a class, and its metadata: built when it is first asked for, freed when the
/// program ends. All objects of the class and all threads share it.
class CGpxClass::CTable {
public:
    struct SMetadata {
        CParentElementInfo* parent = nullptr;
        CElementInfo** elements = nullptr;
        CAttributeInfo** attributes = nullptr;
    };

    /// \param properties  must outlive the table
    CTable(const char16_t* typeName, std::span<const SProperty> properties)
        : m_typeName(typeName), m_properties(properties)
    {}
    CTable(const CTable&) = delete;
    CTable& operator=(const CTable&) = delete;
    ~CTable() { Clean(); }

    std::span<const SProperty> GetProperties() const { return m_properties; }
    const SMetadata& GetMetadata();

private:
    void Build();
    void Clean() { CleanMetaData(m_metadata.parent, m_metadata.elements, m_metadata.attributes); }

    const char16_t* m_typeName;
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

/// What a member that is a CSmartPtr points to.
template <auto member>
using Held = std::remove_pointer_t<decltype(std::declval<Value<member>>().Get())>;

template <auto member>
Value<member>& Of(CGpxClass& object)
{
    return static_cast<typename SMember<decltype(member)>::Class&>(object).*member;
}

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
struct SSimple<CYear>
    : SSimpleOf<ZqXmlLib9::ItemType_year, &ZqVariant::SetYear, &ZqVariant::GetYear> {};

/// White space belongs to a text and surrounds any other value.
template <typename T>
inline constexpr CWhitespaceUtils::WhitespaceRule kUsualRule =
    std::is_same_v<T, std::u16string> ? CWhitespaceUtils::WhitespaceRule_Preserve
                                      : CWhitespaceUtils::WhitespaceRule_Collapse;

/// A mandatory attribute; the member is a value of a simple type.
template <auto member>
constexpr SProperty Attribute(const char16_t* name,
                              CWhitespaceUtils::WhitespaceRule rule = kUsualRule<Value<member>>)
{
    return {name,
            rule,
            [](const SProperty& self, int index) -> CAttributeInfo* {
                return new ZqXmlLib9Data::CAttributeInfoPrimitive(
                    self.name, u"", index, /*optional*/ false, SSimple<Value<member>>::kType,
                    nullptr, self.rule, {}, /*defaultValue*/ nullptr);
            },
            nullptr,
            [](CGpxClass& object, bool read, ZqVariant& value) {
                using Simple = SSimple<Value<member>>;
                if (read)
                    (value.*Simple::kSet)(Of<member>(object));
                else
                    Of<member>(object) = (value.*Simple::kGet)();
            },
            [](const SProperty&, CGpxClass& object) { Of<member>(object) = Value<member>(); }};
}

/// An optional element; the member is an optional value of a simple type.
template <auto member>
constexpr SProperty
Element(const char16_t* name,
        CWhitespaceUtils::WhitespaceRule rule = kUsualRule<typename Value<member>::value_type>)
{
    return {name,
            rule,
            nullptr,
            [](const SProperty& self, int index) -> CElementInfo* {
                return new ZqXmlLib9Data::CElementInfoSeqPrimOpt(
                    self.name, kNamespace, index,
                    SSimple<typename Value<member>::value_type>::kType, nullptr, self.rule, {});
            },
            [](CGpxClass& object, bool read, ZqVariant& value) {
                using Simple = SSimple<typename Value<member>::value_type>;
                if (!read)
                    Of<member>(object) = (value.*Simple::kGet)();
                else if (Of<member>(object))
                    (value.*Simple::kSet)(*Of<member>(object));
            },
            [](const SProperty&, CGpxClass& object) { Of<member>(object).reset(); }};
}

/// An optional element with a word of an enumeration; the member is an optional enum.
template <auto member, auto toWord, auto fromWord>
constexpr SProperty Enumeration(const char16_t* name)
{
    return {name,
            CWhitespaceUtils::WhitespaceRule_None,
            nullptr,
            [](const SProperty& self, int index) -> CElementInfo* {
                return new ZqXmlLib9Data::CElementInfoSeqEnumOpt(self.name, kNamespace, index,
                                                                 toWord, fromWord);
            },
            [](CGpxClass& object, bool read, ZqVariant& value) {
                if (!read)
                    Of<member>(object) =
                        static_cast<typename Value<member>::value_type>(value.GetI4());
                else if (Of<member>(object))
                    value.SetI4(static_cast<std::int32_t>(*Of<member>(object)));
            },
            [](const SProperty&, CGpxClass& object) { Of<member>(object).reset(); }};
}

/// An optional child; the member is a CSmartPtr to its class.
template <auto member>
constexpr SProperty Child(const char16_t* name)
{
    return {name,
            CWhitespaceUtils::WhitespaceRule_None,
            nullptr,
            [](const SProperty& self, int index) -> CElementInfo* {
                return new ZqXmlLib9Data::CElementInfoSeqClsOpt(
                    self.name, kNamespace, index, ZqXmlLib9Data::XmlElementType_Element,
                    [](int, const char16_t* elementName) -> CSmartPtr<CXmlObjectBase> {
                        return new Held<member>(elementName);
                    },
                    /*classId*/ 0);
            },
            [](CGpxClass& object, bool read, ZqVariant& value) {
                if (read)
                    value.SetXmlObject(Of<member>(object).Get());
                else
                    Of<member>(object) = dynamic_cast<Held<member>*>(value.GetXmlObject().Get());
            },
            [](const SProperty&, CGpxClass& object) { Of<member>(object) = nullptr; }};
}

/// How a collection is handed out; it is never replaced.
template <auto member>
void AccessCollection(CGpxClass& object, bool read, ZqVariant& value)
{
    if (read)
        value.SetXmlCollection(Of<member>(object).Get());
}

/// Any number of children; the member is a CSmartPtr to a CXmlObjectCollection of their class.
template <auto member>
constexpr SProperty Children(const char16_t* name)
{
    return {name,
            CWhitespaceUtils::WhitespaceRule_None,
            nullptr,
            [](const SProperty& self, int index) -> CElementInfo* {
                return new ZqXmlLib9Data::CElementInfoSeqClsCol(
                    self.name, kNamespace, index, ZqXmlLib9Data::XmlElementType_Element);
            },
            AccessCollection<member>,
            [](const SProperty& self, CGpxClass& object) {
                if (Of<member>(object) == nullptr)
                    Of<member>(object) = new Held<member>(self.name, kNamespace, /*minOccurs*/ 0,
                                                          /*maxOccurs*/ -1);
                Of<member>(object)->Clear();
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
            [](const SProperty& self, int index) -> CElementInfo* {
                return new ZqXmlLib9Data::CElementInfoSeqUntpdCol(self.name, u"", index);
            },
            AccessCollection<member>,
            [](const SProperty&, CGpxClass& object) {
                if (Of<member>(object) == nullptr)
                    Of<member>(object) = new CElementCol(u"", u"##other", kNamespace,
                                                         /*minOccurs*/ 0, /*maxOccurs*/ -1);
                Of<member>(object)->Clear();
            }};
}

/// @}

}  // namespace Gpx
