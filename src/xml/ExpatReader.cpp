#include "ExpatReader.h"
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

struct SName {
    std::u16string_view uri;
    std::u16string_view localName;
};

SName SplitName(std::u16string_view name)
{
    const std::size_t bar = name.find(kSeparator);
    if (bar == std::u16string_view::npos)
        return {{}, name};
    return {name.substr(0, bar), name.substr(bar + 1)};
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
    m_parser.reset(hasNamespaces ? XML_ParserCreateNS(nullptr, kSeparator)
                                 : XML_ParserCreate(nullptr));
    if (m_parser == nullptr)
        throw std::bad_alloc();
    XML_Parser const parser = m_parser.get();
    XML_SetUserData(parser, this);
    XML_SetElementHandler(parser, SExpatCallbacks::StartElement, SExpatCallbacks::EndElement);
    XML_SetNamespaceDeclHandler(parser, SExpatCallbacks::StartNamespace,
                                SExpatCallbacks::EndNamespace);
    XML_SetCharacterDataHandler(parser, SExpatCallbacks::CharacterData);
    XML_SetEntityDeclHandler(parser, SExpatCallbacks::EntityDeclaration);
    if (!m_document->GetContext().GetStripCDATA())
        XML_SetCdataSectionHandler(parser, SExpatCallbacks::StartCData, SExpatCallbacks::EndCData);
}

void CExpatReader::UseUtf16(const CUtf16Input& input)
{
    m_isAtStart = false;
    m_utf16 = input;
    // What the declaration names is tested by the handler, since the parser gets UTF-8.
    constexpr XML_Char kUtf8[] = {'U', 'T', 'F', '-', '8', 0};
    if (XML_SetEncoding(m_parser.get(), kUtf8) != XML_STATUS_OK)
        throw std::bad_alloc();
    XML_SetXmlDeclHandler(m_parser.get(), SExpatCallbacks::XmlDeclaration);
}

void CExpatReader::ParseBuffer(std::span<const std::byte> data, bool final)
{
    if (std::exchange(m_isAtStart, false))
        if (const std::optional<CUtf16Input::EOrder> order = CUtf16Input::Detect(data))
            UseUtf16(CUtf16Input(*order, true));
    if (!m_utf16) {
        Feed(data, final);
        return;
    }
    m_utf8.clear();
    const CUtf16Input::EOutcome outcome = m_utf16->Convert(data, final, m_utf8);
    const bool isGood = outcome == CUtf16Input::EOutcome::Good;
    Feed(std::as_bytes(std::span(m_utf8)), final && isGood);
    if (!isGood)
        throw CZqException(FormatString(u"%S at line %I64d",
                                        XML_ErrorString(outcome == CUtf16Input::EOutcome::Cut
                                                            ? XML_ERROR_PARTIAL_CHAR
                                                            : XML_ERROR_INVALID_TOKEN),
                                        m_utf16->GetLine()));
}

void CExpatReader::Feed(std::span<const std::byte> data, bool final)
{
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
    if (final)
        m_parser.reset();
}

void CExpatReader::ThrowParserError()
{
    throw CZqException(FormatString(u"%S at line %I64d",
                                    XML_ErrorString(XML_GetErrorCode(m_parser.get())),
                                    XML_GetCurrentLineNumber(m_parser.get())));
}

void CExpatReader::OnStartElement(std::u16string_view name, const char16_t* const* attributes)
{
    FlushText();
    const SName elementName = SplitName(name);
    CXmlElement* const element =
        m_document->GetDocumentElement() == nullptr
            ? m_document->AddDocElement(elementName.uri, elementName.localName)
            : m_document->AddChildElement(elementName.uri, elementName.localName);
    for (; *attributes != nullptr; attributes += 2) {
        const SName attributeName = SplitName(attributes[0]);
        RequireWhole(attributes[1], u"The value of the attribute [%s]", attributeName.localName);
        CXmlDocument::AddElementAttribute(element, attributeName.localName, attributes[1],
                                          attributeName.uri);
    }
}

void CExpatReader::OnEndElement()
{
    FlushText();
    m_document->EndElement();
}

void CExpatReader::OnCharacterData(std::u16string_view text)
{
    m_text.append(text);
}

void CExpatReader::OnStartCData()
{
    m_text.append(kCDataStart);
}

void CExpatReader::OnEndCData()
{
    m_text.append(kCDataEnd);
}

void CExpatReader::OnStartNamespace(std::u16string_view prefix, std::u16string_view uri)
{
    RequireWhole(uri, u"The namespace of the prefix [%s]", prefix);
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

void CExpatReader::OnEntity(std::u16string_view text)
{
    // Expat up to 2.6 expands an entity within an entity on the stack, as deep as a document likes.
    const int levels = m_document->GetContext().GetMaxDepth();
    if (RefersToEntity(text) && ++m_nestingEntities > levels)
        throw CZqException(FormatString(u"The document is nested deeper than %d levels", levels));
}

void CExpatReader::FlushText()
{
    if (m_text.empty())
        return;
    CXmlDocument::AppendTextExcludingCR(m_document->GetOpenElement(), m_text);
    m_text.clear();
}

}  // namespace ZqXmlLib9
