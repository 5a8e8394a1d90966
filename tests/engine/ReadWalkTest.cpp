// The walk that reads: group by group, flag by flag, with what comes out or the chain of messages.

#include "model/Custom.h"
#include "support/Print.h"

#include <gtest/gtest.h>

namespace ZqXmlLib9 {
namespace {

using namespace TestModel;

/// Flags of a context: "u" ignores unknown elements, "m" missing mandatory ones, "c" a missing
/// choice, "a" unknown attributes, "n" namespaces.
CXmlSerializationContext MakeContext(std::string_view flags)
{
    const auto has = [&](char flag) { return flags.find(flag) != flags.npos; };
    CXmlSerializationContext context;
    context.SetIgnoreUnknownElements(has('u'));
    context.SetIgnoreMissingMandatoryElements(has('m'));
    context.SetIgnoreMissingChoice(has('c'));
    context.SetIgnoreUnknownAttributes(has('a'));
    context.SetIgnoreNamespaces(has('n'));
    return context;
}

/// Reads and tells the properties as "0=x 1=y", or the chain of messages below the root.
std::string Read(CCustom& object, const std::string& xml, std::string_view flags = "")
{
    const CXmlSerializationContext context = MakeContext(flags);
    try {
        object.FromXml(xml.c_str(), context);
    }
    catch (const CZqValidationException& failure) {
        const std::string chain = failure.GetFullMessageUtf8(), root = "[r]\n";
        EXPECT_TRUE(chain.starts_with("Failed to process the element " + root)) << chain;
        return chain.substr(chain.find('\n') + 1);
    }
    std::string outcome;
    for (std::size_t i = 0; i < 8; ++i)
        if (object[i].GetTypeAsEnum() == ItemType_string)
            outcome +=
                (outcome.empty() ? "" : " ") + std::to_string(i) + "=" + U8(object[i].GetString());
    return outcome;
}

constexpr const char* kLeftover =
    "Failed read all the elements held within the element [r]. The unexpected element [x] remains "
    "un processed";
constexpr const char* kNoChoice =
    "No child elements within the element [r] were populated. The element represents a choice, so "
    "one and only one element should be populated. The element contained no sutable child elements";
constexpr const char* kNoA = "Failed to find a required element [a]";
constexpr const char* kNoB = "Failed to find a required element [b]";
constexpr const char* kNoC = "Failed to find the mandatory element [c]";
constexpr const char* kNoZ = "Failed to find a required element [z]";
constexpr const char* kNoGroup = "Failed to find a required element [group]";
constexpr auto kSequence = XmlElementGroupType_Sequence;
constexpr auto kChoice = XmlElementGroupType_Choice;
constexpr auto kAll = XmlElementGroupType_All;

/// Flags, the content of a document, and what comes of it.
struct SRow {
    const char* flags;
    const char* content;
    const char* outcome;
};

void CheckRows(CClass& type, std::initializer_list<SRow> rows)
{
    for (const auto& [flags, content, outcome] : rows) {
        const CSmartPtr<CCustom> object = new CCustom(type);
        (*object)[7] = CollectionValue(new CItemCol(u"item", u"", 1, -1));
        EXPECT_EQ(Read(*object, std::string("<r xmlns:p='u'>") + content + "</r>", flags), outcome)
            << flags << ' ' << content;
    }
}

TEST(Walk, ReadsASequence)
{
    CClass type = std::move(CClass(Info(kSequence)).Text(u"a", 0).Text(u"b", 1));
    CheckRows(type, {{"", "<a>1</a><b>2</b>", "0=1 1=2"},
                     {"", "<b>2</b><a>1</a>", kNoA},
                     {"", "", kNoA},
                     {"", "<x/><a>1</a><b>2</b>", kNoA},
                     {"", "<a>1</a><b>2</b><x/>", kLeftover},
                     {"", "<a>1</a><a>1</a><b>2</b>", kNoB},
                     {"", "<p:a>1</p:a><b>2</b>", kNoA},
                     {"n", "<p:a>1</p:a><b>2</b>", "0=1 1=2"},
                     {"u", "<x/><a>1</a><x/><b>2</b><x/>", "0=1 1=2"},
                     {"u", "<b>2</b><a>1</a>", kNoB},
                     {"m", "<b>2</b>", "1=2"},
                     {"m", "", ""},
                     {"m", "<x/>", kLeftover}});
}

TEST(Walk, ReadsAChoice)
{
    CClass type = std::move(CClass(Info(kChoice))
                                .Text<CElementInfoChoicePrimOpt>(u"a", 0)
                                .Text<CElementInfoChoicePrimOpt>(u"b", 1));
    CheckRows(type, {{"", "<b>2</b>", "1=2"},
                     {"", "", ""},
                     {"", "<a>1</a><x/>", kLeftover},
                     {"u", "<x/><b>2</b><x/>", "1=2"}});
    CClass collection =
        std::move(CClass(Info(kChoice))
                      .Element<CElementInfoChoiceClsCol>(u"item", u"", 7, XmlElementType_Element));
    CheckRows(collection, {{"", "<item/><item/>", ""},
                           {"", "", kNoChoice},
                           {"", "<x/>", kNoChoice},
                           {"c", "", ""},
                           {"c", "<x/>", kLeftover},
                           {"u", "<x/>", kNoChoice}});
}

TEST(Walk, ReadsAnAllGroup)
{
    CClass type = std::move(CClass(Info(kAll))
                                .Text<CElementInfoAllPrimMnd>(u"a", 0)
                                .Text<CElementInfoAllPrimOpt>(u"b", 1)
                                .Text<CElementInfoAllPrimMnd>(u"c", 2));
    CheckRows(type, {{"", "<c>3</c><b>2</b><a>1</a>", "0=1 1=2 2=3"},
                     {"", "<c>3</c><a>1</a>", "0=1 2=3"},
                     {"m", "<a>1</a>", kNoC},
                     {"", "<a>1</a><a>9</a><c>3</c>", kNoC},
                     {"", "<c>3</c><a>1</a><x/>", kLeftover},
                     {"u", "<a>1</a><x/><c>3</c>", kNoC},
                     {"u", "<c>3</c><a>1</a><x/>", "0=1 2=3"}});
}

/// A sequence of an element f, a group without a tag of a and b, and an element z.
TEST(PseudoGroup, GivesTheCursorBackOnAMiss)
{
    const std::string both = "init;set 0;set 1;";
    for (const auto& [group, isRequired, flags, content, log, outcome] :
         {std::tuple(kSequence, true, "", "<f>0</f><a>1</a><b>2</b><z>3</z>", both, "1=0 2=3"),
          {kSequence, false, "", "<f>0</f><a>1</a><z>3</z>", "init;set 0;", kNoZ},
          {kSequence, true, "", "<f>0</f><a>1</a><z>3</z>", "init;set 0;", kNoGroup},
          {kSequence, true, "", "<f>0</f>", "", kNoGroup},
          {kSequence, false, "u", "<f>0</f><x/><a>1</a><x/><b>2</b><z>3</z>", both, "1=0 2=3"},
          {kChoice, true, "", "<f>0</f><b>2</b><z>3</z>", "init;set 1;", "1=0 2=3"},
          {kAll, true, "", "<f>0</f><b>2</b><a>1</a><z>3</z>", "init;set 1;set 0;", "1=0 2=3"},
          {kAll, true, "", "<f>0</f><b>2</b><z>3</z>", "init;set 1;", kNoGroup}}) {
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
        const CSmartPtr<CCustom> root = new CCustom(type);
        (*root)[0] = ObjectValue(object.Get());
        EXPECT_EQ(Read(*root, std::string("<r>") + content + "</r>", flags), outcome) << content;
        EXPECT_EQ(object->m_log, log) << content;
    }
}

#define XSI "xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "

TEST(Attributes, AreOfferedThenValidated)
{
    CClass type(Info());
    type.TextAttribute(u"id", 0, false).TextAttribute(u"lang", 1, true);
    const std::string missing = "Failed to find the required Attribute [id]";
    for (const auto& [flags, attributes, outcome] :
         {std::tuple("", "lang='de' id='1'", std::string("0=1 1=de")),
          {"", "lang='de'", missing},
          {"au", "", missing},
          {"", "id='1' x='2'", "Unexpected Attribute [x] found."},
          {"a", "id='1' x='2'", "0=1"},
          {"", "id='1' xsi:type='t' xsi:schemaLocation='a' xsi:noNamespaceSchemaLocation='c'",
           "0=1"},
          {"", "id='1' xsi:nil='FALSE'", "0=1"},
          {"a", "id='1' xsi:nil='1'", "Unexpected Value for Attribute [nil] found."}}) {
        const CSmartPtr<CCustom> object = new CNillableCustom(type);
        EXPECT_EQ(Read(*object, std::string("<r " XSI) + attributes + "/>", flags), outcome);
    }
}

TEST(NilElement, ReadsAttributesAndNoContent)
{
    CClass type(Info(XmlElementGroupType_Sequence, XmlElementType_Element, 3));
    type.Text(u"a", 0).TextAttribute(u"id", 1, false);
    const CSmartPtr<CNillableCustom> object = new CNillableCustom(type);
    EXPECT_EQ(Read(*object, "<r " XSI "xsi:nil='TRUE' id='7'>text<strange/></r>"), "1=7");
    EXPECT_TRUE(object->IsNil());

    const CSmartPtr<CCustom> strict = new CCustom(type);
    EXPECT_EQ(Read(*strict, "<r " XSI "xsi:nil='true' id='7'/>", "a"),
              "Unexpected Attribute [nil] found.");
}

TEST(ClassThatToleratesAttributes, DropsThemUnderAnyContext)
{
    CClass type(
        {XmlElementGroupType_Sequence, XmlElementType_Element, u"T", u"", -1, false, false});
    const CSmartPtr<CCustom> object = new CCustom(type);
    EXPECT_EQ(Read(*object, "<r x='1' y='2'/>"), "");
}

TEST(ElementText, ComesAfterTheChildrenAsAString)
{
    CClass type(Info(XmlElementGroupType_Sequence, XmlElementType_Element, 3));
    type.Text(u"a", 0);
    const CSmartPtr<CCustom> object = new CCustom(type);
    EXPECT_EQ(Read(*object, "<r>x<a>1</a>y</r>"), "0=1 3=xy");
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
