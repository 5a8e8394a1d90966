/// \file XmlTextWriter.h
/// The writer of XML text.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/Enums.h>
#include <ZqXmlLib9/xml/XmlWriter.h>

#include <string>
#include <string_view>

namespace ZqXmlLib9 {

class CTextStream;

/// Writes XML text on a stream.
///
/// An element or attribute in a namespace gets the prefix that is in scope for it, or the first
/// free one of AA, AB, ... with a declaration on the spot; an attribute has a prefix even in the
/// default namespace. No declaration is ever undone: an element without a namespace comes back in
/// the default namespace where one is in scope. With formatting, elements stand on lines of their
/// own, one tab deeper than their parent. Text of its own keeps an element on its line.
///
/// Names, URIs, instructions and in-line schemas are trusted: nothing checks that they are
/// well-formed.
///
/// Source: XML 1.0, 2.4 (escaping), 2.10 and 2.11 (white space, line ends); Namespaces in XML 1.0.
class ZQXMLLIB9_API CXmlTextWriter : public CXmlWriter {
public:
    /// \param stream  stays the caller's, and must live longer than the writer
    explicit CXmlTextWriter(CTextStream* stream);
    ~CXmlTextWriter() override;

    /// Opens the stream too.
    void Open() override;
    /// Closes the stream, then tests that every element is closed.
    void Close() override;

    void WriteComment(std::u16string_view text) override;
    void WriteProcessingInstruction(std::u16string_view text) override;
    void WriteInLineSchema(std::u16string_view text) override;
    void WriteStartElement(std::u16string_view name, std::u16string_view uri) override;
    /// An empty text does nothing. A text that begins with `<![CDATA[` is written as it stands;
    /// else it is escaped, its carriage returns are dropped, its line feeds become the line end of
    /// this writer, and it ends at its first NUL.
    /// \throws CZqInvalidStateException  "There is no open element"
    void WriteText(std::u16string_view text, ItemType type) override;
    /// \throws CZqInvalidStateException  "There is no open element"
    void WriteEndElement() override;
    /// Line feeds in the value become `&#xA;`, carriage returns are dropped.
    void WriteAttribute(std::u16string_view name, std::u16string_view uri,
                        std::u16string_view value, ItemType type) override;
    void WriteXsiType(std::u16string_view uri, std::u16string_view typeName,
                      ItemType type) override;
    void WriteXsiNil() override;

    /// Whether lines are broken and indented. Default true.
    void SetFormat(bool format) noexcept { m_format = format; }
    bool GetFormat() const noexcept { return m_format; }

    /// Default `EOLType_LF`.
    /// \throws CZqException  "Invalid EOL type."; the old one then stays
    void SetEOLType(EOLType type);
    EOLType GetEOLType() const noexcept { return m_eolType; }

    /// The stream of the constructor, for a writer of a part of the document.
    CTextStream* GetStream() const noexcept { return m_stream; }

    /// Writes the XML declaration, with the encoding of the stream if it has a byte form.
    void WriteXmlDeclaration();

    /// Ends the start tag of the open element, if it is still open, and counts a child of it.
    void CloseStartTag();
    /// Writes text as it is, and a line end behind it if lines are broken.
    void WriteRawLine(std::u16string_view text);

private:
    enum class Escaping { Text, Attribute };

    void Write(std::u16string_view text);
    void WriteEscaped(std::u16string_view text, Escaping escaping);
    std::u16string_view LineEnd() const;
    std::u16string_view Indent(std::uint32_t depth);
    static std::u16string_view Colon(std::u16string_view prefix);
    void WriteDeclaration(std::u16string_view prefix, std::u16string_view uri);
    void FlushIfFull();

    std::u16string_view m_eol = u"\n";
    EOLType m_eolType = EOLType_LF;
    bool m_format = true;
    CTextStream* m_stream;
};

}  // namespace ZqXmlLib9
