#include "../engine/XmlNames.h"

#include <ZqXmlLib9/xml/XmlAttribute.h>

namespace ZqXmlLib9 {

CXmlAttribute::CXmlAttribute(std::u16string_view localName, std::u16string_view value,
                             std::u16string_view namespaceUri)
    : CInstanceMonitor(u"CXmlAttribute"), m_localName(localName), m_value(value),
      m_namespaceUri(namespaceUri)
{}

CXmlAttribute::~CXmlAttribute() = default;

bool CXmlAttribute::IsOfInstance() const noexcept
{
    return m_namespaceUri == kXsiNamespace || m_namespaceUri == kXmlnsNamespace;
}

bool CXmlAttribute::IsNilAttribute() const noexcept
{
    return IsOfInstance() && m_localName == u"nil";
}

bool CXmlAttribute::IsNamespaceAttribute() const noexcept
{
    return IsOfInstance()
           && (m_localName == u"xmlns" || m_localName == u"type" || m_localName == u"schemaLocation"
               || m_localName == u"noNamespaceSchemaLocation");
}

}  // namespace ZqXmlLib9
