// The text of a value of each item type: what it reads, it prints, and reads again as the same.

#include "Fuzz.h"

#include <array>

using namespace Fuzz;

namespace {

/// Texts that can't come back, see docs/roundtrip.md.
bool IsPrintedForNobody(ItemType type, std::u16string_view text)
{
    return (type == ItemType_duration && (text == u"P" || text == u"-P"))
           || (type == ItemType_year && text.size() != 4)
           || (type == ItemType_r8 && text.ends_with(u"1.797693134862316e+308"));
}

template <ItemType type>
void ReadAndPrint(std::u16string_view text, CWhitespaceUtils::WhitespaceRule rule)
{
    using Kind = SValueKind<type>;
    std::u16string first, second;
    if (!Try([&] { first = Kind::Print(Kind::Read(text, rule), nullptr); }))
        return;
    if (IsPrintedForNobody(type, first))
        return;
    Require(Try([&] { second = Kind::Print(Kind::Read(first, rule), nullptr); }),
            "what is printed can be read", text, first);
    // A decimal that was cut to its 30 places may end in zeros, which go when it is read.
    if (type == ItemType_decimal && first.size() > second.size()
        && first.find_first_not_of(u'0', second.size()) == first.npos)
        first.resize(second.size());
    Require(first == second, "what is printed is read as the same", first, second);
}

template <std::size_t... types>
constexpr auto MakeReaders(std::index_sequence<types...>)
{
    return std::array{ReadAndPrint<static_cast<ItemType>(types + 1)>...};
}

/// By `ItemType`, less 1.
constexpr auto kReaders = MakeReaders(std::make_index_sequence<ItemType_integer>());

/// Sums, products and quotients of two numbers fit together.
template <typename TNumber>
void Calculate(std::u16string_view left, std::u16string_view right)
{
    const TNumber a(left), b(right);
    const TNumber difference = a - b;
    Require((a == b) == (difference == TNumber(0)), "equals have no difference", left, right);
    // Zeros of different signs are equal, and still in order.
    Require(a == b || (a < b) == (difference < TNumber(0)), "order fits difference", left, right);
    Require(a + b - b == a, "a sum is undone", left, right);
    static_cast<void>(a * b);
    const TNumber quotient = a / b;
    if constexpr (std::is_same_v<TNumber, CBigInteger>)
        Require(quotient * b + a % b == a, "quotient and remainder make the whole", left, right);
}

}  // namespace

FUZZ_TARGET(input)
{
    const unsigned kind = input.TakeOctet();
    const std::u16string text = input.TakeRestAsText();
    // Numbers of a million digits may be asked for by an exponent: their cost is another matter.
    if (kind % 32 < kReaders.size())
        kReaders[kind % 32](text, static_cast<CWhitespaceUtils::WhitespaceRule>(kind / 32 % 4));
    else if (const std::size_t blank = text.find(u' '); text.size() < 1000 && blank < text.size()) {
        const std::u16string left = text.substr(0, blank), right = text.substr(blank + 1);
        if (text.find_first_of(u"eE") == text.npos) {
            Try([&] { Calculate<CBigInteger>(left, right); });
            Try([&] { Calculate<CDecimal>(left, right); });
        }
        Try([&] {
            const CDateTimeSpan a = CConversions::durationFromString(left, {});
            const CDateTimeSpan b = CConversions::durationFromString(right, {});
            a.CompareTo(b);
        });
        Try([&] {
            const CDateTime a(left), b(right);
            static_cast<void>(a == b);
        });
        Try([&] {
            CDateTime date(left);
            date = date + CConversions::durationFromString(right, {});
            date.ToString();
        });
    }
}
