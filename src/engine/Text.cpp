#include "UnpairedSurrogate.h"

#include "../platform/TextEncodings.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>

namespace ZqXmlLib9 {

void ThrowUnpairedSurrogate(char16_t unit, std::uint64_t position)
{
    throw CZqInvalidValueException(
        FormatString(u"The text has an unpaired surrogate [0x%04X] at position %I64u",
                     static_cast<unsigned>(unit), position));
}

std::string ToUtf8(std::u16string_view text)
{
    std::string utf8;
    const std::size_t bad = AppendAsUtf8(text, utf8);
    if (bad != kWholeText)
        ThrowUnpairedSurrogate(text[bad], bad);
    return utf8;
}

std::u16string ToUtf16(std::string_view text)
{
    std::u16string utf16;
    const std::size_t bad = AppendAsUtf16(text, utf16);
    if (bad != kWholeText)
        throw CZqInvalidValueException(
            FormatString(u"The text is not well-formed UTF-8: octet [0x%02X] at position %I64u",
                         static_cast<unsigned>(static_cast<unsigned char>(text[bad])), bad));
    return utf16;
}

}  // namespace ZqXmlLib9
