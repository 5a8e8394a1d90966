// Products and quotients of decimal digits.
//
// They are worked out nine digits at a time, schoolbook in limbs of base 10^9: nothing is converted
// between bases but by regrouping, and a digit costs a ninth of a step on either side.
//
// Source: D. Knuth, The Art of Computer Programming, volume 2, 4.3.1 (algorithms M and D).
#pragma once

#include <cstdint>
#include <vector>

namespace ZqXmlLib9 {

/// Decimal digits, 0 to 9, the least significant first, without zeros in front but for 0 itself.
using DecimalDigits = std::vector<std::uint16_t>;

DecimalDigits MultiplyDigits(const DecimalDigits& left, const DecimalDigits& right);

/// \param right  not 0
/// \return the quotient
DecimalDigits DivideDigits(const DecimalDigits& left, const DecimalDigits& right,
                           DecimalDigits& remainder);

}  // namespace ZqXmlLib9
