// The octets of a UTF-16 document as UTF-8.
//
// The parser could read UTF-16 itself, but the 16-bit build of Expat up to 2.5 drops the second
// half of a surrogate pair that stands at the end of a run and across the end of one of its
// buffers, and takes half a pair for a character. From UTF-8 it makes the right UTF-16.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace ZqXmlLib9 {

class CUtf16Input {
public:
    enum class EOrder { LittleEndian, BigEndian };
    enum class EOutcome {
        Good,
        Invalid,  ///< half a surrogate pair, or what the parser would take for another encoding
        Cut,      ///< the end stands within a character
    };

    /// The order of a document that begins as UTF-16 does, with a mark or with a character of ASCII
    /// (XML 1.0, appendix F); nothing for any other document.
    static std::optional<EOrder> Detect(std::span<const std::byte> start);

    /// \param mayHaveMark  whether a mark at the start is dropped; it is a fault otherwise
    CUtf16Input(EOrder order, bool mayHaveMark) : m_order(order), m_mayHaveMark(mayHaveMark) {}

    EOrder GetOrder() const noexcept { return m_order; }

    /// Appends the next octets of the document to `utf8`, up to the first fault.
    EOutcome Convert(std::span<const std::byte> data, bool final, std::string& utf8);

    /// The line that the conversion has reached, from 1.
    std::uint64_t GetLine() const noexcept { return m_line; }

private:
    EOutcome ConvertUnits(bool final, std::string& utf8);
    void CountLines(std::string_view utf8);

    EOrder m_order;
    bool m_mayHaveMark;
    bool m_isAtStart = true;
    bool m_isBehindReturn = false;
    std::optional<std::byte> m_halfUnit;
    std::u16string m_units;  ///< not converted yet; a high surrogate at most between two calls
    std::uint64_t m_line = 1;
};

}  // namespace ZqXmlLib9
