// What a text writer puts on its stream, event by event, and the buffer of the stream.

#include "support/EventScript.h"

#include <ZqXmlLib9/xml/TextStream.h>
#include <ZqXmlLib9/xml/XmlTextWriter.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <numeric>

namespace ZqXmlLib9 {
namespace {

using namespace std::string_view_literals;

/// A writer without format on a stream that keeps its calls with the code units pending at each.
struct SScript : CTextStream {
    explicit SScript(XmlEncoding encoding = XmlEncoding_None) : CTextStream(encoding)
    {
        writer.SetFormat(false);
    }
    void Close() override { calls += "Close" + std::to_string(GetPendingLength()); }
    void Flush() override { calls += "Flush" + std::to_string(GetPendingLength()); }

    /// Besides the events of every writer: ^ the XML declaration, =text a raw line, / the end of the
    /// start tag.
    SScript& Write(std::u16string_view events)
    {
        WriteEvents(writer, events, [&](char16_t mark, std::u16string_view arguments) {
            switch (mark) {
            case u'^': writer.WriteXmlDeclaration(); break;
            case u'=': writer.WriteRawLine(arguments); break;
            case u'/': writer.CloseStartTag(); break;
            default: ADD_FAILURE() << "unknown event " << static_cast<char>(mark);
            }
        });
        return *this;
    }

    std::string calls;
    CXmlTextWriter writer{this};
};

TEST(Events, HaveTheirForm)
{
    const struct {
        std::u16string_view events;
        const char* xml;
        bool format = false;
        EOLType eol = EOLType_LF;
    } rows[] = {
        // A prefix is seen by descendants only.
        {u"<r|urn:r <a @n|urn:x=1 @m|urn:x=2 @n=3 <b|urn:x <c|urn:y > > > <d|urn:y 't > >",
         R"(<AA:r xmlns:AA="urn:r"><a xmlns:AB="urn:x" AB:n="1" AB:m="2" n="3"><AB:b>)"
         R"(<AC:c xmlns:AC="urn:y"/></AB:b></a><AB:d xmlns:AB="urn:y">t</AB:d></AA:r>)"},
        {u"+AA|urn:2 +b|urn:1 +Z|URN:3 *urn:d <r|urn:0 <c|urn:1 > >",
         R"(<AB:r xmlns:AB="urn:0" xmlns="urn:d" xmlns:Z="URN:3" xmlns:b="urn:1" xmlns:AA="urn:2">)"
         R"(<b:c/></AB:r>)"},
        // The prefix `xml` is never declared, and stays; an empty one counts for nothing.
        {u"+p|http://www.w3.org/XML/1998/namespace <a @n|http://www.w3.org/XML/1998/namespace=v >",
         R"(<a xml:n="v"/>)"},
        {u"+|urn:x +p|urn:y +|urn:y <r <a|urn:x @n|urn:y=v > >",
         R"(<r><AA:a xmlns:AA="urn:x" xmlns:AB="urn:y" AB:n="v"/></r>)"},
        // Whatever is declared within an element, its end tag says what its start tag said.
        {u"*urn:d <a|urn:d @n|urn:d=v <x > * <b|urn:d *urn:d <c|urn:d 't > 't > >",
         R"(<a xmlns="urn:d" xmlns:AA="urn:d" AA:n="v"><x/><AA:b><c>t</c>t</AA:b></a>)"},
        {u"+p|urn:x <a|urn:x +|urn:x <b|urn:x +q|urn:x <c|urn:x 't > 't > <d|urn:x > >",
         R"(<p:a xmlns:p="urn:x"><AA:b xmlns:AA="urn:x"><q:c>t</q:c>t</AA:b>)"
         R"(<AA:d xmlns:AA="urn:x"/></p:a>)"},
        {u"+p|urn:p <a|urn:x *urn:d +q|urn:q > <a|urn:x >",
         R"(<AA:a xmlns:AA="urn:x" xmlns:p="urn:p"/><AA:a xmlns:AA="urn:x" xmlns:p="urn:p"/>)"},
        {u"*urn:d <a :T|urn:t <b :T|urn:d 0 > <c :T > >",
         R"(<a xmlns="urn:d" xmlns:AA="urn:t"  xmlns:AB="http://www.w3.org/2001/XMLSchema-instance)"
         R"(" AB:type="AA:T"><b AB:type="T" AB:nil="true"/><c AB:type="T"/></a>)"},
        {u"<r <a <b > > <c ' @n= > <d 'x 'y > <e 'x <b > 'y > >",
         "<r>\n\t<a>\n\t\t<b/>\n\t</a>\n\t<c n=\"\"/>\n\t<d>xy</d>\n"
         "\t<e>x\t\t<b/>\ny\t</e>\n</r>\n",
         true},
        {u"^ ?<?p\na<b?> !a<b\n <a @n=v #<s\nx='&'/> / =<b>&amp; <c > >",
         "<?xml version=\"1.0\"?>\r\n<?p\na<b?>\r\n\r\n<!--a&lt;b\r\n-->\r\n<a n=\"v\" \r\n"
         "<s\nx='&'/>\r\n>\r\n<b>&amp;\r\n\t<c/>\r\n</a>\r\n",
         true, EOLType_CRLF},
        {u"^ ?<?p?> !c <a #s / =l <b <c > > >",
         "<?xml version=\"1.0\"?>\n<?p?>\n\n<!--c-->\n<a \ns\n>l<b><c/></b></a>"},
        // Only a text that begins with the marker is CDATA; a text ends at its first NUL.
        {u"<a @n=<![CDATA[ '<![CDATA[<&>\r\n]]>\"<& 'x<![CDATA[y]]> '<![CDATA >",
         "<a n=\"&lt;![CDATA[\"><![CDATA[<&>\r\n]]>\"<&x&lt;![CDATA[y]]&gt;&lt;![CDATA</a>"},
        {u"<a @n=1<\0<2 '3&\0&4 >"sv, "<a n=\"1&lt;\">3&amp;</a>"}};
    for (const auto& row : rows) {
        SScript script;
        script.writer.SetFormat(row.format);
        script.writer.SetEOLType(row.eol);
        script.Write(row.events);
        EXPECT_EQ(U8(script.GetText()), row.xml);
    }
}

TEST(Declaration, NamesTheEncodingOfTheStream)
{
    for (const auto& [encoding, name] : {std::pair(XmlEncoding_UTF16Undeclared, ""),
                                         {XmlEncoding_UTF8, " encoding=\"UTF-8\""},
                                         {XmlEncoding_UTF16, " encoding=\"UTF-16\""}})
        EXPECT_EQ(U8(SScript(encoding).Write(u"^").GetText()),
                  "<?xml version=\"1.0\"" + std::string(name) + "?>\n");
}

TEST(Escaping, IsRightForEveryCodeUnit)
{
    SScript script;
    std::map<char16_t, std::u16string> escapes = {
        {u'\r', u""}, {u'"', u"&quot;"}, {u'&', u"&amp;"}, {u'<', u"&lt;"}, {u'>', u"&gt;"}};
    for (const EOLType eol : {EOLType_CRLF, EOLType_LF}) {
        script.writer.SetEOLType(eol);
        escapes[u'\n'] = eol == EOLType_CRLF ? u"\r\n" : u"\n";
        for (char16_t unit = 1; unit != 0; ++unit) {
            const std::u16string data = {u'x', unit, unit, u'y'};
            const std::u16string one = escapes.contains(unit) ? escapes[unit] : data.substr(1, 1);
            const std::u16string value = unit == u'\n' ? u"&#xA;" : one;
            script.Open();
            script.Write(u"<a");
            script.writer.WriteAttribute(u"n", u"", data, ItemType_string);
            script.writer.WriteText(data, ItemType_string);
            script.Write(u">");
            ASSERT_EQ(script.GetText(),
                      u"<a n=\"x" + value + value + u"y\">x" + one + one + u"y</a>");
        }
    }
}

TEST(Prefixes, GoOnWithThreeLetters)
{
    SScript script;
    script.Write(u"<a");
    for (int i = 0; i < 678; ++i)
        script.Write(u"@n|urn:" + ToUtf16(std::to_string(i)) + u"=");
    const std::string xml = U8(script.GetText());
    for (const char* const part :
         {" xmlns:AZ=\"urn:25\"", " xmlns:BA=\"urn:26\"",
          " xmlns:ZZ=\"urn:675\" ZZ:n=\"\" xmlns:AAA=\"urn:676\" AAA:n=\"\" xmlns:AAB="})
        EXPECT_NE(xml.find(part), std::string::npos) << part;
}

TEST(Misplaced, FailsAndWritesNothing)
{
    for (const auto* const before : {u"<a 'x", u"<a <b >", u"<a /", u"", u"<a >"}) {
        SScript script;
        script.Write(before);
        const std::string written = U8(script.GetText());
        for (const auto* const late : {u"@n|urn:x=v", u":T|urn:x", u"0"})
            EXPECT_EQ(MessageOf([&] { script.Write(late); }),
                      "Attributes must be added before elements");
        EXPECT_EQ(U8(script.GetText()), written);
    }
    SScript script;
    for (const auto* const outside : {u"'x", u">"})
        EXPECT_THROW(script.Write(outside), CZqInvalidStateException);
    EXPECT_EQ(MessageOf([&] { script.writer.SetEOLType(static_cast<EOLType>(2)); }),
              "Invalid EOL type.");
    script.Write(u"!c");
    EXPECT_EQ(U8(script.GetText()), "<!--c-->\n");
}

TEST(Close, ReportsAnOpenElementAfterTheStreamWasClosed)
{
    SScript script;
    script.Write(u"<a");
    EXPECT_EQ(MessageOf([&] { script.writer.Close(); }), "An Element has not been closed.");
    EXPECT_EQ(script.calls, "Close2");
    script.Write(u"'x >");
    EXPECT_NO_THROW(script.writer.Close());
}

TEST(Flush, ComesWith4096PendingCodeUnits)
{
    for (const auto* const event :
         {u"^", u"!x", u"?x", u"#x", u"<b", u"@n=v", u":T", u"0", u"'x", u">", u"/", u"=x"}) {
        for (std::size_t blanks = 3990; blanks < 4100; ++blanks) {
            SScript script;
            script.Write(u"<a").WriteString(std::u16string(blanks, u' '));
            const std::uint32_t length = script.Write(event).GetPendingLength();
            const bool isFull = length >= 4096 && *event != u'/' && *event != u'=';
            EXPECT_EQ(script.calls, isFull ? "Flush" + std::to_string(length) : "") << U8(event);
        }
    }
}

TEST(Buffer, GivesBackWhatCameSinceItWasEmptied)
{
    // Without a period that blocks or pieces could share.
    std::u16string all(30'000, u'\0');
    std::iota(all.begin(), all.end(), u'\1');
    for (const std::size_t length : {0, 1, 4094, 4095, 4096, 8190, 8191})
        for (const std::size_t piece : {1, 1001, 4095, 10000}) {
            CStringBuffer buffer;
            // In the second round the blocks stay as they came until the buffer is emptied.
            for (const bool isRead : {true, false, true, false, true}) {
                std::size_t size = 0;
                for (const std::size_t end : {length, length + 1, length + 4096}) {
                    for (; size < end; size = std::min(end, size + piece))
                        buffer.Append(all.substr(size, std::min(piece, end - size)));
                    EXPECT_EQ(buffer.GetPendingLength(), end);
                    EXPECT_TRUE(!isRead || buffer.GetText() == all.substr(0, end));
                }
                piece == 1001 ? buffer.Clear() : buffer.Reset();
                EXPECT_EQ(buffer.GetText(), std::u16string());
            }
        }
}

TEST(Buffer, RefusesWhatIsBeyondItsLimit)
{
    CStringBuffer buffer;
    buffer.Append(u"ab");
    // Never read: the length alone is too much.
    const std::u16string_view tooLong(buffer.GetText(), 0xFFFF'FFFE);
    EXPECT_THROW(buffer.Append(tooLong), CZqOverFlowException);
    EXPECT_EQ(buffer.GetText(), std::u16string(u"ab"));
}

}  // namespace
}  // namespace ZqXmlLib9
