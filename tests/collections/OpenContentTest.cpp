// Open elements: how they are made, read, written, checked and cloned, at any depth, and random
// trees of them that come back as they were written. Their attributes: which namespaces pass, what
// is read and written, and those of the root.

#include "model/Custom.h"
#include "support/Print.h"
#include "support/Stack.h"

#include <ZqXmlLib9/engine/FormatString.h>

#include <random>

namespace ZqXmlLib9 {
namespace {

using namespace TestModel;

constexpr const char16_t* kXml = u"http://www.w3.org/XML/1998/namespace";

std::string Plain(const CXmlObjectBase& object)
{
    return U8(object.ToXml(false, false));
}

TEST(Construction, TestsItsArguments)
{
    const auto fail = [](auto... arguments) {
        return MessageOf<CZqInvalidNamespaceException>(
            [&] { CSmartPtr<CElement> element(new CElement(arguments...)); });
    };
    constexpr const char16_t* kNull = nullptr;
    EXPECT_EQ(fail(kNull), "Element Name must have a value");
    EXPECT_EQ(fail(u"a", kNull), "Element Namespace must have a value");
    EXPECT_EQ(fail(u"a", u"n", kNull, kNull), "Namespace Restriction must have a value");
    EXPECT_EQ(fail(u"a", u"n", u"x", kNull), "Target Namespace must have a value");
    EXPECT_EQ(fail(u"a", u"t", u"##other", u"t"),
              "Invalid namespace [t]. The namespace must be one of [##other] where the target "
              "namespace is [t]");
    for (const char16_t* const word : {u"##any", u"##other", u"##local", u"##targetNamespace"})
        EXPECT_EQ(fail(u"a", word), "Invalid Namespace [" + U8(word) + "]");
}

/// An element that lays open its reading, and logs what its hooks see.
struct SProbe : CElement {
    using CElement::CElement, CElement::FromXml_Int;
    void FireOnChangeName(const char16_t* name) override { m_log += GetName() + u">" + name; }
    void FireOnChangeNamespace(const char16_t* ns) override { m_log += GetNamespace() + u">" + ns; }
    void FireOnChangeText(const char16_t* text) override { m_log += GetText() + u">" + text; }
    std::u16string m_log;
};

TEST(Content, HasTheNamespaceOfItsElementOrAnyOther)
{
    const CSmartPtr<SProbe> element = new SProbe(u"a", u"urn:a", u"##other", u"urn:t");
    const CSmartPtr<CElementCol> children = element->GetChildElements();
    children->Add(u"own")->SetText(u"1");
    children->Add(u"other", u"urn:t");
    children->Add(new CElement(u"none"));
    element->GetAttributes()->Add(u"x", u"2");
    const std::string before =
        "<AA:a xmlns:AA=\"urn:a\" AA:x=\"2\"><AA:own>1</AA:own><AB:other xmlns:AB=\"urn:t\"/>"
        "<none/></AA:a>";
    const CSmartPtr<CElement> clone = element->Clone();
    EXPECT_EQ(Plain(*element), before);
    element->SetName(u"b");
    element->SetNamespace(u"urn:z");
    element->SetText(u"t");
    EXPECT_EQ(U8(element->m_log), "a>burn:a>urn:z>t") << "the hooks come first";
    element->GetAttributes()->Item(0)->SetValue(u"3");
    children->Item(0)->SetText(u"4");
    children->Clear();
    clone->FromXml(u"<refused xmlns='urn:t'/>");
    EXPECT_EQ(Plain(*clone), before) << "independent, and under the same restriction";
    const CSmartPtr<CElementCol> bare = new CElementCol(u"", u"urn:a", u"t", 0, -1);
    EXPECT_THROW(bare->Add(u"x"), CZqInvalidStateException);
    EXPECT_THROW(new CElementCol(u"t", u"##other", u"t", 0, -1), CZqInvalidNamespaceException);
}

/// A copy of the root of a document, which is read with or without namespaces.
CSmartPtr<CElement> Copy(const std::u16string& xml, SchemaType type = SchemaType_NoNamespaces)
{
    CXmlSerializationContext context;
    context.SetSchemaType(type);
    CXmlDocument document(context);
    document.LoadXml(xml.c_str());
    const CSmartPtr<CElement> copy = new CElement(u"old");
    copy->FromXml(u"<old old=''><old/>old</old>");
    copy->CopyXmlElement(document.GetDocumentElement());
    return copy;
}

TEST(Reading, IsWrittenWithItsTextBehindItsChildren)
{
    for (const auto& [xml, written] :
         {std::pair("<a></a>", "<a/>"),
          {"<a> </a>", "<a> </a>"},
          {"<a>1<b/>2<c>x</c>3</a>", "<a><b/><c>x</c>123</a>"},
          {"<?p?><a><!--c-->1<?p?>2<![CDATA[<3]]></a>", "<a>12&lt;3</a>"},
          {"<a xmlns='n' y=''><b xmlns=''/></a>", "<AA:a xmlns:AA=\"n\" y=\"\"><b/></AA:a>"}}) {
        const CSmartPtr<CXmlObjectBase> element = new CElement(u"unread");
        element->FromXml(xml);
        EXPECT_EQ(Plain(*element), written);
        const CSmartPtr<CElement> again = new CElement(u"unread");
        again->FromXmlElement(Copy(ToUtf16(xml), SchemaType_Default).Get());
        EXPECT_EQ(Plain(*again), written);
    }
}

TEST(DefaultNamespace, IsDeclaredOnceWhereItWasRead)
{
    for (const std::string xml :
         {"<a xmlns=\"d\" x=\"1\"><b z=\"\"/>t</a>", "<a xmlns=\"d\"><b xmlns=\"\"/></a>",
          "<a><b xmlns=\"d\" x=\"1\"><c xmlns=\"e\"/>t</b><d/></a>",
          "<p:a xmlns=\"d\" xmlns:p=\"p\" p:x=\"1\"><p:b/></p:a>"})
        EXPECT_EQ(Plain(*Copy(ToUtf16(xml))->Clone()), xml);
    // An attribute in a real namespace is none of it.
    EXPECT_EQ(Plain(*Copy(u"<a xmlns:p='urn:p' p:xmlns='v'/>", SchemaType_Default)),
              "<a xmlns=\"v\" xmlns:AA=\"urn:p\" AA:xmlns=\"v\"/>");
    const CSmartPtr<CElement> element = new CElement(u"r");
    element->GetChildElements()->Add(Copy(u"<a x='1' xmlns='d'><b/></a>").Get());
    element->GetChildElements()->Add(new CElement(u"z"));
    EXPECT_EQ(U8(element->ToXml(false, true, EOLType_CRLF)),
              "<r>\r\n<a xmlns=\"d\" x=\"1\">\r\n\t<b/>\r\n</a>\r\n\r\n\t<z/>\r\n</r>\r\n");
}

TEST(RefusedNamespace, LeavesCursorAndElementAlone)
{
    CXmlDocument document;
    document.LoadXml("<r><x xmlns='urn:t' a='1'>2</x><y xmlns='urn:o'>3</y><z/></r>");
    CXmlElement* const x = document.GetDocumentElement()->GetFirstElement();
    CXmlElement* const y = x->GetNextSiblingElement();
    const CSmartPtr<SProbe> element = new SProbe(u"old", u"", u"##other", u"urn:t");
    EXPECT_EQ(element->FromXml_Int(nullptr, x, {}, false), x);
    EXPECT_EQ(Plain(*element), "<old/>");
    EXPECT_EQ(element->FromXml_Int(nullptr, y, {}, false), y->GetNextSiblingElement());
    EXPECT_EQ(Plain(*element), "<AA:y xmlns:AA=\"urn:o\">3</AA:y>");
}

TEST(SubtreeRestriction, TestsEverythingInDocumentOrder)
{
    const auto test = [](const char16_t* xml) {
        Copy(xml, SchemaType_Default)->SetNamespaceRestrictions(u"urn:a", u"t");
    };
    EXPECT_NO_THROW(test(u"<a xmlns:p='urn:a' p:x=''><p:b y=''/><c/></a>"));
    EXPECT_THROW(test(u"<a xmlns:p='b' p:x=''><p:b/></a>"), CZqInvalidNamespaceException);
    EXPECT_EQ(
        MessageOf<CZqInvalidNamespaceException>(
            [&] { test(u"<a><b><c xmlns='b'/></b><d xmlns='b'/></a>"); }),
        "The namespace b in the class c is invalid against restriction urn:a\nInvalid "
        "namespace [b]. The namespace must be one of [urn:a] where the target namespace is [t]");
}

TEST(Depth, IsLimitedAcrossNestedDefaultNamespaces)
{
    CXmlSerializationContext deep;
    deep.SetMaxDepth(1025);
    for (const int step : {5000, 1024, 300, 1}) {  // how many levels have one declaration
        std::u16string starts, ends;
        for (int i = 1; i <= 1024; ++i) {
            starts += i % step == 0 ? u"<a xmlns='urn:d'>" : u"<a>";
            ends += u"</a>";
        }
        const CSmartPtr<CElement> fits = Copy(starts + ends);
        const CSmartPtr<CElement> beyond = new CElement(u"a");
        beyond->GetChildElements()->Add(fits.Get());
        EXPECT_NO_THROW(fits->ToXml()) << step;
        EXPECT_EQ(MessageOf([&] { beyond->ToXml(); }),
                  "The document is nested deeper than 1024 levels");
        EXPECT_NO_THROW(beyond->ToXml(true, true, EOLType_LF, deep)) << step;
    }
}

/// Recursion would need more than the stack at so many levels.
TEST(Depth, NeedsNoStackWhereNothingIsWritten)
{
    RunOnStack(256 << 10, [] {
        CSmartPtr<CElement> top = new CElement(u"leaf", u"urn:leaf");
        for (int i = 1; i < 50'000; ++i) {
            const CSmartPtr<CElement> parent = new CElement(u"a");
            parent->GetChildElements()->Add(top.Get());
            top = parent;
        }
        const CSmartPtr<CElement> clone = top->Clone();
        top = nullptr;
        EXPECT_NO_THROW(clone->SetNamespaceRestrictions(u"urn:leaf", u""));
        EXPECT_THROW(clone->SetNamespaceRestrictions(u"##local", u""),
                     CZqInvalidNamespaceException);
    });
}

TEST(DocumentRoot, TakesNothingFromTheContext)
{
    CXmlSerializationContext context;
    context.GetProcessingInstructions() = {u"<?p?>"};
    context.GetNamespaceAliases().Add(u"p", u"urn:a");
    context.GetAdditionalRootAttributes()->Add(u"x", u"1");
    context.SetDefaultNamespaceURI(u"urn:a");
    context.SetInLineSchema(u"schema");
    const CSmartPtr<CElement> element = new CElement(u"a", u"urn:a");
    EXPECT_EQ(U8(element->ToXml(true, true, EOLType_LF, context)),
              "<?xml version=\"1.0\"?>\n<AA:a xmlns:AA=\"urn:a\"/>\n");
}

/// Makes trees from a seed. All elements have a namespace if the tree is for a default namespace.
struct STreeMaker {
    std::mt19937 random;
    const char16_t* lastNamespace;

    std::u16string Pick(std::initializer_list<const char16_t*> choices)
    {
        return choices.begin()[random() % choices.size()];
    }
    std::u16string Name() { return Pick({u"a", u"Z_", u"\u00E9\u00B7", u"\u4E2D-0", u"\uAC00.b"}); }
    std::u16string Text()
    {
        std::u16string text;
        for (std::size_t i = random() % 2 * (random() % 20); i > 0; --i)
            text += Pick({u" ", u"\n", u"\"", u"'", u"&", u"<", u">", u"]]>", u";", u"\U0010FFFF",
                          u"\uFFFD", u"\u0085", u"\u2028", u"x", u"\u007F", u"\uD7FF"});
        return text;
    }
    CSmartPtr<CElement> Make(int depth = 0)
    {
        const std::u16string ns = Pick({u"urn:a", u"urn:b", u"http://h/?q=1;'2'", lastNamespace});
        CSmartPtr<CElement> element(new CElement(Name().c_str(), ns.c_str()));
        element->SetText(Text().c_str());
        for (std::size_t i = random() % 4; i > 0; --i)  // The number makes the name unique.
            element->GetAttributes()->Add((Name() + u"123"[i - 1]).c_str(), Text().c_str(),
                                          Pick({u"", u"urn:a", u"u", kXml}).c_str());
        for (std::size_t i = depth < 5 ? random() % 4 : 0; i > 0; --i)
            element->GetChildElements()->Add(Make(depth + 1).Get());
        return element;
    }
};

/// Everything in a tree as one text, without the text beside children: formatting adds to that.
std::string Describe(const CElement& element, bool hasMixedText)
{
    std::string text = U8(u"<{" + element.GetNamespace() + u"}" + element.GetName());
    for (const CAttribute* const a : *element.GetAttributes())
        text += U8(u" {" + a->GetNamespace() + u"}" + a->GetName() + u"=" + a->GetValue() + u";");
    for (const CElement* const child : *element.GetChildElements())
        text += Describe(*child, hasMixedText);
    const bool isShown = hasMixedText || element.GetChildElements()->GetCount() == 0;
    return text + ">" + (isShown ? U8(element.GetText()) : "") + "</>";
}

/// \param isWrapped  aliases and a default namespace need a generated class around the tree
void ExpectBack(bool isWrapped, bool hasAliases, const char16_t* defaultNamespace)
{
    CXmlSerializationContext context;
    context.SetDefaultNamespaceURI(defaultNamespace);
    for (const auto& [alias, ns] :
         {std::pair(u"p", u"urn:a"), {u"AA", u"unused"}, {u"q", u"urn:b"}})
        if (hasAliases)
            context.GetNamespaceAliases().Add(alias, ns);
    CClass type(Info());
    type.Element<CElementInfoSeqUntpdMnd>(u"AnyElement", u"", 0, u"##any", u"");
    const CSmartPtr<CCustom> wrapper = new CCustom(type);
    const auto wrap = [&](CElement& element) -> CXmlObjectBase& {
        (*wrapper)[0] = ObjectValue(&element);
        return isWrapped ? static_cast<CXmlObjectBase&>(*wrapper) : element;
    };
    for (unsigned seed = 0; seed < 100; ++seed) {
        STreeMaker maker{std::mt19937(seed), defaultNamespace[0] != u'\0' ? u"urn:c" : u""};
        const CSmartPtr<CElement> tree = maker.Make();
        const bool format = seed % 2 == 0;
        const EOLType eol = seed % 4 < 2 ? EOLType_LF : EOLType_CRLF;
        const std::u16string xml = wrap(*tree).ToXml(seed % 8 < 4, format, eol, context);
        const CSmartPtr<CElement> found = new CElement(u"unread");
        ASSERT_NO_THROW(wrap(*found).FromXml(xml.c_str())) << U8(xml);
        ASSERT_EQ(Describe(*found, !format), Describe(*tree, !format)) << U8(xml);
        CXmlDocument document;
        document.LoadXml(xml.c_str());
        const CXmlElement* const root = document.GetDocumentElement();
        found->CopyXmlElement(isWrapped ? root->GetFirstElement() : root);
        ASSERT_EQ(Describe(*found->Clone(), !format), Describe(*tree, !format)) << U8(xml);
    }
}

TEST(RoundTrip, GivesTheSameTreeBack)
{
    ExpectBack(false, false, u"");
    ExpectBack(true, false, u"");
    ExpectBack(true, true, u"");
    ExpectBack(true, false, u"urn:a");
    ExpectBack(true, false, u"urn:unused");
    ExpectBack(true, true, u"urn:b");
}

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
    const CSmartPtr<CAttributeCol> outside = new CAttributeCol(u"b", u"urn:a", u"");
    EXPECT_THROW(outside->Add(u"x"), CZqInvalidNamespaceException);
    const CSmartPtr<CAttributeCol> open = new CAttributeCol(u"b", u"##any", u"");
    outside->Add(open->Add(u"x").Get());  // what exists isn't tested
    EXPECT_EQ(outside->Clone()->GetCount(), 1);
    using Row = std::tuple<const char16_t*, const char16_t*, const char*>;
    for (const auto& [ns, restriction, made] :
         {Row(u"", u"urn:a b", "urn:a"), Row(u"", u"ab", "ab"), Row(u"", u"a b", ""),
          Row(u"", u" urn:a", ""), Row(u"", u"ab ##any", "ab"), Row(u"", u"#a", ""),
          Row(u"", u"a#b", ""), Row(u"", u"ab#", "ab#"), Row(u"b", u"urn:a b", "b")}) {
        const CSmartPtr<CAttributeCol> attributes = new CAttributeCol(ns, restriction, u"urn:t");
        EXPECT_EQ(U8(attributes->Add(u"x", u"1")->GetNamespace()), made) << U8(restriction);
        const CSmartPtr<CAttributeCol> clone = attributes->Clone();
        attributes->Item(0)->SetValue(u"changed");
        EXPECT_EQ(U8(clone->Add(u"y")->GetNamespace()), made) << U8(restriction);
        EXPECT_EQ(U8(clone->Item(0)->GetValue()), "1");
    }
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
        std::string outcome = TextOrMessage([&] {
            attributes->FromXml_Int(document.GetDocumentElement(), nullptr, context, false);
            return std::string();
        });
        for (const CAttribute* const a : *attributes)
            outcome += U8(u" {" + a->GetNamespace() + u"}" + a->GetName() + u"=" + a->GetValue());
        return outcome;
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
