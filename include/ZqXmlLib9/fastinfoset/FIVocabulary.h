/// \file FIVocabulary.h
/// The tables of Fast Infoset, in which names and short values get numbers.
#pragma once

#include <ZqXmlLib9/Export.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace ZqXmlLib9 {

/// The tables of one document, or those that documents begin with.
///
/// An index counts from 1; 0 stands for an absent part. Each table exists twice: as a map from the
/// string to its index, on which a writer works, and as a list, on which a reader works. Writer and
/// reader stay in step as long as both begin with the same vocabulary and each value was added to
/// it once. A table takes 1,048,576 entries; further ones are dropped without a word, since a
/// document stays readable without them (ITU-T X.891, 7.13).
///
/// A new vocabulary holds the prefix `xml`, its namespace, and the two built-in alphabets.
///
/// Any number of threads may read one that nobody changes.
/// Source: ITU-T X.891, 8.
class ZQXMLLIB9_API CFIVocabulary {
public:
    /// A qualified name as indices into three string tables; 0: there is no such part.
    class CQNameParts {
    public:
        CQNameParts(std::uint32_t prefixIndex, std::uint32_t nameSpaceIndex,
                    std::uint32_t localNameIndex) noexcept
            : prefix(prefixIndex), nameSpace(nameSpaceIndex), localName(localNameIndex)
        {}

        std::uint32_t prefix;
        std::uint32_t nameSpace;
        std::uint32_t localName;
    };

    /// A list in the order of indices; the entry of index i stands at `begin() + i - 1`.
    template <typename TEntry>
    class ZQXMLLIB9_API CTable {
    public:
        using const_iterator = typename std::vector<TEntry>::const_iterator;

        CTable() = default;
        CTable(const CTable&) = default;
        CTable& operator=(const CTable&) = default;
        virtual ~CTable() = default;

        const_iterator begin() const noexcept { return m_entries.begin(); }
        const_iterator end() const noexcept { return m_entries.end(); }

    private:
        friend class CFIVocabulary;
        friend class CFastInfosetReader;

        std::uint32_t Append(TEntry entry)
        {
            m_entries.push_back(std::move(entry));
            return static_cast<std::uint32_t>(m_entries.size());
        }

        std::vector<TEntry> m_entries;
    };

    using CFIStringTable = CTable<std::u16string>;
    using CFIQNameTable = CTable<CQNameParts>;

    CFIVocabulary();
    CFIVocabulary& operator=(const CFIVocabulary&);
    virtual ~CFIVocabulary();

    /// \name Adding to a vocabulary that documents begin with
    /// Each string once: a second one would put map and list out of step.
    /// @{
    void AddPrefixName(std::u16string prefix);
    void AddNamespaceName(std::u16string uri);
    void AddLocalName(std::u16string name);
    /// The content of elements.
    void AddElementValue(std::u16string value);
    void AddAttributeValue(std::u16string value);
    /// @}

    /// \name Qualified names, and those of their parts that are new
    /// Without effect for a name that is there. Names that differ in the prefix alone are two.
    /// @{
    void AddElement(std::u16string prefix, std::u16string nameSpace, std::u16string localName);
    void AddAttribute(std::u16string prefix, std::u16string nameSpace, std::u16string localName);
    /// @}

    const CFIStringTable& GetPrefixNamesTable() const noexcept { return m_prefixes; }
    const CFIStringTable& GetNamespaceNamesTable() const noexcept { return m_nameSpaces; }
    const CFIStringTable& GetLocalNamesTable() const noexcept { return m_localNames; }
    const CFIStringTable& GetCharacterChunksTable() const noexcept { return m_chunks; }
    const CFIStringTable& GetAttributeValuesTable() const noexcept { return m_attributeValues; }
    const CFIQNameTable& GetElementNamesTable() const noexcept { return m_elementNames; }
    const CFIQNameTable& GetAttributeNamesTable() const noexcept { return m_attributeNames; }

private:
    friend class CFastInfosetWriter;
    friend class CFastInfosetReader;

    /// A hash with a key of the process, since documents choose the strings: collisions of one
    /// without a key can be made to order.
    struct __attribute__((visibility("hidden"))) stringhash {
        using is_transparent = void;
        std::size_t operator()(std::u16string_view text) const noexcept;
    };
    /// By octets, which is faster than unit by unit.
    struct stringequal {
        using is_transparent = void;
        bool operator()(std::u16string_view left, std::u16string_view right) const noexcept
        {
            return left.size() == right.size()
                   && (left.empty()
                       || std::memcmp(left.data(), right.data(), left.size() * sizeof(char16_t))
                              == 0);
        }
    };
    using Map = std::unordered_map<std::u16string, std::uint32_t, stringhash, stringequal>;

    CFIVocabulary(const CFIVocabulary&);

    /// \return false, with `index` as it was, for an unknown key
    static bool FindIndex(const Map& map, std::u16string_view key, std::uint32_t& index);
    bool FindPrefixNameIndex(std::u16string_view prefix, std::uint32_t& index) const;
    bool FindNamespaceNameIndex(std::u16string_view uri, std::uint32_t& index) const;
    bool FindLocalNameIndex(std::u16string_view name, std::uint32_t& index) const;

    /// The key of a qualified name in its map, in place of what `key` holds.
    static void MakeKey(std::u16string_view prefix, std::u16string_view nameSpace,
                        std::u16string_view localName, std::u16string& key);
    /// A key that is there keeps its index.
    static void AddValueToMap(std::u16string_view value, Map& map);
    static void AddValueToVector(std::u16string value, CFIStringTable& table);
    static void AddString(std::u16string value, Map& map, CFIStringTable& table);
    void AddQName(std::u16string prefix, std::u16string nameSpace, std::u16string localName,
                  Map& map, CFIQNameTable& table);
    static void AddQNameToVector(std::uint32_t prefixIndex, std::uint32_t nameSpaceIndex,
                                 std::uint32_t localNameIndex, CFIQNameTable& table);

    std::vector<std::u16string> m_alphabets;
    Map m_attributeNameMap;
    Map m_attributeValueMap;
    Map m_elementNameMap;
    Map m_chunkMap;
    Map m_localNameMap;
    Map m_nameSpaceMap;
    Map m_prefixMap;
    CFIQNameTable m_attributeNames;
    CFIStringTable m_attributeValues;
    CFIQNameTable m_elementNames;
    CFIStringTable m_chunks;
    CFIStringTable m_localNames;
    CFIStringTable m_nameSpaces;
    CFIStringTable m_prefixes;
};

}  // namespace ZqXmlLib9
