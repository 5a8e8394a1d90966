/// \file FastInfosetBinaryData.h
/// The built-in encoding algorithms of Fast Infoset.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/types/BinaryData.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace ZqXmlLib9 {

/// The octets of one encoded value, and the way between them and its text.
///
/// | algorithm        | octets                                | text of each value             |
/// |------------------|---------------------------------------|--------------------------------|
/// | 1 hexadecimal    | any                                   | digits, in upper case          |
/// | 2 base64         | any                                   | base64                         |
/// | 3 short, 4 int, 5 long | 2, 4, 8 each, signed            | decimal                        |
/// | 6 boolean        | a count of unused bits, then bits     | `true`, `false`                |
/// | 7 float, 8 double | 4, 8 each, IEEE 754                  | as `r4` and `r8`               |
/// | 9 uuid           | 16 each                               | 32 digits, no hyphens          |
/// | 10 cdata         | UTF-8                                 | written only                   |
///
/// All numbers are most significant octet first. Texts of several values have one blank between
/// any two.
/// Source: ITU-T X.891, 10.
class ZQXMLLIB9_API CFastInfosetBinaryData : public CBinaryData {
public:
    using CBinaryData::CBinaryData;
    CFastInfosetBinaryData() noexcept;
    /// Shares the octets.
    CFastInfosetBinaryData(const CBinaryData& data);
    CFastInfosetBinaryData(const CFastInfosetBinaryData&);
    CFastInfosetBinaryData& operator=(const CFastInfosetBinaryData&);
    ~CFastInfosetBinaryData() override;

    /// The text of the values; empty without a buffer, whatever the algorithm.
    /// \throws CZqException  "Invalid value for SHORT byte encoding." and its like for a length
    ///         that is no multiple of a value's; "Unknown byte encoding." for 10 and beyond
    std::u16string GetAsString(std::uint32_t algorithm) const;

    /// Takes the octets of one value; the text gets no white space rule. A failure leaves no
    /// buffer or an empty one.
    /// \throws CZqException  "Unknown byte encoding." beyond 10, and what the conversion of the
    ///         type throws
    void SetAsEncodedString(std::uint32_t algorithm, const char16_t* text);
    void SetAsEncodedString(std::uint32_t algorithm, std::u16string_view text);

private:
    friend class CFastInfosetReader;
    friend class CFastInfosetWriter;

    /// The octets of a number or boolean, which need no buffer.
    /// \return the count; 0 for an algorithm of another kind
    static std::size_t EncodeNumber(std::uint32_t algorithm, std::u16string_view text,
                                    std::array<unsigned char, 8>& octets);

    /// `GetAsString` of octets that lie elsewhere.
    static std::u16string GetAsString(std::uint32_t algorithm,
                                      std::span<const unsigned char> octets);
    static std::u16string GetAsUuid(std::span<const unsigned char> octets);
};

}  // namespace ZqXmlLib9
