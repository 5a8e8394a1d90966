#include "FastInfosetReader.h"

#include "../platform/TextEncodings.h"
#include "../xml/XmlTree.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/XmlSerializationContext.h>
#include <ZqXmlLib9/fastinfoset/FastInfosetBinaryData.h>
#include <ZqXmlLib9/xml/XmlDocument.h>
#include <ZqXmlLib9/xml/XmlElement.h>

#include <algorithm>
#include <array>
#include <utility>

namespace ZqXmlLib9 {
namespace {

// ITU-T X.891: what an octet says by its high bits.
constexpr unsigned kProcessingInstruction = 0xE1;
constexpr unsigned kComment = 0xE2;
constexpr unsigned kTerminator = 0xF0;
constexpr unsigned kTwoTerminators = 0xFF;

constexpr bool IsElement(unsigned octet)
{
    return octet < 0x80;
}
constexpr bool IsChunk(unsigned octet)
{
    return octet >= 0x80 && octet < 0xC0;
}
constexpr bool IsNotation(unsigned octet)
{
    return (octet & 0xFC) == 0xC0;
}
constexpr bool IsDocumentType(unsigned octet)
{
    return (octet & 0xFC) == 0xC4;
}
constexpr bool IsEntityReference(unsigned octet)
{
    return (octet & 0xFC) == 0xC8;
}
constexpr bool IsNamespaceAttribute(unsigned octet)
{
    return (octet & 0xFC) == 0xCC;
}
constexpr bool IsUnparsedEntity(unsigned octet)
{
    return (octet & 0xFE) == 0xD0;
}

/// Of identifiers or parts of a name, which of two that may follow do.
constexpr unsigned kHasFirst = 0x02;
constexpr unsigned kHasSecond = 0x01;

constexpr const char16_t* kIndexBit2Failed =
    u"Invalid Encoding of integers 1 To 2^20 type  on the second bit of an octet.";
constexpr const char16_t* kIndexBit3Failed =
    u"Invalid Encoding of integers 1 To 2^20 type  on the third bit of an octet.";
constexpr const char16_t* kIndexBit4Failed =
    u"Invalid Encoding of integers 1 To 2^20 type  on the fourth bit of an octet.";
constexpr const char16_t* kIndexOrZeroFailed =
    u"Invalid Encoding of integers 0 To 2^20 type  on the second bit of an octet.";
constexpr const char16_t* kLengthBit2Failed =
    u"Invalid NonEmptyOctetString type  on the second bit of an octet.";
constexpr const char16_t* kLengthBit5Failed =
    u"Invalid NonEmptyOctetString type  on the fifth bit of an octet.";
constexpr const char16_t* kLengthBit7Failed =
    u"Invalid NonEmptyOctetString type  on the seventh bit of an octet.";
constexpr const char16_t* kComponentFailed = u"Invalid Encoding of a document component.";

/// In code units: so much of the value of an attribute or the text behind the head of an element
/// costs little more than their node.
constexpr std::size_t kFreeLength = 64;

[[noreturn]] void Fail(const std::u16string& what)
{
    throw CZqException(u"Failed to parse FastInfoset. " + what);
}

}  // namespace

/// The forms of an encoded string: its kind stands above `shift` bits of the octet, and these bits
/// begin its length, or the number of its alphabet or algorithm.
struct CFastInfosetReader::SStringForm {
    unsigned shift;
    NumberRanges length;
    const char16_t* lengthFailed;

    static const SStringForm kBit3;
    static const SStringForm kBit5;
};

constexpr CFastInfosetReader::SStringForm CFastInfosetReader::SStringForm::kBit3{4, kLengthBit5,
                                                                                 kLengthBit5Failed};
constexpr CFastInfosetReader::SStringForm CFastInfosetReader::SStringForm::kBit5{2, kLengthBit7,
                                                                                 kLengthBit7Failed};

CFastInfosetReader::CFastInfosetReader(const CFastInfosetContext* settings, CXmlDocument* document)
    : CInstanceMonitor(u"CFastInfosetReader"), m_settings(settings), m_document(document)
{}

CFastInfosetReader::~CFastInfosetReader() = default;

bool CFastInfosetReader::ReadDocument(std::span<const std::byte> data)
{
    m_data = data;
    if (!ReadHeader())
        return false;
    m_vocabulary.reset(m_settings->GetUseGeneratedVocabulary()
                           ? new CFIVocabulary(*m_settings->GetVocabulary())
                           : new CFIVocabulary());
    ReadOptionalComponents();
    ReadDocumentChildren();
    return true;
}

CFastInfosetReader::Octets CFastInfosetReader::Advance(std::uint64_t count)
{
    if (count > m_data.size() - m_position)
        Fail(u"Unexpected End of File.");
    const Octets octets = m_data.subspan(m_position, count);
    m_position += count;
    return octets;
}

unsigned CFastInfosetReader::ReadOctet()
{
    return std::to_integer<unsigned>(Advance(1).front());
}

bool CFastInfosetReader::ReadHeader()
{
    if (ReadMagic())
        return true;
    for (const char* const declaration : std::span(kDeclarations).subspan(1))
        if (MatchDeclaration(declaration))
            return ReadMagic();
    return false;
}

/// More than these octets must be there.
bool CFastInfosetReader::ReadMagic()
{
    const Octets rest = m_data.subspan(m_position);
    const Octets magic = std::as_bytes(std::span(kMagic));
    if (rest.size() <= magic.size() || !std::ranges::equal(rest.first(magic.size()), magic))
        return false;
    m_position += magic.size();
    return true;
}

bool CFastInfosetReader::MatchDeclaration(std::string_view text)
{
    const Octets octets = std::as_bytes(std::span(text));
    if (m_data.size() <= octets.size() || !std::ranges::equal(m_data.first(octets.size()), octets))
        return false;
    m_position = octets.size();
    return true;
}

/// All of it is passed over: it has no place in the tree, and the tables that a document begins
/// with are those of the settings.
void CFastInfosetReader::ReadOptionalComponents()
{
    const unsigned present = ReadOctet();
    if ((present & 0x40) != 0)  // additional data: identifier and octets
        ReadSequence([this] {
            ReadOctetStringBit2();
            ReadOctetStringBit2();
        });
    if ((present & 0x20) != 0)
        ReadInitialVocabulary();
    if ((present & 0x10) != 0)
        ReadNotations();
    if ((present & 0x08) != 0)
        ReadUnparsedEntities();
    if ((present & 0x04) != 0)  // character encoding scheme
        ReadOctetStringBit2();
    if ((present & 0x02) != 0)  // standalone
        ReadOctet();
    if ((present & 0x01) != 0)  // version
        ReadNonIdentifyingStringBit1();
}

void CFastInfosetReader::ReadInitialVocabulary()
{
    const unsigned high = ReadOctet();
    const unsigned present = high << 8 | ReadOctet();
    if ((present & 0x1000) != 0)  // the URI of an external vocabulary
        ReadOctetStringBit2();
    // Alphabets, algorithms, prefixes, namespaces, local names, other names, other URIs.
    for (unsigned bit = 0x0800; bit >= 0x0020; bit >>= 1)
        if ((present & bit) != 0)
            ReadSequence([this] { ReadOctetStringBit2(); });
    // Attribute values, chunks, other strings.
    for (unsigned bit = 0x0010; bit >= 0x0004; bit >>= 1)
        if ((present & bit) != 0)
            ReadSequence([this] { ReadEncodedOctets(SStringForm::kBit3, ReadOctet()); });
    // Element and attribute names.
    for (unsigned bit = 0x0002; bit != 0; bit >>= 1)
        if ((present & bit) != 0)
            ReadSequence([this] { SkipSurrogate(); });
}

template <typename TRead>
void CFastInfosetReader::ReadSequence(TRead read)
{
    for (std::uint64_t i = ReadNumber(kSequenceLength, ReadOctet(), kComponentFailed); i > 0; --i)
        read();
}

/// A name as indices: of the prefix and the namespace, if present, and of the local name.
void CFastInfosetReader::SkipSurrogate()
{
    const unsigned present = ReadOctet();
    const int parts = 1 + ((present & kHasFirst) != 0 ? 1 : 0) + ((present & kHasSecond) != 0);
    for (int i = 0; i < parts; ++i)
        ReadIndex(kIndexBit2, ReadOctet() & 0x7F, kIndexBit2Failed);
}

void CFastInfosetReader::ReadIdentifiers(unsigned present)
{
    if ((present & kHasFirst) != 0)
        ReadIdentifyingString();
    if ((present & kHasSecond) != 0)
        ReadIdentifyingString();
}

void CFastInfosetReader::ReadNotations()
{
    unsigned octet = ReadOctet();
    for (; IsNotation(octet); octet = ReadOctet()) {
        ReadIdentifyingString();
        ReadIdentifiers(octet);
    }
    if (octet != kTerminator)
        Fail(kComponentFailed);
}

void CFastInfosetReader::ReadUnparsedEntities()
{
    unsigned octet = ReadOctet();
    for (; IsUnparsedEntity(octet); octet = ReadOctet()) {
        ReadIdentifyingString();
        ReadIdentifiers(octet | kHasFirst);
        ReadIdentifyingString();  // the notation
    }
    if (octet != kTerminator)
        Fail(kComponentFailed);
}

/// What follows the root isn't read.
void CFastInfosetReader::ReadDocumentChildren()
{
    for (;;) {
        const unsigned octet = ReadOctet();
        if (IsElement(octet)) {
            ReadElement(octet);
            return;
        }
        if (octet == kTerminator || octet == kTwoTerminators)
            return;
        if (octet == kProcessingInstruction)
            ReadProcessingInstruction();
        else if (octet == kComment)
            ReadNonIdentifyingStringBit1();
        else if (IsDocumentType(octet))
            ReadDocumentType(octet);
    }
}

void CFastInfosetReader::ReadDocumentType(unsigned octet)
{
    ReadIdentifiers(octet);
    for (octet = ReadOctet(); octet == kProcessingInstruction; octet = ReadOctet())
        ReadProcessingInstruction();
    if (octet != kTerminator)
        Fail(kComponentFailed);
}

void CFastInfosetReader::ReadProcessingInstruction()
{
    ReadIdentifyingString();
    ReadNonIdentifyingStringBit1();
}

/// Reads the root with all that is in it.
void CFastInfosetReader::ReadElement(unsigned octet)
{
    bool isRead = StartElement(octet) && CloseElement();
    while (!isRead) {
        octet = ReadOctet();
        if (IsElement(octet))
            isRead = StartElement(octet) && CloseElement();
        else if (IsChunk(octet))
            ReadChunk(octet);
        else if (octet == kTerminator)
            isRead = CloseElement();
        else if (octet == kTwoTerminators)
            isRead = CloseElement() || CloseElement();
        else if (octet == kProcessingInstruction)
            ReadProcessingInstruction();
        else if (octet == kComment)
            ReadNonIdentifyingStringBit1();
        else if (IsEntityReference(octet)) {
            ReadIdentifyingString();
            ReadIdentifiers(octet);
        }
        else
            Fail(u"Invalid Encoding of Element type.");
    }
}

/// Reads the head of an element.
/// \return whether the end of the attributes was that of the element too
bool CFastInfosetReader::StartElement(unsigned octet)
{
    const bool hasAttributes = (octet & 0x40) != 0;
    if ((octet & 0x3C) == 0x38) {
        for (octet = ReadOctet(); IsNamespaceAttribute(octet); octet = ReadOctet())
            ReadNamespaceAttribute(octet);
        octet = ReadOctet();
    }
    if ((octet & 0x3C) == 0x3C)
        ReadLiteralQName(octet, m_vocabulary->m_elementNames);
    else
        ReadIndexedQName(kIndexBit3, octet & 0x3F, kIndexBit3Failed, m_vocabulary->m_elementNames,
                         m_elementNames);
    CXmlElement* const element = m_document->AddElement(m_name);
    m_isBehindHead = true;
    if (!hasAttributes)
        return false;
    for (octet = ReadOctet(); IsElement(octet); octet = ReadOctet())
        ReadAttribute(element, octet);
    return octet == kTwoTerminators;
}

/// \return whether it was the root
bool CFastInfosetReader::CloseElement()
{
    m_document->GetTree().Close();
    return m_document->GetTree().GetDepth() == 0;
}

void CFastInfosetReader::ReadNamespaceAttribute(unsigned octet)
{
    ReadNamePart((octet & kHasFirst) != 0, m_vocabulary->m_prefixes, m_prefix);
    ReadNamePart((octet & kHasSecond) != 0, m_vocabulary->m_nameSpaces, m_nameSpace);
    m_document->SetAlias(m_prefix, m_nameSpace);
}

void CFastInfosetReader::ReadAttribute(CXmlElement* element, unsigned octet)
{
    if ((octet & 0x78) == 0x78)
        ReadLiteralQName(octet, m_vocabulary->m_attributeNames);
    else
        ReadIndexedQName(kIndexBit2, octet, kIndexBit2Failed, m_vocabulary->m_attributeNames,
                         m_attributeNames);
    const bool isIndex = ReadNonIdentifyingStringBit1();
    m_document->GetTree().AddAttribute(
        element, m_name, TakeValue(isIndex, m_vocabulary->m_attributeValues, kFreeLength));
}

void CFastInfosetReader::ReadChunk(unsigned octet)
{
    const bool isIndex = ReadNonIdentifyingStringBit3(octet);
    // No node comes with another chunk, so all of it counts.
    const std::size_t freeLength = std::exchange(m_isBehindHead, false) ? kFreeLength : 0;
    m_document->AppendTextExcludingCR(TakeValue(isIndex, m_vocabulary->m_chunks, freeLength));
}

/// The value that was read: from its table, or into it if it says so.
std::u16string_view CFastInfosetReader::TakeValue(bool isIndex, Table& table,
                                                  std::size_t freeLength)
{
    if (isIndex)
        return m_index == 0 ? std::u16string_view() : Deliver(At(table, m_index), freeLength);
    if (m_isAddedToTable)
        CFIVocabulary::AddValueToVector(m_value, table);
    return m_value;
}

void CFastInfosetReader::ReadIndexedQName(NumberRanges ranges, unsigned bits,
                                          const char16_t* failure,
                                          const CFIVocabulary::CFIQNameTable& table, Names& names)
{
    ReadIndex(ranges, bits, failure);
    const CFIVocabulary::CQNameParts& parts = At(table, m_index);
    const std::u16string_view uri =
        parts.nameSpace != 0
            ? Deliver(At(m_vocabulary->m_nameSpaces, parts.nameSpace), kFreeNameLength)
            : std::u16string_view();
    const std::u16string_view localName =
        Deliver(At(m_vocabulary->m_localNames, parts.localName), kFreeNameLength);
    if (names.size() < m_index)
        names.resize(table.m_entries.size());
    m_name = names[m_index - 1];
    if (m_name == nullptr)
        m_name = names[m_index - 1] = m_document->GetTree().FindName(uri, localName);
}

void CFastInfosetReader::ReadLiteralQName(unsigned octet, CFIVocabulary::CFIQNameTable& table)
{
    const bool hasPrefix = (octet & kHasFirst) != 0;
    const bool hasNamespace = (octet & kHasSecond) != 0;
    if (hasPrefix && !hasNamespace)
        Fail(u"Invalid QName type Prefix without Namespace.");
    const std::uint32_t prefix = ReadNamePart(hasPrefix, m_vocabulary->m_prefixes, m_prefix);
    const std::uint32_t nameSpace =
        ReadNamePart(hasNamespace, m_vocabulary->m_nameSpaces, m_nameSpace);
    const std::uint32_t localName = ReadNamePart(true, m_vocabulary->m_localNames, m_localName);
    CFIVocabulary::AddQNameToVector(prefix, nameSpace, localName, table);
    m_name = m_document->GetTree().FindName(m_nameSpace, m_localName);
}

/// \return the index of the part, 0 if there is none
std::uint32_t CFastInfosetReader::ReadNamePart(bool isPresent, Table& table, std::u16string& part)
{
    part.clear();
    if (!isPresent)
        return 0;
    if (ReadIdentifyingString()) {
        part = Deliver(At(table, m_index), kFreeNameLength);
        return m_index;
    }
    part = m_value;
    return table.Append(m_value);
}

/// \return true: an index was read; false: a literal
bool CFastInfosetReader::ReadIdentifyingString()
{
    const unsigned octet = ReadOctet();
    if (octet >= 0x80) {
        ReadIndex(kIndexBit2, octet & 0x7F, kIndexBit2Failed);
        return true;
    }
    ReadUtf8(ReadOctetString(kLengthBit2, octet, kLengthBit2Failed));
    return false;
}

/// \return true: an index was read, 0 for the empty string; false: a literal
bool CFastInfosetReader::ReadNonIdentifyingStringBit1()
{
    const unsigned octet = ReadOctet();
    if (octet < 0x80) {
        m_isAddedToTable = (octet & 0x40) != 0;
        ReadEncodedCharacterString(SStringForm::kBit3, octet);
        return false;
    }
    if (octet == 0xFF) {
        m_index = 0;
        return true;
    }
    try {
        ReadIndex(kIndexBit2, octet & 0x7F, kIndexOrZeroFailed);
    }
    catch (const CZqException&) {
        Fail(kIndexOrZeroFailed);  // also where the data end
    }
    return true;
}

/// \return true: an index was read; false: a literal
bool CFastInfosetReader::ReadNonIdentifyingStringBit3(unsigned octet)
{
    if ((octet & 0x20) != 0) {
        ReadIndex(kIndexBit4, octet & 0x1F, kIndexBit4Failed);
        return true;
    }
    m_isAddedToTable = (octet & 0x10) != 0;
    ReadEncodedCharacterString(SStringForm::kBit5, octet);
    return false;
}

CFastInfosetReader::SEncoded CFastInfosetReader::ReadEncodedOctets(const SStringForm& form,
                                                                   unsigned octet)
{
    const unsigned mask = (1U << form.shift) - 1;
    SEncoded encoded{static_cast<EKind>(octet >> form.shift & 3), 0, {}};
    if (encoded.kind == EKind::Alphabet || encoded.kind == EKind::Algorithm) {
        const unsigned next = ReadOctet();
        encoded.number = ((octet & mask) << (8 - form.shift) | next >> form.shift) + 1;
        octet = next;
    }
    encoded.octets = ReadOctetString(form.length, octet & mask, form.lengthFailed);
    return encoded;
}

void CFastInfosetReader::ReadEncodedCharacterString(const SStringForm& form, unsigned octet)
{
    const SEncoded encoded = ReadEncodedOctets(form, octet);
    switch (encoded.kind) {
    case EKind::Utf8: ReadUtf8(encoded.octets); break;
    case EKind::Utf16: ReadUtf16(encoded.octets); break;
    case EKind::Alphabet: ReadRestrictedAlphabetString(encoded.octets, encoded.number); break;
    case EKind::Algorithm: ReadEncodedString(encoded.octets, encoded.number); break;
    }
}

/// A text that isn't well-formed is empty, without a word.
void CFastInfosetReader::ReadUtf8(Octets octets)
{
    m_value.clear();
    const std::string_view text(reinterpret_cast<const char*>(octets.data()), octets.size());
    if (AppendAsUtf16(text, m_value) != kWholeText)
        m_value.clear();
}

void CFastInfosetReader::ReadUtf16(Octets octets)
{
    m_value.clear();
    for (; octets.size() >= 2; octets = octets.subspan(2))
        m_value.push_back(static_cast<char16_t>(std::to_integer<unsigned>(octets[0]) << 8
                                                | std::to_integer<unsigned>(octets[1])));
}

void CFastInfosetReader::ReadRestrictedAlphabetString(Octets octets, std::uint32_t alphabet)
{
    if (alphabet > m_vocabulary->m_alphabets.size())
        Fail(FormatString(u"Unknown restricted alphabet [%d].", alphabet));
    const std::u16string& characters = m_vocabulary->m_alphabets[alphabet - 1];
    m_value.clear();
    for (const std::byte& octet : octets)
        for (const std::byte half : {octet >> 4, octet & std::byte{0x0F}}) {
            const auto place = std::to_integer<unsigned>(half);
            const bool isPadding = &octet == &octets.back() && m_value.size() % 2 == 1;
            if (place != kNoCharacter)
                m_value.push_back(characters[place]);
            else if (!isPadding)
                Fail(u"A restricted alphabet has no character of this number.");
        }
}

void CFastInfosetReader::ReadEncodedString(Octets octets, std::uint32_t algorithm)
{
    constexpr std::uint32_t kCData = 10;
    if (algorithm == kCData)
        ReadUtf8(octets);
    else
        m_value = CFastInfosetBinaryData::GetAsString(
            algorithm, {reinterpret_cast<const unsigned char*>(octets.data()), octets.size()});
    // Booleans take a bit each.
    Deliver(m_value, 8 * octets.size());
}

CFastInfosetReader::Octets CFastInfosetReader::ReadOctetString(NumberRanges ranges, unsigned bits,
                                                               const char16_t* failure)
{
    return Advance(ReadNumber(ranges, bits, failure));
}

CFastInfosetReader::Octets CFastInfosetReader::ReadOctetStringBit2()
{
    return ReadOctetString(kLengthBit2, ReadOctet() & 0x7F, kLengthBit2Failed);
}

/// \param bits  the field's part of its first octet, which has been read
std::uint64_t CFastInfosetReader::ReadNumber(NumberRanges ranges, unsigned bits,
                                             const char16_t* failure)
{
    const auto range = std::ranges::find_if(
        ranges, [bits](const SNumberRange& r) { return bits >= r.prefix && bits < r.end; });
    if (range == ranges.end())
        Fail(failure);
    std::uint64_t offset = bits - range->prefix;
    for (const std::byte octet : Advance(range->octets))
        offset = offset << 8 | std::to_integer<unsigned>(octet);
    if (range->octets == 3)
        offset %= kMaxIndex;  // what stands above is padding
    return range->first + offset;
}

void CFastInfosetReader::ReadIndex(NumberRanges ranges, unsigned bits, const char16_t* failure)
{
    const std::uint64_t index = ReadNumber(ranges, bits, failure);
    if (index > kMaxIndex)
        Fail(failure);
    m_index = static_cast<std::uint32_t>(index);
}

template <typename TEntry>
const TEntry& CFastInfosetReader::At(const CFIVocabulary::CTable<TEntry>& table,
                                     std::uint32_t index)
{
    if (index < 1 || index > table.m_entries.size())
        Fail(FormatString(u"The index %d is beyond its table.", index));
    return table.m_entries[index - 1];
}

/// Counts a text that comes by an index, or out of numbers: a short document may name a long one a
/// million times.
const std::u16string& CFastInfosetReader::Deliver(const std::u16string& text,
                                                  std::size_t freeLength)
{
    const int limit = m_document->GetContext().GetMaxAmplification();
    if (!m_referredText.Add(text.size(), freeLength, m_data.size(), limit))
        Fail(FormatString(CReferredText::kTooMuch, limit) + u'.');
    return text;
}

}  // namespace ZqXmlLib9
