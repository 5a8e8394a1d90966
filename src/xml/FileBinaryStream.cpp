#include "OutputFile.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/xml/FileBinaryStream.h>

#include <array>
#include <span>

namespace ZqXmlLib9 {
namespace {

/// U+FEFF as UTF-16, least significant octet first.
constexpr std::array<std::byte, 2> kMark{std::byte{0xFF}, std::byte{0xFE}};

/// A failure leaves no part of a document.
void ThrowIf(int error, CWriteFile& file, const std::u16string& name)
{
    if (error == 0)
        return;
    file.Discard();
    throw CZqException(
        FormatString(u"Failed to write data to the file [%s] error [0x%08X]", name, error));
}

/// \return the octets written
std::size_t Write(CWriteFile& file, const std::u16string& name, std::uint64_t offset,
                  std::span<const std::byte> data)
{
    std::size_t count = 0;
    file.StartWrite(offset, data);
    ThrowIf(file.FinishWrite(count), file, name);
    return count;
}

}  // namespace

std::uint64_t OpenOutputFile(CWriteFile& file, const std::u16string& name, XmlEncoding encoding)
{
    ThrowIf(file.Open(name), file, name);
    const bool hasMark = encoding == XmlEncoding_UTF16 || encoding == XmlEncoding_UTF16Undeclared;
    return hasMark ? Write(file, name, 0, kMark) : 0;
}

CFileBinaryStream::CFileBinaryStream(const char16_t* fileName, XmlEncoding encoding,
                                     const CBinaryData& data)
    : CBinaryStream(data), m_fileName(TextOrEmpty(fileName)), m_encoding(encoding)
{}

CFileBinaryStream::~CFileBinaryStream() = default;

void CFileBinaryStream::WriteToFile() const
{
    CWriteFile file;
    const std::uint64_t start = OpenOutputFile(file, m_fileName, m_encoding);
    const CBinaryData data = GetData();
    Write(file, m_fileName, start, ToOctets(data.GetData(), data.GetLength()));
    ThrowIf(file.Close(), file, m_fileName);
}

}  // namespace ZqXmlLib9
