#include "XmlNames.h"

#include <ZqXmlLib9/engine/ClassfactoryBase.h>
#include <ZqXmlLib9/xml/XmlDocument.h>
#include <ZqXmlLib9/xml/XmlElement.h>

namespace ZqXmlLib9 {
namespace {

const std::u16string& TypeOf(const CXmlElement* element)
{
    return element->GetAttribute(u"type", kXsiNamespace);
}

}  // namespace

CClassfactoryBase::CClassfactoryBase() = default;
CClassfactoryBase::CClassfactoryBase(const CClassfactoryBase&) = default;
CClassfactoryBase& CClassfactoryBase::operator=(const CClassfactoryBase&) = default;
CClassfactoryBase::~CClassfactoryBase() = default;

std::u16string CClassfactoryBase::GetElementType(const CXmlElement* element)
{
    const std::u16string& type = TypeOf(element);
    const std::size_t colon = type.find(u':');
    return colon == std::u16string::npos ? type : type.substr(colon + 1);
}

std::u16string CClassfactoryBase::GetElementTypeNamespaceUri(const CXmlElement* element)
{
    const std::u16string& type = TypeOf(element);
    const std::size_t colon = type.find(u':');
    std::u16string uri;
    if (colon != std::u16string::npos)
        uri = element->GetDocument()->LookupNamespaceFromAlias(type.substr(0, colon).c_str());
    return uri.empty() ? element->GetNamespaceURI() : uri;
}

}  // namespace ZqXmlLib9
