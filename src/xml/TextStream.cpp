#include "../engine/Support.h"
#include "../engine/UnpairedSurrogate.h"
#include "../platform/TextEncodings.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/xml/TextStream.h>

#include <bit>
#include <memory>
#include <span>

namespace ZqXmlLib9 {

CTextStream::CTextStream() : CTextStream(XmlEncoding_None) {}

CTextStream::CTextStream(XmlEncoding encoding)
    : CInstanceMonitor(u"CTextStream"), m_encoding(encoding)
{}

CTextStream::~CTextStream() = default;

void CTextStream::Open()
{
    Clear();
}

void CTextStream::Close() {}

void CTextStream::Flush() {}

CBinaryData CTextStream::GetEncodedData()
{
    return Encode({GetText(), GetPendingLength()}, 0);
}

CBinaryData CTextStream::Encode(std::u16string_view text, std::uint64_t position) const
{
    RequireByteForm();
    if (m_encoding != XmlEncoding_UTF8) {
        static_assert(std::endian::native == std::endian::little);
        return CBinaryData(std::as_bytes(std::span(text)));
    }
    const SWellFormedPart part = MeasureAsUtf8(text);
    if (part.units != text.size())
        ThrowUnpairedSurrogate(text[part.units], position + part.units);
    const std::uint32_t length = ToLength32(part.octets);
    auto octets = std::make_unique_for_overwrite<unsigned char[]>(length);
    WriteAsUtf8(text, reinterpret_cast<char*>(octets.get()));
    return CBinaryData(octets.release(), length, true);
}

void CTextStream::RequireByteForm() const
{
    if (m_encoding < XmlEncoding_UTF8 || m_encoding > XmlEncoding_UTF16Undeclared)
        throw CZqException(
            FormatString(u"Unknown Encoding, select UTF-8 (contact support %s)", kSupportAddress));
}

}  // namespace ZqXmlLib9
