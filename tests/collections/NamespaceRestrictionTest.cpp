// Which namespaces pass a restriction of open content, and which one a new open element gets.

#include "model/Custom.h"
#include "support/Print.h"

#include <gtest/gtest.h>

namespace ZqXmlLib9 {
namespace {

using namespace TestModel;

class CTester : public CCustom {
public:
    using CCustom::CCustom;
    using CCustom::IsNamespaceValid;
    using CCustom::TestNamespace;
};

struct SRestriction {
    const char* name;
    const char16_t* restriction;
    const char16_t* target;
    std::vector<const char16_t*> passing;
    std::vector<const char16_t*> refused;
};

class Restriction : public testing::TestWithParam<SRestriction> {};

TEST_P(Restriction, IsOneRuleForTheAnswerAndTheFailure)
{
    CClass type(Info());
    const CSmartPtr<CTester> tester = new CTester(type);
    const SRestriction& row = GetParam();
    for (const char16_t* const ns : row.passing) {
        EXPECT_TRUE(tester->IsNamespaceValid(ns, row.restriction, row.target)) << U8(ns);
        EXPECT_NO_THROW(tester->TestNamespace(ns, row.restriction, row.target)) << U8(ns);
    }
    for (const char16_t* const ns : row.refused) {
        EXPECT_FALSE(tester->IsNamespaceValid(ns, row.restriction, row.target)) << U8(ns);
        EXPECT_EQ(MessageOf<CZqInvalidNamespaceException>(
                      [&] { tester->TestNamespace(ns, row.restriction, row.target); }),
                  "Invalid namespace [" + U8(ns) + "]. The namespace must be one of ["
                      + U8(row.restriction) + "] where the target namespace is [" + U8(row.target)
                      + "]");
    }
}

const SRestriction kOneToken[] = {
    {"Any", u"##any", u"urn:t", {u"", u"urn:t", u"urn:x", u"##any"}, {}},
    {"Other", u"##other", u"urn:t", {u"", u"urn:x", u"urn:", u"urn:T"}, {u"urn:t"}},
    {"OtherThanNone", u"##other", u"", {u"urn:x"}, {u""}},
    {"Local", u"##local", u"urn:t", {u""}, {u"urn:t", u"urn:x", u"##local"}},
    {"Target", u"##targetNamespace", u"urn:t", {u"urn:t"}, {u"", u"urn:x", u"urn:t "}},
    {"NoTarget", u"##targetNamespace", u"", {u""}, {u"urn:x"}},
    {"WordsHaveACase", u"##Any", u"urn:t", {u"", u"##Any"}, {u"urn:t", u"urn:x"}},
    {"Uri", u"urn:a", u"urn:t", {u"urn:a", u""}, {u"urn:t", u"urn:", u"urn:ab"}},
    {"NotNormalised", u"urn:\u00E9", u"urn:t", {u"urn:\u00E9"}, {u"urn:e\u0301"}},
    {"Empty", u"", u"urn:t", {u""}, {u"urn:t", u" "}},
};
const SRestriction kLists[] = {
    {"TwoUris", u"urn:a urn:b", u"urn:t", {u"urn:a", u"urn:b", u""}, {u"urn:a urn:b", u"urn:t"}},
    {"TwoWords", u"##targetNamespace ##local", u"urn:t", {u"urn:t", u""}, {u"urn:x", u"urn:"}},
    {"LastOfMany", u"urn:a urn:b ##other", u"urn:t", {u"urn:x", u""}, {u"urn:t"}},
    {"TwoBlanks", u"##targetNamespace  urn:a", u"urn:t", {u"", u"urn:a"}, {u"urn:x", u" "}},
    {"BlankFirst", u" ##targetNamespace", u"urn:t", {u"", u"urn:t"}, {u"urn:x"}},
    {"Tab", u"urn:a\turn:b", u"urn:t", {u"urn:a\turn:b", u""}, {u"urn:a", u"urn:b"}},
    {"LineFeed", u"##any\n", u"urn:t", {u"##any\n", u""}, {u"urn:x", u"##any"}},
};
INSTANTIATE_TEST_SUITE_P(OneToken, Restriction, testing::ValuesIn(kOneToken), kRowName);
INSTANTIATE_TEST_SUITE_P(Lists, Restriction, testing::ValuesIn(kLists), kRowName);

/// A record of open elements that lays open how it finds a namespace.
class CRecord : public CElementInfoSeqUntpdOpt {
public:
    using CElementInfoSeqUntpdOpt::GetAnyDefaultNamespace;
};

struct SDefault {
    const char* name;
    const char16_t* restriction;
    const char16_t* parent;
    const char* ns;
};

class AnyDefaultNamespace : public testing::TestWithParam<SDefault> {};

TEST_P(AnyDefaultNamespace, FollowsTheFirstWord)
{
    const SDefault& row = GetParam();
    EXPECT_EQ(U8(CRecord::GetAnyDefaultNamespace(row.restriction, row.parent, u"urn:t")), row.ns);
}

const SDefault kDefaults[] = {
    {"Any", u"##any", u"urn:p", "urn:p"},
    {"Other", u"##other", u"urn:p", ""},
    {"OtherWithoutParent", u"##other", u"", "DefaultNamespace"},
    {"Local", u"##local", u"urn:p", ""},
    {"Target", u"##targetNamespace", u"urn:p", "urn:t"},
    {"Unknown", u"##strange", u"urn:p", ""},
    {"Empty", u"", u"urn:p", ""},
    {"ListOfAny", u"##any ##local", u"urn:p", "urn:p"},
    {"ListOfTarget", u"##targetNamespace ##local", u"urn:p", "urn:t"},
    {"ListOfOther", u"##other urn:a", u"", "DefaultNamespace"},
    {"ListOfUris", u"urn:a urn:b", u"urn:p", ""},
    {"WordSecond", u"urn:a ##any", u"urn:p", ""},
    {"NotABlank", u"##any\t##local", u"urn:p", ""},
};
INSTANTIATE_TEST_SUITE_P(Words, AnyDefaultNamespace, testing::ValuesIn(kDefaults), kRowName);

}  // namespace
}  // namespace ZqXmlLib9
