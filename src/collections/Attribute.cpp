#include <ZqXmlLib9/collections/Attribute.h>
#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/xml/XmlWriter.h>

namespace ZqXmlLib9 {

CAttribute::CAttribute(const char16_t* name, const char16_t* value, const char16_t* ns)
    : CInstanceMonitor(u"CAttribute"), m_name(TextOrEmpty(name)), m_value(TextOrEmpty(value)),
      m_namespace(TextOrEmpty(ns))
{}

CAttribute::~CAttribute() = default;

void CAttribute::SetName(const char16_t* name)
{
    FireOnChangeName(name);
    m_name = TextOrEmpty(name);
}

void CAttribute::SetValue(const char16_t* value)
{
    m_value = TextOrEmpty(value);
}

void CAttribute::SetNamespace(const char16_t* ns)
{
    FireOnChangeNamespace(ns);
    m_namespace = TextOrEmpty(ns);
}

CSmartPtr<CAttribute> CAttribute::Clone() const
{
    return new CAttribute(m_name.c_str(), m_value.c_str(), m_namespace.c_str());
}

void CAttribute::ToXml_Int(CXmlWriter* writer, bool, const char16_t*,
                           const CXmlSerializationContext&, bool) const
{
    writer->WriteAttribute(m_name, m_namespace, m_value, ItemType_string);
}

CXmlElement* CAttribute::FromXml_Int(CXmlElement*, CXmlElement*, const CXmlSerializationContext&,
                                     bool)
{
    throw CZqException(u"This should be done by the collection");
}

void CAttribute::FireOnChangeName(const char16_t*) {}

void CAttribute::FireOnChangeNamespace(const char16_t*) {}

}  // namespace ZqXmlLib9
