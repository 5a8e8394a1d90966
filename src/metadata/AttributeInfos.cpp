// The three records of attributes.

#include <ZqXmlLib9/collections/AttributeCol.h>
#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/engine/XmlGeneratedClass.h>
#include <ZqXmlLib9/metadata/AttributeInfoAny.h>
#include <ZqXmlLib9/metadata/AttributeInfoEnum.h>
#include <ZqXmlLib9/metadata/AttributeInfoPrimitive.h>
#include <ZqXmlLib9/metadata/RestrictionCheck.h>
#include <ZqXmlLib9/xml/XmlAttribute.h>
#include <ZqXmlLib9/xml/XmlWriter.h>

namespace ZqXmlLib9Data {

using ZqXmlLib9::CSmartPtr;
using ZqXmlLib9::TextOrEmpty;

CAttributeInfoPrimitive::CAttributeInfoPrimitive(
    const char16_t* name, const char16_t* ns, int propertyIndex, bool optional,
    ZqXmlLib9::ItemType itemType, const char16_t* format,
    ZqXmlLib9::CWhitespaceUtils::WhitespaceRule rule,
    const ZqXmlLib9::CPrimitiveRestrictions& restrictions, const char16_t* defaultValue)
    : CAttributeInfo(name, ns, propertyIndex, optional, defaultValue), m_restrictions(restrictions),
      m_itemType(itemType), m_format(format), m_whitespaceRule(rule)
{}

// By value, as the interface has it.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void CAttributeInfoPrimitive::CheckRestriction(ZqVariant value) const
{
    ZqXmlLib9::CheckRestrictionValue(GetAttributeName().c_str(), value, m_itemType, m_restrictions);
}

void CAttributeInfoPrimitive::AttributeToXml(const CXmlSerializationContext& context,
                                             const CXmlGeneratedClass* object,
                                             CXmlWriter* writer) const
{
    ZqVariant value;
    ReadProperty(object, value);
    if (IsOptional() && !value.IsValid())
        return;
    const std::u16string text = value.ToString(m_format);
    if (IsOmittedDefault(context, text))
        return;
    CheckRestriction(value);
    writer->WriteAttribute(GetAttributeName(), GetAttributeNamespace(), text,
                           value.GetTypeAsEnum());
}

bool CAttributeInfoPrimitive::AttributeFromXml(const CXmlSerializationContext&,
                                               CXmlGeneratedClass* object, CXmlAttribute* attribute)
{
    if (attribute->GetLocalName() != GetAttributeName()
        || attribute->GetNamespaceURI() != GetAttributeNamespace())
        return false;
    ZqVariant value;
    value.FromString(attribute->GetValue(), m_itemType, m_whitespaceRule);
    AccessProperty(object, false, value);
    return true;
}

void CAttributeInfoPrimitive::Validate(const CXmlSerializationContext&, bool found) const
{
    RequireFound(found);
}

CAttributeInfoEnum::CAttributeInfoEnum(const char16_t* name, const char16_t* ns, int propertyIndex,
                                       bool optional, const char16_t* (*toString)(int),
                                       int (*fromString)(const char16_t*),
                                       const char16_t* defaultValue)
    : CAttributeInfo(name, ns, propertyIndex, optional, defaultValue), m_toString(toString),
      m_fromString(fromString)
{}

void CAttributeInfoEnum::AttributeToXml(const CXmlSerializationContext& context,
                                        const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    ZqVariant value;
    ReadProperty(object, value);
    if (IsOptional() && !value.IsValid())
        return;
    const std::u16string_view text = TextOrEmpty(m_toString(value.GetI4()));
    if (!IsOmittedDefault(context, text))
        writer->WriteAttribute(GetAttributeName(), GetAttributeNamespace(), text,
                               ZqXmlLib9::ItemType_string);
}

bool CAttributeInfoEnum::AttributeFromXml(const CXmlSerializationContext& context,
                                          CXmlGeneratedClass* object, CXmlAttribute* attribute)
{
    if (!IsThisAttribute(context, attribute))
        return false;
    ZqVariant value;
    value.SetI4(m_fromString(attribute->GetValue().c_str()));
    AccessProperty(object, false, value);
    return true;
}

void CAttributeInfoEnum::Validate(const CXmlSerializationContext&, bool found) const
{
    RequireFound(found);
}

CAttributeInfoAny::CAttributeInfoAny(const char16_t* name, const char16_t* ns, int propertyIndex,
                                     bool optional, const char16_t* namespaceRestriction,
                                     const char16_t* targetNamespace, const char16_t* defaultValue)
    : CAttributeInfo(name, ns, propertyIndex, optional, defaultValue),
      m_namespaceRestriction(TextOrEmpty(namespaceRestriction)),
      m_targetNamespace(TextOrEmpty(targetNamespace))
{}

void CAttributeInfoAny::AttributeToXml(const CXmlSerializationContext& context,
                                       const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    ZqVariant value;
    ReadProperty(object, value);
    if (const CSmartPtr<ZqXmlLib9::CXmlCollectionBase> collection = value.GetXmlCollection())
        ToXml_Int(collection->GetBase(), writer, false, GetTargetNamespace(object).c_str(),
                  context);
}

bool CAttributeInfoAny::AttributeFromXml(const CXmlSerializationContext&,
                                         CXmlGeneratedClass* object, CXmlAttribute* attribute)
{
    TestNamespace(attribute->GetNamespaceURI(), m_namespaceRestriction, m_targetNamespace);
    ZqVariant value;
    AccessProperty(object, true, value);
    auto* const collection =
        dynamic_cast<ZqXmlLib9::CAttributeCol*>(value.GetXmlCollection().Get());
    if (collection == nullptr)
        throw ZqXmlLib9::CZqException(
            u"Serialization Data Error : The collection should be a CAttributeCol, it was not!");
    collection->Add(attribute->GetLocalName().c_str(), attribute->GetValue().c_str(),
                    attribute->GetNamespaceURI().c_str());
    return true;
}

void CAttributeInfoAny::Validate(const CXmlSerializationContext&, bool) const {}

}  // namespace ZqXmlLib9Data
