// The namespaces that the open elements of a document declare, in one table for all of them: so a
// look-up takes the same time at any depth. What an element declares is undone when it closes.
#pragma once

#include <ZqXmlLib9/xml/XmlWriter.h>

#include <cstdint>
#include <list>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ZqXmlLib9 {

/// AA, AB, ... ZZ, AAA, ... by their numbers, from 0.
std::u16string MakePrefix(std::uint32_t number);

/// The scopes of one document. A level is the depth of an open element, which sees what it declares
/// itself, and what those of lower levels do. What fails for lack of memory changes nothing.
class CNamespaceScopes {
public:
    CNamespaceScopes() = default;
    CNamespaceScopes(const CNamespaceScopes&) = delete;
    CNamespaceScopes& operator=(const CNamespaceScopes&) = delete;

    /// The root must have one, an empty one at least.
    const std::u16string& GetDefault(std::uint32_t level) const noexcept;
    void SetDefault(std::uint32_t level, std::u16string_view uri);

    /// Empty: none.
    std::u16string_view GetPrefix(std::uint32_t level, std::u16string_view uri) const noexcept;
    /// The prefixes by their URIs.
    CXmlWriter::NamespaceTable GetPrefixes(std::uint32_t level) const;
    /// An empty prefix takes an outer one back.
    void SetPrefix(std::uint32_t level, std::u16string_view uri, std::u16string_view prefix);
    /// The first generated prefix that the innermost element doesn't see.
    std::u16string FindFreePrefix();

    /// Undoes all that the elements of a level and of higher ones declare.
    void Close(std::uint32_t level) noexcept
    {
        while (!m_defaults.empty() && m_defaults.back().first >= level)
            m_defaults.pop_back();
        while (!m_declarations.empty() && m_declarations.back().level >= level)
            UndoLast();
    }

private:
    struct SDeclaration;

    struct SByNumber {
        bool operator()(const std::u16string& left, const std::u16string& right) const noexcept
        {
            return left.size() != right.size() ? left.size() < right.size() : left < right;
        }
    };
    using Names = std::set<std::u16string, SByNumber>;

    struct SPrefix {
        std::uint32_t declarations = 0;
        std::uint32_t uses = 0;  ///< declarations that no inner one hides; 0: it is free
        Names::node_type name;   ///< kept for `m_freed`
    };
    using Uris = std::map<std::u16string, SDeclaration*, std::less<>>;  ///< null: none
    using Prefixes = std::map<std::u16string, SPrefix, std::less<>>;

    struct SDeclaration {
        std::uint32_t level;
        Uris::iterator uri;
        Prefixes::iterator prefix;  ///< the end: an outer one is taken back
        SDeclaration* outer;        ///< the one of the same URI that it hides
    };

    std::u16string_view PrefixOf(std::uint32_t level, const SDeclaration* innermost) const noexcept;
    void UndoLast() noexcept;
    void Use(Prefixes::iterator prefix) noexcept;
    void Unuse(Prefixes::iterator prefix) noexcept;
    void Forget(Prefixes::iterator prefix) noexcept;

    std::vector<std::pair<std::uint32_t, std::u16string>> m_defaults;  ///< by level
    std::list<SDeclaration> m_declarations;                            ///< by level
    Uris m_uris;                                                       ///< with the innermost ones
    Prefixes m_prefixes;
    /// Of the generated prefixes with numbers below `m_next`, those that are free. Each of the
    /// others keeps its node here, so that nothing fails when it becomes free.
    Names m_freed;
    std::uint32_t m_next = 0;
};

}  // namespace ZqXmlLib9
