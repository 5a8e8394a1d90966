// What a text writer puts on its stream, event by event.

#include "support/Print.h"

#include <ZqXmlLib9/xml/TextStream.h>
#include <ZqXmlLib9/xml/XmlDocument.h>
#include <ZqXmlLib9/xml/XmlTextWriter.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace ZqXmlLib9 {
namespace {

constexpr std::u16string_view kXsi = u"http://www.w3.org/2001/XMLSchema-instance";

/// What stands in front of a separator and behind it; nothing behind it if there is none.
std::pair<std::u16string_view, std::u16string_view> Split(std::u16string_view text, char16_t at)
{
    const std::size_t place = std::min(text.find(at), text.size());
    return {text.substr(0, place), text.substr(std::min(place + 1, text.size()))};
}

/// Writes one event, a character for its kind and its arguments behind it. `xml` and `xsi` stand
/// for the namespaces that bear these prefixes by custom.
///
///     <name|uri           start of an element       >             end of it
///     @name|uri=value     attribute                 'text         text
///     :name|uri           xsi:type                  0             xsi:nil
///     +prefix|uri         alias                     *uri          default namespace
///     ?text               processing instruction    !text         comment
///     #text               in-line schema            =text         raw line
///     ^                   XML declaration           /             end of the start tag
void WriteEvent(CXmlTextWriter& writer, std::u16string_view event)
{
    const std::u16string_view arguments = event.substr(1);
    const auto [fullName, value] = Split(arguments, u'=');
    auto [name, uri] = Split(fullName, u'|');
    if (uri == u"xml")
        uri = u"http://www.w3.org/XML/1998/namespace";
    if (uri == u"xsi")
        uri = kXsi;
    switch (event[0]) {
    case u'<': return writer.WriteStartElement(name, uri);
    case u'>': return writer.WriteEndElement();
    case u'@': return writer.WriteAttribute(name, uri, value, ItemType_string);
    case u'\'': return writer.WriteText(arguments, ItemType_string);
    case u':': return writer.WriteXsiType(uri, name, ItemType_string);
    case u'0': return writer.WriteXsiNil();
    case u'+': return writer.AddNamespaceAlias(name, uri);
    case u'*': return writer.SetDefaultNamespace(arguments);
    case u'?': return writer.WriteProcessingInstruction(arguments);
    case u'!': return writer.WriteComment(arguments);
    case u'#': return writer.WriteInLineSchema(arguments);
    case u'=': return writer.WriteRawLine(arguments);
    case u'^': return writer.WriteXmlDeclaration();
    case u'/': return writer.CloseStartTag();
    default: ADD_FAILURE() << "unknown event " << U8(event);
    }
}

/// A writer, without format at first, on a stream of its own.
struct SScript {
    CTextStream stream;
    CXmlTextWriter writer{&stream};

    SScript() { writer.SetFormat(false); }

    /// Writes events with a blank between each two.
    SScript& Write(std::u16string_view events)
    {
        while (!events.empty()) {
            const auto [event, rest] = Split(events, u' ');
            WriteEvent(writer, event);
            events = rest;
        }
        return *this;
    }

    std::u16string Take() { return stream.GetText(); }
};

struct SCase {
    const char* name;
    const char16_t* events;
    const char* xml;
    EOLType eol = EOLType_LF;
};

class Namespaces : public testing::TestWithParam<SCase> {};
class Formatted : public testing::TestWithParam<SCase> {};

TEST_P(Namespaces, AreDeclaredWhereTheyAreFirstUsed)
{
    const std::u16string xml = SScript().Write(GetParam().events).Take();
    EXPECT_EQ(U8(xml), GetParam().xml);
    EXPECT_NO_THROW(CXmlDocument().LoadXml(xml.c_str())) << "not well-formed";
}

TEST_P(Formatted, HasTheShapeOfItsEvents)
{
    SScript script;
    script.writer.SetFormat(true);
    script.writer.SetEOLType(GetParam().eol);
    EXPECT_EQ(U8(script.Write(GetParam().events).Take()), GetParam().xml);
}

INSTANTIATE_TEST_SUITE_P(
    Generated, Namespaces,
    testing::Values(
        SCase{"SeenByDescendantsOnly", u"<r <a|urn:x <b <c|urn:x > > > <d|urn:y > >",
              R"(<r><AA:a xmlns:AA="urn:x"><b><AA:c/></b></AA:a><AA:d xmlns:AA="urn:y"/></r>)"},
        SCase{"NextFreeOneInside", u"<r|urn:x <a|urn:y <b|urn:z > > <c|urn:z 't > >",
              R"(<AA:r xmlns:AA="urn:x"><AB:a xmlns:AB="urn:y"><AC:b xmlns:AC="urn:z"/></AB:a>)"
              R"(<AB:c xmlns:AB="urn:z">t</AB:c></AA:r>)"},
        SCase{"NotThatOfAnAlias", u"+AA|urn:y <a|urn:x >",
              R"(<AB:a xmlns:AB="urn:x" xmlns:AA="urn:y"/>)"},
        SCase{"OfAttributes", u"<r <a @n|urn:x=1 @m|urn:x=2 @n=3 <b|urn:x > > <c @n|urn:y=4 > >",
              R"(<r><a xmlns:AA="urn:x" AA:n="1" AA:m="2" n="3"><AA:b/></a>)"
              R"(<c xmlns:AA="urn:y" AA:n="4"/></r>)"}),
    kRowName);

INSTANTIATE_TEST_SUITE_P(
    OfTheCaller, Namespaces,
    testing::Values(SCase{"InOrderOnTheRoot",
                          u"+b|urn:1 +a|urn:2 +Z|URN:3 *urn:d <r|urn:0 <c|urn:1 > >",
                          R"(<AA:r xmlns:AA="urn:0" xmlns="urn:d" xmlns:Z="URN:3" xmlns:b="urn:1")"
                          R"( xmlns:a="urn:2"><b:c/></AA:r>)"},
                    SCase{"DefaultIsNeverUndone", u"*urn:d <r|urn:d <a > <b|urn:d > >",
                          R"(<r xmlns="urn:d"><a/><b/></r>)"},
                    SCase{"DefaultIsNotForAttributes", u"*urn:d <r|urn:d @n|urn:d=v >",
                          R"(<r xmlns="urn:d" xmlns:AA="urn:d" AA:n="v"/>)"},
                    SCase{"XmlIsNeverDeclaredAndStaysXml", u"+p|xml <a @lang|xml=en >",
                          R"(<a xml:lang="en"/>)"},
                    SCase{"EmptyAliasCountsForNothing",
                          u"+|urn:x +p|urn:y +|urn:y <r <a|urn:x @n|urn:y=v > >",
                          R"(<r><AA:a xmlns:AA="urn:x" xmlns:AB="urn:y" AB:n="v"/></r>)"}),
    kRowName);

// Whatever is declared between the tags of an element, its end tag says what its start tag said.
INSTANTIATE_TEST_SUITE_P(
    WithinAnElement, Namespaces,
    testing::Values(SCase{"DefaultForItsOwn", u"<a|urn:x *urn:x @xmlns=urn:x <b|urn:x 't > 't >",
                          R"(<AA:a xmlns:AA="urn:x" xmlns="urn:x"><b>t</b>t</AA:a>)"},
                    SCase{"DefaultTakenBack", u"*urn:d <a|urn:d * <b|urn:d 't > >",
                          R"(<a xmlns="urn:d"><AA:b xmlns:AA="urn:d">t</AA:b></a>)"},
                    SCase{"AnotherAlias",
                          u"<r <a|urn:x +p|urn:x @xmlns:p=urn:x <b|urn:x 't > > <c|urn:x > >",
                          R"(<r><AA:a xmlns:AA="urn:x" xmlns:p="urn:x"><p:b>t</p:b></AA:a>)"
                          R"(<AA:c xmlns:AA="urn:x"/></r>)"},
                    SCase{"AliasTakenBack", u"+p|urn:x <a|urn:x +|urn:x <b|urn:x 't > >",
                          R"(<p:a xmlns:p="urn:x"><AA:b xmlns:AA="urn:x">t</AA:b></p:a>)"}),
    kRowName);

INSTANTIATE_TEST_SUITE_P(
    Instance, Namespaces,
    testing::Values(
        SCase{"TypeWithoutPrefix", u"<a :T >",
              R"(<a xmlns:AA="http://www.w3.org/2001/XMLSchema-instance" AA:type="T"/>)"},
        SCase{"TypeInTheDefaultNamespace", u"*urn:d +i|xsi <a :T|urn:d >",
              R"(<a xmlns="urn:d" xmlns:i="http://www.w3.org/2001/XMLSchema-instance")"
              R"( i:type="T"/>)"},
        SCase{"TypeDeclaredWithTwoBlanks", u"<a :T|urn:t <b 0 > >",
              R"(<a xmlns:AA="urn:t"  xmlns:AB="http://www.w3.org/2001/XMLSchema-instance")"
              R"( AB:type="AA:T"><b AB:nil="true"/></a>)"}),
    kRowName);

INSTANTIATE_TEST_SUITE_P(
    Shape, Formatted,
    testing::Values(
        SCase{"Empty", u"<a >", "<a/>\n"},
        SCase{"EmptyTextKeepsTheTagOpen", u"<a ' @n= >", "<a n=\"\"/>\n"},
        SCase{"TextAlone", u"<a 'x 'y >", "<a>xy</a>\n"},
        SCase{"Children", u"<a <b <c > > <d 'x > >",
              "<a>\n\t<b>\n\t\t<c/>\n\t</b>\n\t<d>x</d>\n</a>\n"},
        SCase{"MixedContent", u"<a 'x <b > 'y >", "<a>x\t<b/>\ny</a>\n"},
        SCase{"RawLine", u"<a / =<b>&amp;</b> >", "<a>\n<b>&amp;</b>\n</a>\n"},
        SCase{"InLineSchema", u"<a @n=v #<s\nx='&'/> <b > >",
              "<a n=\"v\" \n<s\nx='&'/>\n>\n\t<b/>\n</a>\n"},
        SCase{"Prolog", u"^ ?<?p\na<b?> !a<b\r\n\"c\" <a >",
              "<?xml version=\"1.0\"?>\n<?p\na<b?>\n\n<!--a&lt;b\n&quot;c&quot;-->\n<a/>\n"}),
    kRowName);

INSTANTIATE_TEST_SUITE_P(
    CData, Formatted,
    testing::Values(
        SCase{"Verbatim", u"<a '<![CDATA[<&>\r\n]]>\"<& >", "<a><![CDATA[<&>\r\n]]>\"<&</a>\n"},
        SCase{"NotAtTheStart", u"<a 'x<![CDATA[y]]> >", "<a>x&lt;![CDATA[y]]&gt;</a>\n"},
        SCase{"CutMarker", u"<a '<![CDATA >", "<a>&lt;![CDATA</a>\n"},
        SCase{"InAnAttribute", u"<a @n=<![CDATA[ >", "<a n=\"&lt;![CDATA[\"/>\n"}),
    kRowName);

INSTANTIATE_TEST_SUITE_P(
    LineEnds, Formatted,
    testing::Values(SCase{"Tags", u"<a <b > >", "<a>\r\n\t<b/>\r\n</a>\r\n", EOLType_CRLF},
                    SCase{"Data", u"<a @n=1\r\n2\n3\r4 '1\r\n2\n3\r4 >",
                          "<a n=\"1&#xA;2&#xA;34\">1\r\n2\r\n34</a>\r\n", EOLType_CRLF}),
    kRowName);

TEST(WithoutFormat, OnlyTagsHaveNoLineEnds)
{
    SScript script;
    script.writer.SetEOLType(EOLType_CRLF);
    EXPECT_EQ(U8(script.Write(u"^ ?<?p?> !c\n <a #s / =l <b <c > > >").Take()),
              "<?xml version=\"1.0\"?>\r\n<?p?>\r\n\r\n<!--c\r\n-->\r\n"
              "<a \r\ns\r\n>l<b><c/></b></a>");
}

TEST(Declaration, NamesTheEncodingOfTheStream)
{
    const std::pair<XmlEncoding, const char*> rows[] = {
        {XmlEncoding_None, "<?xml version=\"1.0\"?>\n"},
        {XmlEncoding_UTF8, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"},
        {XmlEncoding_UTF16, "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"},
        {XmlEncoding_UTF16Undeclared, "<?xml version=\"1.0\"?>\n"}};
    for (const auto& [encoding, xml] : rows) {
        CTextStream stream(encoding);
        CXmlTextWriter(&stream).WriteXmlDeclaration();
        EXPECT_EQ(U8(stream.GetText()), xml);
    }
}

/// What becomes of a code unit, by the table of the escapes.
std::u16string Escaped(char16_t unit, bool isAttribute, EOLType eol)
{
    switch (unit) {
    case u'\n': return isAttribute ? u"&#xA;" : eol == EOLType_CRLF ? u"\r\n" : u"\n";
    case u'\r': return u"";
    case u'"': return u"&quot;";
    case u'&': return u"&amp;";
    case u'<': return u"&lt;";
    case u'>': return u"&gt;";
    default: return {unit};
    }
}

TEST(Escaping, IsRightForEveryCodeUnit)
{
    for (const EOLType eol : {EOLType_CRLF, EOLType_LF}) {
        for (unsigned page = 0; page < 0x10000; page += 0x100) {
            std::u16string data, text, value;
            for (unsigned unit = page == 0 ? 1 : page; unit < page + 0x100; ++unit) {
                data += {static_cast<char16_t>(unit), u'.'};
                text += Escaped(static_cast<char16_t>(unit), false, eol) + u'.';
                value += Escaped(static_cast<char16_t>(unit), true, eol) + u'.';
            }
            SScript script;
            script.writer.SetEOLType(eol);
            script.writer.WriteStartElement(u"a", u"");
            script.writer.WriteAttribute(u"n", u"", data, ItemType_string);
            script.writer.WriteText(data, ItemType_string);
            EXPECT_TRUE(script.Take() == u"<a n=\"" + value + u"\">" + text)
                << "code units " << page << " to " << page + 0xFF;
        }
    }
}

TEST(Escaping, EndsATextAtItsFirstNul)
{
    using namespace std::string_view_literals;
    EXPECT_EQ(U8(SScript().Write(u"<a @n=1<\0<2 '3&\0&4 >"sv).Take()), "<a n=\"1&lt;\">3&amp;</a>");
}

TEST(Prefixes, GoOnWithThreeLetters)
{
    SScript script;
    script.Write(u"<a");
    for (int i = 0; i < 678; ++i)
        script.Write(u"@n|urn:" + ToUtf16(std::to_string(i)) + u"=");
    const std::string xml = U8(script.Write(u">").Take());
    for (const char* const declaration :
         {" xmlns:AZ=\"urn:25\"", " xmlns:BA=\"urn:26\"", " xmlns:ZZ=\"urn:675\"",
          " xmlns:AAA=\"urn:676\"", " xmlns:AAB=\"urn:677\""})
        EXPECT_NE(xml.find(declaration), std::string::npos) << declaration;
    EXPECT_NO_THROW(CXmlDocument().LoadXml(xml.c_str()));
}

TEST(Prefixes, NeverReachTheTableOfTheWriter)
{
    const std::string xml = R"(<AA:a xmlns:AA="urn:x" xmlns:p="urn:p"/>)";
    EXPECT_EQ(U8(SScript().Write(u"+p|urn:p <a|urn:x *urn:d +q|urn:q > <a|urn:x >").Take()),
              xml + xml);
}

TEST(Misplaced, FailsAndWritesNothing)
{
    for (const auto* const before : {u"<a 'x", u"<a <b >", u"<a /", u"", u"<a >"}) {
        SScript script;
        const std::u16string written = script.Write(before).Take();
        for (const auto* const late : {u"@n|urn:x=v", u":T|urn:x", u"0"})
            EXPECT_EQ(MessageOf([&] { script.Write(late); }),
                      "Attributes must be added before elements")
                << U8(before) << " " << U8(late);
        EXPECT_EQ(U8(script.Take()), U8(written));
    }
    SScript script;
    EXPECT_THROW(script.Write(u"'x"), CZqInvalidStateException);
    EXPECT_THROW(script.Write(u">"), CZqInvalidStateException);
    EXPECT_EQ(U8(script.Take()), "");
}

TEST(UnknownLineEnd, LeavesTheOldOne)
{
    SScript script;
    script.writer.SetEOLType(EOLType_CRLF);
    EXPECT_EQ(MessageOf([&] { script.writer.SetEOLType(static_cast<EOLType>(2)); }),
              "Invalid EOL type.");
    EXPECT_EQ(U8(script.Write(u"!c").Take()), "<!--c-->\r\n");
}

TEST(Depth, IsRefusedBeyondTheLimit)
{
    SScript script;
    for (int level = 0; level < 1024; ++level)
        script.Write(u"<a|urn:x");
    const std::u16string before = script.Take();
    EXPECT_EQ(MessageOf([&] { script.Write(u"<a"); }),
              "The document is nested deeper than 1024 levels");
    EXPECT_EQ(U8(script.Take()), U8(before));
    // The failure has not touched what is open.
    script.Write(u"> <b 'x");
    for (int level = 0; level < 1024; ++level)
        script.Write(u">");
    EXPECT_NO_THROW(CXmlDocument().LoadXml(script.Take().c_str()));
}

/// Keeps the order of its calls, with the code units pending at each.
class CRecordingStream : public CTextStream {
public:
    void Open() override { Note("Open"); }
    void Close() override { Note("Close"); }
    void Flush() override { Note("Flush"); }

    std::string m_calls;

private:
    void Note(const char* call) { m_calls += call + (std::to_string(GetPendingLength()) + ";"); }
};

TEST(Close, ReportsAnOpenElementAfterTheStreamWasClosed)
{
    CRecordingStream stream;
    CXmlTextWriter writer(&stream);
    writer.Open();
    WriteEvent(writer, u"<a");
    EXPECT_EQ(MessageOf([&] { writer.Close(); }), "An Element has not been closed.");
    EXPECT_EQ(stream.m_calls, "Open0;Close2;");
    WriteEvent(writer, u">");
    EXPECT_NO_THROW(writer.Close());
}

TEST(Flush, ComesWith4096PendingCodeUnits)
{
    for (const auto* const event :
         {u"^", u"!x", u"?x", u"#x", u"<b", u"@n=v", u":T", u"0", u"'x", u">", u"/", u"=x"}) {
        const auto write = [&](CRecordingStream& stream, std::size_t blanks) {
            CXmlTextWriter writer(&stream);
            writer.AddNamespaceAlias(u"i", kXsi);
            WriteEvent(writer, u"<a");
            stream.WriteString(std::u16string(blanks, u' '));
            WriteEvent(writer, event);
        };
        CRecordingStream probe;
        write(probe, 0);
        const bool isTested = *event != u'/' && *event != u'=';
        for (const std::uint32_t pending : {4095U, 4096U}) {
            CRecordingStream stream;
            write(stream, pending - probe.GetPendingLength());
            EXPECT_EQ(stream.m_calls, isTested && pending == 4096 ? "Flush4096;" : "") << U8(event);
        }
    }
}

}  // namespace
}  // namespace ZqXmlLib9
