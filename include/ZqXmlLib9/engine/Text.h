/// \file Text.h
/// The text type of the library, UTF-16, and its way from and to UTF-8.
#pragma once

#include <ZqXmlLib9/Export.h>

#include <string>
#include <string_view>

namespace ZqXmlLib9 {

/// The text as UTF-8.
/// \throws CZqInvalidValueException  at an unpaired surrogate, which has no UTF-8; the message
///         names the code unit and its place, counted in code units from 0
ZQXMLLIB9_API std::string ToUtf8(std::u16string_view text);

/// The text as UTF-16.
/// \throws CZqInvalidValueException  at an octet that begins no well-formed UTF-8 sequence; the
///         message names the octet and its place, counted in octets from 0
ZQXMLLIB9_API std::u16string ToUtf16(std::string_view text);

/// A null pointer counts as empty text wherever no other rule is stated.
constexpr std::u16string_view TextOrEmpty(const char16_t* text) noexcept
{
    return text != nullptr ? std::u16string_view(text) : std::u16string_view();
}

}  // namespace ZqXmlLib9
