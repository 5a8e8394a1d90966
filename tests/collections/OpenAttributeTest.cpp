// Which namespaces pass a restriction of open content, and the attributes under one: which
// namespace they get, what is read and written, and those of the root.

#include "model/Custom.h"
#include "support/Print.h"

#include <ZqXmlLib9/engine/FormatString.h>

namespace ZqXmlLib9 {
namespace {

using namespace TestModel;

struct STester : CCustom {
    using CCustom::CCustom, CCustom::IsNamespaceValid, CCustom::TestNamespace;
};

struct SRecord : CElementInfoSeqUntpdOpt {
    using CElementInfoSeqUntpdOpt::GetAnyDefaultNamespace;
};

struct SRestriction {
    const char16_t* restriction;
    const char16_t* target;
    const char* made;  ///< the namespace of a new element below a parent in "p"
    std::vector<const char16_t*> passing;
    std::vector<const char16_t*> refused;
};

const SRestriction kRestrictions[] = {
    {u"##any", u"t", "p", {u"", u"t", u"##any"}, {}},
    {u"##other", u"urn:t", "", {u"", u"urn:", u"urn:T"}, {u"urn:t"}},
    {u"##other", u"", "", {u"urn:x"}, {u""}},
    {u"##local", u"t", "", {u""}, {u"t", u"##local"}},
    {u"##targetNamespace", u"t", "t", {u"t"}, {u"", u"x", u"t "}},
    {u"##targetNamespace", u"", "", {u""}, {u"x"}},
    {u"##Any", u"t", "", {u"", u"##Any"}, {u"t"}},
    {u"a:\u00E9", u"t", "", {u"a:\u00E9", u""}, {u"a:e\u0301", u"a:"}},
    {u"", u"t", "", {u""}, {u"t", u" "}},
    {u"a b", u"t", "", {u"a", u"b", u""}, {u"a b", u"t"}},
    {u"a b ##other", u"t", "", {u"x", u""}, {u"t"}},
    {u"##any  ##local", u"t", "p", {u"", u"b"}, {}},
    {u" ##targetNamespace", u"t", "", {u"", u"t"}, {u"x"}},
    {u"##any\tb", u"t", "", {u"##any\tb", u""}, {u"##any", u"b"}}};

TEST(Restriction, IsOneRuleForTheAnswerAndTheFailure)
{
    CClass type(Info());
    const CSmartPtr<STester> tester = new STester(type);
    for (const auto& [restriction, target, made, passing, refused] : kRestrictions) {
        EXPECT_EQ(U8(SRecord::GetAnyDefaultNamespace(restriction, u"p", target)), made);
        for (const char16_t* const ns : passing) {
            EXPECT_TRUE(tester->IsNamespaceValid(ns, restriction, target)) << U8(ns);
            EXPECT_NO_THROW(tester->TestNamespace(ns, restriction, target)) << U8(ns);
        }
        for (const char16_t* const ns : refused) {
            EXPECT_FALSE(tester->IsNamespaceValid(ns, restriction, target)) << U8(ns);
            const auto test = [&, r = restriction, t = target] { tester->TestNamespace(ns, r, t); };
            EXPECT_EQ(
                MessageOf<CZqInvalidNamespaceException>(test),
                U8(FormatString(u"Invalid namespace [%s]. The namespace must be one of [%s] where "
                                u"the target namespace is [%s]",
                                ns, restriction, target)));
        }
    }
}

TEST(NewAttribute, IsInTheDefaultNamespaceIfThatPasses)
{
    for (const auto& [ns, restriction, made] : {std::tuple(u"", u"urn:a b", "urn:a"),
                                                {u"", u"ab", "ab"},
                                                {u"", u"a b", ""},
                                                {u"", u" urn:a", ""},
                                                {u"", u"ab ##any", "ab"},
                                                {u"", u"#a", ""},
                                                {u"", u"a#b", ""},
                                                {u"", u"ab#", "ab#"},
                                                {u"b", u"urn:a b", "b"}}) {
        const CSmartPtr<CAttributeCol> attributes = new CAttributeCol(ns, restriction, u"urn:t");
        EXPECT_EQ(U8(attributes->Add(u"x", u"1")->GetNamespace()), made) << U8(restriction);
        const CSmartPtr<CAttributeCol> clone = attributes->Clone();
        attributes->Item(0)->SetValue(u"changed");
        EXPECT_EQ(U8(clone->Add(u"y")->GetNamespace()), made) << U8(restriction);
        EXPECT_EQ(U8(clone->Item(0)->GetValue()), "1");
    }
    const CSmartPtr<CAttributeCol> outside = new CAttributeCol(u"b", u"urn:a", u"");
    EXPECT_THROW(outside->Add(u"x"), CZqInvalidNamespaceException);
}

TEST(Attributes, AreUntestedWhereTheyExistAndWrittenInOrderAndMoreThanOnce)
{
    const CSmartPtr<CElement> element = new CElement(u"a");
    const CSmartPtr<CAttributeCol> open = element->GetAttributes();
    const CSmartPtr<CAttribute> x = open->Add(u"x", u"<\"&'\n>");
    const CSmartPtr<CAttribute> p = open->Add(u"p", u"1", u"urn:n");
    open->AddBefore(x.Get(), p.Get());
    open->AddAfter(x.Get(), open->Add(u"lang", u"", u"http://www.w3.org/XML/1998/namespace").Get());
    EXPECT_EQ(U8(element->ToXml(false, false)),
              "<a xmlns:AA=\"urn:n\" AA:p=\"1\" x=\"&lt;&quot;&amp;'&#xA;&gt;\" xml:lang=\"\" "
              "AA:p=\"1\" xml:lang=\"\"/>");
    const CSmartPtr<CAttributeCol> strict = new CAttributeCol(u"", u"urn:a", u"");
    strict->Add(p.Get());
    EXPECT_THROW(strict->Clone()->Add(u"y", u"", u"urn:n"), CZqInvalidNamespaceException);
}

struct SReader : CAttributeCol {
    using CAttributeCol::CAttributeCol, CAttributeCol::FromXml_Int;
};

TEST(Reading, TakesEveryAttributeUpToARefusedOne)
{
    CXmlSerializationContext context;
    const auto read = [&](const char16_t* restriction) {
        CXmlDocument document(context);
        document.LoadXml(
            "<r z='1' xmlns='urn:r' xml:lang='de' xmlns:b='urn:b' b:a='&#xA;2' y=''/>");
        const CSmartPtr<SReader> attributes = new SReader(u"", restriction, u"");
        std::u16string outcome;
        try {
            attributes->FromXml_Int(document.GetDocumentElement(), nullptr, context, false);
        }
        catch (const CZqInvalidNamespaceException& failure) {
            outcome = failure.GetMessageW();
        }
        for (const CAttribute* const a : *attributes)
            outcome += u" {" + a->GetNamespace() + u"}" + a->GetName() + u"=" + a->GetValue();
        return U8(outcome);
    };
    EXPECT_EQ(read(u"##any"),
              " {}z=1 {http://www.w3.org/XML/1998/namespace}lang=de {urn:b}a=\n2 {}y=");
    EXPECT_EQ(read(u"##local"),
              "Invalid Attribute [lang]. The attributes namespace is Inappropriate. {}z=1");
    context.SetSchemaType(SchemaType_NoNamespaces);
    EXPECT_EQ(read(u"urn:a"), " {}z=1 {}xmlns=urn:r {}xml:lang=de {}xmlns:b=urn:b {}b:a=\n2 {}y=");
}

TEST(RootAttributes, StandFirstOnTheRootAndAlwaysHaveAPrefix)
{
    CClass type(Info(), u"urn:d");
    type.TextAttribute(u"id", 1, true).Child(u"child", 0);
    CClass childType(Info());
    const CSmartPtr<CCustom> child = new CCustom(childType, u"child");
    const CSmartPtr<CCustom> object =
        new CCustom(type, u"r", {ObjectValue(child.Get()), TextValue(u"7")});
    CXmlSerializationContext context;
    const CXmlSerializationContext early = context;
    context.GetAdditionalRootAttributes()->Add(u"x", u"1");
    CXmlSerializationContext copy = context;
    copy.GetAdditionalRootAttributes()->Add(u"y", u"2", u"urn:d");
    const auto write = [&] { return U8(object->ToXml(false, false, EOLType_LF, context)); };
    EXPECT_EQ(write(), "<AA:r xmlns:AA=\"urn:d\" x=\"1\" AA:y=\"2\" id=\"7\"><child/></AA:r>");
    context.SetDefaultNamespaceURI(u"urn:d");
    EXPECT_EQ(write(),
              "<r xmlns=\"urn:d\" x=\"1\" xmlns:AA=\"urn:d\" AA:y=\"2\" id=\"7\"><child/></r>");
    EXPECT_EQ(early.GetAdditionalRootAttributes()->GetCount(), 0) << "it had its own";
    copy = early;
    EXPECT_EQ(copy.GetAdditionalRootAttributes(), early.GetAdditionalRootAttributes());
}

}  // namespace
}  // namespace ZqXmlLib9
