#include "DigitArithmetic.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace ZqXmlLib9 {
namespace {

constexpr std::size_t kDigitsPerLimb = 9;
constexpr std::uint64_t kBase = 1'000'000'000;

/// Limbs of base 10^9, the least significant first.
using Limbs = std::vector<std::uint32_t>;

Limbs ToLimbs(const DecimalDigits& digits)
{
    Limbs limbs((digits.size() + kDigitsPerLimb - 1) / kDigitsPerLimb);
    for (std::size_t i = digits.size(); i-- > 0;) {
        std::uint32_t& limb = limbs[i / kDigitsPerLimb];
        limb = limb * 10 + digits[i];
    }
    while (!limbs.empty() && limbs.back() == 0)
        limbs.pop_back();
    return limbs;
}

DecimalDigits ToDigits(const Limbs& limbs)
{
    DecimalDigits digits(std::max<std::size_t>(limbs.size() * kDigitsPerLimb, 1));
    auto digit = digits.begin();
    for (std::uint32_t limb : limbs)
        for (std::size_t i = 0; i < kDigitsPerLimb; ++i, limb /= 10)
            *digit++ = static_cast<std::uint16_t>(limb % 10);
    while (digits.size() > 1 && digits.back() == 0)
        digits.pop_back();
    return digits;
}

/// Divides in place.
/// \return the remainder
std::uint32_t DivideByLimb(Limbs& limbs, std::uint32_t divisor)
{
    std::uint64_t remainder = 0;
    for (std::size_t i = limbs.size(); i-- > 0;) {
        const std::uint64_t value = remainder * kBase + limbs[i];
        limbs[i] = static_cast<std::uint32_t>(value / divisor);
        remainder = value % divisor;
    }
    return static_cast<std::uint32_t>(remainder);
}

void MultiplyByLimb(Limbs& limbs, std::uint32_t factor)
{
    std::uint64_t carry = 0;
    for (std::uint32_t& limb : limbs) {
        carry += std::uint64_t{limb} * factor;
        limb = static_cast<std::uint32_t>(carry % kBase);
        carry /= kBase;
    }
    if (carry != 0)
        limbs.push_back(static_cast<std::uint32_t>(carry));
}

/// Takes `digit` times `divisor` from the limbs of `dividend` that start at `place`.
/// \return false if the difference is below 0; its limbs are then those of the difference plus
///         10^9 to the power of their count
bool SubtractMultiple(Limbs& dividend, std::size_t place, const Limbs& divisor, std::uint64_t digit)
{
    std::uint64_t borrow = 0;
    for (std::size_t i = 0; i <= divisor.size(); ++i) {
        const std::uint64_t taken = borrow + (i < divisor.size() ? digit * divisor[i] : 0);
        std::uint32_t& limb = dividend[place + i];
        borrow = taken / kBase;
        const std::uint64_t low = taken % kBase;
        if (limb < low) {
            limb = static_cast<std::uint32_t>(limb + kBase - low);
            ++borrow;
        }
        else {
            limb = static_cast<std::uint32_t>(limb - low);
        }
    }
    return borrow == 0;
}

void AddBack(Limbs& dividend, std::size_t place, const Limbs& divisor)
{
    std::uint32_t carry = 0;
    for (std::size_t i = 0; i <= divisor.size(); ++i) {
        const std::uint64_t sum =
            std::uint64_t{dividend[place + i]} + (i < divisor.size() ? divisor[i] : 0) + carry;
        carry = sum >= kBase ? 1 : 0;
        dividend[place + i] = static_cast<std::uint32_t>(sum - carry * kBase);
    }
}

/// Algorithm D: each quotient limb is estimated from the leading limbs, at most one too large here.
/// \param dividend  becomes the remainder
/// \param divisor   has at least two limbs
Limbs DivideByLimbs(Limbs& dividend, Limbs divisor)
{
    // A leading limb of at least half the base keeps the estimates close.
    const auto scale = static_cast<std::uint32_t>(kBase / (divisor.back() + std::uint64_t{1}));
    MultiplyByLimb(divisor, scale);
    MultiplyByLimb(dividend, scale);
    dividend.push_back(0);
    const std::size_t count = divisor.size();
    const std::uint64_t top = divisor[count - 1];
    const std::uint64_t second = divisor[count - 2];
    Limbs quotient(dividend.size() > count ? dividend.size() - count : 0);
    for (std::size_t place = quotient.size(); place-- > 0;) {
        const std::uint64_t head = dividend[place + count] * kBase + dividend[place + count - 1];
        std::uint64_t digit = head / top;
        std::uint64_t rest = head % top;
        while (digit >= kBase || digit * second > rest * kBase + dividend[place + count - 2]) {
            --digit;
            rest += top;
            if (rest >= kBase)
                break;
        }
        if (!SubtractMultiple(dividend, place, divisor, digit)) {
            --digit;
            AddBack(dividend, place, divisor);
        }
        quotient[place] = static_cast<std::uint32_t>(digit);
    }
    DivideByLimb(dividend, scale);
    return quotient;
}

}  // namespace

DecimalDigits MultiplyDigits(const DecimalDigits& left, const DecimalDigits& right)
{
    const Limbs a = ToLimbs(left);
    const Limbs b = ToLimbs(right);
    Limbs product(a.size() + b.size());
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::uint64_t carry = 0;
        for (std::size_t j = 0; j < b.size(); ++j) {
            carry += std::uint64_t{a[i]} * b[j] + product[i + j];
            product[i + j] = static_cast<std::uint32_t>(carry % kBase);
            carry /= kBase;
        }
        product[i + b.size()] = static_cast<std::uint32_t>(carry);
    }
    return ToDigits(product);
}

DecimalDigits DivideDigits(const DecimalDigits& left, const DecimalDigits& right,
                           DecimalDigits& remainder)
{
    Limbs dividend = ToLimbs(left);
    Limbs divisor = ToLimbs(right);
    if (divisor.size() == 1) {
        const std::uint32_t rest = DivideByLimb(dividend, divisor.front());
        remainder = ToDigits({rest});
        return ToDigits(dividend);
    }
    const Limbs quotient = DivideByLimbs(dividend, std::move(divisor));
    remainder = ToDigits(dividend);
    return ToDigits(quotient);
}

}  // namespace ZqXmlLib9
