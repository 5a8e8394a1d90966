#include <ZqXmlLib9/xml/TextStream.h>

namespace ZqXmlLib9 {

CTextStream::CTextStream() : CTextStream(XmlEncoding_None) {}

CTextStream::CTextStream(XmlEncoding encoding)
    : CInstanceMonitor(u"CTextStream"), m_encoding(encoding)
{}

CTextStream::~CTextStream() = default;

void CTextStream::Open()
{
    m_buffer.Clear();
}

void CTextStream::Close() {}

void CTextStream::Flush() {}

}  // namespace ZqXmlLib9
