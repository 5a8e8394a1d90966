// Open attributes: which namespace they get, what is read and written, and those of the root.

#include "model/Custom.h"
#include "support/Print.h"

#include <gtest/gtest.h>

namespace ZqXmlLib9 {
namespace {

using namespace TestModel;

struct SNew {
    const char* name;
    const char16_t* ns;
    const char16_t* restriction;
    const char* made;  ///< the namespace of a new attribute, or "-" if it is refused
};

class NewAttribute : public testing::TestWithParam<SNew> {};

TEST_P(NewAttribute, IsInTheDefaultNamespaceIfThatPasses)
{
    const CSmartPtr<CAttributeCol> attributes =
        new CAttributeCol(GetParam().ns, GetParam().restriction, u"urn:t");
    if (std::string_view(GetParam().made) == "-") {
        EXPECT_THROW(attributes->Add(u"x"), CZqInvalidNamespaceException);
        EXPECT_THROW(attributes->Add(u"x", u"1"), CZqInvalidNamespaceException);
        EXPECT_EQ(attributes->GetCount(), 0);
        return;
    }
    EXPECT_EQ(U8(attributes->Add(u"x")->GetNamespace()), GetParam().made);
    EXPECT_EQ(U8(attributes->Add(u"x", u"1")->GetNamespace()), GetParam().made);
    EXPECT_EQ(U8(attributes->Clone()->Add(u"y")->GetNamespace()), GetParam().made);
    EXPECT_EQ(U8(attributes->Item(1)->GetValue()), "1");
}

const SNew kNew[] = {
    {"FirstUri", u"", u"urn:a urn:b", "urn:a"},
    {"OneUri", u"", u"urn:a", "urn:a"},
    {"TwoCharacters", u"", u"ab", "ab"},
    {"OneCharacter", u"", u"a urn:b", ""},
    {"EmptyToken", u"", u" urn:a", ""},
    {"Any", u"", u"##any urn:a", ""},
    {"UriBeforeAny", u"", u"urn:a ##any", "urn:a"},
    {"HashFirst", u"", u"#a", ""},
    {"HashSecond", u"", u"a#b", ""},
    {"HashThird", u"", u"ab#", "ab#"},
    {"Target", u"", u"##targetNamespace", "-"},
    {"GivenWins", u"urn:b", u"urn:a urn:b", "urn:b"},
    {"GivenOutside", u"urn:b", u"urn:a", "-"},
};
INSTANTIATE_TEST_SUITE_P(Defaults, NewAttribute, testing::ValuesIn(kNew), kRowName);

TEST(Attributes, AreTestedWhenMadeAndUntestedWhenTheyExist)
{
    const CSmartPtr<CAttributeCol> open = new CAttributeCol(u"", u"##any", u"");
    const CSmartPtr<CAttributeCol> strict = new CAttributeCol(u"", u"urn:a", u"");
    const auto foreign = [&](const char16_t* name) { return open->Add(name, u"1", u"urn:b"); };
    EXPECT_EQ(MessageOf<CZqInvalidNamespaceException>([&] { strict->Add(u"x", u"1", u"urn:b"); }),
              "Invalid namespace [urn:b]. The namespace must be one of [urn:a] where the target "
              "namespace is []");
    EXPECT_EQ(strict->GetCount(), 0);
    const CSmartPtr<CAttribute> b = strict->Add(foreign(u"b").Get());
    strict->AddBefore(b.Get(), foreign(u"a").Get());
    strict->AddAfter(b.Get(), foreign(u"c").Get());
    std::u16string names;
    for (const CAttribute* const attribute : *strict)
        names += attribute->GetName();
    EXPECT_EQ(U8(names), "abc");
}

TEST(Attributes, AreWrittenInOrderAndMoreThanOnce)
{
    const CSmartPtr<CElement> element = new CElement(u"a");
    const CSmartPtr<CAttributeCol> attributes = element->GetAttributes();
    attributes->Add(u"x", u"1");
    attributes->Add(u"p", u"<\"&'\n>", u"urn:n");
    attributes->Add(u"x", u"");
    attributes->Add(u"q", u"2", u"urn:n");
    attributes->Add(u"lang", u"de", u"http://www.w3.org/XML/1998/namespace");
    EXPECT_EQ(U8(element->ToXml(false, false)),
              "<a x=\"1\" xmlns:AA=\"urn:n\" AA:p=\"&lt;&quot;&amp;'&#xA;&gt;\" x=\"\" AA:q=\"2\" "
              "xml:lang=\"de\"/>");
}

/// A collection whose reading is laid open.
class CReader : public CAttributeCol {
public:
    using CAttributeCol::CAttributeCol;
    using CAttributeCol::FromXml_Int;
};

/// What is read from the root of a document into a new collection, and the failure if there is one.
std::string Read(const char16_t* restriction, const char* xml, SchemaType type = SchemaType_Default)
{
    CXmlSerializationContext context;
    context.SetSchemaType(type);
    CXmlDocument document(context);
    document.LoadXml(xml);
    CXmlElement* const root = document.GetDocumentElement();
    const CSmartPtr<CReader> attributes = new CReader(u"", restriction, u"");
    std::string outcome;
    try {
        EXPECT_EQ(attributes->FromXml_Int(root, root, context, false), root);
    }
    catch (const CZqInvalidNamespaceException& failure) {
        outcome = failure.GetFullMessageUtf8();
    }
    for (const CAttribute* const attribute : *attributes)
        outcome += U8(u" {" + attribute->GetNamespace() + u"}" + attribute->GetName() + u"="
                      + attribute->GetValue());
    return outcome;
}

TEST(Reading, TakesEveryAttribute)
{
    const char* const xml = "<r xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' z='1' "
                            "xmlns='urn:r' xsi:nil='true' xml:lang='de' a='&#xA;2'><b/></r>";
    EXPECT_EQ(Read(u"##any", xml), " {}z=1 {http://www.w3.org/2001/XMLSchema-instance}nil=true "
                                   "{http://www.w3.org/XML/1998/namespace}lang=de {}a=\n2");
    EXPECT_EQ(Read(u"##any", xml, SchemaType_NoNamespaces),
              " {}xmlns:xsi=http://www.w3.org/2001/XMLSchema-instance {}z=1 {}xmlns=urn:r "
              "{}xsi:nil=true {}xml:lang=de {}a=\n2");
}

TEST(Reading, KeepsThoseInFrontOfARefusedOne)
{
    EXPECT_EQ(Read(u"urn:a", "<r xmlns:a='urn:a' xmlns:b='urn:b' a:x='1' y='2' b:z='' a:w='4'/>"),
              "Invalid Attribute [z]. The attributes namespace is Inappropriate. {urn:a}x=1 {}y=2");
    const CSmartPtr<CAttributeCol> attributes = new CAttributeCol(u"", u"##any", u"");
    EXPECT_EQ(MessageOf([&] { attributes->Add(u"x")->FromXml(u"<a/>"); }),
              "This should be done by the collection");
}

TEST(Clone, IsIndependentUnderTheSameRule)
{
    const CSmartPtr<CAttributeCol> source = new CAttributeCol(u"", u"urn:a ##local", u"urn:t");
    source->Add(u"x", u"1");
    source->Add(source->Item(0)->Clone().Get())->SetNamespace(u"urn:other");
    const CSmartPtr<CAttributeCol> clone = source->Clone();
    source->Item(0)->SetValue(u"changed");
    source->Remove(1);
    EXPECT_EQ(clone->GetCount(), 2);
    EXPECT_EQ(U8(clone->Item(0)->GetValue()), "1");
    EXPECT_EQ(U8(clone->Item(1)->GetNamespace()), "urn:other");
    EXPECT_THROW(clone->Add(u"z", u"", u"urn:b"), CZqInvalidNamespaceException);
}

TEST(RootAttributes, StandFirstOnTheRootAndAlwaysHaveAPrefix)
{
    CClass childType(Info());
    CClass type(Info(), u"urn:d");
    type.TextAttribute(u"id", 1, true).Child(u"child", 0);
    const CSmartPtr<CCustom> child = new CCustom(childType, u"child");
    const CSmartPtr<CCustom> object = new CCustom(type);
    (*object)[0] = ObjectValue(child.Get());
    (*object)[1] = TextValue(u"7");
    CXmlSerializationContext context;
    context.GetAdditionalRootAttributes()->Add(u"x", u"1");
    context.GetAdditionalRootAttributes()->Add(u"y", u"2", u"urn:d");
    const auto write = [&] { return U8(object->ToXml(false, false, EOLType_LF, context)); };
    EXPECT_EQ(write(),
              "<AA:root xmlns:AA=\"urn:d\" x=\"1\" AA:y=\"2\" id=\"7\"><child/></AA:root>");
    context.SetDefaultNamespaceURI(u"urn:d");
    EXPECT_EQ(write(), "<root xmlns=\"urn:d\" x=\"1\" xmlns:AA=\"urn:d\" AA:y=\"2\" id=\"7\">"
                       "<child/></root>");
    context.GetNamespaceAliases().Add(u"p", u"urn:d");
    EXPECT_EQ(write(), "<root xmlns=\"urn:d\" xmlns:p=\"urn:d\" x=\"1\" p:y=\"2\" id=\"7\">"
                       "<child/></root>");
}

TEST(RootAttributes, AreSharedByCopiesOfTheirContext)
{
    CXmlSerializationContext context;
    const CXmlSerializationContext early = context;
    context.GetAdditionalRootAttributes()->Add(u"x", u"1");
    CXmlSerializationContext copy = context;
    copy.GetAdditionalRootAttributes()->Add(u"y", u"2");
    EXPECT_EQ(early.GetAdditionalRootAttributes()->GetCount(), 0);
    EXPECT_EQ(context.GetAdditionalRootAttributes()->GetCount(), 2);
    copy = early;
    EXPECT_EQ(copy.GetAdditionalRootAttributes(), early.GetAdditionalRootAttributes());
    const CXmlSerializationContext& same = context;
    context = same;
    EXPECT_EQ(context.GetAdditionalRootAttributes()->GetCount(), 2);
}

}  // namespace
}  // namespace ZqXmlLib9
