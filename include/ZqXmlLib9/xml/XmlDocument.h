/// \file XmlDocument.h
/// The read-only tree that all input passes through, and its loader.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/Enums.h>
#include <ZqXmlLib9/engine/InstanceMonitor.h>
#include <ZqXmlLib9/types/OctetSpan.h>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace ZqXmlLib9 {

class CXmlElement;
class CXmlTree;
struct SXmlName;
class CXmlSerializationContext;

/// Sees each complete element at its end tag, children before parents. True claims the element: it
/// is taken out of the tree and freed with its subtree when the filter returns; the root stays all
/// the same. The elements around it are still open: they have their attributes and the children
/// that came before, but no text. It may throw; the load then fails with what it threw. Fast
/// Infoset documents have no use of it.
using ElementFilter = bool (*)(CXmlElement* element);

/// Makes the next loads from files read chunks of 128 KiB while the chunk before is parsed. Such
/// loads take XML text alone, neither compressed nor Fast Infoset, of any length. Off at first;
/// process-wide.
ZQXMLLIB9_API void AsyncFromXmlFile(bool async) noexcept;

/// A document: the tree, and the prefixes that were met anywhere in it.
///
/// All nodes and their names belong to the document and live until its next load or its end, but
/// for the nodes that a filter claims. A failed load leaves the part of the tree that was built
/// before, or none; elements that were open then have no text. Any number of threads may read a
/// loaded document; loading is for one thread at a time.
class ZQXMLLIB9_API CXmlDocument : public CInstanceMonitor {
public:
    /// With the default context.
    CXmlDocument();
    /// \param context  must outlive the document
    explicit CXmlDocument(const CXmlSerializationContext& context);
    explicit CXmlDocument(ElementFilter filter);
    CXmlDocument(ElementFilter filter, const CXmlSerializationContext& context);
    explicit CXmlDocument(const CXmlSerializationContext&&) = delete;
    CXmlDocument(ElementFilter, const CXmlSerializationContext&&) = delete;
    CXmlDocument(const CXmlDocument&) = delete;
    CXmlDocument& operator=(const CXmlDocument&) = delete;
    ~CXmlDocument() override;

    /// Frees the tree and forgets the prefixes. Every load begins with this.
    virtual void Cleanup();

    /// The root; null before a load.
    CXmlElement* GetDocumentElement() const noexcept { return m_documentElement; }

    /// The namespace that was bound to a prefix last, anywhere in the document; the default
    /// namespace stands under the empty prefix. An unknown prefix gives the empty text.
    std::u16string LookupNamespaceFromAlias(const char16_t* prefix) const;

    /// \name Loading
    ///
    /// All of them fail with `CZqException`: "%s at line %d" with the parser's text where the
    /// document is not well-formed, "The document is nested deeper than %d levels" beyond the
    /// depth that the context allows. Blocks of memory, and files that are read whole, may be
    /// compressed by gzip or zlib, also behind the mark of a UTF-16 file; where they inflate to
    /// more than the context allows, they fail with "The compressed data is larger than %I64u
    /// octets when inflated". What is compressed but cut or damaged goes to the parser as it is.
    /// @{

    /// UTF-16 text; a declaration in it names UTF-16 or no encoding.
    /// \throws CZqException  "XML String is empty!"
    void LoadXml(const char16_t* text);

    /// Octets in the encoding that their declaration names, UTF-8 without one.
    /// \throws CZqException  "XML String is empty!"
    void LoadXml(const char* text);

    /// \param length  in octets
    /// \throws CZqException              "XML Stream is empty!"
    /// \throws CZqInvalidParamException  `data` is null and `length` is not 0
    void LoadXmlStream(const unsigned char* data, std::uint32_t length);
    /// \throws CZqOverFlowException  the length is below 0, or 4 GiB or more
    template <UncheckedLength TLength>
    void LoadXmlStream(const unsigned char* data, TLength length)
    {
        LoadXmlStream(data, ToLength32(length));
    }
    /// \throws CZqException          "XML Stream is empty!"
    /// \throws CZqOverFlowException  4 GiB or more
    void LoadXmlStream(std::span<const std::byte> data);

    /// A file, whole or in chunks (`AsyncFromXmlFile`). The error code in a message is errno.
    /// \throws CZqException  "Failed to open the file [%s] Error [0x%08x]"; "Failed to get the
    ///         size of the file [%s] Error [0x%08x]", also for 4 GiB and more where the file is
    ///         read whole, and for what has no size; "Failed to read the contents of the file [%s]
    ///         Error [0x%08x]"; in chunks also "Failed to read the contents of the file. Error
    ///         [0x%08x]" and "Invalid or empty XML document"
    void Load(const char16_t* path);

    /// @}

private:
    friend class CExpatReader;
    friend class CFastInfosetReader;

    using AliasTable = std::map<std::u16string, std::u16string, std::less<>>;

    /// \name For the front ends that build the tree
    /// @{

    /// Opens the root, or a child of the innermost open element.
    /// \throws CZqException  "The document is nested deeper than %d levels"
    CXmlElement* AddElement(const SXmlName* name);
    /// Appends to the text of the innermost open element, without carriage returns.
    void AppendTextExcludingCR(std::u16string_view text);
    /// Closes the innermost open element, and asks the filter about it.
    void EndElement();
    void SetAlias(std::u16string_view prefix, std::u16string_view uri);

    CXmlTree& GetTree() const noexcept { return *m_tree; }
    const CXmlSerializationContext& GetContext() const noexcept { return *m_context; }
    SchemaType GetSchemaType() const noexcept { return m_schemaType; }

    /// @}

    void Parse(std::span<const std::byte> data);
    void ParseText(std::span<const std::byte> data);
    void LoadWhole(const char16_t* path);
    void LoadChunks(const char16_t* path);

    std::unique_ptr<CXmlTree> m_tree;
    CXmlElement* m_documentElement = nullptr;
    AliasTable m_aliases;  ///< prefix to URI
    SchemaType m_schemaType;
    ElementFilter m_filter;
    const CXmlSerializationContext* m_context;
};

}  // namespace ZqXmlLib9
