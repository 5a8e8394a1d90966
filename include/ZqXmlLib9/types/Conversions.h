/// \file Conversions.h
/// The XML text of every value type.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/types/BigInteger.h>
#include <ZqXmlLib9/types/BinaryData.h>
#include <ZqXmlLib9/types/DateTime.h>
#include <ZqXmlLib9/types/DateTimeSpan.h>
#include <ZqXmlLib9/types/Decimal.h>
#include <ZqXmlLib9/types/WhitespaceUtils.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace ZqXmlLib9 {

/// The one place where a value meets its text: two operations for each type, named after the type
/// words of `ZqVariant::GetType`. They have no state; any thread may call.
///
/// Every `...FromString` applies its white space rule first and reads the whole of what is left.
/// Digits are ASCII digits, and the locale has no say. What a text is refused with is a
/// `CZqInvalidValueException`, unless stated; a rule outside its range is "Unknown WhitespaceRule".
class ZQXMLLIB9_API CConversions {
public:
    using WhitespaceRule = CWhitespaceUtils::WhitespaceRule;

    /// \name Text
    /// @{
    static std::u16string stringToString(std::u16string_view value);
    static std::u16string stringFromString(std::u16string_view text, WhitespaceRule rule);

    static std::u16string charToString(char16_t value);
    /// \throws CZqInvalidValueException  "The value [%s] can not be a char as it is either empty of
    ///         greater than 1 char long", also for a pair of surrogates
    static char16_t charFromString(std::u16string_view text, WhitespaceRule rule);
    /// @}

    /// "true" or "false".
    static std::u16string booleanToString(bool value);
    /// Takes "true", "false" in any case, "1" and "0".
    /// \throws CZqInvalidValueException  "A Boolean Value read from an XML document was invalid
    ///         [%s]. Valid values are 'true', 'false', '1', or '0'", with the text as it came in
    static bool booleanFromString(std::u16string_view text, WhitespaceRule rule);

    /// \name Integers of the machine
    ///
    /// Reading takes white space in front, then "+" or "-", then digits; an empty text is 0. The
    /// unsigned kinds take "-" too: the magnitude is negated in the type, so "-1" is the largest
    /// `ui4`. The narrow kinds read a `ui4` or an `i4` and test it.
    /// \throws CZqInvalidValueException  "The value [%s] is to large to fit in a i4" and its like,
    ///         below the range too; "The value [%s] can not be converted to a i4" and its like
    ///         (the narrow kinds name the wide one)
    /// @{
    static std::u16string i1ToString(std::int8_t value);
    static std::u16string i2ToString(std::int16_t value);
    static std::u16string i4ToString(std::int32_t value);
    static std::u16string i8ToString(std::int64_t value);
    static std::u16string ui1ToString(std::uint8_t value);
    static std::u16string ui2ToString(std::uint16_t value);
    static std::u16string ui4ToString(std::uint32_t value);
    static std::u16string ui8ToString(std::uint64_t value);
    static std::int8_t i1FromString(std::u16string_view text, WhitespaceRule rule);
    static std::int16_t i2FromString(std::u16string_view text, WhitespaceRule rule);
    static std::int32_t i4FromString(std::u16string_view text, WhitespaceRule rule);
    static std::int64_t i8FromString(std::u16string_view text, WhitespaceRule rule);
    static std::uint8_t ui1FromString(std::u16string_view text, WhitespaceRule rule);
    static std::uint16_t ui2FromString(std::u16string_view text, WhitespaceRule rule);
    static std::uint32_t ui4FromString(std::u16string_view text, WhitespaceRule rule);
    static std::uint64_t ui8FromString(std::u16string_view text, WhitespaceRule rule);
    /// @}

    /// \name Floating-point numbers
    ///
    /// Printing gives NaN, INF, -INF, or the number in the form of `format`, one conversion of
    /// `FormatString` for a double; null stands for `%.7g` and `%.16g`.
    ///
    /// Reading takes white space in front, then a decimal number, or the words inf, infinity and
    /// nan in any case; NaN, `1.#QNAN`, -NAN and an empty text are NaN. What is too large for the
    /// type is an infinity, what is too small 0; an `r4` is read as an `r8` and then narrowed.
    /// \throws CZqInvalidParamException  for a format that doesn't print a double
    /// \throws CZqInvalidValueException  "The value [%s] can not be converted to a r8", or a r4
    /// @{
    static std::u16string r4ToString(float value, const char16_t* format);
    static std::u16string r8ToString(double value, const char16_t* format);
    static float r4FromString(std::u16string_view text, WhitespaceRule rule);
    static double r8FromString(std::u16string_view text, WhitespaceRule rule);
    /// @}

    /// \name Numbers of any size: the texts of `CDecimal` and `CBigInteger`, with their failures
    /// @{

    /// \param format  null for all digits, or the number of digits behind the point: blanks, a sign
    ///                and digits, where anything else ends it and none is 0
    /// \throws CZqInvalidParamException  a negative number, or one beyond 32 bits
    static std::u16string decimalToString(const CDecimal& value, const char16_t* format);
    /// Texts come from documents, whose numbers of these types have no exponents by XML Schema: one
    /// may make up to 1000 digits, or as many as the text has characters, so that short texts stay
    /// small values.
    static CDecimal decimalFromString(std::u16string_view text, WhitespaceRule rule);
    static std::u16string integerToString(const CBigInteger& value);
    static CBigInteger integerFromString(std::u16string_view text, WhitespaceRule rule);
    /// @}

    /// \name Dates, with the failures of `CDateTime`
    ///
    /// Printing follows the type of the value, whatever the name of the operation. Reading follows
    /// the form of the text: the operations for dates take any form without a time, and those for
    /// a day, month or year any that has one.
    /// @{
    static std::u16string dateToString(const CDateTime& value);
    static std::u16string datetimeToString(const CDateTime& value);
    static std::u16string timeToString(const CDateTime& value);
    static std::u16string yearMonthToString(const CDateTime& value);
    static std::u16string monthDayToString(const CDateTime& value);
    static CDateTime dateFromString(std::u16string_view text, WhitespaceRule rule);
    static CDateTime datetimeFromString(std::u16string_view text, WhitespaceRule rule);
    static CDateTime timeFromString(std::u16string_view text, WhitespaceRule rule);
    static CDateTime yearMonthFromString(std::u16string_view text, WhitespaceRule rule);
    static CDateTime monthDayFromString(std::u16string_view text, WhitespaceRule rule);

    /// Without leading zeros.
    static std::u16string yearToString(std::uint16_t value);
    static std::u16string monthToString(std::uint8_t value);
    static std::u16string dayToString(std::uint8_t value);
    /// A negative year is taken modulo 65536.
    /// \throws CZqInvalidStateException  "Failed to GetYear. Invalid Date Type: %s."
    static std::uint16_t yearFromString(std::u16string_view text, WhitespaceRule rule);
    /// \throws CZqInvalidStateException  "Failed to GetMonth. Invalid Date Type: %s."
    static std::uint8_t monthFromString(std::u16string_view text, WhitespaceRule rule);
    /// \throws CZqInvalidStateException  "Failed to GetDay. Invalid Date Type: %s."
    static std::uint8_t dayFromString(std::u16string_view text, WhitespaceRule rule);
    /// @}

    static std::u16string durationToString(const CDateTimeSpan& value);
    /// \throws CZqInvalidValueException  as `CDateTimeSpan::ParseXSDDuration`
    static CDateTimeSpan durationFromString(std::u16string_view text, WhitespaceRule rule);

    /// \name Octets
    /// @{
    static std::u16string hexBinaryToString(const CBinaryData& value);
    static std::u16string base64BinaryToString(const CBinaryData& value);
    /// \throws CZqException  "Invalid char in hex string [%c]"
    static CBinaryData hexBinaryFromString(std::u16string_view text, WhitespaceRule rule);
    /// A text with a wrong character gives no octets.
    static CBinaryData base64BinaryFromString(std::u16string_view text, WhitespaceRule rule);
    /// @}
};

}  // namespace ZqXmlLib9
