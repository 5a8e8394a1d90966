/// \file FastInfosetWriter.h
/// The writer of Fast Infoset documents.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/Enums.h>
#include <ZqXmlLib9/fastinfoset/FIVocabulary.h>
#include <ZqXmlLib9/fastinfoset/FastInfosetContext.h>
#include <ZqXmlLib9/types/ItemType.h>
#include <ZqXmlLib9/xml/BinaryStream.h>
#include <ZqXmlLib9/xml/XmlWriter.h>

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ZqXmlLib9 {

/// Writes the events of a document as Fast Infoset: one root, names and short values as indices
/// from their second occurrence.
///
/// Comments, processing instructions and in-line schemas have no place in it. Namespaces are
/// declared by the root, those that were registered before it; a prefix that is generated further
/// down stands in names alone, which carry their URI anyway. A typed value that reads back as
/// another text, "1.50" as a float, is written in full each time.
///
/// The octets of whole events reach the stream in pieces of 4 KiB or more, and the last ones by
/// `WriteDocumentEnd`. What a stream holds after a failure is no document; further calls then fail
/// with `CZqInvalidStateException`, as a second root does.
/// Source: ITU-T X.891.
class ZQXMLLIB9_API CFastInfosetWriter : public CXmlWriter {
public:
    /// \param settings  read only; must outlive the writer, as must the stream
    CFastInfosetWriter(const CFastInfosetContext* settings, CBinaryStream* stream);
    ~CFastInfosetWriter() override;

    void Close() override;

    /// Behind `Open`, in front of the root.
    void WriteDocumentHeader(FInfoDecl declaration);
    /// Behind the root, in front of `Close`.
    void WriteDocumentEnd();

    /// Without effect.
    void WriteComment(std::u16string_view text) override;
    /// Without effect on the document.
    void WriteProcessingInstruction(std::u16string_view text) override;
    /// Without effect.
    void WriteInLineSchema(std::u16string_view text) override;
    void WriteStartElement(std::u16string_view name, std::u16string_view uri) override;
    /// \throws CZqException  "Failed to write FastInfoset. ..." where the value doesn't fit the
    ///         encoding that the settings have for its type, with what doesn't; and what the
    ///         conversion of the type throws
    void WriteText(std::u16string_view text, ItemType type) override;
    void WriteEndElement() override;
    /// \throws CZqException  "Attributes must be added before elements"; and as `WriteText`
    void WriteAttribute(std::u16string_view name, std::u16string_view uri,
                        std::u16string_view value, ItemType type) override;
    /// The first attribute of an element can declare the namespace of its type.
    /// \throws CZqException  "Attributes must be added before elements"; "Failed to write
    ///         FastInfoset. The namespace [%s] of a type has no prefix. Register an alias for it."
    ///         behind other attributes
    void WriteXsiType(std::u16string_view uri, std::u16string_view typeName,
                      ItemType type) override;
    void WriteXsiNil() override;

private:
    struct SStringForm;
    struct SNameForm;
    struct SRecentName {
        const CFIVocabulary::Map* map = nullptr;  ///< null: none
        std::u16string prefix;
        std::u16string uri;
        std::u16string name;
        std::uint32_t index = 0;
    };
    using Octets = std::span<const unsigned char>;

    void Put(unsigned octet) { m_octets.push_back(static_cast<char>(octet)); }
    void PutAll(Octets octets);
    /// What the event has put becomes part of the document.
    void Commit();
    /// Hands what is committed to the stream.
    void Flush();

    void RequireIntact() const;
    void FlushPendingElement(bool attributesFollow);
    CXmlWriterContext& RequireAttributeList() const;
    bool IsKept(std::u16string_view text, ItemType type) const;
    void CloseAttributes();
    void CloseSibling();
    void WriteNamespaceAttributes(bool isRoot);

    void AppendUtf8(std::span<const struct SNumberRange> lengths, unsigned bits,
                    std::u16string_view text);
    void AppendOctetString(std::span<const struct SNumberRange> lengths, unsigned bits,
                           Octets octets);
    void AppendIdentifying(std::u16string_view text, const CFIVocabulary::Map& map,
                           void (CFIVocabulary::*add)(std::u16string));
    void AppendQName(const SNameForm& form, unsigned bits, std::u16string_view prefix,
                     std::u16string_view uri, std::u16string_view name, CFIVocabulary::Map& map);
    void AppendValue(const SStringForm& form, std::u16string_view text, CFIVocabulary::Map& map,
                     std::uint32_t maxAddLength, ItemType type);
    void AppendEncoded(const SStringForm& form, unsigned bits, std::u16string_view text,
                       ItemType type);
    void AppendAttributeValue(std::u16string_view value, ItemType type);
    std::u16string_view GetDeclaredPrefix(std::u16string_view uri) const;
    void DeclareForType(CXmlWriterContext& context, std::u16string_view uri);
    std::string PackByAlphabet(std::uint32_t index, std::u16string_view text) const;

    CBinaryStream* m_stream;
    const CFastInfosetContext* m_settings;
    std::unique_ptr<CXmlWriterContext> m_pending;  ///< begun, its head not written yet
    bool m_isTerminatorPending = false;            ///< held back: two of them share an octet
    std::unique_ptr<CFIVocabulary> m_vocabulary;

    /// Prefix and URI that the pending element declares.
    std::vector<std::pair<std::u16string, std::u16string>> m_declarations;
    NamespaceTable m_typePrefixes;  ///< of all declarations for types, by URI
    std::string m_octets;           ///< not in the stream yet
    std::size_t m_committed = 0;    ///< how many of them whole events have put
    std::u16string m_key;           ///< reused
    /// Names that were written last, each at the place that its hash chooses.
    std::array<SRecentName, 64> m_recentNames;
};

}  // namespace ZqXmlLib9
