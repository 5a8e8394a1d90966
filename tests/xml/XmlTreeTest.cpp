// The tree that comes out of a document, and that its depth never costs stack.

#include "support/Print.h"

#include <ZqXmlLib9/engine/XmlSerializationContext.h>
#include <ZqXmlLib9/xml/TextStream.h>
#include <ZqXmlLib9/xml/XmlAttribute.h>
#include <ZqXmlLib9/xml/XmlDocument.h>
#include <ZqXmlLib9/xml/XmlElement.h>
#include <ZqXmlLib9/xml/XmlTextWriter.h>

#include <gtest/gtest.h>

#include <memory>
#include <pthread.h>
#include <string>

namespace ZqXmlLib9 {
namespace {

std::string PrintName(const std::u16string& uri, const std::u16string& name)
{
    return uri.empty() ? U8(name) : "{" + U8(uri) + "}" + U8(name);
}

/// A tree in one line: `name @attribute='value' 'text' (children)`.
std::string Print(const CXmlElement* element)
{
    if (element == nullptr)
        return "none";
    std::string line = PrintName(element->GetNamespaceURI(), element->GetLocalName());
    for (const CXmlAttribute* attribute : element->GetAttributes())
        line += " @" + PrintName(attribute->GetNamespaceURI(), attribute->GetLocalName()) + "='"
                + U8(attribute->GetValue()) + "'";
    if (!element->GetText().empty())
        line += " '" + U8(element->GetText()) + "'";
    for (const CXmlElement* child = element->GetFirstElement(); child != nullptr;
         child = child->GetNextSiblingElement())
        line += " (" + Print(child) + ")";
    return line;
}

struct STree {
    const char* name;
    const char16_t* xml;
    const char* tree;
    SchemaType schemaType = SchemaType_Default;
    bool stripCData = true;
};

class Tree : public testing::TestWithParam<STree> {};

TEST_P(Tree, IsThatOfTheDocument)
{
    CXmlSerializationContext context;
    context.SetSchemaType(GetParam().schemaType);
    context.SetStripCDATA(GetParam().stripCData);
    CXmlDocument document(context);
    document.LoadXml(GetParam().xml);
    EXPECT_EQ(Print(document.GetDocumentElement()), GetParam().tree);
}

INSTANTIATE_TEST_SUITE_P(
    Text, Tree,
    testing::Values(
        STree{"PiecesAreJoined", u"<a>x<b/>y<b>in</b>z</a>", "a 'xyz' (b) (b 'in')"},
        STree{"WhiteSpaceStays", u"<a>\n\t<b/> \n</a>", "a '\n\t \n' (b)"},
        STree{"NoCarriageReturn", u"<a>1\r\n2\r3&#13;4&#xD;\n<b>&#13;</b></a>",
              "a '1\n2\n34\n' (b)"},
        STree{"Entities",
              u"<!DOCTYPE a [<!ENTITY e 'x<b>&amp;&#65;</b>'>]><a>&e;&e;&lt;&#x1F600;</a>",
              "a 'xx<\xF0\x9F\x98\x80' (b '&A') (b '&A')"},
        STree{"ExternalEntityIsNotRead",
              u"<!DOCTYPE a [<!ENTITY e SYSTEM 'file:///etc/hostname'>]><a>1&e;2</a>", "a '12'"},
        STree{"CommentsVanish", u"<?p?><!--c--><a>1<!--c-->2<?p x?>3</a><!--c-->", "a '123'"}),
    kRowName);

INSTANTIATE_TEST_SUITE_P(
    CData, Tree,
    testing::Values(
        STree{"Stripped", u"<a>1<![CDATA[x<y\r\n&amp;]]>2</a>", "a '1x<y\n&amp;2'"},
        STree{"Kept", u"<a><![CDATA[x<y]]></a>", "a '<![CDATA[x<y]]>'", SchemaType_Default, false},
        STree{"KeptEmpty", u"<a><![CDATA[]]></a>", "a '<![CDATA[]]>'", SchemaType_Default, false},
        STree{"KeptInText", u"<a>1<![CDATA[2\r\n]]><b><![CDATA[3]]></b>4&lt;<![CDATA[&lt;]]></a>",
              "a '1<![CDATA[2\n]]>4<<![CDATA[&lt;]]>' (b '<![CDATA[3]]>')", SchemaType_Default,
              false}),
    kRowName);

INSTANTIATE_TEST_SUITE_P(
    Names, Tree,
    testing::Values(
        STree{"Resolved",
              u"<p:a xmlns:p='urn:1' n='1' p:n='2'><b xmlns='urn:2' n='3'><p:c xmlns:p='urn:3'/>"
              u"</b><b/></p:a>",
              "{urn:1}a @n='1' @{urn:1}n='2' ({urn:2}b @n='3' ({urn:3}c)) (b)"},
        STree{"NoNamespaces", u"<p:a xmlns:p='urn:1' xmlns='urn:2' q:n='v'><b/></p:a>",
              "p:a @xmlns:p='urn:1' @xmlns='urn:2' @q:n='v' (b)", SchemaType_NoNamespaces}),
    kRowName);

TEST(Attribute, IsFoundByBothItsNamesAlone)
{
    CXmlDocument document;
    document.LoadXml(u"<p:a xmlns:p='urn:x' p:n='1' n='2' m='3' p:k='4'/>");
    const CXmlElement& a = *document.GetDocumentElement();
    EXPECT_EQ(U8(a.GetAttribute(u"n", u"urn:x")), "1");
    EXPECT_EQ(U8(a.GetAttribute(u"n", u"")), "2");
    for (const auto& [name, uri] :
         {std::pair(u"m", u"urn:x"), {u"k", u""}, {u"n", u"urn:X"}, {u"N", u""}})
        EXPECT_EQ(U8(a.GetAttribute(name, uri)), "") << U8(name);
}

TEST(Aliases, KeepTheLastBindingOfTheDocument)
{
    CXmlDocument document;
    document.LoadXml(u"<p:a xmlns:p='urn:1' xmlns='urn:2' xmlns:q='urn:3'><b xmlns:p='urn:4'>"
                     u"<c xmlns='urn:5'/></b><c/></p:a>");
    EXPECT_EQ(U8(document.LookupNamespaceFromAlias(u"p")), "urn:4");
    EXPECT_EQ(U8(document.LookupNamespaceFromAlias(u"q")), "urn:3");
    EXPECT_EQ(U8(document.LookupNamespaceFromAlias(u"")), "urn:5");
    EXPECT_EQ(U8(document.LookupNamespaceFromAlias(u"unknown")), "");
    document.LoadXml(u"<a xmlns='urn:1'><b xmlns=''/></a>");
    EXPECT_EQ(U8(document.LookupNamespaceFromAlias(u"")), "");
    EXPECT_EQ(U8(document.LookupNamespaceFromAlias(u"p")), "") << "of the load before";
}

std::string g_seen;

/// What a filter leaves of a document.
std::string Filtered(ElementFilter filter, const char16_t* xml)
{
    g_seen.clear();
    CXmlDocument document(filter);
    document.LoadXml(xml);
    return Print(document.GetDocumentElement());
}

TEST(Filter, TakesOutWhatItClaims)
{
    const ElementFilter look = [](CXmlElement* element) {
        g_seen += Print(element) + "; ";
        return false;
    };
    EXPECT_EQ(Filtered(look, u"<a><b n='1'><c>x</c>y</b><d/>z</a>"),
              "a 'z' (b @n='1' 'y' (c 'x')) (d)");
    EXPECT_EQ(g_seen, "c 'x'; b @n='1' 'y' (c 'x'); d; a 'z' (b @n='1' 'y' (c 'x')) (d); ");

    const ElementFilter all = [](CXmlElement*) { return true; };
    EXPECT_EQ(Filtered(all, u"<a>1<b><c/><c/></b>2<d/></a>"), "a '12'");
    EXPECT_EQ(Filtered(all, u"<a/>"), "a");
    const ElementFilter some = [](CXmlElement* e) { return e->GetLocalName() == u"x"; };
    EXPECT_EQ(Filtered(some, u"<x><x/><b/><x><b/></x><b>1<x/>2</b><x/><b/></x>"),
              "x (b) (b '12') (b)");
}

TEST(Filter, EndsALoadWithWhatItThrows)
{
    struct SStop {
        std::u16string text;
    };
    g_seen.clear();
    CXmlDocument document([](CXmlElement* element) {
        if (element->GetLocalName() == u"stop")
            throw SStop{element->GetText()};
        if (element->GetLocalName() == u"fail")
            throw CZqInvalidStateException(u"enough");
        g_seen += U8(element->GetLocalName());
        return true;
    });
    try {
        document.LoadXml(u"<a><b>x</b><stop>here</stop><c>y</c></wrong>");
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (const SStop& stop) {
        EXPECT_EQ(U8(stop.text), "here");
    }
    EXPECT_EQ(MessageOf<CZqInvalidStateException>([&] { document.LoadXml("<a><fail/><c/></a>"); }),
              "enough");
    EXPECT_EQ(g_seen, "b") << "went on behind the failure";
    document.LoadXml(u"<a><b/></a>");
    EXPECT_EQ(Print(document.GetDocumentElement()), "a");
}

std::string Nested(int levels)
{
    std::string xml;
    for (int level = 0; level < levels; ++level)
        xml += "<a>";
    for (int level = 0; level < levels; ++level)
        xml += "</a>";
    return xml;
}

TEST(Depth, OfATreeIsRefusedBeyondTheLimit)
{
    CXmlSerializationContext context;
    CXmlDocument document(
        [](CXmlElement* element) {
            g_seen += U8(element->GetLocalName());
            return false;
        },
        context);
    EXPECT_NO_THROW(document.LoadXml(Nested(1024).c_str()));
    EXPECT_EQ(MessageOf([&] { document.LoadXml(Nested(1025).c_str()); }),
              "The document is nested deeper than 1024 levels");
    context.SetMaxDepth(2);
    g_seen.clear();
    EXPECT_NO_THROW(document.LoadXml("<a><b/><b/></a>"));
    EXPECT_EQ(MessageOf([&] { document.LoadXml("<a><c><d/></c></a>"); }),
              "The document is nested deeper than 2 levels");
    EXPECT_EQ(g_seen, "bba") << "went on behind the failure";
}

/// Ends the life of an object on a thread whose stack has 256 KiB.
template <typename T>
void DestroyOnSmallStack(std::unique_ptr<T> object)
{
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, 256 * 1024);
    const auto run = [](void* argument) -> void* {
        static_cast<std::unique_ptr<T>*>(argument)->reset();
        return nullptr;
    };
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &attributes, run, &object), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

TEST(SmallStack, IsEnoughForATreeOfAMillionLevels)
{
    CXmlSerializationContext context;
    context.SetMaxDepth(2'000'000);
    auto document = std::make_unique<CXmlDocument>(context);
    document->LoadXml(Nested(1'000'000).c_str());
    DestroyOnSmallStack(std::move(document));
}

TEST(SmallStack, IsEnoughForAWriterInTheMiddleOfADocument)
{
    CTextStream stream;
    auto writer = std::make_unique<CXmlTextWriter>(&stream);
    writer->SetFormat(false);
    writer->SetMaxDepth(100'000);
    for (int level = 0; level < 100'000; ++level)
        writer->WriteStartElement(u"a", u"urn:x");
    DestroyOnSmallStack(std::move(writer));
}

}  // namespace
}  // namespace ZqXmlLib9
