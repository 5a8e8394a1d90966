/// \file Decimal.h
/// The `decimal` type of XML Schema.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/types/BigInteger.h>
#include <ZqXmlLib9/types/MachineInteger.h>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ZqXmlLib9 {

/// An exact number with digits behind its point, of any size.
///
/// Products, quotients and texts keep at most `GetMaxDecimalPlaces()` digits behind the point and
/// are rounded to them, ties towards zero; sums keep all. Zeros at the end vanish, but for those
/// that this rounding leaves.
///
/// A plain value: copies are independent, any number of threads may read one.
class ZQXMLLIB9_API CDecimal {
public:
    /// 0.
    CDecimal();
    CDecimal(const CDecimal&);
    /// Leaves 0 behind.
    CDecimal(CDecimal&&) noexcept;
    CDecimal& operator=(const CDecimal&);
    CDecimal& operator=(CDecimal&&) noexcept;
    virtual ~CDecimal();

    template <MachineInteger TInteger>
    CDecimal(TInteger value) : CDecimal(CBigInteger(value))
    {}
    CDecimal(const CBigInteger& value);

    /// The value as printed with 13 digits behind the point, so 0.1 is 0.1 and 1E-14 is 0.
    /// \throws CZqInvalidValueException  for a NaN or an infinity, as for their text
    template <std::floating_point TFloat>
    CDecimal(TFloat value) : CDecimal(FromDouble(static_cast<double>(value)))
    {}

    /// Reads digits with an optional point and an optional exponent; as many digits as there are.
    ///
    /// White space may stand anywhere but behind digits of the exponent, a sign anywhere among the
    /// digits in front of the point, where the last one counts. What is missing is 0.
    /// \throws CZqInvalidValueException  "The string representing a Decimal, contained an invalid
    ///         char at position %d [%s]", with the position of the wrong character, counted from
    ///         0; and with that of the exponent's mark where a positive exponent would give more
    ///         than 1,000,000 digits in front of the point
    explicit CDecimal(const char16_t* text);
    explicit CDecimal(std::u16string_view text);

    /// The most digits behind the point that a product, quotient or text keeps: 30 at first.
    static std::int32_t GetMaxDecimalPlaces() noexcept;
    /// For the whole process. Values that exist meet the new number at their next operation. No
    /// other thread may be at work with decimals.
    /// \throws CZqInvalidParamException  below 1 or above 1,000,000,000
    static void SetMaxDecimalPlaces(std::int32_t places);

    /// All digits; without a point if there is nothing behind it.
    std::u16string ToString() const;

    /// At most `places` digits behind the point, which always stands, rounded half away from zero.
    /// Zeros at the end show unless the rounding left nothing else there: 1.5 gives `1.50` for 2
    /// places and `2.` for 0, 1.995 gives `2.0`.
    /// \throws CZqInvalidParamException  a negative number of places
    std::u16string ToString(std::int32_t places) const;

    /// \throws CZqOverFlowException  "The Decimal value if to large to fit into a Double", beyond
    ///         1.7E308 either way
    double ToDouble() const;

    /// Rounded to nearest, ties towards zero.
    /// \throws CZqOverFlowException  "The Decimal value if to large to fit into a LONG"
    std::int32_t ToLong() const;

    /// Rounded to one digit behind the point, ties towards zero; that digit is then dropped.
    /// \throws CZqOverFlowException  "The Decimal value if to large to fit into a LONGLONG"
    std::int64_t ToLongLong() const;

    /// Rounded to nearest, ties towards zero.
    CBigInteger ToBigInteger() const;

    void Negate() noexcept;
    CDecimal GetNegative() const;

    CDecimal& operator+=(const CDecimal& other);
    CDecimal& operator-=(const CDecimal& other);
    CDecimal& operator*=(const CDecimal& other);
    /// \throws CZqInvalidValueException  "ERROR: Overflow in operator/." by 0
    CDecimal& operator/=(const CDecimal& other);

    friend CDecimal operator+(CDecimal left, const CDecimal& right)
    {
        left += right;
        return left;
    }
    friend CDecimal operator-(CDecimal left, const CDecimal& right)
    {
        left -= right;
        return left;
    }
    friend CDecimal operator*(CDecimal left, const CDecimal& right)
    {
        left *= right;
        return left;
    }
    friend CDecimal operator/(CDecimal left, const CDecimal& right)
    {
        left /= right;
        return left;
    }

    CDecimal& operator++();
    CDecimal& operator--();
    CDecimal operator++(int);
    CDecimal operator--(int);

    /// \name Comparison by value; 0 and -0 are the same
    /// @{
    friend bool operator==(const CDecimal& left, const CDecimal& right)
    {
        return Compare(left, right) == 0;
    }
    friend bool operator<(const CDecimal& left, const CDecimal& right)
    {
        return Compare(left, right) < 0;
    }
    friend bool operator>(const CDecimal& left, const CDecimal& right)
    {
        return Compare(left, right) > 0;
    }
    friend bool operator<=(const CDecimal& left, const CDecimal& right)
    {
        return Compare(left, right) <= 0;
    }
    friend bool operator>=(const CDecimal& left, const CDecimal& right)
    {
        return Compare(left, right) >= 0;
    }
    /// @}

private:
    friend class CConversions;
    using Digits = CBigInteger::Digits;

    static CDecimal FromDouble(double value);
    /// \param maxScaledDigits  an exponent may not give the value more digits in front of its point
    void Parse(std::u16string_view text, std::int64_t maxScaledDigits);

    /// Times a power of ten, or divided by it and cut as a quotient is.
    /// \return false if the value would have too many digits; it is then unchanged
    bool Scale(std::int64_t exponent, bool isNegative, std::int64_t maxScaledDigits);
    void ChangeFractionalDivider(std::int32_t places);
    /// Removes the zeros at the end.
    void Rationalise();
    void CleanAndCap();
    /// Removes the last `count` digits, wherever the point stands.
    void RemoveDigits(std::size_t count);
    CBigInteger GetWhole() const;
    /// The digit at a place, counted from the last one.
    char16_t DigitAt(std::size_t place) const noexcept;
    /// Whether any of the last `count` digits isn't 0.
    bool HasNonZero(std::size_t count) const noexcept;
    /// The value, cut to `places` digits behind the point.
    std::u16string ToText(std::size_t places, bool isNegative) const;
    static int Compare(const CDecimal& left, const CDecimal& right);

    CBigInteger m_unscaled;     ///< all digits, as if the point stood behind them
    std::int32_t m_places = 0;  ///< how many of them stand behind the point
};

}  // namespace ZqXmlLib9
