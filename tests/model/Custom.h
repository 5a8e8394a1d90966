// A class whose metadata a test makes up. Its properties are variants in a vector, and it keeps a
// log of what happens to it.
#pragma once

#include <ZqXmlLib9/ZqXmlLib9.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace TestModel {

using namespace ZqXmlLib9Data;
using ZqXmlLib9::CXmlGeneratedClass;
using ZqXmlLib9::ZqVariant;

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

    /// A mandatory string of a sequence.
    CClass& Text(const char16_t* name, int index, const char16_t* ns = u"")
    {
        return Element<CElementInfoSeqPrimMnd>(name, ns, index, ZqXmlLib9::ItemType_string, nullptr,
                                               CWhitespaceUtils::WhitespaceRule_None,
                                               CPrimitiveRestrictions());
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

    CXmlObjectBase* GetBase() override { return this; }
    std::u16string GetTargetNamespace() const override { return m_class.m_namespace; }
    std::u16string GetNamespace() const override { return m_class.m_namespace; }
    using CXmlGeneratedClass::Choice_CollectionChanged;
    using CXmlGeneratedClass::Choice_SelectElement;
    using CXmlGeneratedClass::Choice_SetElementValid;
    using CXmlGeneratedClass::CleanMetaData;
    using CXmlGeneratedClass::DoesElementNameMatch;
    using CXmlGeneratedClass::FromXml_Int;
    using CXmlGeneratedClass::GetElementName;
    using CXmlGeneratedClass::IsElementInList;
    using CXmlGeneratedClass::Throw_IfElementNameDiffers;
    using CXmlGeneratedClass::Throw_IfPropertyIsNull;
    using CXmlGeneratedClass::ToXml_Int;

    /// What happened: `init`, and `set N` for each store.
    std::string m_log;

protected:
    void AccessProperty(int propertyIndex, bool read, ZqVariant& value) override
    {
        ZqVariant& property = m_properties.at(static_cast<std::size_t>(propertyIndex));
        (read ? value : property) = read ? property : value;
        if (!read)
            m_log += "set " + std::to_string(propertyIndex) + ";";
    }

    CParentElementInfo* GetClassInfo() const override { return &m_class.m_info; }
    CElementInfo** GetClassElementInfo() const override { return m_class.m_elements.data(); }
    CAttributeInfo** GetClassAttributeInfo() const override { return m_class.m_attributes.data(); }
    void Init() override { m_log += "init;"; }

private:
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

/// A record of a member that may stand or not: what choices and all groups are made of.
class CMemberInfo : public CElementInfoSeq {
public:
    CMemberInfo(const char16_t* name, int index, bool isMandatory)
        : CElementInfoSeq(name, u"", index, ZqXmlLib9::ItemType_string, nullptr,
                          CWhitespaceUtils::WhitespaceRule_None, CPrimitiveRestrictions()),
          m_isMandatory(isMandatory)
    {}

protected:
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                      CXmlWriter* writer) const override
    {
        return ElementToXmlPrimOpt(context, object, writer);
    }

    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                        CXmlElement*, CXmlElement** cursor, const char16_t*,
                        XmlElementType) override
    {
        if (!IsThisElement(context, *cursor))
            return false;
        TakePrim(object, cursor);
        return true;
    }

    bool Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool found,
                  bool failIfMissing) const override
    {
        if (m_isMandatory && !found && failIfMissing)
            throw ZqXmlLib9::CZqValidationException(u"missing " + GetElementName());
        return found || !m_isMandatory;
    }

private:
    bool m_isMandatory;
};

/// A record of a child that is held by its parent: an element, or a group without a tag.
class CChildInfo : public CElementInfoSeq {
public:
    CChildInfo(const char16_t* name, int index, XmlElementType type, const char16_t* ns = u"")
        : CElementInfoSeq(name, ns, index), m_type(type)
    {}

protected:
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                      CXmlWriter* writer) const override
    {
        return ElementToXmlCls(context, object, writer, false);
    }

    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                        CXmlElement* parent, CXmlElement** cursor, const char16_t*,
                        XmlElementType) override
    {
        ZqVariant value;
        AccessProperty(object, true, value);
        CXmlObjectBase* const child = value.GetXmlObject().Get();
        if (m_type == XmlElementType_Pseudo) {
            CXmlElement* const next = FromXml_Int(child, parent, *cursor, context, false);
            return std::exchange(*cursor, next) != next;
        }
        if (!IsThisElement(context, *cursor))
            return false;
        FromXml_Int(child, *cursor, (*cursor)->GetFirstElement(), context, false);
        *cursor = (*cursor)->GetNextSiblingElement();
        return true;
    }

    void PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                   const CXmlGeneratedClass* object,
                                   CXmlWriter* writer) const override
    {
        ZqVariant value;
        ReadProperty(object, value);
        if (m_type == XmlElementType_Pseudo)
            AttributesToXml_Int(value.GetXmlObject().Get(), writer, context);
    }

private:
    XmlElementType m_type;
};

/// A record of an attribute with a string as its value.
class CTextAttributeInfo : public CAttributeInfo {
public:
    CTextAttributeInfo(const char16_t* name, int index, bool optional)
        : CAttributeInfo(name, u"", index, optional, nullptr)
    {}

protected:
    void AttributeToXml(const CXmlSerializationContext&, const CXmlGeneratedClass* object,
                        CXmlWriter* writer) const override
    {
        ZqVariant value;
        ReadProperty(object, value);
        if (value.IsValid())
            writer->WriteAttribute(GetAttributeName(), GetAttributeNamespace(), value.GetString(),
                                   value.GetTypeAsEnum());
    }

    bool AttributeFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                          CXmlAttribute* attribute) override
    {
        if (!IsThisAttribute(context, attribute))
            return false;
        ZqVariant value = TextValue(attribute->GetValue().c_str());
        AccessProperty(object, false, value);
        return true;
    }

    void Validate(const CXmlSerializationContext&, bool found) const override
    {
        if (!IsOptional() && !found)
            throw ZqXmlLib9::CZqValidationException(u"no attribute " + GetAttributeName());
    }
};

}  // namespace TestModel
