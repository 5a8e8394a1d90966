// Text of dates and durations: short texts built in place, and the fraction of a second, which both
// have.
#pragma once

#include "../platform/Ascii.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ZqXmlLib9 {

/// \throws CZqInvalidValueException  `failure` if `text` is null
std::u16string_view Required(const char16_t* text, const char16_t* failure);

/// Takes the digits at the front of `text`: 1 to 3 are milliseconds, 4 to 6 micro, 7 to 9 nano.
/// \param milli, micro, nano  0 before
/// \return false at the tenth digit
bool TakeFraction(std::u16string_view& text, std::uint16_t& milli, std::uint16_t& micro,
                  std::uint16_t& nano);

/// A text on the stack, with room for the longest date or duration: a duration with ten fields of
/// full width has 94 code units.
class CShortText {
public:
    void Put(char16_t c) { m_text[m_length++] = c; }

    /// At least `minDigits` digits; none for 0 if that is 0.
    void PutDigits(std::uint64_t value, std::size_t minDigits);

    /// The seconds and behind a point their fraction, without zeros at its end or the point alone.
    /// What doesn't fit into the three digits of a field is counted in the field before.
    void PutSeconds(std::uint64_t seconds, std::size_t minDigits, std::int64_t milli,
                    std::int64_t micro, std::int64_t nano);

    std::u16string_view GetText() const { return {m_text.data(), m_length}; }

private:
    std::array<char16_t, 128> m_text;
    std::size_t m_length = 0;
};

}  // namespace ZqXmlLib9
