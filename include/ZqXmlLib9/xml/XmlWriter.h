/// \file XmlWriter.h
/// The interface through which everything is written, and the scopes of namespaces behind it.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/InstanceMonitor.h>
#include <ZqXmlLib9/types/ItemType.h>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace ZqXmlLib9 {

class CNamespaceScopes;

/// Takes the events of a document (start of an element, attribute, text, end) and writes them in
/// one form or another.
///
/// Before the root the writer takes aliases and a default namespace for it; from then on these
/// calls work on the element that is open. A prefix that an element declares is seen by its
/// descendants and vanishes with it. One thread at a time. Destroying a writer in the middle of a
/// document frees everything it holds.
///
/// `ItemType` arguments tell the type of a value to writers that encode by type.
class ZQXMLLIB9_API CXmlWriter : public CInstanceMonitor {
public:
    using NamespaceTable = std::map<std::u16string, std::u16string, std::less<>>;

    class CXmlWriterContext;

    CXmlWriter(const CXmlWriter&) = delete;
    CXmlWriter& operator=(const CXmlWriter&) = delete;
    ~CXmlWriter() override;

    virtual void Open();
    /// \throws CZqException  "An Element has not been closed."
    virtual void Close();

    /// Writes nothing. Before the root, the root declares it. An open element keeps the prefix that
    /// its start tag has.
    virtual void SetDefaultNamespace(std::u16string_view uri);
    /// Writes nothing. Before the root, the root declares it. An empty prefix takes the alias of
    /// the URI back. The namespace of XML itself keeps its prefix `xml` (Namespaces in XML 1.0, 3),
    /// and an open element that of its start tag.
    virtual void AddNamespaceAlias(std::u16string_view prefix, std::u16string_view uri);

    virtual void WriteComment(std::u16string_view text) = 0;
    /// \param text  complete with its own markup
    virtual void WriteProcessingInstruction(std::u16string_view text) = 0;
    /// Writes text as it is into the start tag that is open.
    virtual void WriteInLineSchema(std::u16string_view text) = 0;
    /// \throws CZqException  "The document is nested deeper than %d levels"
    virtual void WriteStartElement(std::u16string_view name, std::u16string_view uri) = 0;
    virtual void WriteText(std::u16string_view text, ItemType type) = 0;
    virtual void WriteEndElement() = 0;
    /// \throws CZqException  "Attributes must be added before elements"
    virtual void WriteAttribute(std::u16string_view name, std::u16string_view uri,
                                std::u16string_view value, ItemType type) = 0;
    /// Writes `xsi:type`.
    /// \param uri       the namespace of the type
    /// \param typeName  its local name
    /// \param type      the type of the attribute's value
    /// \throws CZqException  "Attributes must be added before elements"
    virtual void WriteXsiType(std::u16string_view uri, std::u16string_view typeName,
                              ItemType type) = 0;
    /// Writes `xsi:nil` with the value true.
    /// \throws CZqException  "Attributes must be added before elements"
    virtual void WriteXsiNil() = 0;

    /// How many elements, or groups without a tag, may be open at once. Default 1024.
    void SetMaxDepth(int levels) noexcept { m_maxDepth = levels; }
    /// Goes on counting where another writer stands, for a part of its document that is written
    /// apart.
    void ContinueDepthOf(const CXmlWriter& outer) noexcept;

    /// Counts a group without a tag that is being written: such groups nest without elements, so
    /// the depth of elements alone doesn't bound them.
    class ZQXMLLIB9_API CGroupScope {
    public:
        /// \throws CZqException  "The document is nested deeper than %d levels"
        explicit CGroupScope(CXmlWriter& writer);
        CGroupScope(const CGroupScope&) = delete;
        CGroupScope& operator=(const CGroupScope&) = delete;
        ~CGroupScope();

    private:
        CXmlWriter& m_writer;
    };

protected:
    /// \param className  the name of the concrete class
    explicit CXmlWriter(const char16_t* className);

    const std::u16string& GetDefaultNamespace() const { return m_defaultNamespaceUri; }
    const NamespaceTable& GetNamespaceTable() const { return m_namespaces; }

    /// The innermost open element, or null; it belongs to the writer.
    CXmlWriterContext* GetContext() const noexcept { return m_context.get(); }

    /// A record for an element that is about to be opened; the writer is unchanged.
    /// \throws CZqException  "The document is nested deeper than %d levels"
    std::unique_ptr<CXmlWriterContext> MakeContext(std::u16string_view name,
                                                   std::u16string_view uri);
    /// Makes the record the innermost open element.
    void PushContext(std::unique_ptr<CXmlWriterContext> context);
    /// Closes the innermost open element; its parent is then the innermost.
    void PopContext();

    /// The open element.
    /// \throws CZqInvalidStateException  "There is no open element"
    CXmlWriterContext& RequireContext() const;
    /// The open element, whose start tag takes attributes.
    /// \throws CZqException  "Attributes must be added before elements"
    CXmlWriterContext& RequireStartTag() const;

    /// The first of AA, AB, ... ZZ, AAA, ... that is no prefix of the table.
    static std::u16string CreateUniquePrefix(const NamespaceTable& table);

private:
    int GetOpenCount() const noexcept;

    std::u16string m_defaultNamespaceUri;
    std::unique_ptr<CXmlWriterContext> m_context;
    std::unique_ptr<CXmlWriterContext> m_spare;  ///< closed ones, for the elements to come
    NamespaceTable m_namespaces;
    int m_maxDepth;
    int m_outerDepth = 0;  ///< elements that are open around this writer's document
    int m_groupDepth = 0;
};

/// The record of one open element. A context owns the chain of its parents.
///
/// What it declares goes to the scopes of namespaces, which the records of a document share, and is
/// taken out of them when its element closes, or when it is destroyed without having been pushed.
class ZQXMLLIB9_API CXmlWriter::CXmlWriterContext : public CInstanceMonitor {
public:
    /// A root, with copies of the writer's own table and default namespace.
    CXmlWriterContext(std::u16string_view name, std::u16string_view uri,
                      const NamespaceTable& namespaces, std::u16string_view defaultNamespaceUri);
    /// A child, which doesn't own its parent before `SetParent`.
    CXmlWriterContext(std::u16string_view name, std::u16string_view uri,
                      const CXmlWriterContext& parent);
    /// Makes a record that is out of use that of another child.
    void Reuse(std::u16string_view name, std::u16string_view uri, const CXmlWriterContext& parent);
    /// The element closes: what it declares is undone.
    void Close() noexcept
    {
        if (m_declares)
            Undeclare();
    }
    CXmlWriterContext(const CXmlWriterContext&) = delete;
    CXmlWriterContext& operator=(const CXmlWriterContext&) = delete;
    ~CXmlWriterContext() override;

    const std::u16string& GetLocalName() const noexcept { return m_name; }
    const std::u16string& GetNamespaceURI() const noexcept { return m_uri; }
    /// 0 for the root.
    std::uint32_t GetDepth() const noexcept { return m_depth; }

    /// The prefixes by their URIs.
    NamespaceTable GetEffectiveNamespaces() const;
    const std::u16string& GetEffectiveDefaultNamespace() const noexcept;
    /// The prefix of a URI; empty if it has none.
    std::u16string_view GetPrefix(std::u16string_view uri) const;

    /// Declares a prefix for this element and its descendants; an empty one takes it back.
    void SetNamespace(std::u16string_view uri, std::u16string_view prefix);
    /// Declares the default namespace for this element and its descendants.
    void SetDefaultNamespace(std::u16string_view uri);
    /// The first of AA, AB, ... ZZ, AAA, ... that is no prefix here.
    std::u16string CreateUniquePrefix();

    void SetParent(std::unique_ptr<CXmlWriterContext> parent) { m_parent = std::move(parent); }
    std::unique_ptr<CXmlWriterContext> TakeParent() { return std::move(m_parent); }

    std::uint32_t m_childCount = 0;  ///< child elements started within this one
    bool m_isStartTagOpen = true;    ///< attributes may still come
    bool m_hasAttributes = false;    ///< for writers that must know before the tag ends
    std::u16string m_prefix;         ///< written in front of the name; empty: none

private:
    CNamespaceScopes& Declare() noexcept;
    void Undeclare() noexcept;

    std::u16string m_name;
    std::u16string m_uri;
    std::uint32_t m_depth = 0;
    std::unique_ptr<CXmlWriterContext> m_parent;
    std::unique_ptr<CNamespaceScopes> m_ownScopes;  ///< of the root, for all
    CNamespaceScopes* m_scopes;
    bool m_declares = false;
};

}  // namespace ZqXmlLib9
