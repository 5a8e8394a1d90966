/// \file Base64.h
/// The base64 codec.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/types/OctetSpan.h>

#include <cstdint>
#include <string>
#include <string_view>

/// Converts octets to base64 text and back.
///
/// It keeps the state of one conversion, so an object belongs to one call on one thread.
/// Source: RFC 4648, 4, read leniently.
class ZQXMLLIB9_API CBase64 {
public:
    CBase64();
    virtual ~CBase64();

    /// The text, padded with "=" to a multiple of four characters, without line breaks.
    /// \param length  in octets
    std::u16string Encode(const unsigned char* octets, std::uint32_t length);
    /// \throws CZqOverFlowException  the length is below 0, or 4 GiB or more
    template <ZqXmlLib9::UncheckedLength TLength>
    std::u16string Encode(const unsigned char* octets, TLength length)
    {
        return Encode(octets, ZqXmlLib9::ToLength32(length));
    }

    /// Reads base64 text.
    ///
    /// Only the low seven bits of each code unit are looked at. Equals signs, blanks, tabs and line
    /// ends are skipped wherever they stand; bits at the end that make no whole octet are dropped.
    /// \param output  room for at least as many octets as `text` has code units, plus one
    /// \return the octet count; 0 if the text holds any other character
    std::uint32_t Decode(std::u16string_view text, unsigned char* output);

private:
    void Push(std::uint32_t bits, unsigned count);
    std::uint32_t Pop(unsigned count);

    std::uint32_t m_accumulator = 0;
    unsigned m_bitCount = 0;
};
