// How each record of a sequence reads: what it takes, where it scans, when it fails and when it
// stores.

#include "metadata/Grid.h"

#include <gtest/gtest.h>

namespace ZqXmlLib9 {
namespace {

using namespace TestModel;

class Seq : public testing::TestWithParam<SGridCase> {};

TEST_P(Seq, ReadsAsItsCellSays)
{
    EXPECT_EQ(ReadGrid(GetParam(), XmlElementGroupType_Sequence), GetParam().outcome);
}

constexpr const char* kNoE = "Failed to find a required element [e]";
constexpr const char* kNoZ = "Failed to find a required element [z]";
/// Of the enclosing class, when a group has given the cursor back.
constexpr const char* kLeftX = "Failed read all the elements held within the element [r]. The "
                               "unexpected element [x] remains un processed";
constexpr const char* kLeftE = "Failed read all the elements held within the element [r]. The "
                               "unexpected element [e] remains un processed";

CClass& PrimMnd(CClass& c)
{
    return c.Text(u"e", 0);
}
CClass& PrimOpt(CClass& c)
{
    return c.Text<CElementInfoSeqPrimOpt>(u"e", 0);
}
CClass& EnumMnd(CClass& c)
{
    return c.Colour<CElementInfoSeqEnumMnd>(u"e", 0);
}
CClass& EnumOpt(CClass& c)
{
    return c.Colour<CElementInfoSeqEnumOpt>(u"e", 0);
}

INSTANTIATE_TEST_SUITE_P(
    Values, Seq,
    testing::Values(
        SGridCase{"PrimMnd", PrimMnd, Nothing, 0, false, "<r><e>1</e><z/></r>", "1 "},
        SGridCase{"PrimMndScans", PrimMnd, Nothing, kUnknown, false, "<r><x/><e>1</e><z/></r>",
                  "1 "},
        SGridCase{"PrimMndMissing", PrimMnd, Nothing, kMissing, false, "<r><z/></r>", "- "},
        SGridCase{"PrimMndInGroup", PrimMnd, Nothing, 0, true, "<r><x/></r>", kLeftX},
        SGridCase{"PrimMndInGroupScans", PrimMnd, Nothing, kUnknown, true,
                  "<r><x/><e>1</e><z/></r>", "1 "},
        SGridCase{"PrimMndInGroupIsNotExcused", PrimMnd, Nothing, kMissing, true, "<r><z/></r>",
                  "Failed read all the elements held within the element [r]. The unexpected "
                  "element [z] remains un processed"},
        SGridCase{"PrimOptAbsent", PrimOpt, Nothing, 0, false, "<r><z/></r>", "- "},
        SGridCase{"PrimOptNeverSkips", PrimOpt, Nothing, kUnknown, false, "<r><x/><e>1</e><z/></r>",
                  "- "},
        SGridCase{"EnumMnd", EnumMnd, Nothing, 0, false, "<r><e>blue</e><z/></r>", "#2 "},
        SGridCase{"EnumMndScans", EnumMnd, Nothing, kUnknown, false, "<r><x/><e>red</e><z/></r>",
                  "#0 "},
        SGridCase{"EnumMndUnknownWord", EnumMnd, Nothing, 0, false, "<r><e>x</e></r>", "no colour"},
        SGridCase{"EnumMndMissing", EnumMnd, Nothing, 0, false, "<r><z/></r>", kNoE},
        SGridCase{"EnumOptAbsent", EnumOpt, Nothing, 0, false, "<r><z/></r>", "- "},
        SGridCase{"EnumOpt", EnumOpt, Nothing, 0, false, "<r><e>green</e><z/></r>", "#1 "}),
    kRowName);

/// In a group a mandatory enumeration doesn't scan by itself: the walk of the group skips one
/// element and asks again, which the record of a primitive would have done.
INSTANTIATE_TEST_SUITE_P(EnumInGroup, Seq,
                         testing::Values(SGridCase{"SkippedByTheWalk", EnumMnd, Nothing, kUnknown,
                                                   true, "<r><x/><e>red</e><z/></r>", "#0 "},
                                         SGridCase{"Absent", EnumMnd, Nothing, 0, true,
                                                   "<r><x/></r>", kLeftX}),
                         kRowName);

CClass& ClsMnd(CClass& c)
{
    return c.Child(u"e", 0);
}
CClass& ClsMndGroup(CClass& c)
{
    return c.Child(u"e", 0, XmlElementType_Pseudo);
}
CClass& ClsMndGroupRequired(CClass& c)
{
    return c.Child(u"e", 0, XmlElementType_Pseudo, u"", true);
}
CClass& ClsOpt(CClass& c)
{
    return c.Element<CElementInfoSeqClsOpt>(u"e", u"", 0, XmlElementType_Element, MakeByClass, 0);
}
CClass& ClsOptGroup(CClass& c)
{
    return c.Element<CElementInfoSeqClsOpt>(u"e", u"", 0, XmlElementType_Pseudo, MakeByClass, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Objects, Seq,
    testing::Values(
        SGridCase{"ClsMnd", ClsMnd, AnItem, 0, false, "<r><e>1</e><z/></r>", "e(1) "},
        SGridCase{"ClsMndScans", ClsMnd, AnItem, kUnknown, false, "<r><x/><e>1</e><z/></r>",
                  "e(1) "},
        SGridCase{"ClsMndMissing", ClsMnd, AnItem, kMissing, false, "<r><z/></r>", "item() "},
        SGridCase{"ClsMndWithoutObject", ClsMnd, Nothing, 0, false, "<r><e/></r>",
                  "The property of the element [e] has no object to read into"},
        SGridCase{"ClsMndInGroup", ClsMnd, AnItem, 0, true, "<r><x/></r>", kLeftX},
        SGridCase{"ClsMndGroup", ClsMndGroup, AGroup, 0, false, "<r><a>1</a><b>2</b><z/></r>",
                  "group(1 2) "},
        SGridCase{"ClsMndGroupAbsent", ClsMndGroup, AGroup, 0, false, "<r><z/></r>", "group() "},
        SGridCase{"ClsMndGroupRequired", ClsMndGroupRequired, AGroup, 0, false, "<r><z/></r>",
                  kNoE},
        SGridCase{"ClsMndGroupRequiredInGroup", ClsMndGroupRequired, AGroup, 0, true, "<r><x/></r>",
                  kLeftX},
        SGridCase{"ClsOpt", ClsOpt, Nothing, 0, false, "<r><e>1</e><z/></r>", "e(1) "},
        SGridCase{"ClsOptNeverSkips", ClsOpt, Nothing, kUnknown, false, "<r><x/><e>1</e><z/></r>",
                  "- "},
        SGridCase{"ClsOptGroup", ClsOptGroup, Nothing, 0, false, "<r><a>1</a><b>2</b><z/></r>",
                  "group(1 2) "},
        SGridCase{"ClsOptGroupCutShort", ClsOptGroup, Nothing, 0, false, "<r><a>1</a><z/></r>",
                  kNoZ},
        SGridCase{"ClsOptGroupAbsent", ClsOptGroup, Nothing, 0, false, "<r><z/></r>", "- "}),
    kRowName);

CClass& AbsClsMnd(CClass& c)
{
    return c.Element<CElementInfoSeqAbsClsMnd>(u"e", u"", 0, XmlElementType_Element,
                                               CFactory::Make);
}
CClass& AbsClsOpt(CClass& c)
{
    return c.Element<CElementInfoSeqAbsClsOpt>(u"e", u"", 0, XmlElementType_Element,
                                               CFactory::Make);
}

constexpr const char* kNoSubstitution = "Failed to find a suitable substitution element for [e]";
#define TYPED "<r xmlns:t='urn:t' xmlns:i='http://www.w3.org/2001/XMLSchema-instance'>"

INSTANTIATE_TEST_SUITE_P(
    Substitution, Seq,
    testing::Values(SGridCase{"Mnd", AbsClsMnd, Nothing, 0, false,
                              TYPED "<e i:type='t:Item'>1</e><z/></r>", "e(1) "},
                    SGridCase{"MndNoClass", AbsClsMnd, Nothing, kUnknown, false, "<r><e/><z/></r>",
                              kNoSubstitution},
                    SGridCase{"MndNeverScans", AbsClsMnd, Nothing, kUnknown, false,
                              TYPED "<x/><e i:type='t:Item'/><z/></r>", kNoSubstitution},
                    SGridCase{"MndNotExcused", AbsClsMnd, Nothing, kMissing, false, "<r><z/></r>",
                              kNoSubstitution},
                    SGridCase{"MndInGroup", AbsClsMnd, Nothing, 0, true, "<r><e/></r>", kLeftE},
                    SGridCase{"Opt", AbsClsOpt, Nothing, 0, false,
                              TYPED "<e i:type='t:Item'>1</e><z/></r>", "e(1) "},
                    SGridCase{"OptNoClass", AbsClsOpt, Nothing, 0, false, "<r><e/><z/></r>", kNoZ},
                    SGridCase{"OptAbsent", AbsClsOpt, Nothing, 0, false, "<r><z/></r>", "- "}),
    kRowName);

template <typename TInfo, bool isAny>
CClass& Open(CClass& c)
{
    return c.Element<TInfo>(isAny ? u"AnyElement" : u"e", u"", 0, u"##other", u"urn:t");
}
using UntpdMnd = CElementInfoSeqUntpdMnd;
using UntpdOpt = CElementInfoSeqUntpdOpt;

INSTANTIATE_TEST_SUITE_P(
    OpenElements, Seq,
    testing::Values(
        SGridCase{"MndAny", Open<UntpdMnd, true>, AnOpenElement, 0, false,
                  "<r><q xmlns='urn:q'/><z/></r>", "<q> "},
        SGridCase{"MndNamed", Open<UntpdMnd, false>, AnOpenElement, 0, false, "<r><e/><z/></r>",
                  "<e> "},
        SGridCase{"MndOtherName", Open<UntpdMnd, false>, AnOpenElement, 0, false, "<r><q/></r>",
                  "Failed to find the required element from namespace []"},
        SGridCase{"MndRefused", Open<UntpdMnd, true>, AnOpenElement, 0, false,
                  "<r><q xmlns='urn:t'/></r>",
                  "Failed to find the required element from namespace []"},
        SGridCase{"MndRefusedInGroup", Open<UntpdMnd, true>, AnOpenElement, 0, true,
                  "<r><x xmlns='urn:t'/></r>", kLeftX},
        SGridCase{"MndNothingLeftInGroup", Open<UntpdMnd, false>, AnOpenElement, 0, true, "<r/>",
                  kNoE},
        SGridCase{"OptAny", Open<UntpdOpt, true>, Nothing, 0, false,
                  "<r><q xmlns='urn:q'/><z/></r>", "<q> "},
        SGridCase{"OptRefused", Open<UntpdOpt, true>, Nothing, 0, false,
                  "<r><z xmlns='urn:t'/></r>", kNoZ},
        SGridCase{"OptNothingLeft", Open<UntpdOpt, true>, Nothing, kMissing, false, "<r/>", "- -"}),
    kRowName);

CClass& ClsCol(CClass& c)
{
    return c.Element<CElementInfoSeqClsCol>(u"e", u"", 0, XmlElementType_Element);
}
template <bool isAny>
CClass& UntpdCol(CClass& c)
{
    return c.Element<CElementInfoSeqUntpdCol>(isAny ? u"AnyElement" : u"e", u"", 0);
}

INSTANTIATE_TEST_SUITE_P(
    Collections, Seq,
    testing::Values(
        SGridCase{"Run", ClsCol, Items, 0, false, "<r><e/><e/><z/></r>", "[2] "},
        SGridCase{"TooFew", ClsCol, Items, 0, false, "<r><z/></r>",
                  "The Minimum number of [e] elements allowed in this collection is 1"},
        SGridCase{"TooMany", ClsCol, Items, 0, false, "<r><e/><e/><e/><z/></r>",
                  "The Maximum number of [e] elements allowed in this collection is 2"},
        SGridCase{"TooManyInGroup", ClsCol, Items, 0, true, "<r><e/><e/><e/><z/></r>", kLeftE},
        SGridCase{"OpenAny", UntpdCol<true>, OpenElements, kMissing, false, "<r><q/><z/></r>",
                  "[2] -"},
        SGridCase{"OpenNamed", UntpdCol<false>, OpenElements, 0, false, "<r><e/><e/><z/></r>",
                  "[2] "},
        SGridCase{"OpenNamedOneNamespace", UntpdCol<false>, OpenElements, 0, false,
                  "<r><e/><e xmlns='urn:q'/><z/></r>", kNoZ},
        SGridCase{"OpenNamedNothingLeft", UntpdCol<false>, OpenElements, 0, false, "<r/>",
                  "The Minimum number of [] elements allowed in this collection is 1"}),
    kRowName);

TEST(SeqClsOpt, IsStoredOnceItIsRead)
{
    ReadGrid({"", ClsOpt, Nothing, 0, false, "<r><e>1</e><z/></r>", ""},
             XmlElementGroupType_Sequence);
    EXPECT_EQ(CCustom::s_log, "r init; item init; e set 0; r set 0; r set 1; ");
}

TEST(SeqClsMnd, IsReadInPlaceWithoutASetter)
{
    ReadGrid({"", ClsMnd, AnItem, 0, false, "<r><e>1</e><z/></r>", ""},
             XmlElementGroupType_Sequence);
    EXPECT_EQ(CCustom::s_log, "r init; item init; e set 0; r set 1; ");
}

TEST(SeqCol, TestsItsCountOnOutput)
{
    CClass type(Info());
    ClsCol(type);
    const CSmartPtr<CCustom> object = new CCustom(type);
    (*object)[0] = Items();
    EXPECT_THROW(object->ToXml(), CZqValidationException);
    CXmlSerializationContext context;
    context.SetIgnoreInvalidCollectionCounts(true);
    EXPECT_EQ(U8(object->ToXml(false, false, EOLType_LF, context)), "<root/>");
}

struct STypeName {
    const char* name;
    const char* xml;
    const char* type;
    const char* ns;
};

class TypeName : public testing::TestWithParam<STypeName> {};

TEST_P(TypeName, IsResolvedByTheDocument)
{
    CXmlDocument document;
    document.LoadXml(GetParam().xml);
    const CXmlElement* const root = document.GetDocumentElement();
    EXPECT_EQ(U8(CFactory::GetElementType(root)), GetParam().type);
    EXPECT_EQ(U8(CFactory::GetElementTypeNamespaceUri(root)), GetParam().ns);
}

#define E "<e xmlns='urn:e' xmlns:p='urn:p' xmlns:i='http://www.w3.org/2001/XMLSchema-instance' "

INSTANTIATE_TEST_SUITE_P(
    Forms, TypeName,
    testing::Values(STypeName{"Plain", E "i:type='T'/>", "T", "urn:e"},
                    STypeName{"Prefixed", E "i:type='p:T'/>", "T", "urn:p"},
                    STypeName{"Undeclared", E "i:type='q:T'/>", "T", "urn:e"},
                    STypeName{"TwoColons", E "i:type='p:T:U'/>", "T:U", "urn:p"},
                    STypeName{"None", E "/>", "", "urn:e"},
                    STypeName{"OtherAttribute", E "type='p:T'/>", "", "urn:e"}),
    kRowName);

}  // namespace
}  // namespace ZqXmlLib9
