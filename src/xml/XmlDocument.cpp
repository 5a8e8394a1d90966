// The tree's owner and builder; the loads stand in DocumentLoading.cpp.

#include "XmlTree.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/engine/XmlSerializationContext.h>
#include <ZqXmlLib9/xml/XmlDocument.h>

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
    : CInstanceMonitor(u"CXmlDocument"), m_tree(std::make_unique<CXmlTree>(this)),
      m_schemaType(context.GetSchemaType()), m_filter(filter), m_context(&context)
{}

CXmlDocument::~CXmlDocument() = default;

void CXmlDocument::Cleanup()
{
    m_documentElement = nullptr;
    m_tree->Clear();
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

CXmlElement* CXmlDocument::AddElement(const SXmlName* name)
{
    const int levels = m_context->GetMaxDepth();
    if (std::cmp_greater_equal(m_tree->GetDepth(), levels))
        throw CZqException(FormatString(u"The document is nested deeper than %d levels", levels));
    CXmlElement* const element = m_tree->Open(name);
    m_documentElement = m_tree->GetRoot();
    return element;
}

void CXmlDocument::AppendTextExcludingCR(std::u16string_view text)
{
    if (HasUnit(text, u'\0'))
        text = text.substr(0, text.find(u'\0'));
    m_tree->AppendText(text);
}

void CXmlDocument::EndElement()
{
    CXmlElement* const element = m_tree->Close();
    if (m_filter != nullptr && m_filter(element))
        m_tree->FreeClosed();
}

}  // namespace ZqXmlLib9
