#include "NumberText.h"
#include "Ascii.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <string>

namespace ZqXmlLib9 {
namespace {

/// The white space of the "C" locale.
constexpr std::u16string_view kBlanks = u" \t\n\v\f\r";

/// Where blanks and a sign end.
std::size_t SkipToNumber(std::u16string_view text, bool& isNegative)
{
    std::size_t start = std::min(text.find_first_not_of(kBlanks), text.size());
    if (start < text.size() && (text[start] == u'-' || text[start] == u'+'))
        isNegative = text[start++] == u'-';
    return start;
}

/// Whether a number that a double can't hold is too large, not too small: its first digit that is
/// not 0 stands in front of the point, once the exponent has moved it.
bool IsLarge(std::string_view number)
{
    const std::size_t mark = std::min(number.find_first_of("eE"), number.size());
    const std::string_view digits = number.substr(0, mark);
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const std::size_t first = digits.find_first_not_of("0.");
    const auto place = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
    if (mark == number.size())
        return place > 0;
    const bool isNegative = number[mark + 1] == '-';
    std::string_view power = number.substr(mark + 1);
    power.remove_prefix(isNegative || power.front() == '+' ? 1 : 0);
    std::int64_t exponent = std::numeric_limits<std::int64_t>::max();  // stays, if out of range
    std::from_chars(power.data(), power.data() + power.size(), exponent);
    return isNegative ? place > exponent : place > -exponent;
}

}  // namespace

SWholeNumber ReadWholeNumber(std::u16string_view text)
{
    SWholeNumber number;
    std::size_t i = SkipToNumber(text, number.isNegative);
    for (; i < text.size() && IsDigit(text[i]); ++i) {
        const unsigned digit = text[i] - unsigned{u'0'};
        constexpr std::uint64_t kMax = std::numeric_limits<std::uint64_t>::max();
        if (number.magnitude > (kMax - digit) / 10)
            number.isTooLarge = true;
        else
            number.magnitude = number.magnitude * 10 + digit;
        number.length = i + 1;
    }
    return number;
}

std::size_t ReadDouble(std::u16string_view text, double& value)
{
    bool isNegative = false;
    const std::size_t start = SkipToNumber(text, isNegative);
    const std::u16string_view rest = text.substr(start);
    const auto end = std::ranges::find_if(rest, [](char16_t c) { return c > u'~' || c <= u' '; });
    const auto length = static_cast<std::size_t>(end - rest.begin());

    // Any number that someone wrote by hand fits, so that no memory is taken for it.
    std::array<char, 128> buffer;
    std::string longText;
    if (length > buffer.size())
        longText.resize(length);
    char* const number = length > buffer.size() ? longText.data() : buffer.data();
    std::transform(rest.begin(), end, number, [](char16_t c) { return static_cast<char>(c); });

    if (length == 0 || number[0] == '-')
        return 0;
    double magnitude = 0;
    const auto read = std::from_chars(number, number + length, magnitude);
    if (read.ec == std::errc::invalid_argument)
        return 0;
    const auto taken = static_cast<std::size_t>(read.ptr - number);
    if (read.ec == std::errc::result_out_of_range)
        magnitude = IsLarge({number, taken}) ? std::numeric_limits<double>::infinity() : 0;
    value = isNegative ? -magnitude : magnitude;
    return start + taken;
}

}  // namespace ZqXmlLib9
