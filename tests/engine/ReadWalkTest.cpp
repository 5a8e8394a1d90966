// The walk that reads: group by group, flag by flag, with what comes out or the chain of messages.

#include "model/Custom.h"
#include "support/Print.h"

#include <gtest/gtest.h>

namespace ZqXmlLib9 {
namespace {

using namespace TestModel;

enum Flags : unsigned {
    None = 0,
    UnknownElements = 1,
    MissingMandatory = 2,
    MissingChoice = 4,
    UnknownAttributes = 8,
    Namespaces = 16,
};

CXmlSerializationContext MakeContext(unsigned flags)
{
    CXmlSerializationContext context;
    context.SetIgnoreUnknownElements((flags & UnknownElements) != 0);
    context.SetIgnoreMissingMandatoryElements((flags & MissingMandatory) != 0);
    context.SetIgnoreMissingChoice((flags & MissingChoice) != 0);
    context.SetIgnoreUnknownAttributes((flags & UnknownAttributes) != 0);
    context.SetIgnoreNamespaces((flags & Namespaces) != 0);
    return context;
}

/// Reads and tells the properties as "0=x 1=y", or the chain of messages.
std::string Read(CCustom& object, const char* xml, unsigned flags)
{
    const CXmlSerializationContext context = MakeContext(flags);
    try {
        object.FromXml(xml, context);
    }
    catch (const CZqValidationException& failure) {
        return failure.GetFullMessageUtf8();
    }
    std::string outcome;
    for (std::size_t i = 0; i < 8; ++i)
        if (object[i].GetTypeAsEnum() == ItemType_string)
            outcome +=
                (outcome.empty() ? "" : " ") + std::to_string(i) + "=" + U8(object[i].GetString());
    return outcome;
}

enum Model { SequenceOfTwo, ChoiceOfTwo, ChoiceOfCollection, AllOfThree };

struct SCase {
    const char* name;
    Model model;
    unsigned flags;
    const char* xml;
    const char* outcome;
};

constexpr const char* kLeftover =
    "Failed to process the element [r]\n"
    "Failed read all the elements held within the element [r]. The unexpected element [x] remains "
    "un processed";
constexpr const char* kNoChoice =
    "Failed to process the element [r]\n"
    "No child elements within the element [r] were populated. The element represents a choice, so "
    "one and only one element should be populated. The element contained no sutable child elements";
constexpr const char* kNoA =
    "Failed to process the element [r]\nFailed to find a required element [a]";
constexpr const char* kNoB =
    "Failed to process the element [r]\nFailed to find a required element [b]";

constexpr const char* kNoC =
    "Failed to process the element [r]\nFailed to find the mandatory element [c]";
constexpr auto kSequence = XmlElementGroupType_Sequence;
constexpr auto kChoice = XmlElementGroupType_Choice;
constexpr auto kAll = XmlElementGroupType_All;

/// What a class of each group makes of a document. The classes are a sequence of a and b, a choice
/// of a and b, a choice of a collection of at least one item, and an all group of a, b and c of
/// which b is optional.
class Walk : public testing::TestWithParam<SCase> {};

CClass MakeClass(Model model)
{
    switch (model) {
    case SequenceOfTwo: return std::move(CClass(Info(kSequence)).Text(u"a", 0).Text(u"b", 1));
    case ChoiceOfTwo:
        return std::move(CClass(Info(kChoice))
                             .Text<CElementInfoChoicePrimOpt>(u"a", 0)
                             .Text<CElementInfoChoicePrimOpt>(u"b", 1));
    case ChoiceOfCollection:
        return std::move(
            CClass(Info(kChoice))
                .Element<CElementInfoChoiceClsCol>(u"item", u"", 7, XmlElementType_Element));
    default:
        return std::move(CClass(Info(kAll))
                             .Text<CElementInfoAllPrimMnd>(u"a", 0)
                             .Text<CElementInfoAllPrimOpt>(u"b", 1)
                             .Text<CElementInfoAllPrimMnd>(u"c", 2));
    }
}

TEST_P(Walk, ReadsOrFails)
{
    CClass type = MakeClass(GetParam().model);
    const CSmartPtr<CCustom> object = new CCustom(type);
    (*object)[7] = CollectionValue(new CItemCol(u"item", u"", 1, -1));
    EXPECT_EQ(Read(*object, GetParam().xml, GetParam().flags), GetParam().outcome);
}

#define SEQ SequenceOfTwo
INSTANTIATE_TEST_SUITE_P(
    Sequence, Walk,
    testing::Values(
        SCase{"Complete", SEQ, None, "<r><a>1</a><b>2</b></r>", "0=1 1=2"},
        SCase{"WrongOrder", SEQ, None, "<r><b>2</b><a>1</a></r>", kNoA},
        SCase{"Nothing", SEQ, None, "<r/>", kNoA},
        SCase{"Unknown", SEQ, None, "<r><x/><a>1</a><b>2</b></r>", kNoA},
        SCase{"Leftover", SEQ, None, "<r><a>1</a><b>2</b><x/></r>", kLeftover},
        SCase{"Repeated", SEQ, None, "<r><a>1</a><a>1</a><b>2</b></r>", kNoB},
        SCase{"WrongNamespace", SEQ, None, "<r xmlns='urn:x'><a>1</a><b>2</b></r>", kNoA},
        SCase{"Scans", SEQ, UnknownElements, "<r><x/><a>1</a><x/><b>2</b><x/></r>", "0=1 1=2"},
        SCase{"EndsScan", SEQ, UnknownElements, "<r><b>2</b><a>1</a></r>", kNoB},
        SCase{"NoNamespaces", SEQ, Namespaces, "<r xmlns:p='u'><p:a>1</p:a><b>2</b></r>",
              "0=1 1=2"},
        SCase{"FirstMissing", SEQ, MissingMandatory, "<r><b>2</b></r>", "1=2"},
        SCase{"AllMissing", SEQ, MissingMandatory, "<r/>", ""},
        SCase{"MissingAndLeftover", SEQ, MissingMandatory, "<r><x/></r>", kLeftover}),
    kRowName);
INSTANTIATE_TEST_SUITE_P(
    Choice, Walk,
    testing::Values(
        SCase{"Second", ChoiceOfTwo, None, "<r><b>2</b></r>", "1=2"},
        SCase{"OptionalMembersMayBeAbsent", ChoiceOfTwo, None, "<r/>", ""},
        SCase{"Leftover", ChoiceOfTwo, None, "<r><a>1</a><x/></r>", kLeftover},
        SCase{"Scans", ChoiceOfTwo, UnknownElements, "<r><x/><b>2</b><x/></r>", "1=2"},
        SCase{"Run", ChoiceOfCollection, None, "<r><item/><item/></r>", ""},
        SCase{"None", ChoiceOfCollection, None, "<r/>", kNoChoice},
        SCase{"Unknown", ChoiceOfCollection, None, "<r><x/></r>", kNoChoice},
        SCase{"NoneIgnored", ChoiceOfCollection, MissingChoice, "<r/>", ""},
        SCase{"UnknownStays", ChoiceOfCollection, MissingChoice, "<r><x/></r>", kLeftover},
        SCase{"ScansToTheEnd", ChoiceOfCollection, UnknownElements, "<r><x/></r>", kNoChoice}),
    kRowName);
#define ALL AllOfThree
INSTANTIATE_TEST_SUITE_P(
    All, Walk,
    testing::Values(
        SCase{"Reverse", ALL, None, "<r><c>3</c><b>2</b><a>1</a></r>", "0=1 1=2 2=3"},
        SCase{"OptionalAbsent", ALL, None, "<r><c>3</c><a>1</a></r>", "0=1 2=3"},
        SCase{"NoFlagHelps", ALL, MissingMandatory, "<r><a>1</a></r>", kNoC},
        SCase{"Repeated", ALL, None, "<r><a>1</a><a>9</a><c>3</c></r>", kNoC},
        SCase{"Leftover", ALL, None, "<r><c>3</c><a>1</a><x/></r>", kLeftover},
        SCase{"StopsAtUnknown", ALL, UnknownElements, "<r><a>1</a><x/><c>3</c></r>", kNoC},
        SCase{"DropsTheRest", ALL, UnknownElements, "<r><c>3</c><a>1</a><x/></r>", "0=1 2=3"}),
    kRowName);

/// A sequence of an element `first`, a group without a tag of a and b, and an element z.
struct SPseudoCase {
    const char* name;
    XmlElementGroupType group;
    bool hasRequiredContent;
    unsigned flags;
    const char* xml;
    const char* log;      ///< of the group
    const char* outcome;  ///< of the enclosing object
};

class PseudoGroup : public testing::TestWithParam<SPseudoCase> {};

TEST_P(PseudoGroup, GivesTheCursorBackOnAMiss)
{
    CClass groupType(Info(GetParam().group, XmlElementType_Pseudo));
    switch (GetParam().group) {
    case XmlElementGroupType_Sequence: groupType.Text(u"a", 0).Text(u"b", 1); break;
    case XmlElementGroupType_Choice:
        groupType.Text<CElementInfoChoicePrimOpt>(u"a", 0).Text<CElementInfoChoicePrimOpt>(u"b", 1);
        break;
    case XmlElementGroupType_All:
        groupType.Text<CElementInfoAllPrimMnd>(u"a", 0).Text<CElementInfoAllPrimMnd>(u"b", 1);
        break;
    }
    CClass type(Info());
    type.Text(u"first", 1)
        .Child(u"group", 0, XmlElementType_Pseudo, u"", GetParam().hasRequiredContent)
        .Text(u"z", 2);
    const CSmartPtr<CCustom> group = new CCustom(groupType, u"group");
    const CSmartPtr<CCustom> object = new CCustom(type);
    (*object)[0] = ObjectValue(group.Get());
    EXPECT_EQ(Read(*object, GetParam().xml, GetParam().flags), GetParam().outcome);
    EXPECT_EQ(group->m_log, GetParam().log);
}

constexpr const char* kNoZ =
    "Failed to process the element [r]\nFailed to find a required element [z]";
constexpr const char* kNoGroup =
    "Failed to process the element [r]\nFailed to find a required element [group]";

INSTANTIATE_TEST_SUITE_P(
    Kinds, PseudoGroup,
    testing::Values(
        SPseudoCase{"Sequence", kSequence, true, None,
                    "<r><first>0</first><a>1</a><b>2</b><z>3</z></r>", "init;set 0;set 1;",
                    "1=0 2=3"},
        SPseudoCase{"SequenceCutShort", kSequence, false, None,
                    "<r><first>0</first><a>1</a><z>3</z></r>", "init;set 0;", kNoZ},
        SPseudoCase{"SequenceCutShortRequired", kSequence, true, None,
                    "<r><first>0</first><a>1</a><z>3</z></r>", "init;set 0;", kNoGroup},
        SPseudoCase{"NothingLeftRequired", kSequence, true, None, "<r><first>0</first></r>", "",
                    kNoGroup},
        SPseudoCase{"ComesAgainBehindUnknown", kSequence, false, UnknownElements,
                    "<r><first>0</first><x/><a>1</a><x/><b>2</b><z>3</z></r>", "init;set 0;set 1;",
                    "1=0 2=3"},
        SPseudoCase{"Choice", kChoice, true, None, "<r><first>0</first><b>2</b><z>3</z></r>",
                    "init;set 1;", "1=0 2=3"},
        SPseudoCase{"All", kAll, true, None, "<r><first>0</first><b>2</b><a>1</a><z>3</z></r>",
                    "init;set 1;set 0;", "1=0 2=3"},
        SPseudoCase{"AllCutShort", kAll, true, None, "<r><first>0</first><b>2</b><z>3</z></r>",
                    "init;set 1;", kNoGroup}),
    kRowName);

struct SAttributeCase {
    const char* name;
    unsigned flags;
    const char* attributes;
    const char* outcome;
};

class Attributes : public testing::TestWithParam<SAttributeCase> {};

TEST_P(Attributes, AreOfferedThenValidated)
{
    CClass type(Info());
    type.TextAttribute(u"id", 0, false).TextAttribute(u"lang", 1, true);
    const CSmartPtr<CCustom> object = new CNillableCustom(type);
    const std::string xml = std::string("<r ") + GetParam().attributes + "/>";
    EXPECT_EQ(Read(*object, xml.c_str(), GetParam().flags), GetParam().outcome);
}

#define XSI "xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "

INSTANTIATE_TEST_SUITE_P(
    Offered, Attributes,
    testing::Values(
        SAttributeCase{"AnyOrder", None, "lang='de' id='1'", "0=1 1=de"},
        SAttributeCase{
            "RequiredMissing", None, "lang='de'",
            "Failed to process the element [r]\nFailed to find the required Attribute [id]"},
        SAttributeCase{
            "NoFlagHelps", UnknownAttributes | UnknownElements, "",
            "Failed to process the element [r]\nFailed to find the required Attribute [id]"},
        SAttributeCase{"Unknown", None, "id='1' x='2'",
                       "Failed to process the element [r]\nUnexpected Attribute [x] found."},
        SAttributeCase{"UnknownIgnored", UnknownAttributes, "id='1' x='2'", "0=1"},
        SAttributeCase{"MachineryPassesBy", None,
                       XSI "id='1' xsi:type='t' xsi:schemaLocation='a b' "
                           "xsi:noNamespaceSchemaLocation='c'",
                       "0=1"},
        SAttributeCase{"NilFalse", None, XSI "id='1' xsi:nil='FALSE'", "0=1"},
        SAttributeCase{"NilOne", UnknownAttributes, XSI "id='1' xsi:nil='1'",
                       "Failed to process the element [r]\n"
                       "Unexpected Value for Attribute [nil] found."}),
    kRowName);

TEST(NilElement, ReadsAttributesAndNoContent)
{
    CClass type(Info(XmlElementGroupType_Sequence, XmlElementType_Element, 3));
    type.Text(u"a", 0).TextAttribute(u"id", 1, false);
    const CSmartPtr<CNillableCustom> object = new CNillableCustom(type);
    EXPECT_EQ(Read(*object, "<r " XSI "xsi:nil='TRUE' id='7'>text<strange/></r>", None), "1=7");
    EXPECT_TRUE(object->IsNil());

    const CSmartPtr<CCustom> strict = new CCustom(type);
    EXPECT_EQ(Read(*strict, "<r " XSI "xsi:nil='true' id='7'/>", UnknownAttributes),
              "Failed to process the element [r]\nUnexpected Attribute [nil] found.");
}

TEST(ClassThatToleratesAttributes, DropsThemUnderAnyContext)
{
    CClass type(
        {XmlElementGroupType_Sequence, XmlElementType_Element, u"T", u"", -1, false, false});
    const CSmartPtr<CCustom> object = new CCustom(type);
    EXPECT_EQ(Read(*object, "<r x='1' y='2'/>", None), "");
}

TEST(ElementText, ComesAfterTheChildrenAsAString)
{
    CClass type(Info(XmlElementGroupType_Sequence, XmlElementType_Element, 3));
    type.Text(u"a", 0);
    const CSmartPtr<CCustom> object = new CCustom(type);
    EXPECT_EQ(Read(*object, "<r>x<a>1</a>y</r>", None), "0=1 3=xy");
    EXPECT_EQ(object->m_log, "init;set 0;set 3;");
}

TEST(Chain, NamesEveryElementFromTheRoot)
{
    CClass inner(Info());
    inner.Text(u"leaf", 0);
    CClass middle(Info());
    middle.Child(u"inner", 0);
    CClass outer(Info());
    outer.Child(u"middle", 0);
    const CSmartPtr<CCustom> innerObject = new CCustom(inner);
    const CSmartPtr<CCustom> middleObject = new CCustom(middle);
    const CSmartPtr<CCustom> object = new CCustom(outer);
    (*object)[0] = ObjectValue(middleObject.Get());
    (*middleObject)[0] = ObjectValue(innerObject.Get());
    EXPECT_EQ(Read(*object, "<outer><middle><inner><x/></inner></middle></outer>", None),
              "Failed to process the element [outer]\n"
              "Failed to process the element [middle]\n"
              "Failed to process the element [inner]\n"
              "Failed to find a required element [leaf]");
}

TEST(GroupType, OutsideTheEnumFails)
{
    CClass type(Info(static_cast<XmlElementGroupType>(3)));
    const CSmartPtr<CCustom> object = new CCustom(type);
    EXPECT_EQ(Read(*object, "<r/>", None), "Failed to process the element [r]\nUnknow Group Type");
    EXPECT_EQ(MessageOf<CZqValidationException>([&] { object->ToXml(); }),
              "Failed to convert the element [r] to XML\nUnknown XML Group Type");
}

TEST(MoreRecordsThanAWord, EachHasItsFlag)
{
    CClass type(Info(XmlElementGroupType_All));
    std::string xml = "<r>";
    for (int i = 69; i >= 0; --i)
        xml += "<e" + std::to_string(i) + "/>";
    for (int i = 0; i < 70; ++i)
        type.Text<CElementInfoAllPrimMnd>(ToUtf16("e" + std::to_string(i)).c_str(), i % 8);
    const CSmartPtr<CCustom> object = new CCustom(type);
    EXPECT_NO_THROW(object->FromXml((xml + "</r>").c_str()));
    EXPECT_THROW(object->FromXml((xml + "<e69/></r>").c_str()), CZqValidationException);
}

}  // namespace
}  // namespace ZqXmlLib9
