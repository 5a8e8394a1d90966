#include <ZqXmlLib9/xml/XmlAttribute.h>

#include <utility>

namespace ZqXmlLib9 {

CXmlAttribute::CXmlAttribute(const SXmlName* name, std::u16string&& value) noexcept
    : CInstanceMonitor(u"CXmlAttribute"), m_name(name), m_value(std::move(value))
{}

CXmlAttribute::~CXmlAttribute() = default;

}  // namespace ZqXmlLib9
