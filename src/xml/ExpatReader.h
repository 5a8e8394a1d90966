// Turns the callbacks of Expat into the building of a tree.
//
// Expat is used in its 16-bit build, whose names and texts are UTF-16; a document in UTF-16 reaches
// it as UTF-8 all the same (see Utf16Input.h). Comments and processing instructions have no
// handler, external entities neither: they vanish.
#pragma once

#include "Amplification.h"
#include "ParserHeap.h"
#include "Utf16Input.h"

#include <ZqXmlLib9/engine/InstanceMonitor.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct XML_ParserStruct;

namespace ZqXmlLib9 {

class CXmlDocument;
class CXmlTree;
struct SXmlName;

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
    /// \throws CZqException  "%s at line %d"; with the line behind them: "The document refers to
    ///         more text than %d times its own size", "The document takes more memory than %d
    ///         times its own size", "The document declares more than %d attributes for one
    ///         element"; and whatever the building of the tree threw
    void ParseBuffer(std::span<const std::byte> data, bool final);

private:
    friend struct SExpatCallbacks;

    struct SRecentNames {
        const SXmlName* last = nullptr;
        const SXmlName* other = nullptr;
    };

    struct SFreeParser {
        void operator()(XML_ParserStruct* parser) const noexcept;
    };

    void OnStartElement(const char16_t* name, const char16_t* const* attributes);
    void OnEndElement();
    void OnCharacterData(std::u16string_view text);
    void OnStartCData();
    void OnEndCData();
    void OnStartNamespace(std::u16string_view prefix, std::u16string_view uri);
    void OnEndNamespace();
    void OnXmlDeclaration(std::u16string_view encoding) const;
    void OnAttributeDeclaration(std::u16string_view element, std::u16string_view name,
                                bool hasDefault);
    void OnEntity(std::u16string_view text);

    void UseUtf16(const CUtf16Input& input);
    /// \param mayWait  more is to come, so that this piece may be parsed with the next ones
    void Feed(std::span<const std::byte> data, bool final, bool mayWait);
    const SXmlName* FindName(const char16_t* name);
    /// Counts a text that the document doesn't spell out.
    void Refer(std::size_t length, std::size_t freeLength);
    [[noreturn]] void ThrowParserError();
    [[noreturn]] void ThrowAtLine(const std::u16string& what) const;

    CXmlDocument* m_document;
    std::uint64_t m_documentSize = 0;  ///< in octets, as far as it has come
    CReferredText m_referredText;
    CParserHeap m_heap;
    std::unique_ptr<XML_ParserStruct, SFreeParser> m_parser;
    bool m_isAtStart = true;
    std::optional<CUtf16Input> m_utf16;
    std::string m_utf8;  ///< the piece at hand of a document in UTF-16
    int m_nestingEntities = 0;
    std::map<std::u16string, int> m_declaredAttributes;  ///< how many, by element
    bool m_hasDefaultNamespaces = false;
    // Expat reads a token that isn't complete anew with each piece: while it gets no further, the
    // pieces double.
    std::vector<std::byte> m_waiting;
    std::size_t m_patience = 0;  ///< in octets: what it gets at once
    long m_place = -1;           ///< of the last token
    /// Names that were met last: most names of a document have one of the places to themselves.
    std::array<SRecentNames, 128> m_recentNames{};
    /// What a handler threw: no exception may cross the frames of Expat.
    std::exception_ptr m_failure;
};

}  // namespace ZqXmlLib9
