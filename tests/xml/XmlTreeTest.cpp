// The tree that comes out of a document, and that its depth never costs stack.

#include "support/Print.h"
#include "support/Stack.h"

#include <ZqXmlLib9/engine/XmlSerializationContext.h>
#include <ZqXmlLib9/xml/TextStream.h>
#include <ZqXmlLib9/xml/XmlAttribute.h>
#include <ZqXmlLib9/xml/XmlDocument.h>
#include <ZqXmlLib9/xml/XmlElement.h>
#include <ZqXmlLib9/xml/XmlTextWriter.h>

#include <gtest/gtest.h>

#include <memory>

namespace ZqXmlLib9 {
namespace {

/// A tree in one line: `{uri}name @attribute='value' 'text' (children)`.
std::string Print(const CXmlElement& element)
{
    const auto name = [](const auto& node) {
        const std::string uri = U8(node.GetNamespaceURI());
        return (uri.empty() ? "" : "{" + uri + "}") + U8(node.GetLocalName());
    };
    std::string line = name(element);
    for (const CXmlAttribute* attribute : element.GetAttributes())
        line += " @" + name(*attribute) + "='" + U8(attribute->GetValue()) + "'";
    if (!element.GetText().empty())
        line += " '" + U8(element.GetText()) + "'";
    for (const CXmlElement* child = element.GetFirstElement(); child != nullptr;
         child = child->GetNextSiblingElement())
        line += " (" + Print(*child) + ")";
    return line;
}

TEST(Tree, IsThatOfTheDocument)
{
    const struct {
        const char16_t* xml;
        const char* tree;
        SchemaType schemaType = SchemaType_Default;
        bool stripCData = true;
    } rows[] = {
        {u"<?p?><!--c--><a>x<b/>\n\ty<!--c-->1<b>in</b>z<?p x?> &lt;</a><!--c-->",
         "a 'x\n\ty1z <' (b) (b 'in')"},
        {u"<a>1\r\n2\r3&#13;4&#xD;\n<b>&#13;</b></a>", "a '1\n2\n34\n' (b)"},
        {u"<!DOCTYPE a [<!ENTITY e SYSTEM 'file:///etc/hostname'>]><a>1&e;2</a>", "a '12'"},
        {u"<a>1<![CDATA[x<y\r\n&amp;]]>2</a>", "a '1x<y\n&amp;2'"},
        {u"<a>1<![CDATA[2\r\n]]><b><![CDATA[]]></b>4&lt;<![CDATA[&lt;]]></a>",
         "a '1<![CDATA[2\n]]>4<<![CDATA[&lt;]]>' (b '<![CDATA[]]>')", SchemaType_Default, false},
        {u"<p:a xmlns:p='x' n='1' p:n='2'><b xmlns='y' n='3'><p:c xmlns:p='z'/></b><b/></p:a>",
         "{x}a @n='1' @{x}n='2' ({y}b @n='3' ({z}c)) (b)"},
        {u"<p:a xmlns:p='urn:1' xmlns='urn:2' q:n='v'><b/></p:a>",
         "p:a @xmlns:p='urn:1' @xmlns='urn:2' @q:n='v' (b)", SchemaType_NoNamespaces}};
    for (const auto& row : rows) {
        CXmlSerializationContext context;
        context.SetSchemaType(row.schemaType);
        context.SetStripCDATA(row.stripCData);
        CXmlDocument document(context);
        document.LoadXml(row.xml);
        EXPECT_EQ(Print(*document.GetDocumentElement()), row.tree);
    }
}

TEST(Names, AreLookedUp)
{
    CXmlDocument document;
    document.LoadXml(u"<old xmlns:old='urn:old'/>");
    document.LoadXml(u"<p:a xmlns:p='urn:1' xmlns='urn:2' xmlns:q='urn:3' p:n='1' n='2' p:k='4'>"
                     u"<b xmlns:p='urn:4'><c xmlns='urn:5'/></b><c/></p:a>");
    for (const auto& [name, uri, value] :
         {std::tuple(u"n", u"urn:1", "1"), {u"n", u"", "2"}, {u"k", u"", ""}, {u"N", u"", ""}})
        EXPECT_EQ(U8(document.GetDocumentElement()->GetAttribute(name, uri)), value);
    // The last binding in the document.
    for (const auto& [prefix, uri] :
         {std::pair(u"p", "urn:4"), {u"q", "urn:3"}, {u"", "urn:5"}, {u"old", ""}})
        EXPECT_EQ(U8(document.LookupNamespaceFromAlias(prefix)), uri);
}

std::string g_seen;

TEST(Filter, SeesWholeElementsAndTakesOutWhatItClaims)
{
    g_seen.clear();
    CXmlDocument document([](CXmlElement* element) {
        g_seen += Print(*element) + "; ";
        return element->GetLocalName() == u"x";
    });
    document.LoadXml(u"<x><x/><b n='1'><x><c/></x></b><x/><d>1<x>3</x>2</d><x/></x>");
    EXPECT_EQ(Print(*document.GetDocumentElement()), "x (b @n='1') (d '12')");
    EXPECT_EQ(g_seen, "x; c; x (c); b @n='1'; x; x '3'; d '12'; x; x (b @n='1') (d '12'); ");
}

std::string Nested(int levels, const std::string& inner)
{
    std::string xml;
    for (int level = 0; level < 2 * levels; ++level)
        xml += level < levels ? "<a>" : level > levels ? "</a>" : inner + "</a>";
    return xml;
}

TEST(Failure, EndsALoad)
{
    g_seen.clear();
    CXmlDocument document([](CXmlElement* element) {
        g_seen += U8(element->GetLocalName());
        return element->GetLocalName() == u"stop" ? throw 42 : true;
    });
    EXPECT_THROW(document.LoadXml(u"<a><b>x</b><stop>here</stop><c>y</c></wrong>"), int);
    EXPECT_EQ(MessageOf([&] { document.LoadXml(Nested(1024, "<c/>").c_str()); }),
              "The document is nested deeper than 1024 levels");
    EXPECT_EQ(g_seen, "bstop") << "went on behind a failure";
    EXPECT_NO_THROW(document.LoadXml(Nested(1024, "").c_str()));
}

TEST(SmallStack, IsEnoughToDestroyWhatIsDeep)
{
    CXmlSerializationContext context;
    context.SetMaxDepth(2'000'000);
    CTextStream stream;
    std::pair deep(std::make_unique<CXmlDocument>(context),
                   std::make_unique<CXmlTextWriter>(&stream));
    deep.first->LoadXml(Nested(1'000'000, "").c_str());
    deep.second->SetFormat(false);
    deep.second->SetMaxDepth(100'000);
    for (int level = 0; level < 100'000; ++level)
        deep.second->WriteStartElement(u"a", u"urn:x");
    RunOnStack(256 << 10, [&deep] { deep = {}; });
}

}  // namespace
}  // namespace ZqXmlLib9
