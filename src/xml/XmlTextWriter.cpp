#include "../engine/XmlNames.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/xml/TextStream.h>
#include <ZqXmlLib9/xml/XmlTextWriter.h>

#include <array>
#include <cstddef>

namespace ZqXmlLib9 {
namespace {

/// The stream is flushed once it holds so many code units.
constexpr std::uint32_t kFlushLimit = 4096;

constexpr std::u16string_view kColon = u":";

/// Where the run of characters ends that escaping passes as they are; a NUL ends it too.
std::size_t PlainLength(std::u16string_view text)
{
    constexpr auto kIsPlain = [] {
        std::array<bool, u'>' + 1> isPlain{};
        isPlain.fill(true);
        for (const char16_t c : std::u16string_view(u"\0\n\r\"&<>", 7))
            isPlain[c] = false;
        return isPlain;
    }();
    std::size_t i = 0;
    while (i < text.size() && (text[i] >= kIsPlain.size() || kIsPlain[text[i]]))
        ++i;
    return i;
}

}  // namespace

CXmlTextWriter::CXmlTextWriter(CTextStream* stream)
    : CXmlWriter(u"CXmlTextWriter"), m_stream(stream)
{}

CXmlTextWriter::~CXmlTextWriter() = default;

void CXmlTextWriter::Open()
{
    CXmlWriter::Open();
    m_stream->Open();
}

void CXmlTextWriter::Close()
{
    m_stream->Close();
    CXmlWriter::Close();
}

void CXmlTextWriter::SetEOLType(EOLType type)
{
    switch (type) {
    case EOLType_CRLF: m_eol = u"\r\n"; break;
    case EOLType_LF: m_eol = u"\n"; break;
    default: throw CZqException(u"Invalid EOL type.");
    }
    m_eolType = type;
}

void CXmlTextWriter::WriteXmlDeclaration()
{
    Write(u"<?xml version=\"1.0\"");
    if (m_stream->GetEncoding() == XmlEncoding_UTF8)
        Write(u" encoding=\"UTF-8\"");
    else if (m_stream->GetEncoding() == XmlEncoding_UTF16)
        Write(u" encoding=\"UTF-16\"");
    Write(u"?>");
    Write(m_eol);
    FlushIfFull();
}

void CXmlTextWriter::WriteComment(std::u16string_view text)
{
    Write(u"<!--");
    WriteEscaped(text, Escaping::Text);
    Write(u"-->");
    Write(m_eol);
    FlushIfFull();
}

void CXmlTextWriter::WriteProcessingInstruction(std::u16string_view text)
{
    Write(text);
    Write(m_eol);
    Write(m_eol);
    FlushIfFull();
}

void CXmlTextWriter::WriteInLineSchema(std::u16string_view text)
{
    Write(u" ");
    Write(m_eol);
    Write(text);
    Write(m_eol);
    FlushIfFull();
}

void CXmlTextWriter::WriteStartElement(std::u16string_view name, std::u16string_view uri)
{
    const bool isRoot = GetContext() == nullptr;
    std::unique_ptr<CXmlWriterContext> context = MakeContext(name, uri);
    CloseStartTag();
    bool isNewPrefix = false;
    if (!uri.empty() && !IsSameName(uri, context->GetEffectiveDefaultNamespace())) {
        context->m_prefix = context->GetPrefix(uri);
        if (context->m_prefix.empty()) {
            context->m_prefix = context->CreateUniquePrefix();
            context->SetNamespace(uri, context->m_prefix);
            isNewPrefix = true;
        }
    }
    m_stream->WriteStrings(Indent(context->GetDepth()), u"<", context->m_prefix,
                           Colon(context->m_prefix), name);
    if (isNewPrefix)
        WriteDeclaration(context->m_prefix, uri);
    if (isRoot) {
        if (!GetDefaultNamespace().empty())
            m_stream->WriteStrings(u" xmlns=\"", GetDefaultNamespace(), u"\"");
        for (const auto& [aliasUri, prefix] : GetNamespaceTable())
            if (!aliasUri.starts_with(kXmlNamespace))
                WriteDeclaration(prefix, aliasUri);
    }
    FlushIfFull();
    PushContext(std::move(context));
}

void CXmlTextWriter::CloseStartTag()
{
    CXmlWriterContext* const context = GetContext();
    if (context == nullptr)
        return;
    ++context->m_childCount;
    if (!context->m_isStartTagOpen)
        return;
    m_stream->WriteStrings(u">");
    context->m_isStartTagOpen = false;
    Write(LineEnd());
}

void CXmlTextWriter::WriteAttribute(std::u16string_view name, std::u16string_view uri,
                                    std::u16string_view value, ItemType)
{
    CXmlWriterContext& context = RequireStartTag();
    std::u16string_view prefix;
    if (!uri.empty()) {
        prefix = context.GetPrefix(uri);
        if (prefix.empty()) {
            context.SetNamespace(uri, context.CreateUniquePrefix());
            prefix = context.GetPrefix(uri);
            WriteDeclaration(prefix, uri);
        }
    }
    m_stream->WriteStrings(u" ", prefix, Colon(prefix), name, u"=\"");
    WriteEscaped(value, Escaping::Attribute);
    Write(u"\"");
    FlushIfFull();
}

void CXmlTextWriter::WriteXsiType(std::u16string_view uri, std::u16string_view typeName,
                                  ItemType type)
{
    CXmlWriterContext& context = RequireStartTag();
    std::u16string value;
    if (!uri.empty() && uri != context.GetEffectiveDefaultNamespace()) {
        value = context.GetPrefix(uri);
        if (value.empty()) {
            value = context.CreateUniquePrefix();
            context.SetNamespace(uri, value);
            // The blank behind the declaration joins the one in front of the attribute.
            WriteDeclaration(value, uri);
            Write(u" ");
        }
        value += u':';
    }
    value += typeName;
    WriteAttribute(u"type", kXsiNamespace, value, type);
}

void CXmlTextWriter::WriteXsiNil()
{
    RequireStartTag();
    WriteAttribute(u"nil", kXsiNamespace, u"true", ItemType_boolean);
}

void CXmlTextWriter::WriteText(std::u16string_view text, ItemType)
{
    if (text.empty())
        return;
    CXmlWriterContext& context = RequireContext();
    if (context.m_isStartTagOpen)
        m_stream->WriteStrings(u">");
    context.m_isStartTagOpen = false;
    if (text.starts_with(kCDataStart))
        Write(text);
    else
        WriteEscaped(text, Escaping::Text);
    FlushIfFull();
}

void CXmlTextWriter::WriteEndElement()
{
    const CXmlWriterContext& context = RequireContext();
    if (context.m_isStartTagOpen)
        m_stream->WriteStrings(u"/>", LineEnd());
    else
        m_stream->WriteStrings(Indent(context.m_childCount != 0 ? context.GetDepth() : 0), u"</",
                               context.m_prefix, Colon(context.m_prefix), context.GetLocalName(),
                               u">", LineEnd());
    FlushIfFull();
    PopContext();
}

void CXmlTextWriter::WriteRawLine(std::u16string_view text)
{
    m_stream->WriteStrings(text, LineEnd());
}

void CXmlTextWriter::Write(std::u16string_view text)
{
    m_stream->WriteString(text);
}

void CXmlTextWriter::WriteEscaped(std::u16string_view text, Escaping escaping)
{
    for (std::u16string_view before;;) {
        const std::size_t run = PlainLength(text);
        m_stream->WriteStrings(before, text.substr(0, run));
        if (run == text.size() || text[run] == u'\0')
            return;
        switch (text[run]) {
        case u'\n': before = escaping == Escaping::Attribute ? u"&#xA;" : m_eol; break;
        case u'"': before = u"&quot;"; break;
        case u'&': before = u"&amp;"; break;
        case u'<': before = u"&lt;"; break;
        case u'>': before = u"&gt;"; break;
        default: before = {}; break;  // a carriage return, which is dropped
        }
        text.remove_prefix(run + 1);
    }
}

std::u16string_view CXmlTextWriter::LineEnd() const
{
    return m_format ? m_eol : std::u16string_view();
}

/// Tabs, of which those beyond a number are written at once.
std::u16string_view CXmlTextWriter::Indent(std::uint32_t depth)
{
    constexpr std::u16string_view kTabs = u"\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t";
    if (!m_format)
        return {};
    for (; depth > kTabs.size(); depth -= static_cast<std::uint32_t>(kTabs.size()))
        Write(kTabs);
    return kTabs.substr(0, depth);
}

/// What stands between a prefix and a name.
std::u16string_view CXmlTextWriter::Colon(std::u16string_view prefix)
{
    return kColon.substr(0, prefix.empty() ? 0 : 1);
}

void CXmlTextWriter::WriteDeclaration(std::u16string_view prefix, std::u16string_view uri)
{
    m_stream->WriteStrings(u" xmlns:", prefix, u"=\"", uri, u"\"");
}

void CXmlTextWriter::FlushIfFull()
{
    if (m_stream->GetPendingLength() >= kFlushLimit)
        m_stream->Flush();
}

}  // namespace ZqXmlLib9
