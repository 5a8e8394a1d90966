// The walk that reads: what comes out or the chain of messages. The walk that writes: what comes in
// which order, and the chain of messages where it fails.

#include "metadata/Grid.h"

namespace ZqXmlLib9 {
namespace {

using namespace TestModel;

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
        CClass groupType(Info(group, kPseudo));
        for (const auto& [name, index] : {std::pair(u"a", 0), {u"b", 1}})
            switch (group) {
            case kSequence: groupType.Text(name, index); break;
            case kChoice: groupType.Text<CElementInfoChoicePrimOpt>(name, index); break;
            case kAll: groupType.Text<CElementInfoAllPrimMnd>(name, index); break;
            }
        CClass type(Info());
        type.Text(u"f", 1).Child(u"group", 0, kPseudo, u"", isRequired).Text(u"z", 2);
        const CSmartPtr<CCustom> object = new CCustom(groupType, u"group");
        const CSmartPtr<CCustom> root =
            new CCustom(type, u"r", {ObjectValue(object.Get()), ZqVariant(), ZqVariant()});
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

TEST(MoreRecordsThanAWord, EachHasItsFlag)
{
    CClass type(Info(kAll));
    std::string xml = "<r>";
    for (int i = 69; i >= 0; --i)
        xml += "<e" + std::to_string(i) + "/>";
    for (int i = 0; i < 70; ++i)
        type.Text<CElementInfoAllPrimMnd>(ToUtf16("e" + std::to_string(i)).c_str(), i % 8);
    const CSmartPtr<CCustom> object = new CCustom(type);
    EXPECT_NO_THROW(object->FromXml((xml + "</r>").c_str()));
    EXPECT_THROW(object->FromXml((xml + "<e69/></r>").c_str()), CZqValidationException);
}

std::string Write(const CSmartPtr<CCustom>& object,
                  const CXmlSerializationContext& context = CXmlSerializationContext(),
                  bool header = false)
{
    return U8(object->ToXml(header, false, EOLType_LF, context));
}

TEST(RootPrologue, StandsInItsOrderOnce)
{
    CClass childType(Info()), type(Info(), u"urn:m");
    type.Text(u"a", 0, u"urn:m").Child(u"child", 2, XmlElementType_Element, u"urn:c");
    type.TextAttribute(u"id", 1, true);
    const CSmartPtr<CCustom> child = new CCustom(childType, u"child");
    const CSmartPtr<CCustom> object =
        new CCustom(type, u"root", {TextValue(u"1"), TextValue(u"7"), ObjectValue(child.Get())});
    CXmlSerializationContext context;
    context.GetProcessingInstructions() = {u"<?first?>", u"<?second?>"};
    context.GetNamespaceAliases().Add(u"z", u"urn:a");
    context.GetNamespaceAliases().Add(u"m", u"urn:m");
    context.GetNamespaceAliases().Add(u"", u"urn:none");
    context.SetDefaultNamespaceURI(u"urn:default");
    context.SetInLineSchema(u"schema");
    EXPECT_EQ(Write(object, context, true),
              "<?xml version=\"1.0\"?>\n"
              "<?first?>\n\n"
              "<?second?>\n\n"
              "<m:root xmlns=\"urn:default\" xmlns:z=\"urn:a\" xmlns:m=\"urn:m\" id=\"7\" \n"
              "schema\n"
              "><m:a>1</m:a><AA:child xmlns:AA=\"urn:c\"/></m:root>");
    EXPECT_EQ(context.GetNamespaceAliases().GetNamespaceCount(), 3);
}

TEST(XsiType, StandsForADerivedClassUnderAnotherName)
{
    for (const auto& [writesType, hasBases, name, xml] :
         {std::tuple(
              true, true, u"e",
              "<e xmlns:AA=\"urn:type\"  xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\" "
              "AB:type=\"AA:Type\" id=\"7\"/>"),
          {false, true, u"e", "<e id=\"7\"/>"},
          {true, false, u"e", "<e id=\"7\"/>"},
          {true, true, u"Type", "<Type id=\"7\"/>"}}) {
        CClass type(Info(kSequence, XmlElementType_Element, -1, hasBases));
        type.TextAttribute(u"id", 0, true);
        CXmlSerializationContext context;
        context.SetWriteTypeAttribute(writesType);
        EXPECT_EQ(Write(new CCustom(type, name, {TextValue(u"7")}), context), xml);
    }
}

TEST(NilObject, WritesAttributesAndNoContent)
{
    CClass type(Info(kSequence, XmlElementType_Element, 2));
    type.Text(u"a", 0).TextAttribute(u"id", 1, false);
    const std::vector<ZqVariant> values(3, TextValue(u"x"));
    const CSmartPtr<CNillableCustom> object = new CNillableCustom(type, u"root", values);
    EXPECT_EQ(Write(object.Get()), "<root id=\"x\"><a>x</a>x</root>");
    object->SetNil(true);
    CXmlSerializationContext context;
    context.GetNamespaceAliases().Add(u"xsi", u"http://www.w3.org/2001/XMLSchema-instance");
    EXPECT_EQ(Write(object.Get(), context),
              "<root xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" id=\"x\" "
              "xsi:nil=\"true\"/>");
}

TEST(Group, WritesChildrenAndTextInsideAndAttributesOnTheEnclosingTag)
{
    CClass innerType(Info(kSequence, kPseudo)), type(Info());
    innerType.TextAttribute(u"deep", 0, true);
    CClass groupType(Info(kSequence, kPseudo, 2));
    groupType.Text(u"g", 0).Child(u"inner", 3, kPseudo).TextAttribute(u"outer", 1, true);
    type.Child(u"group", 0, kPseudo).TextAttribute(u"own", 1, true);
    const CSmartPtr<CCustom> inner = new CCustom(innerType, u"", {TextValue(u"3")});
    const CSmartPtr<CCustom> group = new CCustom(
        groupType, u"",
        {TextValue(u"x"), TextValue(u"2"), TextValue(u"text"), ObjectValue(inner.Get())});
    EXPECT_EQ(Write(new CCustom(type, u"root", {ObjectValue(group.Get()), TextValue(u"1")})),
              "<root own=\"1\" outer=\"2\" deep=\"3\"><g>x</g>text</root>");
}

TEST(Output, LeavesOutWhatIsNotSetAndAllButTheFirstMemberOfAChoice)
{
    CClass choice(Info(kChoice)), all(Info(kAll));
    choice.Text<CElementInfoChoicePrimOpt>(u"a", 0).Text<CElementInfoChoicePrimOpt>(u"b", 1);
    all.Text(u"unset", 0).Text(u"empty", 1).Child(u"null", 2);
    const ZqVariant none, a = TextValue(u"1"), empty = TextValue(u"");
    EXPECT_EQ(Write(new CCustom(choice)), "<root/>") << "one with an optional member may be empty";
    EXPECT_EQ(Write(new CCustom(choice, u"root", {none, a})), "<root><b>1</b></root>");
    EXPECT_EQ(Write(new CCustom(choice, u"root", {a, a})), "<root><a>1</a></root>");
    EXPECT_EQ(Write(new CCustom(all, u"root", {none, empty, ObjectValue(nullptr)})),
              "<root><empty/></root>");
}

TEST(ChoiceOutput, NeedsAMemberUnlessIgnored)
{
    CClass type(Info(kChoice));
    type.Element<CElementInfoChoiceClsCol>(u"item", u"", 0, XmlElementType_Element)
        .Element<CElementInfoChoiceClsCol>(u"item", u"urn:i", 1, XmlElementType_Element);
    const CSmartPtr<CCustom> object = new CCustom(type);
    const CSmartPtr<CItemCol> second = new CItemCol(u"item", u"urn:i", 2, -1);
    (*object)[0] = CollectionValue(new CItemCol(u"item", u"", 1, -1));
    (*object)[1] = CollectionValue(second.Get());
    EXPECT_EQ(MessageOf<CZqValidationException>([&] { Write(object); }),
              "Failed to convert the element [root] to XML\n"
              "This element is a choice, and as such must have at one (and only one) valid item, "
              "currently there are none set");
    CXmlSerializationContext context;
    context.SetIgnoreMissingChoice(true);
    EXPECT_EQ(Write(object, context), "<root/>");
    second->AddNew();
    EXPECT_EQ(Write(object), "<root><AA:item xmlns:AA=\"urn:i\"/></root>")
        << "a choice doesn't test counts on output";
    (*object)[0] = CollectionValue(new CItemCol(u"item", u"", 0, -1));
    second->Clear();
    EXPECT_EQ(Write(object), "<root/>") << "a collection whose minimum is 0 may be empty";
}

TEST(FailureBelow, IsWrappedAtEachElementAndAtAttributes)
{
    CClass innerType(Info()), type(Info());
    innerType.TextAttribute(u"required", 0, false);
    type.Child(u"inner", 0);
    const CSmartPtr<CCustom> inner = new CCustom(innerType, u"inner");
    const CSmartPtr<CCustom> object = new CCustom(type, u"root", {ObjectValue(inner.Get())});
    EXPECT_EQ(MessageOf<CZqValidationException>([&] { Write(object); }),
              "Failed to convert the element [root] to XML\n"
              "Failed to convert the element [inner] to XML\n"
              "Failed to convert attributes to XML\n"
              "Invalid Type 0 to convert to string");
}

TEST(Restrictions, AreTestedOnOutputOnly)
{
    CPrimitiveRestrictions restrictions;
    restrictions.m_maxLength = 1;
    const auto make = [&](CClass& type, ItemType item) -> CClass& {
        return type.Element<CElementInfoSeqPrimMnd>(
            u"a", u"", 0, item, nullptr, CWhitespaceUtils::WhitespaceRule_Collapse, restrictions);
    };
    CClass text(Info()), character(Info());
    const CSmartPtr<CCustom> object = new CCustom(make(text, ItemType_string));
    EXPECT_NO_THROW(object->FromXml("<root><a>  long  text </a></root>"));
    EXPECT_EQ(U8((*object)[0].GetString()), "long text");
    const std::string failed = "Failed to convert the element [root] to XML\n";
    EXPECT_EQ(MessageOf<CZqValidationException>([&] { Write(object); }),
              failed + "Invalid Value for a [long text]");
    const CSmartPtr<CCustom> other =
        new CCustom(make(character, ItemType_char), u"root", {TextValue(u"any")});
    EXPECT_EQ(MessageOf<CZqValidationException>([&] { Write(other); }),
              failed + "unknown type [string]");
}

TEST(Depth, IsLimitedByTheContext)
{
    for (const XmlElementType kind : {kTag, kPseudo}) {
        CClass type(Info(kSequence, kind));
        type.Child(u"e", 0, kind);
        const auto write = [&](int levels, const CXmlSerializationContext& context) {
            CSmartPtr<CCustom> outermost = new CCustom(type, u"e", {ObjectValue(nullptr)});
            for (int i = 1; i < levels; ++i)
                outermost = new CCustom(type, u"e", {ObjectValue(outermost.Get())});
            Write(outermost, context);
        };
        CXmlSerializationContext context;
        EXPECT_NO_THROW(write(1024, context));
        EXPECT_THROW(write(1025, context), CZqValidationException);
        context.SetMaxDepth(2);
        EXPECT_NO_THROW(write(2, context));
        EXPECT_TRUE(MessageOf<CZqValidationException>([&] {
                        write(3, context);
                    }).ends_with("The document is nested deeper than 2 levels"));
    }
}

}  // namespace
}  // namespace ZqXmlLib9
