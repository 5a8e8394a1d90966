#include "../engine/XmlNames.h"
#include "../platform/KeyedHash.h"

#include <ZqXmlLib9/fastinfoset/FIVocabulary.h>

#include <span>

namespace ZqXmlLib9 {
namespace {

/// ITU-T X.891, 7.13: the limit of every table, and of every index.
constexpr std::size_t kMaxEntries = std::size_t{1} << 20;

/// Stands in no name.
constexpr char16_t kSeparator = 1;

/// Makes room for one more entry, so that nothing can fail behind the addition to the map: an index
/// must mean the same entry in both.
template <typename TEntries>
void MakeRoom(TEntries& entries)
{
    if (entries.size() == entries.capacity())
        entries.reserve(2 * entries.size() + 1);
}

}  // namespace

std::size_t CFIVocabulary::stringhash::operator()(std::u16string_view text) const noexcept
{
    return HashWithKey(std::as_bytes(std::span(text)));
}

CFIVocabulary::CFIVocabulary() : m_alphabets{u"0123456789-+.e ", u"0123456789-:TZ "}
{
    AddPrefixName(u"xml");
    AddNamespaceName(std::u16string(kXmlNamespace));
}

CFIVocabulary::CFIVocabulary(const CFIVocabulary&) = default;
CFIVocabulary& CFIVocabulary::operator=(const CFIVocabulary&) = default;
CFIVocabulary::~CFIVocabulary() = default;

void CFIVocabulary::AddPrefixName(std::u16string prefix)
{
    AddString(std::move(prefix), m_prefixMap, m_prefixes);
}

void CFIVocabulary::AddNamespaceName(std::u16string uri)
{
    AddString(std::move(uri), m_nameSpaceMap, m_nameSpaces);
}

void CFIVocabulary::AddLocalName(std::u16string name)
{
    AddString(std::move(name), m_localNameMap, m_localNames);
}

void CFIVocabulary::AddElementValue(std::u16string value)
{
    AddString(std::move(value), m_chunkMap, m_chunks);
}

void CFIVocabulary::AddAttributeValue(std::u16string value)
{
    AddString(std::move(value), m_attributeValueMap, m_attributeValues);
}

void CFIVocabulary::AddElement(std::u16string prefix, std::u16string nameSpace,
                               std::u16string localName)
{
    AddQName(std::move(prefix), std::move(nameSpace), std::move(localName), m_elementNameMap,
             m_elementNames);
}

void CFIVocabulary::AddAttribute(std::u16string prefix, std::u16string nameSpace,
                                 std::u16string localName)
{
    AddQName(std::move(prefix), std::move(nameSpace), std::move(localName), m_attributeNameMap,
             m_attributeNames);
}

bool CFIVocabulary::FindIndex(const Map& map, std::u16string_view key, std::uint32_t& index)
{
    const auto entry = map.find(key);
    if (entry == map.end())
        return false;
    index = entry->second;
    return true;
}

bool CFIVocabulary::FindPrefixNameIndex(std::u16string_view prefix, std::uint32_t& index) const
{
    return FindIndex(m_prefixMap, prefix, index);
}

bool CFIVocabulary::FindNamespaceNameIndex(std::u16string_view uri, std::uint32_t& index) const
{
    return FindIndex(m_nameSpaceMap, uri, index);
}

bool CFIVocabulary::FindLocalNameIndex(std::u16string_view name, std::uint32_t& index) const
{
    return FindIndex(m_localNameMap, name, index);
}

void CFIVocabulary::MakeKey(std::u16string_view prefix, std::u16string_view nameSpace,
                            std::u16string_view localName, std::u16string& key)
{
    key = localName;
    key += kSeparator;
    key += nameSpace;
    key += kSeparator;
    key += prefix;
}

void CFIVocabulary::AddValueToMap(std::u16string_view value, Map& map)
{
    if (map.size() < kMaxEntries)
        map.emplace(value, static_cast<std::uint32_t>(map.size() + 1));
}

void CFIVocabulary::AddValueToVector(std::u16string value, CFIStringTable& table)
{
    if (table.m_entries.size() < kMaxEntries)
        table.Append(std::move(value));
}

void CFIVocabulary::AddString(std::u16string value, Map& map, CFIStringTable& table)
{
    MakeRoom(table.m_entries);
    AddValueToMap(value, map);
    AddValueToVector(std::move(value), table);
}

// NOLINTBEGIN(performance-unnecessary-value-param)
void CFIVocabulary::AddQName(std::u16string prefix, std::u16string nameSpace,
                             std::u16string localName, Map& map, CFIQNameTable& table)
{
    std::u16string key;
    MakeKey(prefix, nameSpace, localName, key);
    if (map.contains(key))
        return;
    std::uint32_t prefixIndex = 0;
    std::uint32_t nameSpaceIndex = 0;
    std::uint32_t localNameIndex = 0;
    if (!prefix.empty() && !FindPrefixNameIndex(prefix, prefixIndex))
        AddPrefixName(prefix);
    if (!nameSpace.empty() && !FindNamespaceNameIndex(nameSpace, nameSpaceIndex))
        AddNamespaceName(nameSpace);
    if (!FindLocalNameIndex(localName, localNameIndex))
        AddLocalName(localName);
    // A part that its full table didn't take leaves the name without a meaning.
    if ((!prefix.empty() && !FindPrefixNameIndex(prefix, prefixIndex))
        || (!nameSpace.empty() && !FindNamespaceNameIndex(nameSpace, nameSpaceIndex))
        || !FindLocalNameIndex(localName, localNameIndex))
        return;
    MakeRoom(table.m_entries);
    AddValueToMap(key, map);
    AddQNameToVector(prefixIndex, nameSpaceIndex, localNameIndex, table);
}
// NOLINTEND(performance-unnecessary-value-param)

void CFIVocabulary::AddQNameToVector(std::uint32_t prefixIndex, std::uint32_t nameSpaceIndex,
                                     std::uint32_t localNameIndex, CFIQNameTable& table)
{
    if (table.m_entries.size() < kMaxEntries)
        table.Append(CQNameParts(prefixIndex, nameSpaceIndex, localNameIndex));
}

}  // namespace ZqXmlLib9
