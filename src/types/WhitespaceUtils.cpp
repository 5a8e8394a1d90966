#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/types/WhitespaceUtils.h>

namespace ZqXmlLib9 {

bool CWhitespaceUtils::IsWhiteSpace(char16_t c) noexcept
{
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

std::u16string CWhitespaceUtils::Preserve(std::u16string_view text)
{
    const std::size_t first = text.find(u'\r');
    std::u16string result(text.substr(0, first));
    if (first == std::u16string_view::npos)
        return result;
    result.reserve(text.size());
    text.remove_prefix(first + 1);
    while (!text.empty()) {
        const std::u16string_view run = text.substr(0, text.find(u'\r'));
        result.append(run);
        text.remove_prefix(run.size() + (run.size() < text.size() ? 1 : 0));
    }
    return result;
}

std::u16string CWhitespaceUtils::Preserve(const char16_t* text, int length)
{
    if (text == nullptr || length < 1)
        return {};
    return Preserve(std::u16string_view(text, static_cast<std::size_t>(length)));
}

std::u16string CWhitespaceUtils::Replace(std::u16string_view text)
{
    std::u16string result;
    result.reserve(text.size());
    for (const char16_t c : text)
        if (c != u'\r')
            result.push_back(IsWhiteSpace(c) ? u' ' : c);
    return result;
}

std::u16string CWhitespaceUtils::Collapse(std::u16string_view text)
{
    std::u16string result;
    result.reserve(text.size());
    bool wasBlank = true;
    for (const char16_t c : text) {
        if (c == u'\r')
            continue;
        const bool isBlank = IsWhiteSpace(c);
        if (!isBlank)
            result.push_back(c);
        else if (!wasBlank)
            result.push_back(u' ');
        wasBlank = isBlank;
    }
    if (!result.empty() && result.back() == u' ')
        result.pop_back();
    return result;
}

std::u16string CWhitespaceUtils::ApplyRule(WhitespaceRule rule, std::u16string_view text)
{
    switch (rule) {
    case WhitespaceRule_None: return std::u16string(text);
    case WhitespaceRule_Preserve: return Preserve(text);
    case WhitespaceRule_Replace: return Replace(text);
    case WhitespaceRule_Collapse: return Collapse(text);
    }
    throw CZqException(u"Unknown WhitespaceRule");
}

}  // namespace ZqXmlLib9
