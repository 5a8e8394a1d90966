#include "DigitArithmetic.h"

#include "../platform/Ascii.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/types/BigInteger.h>
#include <ZqXmlLib9/types/Decimal.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace ZqXmlLib9 {
namespace {

constexpr std::u16string_view kPlainCharacters = u"0123456789-+ \n\r\t";

/// The digits of any unsigned integer, by repeated division.
template <typename TUnsigned>
std::vector<std::uint16_t> DigitsOf(TUnsigned value)
{
    std::vector<std::uint16_t> digits;
    digits.reserve(std::numeric_limits<TUnsigned>::digits10 + 1);
    do {
        digits.push_back(static_cast<std::uint16_t>(value % 10));
        value /= 10;
    } while (value != 0);
    return digits;
}

std::uint16_t DigitAt(const std::vector<std::uint16_t>& digits, std::size_t place)
{
    return place < digits.size() ? digits[place] : std::uint16_t{0};
}

}  // namespace

// The priority places them before the initialisers of all files that state none.
[[gnu::init_priority(101)]] const CBigInteger CBigInteger::MAX_LONG(u"2147483647");
[[gnu::init_priority(101)]] const CBigInteger CBigInteger::MIN_LONG(u"-2147483648");
[[gnu::init_priority(101)]] const CBigInteger CBigInteger::MAX_LONGLONG(u"9223372036854775807");
[[gnu::init_priority(101)]] const CBigInteger CBigInteger::MIN_LONGLONG(u"-9223372036854775808");
[[gnu::init_priority(101)]] const CBigInteger CBigInteger::MAX_DOUBLE(u"1.7E+308");
[[gnu::init_priority(101)]] const CBigInteger CBigInteger::MIN_DOUBLE(u"-1.7E+308");

CBigInteger::CBigInteger() : m_digits{0} {}
CBigInteger::CBigInteger(const CBigInteger&) = default;
CBigInteger& CBigInteger::operator=(const CBigInteger& other)
{
    m_digits = other.m_digits;  // may fail, and then the value stays
    m_sign = other.m_sign;
    return *this;
}
CBigInteger::~CBigInteger() = default;

CBigInteger::CBigInteger(CBigInteger&& other) noexcept
    : m_sign(std::exchange(other.m_sign, 1)), m_digits(std::move(other.m_digits))
{}

CBigInteger& CBigInteger::operator=(CBigInteger&& other) noexcept
{
    std::swap(m_sign, other.m_sign);
    m_digits.swap(other.m_digits);
    return *this;
}

CBigInteger::CBigInteger(std::int32_t sign, Digits digits)
    : m_sign(sign), m_digits(std::move(digits))
{}

CBigInteger::CBigInteger(bool isNegative, std::uint64_t magnitude)
    : CBigInteger(isNegative ? -1 : 1, DigitsOf(magnitude))
{}

void CBigInteger::SetDouble(double value)
{
    if (std::isinf(value))
        throw CZqInvalidValueException(u"ERROR: An infinite double is no integer.");
    m_sign = value < 0 ? -1 : 1;
    BuildDouble(std::fabs(value), m_digits);
}

CBigInteger::CBigInteger(const char16_t* text) : CBigInteger(TextOrEmpty(text)) {}

CBigInteger::CBigInteger(std::u16string_view text)
{
    Parse(text);
}

CBigInteger::CBigInteger(const CDecimal& value) : CBigInteger(value.ToBigInteger()) {}

void CBigInteger::Parse(const char16_t* text)
{
    Parse(TextOrEmpty(text));
}

void CBigInteger::Parse(std::u16string_view text)
{
    if (text.find_first_not_of(kPlainCharacters) != std::u16string_view::npos) {
        *this = CDecimal(text).ToBigInteger();
        return;
    }
    text.remove_prefix(std::min(text.find_first_not_of(u' '), text.size()));
    const bool isNegative = !text.empty() && text.front() == u'-';
    text = text.substr(0, text.find_last_not_of(u' ') + 1);
    Build(text, m_digits);
    m_sign = isNegative ? -1 : 1;
}

std::u16string CBigInteger::ToString() const
{
    if (IsZero())
        return u"0";
    const std::size_t signLength = m_sign < 0 ? 1 : 0;
    std::u16string text(signLength + m_digits.size(), u'-');
    std::ranges::transform(m_digits, text.rbegin(),
                           [](std::uint16_t digit) { return static_cast<char16_t>(u'0' + digit); });
    return text;
}

CBigInteger CBigInteger::GetNegative() const
{
    return CBigInteger(-m_sign, m_digits);
}

CBigInteger CBigInteger::GetAbs() const
{
    return CBigInteger(1, m_digits);
}

CBigInteger& CBigInteger::operator-() noexcept
{
    Negate();
    return *this;
}

// Newton's iteration from above, in integers.
CBigInteger CBigInteger::SquareRoot() const
{
    if (*this < 0)
        throw CZqInvalidValueException(u"ERROR: Negative Number in function SquareRoot().");
    CBigInteger root = Pow10((Position(m_digits) + 1) / 2);
    for (;;) {
        CBigInteger next = (root + *this / root) / 2;
        if (next >= root)
            return root;
        root = std::move(next);
    }
}

CBigInteger CBigInteger::Pow10(unsigned exponent)
{
    CBigInteger result;
    Pow10(exponent, result.m_digits);
    return result;
}

bool CBigInteger::IsZero() const noexcept
{
    return m_digits.empty() || (m_digits.size() == 1 && m_digits.front() == 0);
}

void CBigInteger::AddSigned(std::int32_t sign, const Digits& digits)
{
    if (m_sign == sign) {
        Add(m_digits, digits, m_digits);
        return;
    }
    const int order = Compare(m_digits, digits);
    if (order > 0) {
        Subtract(m_digits, digits, m_digits);
        return;
    }
    Subtract(digits, m_digits, m_digits);
    m_sign = order == 0 ? 1 : sign;
}

CBigInteger& CBigInteger::operator+=(const CBigInteger& other)
{
    AddSigned(other.m_sign, other.m_digits);
    return *this;
}

CBigInteger& CBigInteger::operator-=(const CBigInteger& other)
{
    AddSigned(-other.m_sign, other.m_digits);
    return *this;
}

CBigInteger& CBigInteger::operator*=(const CBigInteger& other)
{
    const std::int32_t sign = m_sign * other.m_sign;
    Multiply(m_digits, other.m_digits, m_digits);
    m_sign = sign;
    return *this;
}

void CBigInteger::DivideBy(const CBigInteger& other, const char16_t* message)
{
    if (other.IsZero())
        throw CZqInvalidValueException(message);
    const std::int32_t sign = IsZero() ? 1 : m_sign * other.m_sign;
    Digits remainder;
    Divide(m_digits, other.m_digits, m_digits, remainder);
    m_sign = sign;
}

void CBigInteger::ReduceBy(const CBigInteger& other, const char16_t* message)
{
    if (other.IsZero() || other.m_sign < 0)
        throw CZqInvalidValueException(message);
    if (IsZero())
        m_sign = 1;
    Digits quotient;
    Divide(m_digits, other.m_digits, quotient, m_digits);
}

CBigInteger& CBigInteger::operator/=(const CBigInteger& other)
{
    DivideBy(other, u"ERROR: Overflow in operator /=.");
    return *this;
}

CBigInteger& CBigInteger::operator%=(const CBigInteger& other)
{
    ReduceBy(other, u"ERROR: Overflow in operator%=.");
    return *this;
}

CBigInteger operator/(CBigInteger left, const CBigInteger& right)
{
    left.DivideBy(right, u"ERROR: Overflow in operator/.");
    return left;
}

CBigInteger operator%(CBigInteger left, const CBigInteger& right)
{
    left.ReduceBy(right, u"ERROR: Overflow in operator%.");
    return left;
}

bool operator==(const CBigInteger& left, const CBigInteger& right)
{
    return CBigInteger::Compare(left.m_digits, right.m_digits) == 0
           && (left.m_sign == right.m_sign || left.IsZero());
}

bool operator>(const CBigInteger& left, const CBigInteger& right)
{
    if (left.m_sign != right.m_sign)
        return left.m_sign > right.m_sign;
    return CBigInteger::Compare(left.m_digits, right.m_digits) == left.m_sign;
}

template <typename TInteger>
TInteger CBigInteger::ToMachine(const char16_t* message) const
{
    const CBigInteger lowest(std::numeric_limits<TInteger>::min());
    const CBigInteger highest(std::numeric_limits<TInteger>::max());
    if (*this < lowest || *this > highest)
        throw CZqInvalidValueException(message);
    TInteger value = 0;
    for (auto digit = m_digits.rbegin(); digit != m_digits.rend(); ++digit)
        value = static_cast<TInteger>(value * 10 + m_sign * *digit);
    return value;
}

CBigInteger::operator int() const
{
    return ToMachine<int>(u"ERROR: Value out of bound of int.");
}

CBigInteger::operator long() const
{
    return ToMachine<long>(u"ERROR: Value out of bound of LONGLONG.");
}

CBigInteger::operator long long() const
{
    return ToMachine<long long>(u"ERROR: Value out of bound of LONGLONG.");
}

int CBigInteger::Compare(const Digits& left, const Digits& right) noexcept
{
    const unsigned leftCount = Position(left);
    const unsigned rightCount = Position(right);
    if (leftCount != rightCount)
        return leftCount > rightCount ? 1 : -1;
    for (std::size_t i = leftCount; i-- > 0;)
        if (DigitAt(left, i) != DigitAt(right, i))
            return DigitAt(left, i) > DigitAt(right, i) ? 1 : -1;
    return 0;
}

unsigned CBigInteger::Position(const Digits& digits) noexcept
{
    return std::max(static_cast<unsigned>(digits.size()), 1U);
}

void CBigInteger::Clean(Digits& digits)
{
    while (digits.size() > 1 && digits.back() == 0)
        digits.pop_back();
    if (digits.empty())
        digits.push_back(0);
}

void CBigInteger::ShiftLeft(Digits& digits, unsigned count)
{
    digits.insert(digits.begin(), count, 0);
}

void CBigInteger::Pow10(unsigned exponent, Digits& result)
{
    result.assign(std::size_t{exponent} + 1, 0);
    result.back() = 1;
}

void CBigInteger::Build(std::u16string_view text, Digits& result)
{
    const auto run = std::find_if_not(text.rbegin(), text.rend(), IsDigit);
    Digits digits(static_cast<std::size_t>(run - text.rbegin()));
    std::transform(text.rbegin(), run, digits.begin(),
                   [](char16_t c) { return static_cast<std::uint16_t>(c - u'0'); });
    Clean(digits);
    result = std::move(digits);
}

void CBigInteger::Build(unsigned value, Digits& result)
{
    result = DigitsOf(value);
}

void CBigInteger::BuildDWORDLONG(std::uint64_t value, Digits& result)
{
    result = DigitsOf(value);
}

void CBigInteger::BuildDouble(double value, Digits& result)
{
    Digits digits;
    double rest = std::ceil(value - 0.5);
    while (rest > 0) {
        digits.push_back(static_cast<std::uint16_t>(std::fmod(rest, 10)));
        rest = std::trunc(rest / 10);
    }
    Clean(digits);
    result = std::move(digits);
}

void CBigInteger::Add(const Digits& left, const Digits& right, Digits& result)
{
    const std::size_t count = std::max(left.size(), right.size());
    Digits sum;
    sum.reserve(count + 1);
    unsigned carry = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const unsigned digit = DigitAt(left, i) + DigitAt(right, i) + carry;
        carry = digit > 9 ? 1 : 0;
        sum.push_back(static_cast<std::uint16_t>(digit - 10 * carry));
    }
    if (carry != 0)
        sum.push_back(1);
    Clean(sum);
    result = std::move(sum);
}

void CBigInteger::Subtract(const Digits& left, const Digits& right, Digits& result)
{
    Digits difference;
    difference.reserve(left.size());
    int borrow = 0;
    for (std::size_t i = 0; i < left.size(); ++i) {
        const int digit = left[i] - DigitAt(right, i) - borrow;
        borrow = digit < 0 ? 1 : 0;
        difference.push_back(static_cast<std::uint16_t>(digit + 10 * borrow));
    }
    Clean(difference);
    result = std::move(difference);
}

void CBigInteger::Multiply(const Digits& left, std::uint16_t digit, Digits& result)
{
    Multiply(left, Digits{digit}, result);
}

void CBigInteger::Multiply(const Digits& left, const Digits& right, Digits& result)
{
    result = MultiplyDigits(left, right);
}

void CBigInteger::Divide(const Digits& left, const Digits& right, Digits& quotient,
                         Digits& remainder)
{
    Digits rest;
    quotient = DivideDigits(left, right, rest);
    remainder = std::move(rest);
}

}  // namespace ZqXmlLib9
