// Decimals as one whole number and the place of its point, so that every operation is one on
// integers, or a cut in a row of digits.

#include "../platform/Ascii.h"
#include "../platform/NumberText.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/types/Decimal.h>
#include <ZqXmlLib9/types/WhitespaceUtils.h>

#include <algorithm>
#include <atomic>
#include <limits>
#include <utility>

namespace ZqXmlLib9 {
namespace {

/// A short text with a large exponent must not exhaust the memory.
constexpr std::int64_t kMaxScaledDigits = 1'000'000;

/// A quotient is worked out to this many places beyond the cap, and then rounded.
constexpr std::int32_t kGuardPlaces = 2;

/// The places of a product of two capped numbers fit 32 bits.
constexpr std::int32_t kMaxPlacesCap = 1'000'000'000;

constinit std::atomic<std::int32_t> s_maxPlaces = 30;

std::size_t ToCount(std::int64_t number)
{
    return static_cast<std::size_t>(number);
}

/// The parts of a decimal's text. Each holds digits, and what may stand between them.
struct SParts {
    std::u16string_view integer;
    std::u16string_view fraction;
    std::u16string_view exponent;
    std::size_t exponentMark = 0;
    bool isNegative = false;
    bool isExponentNegative = false;
};

class CScanner {
public:
    explicit CScanner(std::u16string_view text) : m_text(text) {}

    SParts Run()
    {
        SParts parts;
        parts.integer = Take([&](char16_t c) {
            return IsDigit(c) || CWhitespaceUtils::IsWhiteSpace(c) || TakeSign(c, parts.isNegative);
        });
        if (Peek() == u'.') {
            ++m_position;
            parts.fraction =
                Take([](char16_t c) { return IsDigit(c) || CWhitespaceUtils::IsWhiteSpace(c); });
        }
        if (Peek() == u'e' || Peek() == u'E') {
            parts.exponentMark = m_position++;
            Take([&](char16_t c) {
                return CWhitespaceUtils::IsWhiteSpace(c) || TakeSign(c, parts.isExponentNegative);
            });
            parts.exponent = Take(IsDigit);
        }
        if (m_position != m_text.size())
            Fail(m_position);
        return parts;
    }

    [[noreturn]] void Fail(std::size_t position) const
    {
        throw CZqInvalidValueException(FormatString(
            u"The string representing a Decimal, contained an invalid char at position %I64d [%s]",
            position, m_text));
    }

private:
    char16_t Peek() const { return m_position < m_text.size() ? m_text[m_position] : u'\0'; }

    static bool TakeSign(char16_t c, bool& isNegative)
    {
        if (c != u'-' && c != u'+')
            return false;
        isNegative = c == u'-';
        return true;
    }

    template <typename TAccept>
    std::u16string_view Take(TAccept accept)
    {
        const std::size_t start = m_position;
        while (m_position < m_text.size() && accept(m_text[m_position]))
            ++m_position;
        return m_text.substr(start, m_position - start);
    }

    std::u16string_view m_text;
    std::size_t m_position = 0;
};

/// The number, or one that is beyond every use.
std::int64_t ReadExponent(std::u16string_view digits)
{
    constexpr std::int64_t kBeyondUse = std::int64_t{1} << 40;
    std::int64_t exponent = 0;
    for (const char16_t c : digits)
        exponent = std::min(exponent * 10 + (c - u'0'), kBeyondUse);
    return exponent;
}

/// Adds 1 to the last digit of a number's text.
void Increment(std::u16string& text)
{
    for (std::size_t i = text.size(); i-- > 0 && text[i] != u'-';) {
        if (text[i] == u'.')
            continue;
        if (text[i] != u'9') {
            ++text[i];
            return;
        }
        text[i] = u'0';
    }
    text.insert(text.front() == u'-' ? 1 : 0, 1, u'1');
}

std::int32_t CountDigits(std::u16string_view text)
{
    const auto count = std::ranges::count_if(text, IsDigit);
    if (count > std::numeric_limits<std::int32_t>::max())
        throw CZqInvalidValueException(u"A Decimal has too many digits");
    return static_cast<std::int32_t>(count);
}

}  // namespace

CDecimal::CDecimal() = default;
CDecimal::CDecimal(const CDecimal&) = default;
CDecimal& CDecimal::operator=(const CDecimal&) = default;
CDecimal::~CDecimal() = default;

CDecimal::CDecimal(CDecimal&& other) noexcept
    : m_unscaled(std::move(other.m_unscaled)), m_places(std::exchange(other.m_places, 0))
{}

CDecimal& CDecimal::operator=(CDecimal&& other) noexcept
{
    std::swap(m_unscaled, other.m_unscaled);
    std::swap(m_places, other.m_places);
    return *this;
}

CDecimal::CDecimal(const CBigInteger& value) : m_unscaled(value) {}

CDecimal::CDecimal(const char16_t* text) : CDecimal(TextOrEmpty(text)) {}

CDecimal::CDecimal(std::u16string_view text)
{
    Parse(text, kMaxScaledDigits);
}

CDecimal CDecimal::FromDouble(double value)
{
    return CDecimal(FormatString(u"%.13f\n", value));
}

std::int32_t CDecimal::GetMaxDecimalPlaces() noexcept
{
    return s_maxPlaces.load(std::memory_order_relaxed);
}

void CDecimal::SetMaxDecimalPlaces(std::int32_t places)
{
    if (places < 1 || places > kMaxPlacesCap)
        throw CZqInvalidParamException(
            FormatString(u"A Decimal can not be limited to %d decimal places", places));
    s_maxPlaces.store(places, std::memory_order_relaxed);
}

void CDecimal::Parse(std::u16string_view text, std::int64_t maxScaledDigits)
{
    CScanner scanner(text);
    const SParts parts = scanner.Run();
    const std::int32_t places = CountDigits(parts.fraction);
    Digits digits(ToCount(CountDigits(parts.integer)) + ToCount(places));
    auto digit = digits.rbegin();
    for (const std::u16string_view part : {parts.integer, parts.fraction})
        for (const char16_t c : part)
            if (IsDigit(c))
                *digit++ = static_cast<std::uint16_t>(c - u'0');
    CBigInteger::Clean(digits);
    m_unscaled = CBigInteger(parts.isNegative ? -1 : 1, std::move(digits));
    m_places = places;
    if (!parts.exponent.empty()) {
        if (!Scale(ReadExponent(parts.exponent), parts.isExponentNegative, maxScaledDigits))
            scanner.Fail(parts.exponentMark);
        CleanAndCap();
    }
    CleanAndCap();
}

bool CDecimal::Scale(std::int64_t exponent, bool isNegative, std::int64_t maxScaledDigits)
{
    Digits& digits = m_unscaled.m_digits;
    if (isNegative) {
        const std::int64_t places = m_places + exponent;
        const std::int64_t kept =
            std::min<std::int64_t>(places, GetMaxDecimalPlaces() + kGuardPlaces);
        RemoveDigits(ToCount(places - kept));
        m_places = static_cast<std::int32_t>(kept);
    }
    else if (!m_unscaled.IsZero()) {
        const std::int64_t inFront = CBigInteger::Position(digits) - std::int64_t{m_places};
        if (exponent > 0 && inFront + exponent > maxScaledDigits)
            return false;
        const std::int64_t taken = std::min<std::int64_t>(exponent, m_places);
        CBigInteger::ShiftLeft(digits, static_cast<unsigned>(exponent - taken));
        m_places -= static_cast<std::int32_t>(taken);
    }
    if (m_unscaled.IsZero())
        m_unscaled.Abs();
    return true;
}

std::u16string CDecimal::ToText(std::size_t places, bool isNegative) const
{
    const auto unscaledPlaces = ToCount(m_places);
    const std::size_t inFront = std::max(m_unscaled.m_digits.size(), unscaledPlaces + 1);
    std::u16string text;
    text.reserve(inFront - unscaledPlaces + places + 3);
    if (isNegative)
        text.push_back(u'-');
    for (std::size_t i = inFront; i-- > unscaledPlaces;)
        text.push_back(DigitAt(i));
    text.push_back(u'.');
    for (std::size_t i = 1; i <= places; ++i)
        text.push_back(i <= unscaledPlaces ? DigitAt(unscaledPlaces - i) : u'0');
    return text;
}

std::u16string CDecimal::ToString() const
{
    const bool isNegative = m_unscaled.m_sign < 0;
    if (HasNonZero(ToCount(m_places)))
        return ToText(ToCount(m_places), isNegative);
    std::u16string text = ToText(0, isNegative && !m_unscaled.IsZero());
    text.pop_back();
    return text;
}

std::u16string CDecimal::ToString(std::int32_t places) const
{
    if (places < 0)
        throw CZqInvalidParamException(
            FormatString(u"A Decimal can not be printed with %d decimal places", places));
    std::u16string text = ToText(ToCount(places), m_unscaled.m_sign < 0);
    if (places >= m_places)
        return text;
    const std::size_t firstDropped = ToCount(m_places) - ToCount(places) - 1;
    if (DigitAt(firstDropped) >= u'5')
        Increment(text);
    const bool isHalf = DigitAt(firstDropped) == u'5' && !HasNonZero(firstDropped);
    while (isHalf && places-- > 1 && text.back() == u'0')
        text.pop_back();
    return text;
}

double CDecimal::ToDouble() const
{
    const CBigInteger whole = GetWhole();
    if (whole < CBigInteger::MIN_DOUBLE || whole > CBigInteger::MAX_DOUBLE)
        throw CZqOverFlowException(u"The Decimal value if to large to fit into a Double");
    double value = 0;
    ReadDouble(ToString(), value);
    return value;
}

std::int32_t CDecimal::ToLong() const
{
    const CBigInteger rounded = ToBigInteger();
    if (rounded < CBigInteger::MIN_LONG || rounded > CBigInteger::MAX_LONG)
        throw CZqOverFlowException(u"The Decimal value if to large to fit into a LONG");
    return static_cast<int>(rounded);
}

std::int64_t CDecimal::ToLongLong() const
{
    CDecimal rounded = *this;
    rounded.ChangeFractionalDivider(1);
    const CBigInteger whole = rounded.GetWhole();
    if (whole < CBigInteger::MIN_LONGLONG || whole > CBigInteger::MAX_LONGLONG)
        throw CZqOverFlowException(u"The Decimal value if to large to fit into a LONGLONG");
    return static_cast<std::int64_t>(whole);
}

CBigInteger CDecimal::ToBigInteger() const
{
    CDecimal rounded = *this;
    rounded.ChangeFractionalDivider(0);
    return std::move(rounded.m_unscaled);
}

void CDecimal::Negate() noexcept
{
    m_unscaled.Negate();
}

CDecimal CDecimal::GetNegative() const
{
    CDecimal negative = *this;
    negative.Negate();
    return negative;
}

CDecimal& CDecimal::operator+=(const CDecimal& other)
{
    CDecimal right = other;
    const std::int32_t places = std::max(m_places, right.m_places);
    ChangeFractionalDivider(places);
    right.ChangeFractionalDivider(places);
    m_unscaled += right.m_unscaled;
    Rationalise();
    return *this;
}

CDecimal& CDecimal::operator-=(const CDecimal& other)
{
    return *this += other.GetNegative();
}

// What fails midway leaves this value as it was.
CDecimal& CDecimal::operator*=(const CDecimal& other)
{
    CDecimal product;
    CBigInteger::Multiply(m_unscaled.m_digits, other.m_unscaled.m_digits,
                          product.m_unscaled.m_digits);
    product.m_places = m_places + other.m_places;
    product.m_unscaled.m_sign =
        product.m_unscaled.IsZero() ? 1 : m_unscaled.m_sign * other.m_unscaled.m_sign;
    product.CleanAndCap();
    return *this = std::move(product);
}

CDecimal& CDecimal::operator/=(const CDecimal& other)
{
    const std::int32_t places = GetMaxDecimalPlaces() + kGuardPlaces;
    const std::int32_t shift = places + other.m_places - m_places;
    CBigInteger dividend = m_unscaled;
    CBigInteger divisor = other.m_unscaled;
    CBigInteger::ShiftLeft((shift < 0 ? divisor : dividend).m_digits,
                           static_cast<unsigned>(std::abs(shift)));
    CBigInteger::Clean(dividend.m_digits);
    CBigInteger::Clean(divisor.m_digits);
    CDecimal quotient(std::move(dividend) / divisor);
    quotient.m_places = places;
    if (quotient.m_unscaled.IsZero())
        quotient.m_unscaled.Abs();
    quotient.CleanAndCap();
    return *this = std::move(quotient);
}

CDecimal& CDecimal::operator++()
{
    return *this += CDecimal(1);
}

CDecimal& CDecimal::operator--()
{
    return *this -= CDecimal(1);
}

CDecimal CDecimal::operator++(int)
{
    CDecimal before = *this;
    ++*this;
    return before;
}

CDecimal CDecimal::operator--(int)
{
    CDecimal before = *this;
    --*this;
    return before;
}

char16_t CDecimal::DigitAt(std::size_t place) const noexcept
{
    const Digits& digits = m_unscaled.m_digits;
    return static_cast<char16_t>(u'0' + (place < digits.size() ? digits[place] : 0));
}

bool CDecimal::HasNonZero(std::size_t count) const noexcept
{
    const Digits& digits = m_unscaled.m_digits;
    const auto end = digits.begin() + static_cast<std::ptrdiff_t>(std::min(count, digits.size()));
    return std::any_of(digits.begin(), end, [](std::uint16_t digit) { return digit != 0; });
}

CBigInteger CDecimal::GetWhole() const
{
    CDecimal whole = *this;
    whole.RemoveDigits(ToCount(m_places));
    return std::move(whole.m_unscaled);
}

void CDecimal::RemoveDigits(std::size_t count)
{
    Digits& digits = m_unscaled.m_digits;
    digits.erase(digits.begin(),
                 digits.begin() + static_cast<std::ptrdiff_t>(std::min(count, digits.size())));
    CBigInteger::Clean(digits);
}

void CDecimal::ChangeFractionalDivider(std::int32_t places)
{
    Digits& digits = m_unscaled.m_digits;
    if (places >= m_places) {
        CBigInteger::ShiftLeft(digits, static_cast<unsigned>(places - m_places));
        CBigInteger::Clean(digits);
    }
    else {
        const std::size_t dropped = ToCount(m_places) - ToCount(places);
        const char16_t first = DigitAt(dropped - 1);
        const bool isUp = first > u'5' || (first == u'5' && HasNonZero(dropped - 1));
        RemoveDigits(dropped);
        if (isUp)
            CBigInteger::Add(digits, {1}, digits);
    }
    m_places = places;
}

void CDecimal::Rationalise()
{
    const Digits& digits = m_unscaled.m_digits;
    const auto limit = static_cast<std::ptrdiff_t>(std::min(ToCount(m_places), digits.size()));
    const auto kept = std::find_if(digits.begin(), digits.begin() + limit,
                                   [](std::uint16_t digit) { return digit != 0; });
    const auto zeros = kept - digits.begin();
    m_places = m_unscaled.IsZero() ? 0 : m_places - static_cast<std::int32_t>(zeros);
    RemoveDigits(ToCount(zeros));
}

void CDecimal::CleanAndCap()
{
    Rationalise();
    if (m_places > GetMaxDecimalPlaces())
        ChangeFractionalDivider(GetMaxDecimalPlaces());
}

int CDecimal::Compare(const CDecimal& left, const CDecimal& right)
{
    const auto signOf = [](const CDecimal& d) {
        return d.m_unscaled.IsZero() ? 0 : d.m_unscaled.m_sign;
    };
    const int sign = signOf(left);
    if (sign != signOf(right))
        return sign > signOf(right) ? 1 : -1;
    if (sign == 0)
        return 0;
    const Digits& a = left.m_unscaled.m_digits;
    const Digits& b = right.m_unscaled.m_digits;
    const std::int64_t order = (std::ssize(a) - left.m_places) - (std::ssize(b) - right.m_places);
    if (order != 0)
        return order > 0 ? sign : -sign;
    for (std::size_t i = 1; i <= std::max(a.size(), b.size()); ++i) {
        const int difference =
            (i <= a.size() ? a[a.size() - i] : 0) - (i <= b.size() ? b[b.size() - i] : 0);
        if (difference != 0)
            return difference > 0 ? sign : -sign;
    }
    return 0;
}

}  // namespace ZqXmlLib9
