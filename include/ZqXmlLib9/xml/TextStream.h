/// \file TextStream.h
/// The text stream under a text writer.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/Enums.h>
#include <ZqXmlLib9/engine/InstanceMonitor.h>
#include <ZqXmlLib9/types/BinaryData.h>
#include <ZqXmlLib9/xml/StringBuffer.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace ZqXmlLib9 {

/// A stream that gathers text in memory, and keeps it until the caller takes it.
///
/// One thread at a time. Whoever makes a stream keeps it alive longer than its writer.
class ZQXMLLIB9_API CTextStream : public CInstanceMonitor {
public:
    CTextStream();
    explicit CTextStream(XmlEncoding encoding);
    CTextStream(const CTextStream&) = delete;
    CTextStream& operator=(const CTextStream&) = delete;
    ~CTextStream() override;

    /// Empties the stream.
    virtual void Open();
    virtual void Close();
    /// Nothing in memory; a stream to a file passes on what it holds.
    virtual void Flush();

    /// \throws CZqOverFlowException  the text would have 2^32 code units or more
    void WriteString(const char16_t* text) { m_buffer.Append(text); }
    void WriteString(const std::u16string& text) { m_buffer.Append(text); }
    void WriteString(std::u16string_view text) { m_buffer.Append(text); }
    void WriteChar(char16_t unit) { m_buffer.Append(unit); }

    /// The code units written since the stream was emptied or flushed last.
    std::uint32_t GetPendingLength() const noexcept { return m_buffer.GetPendingLength(); }
    XmlEncoding GetEncoding() const noexcept { return m_encoding; }

    /// The whole text, ended by a NUL; it belongs to the stream and is good until the next write.
    const char16_t* GetText() { return m_buffer.GetText(); }

    /// The whole text in the encoding of the stream. UTF-16 comes as its code units, least
    /// significant octet first, without a mark, and also where a surrogate stands alone.
    /// \throws CZqException              "Unknown Encoding, select UTF-8 (contact support ...",
    ///         where the encoding is none or unknown
    /// \throws CZqInvalidValueException  an unpaired surrogate in text that has to be UTF-8; the
    ///         message names it and its place, counted in code units from 0
    /// \throws CZqOverFlowException      4 GiB or more
    CBinaryData GetEncodedData();

protected:
    /// \param position  where the text stands in the document, in code units
    /// \throws CZqException  as `GetEncodedData`
    CBinaryData Encode(std::u16string_view text, std::uint64_t position) const;
    /// \throws CZqException  "Unknown Encoding, ..."
    void RequireByteForm() const;
    /// Empties the stream and keeps room for what comes next.
    void Clear() { m_buffer.Clear(); }

private:
    friend class CXmlTextWriter;

    /// Writes texts one behind the other; arrays are literals.
    template <typename... TText>
    void WriteStrings(const TText&... texts)
    {
        m_buffer.AppendAll(texts...);
    }

    CStringBuffer m_buffer;
    XmlEncoding m_encoding;
};

}  // namespace ZqXmlLib9
