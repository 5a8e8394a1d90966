// Turns the callbacks of Expat into the building of a tree.
//
// Expat is used in its 16-bit build, whose names and texts are UTF-16; a document in UTF-16 reaches
// it as UTF-8 all the same (see Utf16Input.h). Comments and processing instructions have no handler,
// external entities neither: they vanish.
#pragma once

#include "Utf16Input.h"

#include <ZqXmlLib9/engine/InstanceMonitor.h>

#include <cstddef>
#include <exception>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

struct XML_ParserStruct;

namespace ZqXmlLib9 {

class CXmlDocument;

/// One parse into a document; it lives on the stack.
class CExpatReader : public CInstanceMonitor {
public:
    explicit CExpatReader(CXmlDocument* document);
    CExpatReader(const CExpatReader&) = delete;
    CExpatReader& operator=(const CExpatReader&) = delete;
    ~CExpatReader() override;

    /// Makes the parser, by the settings of the document and its context.
    void Initialise();

    /// Takes the document for UTF-16 without a mark, whatever it begins with; without this call the
    /// first piece decides.
    void UseUtf16(CUtf16Input::EOrder order) { UseUtf16(CUtf16Input(order, false)); }

    /// Parses the next piece of the document; `final` says that it is the last.
    /// \throws CZqException  "%s at line %d"; and whatever the building of the tree threw
    void ParseBuffer(std::span<const std::byte> data, bool final);

private:
    friend struct SExpatCallbacks;

    struct SFreeParser {
        void operator()(XML_ParserStruct* parser) const noexcept;
    };

    void OnStartElement(std::u16string_view name, const char16_t* const* attributes);
    void OnEndElement();
    void OnCharacterData(std::u16string_view text);
    void OnStartCData();
    void OnEndCData();
    void OnStartNamespace(std::u16string_view prefix, std::u16string_view uri);
    void OnEndNamespace();
    void OnXmlDeclaration(std::u16string_view encoding) const;
    void OnEntity(std::u16string_view text);

    void UseUtf16(const CUtf16Input& input);
    void Feed(std::span<const std::byte> data, bool final);
    void FlushText();
    [[noreturn]] void ThrowParserError();

    CXmlDocument* m_document;
    std::unique_ptr<XML_ParserStruct, SFreeParser> m_parser;
    bool m_isAtStart = true;
    std::optional<CUtf16Input> m_utf16;
    std::string m_utf8;  ///< the piece at hand of a document in UTF-16
    int m_nestingEntities = 0;
    /// Character data since the last tag: Expat delivers it in pieces, at every line end and
    /// entity, and the element takes it in one.
    std::u16string m_text;
    /// What a handler threw: no exception may cross the frames of Expat.
    std::exception_ptr m_failure;
};

}  // namespace ZqXmlLib9
