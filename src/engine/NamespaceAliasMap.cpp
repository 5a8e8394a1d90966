#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/NamespaceAliasMap.h>
#include <ZqXmlLib9/engine/Text.h>

#include <algorithm>
#include <iterator>

namespace ZqXmlLib9 {

CNamespaceAliasMap::CNamespaceAliasMap() = default;
CNamespaceAliasMap::CNamespaceAliasMap(const CNamespaceAliasMap&) = default;
CNamespaceAliasMap& CNamespaceAliasMap::operator=(const CNamespaceAliasMap&) = default;
CNamespaceAliasMap::~CNamespaceAliasMap() = default;

void CNamespaceAliasMap::Add(const char16_t* alias, const char16_t* uri)
{
    m_aliases.insert_or_assign(std::u16string(TextOrEmpty(uri)),
                               std::u16string(TextOrEmpty(alias)));
}

void CNamespaceAliasMap::RemoveNamespace(const char16_t* uri)
{
    const auto entry = m_aliases.find(TextOrEmpty(uri));
    if (entry != m_aliases.end())
        m_aliases.erase(entry);
}

int CNamespaceAliasMap::GetNamespaceCount() const
{
    return static_cast<int>(m_aliases.size());
}

const std::u16string& CNamespaceAliasMap::GetNamespaceAt(int index) const
{
    if (index < 0 || index >= GetNamespaceCount())
        throw CZqInvalidParamException(FormatString(u"Index %d is out of range", index));
    return std::next(m_aliases.begin(), index)->first;
}

bool CNamespaceAliasMap::DoesNamespaceExist(const char16_t* uri) const
{
    return m_aliases.contains(TextOrEmpty(uri));
}

bool CNamespaceAliasMap::DoesAliasExist(const char16_t* alias) const
{
    return Find(TextOrEmpty(alias)) != m_aliases.end();
}

const std::u16string& CNamespaceAliasMap::GetNamespaceFromAlias(const char16_t* alias) const
{
    const auto entry = Find(TextOrEmpty(alias));
    if (entry == m_aliases.end())
        throw CZqException(FormatString(u"Namespace alias [%s] not found", alias));
    return entry->first;
}

const std::u16string& CNamespaceAliasMap::GetAliasFromNamespace(const char16_t* uri) const
{
    const auto entry = m_aliases.find(TextOrEmpty(uri));
    if (entry != m_aliases.end())
        return entry->second;
    return m_aliases[std::u16string(TextOrEmpty(uri))];
}

CNamespaceAliasMap::Map::const_iterator CNamespaceAliasMap::Find(std::u16string_view alias) const
{
    return std::ranges::find_if(m_aliases,
                                [&](const auto& entry) { return entry.second == alias; });
}

}  // namespace ZqXmlLib9
