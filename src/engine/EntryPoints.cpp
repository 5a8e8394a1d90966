// The bodies of the To... and From... operations of CXmlObjectBase: they build a writer or a
// document, and hand over to ToXml_Int or FromXml_Int.

#include "VersionGate.h"

#include <ZqXmlLib9/collections/Element.h>
#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/engine/XmlObjectBase.h>
#include <ZqXmlLib9/fastinfoset/FastInfosetWriter.h>
#include <ZqXmlLib9/fastinfoset/ZqZip.h>
#include <ZqXmlLib9/xml/BinaryStream.h>
#include <ZqXmlLib9/xml/FileBinaryStream.h>
#include <ZqXmlLib9/xml/FileTextStream.h>
#include <ZqXmlLib9/xml/TextStream.h>
#include <ZqXmlLib9/xml/XmlDocument.h>
#include <ZqXmlLib9/xml/XmlElement.h>
#include <ZqXmlLib9/xml/XmlTextWriter.h>

#include <atomic>
#include <utility>
#include <vector>

namespace ZqXmlLib9 {
namespace {

std::atomic<bool> g_asyncToXmlFile{false};

/// A file has no room to say that it is compressed in this way.
void RefuseZlib(CompressionType compression)
{
    if (compression == CompressionType_ZLIB)
        throw CZqException(u"ZLIB Compression only available for To Stream methods.");
}

void RequireElement(const void* element)
{
    if (element == nullptr)
        throw CZqInvalidParamException(u"The element to read from is null");
}

/// A tree may have been loaded under a context that allows more levels than this one does.
void RequireDepth(const CXmlElement* element, const CXmlSerializationContext& context)
{
    std::vector<const CXmlElement*> open{element};
    while (!open.empty()) {
        if (std::cmp_greater(open.size(), context.GetMaxDepth()))
            throw CZqException(FormatString(u"The document is nested deeper than %d levels",
                                            context.GetMaxDepth()));
        const CXmlElement* next = open.back()->GetFirstElement();
        while (next == nullptr && open.size() > 1) {
            next = open.back()->GetNextSiblingElement();
            open.pop_back();
        }
        if (next == nullptr)
            break;
        open.push_back(next);
    }
}

}  // namespace

void CXmlObjectBase::ToXmlFile(const char16_t* fileName, bool writeHeader, bool format,
                               XmlEncoding encoding, EOLType eol,
                               const CXmlSerializationContext& context,
                               CompressionType compression) const
{
    RefuseZlib(compression);
    if (compression == CompressionType_None && g_asyncToXmlFile.load(std::memory_order_relaxed)) {
        CFileTextStream stream(fileName, encoding);
        WriteDocument(stream, writeHeader, format, eol, context);
    }
    else {
        CFileBinaryStream(fileName, encoding,
                          ToXmlStream(writeHeader, format, encoding, eol, context, compression))
            .WriteToFile();
    }
}

void AsyncToXmlFile(bool async) noexcept
{
    g_asyncToXmlFile.store(async, std::memory_order_relaxed);
}

void CXmlObjectBase::ToFastInfosetFile(const char16_t* fileName, FInfoDecl declaration,
                                       const CXmlSerializationContext& context,
                                       CompressionType compression) const
{
    RefuseZlib(compression);
    CFileBinaryStream(fileName, XmlEncoding_None,
                      ToFastInfosetStream(declaration, context, compression))
        .WriteToFile();
}

std::u16string CXmlObjectBase::ToXml(bool writeHeader, bool format, EOLType eol,
                                     const CXmlSerializationContext& context) const
{
    CTextStream stream(XmlEncoding_None);
    WriteDocument(stream, writeHeader, format, eol, context);
    const std::size_t length = stream.GetPendingLength();
    return std::u16string(stream.GetText(), length);
}

void CXmlObjectBase::WriteDocument(CTextStream& stream, bool writeHeader, bool format, EOLType eol,
                                   const CXmlSerializationContext& context) const
{
    PassVersionGate();
    CXmlTextWriter writer(&stream);
    writer.SetMaxDepth(context.GetMaxDepth());
    writer.Open();
    writer.SetFormat(format);
    writer.SetEOLType(eol);
    if (writeHeader)
        writer.WriteXmlDeclaration();
    ToXml_Int(&writer, true, GetTargetNamespace().c_str(), context, false);
    writer.Close();
}

CBinaryData CXmlObjectBase::ToXmlStream(bool writeHeader, bool format, XmlEncoding encoding,
                                        EOLType eol, const CXmlSerializationContext& context,
                                        CompressionType compression) const
{
    CTextStream stream(encoding);
    WriteDocument(stream, writeHeader, format, eol, context);
    CBinaryData data = stream.GetEncodedData();
    CZqZip::Compress(data, compression);
    return data;
}

CBinaryData CXmlObjectBase::ToFastInfosetStream(FInfoDecl declaration,
                                                const CXmlSerializationContext& context,
                                                CompressionType compression) const
{
    PassVersionGate();
    CBinaryStream stream;
    CFastInfosetWriter writer(&context.GetFIContext(), &stream);
    writer.SetMaxDepth(context.GetMaxDepth());
    writer.Open();
    writer.WriteDocumentHeader(declaration);
    ToXml_Int(&writer, true, GetTargetNamespace().c_str(), context, false);
    writer.WriteDocumentEnd();
    writer.Close();
    CBinaryData data = stream.GetData();
    CZqZip::Compress(data, compression);
    return data;
}

template <typename TLoad>
void CXmlObjectBase::ReadDocument(const CXmlSerializationContext& context, TLoad&& load)
{
    PassVersionGate();
    CXmlDocument document(context);
    load(document);
    ReadRoot(document.GetDocumentElement(), context);
}

void CXmlObjectBase::FromXmlFile(const char16_t* fileName, const CXmlSerializationContext& context)
{
    ReadDocument(context, [&](CXmlDocument& document) { document.Load(fileName); });
}

void CXmlObjectBase::FromXml(const char16_t* text, const CXmlSerializationContext& context)
{
    ReadDocument(context, [&](CXmlDocument& document) { document.LoadXml(text); });
}

void CXmlObjectBase::FromXml(const char* text, const CXmlSerializationContext& context)
{
    ReadDocument(context, [&](CXmlDocument& document) { document.LoadXml(text); });
}

void CXmlObjectBase::FromXmlStream(const CBinaryData& data, const CXmlSerializationContext& context)
{
    // The octets are read, and a holder may share them.
    CXmlObjectBase::FromXmlStream(const_cast<unsigned char*>(data.GetData()), data.GetLength(),
                                  context);
}

void CXmlObjectBase::FromXmlStream(unsigned char* const data, std::uint32_t length,
                                   const CXmlSerializationContext& context)
{
    ReadDocument(context, [&](CXmlDocument& document) { document.LoadXmlStream(data, length); });
}

void CXmlObjectBase::FromXmlStream(std::span<const std::byte> data,
                                   const CXmlSerializationContext& context)
{
    const auto* const octets = reinterpret_cast<const unsigned char*>(data.data());
    FromXmlStream(const_cast<unsigned char*>(octets), ToLength32(data.size()), context);
}

void CXmlObjectBase::FromXmlElement(const CElement* element,
                                    const CXmlSerializationContext& context)
{
    PassVersionGate();
    RequireElement(element);
    const std::u16string text = element->ToXml(false, false, EOLType_LF);
    CXmlObjectBase::FromXml(text.c_str(), context);
}

void CXmlObjectBase::FromXmlElement(const CXmlElement* element,
                                    const CXmlSerializationContext& context)
{
    PassVersionGate();
    RequireElement(element);
    RequireDepth(element, context);
    ReadRoot(const_cast<CXmlElement*>(element), context);
}

/// An open element takes the root itself, every other object what is in it.
void CXmlObjectBase::ReadRoot(CXmlElement* root, const CXmlSerializationContext& context)
{
    if (root == nullptr)
        throw CZqException(u"Invalid or empty XML document");
    const bool isOpen = dynamic_cast<CElement*>(this) != nullptr;
    FromXml_Int(root, isOpen ? root : root->GetFirstElement(), context, false);
}

}  // namespace ZqXmlLib9
