#include "../engine/XmlNames.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/xml/TextStream.h>
#include <ZqXmlLib9/xml/XmlTextWriter.h>

#include <algorithm>
#include <cstddef>

namespace ZqXmlLib9 {
namespace {

/// The stream is flushed once it holds so many code units.
constexpr std::uint32_t kFlushLimit = 4096;

/// The characters that escaping changes; all others pass in runs.
constexpr std::u16string_view kSpecial = u"\n\r\"&<>";

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
    WriteIndentIfFormatted(context->GetDepth());
    Write(u"<");
    bool isNewPrefix = false;
    if (!uri.empty() && uri != context->GetEffectiveDefaultNamespace()) {
        context->m_prefix = context->GetPrefix(uri);
        if (context->m_prefix.empty()) {
            context->m_prefix = CreateUniquePrefix(context->GetEffectiveNamespaces());
            context->SetNamespace(uri, context->m_prefix);
            isNewPrefix = true;
        }
    }
    WriteQualifiedName(context->m_prefix, name);
    if (isNewPrefix) {
        Write(u" ");
        WriteDeclaration(context->m_prefix, uri);
    }
    if (isRoot) {
        if (!GetDefaultNamespace().empty()) {
            Write(u" xmlns=\"");
            Write(GetDefaultNamespace());
            Write(u"\"");
        }
        for (const auto& [aliasUri, prefix] : GetNamespaceTable()) {
            if (!aliasUri.starts_with(kXmlNamespace)) {
                Write(u" ");
                WriteDeclaration(prefix, aliasUri);
            }
        }
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
    if (context->m_isStartTagOpen) {
        context->m_isStartTagOpen = false;
        Write(u">");
        WriteLineEndIfFormatted();
    }
}

void CXmlTextWriter::WriteAttribute(std::u16string_view name, std::u16string_view uri,
                                    std::u16string_view value, ItemType)
{
    CXmlWriterContext& context = RequireStartTag();
    Write(u" ");
    std::u16string_view prefix;
    if (!uri.empty()) {
        prefix = context.GetPrefix(uri);
        if (prefix.empty()) {
            context.SetNamespace(uri, CreateUniquePrefix(context.GetEffectiveNamespaces()));
            prefix = context.GetPrefix(uri);
            WriteDeclaration(prefix, uri);
            Write(u" ");
        }
    }
    WriteQualifiedName(prefix, name);
    Write(u"=\"");
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
            value = CreateUniquePrefix(context.GetEffectiveNamespaces());
            context.SetNamespace(uri, value);
            // The blank behind the declaration joins the one in front of the attribute.
            Write(u" ");
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
    if (context.m_isStartTagOpen) {
        Write(u">");
        context.m_isStartTagOpen = false;
    }
    if (text.starts_with(kCDataStart))
        Write(text);
    else
        WriteEscaped(text, Escaping::Text);
    FlushIfFull();
}

void CXmlTextWriter::WriteEndElement()
{
    const CXmlWriterContext& context = RequireContext();
    if (context.m_isStartTagOpen) {
        Write(u"/>");
    }
    else {
        if (context.m_childCount != 0)
            WriteIndentIfFormatted(context.GetDepth());
        Write(u"</");
        WriteQualifiedName(context.m_prefix, context.GetLocalName());
        Write(u">");
    }
    WriteLineEndIfFormatted();
    FlushIfFull();
    PopContext();
}

void CXmlTextWriter::WriteRawLine(std::u16string_view text)
{
    Write(text);
    WriteLineEndIfFormatted();
}

void CXmlTextWriter::Write(std::u16string_view text)
{
    m_stream->WriteString(text);
}

void CXmlTextWriter::WriteEscaped(std::u16string_view text, Escaping escaping)
{
    text = text.substr(0, text.find(u'\0'));
    while (true) {
        const std::size_t run = std::min(text.find_first_of(kSpecial), text.size());
        Write(text.substr(0, run));
        if (run == text.size())
            return;
        switch (text[run]) {
        case u'\n': Write(escaping == Escaping::Attribute ? u"&#xA;" : m_eol); break;
        case u'"': Write(u"&quot;"); break;
        case u'&': Write(u"&amp;"); break;
        case u'<': Write(u"&lt;"); break;
        case u'>': Write(u"&gt;"); break;
        default: break;  // a carriage return, which is dropped
        }
        text.remove_prefix(run + 1);
    }
}

void CXmlTextWriter::WriteLineEndIfFormatted()
{
    if (m_format)
        Write(m_eol);
}

void CXmlTextWriter::WriteIndentIfFormatted(std::uint32_t depth)
{
    for (; m_format && depth != 0; --depth)
        Write(u"\t");
}

void CXmlTextWriter::WriteQualifiedName(std::u16string_view prefix, std::u16string_view name)
{
    if (!prefix.empty()) {
        Write(prefix);
        Write(u":");
    }
    Write(name);
}

void CXmlTextWriter::WriteDeclaration(std::u16string_view prefix, std::u16string_view uri)
{
    Write(u"xmlns:");
    Write(prefix);
    Write(u"=\"");
    Write(uri);
    Write(u"\"");
}

void CXmlTextWriter::FlushIfFull()
{
    if (m_stream->GetPendingLength() >= kFlushLimit)
        m_stream->Flush();
}

}  // namespace ZqXmlLib9
