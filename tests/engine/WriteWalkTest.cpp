// The walk that writes: what comes in which order, and the chain of messages where it fails.

#include "model/Custom.h"
#include "support/Print.h"

#include <gtest/gtest.h>

namespace ZqXmlLib9 {
namespace {

using namespace TestModel;

std::string Write(const CSmartPtr<CCustom>& object,
                  const CXmlSerializationContext& context = CXmlSerializationContext(),
                  bool header = false)
{
    return U8(object->ToXml(header, false, EOLType_LF, context));
}

TEST(RootPrologue, StandsInItsOrder)
{
    CClass type(Info(), u"urn:m");
    type.Text(u"a", 0, u"urn:m").TextAttribute(u"id", 1, true);
    const CSmartPtr<CCustom> object = new CCustom(type);
    (*object)[0] = TextValue(u"1");
    (*object)[1] = TextValue(u"7");
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
              "><m:a>1</m:a></m:root>");
    EXPECT_EQ(context.GetNamespaceAliases().GetNamespaceCount(), 3);
}

TEST(RootPrologue, IsNotRepeatedForChildren)
{
    CClass childType(Info());
    CClass type(Info());
    type.Child(u"child", 0, XmlElementType_Element, u"urn:c");
    const CSmartPtr<CCustom> child = new CCustom(childType, u"child");
    const CSmartPtr<CCustom> object = new CCustom(type);
    (*object)[0] = ObjectValue(child.Get());
    CXmlSerializationContext context;
    context.GetProcessingInstructions() = {u"<?p?>"};
    context.SetInLineSchema(u"s");
    EXPECT_EQ(Write(object, context), "<?p?>\n\n<root \ns\n><AA:child xmlns:AA=\"urn:c\"/></root>");
}

struct STypeCase {
    const char* name;
    bool writeType;
    bool hasBaseClasses;
    const char16_t* elementName;
    const char* xml;
};

class XsiType : public testing::TestWithParam<STypeCase> {};

TEST_P(XsiType, StandsForADerivedClassUnderAnotherName)
{
    CClass type(
        Info(XmlElementGroupType_Sequence, XmlElementType_Element, -1, GetParam().hasBaseClasses));
    type.TextAttribute(u"id", 0, true);
    const CSmartPtr<CCustom> object = new CCustom(type, GetParam().elementName);
    (*object)[0] = TextValue(u"7");
    CXmlSerializationContext context;
    context.SetWriteTypeAttribute(GetParam().writeType);
    EXPECT_EQ(Write(object, context), GetParam().xml);
}

INSTANTIATE_TEST_SUITE_P(
    When, XsiType,
    testing::Values(
        STypeCase{
            "Derived", true, true, u"e",
            "<e xmlns:AA=\"urn:type\"  xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\" "
            "AB:type=\"AA:Type\" id=\"7\"/>"},
        STypeCase{"SwitchedOff", false, true, u"e", "<e id=\"7\"/>"},
        STypeCase{"NoBases", true, false, u"e", "<e id=\"7\"/>"},
        STypeCase{"OwnName", true, true, u"Type", "<Type id=\"7\"/>"}),
    kRowName);

TEST(NilObject, WritesAttributesAndNoContent)
{
    CClass type(Info(XmlElementGroupType_Sequence, XmlElementType_Element, 2));
    type.Text(u"a", 0).TextAttribute(u"id", 1, false);
    const CSmartPtr<CNillableCustom> object = new CNillableCustom(type);
    (*object)[0] = (*object)[1] = (*object)[2] = TextValue(u"x");
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
    CClass innerType(Info(XmlElementGroupType_Sequence, XmlElementType_Pseudo));
    innerType.TextAttribute(u"deep", 0, true);
    CClass groupType(Info(XmlElementGroupType_Sequence, XmlElementType_Pseudo, 2));
    groupType.Text(u"g", 0)
        .Child(u"inner", 3, XmlElementType_Pseudo)
        .TextAttribute(u"outer", 1, true);
    CClass type(Info());
    type.Child(u"group", 0, XmlElementType_Pseudo).TextAttribute(u"own", 1, true);
    const CSmartPtr<CCustom> inner = new CCustom(innerType);
    const CSmartPtr<CCustom> group = new CCustom(groupType);
    const CSmartPtr<CCustom> object = new CCustom(type);
    (*inner)[0] = TextValue(u"3");
    (*group)[0] = TextValue(u"x");
    (*group)[1] = TextValue(u"2");
    (*group)[2] = TextValue(u"text");
    (*group)[3] = ObjectValue(inner.Get());
    (*object)[0] = ObjectValue(group.Get());
    (*object)[1] = TextValue(u"1");
    EXPECT_EQ(Write(object), "<root own=\"1\" outer=\"2\" deep=\"3\"><g>x</g>text</root>");
}

TEST(ChoiceOutput, WritesTheFirstMemberThatIsSet)
{
    CClass type(Info(XmlElementGroupType_Choice));
    type.Text<CElementInfoChoicePrimOpt>(u"a", 0).Text<CElementInfoChoicePrimOpt>(u"b", 1);
    const CSmartPtr<CCustom> object = new CCustom(type);
    EXPECT_EQ(Write(object), "<root/>") << "with an optional member a choice may be empty";
    (*object)[1] = TextValue(u"2");
    EXPECT_EQ(Write(object), "<root><b>2</b></root>");
    (*object)[0] = TextValue(u"1");
    EXPECT_EQ(Write(object), "<root><a>1</a></root>");
}

TEST(ChoiceOutput, NeedsAMemberUnlessIgnored)
{
    CClass type(Info(XmlElementGroupType_Choice));
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

TEST(ValuesWithoutContent, WriteNothing)
{
    CClass type(Info(XmlElementGroupType_All));
    type.Text(u"unset", 0).Text(u"empty", 1).Child(u"null", 2);
    const CSmartPtr<CCustom> object = new CCustom(type);
    (*object)[1] = TextValue(u"");
    (*object)[2] = ObjectValue(nullptr);
    EXPECT_EQ(Write(object), "<root><empty/></root>");
}

TEST(FailureBelow, IsWrappedAtEachElementAndAtAttributes)
{
    /// An attribute that can't be written.
    class CBroken : public CAttributeInfo {
    public:
        CBroken() : CAttributeInfo(u"broken", u"", 0, true, nullptr) {}

    protected:
        void AttributeToXml(const CXmlSerializationContext&, const CXmlGeneratedClass*,
                            CXmlWriter*) const override
        {
            throw CZqInvalidStateException(u"broken");
        }
        bool AttributeFromXml(const CXmlSerializationContext&, CXmlGeneratedClass*,
                              CXmlAttribute*) override
        {
            return false;
        }
        void Validate(const CXmlSerializationContext&, bool) const override {}
    };
    CClass innerType(Info());
    innerType.Attribute<CBroken>();
    CClass type(Info());
    type.Child(u"inner", 0);
    const CSmartPtr<CCustom> inner = new CCustom(innerType, u"inner");
    const CSmartPtr<CCustom> object = new CCustom(type);
    (*object)[0] = ObjectValue(inner.Get());
    EXPECT_EQ(MessageOf<CZqValidationException>([&] { Write(object); }),
              "Failed to convert the element [root] to XML\n"
              "Failed to convert the element [inner] to XML\n"
              "Failed to convert attributes to XML\n"
              "broken");
}

TEST(Restrictions, AreTestedOnOutputOnly)
{
    CPrimitiveRestrictions restrictions;
    restrictions.m_maxLength = 1;
    CClass type(Info());
    type.Element<CElementInfoSeqPrimMnd>(u"a", u"", 0, ItemType_string, nullptr,
                                         CWhitespaceUtils::WhitespaceRule_Collapse, restrictions);
    const CSmartPtr<CCustom> object = new CCustom(type);
    EXPECT_NO_THROW(object->FromXml("<root><a>  long  text </a></root>"));
    EXPECT_EQ(U8((*object)[0].GetString()), "long text");
    EXPECT_EQ(MessageOf<CZqValidationException>([&] { Write(object); }),
              "Failed to convert the element [root] to XML\nInvalid Value for a [long text]");

    const CElementInfoSeqClsCol untyped(u"a", u"", 0, XmlElementType_Element);
    EXPECT_EQ(MessageOf([&] { untyped.CheckRestriction(TextValue(u"any")); }),
              "Cannot CheckRestriction for type: string");
    class CPlain : public CElementInfoSeqPrimMnd {
    public:
        explicit CPlain(ItemType item)
            : CElementInfoSeqPrimMnd(u"a", u"", 0, item, nullptr,
                                     CWhitespaceUtils::WhitespaceRule_None,
                                     CPrimitiveRestrictions())
        {}
    };
    EXPECT_NO_THROW(CPlain(ItemType_string).CheckRestriction(TextValue(u"any")));
    EXPECT_EQ(MessageOf<CZqInvalidValueException>(
                  [&] { CPlain(ItemType_char).CheckRestriction(TextValue(u"any")); }),
              "unknown type [string]");
}

/// Objects that hold each other so deep that writing them must be refused.
CSmartPtr<CCustom> Nest(CClass& type, int levels)
{
    CSmartPtr<CCustom> outermost = new CCustom(type, u"e", {ObjectValue(nullptr)});
    for (int i = 1; i < levels; ++i) {
        outermost = new CCustom(type, u"e", {ObjectValue(outermost.Get())});
    }
    return outermost;
}

struct SDepthCase {
    const char* name;
    XmlElementType type;
};

class Depth : public testing::TestWithParam<SDepthCase> {};

TEST_P(Depth, IsLimitedByTheContext)
{
    CClass type(Info(XmlElementGroupType_Sequence, GetParam().type));
    type.Child(u"e", 0, GetParam().type);
    EXPECT_NO_THROW(Nest(type, 1024)->ToXml());
    const std::string failure =
        MessageOf<CZqValidationException>([&] { Nest(type, 1025)->ToXml(); });
    EXPECT_TRUE(failure.ends_with("The document is nested deeper than 1024 levels"));
    EXPECT_THROW(Nest(type, 200'000)->ToXml(), CZqValidationException);
    CXmlSerializationContext context;
    context.SetMaxDepth(2);
    EXPECT_NO_THROW(Nest(type, 2)->ToXml(false, false, EOLType_LF, context));
    EXPECT_THROW(Nest(type, 3)->ToXml(false, false, EOLType_LF, context), CZqValidationException);
}

INSTANTIATE_TEST_SUITE_P(Of, Depth,
                         testing::Values(SDepthCase{"Elements", XmlElementType_Element},
                                         SDepthCase{"Groups", XmlElementType_Pseudo}),
                         kRowName);

}  // namespace
}  // namespace ZqXmlLib9
