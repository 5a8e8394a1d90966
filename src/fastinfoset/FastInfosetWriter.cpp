#include "FastInfosetFormat.h"

#include "../engine/XmlNames.h"
#include "../platform/TextEncodings.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/fastinfoset/FastInfosetBinaryData.h>
#include <ZqXmlLib9/fastinfoset/FastInfosetWriter.h>

#include <algorithm>
#include <array>
#include <utility>

namespace ZqXmlLib9 {
namespace {

constexpr std::u16string_view kDefaultVocabularyUri = u"urn:zqxmllib9:vocabulary";

// ITU-T X.891: what an octet says by its high bits.
constexpr unsigned kHasAttributes = 0x40;
constexpr unsigned kNamespaceAttributes = 0x38;
constexpr unsigned kNamespaceAttribute = 0xCC;
constexpr unsigned kHasPrefix = 0x02;
constexpr unsigned kHasNamespace = 0x01;
constexpr unsigned kIsIndex = 0x80;
constexpr unsigned kEmptyValue = 0xFF;
constexpr unsigned kTerminator = 0xF0;
constexpr unsigned kTwoTerminators = 0xFF;

/// The stream gets its octets in pieces of this size.
constexpr std::size_t kFlushLimit = 4096;

/// The encoding algorithm of plain text.
constexpr std::uint32_t kCData = 10;

void AppendNumber(std::string& octets, NumberRanges ranges, unsigned bits, std::uint64_t number)
{
    const SNumberRange* range = ranges.data();
    for (const SNumberRange& other : ranges)
        if (other.first <= number)
            range = &other;
    const std::uint64_t offset = number - range->first;
    octets.push_back(static_cast<char>(bits | range->prefix | offset >> (8 * range->octets)));
    for (unsigned i = range->octets; i-- > 0;)
        octets.push_back(static_cast<char>(offset >> (8 * i)));
}

[[noreturn]] void Fail(const std::u16string& what)
{
    throw CZqException(u"Failed to write FastInfoset. " + what);
}

void RequireOctets(std::size_t count)
{
    if (count == 0)
        Fail(u"An empty name can not be written.");
}

/// Of a name of a document, which has few of them.
std::size_t HashName(std::u16string_view name)
{
    const auto unit = [&](std::size_t place) -> std::size_t { return name[place]; };
    return name.empty() ? 0
                        : name.size() * 5 + unit(name.size() - 1) * 37 + unit(0) * 11
                              + unit(name.size() / 2);
}

}  // namespace

/// The forms of a name: on the third bit of an octet for elements, on the second for attributes.
struct __attribute__((visibility("hidden"))) CFastInfosetWriter::SNameForm {
    NumberRanges index;
    unsigned literal;

    static const SNameForm kElement;
    static const SNameForm kAttribute;
};

constexpr CFastInfosetWriter::SNameForm CFastInfosetWriter::SNameForm::kElement{kIndexBit3, 0x3C};
constexpr CFastInfosetWriter::SNameForm CFastInfosetWriter::SNameForm::kAttribute{kIndexBit2, 0x78};

/// The forms of a value: on the third bit of an octet for text, on the first for attributes.
struct __attribute__((visibility("hidden"))) CFastInfosetWriter::SStringForm {
    unsigned bits;  ///< of every first octet
    unsigned isIndex;
    NumberRanges index;
    unsigned addToTable;
    unsigned alphabet;
    unsigned algorithm;
    unsigned indexShift;  ///< how many bits of an alphabet or algorithm stand in the second octet
    NumberRanges length;
    const char16_t* unknownKind;

    static const SStringForm kText;
    static const SStringForm kAttributeValue;
};

constexpr CFastInfosetWriter::SStringForm CFastInfosetWriter::SStringForm::kText{
    0x80, 0x20,        kIndexBit4,
    0x10, 0x08,        0x0C,
    6,    kLengthBit7, u"Unknown encoding in EncodedCharacterStringBit7."};
constexpr CFastInfosetWriter::SStringForm CFastInfosetWriter::SStringForm::kAttributeValue{
    0x00, 0x80,        kIndexBit2,
    0x40, 0x20,        0x30,
    4,    kLengthBit5, u"Unknown encoding in EncodedCharacterStringBit5."};

CFastInfosetWriter::CFastInfosetWriter(const CFastInfosetContext* settings, CBinaryStream* stream)
    : CXmlWriter(u"CFastInfosetWriter"), m_stream(stream), m_settings(settings),
      m_vocabulary(settings->GetUseGeneratedVocabulary()
                       ? new CFIVocabulary(*settings->GetVocabulary())
                       : new CFIVocabulary())
{}

CFastInfosetWriter::~CFastInfosetWriter() = default;

void CFastInfosetWriter::Close()
{
    FlushPendingElement(false);
    Commit();
    Flush();
    CXmlWriter::Close();
}

void CFastInfosetWriter::PutAll(Octets octets)
{
    m_octets.append(reinterpret_cast<const char*>(octets.data()), octets.size());
}

void CFastInfosetWriter::Commit()
{
    m_committed = m_octets.size();
    if (m_committed >= kFlushLimit)
        Flush();
}

void CFastInfosetWriter::Flush()
{
    if (m_committed == 0)
        return;
    // Should the stream fail, these octets belong to an event that did.
    const std::size_t count = std::exchange(m_committed, 0);
    m_stream->Append(reinterpret_cast<const unsigned char*>(m_octets.data()), count);
    m_octets.clear();
}

void CFastInfosetWriter::WriteDocumentHeader(FInfoDecl declaration)
{
    const auto index = static_cast<std::size_t>(declaration);
    if (index >= kDeclarations.size())
        Fail(FormatString(u"Invalid declaration [%d]", declaration));
    RequireIntact();
    m_octets += kDeclarations[index];
    PutAll(kMagic);
    if (!m_settings->GetUseGeneratedVocabulary()) {
        Put(0x00);  // no optional component
    }
    else {
        Put(0x20);  // an initial vocabulary, and in it
        Put(0x10);  // the URI of an external one
        Put(0x00);
        const std::u16string& uri = m_settings->GetExternalVocabularyURI();
        AppendUtf8(kLengthBit2, 0, uri.empty() ? kDefaultVocabularyUri : uri);
    }
    Commit();
}

void CFastInfosetWriter::WriteDocumentEnd()
{
    RequireIntact();
    Put(m_isTerminatorPending ? kTwoTerminators : kTerminator);
    Commit();
    Flush();
}

void CFastInfosetWriter::WriteComment(std::u16string_view) {}

void CFastInfosetWriter::WriteProcessingInstruction(std::u16string_view)
{
    FlushPendingElement(false);
    Commit();
}

void CFastInfosetWriter::WriteInLineSchema(std::u16string_view) {}

/// An event that failed midway leaves octets behind, and no document can be made with them.
void CFastInfosetWriter::RequireIntact() const
{
    if (m_octets.size() != m_committed)
        throw CZqInvalidStateException(u"The Fast Infoset document has failed before");
}

// The head of an element says whether attributes follow, so it waits for the next event.
void CFastInfosetWriter::FlushPendingElement(bool attributesFollow)
{
    RequireIntact();
    if (m_pending == nullptr)
        return;
    unsigned bits = attributesFollow ? kHasAttributes : 0;
    const bool isRoot = GetContext() == nullptr;
    if (isRoot || !m_declarations.empty()) {
        Put(bits | kNamespaceAttributes);
        bits = 0;
        WriteNamespaceAttributes(isRoot);
        Put(kTerminator);
    }
    const std::u16string& uri = m_pending->GetNamespaceURI();
    if (!uri.empty() && !IsSameName(uri, m_pending->GetEffectiveDefaultNamespace())) {
        if (m_pending->GetPrefix(uri).empty())
            m_pending->SetNamespace(uri, m_pending->CreateUniquePrefix());
        m_pending->m_prefix = m_pending->GetPrefix(uri);
    }
    AppendQName(SNameForm::kElement, bits, m_pending->m_prefix, uri, m_pending->GetLocalName(),
                m_vocabulary->m_elementNameMap);
    m_pending->m_hasAttributes = attributesFollow;
    PushContext(std::move(m_pending));
}

void CFastInfosetWriter::WriteNamespaceAttributes(bool isRoot)
{
    const auto write = [this](std::u16string_view prefix, std::u16string_view uri) {
        Put(kNamespaceAttribute | (prefix.empty() ? 0 : kHasPrefix) | kHasNamespace);
        if (!prefix.empty())
            AppendIdentifying(prefix, m_vocabulary->m_prefixMap, &CFIVocabulary::AddPrefixName);
        AppendIdentifying(uri, m_vocabulary->m_nameSpaceMap, &CFIVocabulary::AddNamespaceName);
    };
    if (isRoot) {
        if (!GetDefaultNamespace().empty())
            write({}, GetDefaultNamespace());
        for (const auto& [uri, prefix] : GetNamespaceTable())
            if (!uri.starts_with(kXmlNamespace))
                write(prefix, uri);
    }
    for (const auto& [prefix, uri] : m_declarations)
        write(prefix, uri);
    m_declarations.clear();
}

void CFastInfosetWriter::CloseAttributes()
{
    CXmlWriterContext* const context = GetContext();
    if (context == nullptr || !context->m_isStartTagOpen)
        return;
    if (context->m_hasAttributes)
        Put(kTerminator);
    context->m_isStartTagOpen = false;
}

void CFastInfosetWriter::CloseSibling()
{
    if (m_isTerminatorPending)
        Put(kTerminator);
    m_isTerminatorPending = false;
}

void CFastInfosetWriter::WriteStartElement(std::u16string_view name, std::u16string_view uri)
{
    FlushPendingElement(false);
    if (GetContext() == nullptr && m_isTerminatorPending)
        throw CZqInvalidStateException(u"A Fast Infoset document has one root");
    std::unique_ptr<CXmlWriterContext> context = MakeContext(name, uri);
    CloseSibling();
    CloseAttributes();
    if (GetContext() != nullptr)
        ++GetContext()->m_childCount;
    m_pending = std::move(context);
    Commit();
}

void CFastInfosetWriter::WriteText(std::u16string_view text, ItemType type)
{
    FlushPendingElement(false);
    RequireContext();
    CloseAttributes();
    if (!text.empty()) {
        CloseSibling();
        AppendValue(SStringForm::kText, text, m_vocabulary->m_chunkMap,
                    m_settings->GetElementMaxAddLength(), type);
    }
    Commit();
}

void CFastInfosetWriter::WriteEndElement()
{
    FlushPendingElement(false);
    RequireContext();
    CloseAttributes();
    if (m_isTerminatorPending)
        Put(kTwoTerminators);
    m_isTerminatorPending = !m_isTerminatorPending;
    PopContext();
    Commit();
}

/// The open element, whose head has announced attributes.
CXmlWriter::CXmlWriterContext& CFastInfosetWriter::RequireAttributeList() const
{
    CXmlWriterContext& context = RequireStartTag();
    if (!context.m_hasAttributes)
        throw CZqException(u"Attributes must be added before elements");
    return context;
}

void CFastInfosetWriter::WriteAttribute(std::u16string_view name, std::u16string_view uri,
                                        std::u16string_view value, ItemType type)
{
    FlushPendingElement(true);
    CXmlWriterContext& context = RequireAttributeList();
    if (!uri.empty() && context.GetPrefix(uri).empty())
        context.SetNamespace(uri, context.CreateUniquePrefix());
    AppendQName(SNameForm::kAttribute, 0, context.GetPrefix(uri), uri, name,
                m_vocabulary->m_attributeNameMap);
    AppendAttributeValue(value, type);
    Commit();
}

/// The prefix by which readers find the namespace of a type, or nothing.
std::u16string_view CFastInfosetWriter::GetDeclaredPrefix(std::u16string_view uri) const
{
    for (const NamespaceTable* const table : {&GetNamespaceTable(), &m_typePrefixes})
        if (const auto entry = table->find(uri); entry != table->end())
            return entry->second;
    return {};
}

// Readers keep one list of prefixes for a whole document, without scopes: so a namespace has the
// same prefix in all declarations, and no other namespace ever gets it.
void CFastInfosetWriter::DeclareForType(CXmlWriterContext& context, std::u16string_view uri)
{
    std::u16string prefix(GetDeclaredPrefix(uri));
    if (prefix.empty()) {
        NamespaceTable taken = context.GetEffectiveNamespaces();
        taken.erase(std::u16string(uri));
        for (const auto* const table : {&GetNamespaceTable(), &std::as_const(m_typePrefixes)})
            for (const auto& [other, otherPrefix] : *table)
                taken.insert_or_assign(other, otherPrefix);
        prefix = CreateUniquePrefix(taken);
        m_typePrefixes.emplace(uri, prefix);
    }
    m_declarations.reserve(m_declarations.size() + 1);
    std::pair declaration(std::move(prefix), std::u16string(uri));
    context.SetNamespace(uri, declaration.first);
    m_declarations.push_back(std::move(declaration));
}

void CFastInfosetWriter::WriteXsiType(std::u16string_view uri, std::u16string_view typeName,
                                      ItemType type)
{
    CXmlWriterContext& context = m_pending != nullptr ? *m_pending : RequireAttributeList();
    if (uri.empty() || uri == context.GetEffectiveDefaultNamespace()) {
        WriteAttribute(u"type", kXsiNamespace, typeName, type);
        return;
    }
    const std::u16string_view declared = GetDeclaredPrefix(uri);
    if (declared.empty() || declared != context.GetPrefix(uri)) {
        if (m_pending == nullptr)
            Fail(FormatString(
                u"The namespace [%s] of a type has no prefix. Register an alias for it.", uri));
        DeclareForType(context, uri);
    }
    FlushPendingElement(true);
    const std::u16string prefix(context.GetPrefix(uri));
    AppendQName(SNameForm::kAttribute, 0, prefix, kXsiNamespace, u"type",
                m_vocabulary->m_attributeNameMap);
    AppendAttributeValue(prefix + u':' + std::u16string(typeName), type);
    Commit();
}

void CFastInfosetWriter::WriteXsiNil()
{
    WriteAttribute(u"nil", kXsiNamespace, u"true", ItemType_boolean);
}

void CFastInfosetWriter::AppendOctetString(NumberRanges lengths, unsigned bits, Octets octets)
{
    RequireOctets(octets.size());
    AppendNumber(m_octets, lengths, bits, octets.size());
    PutAll(octets);
}

void CFastInfosetWriter::AppendUtf8(NumberRanges lengths, unsigned bits, std::u16string_view text)
{
    const SWellFormedPart part = MeasureAsUtf8(text);
    if (part.units != text.size())
        static_cast<void>(ToUtf8(text));  // which fails, and says where
    RequireOctets(part.octets);
    AppendNumber(m_octets, lengths, bits, part.octets);
    m_octets.resize(m_octets.size() + part.octets);
    WriteAsUtf8(text, m_octets.data() + m_octets.size() - part.octets);
}

void CFastInfosetWriter::AppendIdentifying(std::u16string_view text, const CFIVocabulary::Map& map,
                                           void (CFIVocabulary::*add)(std::u16string))
{
    std::uint32_t index = 0;
    if (CFIVocabulary::FindIndex(map, text, index)) {
        AppendNumber(m_octets, kIndexBit2, kIsIndex, index);
        return;
    }
    AppendUtf8(kLengthBit2, 0, text);
    ((*m_vocabulary).*add)(std::u16string(text));
}

void CFastInfosetWriter::AppendQName(const SNameForm& form, unsigned bits,
                                     std::u16string_view prefix, std::u16string_view uri,
                                     std::u16string_view name, CFIVocabulary::Map& map)
{
    SRecentName& recent = m_recentNames[HashName(name) % m_recentNames.size()];
    if (recent.map == &map && IsSameName(recent.name, name) && IsSameName(recent.uri, uri)
        && IsSameName(recent.prefix, prefix)) {
        AppendNumber(m_octets, form.index, bits, recent.index);
        return;
    }
    CFIVocabulary::MakeKey(prefix, uri, name, m_key);
    std::uint32_t index = 0;
    if (CFIVocabulary::FindIndex(map, m_key, index)) {
        recent.map = nullptr;
        recent.name = name;
        recent.uri = uri;
        recent.prefix = prefix;
        recent.index = index;
        recent.map = &map;
        AppendNumber(m_octets, form.index, bits, index);
        return;
    }
    Put(bits | form.literal | (prefix.empty() ? 0 : kHasPrefix)
        | (uri.empty() ? 0 : kHasNamespace));
    if (!prefix.empty())
        AppendIdentifying(prefix, m_vocabulary->m_prefixMap, &CFIVocabulary::AddPrefixName);
    if (!uri.empty())
        AppendIdentifying(uri, m_vocabulary->m_nameSpaceMap, &CFIVocabulary::AddNamespaceName);
    AppendIdentifying(name, m_vocabulary->m_localNameMap, &CFIVocabulary::AddLocalName);
    CFIVocabulary::AddValueToMap(m_key, map);
}

void CFastInfosetWriter::AppendAttributeValue(std::u16string_view value, ItemType type)
{
    if (value.empty())
        Put(kEmptyValue);
    else
        AppendValue(SStringForm::kAttributeValue, value, m_vocabulary->m_attributeValueMap,
                    m_settings->GetAttributeMaxAddLength(), type);
}

void CFastInfosetWriter::AppendValue(const SStringForm& form, std::u16string_view text,
                                     CFIVocabulary::Map& map, std::uint32_t maxAddLength,
                                     ItemType type)
{
    if (text.size() >= maxAddLength) {
        AppendEncoded(form, form.bits, text, type);
        return;
    }
    std::uint32_t index = 0;
    if (CFIVocabulary::FindIndex(map, text, index)) {
        AppendNumber(m_octets, form.index, form.bits | form.isIndex, index);
        return;
    }
    if (!IsKept(text, type)) {
        AppendEncoded(form, form.bits, text, type);
        return;
    }
    AppendEncoded(form, form.bits | form.addToTable, text, type);
    CFIVocabulary::AddValueToMap(text, map);
}

// A reader's table gets the text that the octets stand for: "1.50" as a float is "1.5" there, and
// must not be what another "1.50" refers to.
bool CFastInfosetWriter::IsKept(std::u16string_view text, ItemType type) const
{
    const auto [kind, index] = m_settings->GetEncoding(type);
    if (kind != 2 || index < 1 || index > kCData)
        return true;
    std::array<unsigned char, 8> number;
    if (const std::size_t count = CFastInfosetBinaryData::EncodeNumber(index, text, number))
        return CFastInfosetBinaryData::GetAsString(index, {number.data(), count}) == text;
    CFastInfosetBinaryData data;
    data.SetAsEncodedString(index, text);
    // What has no octets is written as text.
    return index == kCData || data.GetLength() == 0 || data.GetAsString(index) == text;
}

void CFastInfosetWriter::AppendEncoded(const SStringForm& form, unsigned bits,
                                       std::u16string_view text, ItemType type)
{
    const auto [kind, index] = m_settings->GetEncoding(type);
    const auto append = [&, number = index - 1](unsigned marker, Octets octets) {
        // What has no octets has no such form, but is a text all the same.
        if (octets.empty()) {
            AppendUtf8(form.length, bits, text);
            return;
        }
        Put(bits | marker | number >> form.indexShift);
        AppendOctetString(form.length, number << (8 - form.indexShift) & 0xFF, octets);
    };
    switch (kind) {
    case 0: AppendUtf8(form.length, bits, text); break;
    case 1: {
        if (index < 1 || index > m_vocabulary->m_alphabets.size())
            Fail(FormatString(u"Invalid Restricted Alphabet value [%d]", index));
        const std::string packed = PackByAlphabet(index, text);
        append(form.alphabet,
               {reinterpret_cast<const unsigned char*>(packed.data()), packed.size()});
        break;
    }
    case 2: {
        if (index < 1 || index > kCData)
            Fail(FormatString(u"Invalid Encoding Algorithm value [%d]", index));
        std::array<unsigned char, 8> number;
        if (const std::size_t count = CFastInfosetBinaryData::EncodeNumber(index, text, number)) {
            append(form.algorithm, {number.data(), count});
            break;
        }
        CFastInfosetBinaryData data;
        data.SetAsEncodedString(index, text);
        append(form.algorithm, {data.GetData(), data.GetLength()});
        break;
    }
    default: Fail(form.unknownKind);
    }
}

std::string CFastInfosetWriter::PackByAlphabet(std::uint32_t index, std::u16string_view text) const
{
    const std::u16string& alphabet = m_vocabulary->m_alphabets[index - 1];
    std::string octets;
    octets.reserve((text.size() + 1) / 2);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t place = alphabet.find(text[i]);
        if (place == std::u16string::npos)
            Fail(u"Invalid character not found for Restricted Alphabet.");
        if (i % 2 == 0)
            octets.push_back(static_cast<char>(place << 4 | kNoCharacter));
        else
            octets.back() = static_cast<char>((octets.back() & 0xF0) | static_cast<int>(place));
    }
    return octets;
}

}  // namespace ZqXmlLib9
