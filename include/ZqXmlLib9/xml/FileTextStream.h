/// \file FileTextStream.h
/// The text stream to a file.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/xml/TextStream.h>

#include <cstdint>
#include <memory>
#include <string>

namespace ZqXmlLib9 {

class CWriteFile;

/// A stream that passes its text on to a file each time it is flushed, so that the system writes
/// while the text grows. Positions have 64 bits.
///
/// Failures are `CZqException`; the codes in their messages are errno. After one the stream is good
/// for nothing but another `Open`. What a file holds before `Open` stays where that fails; any
/// later failure leaves the file empty, so that no part of a text is taken for the whole of it.
/// That goes for regular files; a pipe or a device has what it was sent. One thread at a time.
class ZQXMLLIB9_API CFileTextStream : public CTextStream {
public:
    CFileTextStream(const char16_t* fileName, XmlEncoding encoding);
    /// Empties the file if it is still open: it isn't whole.
    ~CFileTextStream() override;

    /// Creates the file, or replaces the one that is there. A file of UTF-16 begins with the mark
    /// FF FE.
    /// \throws CZqException  "Failed to write data to the file [%s] error [0x%08X]"; "Unknown
    ///         Encoding, select UTF-8 (...", and the file that is there is then left alone
    void Open() override;
    /// Flushes what is left. Only now is the file known to be written as a whole, as far as the
    /// system goes: nothing waits for the disk.
    /// \throws CZqException              as `Flush`
    /// \throws CZqInvalidValueException  the text has to be UTF-8 and ends with half a surrogate
    ///         pair
    void Close() override;
    /// Begins to write the text, and empties the stream. For UTF-8 a high surrogate at the end
    /// stays until the text goes on.
    /// \throws CZqException              "Failed to write data to the file. Error [0x%08X]",
    ///         perhaps for the text that was flushed before
    /// \throws CZqInvalidValueException  as `GetEncodedData`; places are counted over the whole
    ///         file
    void Flush() override;

private:
    void FinishWrite();
    void ThrowIf(int error);

    std::u16string m_fileName;
    std::unique_ptr<CWriteFile> m_file;
    std::uint64_t m_position = 0;      ///< octets of the file that are written
    std::uint64_t m_flushedUnits = 0;  ///< code units of the text that were flushed
};

}  // namespace ZqXmlLib9
