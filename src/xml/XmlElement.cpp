#include <ZqXmlLib9/xml/XmlAttribute.h>
#include <ZqXmlLib9/xml/XmlElement.h>

#include <algorithm>

namespace ZqXmlLib9 {

CXmlElement::CXmlElement(CXmlDocument* document)
    : CInstanceMonitor(u"CXmlElement"), m_document(document)
{}

CXmlElement::~CXmlElement()
{
    // A tree may be deeper than the stack: before a child is deleted, its own children take its
    // place in the list, so that no deletion ever finds a grandchild.
    while (m_firstChild != nullptr) {
        const std::unique_ptr<CXmlElement> child(m_firstChild);
        m_firstChild = child->m_nextSibling;
        if (child->m_firstChild != nullptr) {
            child->m_lastChild->m_nextSibling = m_firstChild;
            m_firstChild = child->m_firstChild;
            child->m_firstChild = nullptr;
        }
    }
    while (!m_attributes.empty()) {
        delete m_attributes.back();
        m_attributes.pop_back();
    }
}

const std::u16string& CXmlElement::GetAttribute(std::u16string_view localName,
                                                std::u16string_view uri) const noexcept
{
    static const std::u16string kNone;
    const auto found = std::ranges::find_if(m_attributes, [&](const CXmlAttribute* attribute) {
        return attribute->GetLocalName() == localName && attribute->GetNamespaceURI() == uri;
    });
    return found != m_attributes.end() ? (*found)->GetValue() : kNone;
}

void CXmlElement::AddAttribute(std::u16string_view localName, std::u16string_view value,
                               std::u16string_view uri)
{
    std::unique_ptr<CXmlAttribute> attribute(new CXmlAttribute(localName, value, uri));
    m_attributes.push_back(attribute.get());
    static_cast<void>(attribute.release());
}

void CXmlElement::AppendText(std::u16string_view text)
{
    const std::size_t total = m_text.size() + text.size();
    if (!m_text.empty() && total > m_text.capacity())
        m_text.reserve(std::max(2 * m_text.capacity(), total));
    m_text.append(text);
}

CXmlElement* CXmlElement::CreateNewChildElement()
{
    auto* const child = new CXmlElement(m_document);
    (m_lastChild != nullptr ? m_lastChild->m_nextSibling : m_firstChild) = child;
    m_lastChild = child;
    return child;
}

std::unique_ptr<CXmlElement> CXmlElement::RemoveLastChildElement() noexcept
{
    std::unique_ptr<CXmlElement> removed(m_lastChild);
    if (m_firstChild == m_lastChild) {
        m_firstChild = nullptr;
        m_lastChild = nullptr;
        return removed;
    }
    CXmlElement* previous = m_firstChild;
    while (previous->m_nextSibling != m_lastChild)
        previous = previous->m_nextSibling;
    previous->m_nextSibling = nullptr;
    m_lastChild = previous;
    return removed;
}

}  // namespace ZqXmlLib9
