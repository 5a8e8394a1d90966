#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/xml/XmlWriter.h>

#include "../engine/XmlNames.h"
#include "NamespaceScopes.h"

#include <unordered_set>
#include <utility>

namespace ZqXmlLib9 {
namespace {

constexpr int kDefaultMaxDepth = 1024;

[[noreturn]] void ThrowTooDeep(int levels)
{
    throw CZqException(FormatString(u"The document is nested deeper than %d levels", levels));
}

/// Sets the prefix of a URI; an empty prefix takes it back. The one of XML itself stays.
void SetPrefix(CXmlWriter::NamespaceTable& table, std::u16string_view uri,
               std::u16string_view prefix)
{
    if (uri == kXmlNamespace)
        return;
    const auto entry = table.find(uri);
    if (!prefix.empty())
        table.insert_or_assign(std::u16string(uri), std::u16string(prefix));
    else if (entry != table.end())
        table.erase(entry);
}

}  // namespace

CXmlWriter::CXmlWriter(const char16_t* className)
    : CInstanceMonitor(className), m_namespaces{{std::u16string(kXmlNamespace), u"xml"}},
      m_maxDepth(kDefaultMaxDepth)
{}

CXmlWriter::~CXmlWriter() = default;

void CXmlWriter::Open() {}

void CXmlWriter::Close()
{
    if (m_context != nullptr)
        throw CZqException(u"An Element has not been closed.");
}

void CXmlWriter::SetDefaultNamespace(std::u16string_view uri)
{
    if (m_context != nullptr)
        m_context->SetDefaultNamespace(uri);
    else
        m_defaultNamespaceUri = uri;
}

void CXmlWriter::AddNamespaceAlias(std::u16string_view prefix, std::u16string_view uri)
{
    if (m_context != nullptr)
        m_context->SetNamespace(uri, prefix);
    else
        SetPrefix(m_namespaces, uri, prefix);
}

int CXmlWriter::GetOpenCount() const noexcept
{
    return m_outerDepth + (m_context != nullptr ? static_cast<int>(m_context->GetDepth()) + 1 : 0);
}

void CXmlWriter::ContinueDepthOf(const CXmlWriter& outer) noexcept
{
    m_maxDepth = outer.m_maxDepth;
    m_outerDepth = outer.GetOpenCount();
    m_groupDepth = outer.m_groupDepth;
}

std::unique_ptr<CXmlWriter::CXmlWriterContext> CXmlWriter::MakeContext(std::u16string_view name,
                                                                       std::u16string_view uri)
{
    if (GetOpenCount() >= m_maxDepth)
        ThrowTooDeep(m_maxDepth);
    if (m_spare != nullptr && m_context != nullptr) {
        std::unique_ptr<CXmlWriterContext> context = std::move(m_spare);
        m_spare = context->TakeParent();
        context->Reuse(name, uri, *m_context);
        return context;
    }
    if (m_context != nullptr)
        return std::make_unique<CXmlWriterContext>(name, uri, *m_context);
    return std::make_unique<CXmlWriterContext>(name, uri, m_namespaces, m_defaultNamespaceUri);
}

void CXmlWriter::PushContext(std::unique_ptr<CXmlWriterContext> context)
{
    context->SetParent(std::move(m_context));
    m_context = std::move(context);
}

void CXmlWriter::PopContext()
{
    std::unique_ptr<CXmlWriterContext> closed = std::move(m_context);
    m_context = closed->TakeParent();
    closed->Close();
    closed->SetParent(std::move(m_spare));
    m_spare = std::move(closed);
}

CXmlWriter::CXmlWriterContext& CXmlWriter::RequireContext() const
{
    if (m_context == nullptr)
        throw CZqInvalidStateException(u"There is no open element");
    return *m_context;
}

CXmlWriter::CXmlWriterContext& CXmlWriter::RequireStartTag() const
{
    if (m_context == nullptr || !m_context->m_isStartTagOpen)
        throw CZqException(u"Attributes must be added before elements");
    return *m_context;
}

std::u16string CXmlWriter::CreateUniquePrefix(const NamespaceTable& table)
{
    std::unordered_set<std::u16string_view> taken;
    for (const auto& [uri, prefix] : table)
        taken.insert(prefix);
    for (std::uint32_t number = 0;; ++number)
        if (std::u16string prefix = MakePrefix(number); !taken.contains(prefix))
            return prefix;
}

CXmlWriter::CGroupScope::CGroupScope(CXmlWriter& writer) : m_writer(writer)
{
    if (writer.m_groupDepth >= writer.m_maxDepth)
        ThrowTooDeep(writer.m_maxDepth);
    ++writer.m_groupDepth;
}

CXmlWriter::CGroupScope::~CGroupScope()
{
    --m_writer.m_groupDepth;
}

CXmlWriter::CXmlWriterContext::CXmlWriterContext(std::u16string_view name, std::u16string_view uri,
                                                 const NamespaceTable& namespaces,
                                                 std::u16string_view defaultNamespaceUri)
    : CInstanceMonitor(u"CXmlWriterContext"), m_name(name), m_uri(uri),
      m_ownScopes(new CNamespaceScopes()), m_scopes(m_ownScopes.get())
{
    Declare().SetDefault(m_depth, defaultNamespaceUri);
    for (const auto& [namespaceUri, prefix] : namespaces)
        m_scopes->SetPrefix(m_depth, namespaceUri, prefix);
}

CXmlWriter::CXmlWriterContext::CXmlWriterContext(std::u16string_view name, std::u16string_view uri,
                                                 const CXmlWriterContext& parent)
    : CInstanceMonitor(u"CXmlWriterContext"), m_name(name), m_uri(uri), m_depth(parent.m_depth + 1),
      m_scopes(parent.m_scopes)
{}

void CXmlWriter::CXmlWriterContext::Reuse(std::u16string_view name, std::u16string_view uri,
                                          const CXmlWriterContext& parent)
{
    m_childCount = 0;
    m_isStartTagOpen = true;
    m_hasAttributes = false;
    m_prefix.clear();
    m_name = name;
    if (!IsSameName(m_uri, uri))
        m_uri = uri;
    m_depth = parent.m_depth + 1;
    m_scopes = parent.m_scopes;
}

CNamespaceScopes& CXmlWriter::CXmlWriterContext::Declare() noexcept
{
    m_declares = true;
    return *m_scopes;
}

void CXmlWriter::CXmlWriterContext::Undeclare() noexcept
{
    m_declares = false;
    m_scopes->Close(m_depth);
    m_ownScopes.reset();
}

CXmlWriter::CXmlWriterContext::~CXmlWriterContext()
{
    Close();
    // One by one: the chain may be longer than the stack.
    while (m_parent != nullptr)
        m_parent = m_parent->TakeParent();
}

CXmlWriter::NamespaceTable CXmlWriter::CXmlWriterContext::GetEffectiveNamespaces() const
{
    return m_scopes->GetPrefixes(m_depth);
}

const std::u16string& CXmlWriter::CXmlWriterContext::GetEffectiveDefaultNamespace() const noexcept
{
    return m_scopes->GetDefault(m_depth);
}

std::u16string_view CXmlWriter::CXmlWriterContext::GetPrefix(std::u16string_view uri) const
{
    return m_scopes->GetPrefix(m_depth, uri);
}

void CXmlWriter::CXmlWriterContext::SetNamespace(std::u16string_view uri,
                                                 std::u16string_view prefix)
{
    if (uri != kXmlNamespace)
        Declare().SetPrefix(m_depth, uri, prefix);
}

void CXmlWriter::CXmlWriterContext::SetDefaultNamespace(std::u16string_view uri)
{
    Declare().SetDefault(m_depth, uri);
}

std::u16string CXmlWriter::CXmlWriterContext::CreateUniquePrefix()
{
    return m_scopes->FindFreePrefix();
}

}  // namespace ZqXmlLib9
