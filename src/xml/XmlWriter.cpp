#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/xml/XmlWriter.h>

#include "../engine/XmlNames.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace ZqXmlLib9 {
namespace {

constexpr int kDefaultMaxDepth = 1024;

/// So many scopes lie between, and what was found is remembered.
constexpr int kLongWay = 8;

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

std::u16string CXmlWriter::MakePrefix(std::uint32_t number)
{
    std::size_t length = 2;
    for (std::uint32_t count = 26 * 26; number >= count; count *= 26, ++length)
        number -= count;
    std::u16string prefix(length, u'A');
    for (auto letter = prefix.rbegin(); number != 0; ++letter, number /= 26)
        *letter = static_cast<char16_t>(u'A' + number % 26);
    return prefix;
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
      m_ownScope(new SScope(nullptr)), m_scope(m_ownScope.get())
{
    for (const auto& [namespaceUri, prefix] : namespaces)
        m_ownScope->Set(namespaceUri, prefix);
    SetDefaultNamespace(defaultNamespaceUri);
}

CXmlWriter::CXmlWriterContext::CXmlWriterContext(std::u16string_view name, std::u16string_view uri,
                                                 const CXmlWriterContext& parent)
    : CInstanceMonitor(u"CXmlWriterContext"), m_name(name), m_uri(uri), m_depth(parent.m_depth + 1),
      m_scope(parent.m_scope)
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
    m_ownScope.reset();
    m_scope = parent.m_scope;
}

CXmlWriter::CXmlWriterContext::~CXmlWriterContext()
{
    // One by one: the chain may be longer than the stack.
    while (m_parent != nullptr)
        m_parent = m_parent->TakeParent();
}

CXmlWriter::NamespaceTable CXmlWriter::CXmlWriterContext::GetEffectiveNamespaces() const
{
    NamespaceTable table;
    for (const SScope* scope = m_scope; scope != nullptr; scope = scope->outer)
        table.insert(scope->prefixes.begin(), scope->prefixes.end());
    std::erase_if(table, [](const auto& entry) { return entry.second.empty(); });
    return table;
}

std::u16string_view CXmlWriter::CXmlWriterContext::GetPrefix(std::u16string_view uri) const
{
    const std::u16string* const prefix = m_scope->Find(uri);
    return prefix != nullptr ? std::u16string_view(*prefix) : std::u16string_view();
}

void CXmlWriter::CXmlWriterContext::SetNamespace(std::u16string_view uri,
                                                 std::u16string_view prefix)
{
    if (uri != kXmlNamespace)
        OwnScope().Set(uri, prefix);
}

void CXmlWriter::CXmlWriterContext::SetDefaultNamespace(std::u16string_view uri)
{
    SScope& scope = OwnScope();
    scope.ownDefaultUri = uri;
    scope.defaultUri = &scope.ownDefaultUri;
}

std::u16string CXmlWriter::CXmlWriterContext::CreateUniquePrefix()
{
    SScope& scope = OwnScope();
    for (;; ++scope.firstFree)
        if (std::u16string prefix = MakePrefix(scope.firstFree); !scope.IsTaken(prefix))
            return prefix;
}

CXmlWriter::CXmlWriterContext::SScope& CXmlWriter::CXmlWriterContext::OwnScope()
{
    if (m_ownScope == nullptr) {
        m_ownScope = std::make_unique<SScope>(m_scope);
        m_scope = m_ownScope.get();
    }
    return *m_ownScope;
}

CXmlWriter::CXmlWriterContext::SScope::SScope(const SScope* inherited)
    : outer(inherited), defaultUri(inherited != nullptr ? inherited->defaultUri : &ownDefaultUri),
      firstFree(inherited != nullptr ? inherited->firstFree : 0)
{}

const std::u16string* CXmlWriter::CXmlWriterContext::SScope::Find(std::u16string_view uri) const
{
    int steps = 0;
    for (const SScope* scope = this; scope != nullptr; scope = scope->outer, ++steps) {
        const auto entry = scope->prefixes.find(uri);
        if (entry != scope->prefixes.end()) {
            // No scope around this one changes while it is there.
            if (steps > kLongWay)
                found.insert_or_assign(entry->first, &entry->second);
            return &entry->second;
        }
        if (scope == this)
            if (const auto known = found.find(uri); known != found.end())
                return known->second;
    }
    return nullptr;
}

void CXmlWriter::CXmlWriterContext::SScope::Set(std::u16string_view uri, std::u16string_view prefix)
{
    const std::u16string* const current = Find(uri);
    const std::u16string old = current != nullptr ? *current : std::u16string();
    if (current != nullptr && old == prefix)
        return;
    if (!prefix.empty())
        uris.emplace(prefix, uri);
    prefixes.insert_or_assign(std::u16string(uri), std::u16string(prefix));
    if (old.empty())
        return;
    const auto entries = uris.equal_range(old);
    const auto entry =
        std::find_if(entries.first, entries.second, [&](const auto& e) { return e.second == uri; });
    if (entry != entries.second)
        uris.erase(entry);
    firstFree = 0;
}

bool CXmlWriter::CXmlWriterContext::SScope::IsTaken(std::u16string_view prefix) const
{
    for (const SScope* scope = this; scope != nullptr; scope = scope->outer) {
        const auto entries = scope->uris.equal_range(prefix);
        for (auto entry = entries.first; entry != entries.second; ++entry)
            if (const std::u16string* const current = Find(entry->second);
                current != nullptr && *current == prefix)
                return true;
    }
    return false;
}

}  // namespace ZqXmlLib9
