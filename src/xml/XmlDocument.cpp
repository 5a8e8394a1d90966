// The tree's owner and builder; the loads stand in DocumentLoading.cpp.

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/engine/XmlSerializationContext.h>
#include <ZqXmlLib9/xml/XmlAttribute.h>
#include <ZqXmlLib9/xml/XmlDocument.h>
#include <ZqXmlLib9/xml/XmlElement.h>

#include <algorithm>
#include <utility>

namespace ZqXmlLib9 {

CXmlDocument::CXmlDocument() : CXmlDocument(nullptr, CXmlSerializationContext::GetDefaultContext())
{}

CXmlDocument::CXmlDocument(const CXmlSerializationContext& context) : CXmlDocument(nullptr, context)
{}

CXmlDocument::CXmlDocument(ElementFilter filter)
    : CXmlDocument(filter, CXmlSerializationContext::GetDefaultContext())
{}

CXmlDocument::CXmlDocument(ElementFilter filter, const CXmlSerializationContext& context)
    : CInstanceMonitor(u"CXmlDocument"), m_schemaType(context.GetSchemaType()), m_filter(filter),
      m_context(&context)
{}

CXmlDocument::~CXmlDocument() = default;

void CXmlDocument::Cleanup()
{
    m_documentElement.reset();
    m_openElements.clear();
    m_aliases.clear();
}

std::u16string CXmlDocument::LookupNamespaceFromAlias(const char16_t* prefix) const
{
    const auto entry = m_aliases.find(TextOrEmpty(prefix));
    return entry != m_aliases.end() ? entry->second : std::u16string();
}

void CXmlDocument::SetAlias(std::u16string_view prefix, std::u16string_view uri)
{
    m_aliases.insert_or_assign(std::u16string(prefix), std::u16string(uri));
}

void CXmlDocument::CheckDepth() const
{
    const int levels = m_context->GetMaxDepth();
    if (std::cmp_greater_equal(m_openElements.size(), levels))
        throw CZqException(FormatString(u"The document is nested deeper than %d levels", levels));
}

CXmlElement* CXmlDocument::AddDocElement(std::u16string_view uri, std::u16string_view localName)
{
    CheckDepth();
    m_documentElement.reset(new CXmlElement(this));
    return Open(m_documentElement.get(), uri, localName);
}

CXmlElement* CXmlDocument::AddChildElement(std::u16string_view uri, std::u16string_view localName)
{
    CheckDepth();
    return Open(GetOpenElement()->CreateNewChildElement(), uri, localName);
}

CXmlElement* CXmlDocument::Open(CXmlElement* element, std::u16string_view uri,
                                std::u16string_view localName)
{
    element->SetNamespace(uri);
    element->SetElementName(localName);
    m_openElements.push_back(element);
    return element;
}

void CXmlDocument::AddElementAttribute(CXmlElement* element, std::u16string_view localName,
                                       std::u16string_view value, std::u16string_view uri)
{
    element->AddAttribute(localName, value, uri);
}

void CXmlDocument::AppendTextExcludingCR(CXmlElement* element, std::u16string_view text)
{
    text = text.substr(0, text.find(u'\0'));
    while (!text.empty()) {
        const std::u16string_view run = text.substr(0, text.find(u'\r'));
        if (!run.empty())
            element->AppendText(run);
        text.remove_prefix(std::min(run.size() + 1, text.size()));
    }
}

void CXmlDocument::EndElement()
{
    CXmlElement* const element = GetOpenElement();
    m_openElements.pop_back();
    if (m_filter == nullptr)
        return;
    const bool isClaimed = m_filter(element);
    if (isClaimed && !m_openElements.empty())
        GetOpenElement()->RemoveLastChildElement().reset();
}

}  // namespace ZqXmlLib9
