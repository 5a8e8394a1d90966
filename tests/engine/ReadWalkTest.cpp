// The walk that reads: group by group, flag by flag, with what comes out or the chain of messages.

#include "metadata/Grid.h"

namespace ZqXmlLib9 {
namespace {

using namespace TestModel;

constexpr auto kSequence = XmlElementGroupType_Sequence;
constexpr auto kChoice = XmlElementGroupType_Choice;
constexpr auto kAll = XmlElementGroupType_All;

/// Reads and tells the object, or the chain of messages below the root.
std::string Read(CCustom& object, const std::string& xml, const std::string& flags = "")
{
    const std::string failure = ReadOrFail(object, xml, flags);
    if (failure.empty())
        return Describe(&object);
    EXPECT_TRUE(failure.starts_with("Failed to process the element [r]\n")) << failure;
    return failure.substr(failure.find('\n') + 1);
}

/// A sequence of an element f, a group without a tag of a and b, and an element z.
TEST(PseudoGroup, GivesTheCursorBackOnAMiss)
{
    const std::string both = "init;set 0;set 1;";
    for (const auto& [group, isRequired, flags, content, log, outcome] :
         {std::tuple(kSequence, true, "", "<f/><a>1</a><b>2</b><z/>", both, "r(group(1 2) '' '')"),
          {kSequence, false, "", "<f/><a>1</a><z/>", "init;set 0;", "required z"},
          {kSequence, true, "", "<f/><a>1</a><z/>", "init;set 0;", "required group"},
          {kSequence, true, "", "<f/>", "", "required group"},
          {kSequence, false, "u", "<f/><x/><a>1</a><x/><b>2</b><z/>", both, "r(group(1 2) '' '')"},
          {kChoice, true, "", "<f/><b>2</b><z/>", "init;set 1;", "r(group(2) '' '')"},
          {kAll, true, "", "<f/><b>2</b><a>1</a><z/>", "init;set 1;set 0;", "r(group(1 2) '' '')"},
          {kAll, true, "", "<f/><b>2</b><z/>", "init;set 1;", "required group"}}) {
        CClass groupType(Info(group, XmlElementType_Pseudo));
        for (const auto& [name, index] : {std::pair(u"a", 0), {u"b", 1}})
            switch (group) {
            case kSequence: groupType.Text(name, index); break;
            case kChoice: groupType.Text<CElementInfoChoicePrimOpt>(name, index); break;
            case kAll: groupType.Text<CElementInfoAllPrimMnd>(name, index); break;
            }
        CClass type(Info());
        type.Text(u"f", 1).Child(u"group", 0, XmlElementType_Pseudo, u"", isRequired).Text(u"z", 2);
        const CSmartPtr<CCustom> object = new CCustom(groupType, u"group");
        const CSmartPtr<CCustom> root =
            new CCustom(type, u"r", {ObjectValue(object.Get()), Nothing(), Nothing()});
        EXPECT_EQ(Read(*root, std::string("<r>") + content + "</r>", flags), Expand(outcome))
            << content;
        EXPECT_EQ(object->m_log, log) << content;
    }
}

TEST(Attributes, AreOfferedThenValidated)
{
    CClass type(Info());
    type.TextAttribute(u"id", 0, false).TextAttribute(u"lang", 1, true);
    const std::string missing = "Failed to find the required Attribute [id]";
    for (const auto& [flags, attributes, outcome] :
         {std::tuple("", "lang='de' id='1'", std::string("r(1 de)")),
          {"", "lang='de'", missing},
          {"au", "", missing},
          {"", "id='1' x='2'", "Unexpected Attribute [x] found."},
          {"a", "id='1' x='2'", "r(1)"},
          {"", "id='1' i:type='t' i:schemaLocation='a' i:noNamespaceSchemaLocation='c'", "r(1)"},
          {"", "id='1' i:nil='FALSE'", "r(1)"},
          {"a", "id='1' i:nil='1'", "Unexpected Value for Attribute [nil] found."}}) {
        const CSmartPtr<CCustom> object = new CNillableCustom(type);
        EXPECT_EQ(Read(*object, std::string("<r " XSI " ") + attributes + "/>", flags), outcome);
    }
    CClass tolerant({kSequence, XmlElementType_Element, u"T", u"", -1, false, false});
    EXPECT_EQ(Read(*CSmartPtr<CCustom>(new CCustom(tolerant)), "<r x='1' y='2'/>"), "r()");
}

TEST(NilElement, ReadsAttributesAndNoContent)
{
    CClass type(Info(kSequence, XmlElementType_Element, 3));
    type.Text(u"a", 0).TextAttribute(u"id", 1, false);
    const CSmartPtr<CNillableCustom> object = new CNillableCustom(type);
    EXPECT_EQ(Read(*object, "<r " XSI " i:nil='TRUE' id='7'>text<strange/></r>"), "r(7)");
    EXPECT_TRUE(object->IsNil());
    const CSmartPtr<CCustom> strict = new CCustom(type);
    EXPECT_EQ(Read(*strict, "<r " XSI " i:nil='true' id='7'/>", "a"),
              "Unexpected Attribute [nil] found.");
    EXPECT_EQ(Read(*strict, "<r id='7'>x<a>1</a>y</r>"), "r(1 7 xy)");
    EXPECT_EQ(strict->m_log, "init;init;set 1;set 0;set 3;") << "the text comes last";
}

TEST(Chain, NamesEveryElementFromTheRoot)
{
    CClass inner(Info()), middle(Info()), outer(Info());
    inner.Text(u"leaf", 0);
    middle.Child(u"inner", 0);
    outer.Child(u"middle", 0);
    const CSmartPtr<CCustom> innerObject = new CCustom(inner);
    const CSmartPtr<CCustom> middleObject =
        new CCustom(middle, u"middle", {ObjectValue(innerObject.Get())});
    const CSmartPtr<CCustom> object = new CCustom(outer, u"r", {ObjectValue(middleObject.Get())});
    EXPECT_EQ(Read(*object, "<r><middle><inner><x/></inner></middle></r>"),
              "Failed to process the element [middle]\n"
              "Failed to process the element [inner]\n"
              "Failed to find a required element [leaf]");
}

TEST(GroupType, OutsideTheEnumFails)
{
    CClass type(Info(static_cast<XmlElementGroupType>(3)));
    const CSmartPtr<CCustom> object = new CCustom(type);
    EXPECT_EQ(Read(*object, "<r/>"), "Unknow Group Type");
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
