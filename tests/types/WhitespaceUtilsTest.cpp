// The four white space rules over the same texts, and rules that don't exist.

#include "support/Print.h"

#include <ZqXmlLib9/types/WhitespaceUtils.h>

#include <gtest/gtest.h>

namespace ZqXmlLib9 {
namespace {

using Rule = CWhitespaceUtils::WhitespaceRule;

// Other blanks of Unicode, control characters, and units that look like a blank in one octet.
const std::u16string kNoWhiteSpace = u"\v\f\u0085\u00A0\u0120\u2000\u2020\u2028\u3000\uFEFF";

TEST(WhiteSpace, FollowsEachRule)
{
    // As it is, preserved, replaced, collapsed.
    const std::u16string rows[][4] = {
        {u" \r ", u"  ", u"  ", u""},
        {u"\t a b\n", u"\t a b\n", u"  a b ", u"a b"},
        {u"a\rb", u"ab", u"ab", u"ab"},
        {u"  a \r\n  b  ", u"  a \n  b  ", u"  a    b  ", u"a b"},
        {u"a \r", u"a ", u"a ", u"a"},
        {u"\r a", u" a", u" a", u"a"},
        {kNoWhiteSpace, kNoWhiteSpace, kNoWhiteSpace, kNoWhiteSpace},
        {{u"a\0 \r\0", 5}, {u"a\0 \0", 4}, {u"a\0 \0", 4}, {u"a\0 \0", 4}}};
    for (const auto& row : rows)
        for (int rule = 0; rule < 4; ++rule)
            EXPECT_EQ(U8(CWhitespaceUtils::ApplyRule(Rule(rule), row[0])), U8(row[rule])) << rule;
    for (const int rule : {-1, 4})
        EXPECT_EQ(MessageOf([&] { CWhitespaceUtils::ApplyRule(Rule(rule), u"a"); }),
                  "Unknown WhitespaceRule");
    EXPECT_EQ(CWhitespaceUtils::Preserve(u"a\r\nb\rc", 5), u"a\nb");
    EXPECT_EQ(CWhitespaceUtils::Preserve(u"a", 0), u"");
}

}  // namespace
}  // namespace ZqXmlLib9
