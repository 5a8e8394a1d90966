/// \file BigInteger.h
/// The `integer` family of XML Schema.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/types/MachineInteger.h>

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ZqXmlLib9 {

class CDecimal;

/// An integer of any size, kept in decimal digits as its text shows them.
///
/// Zero has a sign too, the one that its text or calculation left: `-0` and `-1 / 2` are equal to
/// 0, but the comparisons by order look at signs first and find them below it.
///
/// A plain value: copies are independent, any number of threads may read one. Sums cost time in
/// proportion to the digits, products and quotients to the product of the digits of both sides.
class ZQXMLLIB9_API CBigInteger {
public:
    /// \name Ends of the machine types
    /// They are ready before the static initialisers of any other file run.
    /// @{
    static const CBigInteger MAX_LONG;      ///< 2147483647
    static const CBigInteger MIN_LONG;      ///< -2147483648
    static const CBigInteger MAX_LONGLONG;  ///< 9223372036854775807
    static const CBigInteger MIN_LONGLONG;  ///< -9223372036854775808
    static const CBigInteger MAX_DOUBLE;    ///< 1.7E+308
    static const CBigInteger MIN_DOUBLE;    ///< -1.7E+308
    /// @}

    /// 0.
    CBigInteger();
    CBigInteger(const CBigInteger&);
    /// Leaves 0 behind.
    CBigInteger(CBigInteger&&) noexcept;
    CBigInteger& operator=(const CBigInteger&);
    CBigInteger& operator=(CBigInteger&&) noexcept;
    virtual ~CBigInteger();

    template <MachineInteger TInteger>
    CBigInteger(TInteger value)
        : CBigInteger(std::cmp_less(value, 0), std::cmp_less(value, 0)
                                                   ? 0 - static_cast<std::uint64_t>(value)
                                                   : static_cast<std::uint64_t>(value))
    {}

    /// The nearest integer, halves down; its digits are those that division by 10 in double
    /// arithmetic gives. A NaN is 0.
    /// \throws CZqInvalidValueException  "ERROR: An infinite double is no integer."
    template <std::floating_point TFloat>
    explicit CBigInteger(TFloat value)
    {
        SetDouble(static_cast<double>(value));
    }

    /// \throws CZqInvalidValueException  as `Parse`
    explicit CBigInteger(const char16_t* text);
    explicit CBigInteger(std::u16string_view text);

    /// Rounds to nearest, ties towards zero.
    explicit CBigInteger(const CDecimal& value);

    /// Replaces the value.
    ///
    /// Blanks at the ends don't count, then comes "-" or nothing, and of the rest only the digits
    /// that stand last: `1 2` is 2, `+12-3` is 3. No digit at all is 0. Text with any character
    /// other than digits, signs, blanks, tabs and line ends is read as a decimal and rounded.
    /// \throws CZqInvalidValueException  what `CDecimal` throws for such text; the value stays
    void Parse(const char16_t* text);
    void Parse(std::u16string_view text);

    /// The digits without leading zeros, behind "-" below 0; zero has no sign here.
    std::u16string ToString() const;

    void Negate() noexcept { m_sign = -m_sign; }
    void Abs() noexcept { m_sign = 1; }
    CBigInteger GetNegative() const;
    CBigInteger GetAbs() const;
    /// Changes the sign of this object itself.
    CBigInteger& operator-() noexcept;

    /// The largest integer whose square is at most this value.
    /// \throws CZqInvalidValueException  "ERROR: Negative Number in function SquareRoot()." below
    ///         0; "ERROR: Overflow in operator/." for 0
    CBigInteger SquareRoot() const;

    /// 10 to the power of `exponent`.
    static CBigInteger Pow10(unsigned exponent);

    CBigInteger& operator+=(const CBigInteger& other);
    CBigInteger& operator-=(const CBigInteger& other);
    CBigInteger& operator*=(const CBigInteger& other);
    /// Truncates towards zero.
    /// \throws CZqInvalidValueException  "ERROR: Overflow in operator /=." by 0
    CBigInteger& operator/=(const CBigInteger& other);
    /// The remainder has the sign of this value.
    /// \throws CZqInvalidValueException  "ERROR: Overflow in operator%=." by 0 or a negative value
    CBigInteger& operator%=(const CBigInteger& other);

    friend CBigInteger operator+(CBigInteger left, const CBigInteger& right)
    {
        left += right;
        return left;
    }
    friend CBigInteger operator-(CBigInteger left, const CBigInteger& right)
    {
        left -= right;
        return left;
    }
    friend CBigInteger operator*(CBigInteger left, const CBigInteger& right)
    {
        left *= right;
        return left;
    }
    /// \throws CZqInvalidValueException  "ERROR: Overflow in operator/." by 0
    friend ZQXMLLIB9_API CBigInteger operator/(CBigInteger left, const CBigInteger& right);
    /// \throws CZqInvalidValueException  "ERROR: Overflow in operator%." by 0 or a negative value
    friend ZQXMLLIB9_API CBigInteger operator%(CBigInteger left, const CBigInteger& right);

    friend ZQXMLLIB9_API bool operator==(const CBigInteger& left, const CBigInteger& right);
    friend ZQXMLLIB9_API bool operator>(const CBigInteger& left, const CBigInteger& right);
    friend bool operator<(const CBigInteger& left, const CBigInteger& right)
    {
        return right > left;
    }
    friend bool operator>=(const CBigInteger& left, const CBigInteger& right)
    {
        return !(left < right);
    }
    friend bool operator<=(const CBigInteger& left, const CBigInteger& right)
    {
        return !(left > right);
    }

    /// \name Conversions to the machine types
    /// Explicit, because they fail out of range: `static_cast<int>(number)`.
    /// \throws CZqInvalidValueException  "ERROR: Value out of bound of int." or
    ///         "ERROR: Value out of bound of LONGLONG."
    /// @{
    explicit operator int() const;
    explicit operator long() const;
    explicit operator long long() const;
    /// @}

protected:
    /// Decimal digits, 0 to 9, the least significant first. None is 0.
    using Digits = std::vector<std::uint16_t>;

    /// \param sign    1 or -1
    /// \param digits  taken as they are
    CBigInteger(std::int32_t sign, Digits digits);

    /// \name Arithmetic of magnitudes
    /// The operands are clean; a result may be the same object as an operand.
    /// @{
    /// \return 1, 0 or -1
    static int Compare(const Digits& left, const Digits& right) noexcept;
    /// The digit count, at least 1.
    static unsigned Position(const Digits& digits) noexcept;
    /// Removes the zeros in front, but for one digit.
    static void Clean(Digits& digits);
    /// Times 10 to the power of `count`.
    static void ShiftLeft(Digits& digits, unsigned count);
    static void Pow10(unsigned exponent, Digits& result);
    /// The digits that stand last in `text`, 0 without one.
    static void Build(std::u16string_view text, Digits& result);
    static void Build(unsigned value, Digits& result);
    static void BuildDWORDLONG(std::uint64_t value, Digits& result);
    /// \param value  not infinite
    static void BuildDouble(double value, Digits& result);
    static void Add(const Digits& left, const Digits& right, Digits& result);
    /// \param left  not below `right`
    static void Subtract(const Digits& left, const Digits& right, Digits& result);
    /// \param digit  0 to 9
    static void Multiply(const Digits& left, std::uint16_t digit, Digits& result);
    static void Multiply(const Digits& left, const Digits& right, Digits& result);
    /// \param right  not 0
    static void Divide(const Digits& left, const Digits& right, Digits& quotient,
                       Digits& remainder);
    /// @}

private:
    /// It works on the digits where whole powers of ten are concerned.
    friend class CDecimal;

    CBigInteger(bool isNegative, std::uint64_t magnitude);
    void SetDouble(double value);

    bool IsZero() const noexcept;
    void AddSigned(std::int32_t sign, const Digits& digits);
    void DivideBy(const CBigInteger& other, const char16_t* message);
    void ReduceBy(const CBigInteger& other, const char16_t* message);
    template <typename TInteger>
    TInteger ToMachine(const char16_t* message) const;

    std::int32_t m_sign = 1;
    Digits m_digits;
};

}  // namespace ZqXmlLib9
