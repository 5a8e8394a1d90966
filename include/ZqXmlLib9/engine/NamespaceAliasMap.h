/// \file NamespaceAliasMap.h
/// The namespace aliases that a caller wants to see in a document.
#pragma once

#include <ZqXmlLib9/Export.h>

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace ZqXmlLib9 {

/// A table from namespace URI to alias, in the order of the URIs' code units.
///
/// A URI stands once; one alias may stand at several URIs, and nothing checks that a document
/// would then be well-formed. An entry with an empty alias counts as not registered when a
/// document is written. A plain value; any number of threads may read one.
class ZQXMLLIB9_API CNamespaceAliasMap {
public:
    CNamespaceAliasMap();
    CNamespaceAliasMap(const CNamespaceAliasMap&);
    CNamespaceAliasMap& operator=(const CNamespaceAliasMap&);
    virtual ~CNamespaceAliasMap();

    /// Sets the alias of `uri`, replacing an earlier one.
    void Add(const char16_t* alias, const char16_t* uri);
    /// Without effect for an unknown URI.
    void RemoveNamespace(const char16_t* uri);

    int GetNamespaceCount() const;
    /// \param index  from 0, in the order of the table
    /// \throws CZqInvalidParamException  "Index %d is out of range"
    const std::u16string& GetNamespaceAt(int index) const;

    bool DoesNamespaceExist(const char16_t* uri) const;
    bool DoesAliasExist(const char16_t* alias) const;

    /// The first URI, in the order of the table, with this alias.
    /// \throws CZqException  "Namespace alias [%s] not found"
    const std::u16string& GetNamespaceFromAlias(const char16_t* alias) const;

    /// The alias of a URI. An unknown URI gives the empty string, and has an entry with an empty
    /// alias from then on; so only look-ups of known URIs may run on several threads at once.
    const std::u16string& GetAliasFromNamespace(const char16_t* uri) const;

    /// The entries, URI to alias.
    const std::map<std::u16string, std::u16string, std::less<>>& GetEntries() const noexcept
    {
        return m_aliases;
    }

private:
    using Map = std::map<std::u16string, std::u16string, std::less<>>;

    Map::const_iterator Find(std::u16string_view alias) const;

    mutable Map m_aliases;
};

}  // namespace ZqXmlLib9
