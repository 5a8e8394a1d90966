#include <ZqXmlLib9/xml/XmlAttribute.h>
#include <ZqXmlLib9/xml/XmlElement.h>

#include <algorithm>

namespace ZqXmlLib9 {

const CXmlElement::Attributes CXmlElement::kNoAttributes;

CXmlElement::CXmlElement(const SXmlName* name) noexcept
    : CInstanceMonitor(u"CXmlElement"), m_name(name)
{}

CXmlElement::~CXmlElement() = default;

const std::u16string& CXmlElement::GetAttribute(std::u16string_view localName,
                                                std::u16string_view uri) const noexcept
{
    static const std::u16string kNone;
    const Attributes& attributes = GetAttributes();
    const auto found = std::ranges::find_if(attributes, [&](const CXmlAttribute* attribute) {
        return attribute->GetLocalName() == localName && attribute->GetNamespaceURI() == uri;
    });
    return found != attributes.end() ? (*found)->GetValue() : kNone;
}

}  // namespace ZqXmlLib9
