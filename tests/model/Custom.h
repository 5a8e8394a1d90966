// A class whose metadata a test makes up. Its properties are variants in a vector, and it keeps a
// log of what happens to it. A listener that logs what collections tell it.
#pragma once

#include <ZqXmlLib9/ZqXmlLib9.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace TestModel {

using namespace ZqXmlLib9Data;
using ZqXmlLib9::CXmlGeneratedClass;
using ZqXmlLib9::ZqVariant;

/// An enumeration: the words of the numbers from 0; an unknown word fails.
inline const char16_t* ColourToString(int value)
{
    static constexpr const char16_t* kWords[] = {u"red", u"green", u"blue"};
    return kWords[value];
}

inline int ColourFromString(const char16_t* text)
{
    for (int i = 0; i < 3; ++i)
        if (std::u16string_view(text) == ColourToString(i))
            return i;
    throw ZqXmlLib9::CZqInvalidValueException(u"no colour");
}

/// The metadata of one class.
class CClass {
public:
    explicit CClass(const CParentElementInfo& info, const char16_t* ns = u"")
        : m_info(info), m_namespace(ns)
    {}

    template <typename TInfo, typename... TArguments>
    CClass& Element(TArguments&&... arguments)
    {
        m_ownElements.push_back(std::make_unique<TInfo>(std::forward<TArguments>(arguments)...));
        m_elements.insert(m_elements.end() - 1, m_ownElements.back().get());
        return *this;
    }

    template <typename TInfo, typename... TArguments>
    CClass& Attribute(TArguments&&... arguments)
    {
        m_ownAttributes.push_back(std::make_unique<TInfo>(std::forward<TArguments>(arguments)...));
        m_attributes.insert(m_attributes.end() - 1, m_ownAttributes.back().get());
        return *this;
    }

    /// A string.
    template <typename TInfo = CElementInfoSeqPrimMnd>
    CClass& Text(const char16_t* name, int index, const char16_t* ns = u"")
    {
        return Element<TInfo>(name, ns, index, ZqXmlLib9::ItemType_string, nullptr,
                              CWhitespaceUtils::WhitespaceRule_None, CPrimitiveRestrictions());
    }

    /// An enumeration.
    template <typename TInfo>
    CClass& Colour(const char16_t* name, int index)
    {
        return Element<TInfo>(name, u"", index, ColourToString, ColourFromString);
    }

    /// An object that always exists.
    CClass& Child(const char16_t* name, int index, XmlElementType type = XmlElementType_Element,
                  const char16_t* ns = u"", bool hasRequiredContent = false)
    {
        return Element<CElementInfoSeqClsMnd>(name, ns, index, type, nullptr, 0,
                                              hasRequiredContent);
    }

    /// A string attribute.
    CClass& TextAttribute(const char16_t* name, int index, bool optional,
                          const char16_t* defaultValue = nullptr)
    {
        return Attribute<CAttributeInfoPrimitive>(
            name, u"", index, optional, ZqXmlLib9::ItemType_string, nullptr,
            CWhitespaceUtils::WhitespaceRule_None, CPrimitiveRestrictions(), defaultValue);
    }

private:
    friend class CCustom;

    CParentElementInfo m_info;
    std::u16string m_namespace;
    std::vector<std::unique_ptr<CElementInfo>> m_ownElements;
    std::vector<std::unique_ptr<CAttributeInfo>> m_ownAttributes;
    std::vector<CElementInfo*> m_elements{nullptr};
    std::vector<CAttributeInfo*> m_attributes{nullptr};
};

/// The record of a class as most tests want it: an element that doesn't know other attributes.
inline CParentElementInfo Info(XmlElementGroupType group = XmlElementGroupType_Sequence,
                               XmlElementType type = XmlElementType_Element, int textProperty = -1,
                               bool hasBaseClasses = false)
{
    return {group, type, u"Type", u"urn:type", textProperty, true, hasBaseClasses};
}

class CCustom : public CXmlGeneratedClass {
public:
    CCustom(CClass& metadata, const char16_t* elementName = u"root",
            std::vector<ZqVariant> properties = std::vector<ZqVariant>(8))
        : m_class(metadata), m_properties(std::move(properties))
    {
        SetElementName(elementName);
    }

    ZqVariant& operator[](std::size_t index) { return m_properties.at(index); }
    std::size_t GetPropertyCount() const { return m_properties.size(); }

    CXmlObjectBase* GetBase() override { return this; }
    std::u16string GetTargetNamespace() const override { return m_class.m_namespace; }
    std::u16string GetNamespace() const override { return m_class.m_namespace; }
    using CXmlGeneratedClass::Choice_CollectionChanged;
    using CXmlGeneratedClass::Choice_SelectElement;
    using CXmlGeneratedClass::Choice_SetElementValid;
    using CXmlGeneratedClass::GetElementName;
    using CXmlGeneratedClass::Throw_IfElementNameDiffers;
    using CXmlGeneratedClass::Throw_IfPropertyIsNull;

    /// What happened: `init`, and `set N` for each store.
    std::string m_log;
    /// The same for all objects, in one order, each with the name of its element.
    static inline std::string s_log;

protected:
    void AccessProperty(int propertyIndex, bool read, ZqVariant& value) override
    {
        ZqVariant& property = m_properties.at(static_cast<std::size_t>(propertyIndex));
        (read ? value : property) = read ? property : value;
        if (!read)
            Log("set " + std::to_string(propertyIndex));
    }

    CParentElementInfo* GetClassInfo() const override { return &m_class.m_info; }
    CElementInfo** GetClassElementInfo() const override { return m_class.m_elements.data(); }
    CAttributeInfo** GetClassAttributeInfo() const override { return m_class.m_attributes.data(); }
    void Init() override { Log("init"); }

private:
    void Log(const std::string& what)
    {
        m_log += what + ";";
        s_log += ZqXmlLib9::ToUtf8(GetElementName()) + " " + what + "; ";
    }

    CClass& m_class;
    std::vector<ZqVariant> m_properties;
};

class CNillableCustom : public CCustom, public ZqXmlLib9::INillable {
public:
    using CCustom::CCustom;
    bool IsNil() const override { return m_isNil; }
    void SetNil(bool isNil) override { m_isNil = isNil; }

private:
    bool m_isNil = false;
};

/// A variant that holds a text, an object or a collection.
inline ZqVariant TextValue(const char16_t* text)
{
    ZqVariant value;
    value.SetString(text);
    return value;
}

inline ZqVariant ObjectValue(ZqXmlLib9::CXmlObjectBase* object)
{
    ZqVariant value;
    value.SetXmlObject(object);
    return value;
}

inline ZqVariant CollectionValue(ZqXmlLib9::CXmlCollectionBase* collection)
{
    ZqVariant value;
    value.SetXmlCollection(collection);
    return value;
}

/// An item of a collection: an element with a text.
class CItem : public CCustom {
public:
    explicit CItem(const char16_t* text = u"") : CCustom(Type(), u"item", {TextValue(text)}) {}

private:
    static CClass& Type()
    {
        static CClass type(Info(XmlElementGroupType_Sequence, XmlElementType_Element, 0));
        return type;
    }
};

using CItemCol = ZqXmlLib9::CXmlObjectCollection<CItem>;

/// Logs each event as its kind, the index or the item that it brings, and the count at that time.
class CEventLog final : public ZqXmlLib9::IEventSink {
public:
    void OnEvent(CXmlObjectBase* source, MsgType type, void* data) override
    {
        static constexpr const char* kKinds[] = {"change ", "add ", "added ", "remove ",
                                                 "removed "};
        m_text += kKinds[type];
        // An item comes as the operation was given it, and that takes pointers to the base.
        if (data != nullptr && type > MsgType_CollectionAddComplete)
            m_text += "[" + std::to_string(*static_cast<std::int32_t*>(data)) + "]";
        else if (data != nullptr && dynamic_cast<CItemCol*>(source) != nullptr)
            m_text += ZqXmlLib9::ToUtf8(
                dynamic_cast<CItem&>(*static_cast<CXmlObjectBase*>(data))[0].GetString());
        // In its destructor the source is no more than a collection.
        const auto& collection = dynamic_cast<ZqXmlLib9::CXmlCollectionBase&>(*source);
        m_text += std::to_string(collection.GetCount()) + ";";
        if (m_onEvent)
            m_onEvent();
    }

    std::string Take() { return std::exchange(m_text, {}); }

    std::string m_text;
    std::function<void()> m_onEvent;
};

}  // namespace TestModel
