// The reader of Fast Infoset: it builds the tree of a document from octets.
//
// It reads the whole element structure of the standard, and keeps what the tree can hold. The
// element that is open last is the document's own record of it, so nothing recurses on the input.
// Every read is tested against the end of the data, every index against its table.
//
// Standard: ITU-T X.891.
#pragma once

#include "FastInfosetFormat.h"

#include "../xml/Amplification.h"

#include <ZqXmlLib9/engine/InstanceMonitor.h>
#include <ZqXmlLib9/fastinfoset/FIVocabulary.h>
#include <ZqXmlLib9/fastinfoset/FastInfosetContext.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ZqXmlLib9 {

class CXmlDocument;
class CXmlElement;
struct SXmlName;

/// Reads one document. All failures are `CZqException`, "Failed to parse FastInfoset. ..." but for
/// those of the values' conversions.
class CFastInfosetReader : public CInstanceMonitor {
public:
    /// \param settings  must outlive the reader, as must the document
    CFastInfosetReader(const CFastInfosetContext* settings, CXmlDocument* document);
    CFastInfosetReader(const CFastInfosetReader&) = delete;
    CFastInfosetReader& operator=(const CFastInfosetReader&) = delete;
    ~CFastInfosetReader() override;

    /// \return false if the data isn't Fast Infoset; the document is then as it was
    bool ReadDocument(std::span<const std::byte> data);

private:
    using Octets = std::span<const std::byte>;
    using Table = CFIVocabulary::CFIStringTable;
    /// The names of the tree by their places in a table; null: not met yet.
    using Names = std::vector<const SXmlName*>;

    /// By the two bits that tell.
    enum class EKind : std::uint8_t { Utf8, Utf16, Alphabet, Algorithm };

    struct SEncoded {
        EKind kind;
        std::uint32_t number;  ///< of the alphabet or algorithm, from 1
        Octets octets;
    };
    struct SStringForm;

    Octets Advance(std::uint64_t count);
    unsigned ReadOctet();
    bool ReadHeader();
    bool ReadMagic();
    bool MatchDeclaration(std::string_view text);
    void ReadOptionalComponents();
    void ReadInitialVocabulary();
    template <typename TRead>
    void ReadSequence(TRead read);
    void ReadNotations();
    void ReadUnparsedEntities();
    void SkipSurrogate();
    void ReadIdentifiers(unsigned present);
    void ReadDocumentChildren();
    void ReadDocumentType(unsigned octet);
    void ReadProcessingInstruction();

    void ReadElement(unsigned octet);
    bool StartElement(unsigned octet);
    void ReadNamespaceAttribute(unsigned octet);
    void ReadAttribute(CXmlElement* element, unsigned octet);
    void ReadChunk(unsigned octet);
    bool CloseElement();
    std::u16string_view TakeValue(bool isIndex, Table& table, std::size_t freeLength);

    void ReadIndexedQName(NumberRanges ranges, unsigned bits, const char16_t* failure,
                          const CFIVocabulary::CFIQNameTable& table, Names& names);
    void ReadLiteralQName(unsigned octet, CFIVocabulary::CFIQNameTable& table);
    std::uint32_t ReadNamePart(bool isPresent, Table& table, std::u16string& part);
    bool ReadIdentifyingString();
    bool ReadNonIdentifyingStringBit1();
    bool ReadNonIdentifyingStringBit3(unsigned octet);
    SEncoded ReadEncodedOctets(const SStringForm& form, unsigned octet);
    void ReadEncodedCharacterString(const SStringForm& form, unsigned octet);
    void ReadRestrictedAlphabetString(Octets octets, std::uint32_t alphabet);
    void ReadEncodedString(Octets octets, std::uint32_t algorithm);
    void ReadUtf8(Octets octets);
    void ReadUtf16(Octets octets);
    Octets ReadOctetString(NumberRanges ranges, unsigned bits, const char16_t* failure);
    Octets ReadOctetStringBit2();
    std::uint64_t ReadNumber(NumberRanges ranges, unsigned bits, const char16_t* failure);
    void ReadIndex(NumberRanges ranges, unsigned bits, const char16_t* failure);

    template <typename TEntry>
    static const TEntry& At(const CFIVocabulary::CTable<TEntry>& table, std::uint32_t index);
    const std::u16string& Deliver(const std::u16string& text, std::size_t freeLength);

    const CFastInfosetContext* m_settings;
    CXmlDocument* m_document;
    Octets m_data;
    std::size_t m_position = 0;
    std::u16string m_prefix;
    std::u16string m_nameSpace;
    std::u16string m_localName;
    std::u16string m_value;     ///< the latest literal
    std::uint32_t m_index = 0;  ///< the latest index
    bool m_isAddedToTable = false;
    const SXmlName* m_name = nullptr;  ///< the latest qualified one
    Names m_elementNames;
    Names m_attributeNames;
    CReferredText m_referredText;
    bool m_isBehindHead = false;  ///< no text has come since the head of an element
    std::unique_ptr<CFIVocabulary> m_vocabulary;
};

}  // namespace ZqXmlLib9
