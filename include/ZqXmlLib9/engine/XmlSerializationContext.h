/// \file XmlSerializationContext.h
/// All settings of an operation that writes or reads.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/Enums.h>
#include <ZqXmlLib9/engine/NamespaceAliasMap.h>
#include <ZqXmlLib9/engine/SmartPtr.h>
#include <ZqXmlLib9/fastinfoset/FastInfosetContext.h>
#include <ZqXmlLib9/fastinfoset/ZqZip.h>

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

namespace ZqXmlLib9 {

class CAttributeCol;

/// The settings that a caller passes to every entry point; it must outlive the operation.
///
/// A plain value. Any number of threads may work with one context at once as long as none changes
/// it. `GetDefaultContext()` is the default argument of every entry point; changing it changes the
/// default for the whole process.
class ZQXMLLIB9_API CXmlSerializationContext {
public:
    CXmlSerializationContext();
    CXmlSerializationContext(const CXmlSerializationContext&);
    CXmlSerializationContext& operator=(const CXmlSerializationContext&);
    virtual ~CXmlSerializationContext();

    static CXmlSerializationContext& GetDefaultContext() noexcept;

    /// \name Output
    /// @{

    /// The namespace that the root declares as the default; empty: none.
    const std::u16string& GetDefaultNamespaceURI() const { return m_defaultNamespaceUri; }
    void SetDefaultNamespaceURI(const char16_t* uri);

    /// Whether `xsi:type` is written where a derived class stands in for its base. Default true.
    bool GetWriteTypeAttribute() const { return m_writeTypeAttribute; }
    void SetWriteTypeAttribute(bool write) { m_writeTypeAttribute = write; }

    /// The aliases that the root declares.
    const CNamespaceAliasMap& GetNamespaceAliases() const { return m_namespaceAliases; }
    CNamespaceAliasMap& GetNamespaceAliases() { return m_namespaceAliases; }

    /// Attributes that stand first on the tag of the root, a schema location for instance: a
    /// collection under the restriction `##any`, made when it is first asked for. A copy of the
    /// context shares it.
    CSmartPtr<CAttributeCol> GetAdditionalRootAttributes() const;

    /// Complete with their own markup, written as they are in front of the root.
    const std::vector<std::u16string>& GetProcessingInstructions() const
    {
        return m_processingInstructions;
    }
    std::vector<std::u16string>& GetProcessingInstructions() { return m_processingInstructions; }

    /// Text that is written as it is behind the attributes of the root, within its start tag.
    const std::u16string& GetInLineSchema() const { return m_inLineSchema; }
    void SetInLineSchema(const char16_t* schema);

    /// Whether an optional attribute that equals its default is left out. Default false.
    bool GetNoOptionalAttributeDefaultOutput() const { return m_noOptionalAttributeDefaultOutput; }
    void SetNoOptionalAttributeDefaultOutput(bool leaveOut)
    {
        m_noOptionalAttributeDefaultOutput = leaveOut;
    }

    /// The settings of Fast Infoset, for reading too.
    const CFastInfosetContext& GetFIContext() const { return m_fastInfoset; }
    CFastInfosetContext& GetFIContext() { return m_fastInfoset; }

    /// @}
    /// \name Strictness, all false by default
    /// @{

    /// Collections may hold any number of items, on output and input.
    bool GetIgnoreInvalidCollectionCounts() const { return m_ignoreInvalidCollectionCounts; }
    void SetIgnoreInvalidCollectionCounts(bool ignore) { m_ignoreInvalidCollectionCounts = ignore; }

    /// A choice may be empty, on output and input.
    bool GetIgnoreMissingChoice() const { return m_ignoreMissingChoice; }
    void SetIgnoreMissingChoice(bool ignore) { m_ignoreMissingChoice = ignore; }

    /// Mandatory elements of a sequence may be absent.
    bool GetIgnoreMissingMandatoryElements() const { return m_ignoreMissingMandatoryElements; }
    /// \throws CZqInvalidStateException  when set to true while unknown elements are ignored; the
    ///         setting then stays
    void SetIgnoreMissingMandatoryElements(bool ignore);

    /// Elements that the content model doesn't know are skipped: in front of a mandatory one, and
    /// at the end of their parent. What is optional, and a collection, isn't looked for behind
    /// them.
    bool GetIgnoreUnknownElements() const { return m_ignoreUnknownElements; }
    /// \throws CZqInvalidStateException  when set to true while missing mandatory elements are
    ///         ignored; the setting then stays
    void SetIgnoreUnknownElements(bool ignore);

    /// Attributes that the class doesn't know are dropped.
    bool GetIgnoreUnknownAttributes() const { return m_ignoreUnknownAttributes; }
    void SetIgnoreUnknownAttributes(bool ignore) { m_ignoreUnknownAttributes = ignore; }

    /// Names are compared without their namespaces; also true for a schema without namespaces.
    bool GetIgnoreNamespaces() const
    {
        return m_ignoreNamespaces || m_schemaType == SchemaType_NoNamespaces;
    }
    void SetIgnoreNamespaces(bool ignore) { m_ignoreNamespaces = ignore; }

    /// @}
    /// \name Parsing
    /// @{

    SchemaType GetSchemaType() const { return m_schemaType; }
    void SetSchemaType(SchemaType type) { m_schemaType = type; }

    /// Whether CDATA sections come without their markers. Default true. With false the markers
    /// stay in the text, and a text that begins with one is written as it stands.
    bool GetStripCDATA() const { return m_stripCData; }
    void SetStripCDATA(bool strip) { m_stripCData = strip; }

    /// How many elements may be open at once, read or written; the root is the first. As many
    /// groups without a tag may be open when written, and as many entities of a document may refer
    /// to other ones. Default 1024: it bounds the stack that a document can make a program use, and
    /// no document of a sensible schema comes near it.
    int GetMaxDepth() const { return m_maxDepth; }
    void SetMaxDepth(int levels) { m_maxDepth = levels; }

    /// How large a compressed document may be when it is inflated, in octets. Default 1 GiB: it
    /// bounds the memory that a small document can make a program use, which is up to twice that.
    /// 4 GiB are refused whatever stands here.
    std::uint64_t GetMaxInflatedSize() const { return m_maxInflatedSize; }
    void SetMaxInflatedSize(std::uint64_t octets) { m_maxInflatedSize = octets; }
    /// How many times its own size the text may be that a document refers to and doesn't spell out,
    /// once that has passed 8 MiB. Default 100: a short document that names a long text a million
    /// times must not exhaust the memory. Such texts are namespaces, beyond 128 code units for each
    /// name; default values of attributes; and what Fast Infoset delivers by index or makes of
    /// numbers, beyond what it costs anyway (docs/safety.md has the lengths).
    int GetMaxAmplification() const { return m_maxAmplification; }
    void SetMaxAmplification(int times) { m_maxAmplification = times; }

    /// @}

private:
    /// Holds one reference to the root attributes. Many threads may ask for them at once, and the
    /// first one makes them.
    class ZQXMLLIB9_API CRootAttributes {
    public:
        CRootAttributes() noexcept = default;
        CRootAttributes(const CRootAttributes& other);
        CRootAttributes& operator=(const CRootAttributes& other);
        ~CRootAttributes();

        CSmartPtr<CAttributeCol> Get();

    private:
        std::atomic<CAttributeCol*> m_attributes{nullptr};
    };

    static CXmlSerializationContext m_defaultContext;

    std::u16string m_defaultNamespaceUri;
    CNamespaceAliasMap m_namespaceAliases;
    mutable CRootAttributes m_rootAttributes;
    std::vector<std::u16string> m_processingInstructions;
    std::u16string m_inLineSchema;
    CFastInfosetContext m_fastInfoset;
    SchemaType m_schemaType = SchemaType_Default;
    std::int32_t m_maxDepth = 1024;
    std::uint64_t m_maxInflatedSize = CZqZip::kMaxInflatedSize;
    std::int32_t m_maxAmplification = 100;
    bool m_writeTypeAttribute = true;
    bool m_ignoreInvalidCollectionCounts = false;
    bool m_ignoreMissingChoice = false;
    bool m_ignoreMissingMandatoryElements = false;
    bool m_ignoreUnknownElements = false;
    bool m_ignoreUnknownAttributes = false;
    bool m_ignoreNamespaces = false;
    bool m_noOptionalAttributeDefaultOutput = false;
    bool m_stripCData = true;
};

}  // namespace ZqXmlLib9
