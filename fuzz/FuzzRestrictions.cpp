// A value of each item type against facets of any text: it passes or fails, in time.

#include "Fuzz.h"

#include <array>

using namespace Fuzz;

namespace {

template <ItemType type>
void Check(std::u16string_view text, const CPrimitiveRestrictions& restrictions)
{
    if constexpr (type != ItemType_char)
        Try([&] {
            CheckValue<type>(
                u"name", SValueKind<type>::Read(text, CWhitespaceUtils::WhitespaceRule_Collapse),
                restrictions);
        });
}

template <std::size_t... types>
constexpr auto MakeChecks(std::index_sequence<types...>)
{
    return std::array{Check<static_cast<ItemType>(types + 1)>...};
}

/// By `ItemType`, less 1.
constexpr auto kChecks = MakeChecks(std::make_index_sequence<ItemType_integer>());

}  // namespace

// Octets for type and lengths, then lines: pattern, four bounds, the value.
FUZZ_TARGET(input)
{
    const auto check = kChecks[input.TakeBelow(kChecks.size())];
    CPrimitiveRestrictions restrictions;
    // Digits and capitals are short lengths, small letters are none.
    for (std::int32_t* const length :
         {&restrictions.m_length, &restrictions.m_minLength, &restrictions.m_maxLength}) {
        const unsigned octet = input.TakeOctet();
        *length = octet >= 'a' ? -1 : static_cast<std::int32_t>(octet) - '0';
    }
    for (std::u16string* const text :
         {&restrictions.m_pattern, &restrictions.m_minInclusive, &restrictions.m_maxInclusive,
          &restrictions.m_minExclusive, &restrictions.m_maxExclusive})
        *text = input.TakeLine();
    check(input.TakeRestAsText(), restrictions);
}
