// Open elements: how they are made, read, written, checked and cloned, at any depth.

#include "model/Custom.h"
#include "model/Letter.h"
#include "support/Print.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

#include <functional>
#include <pthread.h>

namespace ZqXmlLib9 {
namespace {

using namespace TestModel;

std::string Plain(const CXmlObjectBase& object)
{
    return U8(object.ToXml(false, false));
}

CSmartPtr<CElement> Parse(const char16_t* xml)
{
    CSmartPtr<CElement> element(new CElement(u"unread"));
    element->FromXml(xml);
    return element;
}

/// What a step returns, or the messages of its failure.
template <typename TStep>
std::string Outcome(TStep&& step)
{
    try {
        return step();
    }
    catch (const CZqInvalidNamespaceException& failure) {
        return failure.GetFullMessageUtf8();
    }
}

/// An element that lays open its reading, and logs what its hooks see.
class CProbe : public CElement {
public:
    using CElement::CElement;
    using CElement::FromXml_Int;

    std::u16string m_log;

protected:
    void FireOnChangeName(const char16_t* name) override { Log(GetName(), name); }
    void FireOnChangeNamespace(const char16_t* ns) override { Log(GetNamespace(), ns); }
    void FireOnChangeText(const char16_t* text) override { Log(GetText(), text); }

private:
    void Log(const std::u16string& before, const char16_t* after)
    {
        m_log += before + u">" + after + u";";
    }
};

struct SConstruction {
    const char* name;
    std::vector<const char16_t*> arguments;
    const char* outcome;  ///< what is written, or the failure
};

class Construction : public testing::TestWithParam<SConstruction> {};

TEST_P(Construction, TestsItsArguments)
{
    const auto& a = GetParam().arguments;
    EXPECT_EQ(Outcome([&] {
                  const CSmartPtr<CElement> element = a.size() == 1 ? new CElement(a[0])
                                                      : a.size() == 2
                                                          ? new CElement(a[0], a[1])
                                                          : new CElement(a[0], a[1], a[2], a[3]);
                  return Plain(*element);
              }),
              GetParam().outcome);
}

const SConstruction kConstructions[] = {
    {"NullName", {nullptr}, "Element Name must have a value"},
    {"NullNameOfTwo", {nullptr, nullptr}, "Element Name must have a value"},
    {"NullNamespaceOfTwo", {u"a", nullptr}, "Element Namespace must have a value"},
    {"AllNull", {nullptr, nullptr, nullptr, nullptr}, "Element Name must have a value"},
    {"ThreeNull", {u"", nullptr, nullptr, nullptr}, "Element Namespace must have a value"},
    {"TwoNull", {u"a", u"n", nullptr, nullptr}, "Namespace Restriction must have a value"},
    {"LastNull", {u"a", u"n", u"x", nullptr}, "Target Namespace must have a value"},
    {"NameAlone", {u"a"}, "<a/>"},
    {"EmptyNamespace", {u"a", u""}, "<a/>"},
    {"Uri", {u"a", u"n"}, "<AA:a xmlns:AA=\"n\"/>"},
    {"Any", {u"a", u"##any"}, "Invalid Namespace [##any]"},
    {"Other", {u"a", u"##other"}, "Invalid Namespace [##other]"},
    {"Local", {u"a", u"##local"}, "Invalid Namespace [##local]"},
    {"Target", {u"a", u"##targetNamespace"}, "Invalid Namespace [##targetNamespace]"},
    {"TwoUris",
     {u"a", u"b c"},
     "Invalid namespace [b c]. The namespace must be one of [b c] where the target namespace is "
     "[]"},
    {"OtherPasses", {u"a", u"n", u"##other", u"t"}, "<AA:a xmlns:AA=\"n\"/>"},
    {"OtherFails",
     {u"a", u"t", u"##other", u"t"},
     "Invalid namespace [t]. The namespace must be one of [##other] where the target namespace is "
     "[t]"},
};
INSTANTIATE_TEST_SUITE_P(Arguments, Construction, testing::ValuesIn(kConstructions), kRowName);

TEST(Content, HasTheNamespaceOfItsElementOrAnyOther)
{
    const CSmartPtr<CProbe> element = new CProbe(u"a", u"urn:a", u"urn:a", u"urn:t");
    const CSmartPtr<CElementCol> children = element->GetChildElements();
    children->Add(u"own")->SetText(u"1");
    children->Add(u"other", u"urn:b");
    children->Add(new CElement(u"none"));
    element->GetAttributes()->Add(u"x", u"2");
    element->GetAttributes()->Add(u"y", u"3", u"urn:d");
    EXPECT_EQ(Plain(*element), "<AA:a xmlns:AA=\"urn:a\" AA:x=\"2\" xmlns:AB=\"urn:d\" AB:y=\"3\">"
                               "<AA:own>1</AA:own><AC:other xmlns:AC=\"urn:b\"/><none/></AA:a>");
    element->SetName(u"b");
    element->SetNamespace(u"urn:z");
    element->SetText(u"t");
    EXPECT_EQ(U8(element->m_log), "a>b;urn:a>urn:z;>t;") << "the hooks come first";
    const CSmartPtr<CElement> bare = new CElement(u"bare");
    EXPECT_EQ(MessageOf<CZqInvalidStateException>([&] { bare->GetChildElements()->Add(u"x"); }),
              "A Namespace has not been set for this Collection");
}

struct SReading {
    const char* name;
    const char16_t* xml;
    const char* written;
};

class Reading : public testing::TestWithParam<SReading> {};

TEST_P(Reading, IsWrittenWithItsTextBehindItsChildren)
{
    EXPECT_EQ(Plain(*Parse(GetParam().xml)), GetParam().written);
}

const SReading kReadings[] = {
    {"Empty", u"<a></a>", "<a/>"},
    {"Blank", u"<a> </a>", "<a> </a>"},
    {"Mixed", u"<a>one<b/>two<c>x</c>three</a>", "<a><b/><c>x</c>onetwothree</a>"},
    {"Comments", u"<?p?><a><!--c-->1<?p?>2<![CDATA[<3]]></a>", "<a>12&lt;3</a>"},
    {"Xsi", u"<a y='1' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' xsi:type='t'/>",
     "<a y=\"1\" xmlns:AA=\"http://www.w3.org/2001/XMLSchema-instance\" AA:type=\"t\"/>"},
    {"Undeclared", u"<a xmlns='urn:a'><b xmlns=''><c/></b></a>",
     "<AA:a xmlns:AA=\"urn:a\"><b><c/></b></AA:a>"},
};
INSTANTIATE_TEST_SUITE_P(Shapes, Reading, testing::ValuesIn(kReadings), kRowName);

TEST(ReadingAgain, AddsToAttributesAndChildren)
{
    const CSmartPtr<CElement> element = Parse(u"<a x='1'><b/>t</a>");
    element->FromXml(u"<c y='2'>u<d/></c>");
    EXPECT_EQ(Plain(*element), "<c x=\"1\" y=\"2\"><b/><d/>u</c>");
}

TEST(EntryPoints, TakeTheRootItself)
{
    const std::string xml = "<AA:a xmlns:AA=\"urn:a\" x=\"1\"><b>2</b>3</AA:a>";
    const std::u16string wide = ToUtf16(xml);
    const CTempFile file(xml);
    CXmlDocument document;
    document.LoadXml(xml.c_str());
    const CXmlElement* const root = document.GetDocumentElement();
    const CSmartPtr<CElement> source = Parse(wide.c_str());
    const std::function<void(CXmlObjectBase&)> reads[] = {
        [&](CXmlObjectBase& x) { x.FromXml(wide.c_str()); },
        [&](CXmlObjectBase& x) { x.FromXml(xml.c_str()); },
        [&](CXmlObjectBase& x) { x.FromXmlFile(file.GetName().c_str()); },
        [&](CXmlObjectBase& x) { x.FromXmlStream(std::as_bytes(std::span(xml))); },
        [&](CXmlObjectBase& x) { x.FromXmlElement(root); },
        [&](CXmlObjectBase& x) { x.FromXmlElement(source.Get()); },
    };
    for (std::size_t i = 0; i < std::size(reads); ++i) {
        const CSmartPtr<CElement> element = new CElement(u"unread");
        reads[i](*element);
        EXPECT_EQ(Plain(*element), xml) << i;
    }
}

TEST(RefusedNamespace, LeavesCursorAndElementAlone)
{
    CXmlDocument document;
    document.LoadXml("<r><x xmlns='urn:t' a='1'>2</x><y xmlns='urn:o'>3</y><z/></r>");
    CXmlElement* const root = document.GetDocumentElement();
    CXmlElement* const x = root->GetFirstElement();
    CXmlElement* const y = x->GetNextSiblingElement();
    const CSmartPtr<CProbe> element = new CProbe(u"old", u"", u"##other", u"urn:t");
    const CXmlSerializationContext context;
    EXPECT_EQ(element->FromXml_Int(root, x, context, false), x);
    EXPECT_EQ(Plain(*element), "<old/>");
    EXPECT_EQ(element->FromXml_Int(root, y, context, false), y->GetNextSiblingElement());
    EXPECT_EQ(Plain(*element), "<AA:y xmlns:AA=\"urn:o\">3</AA:y>");
}

TEST(RefusedNamespace, IsLeftOverByARecord)
{
    CClass type(Info(), u"urn:t");
    type.Element<CElementInfoSeqUntpdOpt>(u"AnyElement", u"", 0, u"##other", u"urn:t");
    const CSmartPtr<CCustom> object = new CCustom(type, u"r");
    object->FromXml("<r><x xmlns='urn:o'>1</x></r>");
    EXPECT_EQ(Plain(*object), "<AA:r xmlns:AA=\"urn:t\"><AB:x xmlns:AB=\"urn:o\">1</AB:x></AA:r>");
    EXPECT_EQ(
        MessageOf<CZqValidationException>([&] { object->FromXml("<r><x xmlns='urn:t'/></r>"); }),
        "Failed to process the element [r]\nFailed read all the elements held within the "
        "element [r]. The unexpected element [x] remains un processed");
}

class SubtreeRestriction : public testing::TestWithParam<SReading> {};

TEST_P(SubtreeRestriction, TestsEverythingAndStoresNothing)
{
    const CSmartPtr<CElement> element = Parse(GetParam().xml);
    const std::string before = Plain(*element);
    EXPECT_EQ(Outcome([&] {
                  element->SetNamespaceRestrictions(u"urn:a", u"t");
                  return "";
              }),
              GetParam().written);
    EXPECT_EQ(Plain(*element), before);
    element->GetChildElements()->Add(u"free", u"urn:free");
    element->FromXml(u"<free xmlns='urn:free'/>");
    EXPECT_EQ(U8(element->GetNamespace()), "urn:free");
}

#define REFUSED                                                                                    \
    "Invalid namespace [b]. The namespace must be one of [urn:a] where the target namespace is "   \
    "[t]"

const SReading kSubtrees[] = {
    {"AllPass", u"<a xmlns:p='urn:a' p:x=''><p:b y=''/><c/></a>", ""},
    {"Attribute", u"<a xmlns:p='b' p:x=''><p:b/></a>", REFUSED},
    {"Root", u"<p:a xmlns:p='b'/>",
     "The namespace b in the class a is invalid against restriction urn:a\n" REFUSED},
    {"FirstInDocumentOrder", u"<a><b><c xmlns='b'/></b><d xmlns='b'/></a>",
     "The namespace b in the class c is invalid against restriction urn:a\n" REFUSED},
};
INSTANTIATE_TEST_SUITE_P(Places, SubtreeRestriction, testing::ValuesIn(kSubtrees), kRowName);

/// A copy of the root of a document that is read without namespaces.
CSmartPtr<CElement> CopyVerbatim(const std::u16string& xml)
{
    CXmlSerializationContext context;
    context.SetSchemaType(SchemaType_NoNamespaces);
    CXmlDocument document(context);
    document.LoadXml(xml.c_str());
    const CSmartPtr<CElement> copy = Parse(u"<old old=''><old/>old</old>");
    copy->CopyXmlElement(document.GetDocumentElement());
    return copy;
}

class DefaultNamespace : public testing::TestWithParam<SReading> {};

TEST_P(DefaultNamespace, IsDeclaredOnceWhereItWasRead)
{
    const CSmartPtr<CElement> copy = CopyVerbatim(GetParam().xml);
    EXPECT_EQ(Plain(*copy), GetParam().written);
    EXPECT_EQ(Plain(*copy->Clone()), GetParam().written);
}

const SReading kDefaultNamespaces[] = {
    {"None", u"<a x='1'>t<b/></a>", "<a x=\"1\"><b/>t</a>"},
    {"Root", u"<a x='1' xmlns='d' y='2'>t<b z=''/></a>",
     "<a xmlns=\"d\" x=\"1\" y=\"2\"><b z=\"\"/>t</a>"},
    {"Child", u"<a><b xmlns='d'/><c/></a>", "<a><b xmlns=\"d\"/><c/></a>"},
    {"Nested", u"<a xmlns='d'><b x='1'><c xmlns='e'/></b>t</a>",
     "<a xmlns=\"d\"><b x=\"1\"><c xmlns=\"e\"/></b>t</a>"},
    {"TakenBack", u"<a xmlns='d'><b xmlns=''/></a>", "<a xmlns=\"d\"><b xmlns=\"\"/></a>"},
    {"Prefixes", u"<p:a xmlns:p='p' xmlns='d' p:x='1'><p:b/></p:a>",
     "<p:a xmlns=\"d\" xmlns:p=\"p\" p:x=\"1\"><p:b/></p:a>"},
};
INSTANTIATE_TEST_SUITE_P(Copies, DefaultNamespace, testing::ValuesIn(kDefaultNamespaces), kRowName);

TEST(DefaultNamespace, IsWrittenInTheFormOfTheDocumentAround)
{
    CClass type(Info());
    type.Element<CElementInfoSeqUntpdOpt>(u"AnyElement", u"", 0, u"##any", u"").Text(u"z", 1);
    const CSmartPtr<CCustom> object = new CCustom(type, u"r");
    (*object)[0] = ObjectValue(CopyVerbatim(u"<a x='1' xmlns='d'><b/>\n</a>").Get());
    (*object)[1] = TextValue(u"1");
    EXPECT_EQ(Plain(*object), "<r><a xmlns=\"d\" x=\"1\"><b/>\n</a><z>1</z></r>");
    EXPECT_EQ(U8(object->ToXml(false, true, EOLType_CRLF)),
              "<r>\r\n<a xmlns=\"d\" x=\"1\">\r\n\t<b/>\r\n\r\n</a>\r\n\r\n\t<z>1</z>\r\n</r>\r\n");
}

/// A document of 1024 levels; each `step`th element declares a default namespace.
std::u16string Deep(int step)
{
    std::u16string starts;
    std::u16string ends;
    for (int i = 1; i <= 1024; ++i) {
        starts += i % step == 0 ? u"<a xmlns='urn:d'>" : u"<a>";
        ends += u"</a>";
    }
    return starts + ends;
}

TEST(Depth, IsLimitedAcrossNestedDefaultNamespaces)
{
    CXmlSerializationContext deep;
    deep.SetMaxDepth(1025);
    for (const int step : {5000, 1024, 300, 1}) {
        const CSmartPtr<CElement> fits = CopyVerbatim(Deep(step));
        const CSmartPtr<CElement> beyond = new CElement(u"a");
        beyond->GetChildElements()->Add(fits.Get());
        EXPECT_NO_THROW(fits->ToXml()) << step;
        EXPECT_EQ(MessageOf([&] { beyond->ToXml(); }),
                  "The document is nested deeper than 1024 levels")
            << step;
        EXPECT_NO_THROW(beyond->ToXml(true, true, EOLType_LF, deep)) << step;
    }
}

/// Recursion would need more than the stack below at either; sanitizers make a level costly.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int kLevels = 100'000;
#else
constexpr int kLevels = 1'000'000;
#endif

void* GoDeep(void*)
{
    CSmartPtr<CElement> top = new CElement(u"leaf", u"urn:leaf");
    for (int i = 1; i < kLevels; ++i) {
        const CSmartPtr<CElement> parent = new CElement(u"a");
        parent->GetChildElements()->Add(top.Get());
        top = parent;
    }
    const CSmartPtr<CElement> clone = top->Clone();
    top->GetChildElements()->Clear();
    EXPECT_NO_THROW(clone->SetNamespaceRestrictions(u"urn:leaf", u""));
    EXPECT_THROW(clone->SetNamespaceRestrictions(u"##local", u""), CZqInvalidNamespaceException);
    int levels = 0;
    for (CSmartPtr<CElement> element = clone; element != nullptr; ++levels) {
        const CSmartPtr<CElementCol> children = element->GetChildElements();
        element = children->GetCount() == 0 ? nullptr : children->Item(0);
    }
    EXPECT_EQ(levels, kLevels);
    return nullptr;
}

TEST(Depth, NeedsNoStackWhereNothingIsWritten)
{
    pthread_attr_t attributes;
    pthread_t thread;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, 256 * 1024), 0);
    ASSERT_EQ(pthread_create(&thread, &attributes, GoDeep, nullptr), 0);
    ASSERT_EQ(pthread_join(thread, nullptr), 0);
    pthread_attr_destroy(&attributes);
}

TEST(Clone, IsDeepAndIndependent)
{
    const CSmartPtr<CElement> source = new CElement(u"a", u"urn:a", u"##other", u"urn:t");
    source->SetText(u"t");
    source->GetAttributes()->Add(u"x", u"1");
    const CSmartPtr<CElement> child = source->GetChildElements()->Add(u"b");
    source->GetChildElements()->Add(child.Get());
    const CSmartPtr<CElement> clone = source->Clone();
    const std::string before = Plain(*source);
    EXPECT_EQ(Plain(*clone), before);
    clone->GetAttributes()->Item(0)->SetValue(u"2");
    clone->GetChildElements()->Item(0)->SetText(u"u");
    clone->GetChildElements()->Remove(1);
    clone->GetChildElements()->Add(u"c");
    EXPECT_EQ(Plain(*source), before);
    EXPECT_EQ(Plain(*clone), "<AA:a xmlns:AA=\"urn:a\" AA:x=\"2\"><AA:b>u</AA:b><AA:c/>t</AA:a>");
    clone->FromXml(u"<refused xmlns='urn:t'/>");
    EXPECT_EQ(U8(clone->GetName()), "a") << "the restriction is cloned";
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

TEST(ElementCollection, TakesAnyNamespaceWhateverItsRestriction)
{
    const CSmartPtr<CElementCol> elements = new CElementCol(u"n", u"##other", u"t", 1, 3);
    elements->Add(u"a", u"t");
    elements->Add(new CElement(u"b", u"t"));
    elements->Add(u"c");
    const CSmartPtr<CElementCol> clone = elements->Clone();
    elements->Item(0)->SetName(u"z");
    EXPECT_EQ(U8(clone->Item(0)->GetName()), "a");
    EXPECT_EQ(U8(clone->Add(u"d")->GetNamespace()), "n");
    EXPECT_FALSE(clone->IsValidCount(CXmlSerializationContext())) << "the bounds are cloned";
    EXPECT_THROW(new CElementCol(u"t", u"##other", u"t", 0, -1), CZqInvalidNamespaceException);
    for (const char16_t* const restriction : {u"##any", u"##local", u"urn:a", u""}) {
        const CSmartPtr<CElementCol> bare = new CElementCol(u"", restriction, u"t", 0, -1);
        EXPECT_THROW(bare->Add(u"x"), CZqInvalidStateException) << U8(restriction);
    }
}

TEST(ElementCollection, IsReadByNameUpToAnotherNamespace)
{
    CClass type(Info());
    type.Element<CElementInfoSeqUntpdCol>(u"item", u"ignored", 0)
        .Element<CElementInfoSeqUntpdCol>(u"AnyElement", u"", 1);
    const CSmartPtr<CCustom> object = new CCustom(type);
    const CSmartPtr<CElementCol> items = new CElementCol(u"", u"##local", u"t", 0, -1);
    const CSmartPtr<CElementCol> rest = new CElementCol(u"", u"##local", u"t", 0, -1);
    (*object)[0] = CollectionValue(items.Get());
    (*object)[1] = CollectionValue(rest.Get());
    object->FromXml("<r><item xmlns='p'/><p:item xmlns:p='p'/><item/><x xmlns='p'/></r>");
    EXPECT_EQ(items->GetCount(), 2);
    EXPECT_EQ(rest->GetCount(), 2);
}

TEST(ElementCollection, IsCountedOnOutput)
{
    CClass type(Info());
    type.Element<CElementInfoChoiceUntpdCol>(u"AnyElement", u"", 0);
    const CSmartPtr<CCustom> object = new CCustom(type, u"r");
    const CSmartPtr<CElementCol> elements = new CElementCol(u"", u"##any", u"", 2, 2);
    (*object)[0] = CollectionValue(elements.Get());
    CXmlSerializationContext lax;
    lax.SetIgnoreInvalidCollectionCounts(true);
    std::string outcomes;
    for (int i = 1; i <= 3; ++i) {
        elements->Add(new CElement(u"x"));
        EXPECT_NO_THROW(object->ToXml(true, true, EOLType_LF, lax));
        try {
            outcomes += Plain(*object) + ";";
        }
        catch (const CZqValidationException& failure) {
            outcomes += U8(failure.GetInnerException()->GetMessageW()) + ";";
        }
    }
    EXPECT_EQ(outcomes, "The Minimum number of [] elements allowed in this collection is 2;"
                        "<r><x/><x/></r>;"
                        "The Maximum number of [] elements allowed in this collection is 2;");
}

TEST(GeneratedClass, IsFilledFromAnOpenElement)
{
    const CSmartPtr<CElement> element = new CElement(u"letter", u"urn:letter");
    for (const char16_t* const name : {u"to", u"from", u"body"})
        element->GetChildElements()->Add(name)->SetText(name);
    const CSmartPtr<CLetter> expected = new CLetter(u"to", u"from", u"body");
    const CSmartPtr<CLetter> letter = new CLetter();
    letter->FromXmlElement(element.Get());
    EXPECT_TRUE(*letter == *expected);
    element->GetChildElements()->AddAfter(nullptr, new CElement(u"strange"));
    EXPECT_THROW(letter->FromXmlElement(element.Get()), CZqValidationException);
    CXmlSerializationContext context;
    context.SetIgnoreUnknownElements(true);
    letter->FromXmlElement(element.Get(), context);
    EXPECT_TRUE(*letter == *expected) << "the caller's context is for reading";
}

}  // namespace
}  // namespace ZqXmlLib9
