/// \file WhitespaceUtils.h
/// The whiteSpace facet of XML Schema.
#pragma once

#include <ZqXmlLib9/Export.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace ZqXmlLib9 {

/// Applies white space rules to text before it becomes a value. It has no state; any thread may
/// call. Source: XML Schema Part 2, 4.3.6, but that carriage returns are dropped everywhere.
class ZQXMLLIB9_API CWhitespaceUtils {
public:
    enum WhitespaceRule : std::int32_t {
        WhitespaceRule_None = 0,      ///< the text as it is
        WhitespaceRule_Preserve = 1,  ///< `Preserve`
        WhitespaceRule_Replace = 2,   ///< `Replace`
        WhitespaceRule_Collapse = 3,  ///< `Collapse`
    };

    /// Blank, tab, carriage return and line feed.
    static bool IsWhiteSpace(char16_t c) noexcept;

    /// The text without its carriage returns.
    static std::u16string Preserve(std::u16string_view text);
    /// \param length  in code units; below 1, or with a null `text`, there is no text
    static std::u16string Preserve(const char16_t* text, int length);

    /// Each tab, line feed and blank becomes one blank; carriage returns are dropped.
    static std::u16string Replace(std::u16string_view text);

    /// Each run of tabs, line feeds and blanks becomes one blank, none at the ends; carriage
    /// returns are dropped.
    static std::u16string Collapse(std::u16string_view text);

    /// \throws CZqException  "Unknown WhitespaceRule" for a rule outside 0 to 3
    static std::u16string ApplyRule(WhitespaceRule rule, std::u16string_view text);
};

}  // namespace ZqXmlLib9
