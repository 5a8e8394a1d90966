// How each record of a choice and of an all group reads, and what is stored when.

#include "metadata/Grid.h"

#include <gtest/gtest.h>

namespace ZqXmlLib9 {
namespace {

using namespace TestModel;

class Choice : public testing::TestWithParam<SGridCase> {};

/// The record of the case, and an optional member y behind it.
TEST_P(Choice, ReadsAsItsCellSays)
{
    SGridCase row = GetParam();
    row.record = [&](CClass& type) -> CClass& {
        return GetParam().record(type).Text<CElementInfoChoicePrimOpt>(u"y", 1);
    };
    EXPECT_EQ(ReadGrid(row, XmlElementGroupType_Choice), GetParam().outcome);
}

CClass& ChoiceEnum(CClass& c)
{
    return c.Colour<CElementInfoChoiceEnumOpt>(u"e", 0);
}
template <XmlElementType type, int classId>
CClass& ChoiceCls(CClass& c)
{
    return c.Element<CElementInfoChoiceClsOpt>(u"e", u"", 0, type, MakeByClass, classId);
}
CClass& ChoiceAbsCls(CClass& c)
{
    return c.Element<CElementInfoChoiceAbsClsOpt>(u"e", u"", 0, XmlElementType_Element,
                                                  CFactory::Make);
}
template <bool isAny>
CClass& ChoiceUntpd(CClass& c)
{
    return c.Element<CElementInfoChoiceUntpdOpt>(isAny ? u"AnyElement" : u"e", u"", 0, u"##other",
                                                 u"urn:t");
}
CClass& ChoiceCol(CClass& c)
{
    return c.Element<CElementInfoChoiceClsCol>(u"e", u"", 0, XmlElementType_Element);
}
CClass& ChoiceUntpdCol(CClass& c)
{
    return c.Element<CElementInfoChoiceUntpdCol>(u"e", u"", 0);
}

constexpr auto kTag = XmlElementType_Element;
constexpr auto kGroup = XmlElementType_Pseudo;
#define LEFT(name)                                                                                 \
    "Failed read all the elements held within the element [r]. The unexpected element [" name      \
    "] remains un processed"
#define TYPED "<r xmlns:t='urn:t' xmlns:i='http://www.w3.org/2001/XMLSchema-instance'>"

INSTANTIATE_TEST_SUITE_P(
    Members, Choice,
    testing::Values(
        SGridCase{"Enum", ChoiceEnum, Nothing, 0, false, "<r><e>blue</e></r>", "#2 -"},
        SGridCase{"EnumDeclines", ChoiceEnum, Nothing, 0, false, "<r><y>1</y></r>", "- 1"},
        SGridCase{"Cls", ChoiceCls<kTag, 0>, Nothing, 0, false, "<r><e>1</e></r>", "e(1) -"},
        SGridCase{"ClsDeclines", ChoiceCls<kTag, 0>, Nothing, 0, false, "<r><y>1</y></r>", "- 1"},
        SGridCase{"ClsMayBeAnEmptyChoice", ChoiceCls<kTag, 2>, Nothing, 0, false, "<r><e/></r>",
                  "e([0]) -"},
        SGridCase{"Group", ChoiceCls<kGroup, 1>, Nothing, 0, false, "<r><a>1</a><b>2</b></r>",
                  "group(1 2) -"},
        SGridCase{"GroupDeclines", ChoiceCls<kGroup, 1>, Nothing, 0, false, "<r><y>1</y></r>",
                  "null 1"},
        SGridCase{"AbsCls", ChoiceAbsCls, Nothing, 0, false, TYPED "<e i:type='t:Item'>1</e></r>",
                  "e(1) -"},
        SGridCase{"AbsClsNoClass", ChoiceAbsCls, Nothing, 0, false, "<r><e/></r>", LEFT("e")},
        SGridCase{"OpenAny", ChoiceUntpd<true>, Nothing, 0, false, "<r><q/></r>", "<q> -"},
        SGridCase{"OpenRefused", ChoiceUntpd<true>, Nothing, 0, false, "<r><y xmlns='urn:t'/></r>",
                  LEFT("y")},
        SGridCase{"OpenOtherName", ChoiceUntpd<false>, Nothing, 0, false, "<r><y>1</y></r>",
                  "null 1"},
        SGridCase{"OpenNothingLeft", ChoiceUntpd<true>, Nothing, 0, false, "<r/>", "- -"}),
    kRowName);
INSTANTIATE_TEST_SUITE_P(
    Collections, Choice,
    testing::Values(
        SGridCase{"Run", ChoiceCol, Items, 0, false, "<r><e/><e/></r>", "[2] -"},
        SGridCase{"Declines", ChoiceCol, Items, 0, false, "<r><y>1</y></r>", "[0] 1"},
        SGridCase{"OneTurn", ChoiceCol, Items, 0, false, "<r><e/><y/><e/></r>", LEFT("y")},
        SGridCase{"TooMany", ChoiceCol, Items, 0, false, "<r><e/><e/><e/></r>",
                  "The Maximum number of [e] elements allowed in this collection is 2"},
        SGridCase{"TooManyInGroup", ChoiceCol, Items, 0, true, "<r><e/><e/><e/></r>", LEFT("e")},
        SGridCase{"OpenNamed", ChoiceUntpdCol, OpenElements, 0, false, "<r><e/><e/></r>", "[2] -"},
        SGridCase{"OpenNamedDeclines", ChoiceUntpdCol, OpenElements, 0, false, "<r><y>1</y></r>",
                  "[0] 1"}),
    kRowName);

TEST(ChoiceClsOpt, IsStoredBeforeItIsReadAndUnsetOnAMiss)
{
    ReadGrid({"", ChoiceCls<kTag, 0>, Nothing, 0, false, "<r><e>1</e></r>", ""},
             XmlElementGroupType_Choice);
    EXPECT_EQ(CCustom::s_log, "r init; r set 0; item init; e set 0; ");
    ReadGrid({"", ChoiceCls<kGroup, 1>, Nothing, 0, false, "<r/>", ""}, XmlElementGroupType_Choice);
    EXPECT_EQ(CCustom::s_log, "r init; ");
    ReadGrid({"", ChoiceCls<kGroup, 1>, Nothing, kUnknown, false, "<r><x/></r>", ""},
             XmlElementGroupType_Choice);
    EXPECT_EQ(CCustom::s_log, "r init; r set 0; group init; r set 0; ");
    ReadGrid({"", ChoiceAbsCls, Nothing, kUnknown, false, "<r><e/></r>", ""},
             XmlElementGroupType_Choice);
    EXPECT_EQ(CCustom::s_log, "r init; r set 0; ");
}

TEST(ChoiceClsOpt, LetsAnEmptyChoiceBeWrittenOneLevelDown)
{
    CClass type(Info(XmlElementGroupType_Choice));
    ChoiceCls<kTag, 2>(type);
    CClass sequence(Info());
    sequence.Child(u"strict", 0);
    const CSmartPtr<CStrictChoice> strict = new CStrictChoice();
    const CSmartPtr<CCustom> inChoice = new CCustom(type, u"r", {ObjectValue(strict.Get())});
    const CSmartPtr<CCustom> inSequence = new CCustom(sequence, u"r", {ObjectValue(strict.Get())});
    EXPECT_EQ(U8(inChoice->ToXml(false, false)), "<r><strict/></r>");
    EXPECT_THROW(inSequence->ToXml(), CZqValidationException);
}

class All : public testing::TestWithParam<SGridCase> {};

TEST_P(All, ReadsAsItsCellSays)
{
    EXPECT_EQ(ReadGrid(GetParam(), XmlElementGroupType_All), GetParam().outcome);
}

CClass& AllEnumMnd(CClass& c)
{
    return c.Colour<CElementInfoAllEnumMnd>(u"e", 0);
}
CClass& AllEnumOpt(CClass& c)
{
    return c.Colour<CElementInfoAllEnumOpt>(u"e", 0);
}
template <XmlElementType type, bool isRequired>
CClass& AllClsMnd(CClass& c)
{
    return c.Element<CElementInfoAllClsMnd>(u"e", u"", 0, type, nullptr, 0, isRequired);
}
template <XmlElementType type, int classId>
CClass& AllClsOpt(CClass& c)
{
    return c.Element<CElementInfoAllClsOpt>(u"e", u"", 0, type, MakeByClass, classId);
}
CClass& AllAbsClsMnd(CClass& c)
{
    return c.Element<CElementInfoAllAbsClsMnd>(u"e", u"", 0, kTag, CFactory::Make, 0);
}
CClass& AllAbsClsOpt(CClass& c)
{
    return c.Element<CElementInfoAllAbsClsOpt>(u"e", u"", 0, kTag, CFactory::Make);
}
template <typename TInfo>
CClass& AllOpen(CClass& c)
{
    return c.Element<TInfo>(u"AnyElement", u"", 0, u"##other", u"urn:t");
}

/// A collection of an all group, as a program completes it.
class CCompleteCol : public CElementInfoAllClsCol {
public:
    using CElementInfoAllClsCol::CElementInfoAllClsCol;

protected:
    bool Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool,
                  bool) const override
    {
        return true;
    }
};
CClass& AllCol(CClass& c)
{
    return c.Element<CCompleteCol>(u"e", u"", 0, kTag);
}
static_assert(
    std::is_abstract_v<
        CElementInfoAllPrimCol> && std::is_abstract_v<CElementInfoAllCol> && std::is_abstract_v<CElementInfoAllEnumCol> && std::is_abstract_v<CElementInfoAllAbsClsCol> && std::is_abstract_v<CElementInfoAllUntpdCol>);

#define NO_E "Failed to find the mandatory element [e]"
#define CANNOT(name)                                                                               \
    name "::ElementFromXml, has not been implemented fully, contact support@zqxmllib9.example"

INSTANTIATE_TEST_SUITE_P(
    Members, All,
    testing::Values(
        SGridCase{"EnumMndLast", AllEnumMnd, Nothing, 0, false, "<r><z/><e>red</e></r>", "#0 "},
        SGridCase{"EnumMndMissing", AllEnumMnd, Nothing, kMissing, false, "<r><z/></r>", NO_E},
        SGridCase{"EnumMndMissingInGroup", AllEnumMnd, Nothing, 0, true, "<r><z/></r>", LEFT("z")},
        SGridCase{"EnumOptAbsent", AllEnumOpt, Nothing, 0, false, "<r><z/></r>", "- "},
        SGridCase{"ClsMnd", AllClsMnd<kTag, true>, AnItem, 0, false, "<r><z/><e>1</e></r>",
                  "e(1) "},
        SGridCase{"ClsMndMissing", AllClsMnd<kTag, true>, AnItem, 0, false, "<r/>", NO_E},
        SGridCase{"ClsMndNotRequired", AllClsMnd<kTag, false>, AnItem, 0, false, "<r/>",
                  "item() -"},
        SGridCase{"ClsMndNotRequiredInGroup", AllClsMnd<kTag, false>, AnItem, 0, true,
                  "<r><z/></r>", LEFT("z")},
        SGridCase{"Group", AllClsMnd<kGroup, false>, AGroup, 0, false,
                  "<r><z/><a>1</a><b>2</b></r>", "group(1 2) "},
        SGridCase{"GroupMissing", AllClsMnd<kGroup, false>, AGroup, 0, false, "<r><z/></r>", NO_E},
        SGridCase{"ClsOpt", AllClsOpt<kTag, 0>, Nothing, 0, false, "<r><z/><e>1</e></r>", "e(1) "},
        SGridCase{"ClsOptGroup", AllClsOpt<kGroup, 1>, Nothing, 0, false,
                  "<r><z/><a>1</a><b>2</b></r>", "group(1 2) "},
        SGridCase{"ClsOptGroupAbsent", AllClsOpt<kGroup, 1>, Nothing, 0, false, "<r><z/></r>",
                  "- "},
        SGridCase{"OpenMnd", AllOpen<CElementInfoAllUntpdMnd>, AnOpenElement, 0, false,
                  "<r><q/><z/></r>", "<q> "},
        SGridCase{"OpenMndMissing", AllOpen<CElementInfoAllUntpdMnd>, AnOpenElement, 0, false,
                  "<r/>", "Failed to find the mandatory element [AnyElement]"},
        SGridCase{"OpenOptTakesWhatComes", AllOpen<CElementInfoAllUntpdOpt>, Nothing, 0, false,
                  "<r><z/></r>", "<z> -"},
        SGridCase{"ColAcrossSweeps", AllCol, Items, 0, false, "<r><e/><z/><e/></r>", "[2] "}),
    kRowName);
INSTANTIATE_TEST_SUITE_P(
    AbstractClasses, All,
    testing::Values(SGridCase{"Mnd", AllAbsClsMnd, Nothing, 0, false, "<r><z/></r>",
                              CANNOT("CElementInfoAllAbsClsMnd")},
                    SGridCase{"Opt", AllAbsClsOpt, Nothing, 0, false, "<r><z/></r>",
                              CANNOT("CElementInfoAllAbsClsOpt")},
                    SGridCase{"MndWithoutSweep", AllAbsClsMnd, Nothing, 0, false, "<r/>", NO_E},
                    SGridCase{"OptWithoutSweep", AllAbsClsOpt, Nothing, 0, false, "<r/>", "- -"}),
    kRowName);

TEST(AllAbsCls, CanBeWritten)
{
    CClass type(Info(XmlElementGroupType_All));
    AllAbsClsMnd(type);
    const CSmartPtr<CCustom> object = new CCustom(type, u"r", {ObjectValue(new CItem(u"1"))});
    EXPECT_EQ(U8(object->ToXml(false, false)), "<r><item>1</item></r>");
}

TEST(AllClsOpt, IsStoredOnceItIsRead)
{
    ReadGrid({"", AllClsOpt<kTag, 0>, Nothing, 0, false, "<r><e>1</e></r>", ""},
             XmlElementGroupType_All);
    EXPECT_EQ(CCustom::s_log, "r init; item init; e set 0; r set 0; ");
}

}  // namespace
}  // namespace ZqXmlLib9
