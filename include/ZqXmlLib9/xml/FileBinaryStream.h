/// \file FileBinaryStream.h
/// A finished document on its way to a file.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/Enums.h>
#include <ZqXmlLib9/xml/BinaryStream.h>

#include <string>

namespace ZqXmlLib9 {

/// Octets that are written to a file in one go. One thread at a time.
class ZQXMLLIB9_API CFileBinaryStream : public CBinaryStream {
public:
    /// \param encoding  of the document: a file of UTF-16 begins with the mark FF FE; no other has
    ///                  one, nor has what is no text, with `XmlEncoding_None`
    CFileBinaryStream(const char16_t* fileName, XmlEncoding encoding, const CBinaryData& data);
    ~CFileBinaryStream() override;

    /// Creates the file, or replaces the one that is there, whose octets stay if it can't be
    /// opened. Any later failure leaves the file empty, if it is a regular one. Nothing waits for
    /// the disk.
    /// \throws CZqException  "Failed to write data to the file [%s] error [0x%08X]", with errno
    void WriteToFile() const;

private:
    std::u16string m_fileName;
    XmlEncoding m_encoding;
};

}  // namespace ZqXmlLib9
