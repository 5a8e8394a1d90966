#include "OutputFile.h"

#include "../engine/UnpairedSurrogate.h"
#include "../platform/TextEncodings.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/xml/FileTextStream.h>

namespace ZqXmlLib9 {

CFileTextStream::CFileTextStream(const char16_t* fileName, XmlEncoding encoding)
    : CTextStream(encoding), m_fileName(TextOrEmpty(fileName)),
      m_file(std::make_unique<CWriteFile>())
{}

CFileTextStream::~CFileTextStream() = default;

void CFileTextStream::Open()
{
    CTextStream::Open();
    RequireByteForm();
    m_flushedUnits = 0;
    m_position = OpenOutputFile(*m_file, m_fileName, GetEncoding());
}

void CFileTextStream::Flush()
{
    std::u16string_view text(GetText(), GetPendingLength());
    char16_t half = 0;
    if (GetEncoding() == XmlEncoding_UTF8 && !text.empty() && IsHighSurrogate(text.back())) {
        half = text.back();
        text.remove_suffix(1);
    }
    if (text.empty())
        return;
    FinishWrite();
    CBinaryData data;
    try {
        data = Encode(text, m_flushedUnits);
    }
    catch (...) {
        m_file->Discard();
        throw;
    }
    m_file->StartWrite(m_position, ToOctets(data.GetData(), data.GetLength()));
    m_flushedUnits += text.size();
    Clear();
    if (half != 0)
        WriteChar(half);
}

void CFileTextStream::Close()
{
    Flush();
    if (GetPendingLength() != 0) {
        m_file->Discard();
        ThrowUnpairedSurrogate(*GetText(), m_flushedUnits);
    }
    FinishWrite();
    ThrowIf(m_file->Close());
    CTextStream::Close();
}

void CFileTextStream::FinishWrite()
{
    std::size_t count = 0;
    ThrowIf(m_file->FinishWrite(count));
    m_position += count;
}

void CFileTextStream::ThrowIf(int error)
{
    if (error == 0)
        return;
    m_file->Discard();
    throw CZqException(FormatString(u"Failed to write data to the file. Error [0x%08X]", error));
}

}  // namespace ZqXmlLib9
