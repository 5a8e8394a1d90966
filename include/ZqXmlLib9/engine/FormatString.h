/// \file FormatString.h
/// The printf-style formatting that builds every formatted message, over typed arguments.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/Text.h>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace ZqXmlLib9 {

/// Any enum.
template <typename T>
concept Enumeration = std::is_enum_v<T>;

/// One argument of `FormatString`. It refers to texts, it doesn't copy them.
class CFormatArgument {
public:
    /// A null pointer in place of a text; it prints as six characters.
    struct SNullText {};

    /// An integer of any width; the signed ones are widened with their sign.
    struct SInteger {
        std::uint64_t bits;
        bool isSigned;
    };

    using Value = std::variant<SInteger, double, std::u16string_view, std::string_view, SNullText,
                               const void*>;

    template <std::integral TInteger>
    CFormatArgument(TInteger value)
        : m_value(SInteger{static_cast<std::uint64_t>(value), std::is_signed_v<TInteger>})
    {}
    CFormatArgument(char value) : CFormatArgument(static_cast<unsigned char>(value)) {}
    template <Enumeration TEnum>
    CFormatArgument(TEnum value)
        : CFormatArgument(static_cast<std::underlying_type_t<TEnum>>(value))
    {}
    CFormatArgument(double value) : m_value(value) {}
    CFormatArgument(float value) : m_value(static_cast<double>(value)) {}
    CFormatArgument(const char16_t* text) : m_value(SNullText())
    {
        if (text != nullptr)
            m_value = std::u16string_view(text);
    }
    CFormatArgument(const char* text) : m_value(SNullText())
    {
        if (text != nullptr)
            m_value = std::string_view(text);
    }
    CFormatArgument(std::u16string_view text) : m_value(text) {}
    CFormatArgument(const std::u16string& text) : m_value(std::u16string_view(text)) {}
    CFormatArgument(std::string_view text) : m_value(text) {}
    CFormatArgument(const std::string& text) : m_value(std::string_view(text)) {}
    CFormatArgument(std::nullptr_t) : m_value(SNullText()) {}
    CFormatArgument(const void* pointer) : m_value(pointer) {}

    const Value& GetValue() const noexcept { return m_value; }

private:
    Value m_value;
};

/// `FormatString` over a list of arguments.
ZQXMLLIB9_API std::u16string FormatStringList(const char16_t* format,
                                              std::initializer_list<CFormatArgument> arguments);

/// `FormatString` of one number.
/// \throws CZqInvalidParamException  as below, and if the format prints no argument
ZQXMLLIB9_API std::u16string FormatNumber(const char16_t* format, double value);

/// Formats in the manner of printf, whatever the locale; the result is never truncated.
///
/// | conversion        | argument                                                            |
/// |-------------------|---------------------------------------------------------------------|
/// | `%d %i %u %o %x %X` | an integer, taken in 32 bits; with `I64` or `ll` in 64, with `h` in 16 |
/// | `%c`, `%C`        | an integer: the code unit                                           |
/// | `%s`              | UTF-16 text; with `h` narrow text                                   |
/// | `%S`              | narrow text, in UTF-8; with `l` UTF-16 text                         |
/// | `%e %E %f %g %G`  | a float or a double                                                 |
/// | `%p`              | a pointer, as 16 hexadecimal digits                                 |
/// | `%%`              | none                                                                |
///
/// Flags `-`, `+`, blank, `#`, `0`, a width and a precision, both also as `*`, stand where they
/// stand in C; the flag `0` has no effect on text. The size prefix `l` is 32 bits wide, and the
/// modifiers `F`, `L` and `N` change nothing. A null text prints as `(null)`. Arguments that no
/// conversion asks for are ignored.
///
/// \throws CZqInvalidParamException  an argument is missing, is of another kind than its
///         conversion asks for, or is an integer that the 32 bits of its conversion, or
///         the 16 of a character, can't hold; a
///         conversion is unknown or cut off; a width or precision is beyond 1,000,000
template <typename... TArguments>
std::u16string FormatString(const char16_t* format, const TArguments&... arguments)
{
    return FormatStringList(format, {CFormatArgument(arguments)...});
}

}  // namespace ZqXmlLib9
