#include "NamespaceScopes.h"

#include <iterator>

namespace ZqXmlLib9 {

std::u16string MakePrefix(std::uint32_t number)
{
    std::size_t length = 2;
    for (std::uint32_t count = 26 * 26; number >= count; count *= 26, ++length)
        number -= count;
    std::u16string prefix(length, u'A');
    for (auto letter = prefix.rbegin(); number != 0; ++letter, number /= 26)
        *letter = static_cast<char16_t>(u'A' + number % 26);
    return prefix;
}

const std::u16string& CNamespaceScopes::GetDefault(std::uint32_t level) const noexcept
{
    auto entry = m_defaults.rbegin();
    while (entry->first > level)
        ++entry;
    return entry->second;
}

void CNamespaceScopes::SetDefault(std::uint32_t level, std::u16string_view uri)
{
    std::u16string text(uri);
    auto behind = m_defaults.end();
    while (behind != m_defaults.begin() && std::prev(behind)->first > level)
        --behind;
    if (behind != m_defaults.begin() && std::prev(behind)->first == level)
        std::prev(behind)->second = std::move(text);
    else
        m_defaults.emplace(behind, level, std::move(text));
}

/// What an element of a level sees of the declarations of a URI.
std::u16string_view CNamespaceScopes::PrefixOf(std::uint32_t level,
                                               const SDeclaration* innermost) const noexcept
{
    while (innermost != nullptr && innermost->level > level)
        innermost = innermost->outer;
    if (innermost == nullptr || innermost->prefix == m_prefixes.end())
        return {};
    return innermost->prefix->first;
}

std::u16string_view CNamespaceScopes::GetPrefix(std::uint32_t level,
                                                std::u16string_view uri) const noexcept
{
    const auto entry = m_uris.find(uri);
    return entry != m_uris.end() ? PrefixOf(level, entry->second) : std::u16string_view();
}

CXmlWriter::NamespaceTable CNamespaceScopes::GetPrefixes(std::uint32_t level) const
{
    CXmlWriter::NamespaceTable table;
    for (const auto& [uri, innermost] : m_uris)
        if (const std::u16string_view prefix = PrefixOf(level, innermost); !prefix.empty())
            table.emplace_hint(table.end(), uri, prefix);
    return table;
}

void CNamespaceScopes::SetPrefix(std::uint32_t level, std::u16string_view uri,
                                 std::u16string_view prefix)
{
    if (GetPrefix(level, uri) == prefix)
        return;
    // What lack of memory leaves behind from here on has no declaration, and says nothing.
    auto newPrefix = m_prefixes.end();
    if (!prefix.empty())
        newPrefix = m_prefixes.try_emplace(std::u16string(prefix)).first;
    const auto entry = m_uris.try_emplace(std::u16string(uri)).first;
    // There are inner ones while the head of an inner element is not written yet.
    SDeclaration** place = &entry->second;
    while (*place != nullptr && (*place)->level > level)
        place = &(*place)->outer;
    const auto oldPrefix = *place != nullptr ? (*place)->prefix : m_prefixes.end();
    const bool isOwn = *place != nullptr && (*place)->level == level;
    if (!isOwn) {
        auto behind = m_declarations.end();
        while (behind != m_declarations.begin() && std::prev(behind)->level > level)
            --behind;
        *place = &*m_declarations.insert(behind, {level, entry, newPrefix, *place});
    }
    if (newPrefix != m_prefixes.end())
        ++newPrefix->second.declarations;
    if (place == &entry->second) {
        Unuse(oldPrefix);
        Use(newPrefix);
    }
    if (isOwn) {
        (*place)->prefix = newPrefix;
        Forget(oldPrefix);
    }
}

std::u16string CNamespaceScopes::FindFreePrefix()
{
    for (; m_freed.empty(); ++m_next) {
        std::u16string prefix = MakePrefix(m_next);
        const auto entry = m_prefixes.find(prefix);
        if (entry == m_prefixes.end() || entry->second.uses == 0)
            return prefix;
        entry->second.name = m_freed.extract(m_freed.insert(std::move(prefix)).first);
    }
    return *m_freed.begin();
}

/// Undoes a declaration of the innermost level, which no other one hides.
void CNamespaceScopes::UndoLast() noexcept
{
    const SDeclaration last = m_declarations.back();
    m_declarations.pop_back();
    Unuse(last.prefix);
    Forget(last.prefix);
    last.uri->second = last.outer;
    if (last.outer != nullptr)
        Use(last.outer->prefix);
    else
        m_uris.erase(last.uri);
}

void CNamespaceScopes::Use(Prefixes::iterator prefix) noexcept
{
    if (prefix == m_prefixes.end() || prefix->second.uses++ != 0)
        return;
    if (const auto freed = m_freed.find(prefix->first); freed != m_freed.end())
        prefix->second.name = m_freed.extract(freed);
}

void CNamespaceScopes::Unuse(Prefixes::iterator prefix) noexcept
{
    if (prefix != m_prefixes.end() && --prefix->second.uses == 0)
        m_freed.insert(std::move(prefix->second.name));
}

/// Counts one declaration less.
void CNamespaceScopes::Forget(Prefixes::iterator prefix) noexcept
{
    if (prefix != m_prefixes.end() && --prefix->second.declarations == 0)
        m_prefixes.erase(prefix);
}

}  // namespace ZqXmlLib9
