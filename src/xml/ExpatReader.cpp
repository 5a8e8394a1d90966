#include "ExpatReader.h"
#include "XmlTree.h"

#include "../engine/XmlNames.h"

#include "../platform/Ascii.h"
#include "../platform/TextEncodings.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/engine/XmlSerializationContext.h>
#include <ZqXmlLib9/xml/XmlDocument.h>

#include <algorithm>
#include <expat.h>
#include <new>
#include <utility>

namespace ZqXmlLib9 {
namespace {

static_assert(sizeof(XML_Char) == sizeof(char16_t));

/// Between the URI and the local name of a resolved name; no URI that Expat accepts holds it.
constexpr char16_t kSeparator = u'|';

/// `XML_Parse` takes its length as an int; larger buffers are fed in pieces of this many octets.
constexpr std::size_t kMaxPiece = std::size_t{1} << 30;

/// How many times the size of the document the memory of the parser may be, beyond what is free.
constexpr int kMaxMemory = 100;

/// Expat goes through the attributes that are declared for an element at each of its kind.
constexpr int kMaxDeclaredAttributes = 1024;

/// In code units: what a default value of an attribute costs besides its text.
constexpr std::size_t kAttributeCost = 32;

/// The UTF-16 behind a pointer of Expat.
const char16_t* Wide(const XML_Char* text)
{
    return reinterpret_cast<const char16_t*>(text);
}

/// The encodings that the parser knows by name.
constexpr std::u16string_view kOtherEncodings[] = {u"utf-8", u"us-ascii", u"iso-8859-1",
                                                   u"utf-16le", u"utf-16be"};

/// Whether the text of an entity refers to another entity that is declared in a document.
bool RefersToEntity(std::u16string_view text)
{
    constexpr std::u16string_view kPredefined[] = {u"amp;", u"lt;", u"gt;", u"apos;", u"quot;"};
    for (std::size_t i = 0; (i = text.find(u'&', i)) != std::u16string_view::npos;) {
        const std::u16string_view name = text.substr(++i);
        if (std::ranges::none_of(kPredefined, [&](auto p) { return name.starts_with(p); }))
            return true;
    }
    return false;
}

/// The defect that Utf16Input.h tells of is left where an attribute refers to an entity.
/// \param what  a format that takes `name`
void RequireWhole(std::u16string_view value, const char16_t* what, std::u16string_view name)
{
    if (FindUnpairedSurrogate(value) != kWholeText)
        throw CZqException(FormatString(what, name)
                           + u" can not be read, the parser cut a character");
}

/// Of text that ends in a NUL: names come by the million, and this is faster than unit by unit.
std::size_t MeasureName(const char16_t* text)
{
    const char16_t* end = text;
    while (end[0] != 0 && end[1] != 0 && end[2] != 0 && end[3] != 0)
        end += 4;
    while (*end != 0)
        ++end;
    return static_cast<std::size_t>(end - text);
}

/// \param full  as Expat gives it: the local name, and in front of it the URI if there is one
bool IsName(const SXmlName& name, std::u16string_view full)
{
    const std::u16string_view uri = *name.uri;
    if (uri.empty())
        return IsSameName(full, name.localName);
    return full.size() == uri.size() + 1 + name.localName.size() && full[uri.size()] == kSeparator
           && IsSameName(full.substr(uri.size() + 1), name.localName)
           && IsSameName(full.substr(0, uri.size()), uri);
}

}  // namespace

/// The functions that Expat calls. None lets an exception out; after the first one they do
/// nothing, since Expat may still call them until it stops.
struct SExpatCallbacks {
    template <typename TStep>
    static void Guard(void* userData, TStep&& step) noexcept
    {
        auto* const reader = static_cast<CExpatReader*>(userData);
        if (reader->m_failure)
            return;
        try {
            step(*reader);
        }
        catch (...) {
            reader->m_failure = std::current_exception();
            XML_StopParser(reader->m_parser.get(), XML_FALSE);
        }
    }

    static void XMLCALL StartElement(void* userData, const XML_Char* name,
                                     const XML_Char** attributes)
    {
        Guard(userData, [&](CExpatReader& reader) {
            reader.OnStartElement(Wide(name), reinterpret_cast<const char16_t* const*>(attributes));
        });
    }

    static void XMLCALL EndElement(void* userData, const XML_Char*)
    {
        Guard(userData, [](CExpatReader& reader) { reader.OnEndElement(); });
    }

    static void XMLCALL CharacterData(void* userData, const XML_Char* text, int length)
    {
        Guard(userData, [&](CExpatReader& reader) {
            reader.OnCharacterData({Wide(text), static_cast<std::size_t>(length)});
        });
    }

    static void XMLCALL StartCData(void* userData)
    {
        Guard(userData, [](CExpatReader& reader) { reader.OnStartCData(); });
    }

    static void XMLCALL EndCData(void* userData)
    {
        Guard(userData, [](CExpatReader& reader) { reader.OnEndCData(); });
    }

    static void XMLCALL StartNamespace(void* userData, const XML_Char* prefix, const XML_Char* uri)
    {
        Guard(userData, [&](CExpatReader& reader) {
            reader.OnStartNamespace(TextOrEmpty(Wide(prefix)), TextOrEmpty(Wide(uri)));
        });
    }

    static void XMLCALL XmlDeclaration(void* userData, const XML_Char*, const XML_Char* encoding,
                                       int)
    {
        Guard(userData, [&](const CExpatReader& reader) {
            reader.OnXmlDeclaration(TextOrEmpty(Wide(encoding)));
        });
    }

    static void XMLCALL EntityDeclaration(void* userData, const XML_Char*, int,
                                          const XML_Char* value, int length, const XML_Char*,
                                          const XML_Char*, const XML_Char*, const XML_Char*)
    {
        if (value != nullptr)
            Guard(userData, [&](CExpatReader& reader) {
                reader.OnEntity({Wide(value), static_cast<std::size_t>(length)});
            });
    }

    static void XMLCALL AttributeDeclaration(void* userData, const XML_Char* element,
                                             const XML_Char* name, const XML_Char*,
                                             const XML_Char* value, int)
    {
        Guard(userData, [&](CExpatReader& reader) {
            reader.OnAttributeDeclaration(Wide(element), Wide(name), value != nullptr);
        });
    }

    static void XMLCALL EndNamespace(void* userData, const XML_Char*)
    {
        Guard(userData, [](CExpatReader& reader) { reader.OnEndNamespace(); });
    }
};

void CExpatReader::SFreeParser::operator()(XML_ParserStruct* parser) const noexcept
{
    XML_ParserFree(parser);
}

CExpatReader::CExpatReader(CXmlDocument* document)
    : CInstanceMonitor(u"CExpatReader"), m_document(document)
{}

CExpatReader::~CExpatReader() = default;

void CExpatReader::Initialise()
{
    const bool hasNamespaces = m_document->GetSchemaType() != SchemaType_NoNamespaces;
    constexpr XML_Memory_Handling_Suite kMemory{CParserHeap::Allocate, CParserHeap::Reallocate,
                                                CParserHeap::Free};
    constexpr XML_Char kSeparators[] = {kSeparator, 0};
    const CParserHeap::CUse heap(m_heap);
    m_parser.reset(XML_ParserCreate_MM(nullptr, &kMemory, hasNamespaces ? kSeparators : nullptr));
    if (m_parser == nullptr)
        throw std::bad_alloc();
    XML_Parser const parser = m_parser.get();
    XML_SetUserData(parser, this);
    XML_SetElementHandler(parser, SExpatCallbacks::StartElement, SExpatCallbacks::EndElement);
    XML_SetNamespaceDeclHandler(parser, SExpatCallbacks::StartNamespace,
                                SExpatCallbacks::EndNamespace);
    XML_SetCharacterDataHandler(parser, SExpatCallbacks::CharacterData);
    XML_SetEntityDeclHandler(parser, SExpatCallbacks::EntityDeclaration);
    XML_SetAttlistDeclHandler(parser, SExpatCallbacks::AttributeDeclaration);
    if (!m_document->GetContext().GetStripCDATA())
        XML_SetCdataSectionHandler(parser, SExpatCallbacks::StartCData, SExpatCallbacks::EndCData);
}

void CExpatReader::UseUtf16(const CUtf16Input& input)
{
    m_isAtStart = false;
    m_utf16 = input;
    // What the declaration names is tested by the handler, since the parser gets UTF-8.
    constexpr XML_Char kUtf8[] = {'U', 'T', 'F', '-', '8', 0};
    const CParserHeap::CUse heap(m_heap);
    if (XML_SetEncoding(m_parser.get(), kUtf8) != XML_STATUS_OK)
        throw std::bad_alloc();
    XML_SetXmlDeclHandler(m_parser.get(), SExpatCallbacks::XmlDeclaration);
}

void CExpatReader::ParseBuffer(std::span<const std::byte> data, bool final)
{
    m_documentSize += data.size();
    m_heap.SetLimit(kFreeAmplification + kMaxMemory * m_documentSize);
    if (std::exchange(m_isAtStart, false))
        if (const std::optional<CUtf16Input::EOrder> order = CUtf16Input::Detect(data))
            UseUtf16(CUtf16Input(*order, true));
    if (!m_utf16) {
        Feed(data, final, !final);
        return;
    }
    m_utf8.clear();
    const CUtf16Input::EOutcome outcome = m_utf16->Convert(data, final, m_utf8);
    const bool isGood = outcome == CUtf16Input::EOutcome::Good;
    Feed(std::as_bytes(std::span(m_utf8)), final && isGood, !final && isGood);
    if (!isGood)
        throw CZqException(FormatString(u"%S at line %I64d",
                                        XML_ErrorString(outcome == CUtf16Input::EOutcome::Cut
                                                            ? XML_ERROR_PARTIAL_CHAR
                                                            : XML_ERROR_INVALID_TOKEN),
                                        m_utf16->GetLine()));
}

void CExpatReader::Feed(std::span<const std::byte> data, bool final, bool mayWait)
{
    if (const bool mustWait = mayWait && m_waiting.size() + data.size() < m_patience;
        mustWait || !m_waiting.empty()) {
        m_waiting.insert(m_waiting.end(), data.begin(), data.end());
        if (mustWait)
            return;
        data = m_waiting;
    }
    const std::size_t size = data.size();
    const CParserHeap::CUse heap(m_heap);
    do {
        const std::span<const std::byte> piece = data.first(std::min(data.size(), kMaxPiece));
        data = data.subspan(piece.size());
        const bool isLast = final && data.empty();
        const XML_Status status =
            XML_Parse(m_parser.get(), reinterpret_cast<const char*>(piece.data()),
                      static_cast<int>(piece.size()), isLast);
        if (m_failure) {
            m_parser.reset();
            std::rethrow_exception(std::exchange(m_failure, nullptr));
        }
        if (status != XML_STATUS_OK)
            ThrowParserError();
    } while (!data.empty());
    m_waiting.clear();
    if (final) {
        m_parser.reset();
        return;
    }
    const XML_Index place = XML_GetCurrentByteIndex(m_parser.get());
    const bool isStuck = place < 0 || place == std::exchange(m_place, place);
    m_patience = isStuck ? 2 * size : 0;
}

void CExpatReader::ThrowParserError()
{
    const XML_Error error = XML_GetErrorCode(m_parser.get());
    if (error != XML_ERROR_NO_MEMORY)
        ThrowAtLine(FormatString(u"%S", XML_ErrorString(error)));
    if (!m_heap.IsExhausted())
        throw std::bad_alloc();
    ThrowAtLine(
        FormatString(u"The document takes more memory than %d times its own size", kMaxMemory));
}

void CExpatReader::ThrowAtLine(const std::u16string& what) const
{
    throw CZqException(
        FormatString(u"%s at line %I64d", what, XML_GetCurrentLineNumber(m_parser.get())));
}

void CExpatReader::Refer(std::size_t length, std::size_t freeLength)
{
    const int limit = m_document->GetContext().GetMaxAmplification();
    if (!m_referredText.Add(length, freeLength, m_documentSize, limit))
        ThrowAtLine(FormatString(CReferredText::kTooMuch, limit));
}

const SXmlName* CExpatReader::FindName(const char16_t* name)
{
    const std::u16string_view full(name, MeasureName(name));
    const std::size_t hash =
        full.size() * 5 + full.back() * std::size_t{37} + full[full.size() / 2 + full.size() / 4];
    SRecentNames& recent = m_recentNames[hash % m_recentNames.size()];
    if (recent.last == nullptr || !IsName(*recent.last, full)) {
        std::swap(recent.last, recent.other);
        if (recent.last == nullptr || !IsName(*recent.last, full)) {
            const std::size_t bar = full.find(kSeparator);
            recent.last =
                bar == std::u16string_view::npos
                    ? m_document->GetTree().FindName({}, full)
                    : m_document->GetTree().FindName(full.substr(0, bar), full.substr(bar + 1));
        }
    }
    Refer(recent.last->uri->size(), kFreeNameLength);
    return recent.last;
}

void CExpatReader::OnStartElement(const char16_t* name, const char16_t* const* attributes)
{
    CXmlElement* const element = m_document->AddElement(FindName(name));
    const char16_t* const* const defaults =
        attributes + XML_GetSpecifiedAttributeCount(m_parser.get());
    for (; *attributes != nullptr; attributes += 2) {
        const SXmlName* const attribute = FindName(attributes[0]);
        if (attributes >= defaults)
            Refer(kAttributeCost + std::u16string_view(attributes[1]).size(), 0);
        const std::u16string_view value = attributes[1];
        RequireWhole(value, u"The value of the attribute [%s]", attribute->localName);
        m_document->GetTree().AddAttribute(element, attribute, value);
    }
}

void CExpatReader::OnEndElement()
{
    m_document->EndElement();
}

void CExpatReader::OnCharacterData(std::u16string_view text)
{
    m_document->GetTree().AppendText(text);
}

void CExpatReader::OnStartCData()
{
    m_document->GetTree().AppendText(kCDataStart);
}

void CExpatReader::OnEndCData()
{
    m_document->GetTree().AppendText(kCDataEnd);
}

void CExpatReader::OnStartNamespace(std::u16string_view prefix, std::u16string_view uri)
{
    RequireWhole(uri, u"The namespace of the prefix [%s]", prefix);
    if (m_hasDefaultNamespaces)
        Refer(kAttributeCost + uri.size(), 0);
    m_document->SetAlias(prefix, uri);
}

void CExpatReader::OnEndNamespace() {}

void CExpatReader::OnXmlDeclaration(std::u16string_view encoding) const
{
    const bool isLittle = m_utf16->GetOrder() == CUtf16Input::EOrder::LittleEndian;
    const auto is = [&](std::u16string_view name) { return EqualsIgnoringCase(encoding, name); };
    if (encoding.empty() || is(u"utf-16") || is(isLittle ? u"utf-16le" : u"utf-16be"))
        return;
    const bool isKnown = std::ranges::any_of(kOtherEncodings, is);
    throw CZqException(isKnown ? u"incorrect encoding at line 1" : u"unknown encoding at line 1");
}

void CExpatReader::OnAttributeDeclaration(std::u16string_view element, std::u16string_view name,
                                          bool hasDefault)
{
    m_hasDefaultNamespaces |= hasDefault && name.starts_with(u"xmlns");
    if (++m_declaredAttributes[std::u16string(element)] > kMaxDeclaredAttributes)
        ThrowAtLine(FormatString(u"The document declares more than %d attributes for one element",
                                 kMaxDeclaredAttributes));
}

void CExpatReader::OnEntity(std::u16string_view text)
{
    // Expat up to 2.6 expands an entity within an entity on the stack, as deep as a document likes.
    const int levels = m_document->GetContext().GetMaxDepth();
    if (RefersToEntity(text) && ++m_nestingEntities > levels)
        throw CZqException(FormatString(u"The document is nested deeper than %d levels", levels));
}

}  // namespace ZqXmlLib9
