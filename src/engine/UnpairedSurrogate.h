// The failure of text that has no UTF-8.
#pragma once

#include <cstdint>

namespace ZqXmlLib9 {

/// \param position  in code units from the start of the text, or of the document
/// \throws CZqInvalidValueException  "The text has an unpaired surrogate [0x%04X] at position
///         %I64u"
[[noreturn]] void ThrowUnpairedSurrogate(char16_t unit, std::uint64_t position);

}  // namespace ZqXmlLib9
