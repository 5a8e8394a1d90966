#include "../platform/Ascii.h"
#include "../platform/NumberText.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/types/Conversions.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

namespace ZqXmlLib9 {
namespace {

/// So many digits may the exponent of a decimal make.
constexpr std::size_t kMaxScaledDigits = 1000;

/// The text under a white space rule; it is copied only where the rule changes it.
class CRuledText {
public:
    CRuledText(CWhitespaceUtils::WhitespaceRule rule, std::u16string_view text) : m_view(text)
    {
        if (rule == CWhitespaceUtils::WhitespaceRule_Collapse)
            Trim();
        if (KeepsText(rule))
            return;
        m_changed = CWhitespaceUtils::ApplyRule(rule, m_view);
        m_view = m_changed;
    }
    CRuledText(const CRuledText&) = delete;
    CRuledText& operator=(const CRuledText&) = delete;

    std::u16string_view operator*() const noexcept { return m_view; }

private:
    bool KeepsText(CWhitespaceUtils::WhitespaceRule rule) const
    {
        if (rule == CWhitespaceUtils::WhitespaceRule_None)
            return true;
        return rule >= CWhitespaceUtils::WhitespaceRule_Preserve
               && rule <= CWhitespaceUtils::WhitespaceRule_Collapse
               && std::ranges::none_of(m_view, CWhitespaceUtils::IsWhiteSpace);
    }

    void Trim()
    {
        constexpr std::u16string_view kBlanks = u" \t\r\n";
        m_view.remove_prefix(std::min(m_view.find_first_not_of(kBlanks), m_view.size()));
        m_view = m_view.substr(0, m_view.find_last_not_of(kBlanks) + 1);
    }

    std::u16string m_changed;
    std::u16string_view m_view;
};

[[noreturn]] void FailTooLarge(std::u16string_view text, const char16_t* type)
{
    throw CZqInvalidValueException(
        FormatString(u"The value [%s] is to large to fit in a %s", text, type));
}

[[noreturn]] void FailToConvert(std::u16string_view text, const char16_t* type)
{
    throw CZqInvalidValueException(
        FormatString(u"The value [%s] can not be converted to a %s", text, type));
}

template <typename TNumber, typename... TForm>
std::u16string Print(TNumber value, TForm... form)
{
    std::array<char, 32> buffer;  // 24 characters at most: a double of 16 digits
    char* const begin = buffer.data();
    const auto printed = std::to_chars(begin, begin + buffer.size(), value, form...);
    return std::u16string(begin, printed.ptr);
}

/// \param name  of the type, for messages
template <typename TInteger>
TInteger ReadInteger(std::u16string_view text, const char16_t* name)
{
    const SWholeNumber number = ReadWholeNumber(text);
    std::uint64_t limit = std::numeric_limits<TInteger>::max();
    if (std::is_signed_v<TInteger> && number.isNegative)
        ++limit;
    if (number.isTooLarge || number.magnitude > limit)
        FailTooLarge(text, name);
    if (number.length != text.size())
        FailToConvert(text, name);
    return static_cast<TInteger>(number.isNegative ? 0 - number.magnitude : number.magnitude);
}

/// Reads a wider kind, whose failures it lets through, and tests it.
template <typename TInteger, typename TWide>
TInteger ReadNarrow(std::u16string_view text, CWhitespaceUtils::WhitespaceRule rule,
                    const char16_t* wideName, const char16_t* name)
{
    const TWide value = ReadInteger<TWide>(*CRuledText(rule, text), wideName);
    if (!std::in_range<TInteger>(value))
        FailTooLarge(text, name);
    return static_cast<TInteger>(value);
}

template <typename TFloat>
std::u16string PrintFloat(TFloat value, const char16_t* format, int digits)
{
    if (std::isnan(value))
        return u"NaN";
    if (std::isinf(value))
        return value < 0 ? u"-INF" : u"INF";
    if (format != nullptr)
        return FormatNumber(format, value);
    return Print(static_cast<double>(value), std::chars_format::general, digits);
}

double ReadFloat(std::u16string_view text, const char16_t* name)
{
    constexpr std::u16string_view kNaNs[] = {u"", u"NaN", u"1.#QNAN", u"-NAN"};
    if (std::ranges::find(kNaNs, text) != std::end(kNaNs))
        return std::numeric_limits<double>::quiet_NaN();
    double value = 0;
    if (ReadDouble(text, value) != text.size())
        FailToConvert(text, name);
    return value;
}

/// \param parse  the operation of `CDateTime` that knows the form
CDateTime ReadDate(std::u16string_view text, void (CDateTime::*parse)(std::u16string_view))
{
    CDateTime date;
    (date.*parse)(text);
    return date;
}

}  // namespace

std::u16string CConversions::stringToString(std::u16string_view value)
{
    return std::u16string(value);
}

std::u16string CConversions::stringFromString(std::u16string_view text, WhitespaceRule rule)
{
    return CWhitespaceUtils::ApplyRule(rule, text);
}

std::u16string CConversions::charToString(char16_t value)
{
    return std::u16string(1, value);
}

char16_t CConversions::charFromString(std::u16string_view text, WhitespaceRule rule)
{
    const CRuledText ruled(rule, text);
    if ((*ruled).size() != 1)
        throw CZqInvalidValueException(FormatString(
            u"The value [%s] can not be a char as it is either empty of greater than 1 char long",
            *ruled));
    return (*ruled).front();
}

std::u16string CConversions::booleanToString(bool value)
{
    return value ? u"true" : u"false";
}

bool CConversions::booleanFromString(std::u16string_view text, WhitespaceRule rule)
{
    const CRuledText ruled(rule, text);
    for (const auto& [word, value] : {std::pair(u"true", true), std::pair(u"false", false),
                                      std::pair(u"1", true), std::pair(u"0", false)})
        if (EqualsIgnoringCase(*ruled, word))
            return value;
    throw CZqInvalidValueException(
        FormatString(u"A Boolean Value read from an XML document was invalid [%s]. Valid values "
                     u"are 'true', 'false', '1', or '0'",
                     text));
}

std::u16string CConversions::i1ToString(std::int8_t value)
{
    return Print(value);
}

std::u16string CConversions::i2ToString(std::int16_t value)
{
    return Print(value);
}

std::u16string CConversions::i4ToString(std::int32_t value)
{
    return Print(value);
}

std::u16string CConversions::i8ToString(std::int64_t value)
{
    return Print(value);
}

std::u16string CConversions::ui1ToString(std::uint8_t value)
{
    return Print(value);
}

std::u16string CConversions::ui2ToString(std::uint16_t value)
{
    return Print(value);
}

std::u16string CConversions::ui4ToString(std::uint32_t value)
{
    return Print(value);
}

std::u16string CConversions::ui8ToString(std::uint64_t value)
{
    return Print(value);
}

std::int8_t CConversions::i1FromString(std::u16string_view text, WhitespaceRule rule)
{
    return ReadNarrow<std::int8_t, std::int32_t>(text, rule, u"i4", u"i1");
}

std::int16_t CConversions::i2FromString(std::u16string_view text, WhitespaceRule rule)
{
    return ReadNarrow<std::int16_t, std::int32_t>(text, rule, u"i4", u"i2");
}

std::int32_t CConversions::i4FromString(std::u16string_view text, WhitespaceRule rule)
{
    return ReadInteger<std::int32_t>(*CRuledText(rule, text), u"i4");
}

std::int64_t CConversions::i8FromString(std::u16string_view text, WhitespaceRule rule)
{
    return ReadInteger<std::int64_t>(*CRuledText(rule, text), u"i8");
}

std::uint8_t CConversions::ui1FromString(std::u16string_view text, WhitespaceRule rule)
{
    return ReadNarrow<std::uint8_t, std::uint32_t>(text, rule, u"ui4", u"ui1");
}

std::uint16_t CConversions::ui2FromString(std::u16string_view text, WhitespaceRule rule)
{
    return ReadNarrow<std::uint16_t, std::uint32_t>(text, rule, u"ui4", u"ui2");
}

std::uint32_t CConversions::ui4FromString(std::u16string_view text, WhitespaceRule rule)
{
    return ReadInteger<std::uint32_t>(*CRuledText(rule, text), u"ui4");
}

std::uint64_t CConversions::ui8FromString(std::u16string_view text, WhitespaceRule rule)
{
    return ReadInteger<std::uint64_t>(*CRuledText(rule, text), u"ui8");
}

std::u16string CConversions::r4ToString(float value, const char16_t* format)
{
    return PrintFloat(value, format, 7);
}

std::u16string CConversions::r8ToString(double value, const char16_t* format)
{
    return PrintFloat(value, format, 16);
}

float CConversions::r4FromString(std::u16string_view text, WhitespaceRule rule)
{
    return static_cast<float>(ReadFloat(*CRuledText(rule, text), u"r4"));
}

double CConversions::r8FromString(std::u16string_view text, WhitespaceRule rule)
{
    return ReadFloat(*CRuledText(rule, text), u"r8");
}

std::u16string CConversions::decimalToString(const CDecimal& value, const char16_t* format)
{
    if (format == nullptr)
        return value.ToString();
    const SWholeNumber places = ReadWholeNumber(format);
    if (places.isTooLarge || places.magnitude > std::numeric_limits<std::int32_t>::max())
        throw CZqInvalidParamException(
            FormatString(u"A Decimal can not be printed with %s decimal places", format));
    const auto count = static_cast<std::int32_t>(places.magnitude);
    return value.ToString(places.isNegative ? -count : count);
}

CDecimal CConversions::decimalFromString(std::u16string_view text, WhitespaceRule rule)
{
    const CRuledText ruled(rule, text);
    CDecimal value;
    value.Parse(*ruled, static_cast<std::int64_t>(std::max(kMaxScaledDigits, (*ruled).size())));
    return value;
}

std::u16string CConversions::integerToString(const CBigInteger& value)
{
    return value.ToString();
}

CBigInteger CConversions::integerFromString(std::u16string_view text, WhitespaceRule rule)
{
    // A number with an exponent is read as a decimal, and rounded.
    if (text.find_first_of(u"eE") != std::u16string_view::npos)
        return decimalFromString(text, rule).ToBigInteger();
    return CBigInteger(*CRuledText(rule, text));
}

std::u16string CConversions::dateToString(const CDateTime& value)
{
    return value.ToString();
}

std::u16string CConversions::datetimeToString(const CDateTime& value)
{
    return value.ToString();
}

std::u16string CConversions::timeToString(const CDateTime& value)
{
    return value.ToString();
}

std::u16string CConversions::yearMonthToString(const CDateTime& value)
{
    return value.ToString();
}

std::u16string CConversions::monthDayToString(const CDateTime& value)
{
    return value.ToString();
}

CDateTime CConversions::dateFromString(std::u16string_view text, WhitespaceRule rule)
{
    return ReadDate(*CRuledText(rule, text), &CDateTime::ParseXSDDate);
}

CDateTime CConversions::datetimeFromString(std::u16string_view text, WhitespaceRule rule)
{
    return ReadDate(*CRuledText(rule, text), &CDateTime::ParseXSDDateTime);
}

CDateTime CConversions::timeFromString(std::u16string_view text, WhitespaceRule rule)
{
    return ReadDate(*CRuledText(rule, text), &CDateTime::ParseXSDTime);
}

CDateTime CConversions::yearMonthFromString(std::u16string_view text, WhitespaceRule rule)
{
    return dateFromString(text, rule);
}

CDateTime CConversions::monthDayFromString(std::u16string_view text, WhitespaceRule rule)
{
    return dateFromString(text, rule);
}

std::u16string CConversions::yearToString(std::uint16_t value)
{
    return Print(value);
}

std::u16string CConversions::monthToString(std::uint8_t value)
{
    return (value < 10 ? u"--0" : u"--") + Print(value);
}

std::u16string CConversions::dayToString(std::uint8_t value)
{
    return (value < 10 ? u"---0" : u"---") + Print(value);
}

std::uint16_t CConversions::yearFromString(std::u16string_view text, WhitespaceRule rule)
{
    return static_cast<std::uint16_t>(dateFromString(text, rule).GetYear());
}

std::uint8_t CConversions::monthFromString(std::u16string_view text, WhitespaceRule rule)
{
    return dateFromString(text, rule).GetMonth();
}

std::uint8_t CConversions::dayFromString(std::u16string_view text, WhitespaceRule rule)
{
    return dateFromString(text, rule).GetDay();
}

std::u16string CConversions::durationToString(const CDateTimeSpan& value)
{
    return value.ToString();
}

CDateTimeSpan CConversions::durationFromString(std::u16string_view text, WhitespaceRule rule)
{
    CDateTimeSpan span;
    span.ParseXSDDuration(*CRuledText(rule, text));
    return span;
}

std::u16string CConversions::hexBinaryToString(const CBinaryData& value)
{
    return value.GetAsHexString();
}

std::u16string CConversions::base64BinaryToString(const CBinaryData& value)
{
    return value.GetAsBase64();
}

CBinaryData CConversions::hexBinaryFromString(std::u16string_view text, WhitespaceRule rule)
{
    CBinaryData data;
    data.SetAsHexString(*CRuledText(rule, text));
    return data;
}

CBinaryData CConversions::base64BinaryFromString(std::u16string_view text, WhitespaceRule rule)
{
    CBinaryData data;
    data.SetAsBase64(*CRuledText(rule, text));
    return data;
}

}  // namespace ZqXmlLib9
