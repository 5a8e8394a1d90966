#include "../engine/NamespaceRestriction.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/engine/XmlGeneratedClass.h>
#include <ZqXmlLib9/metadata/AttributeInfo.h>
#include <ZqXmlLib9/xml/XmlAttribute.h>

namespace ZqXmlLib9Data {

using ZqXmlLib9::TextOrEmpty;

CAttributeInfo::CAttributeInfo(const char16_t* name, const char16_t* ns, int propertyIndex,
                               bool optional, const char16_t* defaultValue)
    : m_attributeName(TextOrEmpty(name)), m_attributeNamespace(TextOrEmpty(ns)),
      m_propertyIndex(propertyIndex), m_optional(optional),
      m_defaultValue(TextOrEmpty(defaultValue))
{}

CAttributeInfo::CAttributeInfo(const CAttributeInfo&) = default;
CAttributeInfo& CAttributeInfo::operator=(const CAttributeInfo&) = default;
CAttributeInfo::~CAttributeInfo() = default;

void CAttributeInfo::ReadProperty(const CXmlGeneratedClass* object, ZqVariant& value) const
{
    object->ReadProperty(m_propertyIndex, value);
}

void CAttributeInfo::AccessProperty(CXmlGeneratedClass* object, bool read, ZqVariant& value) const
{
    object->AccessProperty(m_propertyIndex, read, value);
}

bool CAttributeInfo::IsThisAttribute(const CXmlSerializationContext& context,
                                     const CXmlAttribute* attribute) const
{
    return attribute != nullptr && attribute->GetLocalName() == m_attributeName
           && (context.GetIgnoreNamespaces()
               || attribute->GetNamespaceURI() == m_attributeNamespace);
}

bool CAttributeInfo::IsOmittedDefault(const CXmlSerializationContext& context,
                                      std::u16string_view text) const
{
    return m_optional && !m_defaultValue.empty() && context.GetNoOptionalAttributeDefaultOutput()
           && text == m_defaultValue;
}

void CAttributeInfo::RequireFound(bool found) const
{
    if (!m_optional && !found)
        throw ZqXmlLib9::CZqValidationException(ZqXmlLib9::FormatString(
            u"Failed to find the required Attribute [%s]", m_attributeName));
}

void CAttributeInfo::TestNamespace(const std::u16string& ns, const std::u16string& restriction,
                                   const std::u16string& targetNamespace)
{
    ZqXmlLib9::RequireNamespacePasses(ns, restriction, targetNamespace);
}

std::u16string CAttributeInfo::GetTargetNamespace(const CXmlObjectBase* object)
{
    return object->GetTargetNamespace();
}

void CAttributeInfo::ToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer, bool isRoot,
                               const char16_t* namespaceUri,
                               const CXmlSerializationContext& context)
{
    object->ToXml_Int(writer, isRoot, namespaceUri, context, false);
}

}  // namespace ZqXmlLib9Data
