// The formatting engine: one pass over the format, each conversion read into a record, then
// printed by the kind of its argument. Nothing here asks the locale: numbers go through
// std::to_chars, whose output is that of printf in the "C" locale.

#include "../platform/TextEncodings.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace ZqXmlLib9 {
namespace {

/// Wide enough for every use, and small enough that a mistaken width can't exhaust the memory.
constexpr int kMaxField = 1'000'000;

/// A double needs at most 309 digits in front of its point, a sign and the point.
constexpr std::size_t kDoubleRoom = 320;

/// What stands between "%" and the next conversion.
struct SConversion {
    bool leftAligned = false;
    bool plus = false;
    bool blank = false;
    bool alternative = false;
    bool zero = false;
    int width = 0;
    int precision = -1;  // below 0: none
    int bits = 32;       // of an integer
    bool isShort = false;
    bool isLong = false;
    char16_t kind = 0;
};

[[noreturn]] void Fail(const std::u16string& message)
{
    throw CZqInvalidParamException(u"Invalid format: " + message);
}

class CFormatter {
public:
    CFormatter(std::u16string_view format, std::initializer_list<CFormatArgument> arguments)
        : m_format(format), m_next(arguments.begin()), m_end(arguments.end())
    {}

    std::u16string Run()
    {
        while (m_position < m_format.size()) {
            const std::size_t percent = std::min(m_format.find(u'%', m_position), m_format.size());
            m_text.append(m_format, m_position, percent - m_position);
            m_position = percent;
            if (percent != m_format.size()) {
                ++m_position;
                Print(ReadConversion());
            }
        }
        return std::move(m_text);
    }

    bool HasUsedAll() const { return m_next == m_end; }

private:
    const CFormatArgument::Value& NextArgument()
    {
        if (m_next == m_end)
            Fail(u"it asks for more arguments than there are");
        return (m_next++)->GetValue();
    }

    char16_t Peek() const { return m_position < m_format.size() ? m_format[m_position] : u'\0'; }

    bool Accept(std::u16string_view text)
    {
        if (m_format.substr(m_position, text.size()) != text)
            return false;
        m_position += text.size();
        return true;
    }

    bool AcceptFlag(SConversion& conversion)
    {
        switch (Peek()) {
        case u'-': conversion.leftAligned = true; break;
        case u'+': conversion.plus = true; break;
        case u' ': conversion.blank = true; break;
        case u'#': conversion.alternative = true; break;
        case u'0': conversion.zero = true; break;
        default: return false;
        }
        ++m_position;
        return true;
    }

    bool AcceptSize(SConversion& conversion)
    {
        if (Accept(u"I64") || Accept(u"ll"))
            conversion.bits = 64;
        else if (Accept(u"h"))
            conversion.isShort = true;
        else if (Accept(u"l"))
            conversion.isLong = true;
        else if (Peek() == u'F' || Peek() == u'L' || Peek() == u'N')
            ++m_position;
        else
            return false;
        return true;
    }

    int ReadNumber()
    {
        int number = 0;
        if (Accept(u"*"))
            number = ToInt(NextArgument());
        else
            for (; Peek() >= u'0' && Peek() <= u'9' && number <= kMaxField; ++m_position)
                number = number * 10 + (Peek() - u'0');
        if (number > kMaxField || number < -kMaxField)
            Fail(u"a width or precision is beyond 1000000");
        return number;
    }

    SConversion ReadConversion()
    {
        SConversion conversion;
        while (AcceptFlag(conversion))
            ;
        conversion.width = ReadNumber();
        if (conversion.width < 0) {
            conversion.leftAligned = true;
            conversion.width = -conversion.width;
        }
        if (Accept(u"."))
            conversion.precision = ReadNumber();
        while (AcceptSize(conversion))
            ;
        conversion.kind = Peek();
        if (m_position < m_format.size())
            ++m_position;
        return conversion;
    }

    void Print(const SConversion& conversion)
    {
        switch (conversion.kind) {
        case u'%': m_text.push_back(u'%'); break;
        case u'd':
        case u'i': PrintSigned(conversion); break;
        case u'u': PrintUnsigned(conversion, 10); break;
        case u'o': PrintUnsigned(conversion, 8); break;
        case u'x':
        case u'X': PrintUnsigned(conversion, 16); break;
        case u'c':
        case u'C': {
            const std::uint64_t value = ToInteger(NextArgument()).bits;
            if (value > 0xFFFF)
                Fail(u"a character is no UTF-16 code unit");
            const char16_t unit = static_cast<char16_t>(value);
            Pad(conversion, {}, {&unit, 1}, false);
            break;
        }
        case u's': PrintText(conversion, !conversion.isShort); break;
        case u'S': PrintText(conversion, conversion.isLong); break;
        case u'e':
        case u'E':
        case u'f':
        case u'g':
        case u'G': PrintDouble(conversion); break;
        case u'p': PrintPointer(conversion); break;
        case u'\0': Fail(u"it ends within a conversion");
        default: Fail(std::u16string(u"unknown conversion %") + conversion.kind);
        }
    }

    static const CFormatArgument::SInteger& ToInteger(const CFormatArgument::Value& value)
    {
        if (const auto* const integer = std::get_if<CFormatArgument::SInteger>(&value))
            return *integer;
        Fail(u"an argument is not an integer, as its conversion asks");
    }

    static int ToInt(const CFormatArgument::Value& value)
    {
        return static_cast<std::int32_t>(Narrow(ToInteger(value), 32));
    }

    /// The lowest bits of an integer that loses nothing by the cut.
    static std::uint64_t Narrow(const CFormatArgument::SInteger& integer, int bits)
    {
        if (bits == 64)
            return integer.bits;
        const auto asSigned = static_cast<std::int64_t>(integer.bits);
        const bool fits = integer.isSigned && asSigned < 0
                              ? asSigned >= std::numeric_limits<std::int32_t>::min()
                              : integer.bits <= std::numeric_limits<std::uint32_t>::max();
        if (!fits)
            Fail(u"an integer needs the size prefix I64");
        return static_cast<std::uint32_t>(integer.bits);
    }

    void PrintSigned(const SConversion& conversion)
    {
        const std::uint64_t bits = Narrow(ToInteger(NextArgument()), conversion.bits);
        std::int64_t value = static_cast<std::int64_t>(bits);
        if (conversion.isShort)
            value = static_cast<std::int16_t>(bits);
        else if (conversion.bits == 32)
            value = static_cast<std::int32_t>(bits);
        const auto raw = static_cast<std::uint64_t>(value);
        PrintDigits(conversion, value < 0 ? 0 - raw : raw, 10, SignOf(conversion, value < 0));
    }

    void PrintUnsigned(const SConversion& conversion, int base)
    {
        std::uint64_t value = Narrow(ToInteger(NextArgument()), conversion.bits);
        if (conversion.isShort)
            value = static_cast<std::uint16_t>(value);
        const bool hasPrefix = conversion.alternative && base == 16 && value != 0;
        PrintDigits(conversion, value, base,
                    hasPrefix ? std::u16string{u'0', conversion.kind} : std::u16string());
    }

    static std::u16string SignOf(const SConversion& conversion, bool isNegative)
    {
        if (isNegative)
            return u"-";
        if (conversion.plus)
            return u"+";
        return conversion.blank ? u" " : u"";
    }

    void PrintDigits(const SConversion& conversion, std::uint64_t value, int base,
                     const std::u16string& prefix)
    {
        char buffer[24];
        char* const end = std::to_chars(std::begin(buffer), std::end(buffer), value, base).ptr;
        std::u16string digits(std::begin(buffer), end);
        if (conversion.kind == u'X')
            MakeUpperCase(digits);
        if (value == 0 && conversion.precision == 0)
            digits.clear();
        const auto wanted = static_cast<std::size_t>(std::max(conversion.precision, 0));
        if (digits.size() < wanted)
            digits.insert(0, wanted - digits.size(), u'0');
        if (conversion.alternative && base == 8 && (digits.empty() || digits[0] != u'0'))
            digits.insert(0, 1, u'0');
        Pad(conversion, prefix, digits, conversion.precision < 0);
    }

    static void MakeUpperCase(std::u16string& text)
    {
        for (char16_t& c : text)
            if (c >= u'a' && c <= u'z')
                c = static_cast<char16_t>(c - u'a' + u'A');
    }

    void PrintText(const SConversion& conversion, bool isWide)
    {
        const CFormatArgument::Value& value = NextArgument();
        if (std::holds_alternative<CFormatArgument::SNullText>(value))
            PadText(conversion, u"(null)");
        else if (isWide && std::holds_alternative<std::u16string_view>(value))
            PadText(conversion, std::get<std::u16string_view>(value));
        else if (!isWide && std::holds_alternative<std::string_view>(value))
            PadText(conversion, ToPrintableUtf16(std::get<std::string_view>(value)));
        else
            Fail(u"an argument is not the text that its conversion asks for");
    }

    void PadText(const SConversion& conversion, std::u16string_view text)
    {
        if (conversion.precision >= 0)
            text = text.substr(0, static_cast<std::size_t>(conversion.precision));
        Pad(conversion, {}, text, false);
    }

    void PrintDouble(const SConversion& conversion)
    {
        const CFormatArgument::Value& argument = NextArgument();
        const double* const value = std::get_if<double>(&argument);
        if (value == nullptr)
            Fail(u"an argument is not a floating-point number, as its conversion asks");
        std::u16string digits = DigitsOf(conversion, std::fabs(*value));
        if (conversion.kind == u'E' || conversion.kind == u'G')
            MakeUpperCase(digits);
        Pad(conversion, SignOf(conversion, std::signbit(*value)), digits, std::isfinite(*value));
    }

    static std::u16string DigitsOf(const SConversion& conversion, double value)
    {
        const int precision = conversion.precision < 0 ? 6 : conversion.precision;
        std::u16string digits;
        switch (conversion.kind) {
        case u'f': digits = ToChars(value, std::chars_format::fixed, precision); break;
        case u'e':
        case u'E': digits = ToChars(value, std::chars_format::scientific, precision); break;
        default:
            digits = conversion.alternative && std::isfinite(value)
                         ? GeneralWithZeros(value, std::max(precision, 1))
                         : ToChars(value, std::chars_format::general, precision);
        }
        if (conversion.alternative && std::isfinite(value)
            && digits.find(u'.') == std::u16string::npos)
            digits.insert(std::min(digits.find(u'e'), digits.size()), 1, u'.');
        return digits;
    }

    /// `%#g`: the form that `%g` would choose, with its trailing zeros (C17, 7.21.6.1).
    static std::u16string GeneralWithZeros(double value, int precision)
    {
        std::u16string digits = ToChars(value, std::chars_format::scientific, precision - 1);
        const std::size_t mark = digits.find(u'e') + 1;
        int exponent = 0;
        for (const char16_t c : std::u16string_view(digits).substr(mark + 1))
            exponent = exponent * 10 + (c - u'0');
        if (digits[mark] == u'-')
            exponent = -exponent;
        if (exponent < -4 || exponent >= precision)
            return digits;
        return ToChars(value, std::chars_format::fixed, precision - 1 - exponent);
    }

    static std::u16string ToChars(double value, std::chars_format form, int precision)
    {
        std::string buffer(kDoubleRoom + static_cast<std::size_t>(precision), '\0');
        char* const begin = buffer.data();
        const auto result = std::to_chars(begin, begin + buffer.size(), value, form, precision);
        return std::u16string(begin, result.ptr);
    }

    void PrintPointer(const SConversion& conversion)
    {
        const CFormatArgument::Value& argument = NextArgument();
        const void* pointer = nullptr;
        if (const auto* const given = std::get_if<const void*>(&argument))
            pointer = *given;
        else if (!std::holds_alternative<CFormatArgument::SNullText>(argument))
            Fail(u"an argument is not a pointer, as its conversion asks");
        SConversion digits = conversion;
        digits.kind = u'X';
        digits.precision = 16;
        PrintDigits(digits, reinterpret_cast<std::uintptr_t>(pointer), 16, {});
    }

    /// Appends sign or prefix and text, filled up to the width.
    void Pad(const SConversion& conversion, std::u16string_view prefix, std::u16string_view text,
             bool mayZeroFill)
    {
        const std::size_t length = prefix.size() + text.size();
        const auto width = static_cast<std::size_t>(conversion.width);
        const std::size_t fill = width > length ? width - length : 0;
        const bool zeros = conversion.zero && mayZeroFill && !conversion.leftAligned;
        if (!zeros && !conversion.leftAligned)
            m_text.append(fill, u' ');
        m_text.append(prefix);
        if (zeros)
            m_text.append(fill, u'0');
        m_text.append(text);
        if (conversion.leftAligned)
            m_text.append(fill, u' ');
    }

    std::u16string_view m_format;
    std::size_t m_position = 0;
    const CFormatArgument* m_next;
    const CFormatArgument* m_end;
    std::u16string m_text;
};

}  // namespace

std::u16string FormatStringList(const char16_t* format,
                                std::initializer_list<CFormatArgument> arguments)
{
    return CFormatter(TextOrEmpty(format), arguments).Run();
}

std::u16string FormatNumber(const char16_t* format, double value)
{
    const std::initializer_list<CFormatArgument> arguments{value};
    CFormatter formatter(TextOrEmpty(format), arguments);
    std::u16string text = formatter.Run();
    if (!formatter.HasUsedAll())
        Fail(u"it doesn't print the number");
    return text;
}

}  // namespace ZqXmlLib9
