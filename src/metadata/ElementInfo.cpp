// The base of the records, and the steps that the three families share.

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/engine/XmlGeneratedClass.h>
#include <ZqXmlLib9/metadata/ElementInfo.h>
#include <ZqXmlLib9/metadata/RestrictionCheck.h>
#include <ZqXmlLib9/xml/XmlElement.h>
#include <ZqXmlLib9/xml/XmlWriter.h>

namespace ZqXmlLib9Data {

using ZqXmlLib9::CZqException;
using ZqXmlLib9::TextOrEmpty;

CElementInfo::CElementInfo(const char16_t* name, const char16_t* ns, int propertyIndex)
    : m_elementName(TextOrEmpty(name)), m_elementNamespace(TextOrEmpty(ns)),
      m_propertyIndex(propertyIndex), m_hasPrimitiveType(false)
{}

CElementInfo::CElementInfo(const char16_t* name, const char16_t* ns, int propertyIndex,
                           ItemType itemType, const char16_t* format,
                           CWhitespaceUtils::WhitespaceRule rule,
                           const CPrimitiveRestrictions& restrictions)
    : m_elementName(TextOrEmpty(name)), m_elementNamespace(TextOrEmpty(ns)),
      m_propertyIndex(propertyIndex), m_restrictions(restrictions), m_itemType(itemType),
      m_format(format), m_whitespaceRule(rule), m_hasPrimitiveType(true)
{}

CElementInfo::CElementInfo(const CElementInfo&) = default;
CElementInfo& CElementInfo::operator=(const CElementInfo&) = default;
CElementInfo::~CElementInfo() = default;

void CElementInfo::PseudoChildAttributeToXml(const CXmlSerializationContext&,
                                             const CXmlGeneratedClass*, CXmlWriter*) const
{}

void CElementInfo::CheckRestriction(const ZqVariant& value) const
{
    if (!m_hasPrimitiveType)
        throw CZqException(u"Cannot CheckRestriction for type: " + value.GetType());
    ZqXmlLib9::CheckRestrictionValue(m_elementName.c_str(), value, m_itemType, m_restrictions);
}

void CElementInfo::ReadProperty(const CXmlGeneratedClass* object, ZqVariant& value) const
{
    object->ReadProperty(m_propertyIndex, value);
}

void CElementInfo::AccessProperty(CXmlGeneratedClass* object, bool read, ZqVariant& value) const
{
    object->AccessProperty(m_propertyIndex, read, value);
}

void CElementInfo::AttributesToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer,
                                       const CXmlSerializationContext& context) const
{
    object->AttributesToXml_Int(writer, context);
}

CXmlElement* CElementInfo::FromXml_Int(CXmlObjectBase* object, CXmlElement* parent,
                                       CXmlElement* cursor, const CXmlSerializationContext& context,
                                       bool isOptionalChoice) const
{
    return object->FromXml_Int(parent, cursor, context, isOptionalChoice);
}

bool CElementInfo::IsThisElement(const CXmlSerializationContext& context,
                                 const CXmlElement* element) const
{
    return element != nullptr && element->GetLocalName() == m_elementName
           && (context.GetIgnoreNamespaces() || element->GetNamespaceURI() == m_elementNamespace);
}

bool CElementInfo::ElementToXmlPrim(const CXmlSerializationContext&,
                                    const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    ZqVariant value;
    ReadProperty(object, value);
    if (!value.IsValid())
        return false;
    CheckRestriction(value);
    writer->WriteStartElement(m_elementName, m_elementNamespace);
    writer->WriteText(value.ToString(m_format), value.GetTypeAsEnum());
    writer->WriteEndElement();
    return true;
}

bool CElementInfo::ElementToXmlPrimOpt(const CXmlSerializationContext& context,
                                       const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    return ElementToXmlPrim(context, object, writer);
}

bool CElementInfo::ElementToXmlEnum(const CXmlSerializationContext&,
                                    const CXmlGeneratedClass* object, CXmlWriter* writer,
                                    const char16_t* (*toString)(int)) const
{
    ZqVariant value;
    ReadProperty(object, value);
    if (!value.IsValid())
        return false;
    writer->WriteStartElement(m_elementName, m_elementNamespace);
    writer->WriteText(TextOrEmpty(toString(value.GetI4())), ZqXmlLib9::ItemType_string);
    writer->WriteEndElement();
    return true;
}

bool CElementInfo::ElementToXmlEnumOpt(const CXmlSerializationContext& context,
                                       const CXmlGeneratedClass* object, CXmlWriter* writer,
                                       const char16_t* (*toString)(int)) const
{
    return ElementToXmlEnum(context, object, writer, toString);
}

bool CElementInfo::ElementToXmlCls(const CXmlSerializationContext& context,
                                   const CXmlGeneratedClass* object, CXmlWriter* writer,
                                   bool isOptionalChoice) const
{
    ZqVariant value;
    ReadProperty(object, value);
    const ZqXmlLib9::CSmartPtr<CXmlObjectBase> child = value.GetXmlObject();
    if (child == nullptr)
        return false;
    const CXmlObjectBase* const base = child.Get();
    base->ToXml_Int(writer, false, m_elementNamespace.c_str(), context, isOptionalChoice);
    return true;
}

void CElementInfo::TakePrim(CXmlGeneratedClass* object, CXmlElement** cursor) const
{
    ZqVariant value;
    value.FromString((*cursor)->GetText(), m_itemType, m_whitespaceRule);
    AccessProperty(object, false, value);
    *cursor = (*cursor)->GetNextSiblingElement();
}

bool CElementInfo::ScanToThisElement(const CXmlSerializationContext& context,
                                     CXmlElement** cursor) const
{
    while (!IsThisElement(context, *cursor)) {
        if (!context.GetIgnoreUnknownElements() || *cursor == nullptr)
            return false;
        *cursor = (*cursor)->GetNextSiblingElement();
    }
    return true;
}

}  // namespace ZqXmlLib9Data
