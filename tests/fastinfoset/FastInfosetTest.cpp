// Fast Infoset: values as octets, documents of other writers and damaged ones, events as octets,
// and that writer and reader count in step.

#include "support/EventScript.h"

#include <ZqXmlLib9/ZqXmlLib9.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <set>
#include <sstream>

namespace ZqXmlLib9 {
namespace {

/// The rows `left = right` of a table, which end at ";;" or at the end of a line.
std::vector<std::pair<std::string, std::string>> Rows(const std::string& table)
{
    static const std::regex row(" *(.*?) = (.*?) *(;;|\n)");
    std::vector<std::pair<std::string, std::string>> rows;
    for (std::sregex_iterator it(table.begin(), table.end(), row), end; it != end; ++it)
        rows.emplace_back((*it)[1], (*it)[2]);
    return rows;
}

/// Octets of hexadecimal digits and, in single quotes, of ASCII; blanks say nothing.
std::string Octets(std::string_view spelled)
{
    std::string octets;
    for (std::size_t i = 0; i < spelled.size(); ++i) {
        if (spelled[i] == '\'')
            while (spelled[++i] != '\'')
                octets += spelled[i];
        else if (spelled[i] != ' ')
            octets +=
                static_cast<char>(std::stoi(std::string(spelled.substr(i++, 2)), nullptr, 16));
    }
    return octets;
}

std::string Hex(std::string_view octets)
{
    return U8(CBinaryData(Bytes(octets)).GetAsHexString());
}

/// The document as text without a header, or the message.
std::string Read(std::string_view octets, const CXmlSerializationContext& context = {})
{
    return TextOrMessage([&] {
        const CSmartPtr<CElement> element = new CElement(u"");
        element->FromXmlStream(Bytes(octets), context);
        return U8(element->ToXml(false, false));
    });
}

// Algorithm and octets, and their text or the message.
const std::string kBothWays = R"(
    1:00FF = 00FF ;; 2:4D616E = TWFu ;; 3:012C = 300 ;; 3:8000 = -32768 ;; 4:FFFFFFFF = -1
    4:7FFFFFFF = 2147483647 ;; 5:8000000000000000 = -9223372036854775808
    6:38 = true ;; 6:30 = false ;; 7:3FC00000 = 1.5 ;; 7:FF800000 = -INF ;; 8:3FF8000000000000 = 1.5
    9:000102030405060708090A0B0C0D0E0F = 000102030405060708090A0B0C0D0E0F
)";
const std::string kRead = R"(
    3:00010002 = 1 2 ;; 4:00010002 = 65538 ;; 6:4F = ;; 6:FF = ;; 6:BFFF = true
    3:000000 = Invalid value for SHORT byte encoding.
    4:0000000000 = Invalid value for INT byte encoding.
    5:000000000000000000000000 = Invalid value for LONG byte encoding.
    7:00 = Invalid value for FLOAT byte encoding. ;; 8:00 = Invalid value for DOUBLE byte encoding.
    9:00 = Invalid value for UUID byte encoding.
    0:41 = Unknown byte encoding. ;; 10:41 = Unknown byte encoding.
)";
const std::string kWritten = "1:AB = ab ;; 9:0A = 0a ;; 10:E282ACF09F9880 = \u20AC\U0001F600\n";
const std::string kMisfits = R"(
    1: = A ;; 3: = 32768 ;; 4: = 1 2 ;; 5: = 9223372036854775808 ;; 6: = true false ;; 7: = x
    9: = 0-1 ;; 11: = 1 ;; 0: = 1
)";

TEST(Algorithms, GoBothWays)
{
    CFastInfosetBinaryData data;
    EXPECT_EQ(data.GetAsString(0), u"") << "without octets nothing is unknown";
    const auto split = [](const std::string& left) {
        const std::size_t colon = left.find(':');
        return std::pair(std::uint32_t(std::stoi(left)), left.substr(colon + 1));
    };
    for (const auto& [left, text] : Rows(kBothWays + kRead)) {
        data.SetAsHexString(ToUtf16(split(left).second).c_str());
        const auto read = [&, l = left] { return U8(data.GetAsString(split(l).first)); };
        EXPECT_EQ(TextOrMessage(read), text) << left;
    }
    for (const auto& [left, text] : Rows(kBothWays + kWritten + kMisfits)) {
        data.SetAsHexString(u"00");
        const std::string failure = TextOrMessage([&, l = left, t = text] {
            data.SetAsEncodedString(split(l).first, ToUtf16(t));
            return std::string();
        });
        EXPECT_NE(failure.empty(), split(left).second.empty()) << left << text;
        EXPECT_EQ(Hex(OctetsOf(data)), split(left).second) << left << text;
    }
}

std::string Whole(std::string_view spelled)
{
    return Octets("E0 00 00 01") + Octets(spelled);
}

// Documents behind the magic, most of them one for each form of ITU-T X.891, and their XML.
const std::string kDocuments = R"(
    003C03'root'FF = <root/> ;; 007C0072780061407878006280FFF0 = <r a='x' b='x'/>
    003C016162FF = <ab/> ;; 007C00727800610800'123456789'FFF0 = <r a='123456789'/>
    003C00723C0065F001F03C80FFF0 = <r><e/><e/><r/></r>
    007C007278006102'one'78006242'two'78006380FFF0 = <r a='one' b='two' c='two'/>
    007C0072780061FFFFF0 = <r a=''/> ;; 003C007281'ab'9200'cde'A0FF = <r>abcdecde</r>
    007C00727800611120ACF08500E9FF = <r a='€'>é</r>
    007C00727800612001B3C5F08801A12FFF = <r a='+3.5'>-12</r>
    003C007288060010B00DFF = <r>10:00Z</r> ;; 007C00727800613000BEF08C015AF0FF = <r a='BE'>5AF0</r>
    003C00728C0600'Man'FF = <r>TWFu</r> ;; 003C00728C0A010001FFFEFF = <r>1 -2</r>
    007C007278006130370000000100000100F08C0E01FFFFFFFFFF = <r a='1 256'>-1</r>
    003C00728C157980FF = <r>true false false true true</r>
    003C00728C12050000000100000000FF = <r>4294967296</r>
    003C00728C1E05C000000000000000FF = <r>-2</r>
    003C00728C220D000102030405060708090A0B0C0D0E0FFF = <r>000102030405060708090A0B0C0D0E0F</r>
    003C00728C2600'a<b'FF = <r>a&lt;b</r>
    0078CF00700075F03F818100727B8181006B0076F000FFF0 = <p:r xmlns:p='u' p:k='v'><p:r/></p:r>
    007C00727B808003'lang'01'en'FFF0 = <r xml:lang='en'/>
    0038CD0075F03D81007238CCF03C0065FFF0 = <r xmlns='u'><e xmlns=''/></r>
    0038CF00700075F03F8181007238CF810076F03F81820065FFF0 = <p:r xmlns:p='u'><p:e xmlns:p='v'/></p:r>
    0038CF00700075F03C007238CE81F03C0065FFF0 = <r><e/></r>
    003C00727C00657800610031FF41000032FFFF = <r><e a='1'/><e a='2'/></r>
    003C00613C00627C006378006B0076FFFFF0 = <a><b><c k='v'/></b></a>
    003C00613C00623C0063FF02FFF0 = <a><b><c/></b><c/></a> ;; 003C0061F03C0062'trailing' = <a/>
    00E100740064E200633C0072E180FFE2FFFF = <r/> ;; 003C00728061E200638062FF = <r>ab</r>
    003C00728078CA00650073FF = <r>x</r> ;; 00C700730070F03C0072FF = <r/>
    5F000075010102C3006E00730070F0D100650074007180F004'UTF-8'0102'1.0'3C0072FF = <r/>
    12C2006E0073F0003C0072FF = <r/> ;; 08D000650073006EF03C0072FF = <r/>
    200060000074000073C680F0E18000643C0072FF = <r/> ;; 2004000004'urn:x'3C0072FF = <r/>
    20038200007000007500007200030101003C0072FF = <r/>
    007C007278006140C078006280F08080906281C328A0FF = <r a='' b=''>bb</r>
    007C0072780061010D0AF08200'a'0D0AFF = <r a='&#13;&#10;'>a&#10;</r> ;; 00C0D5EF3C0072FF = <r/>
)";

// The rest of a message, and the documents that are refused with it.
const std::string kRefused = R"(
    Unknown restricted alphabet [16]. = 2008000003'abcd'3C0072883D60FFFF
    Unknown restricted alphabet [3]. = 007C0072780061202000
    The index 1 is beyond its table. = 2000800000723C80FF
    The index 1 is beyond its table. = 20008B01007200610001'hi'00000000000140000076F0A0FF
    The index 1 is beyond its table. = 200014000076000073E2807C007278006180FFF0 003C00728061A0FF
    The index 1 is beyond its table. = 007C0072000061
    The index 2 is beyond its table. = 200382000070000075000072000301010038CF8181F000FF
    The index 526369 is beyond its table. = 0030000000
    Invalid Encoding of integers 1 To 2^20 type  on the third bit of an octet. = 003007F7E0 0038F038
    The index 1048576 is beyond its table. = 003007F7DF 003CEFDFBF
    Invalid Encoding of integers 1 To 2^20 type  on the second bit of an octet. = 003CEFDFC0
    Invalid Encoding of integers 1 To 2^20 type  on the second bit of an octet. = 007C007270
    A restricted alphabet has no character of this number. = 003C00728800F1FF 003C007288011F12FF
    Invalid QName type Prefix without Namespace. = 003E00700072FF
    Invalid Encoding of Element type. = 003C0072C0
    Invalid NonEmptyOctetString type  on the second bit of an octet. = 003C41
    Invalid NonEmptyOctetString type  on the fifth bit of an octet. = 007C00727800610D
    Invalid Encoding of integers 1 To 2^20 type  on the fourth bit of an octet. = 003C0072BC
    Invalid Encoding of integers 0 To 2^20 type  on the second bit of an octet. = 007C0072780061F0
    Invalid Encoding of integers 0 To 2^20 type  on the second bit of an octet. = 007C0072780061C0
    Unexpected End of File. = 003C 003C007283FFFFFFFF61 408FFFFF0075
    Invalid Encoding of a document component. = 4090
)";

TEST(Document, IsTheTreeOfItsXmlOrIsCutOrDamaged)
{
    const std::string head = "Failed to parse FastInfoset. ";
    const std::string
        end = head + "Unexpected End of File.",
        index =
            head + "Invalid Encoding of integers 0 To 2^20 type  on the second bit of an octet.";
    for (const auto& [spelled, xml] : Rows(kDocuments)) {
        const std::string octets = Whole(spelled), tree = Read(xml);
        const std::set<std::string> cuts{tree, end, index};
        EXPECT_EQ(Read(octets), tree) << spelled;
        for (std::size_t length = 5; length < octets.size(); ++length) {
            EXPECT_TRUE(cuts.contains(Read(octets.substr(0, length)))) << spelled << length;
            std::string damaged = octets;
            for (int value = 0; value < 256; ++value) {
                damaged[length] = static_cast<char>(value);
                Read(damaged);
            }
        }
    }
    for (const auto& [message, documents] : Rows(kRefused)) {
        std::istringstream all(documents);
        for (std::string spelled; all >> spelled;)
            EXPECT_EQ(Read(Whole(spelled)), head + message) << spelled;
    }
    EXPECT_EQ(Read(Whole("00 3C 00 72 8C 28 00 FF")), "Unknown byte encoding.");
    EXPECT_EQ(Read(Whole("00 F0")), "Invalid or empty XML document");
}

TEST(Detection, NeedsTheExactDeclarationAndMagic)
{
    const std::string body = Whole("00 3C 00 72 FF");
    const auto isText = [](const std::string& octets) { return Read(octets).ends_with("line 1"); };
    for (const std::string version : {"", " version='1.0'", " version='1.1'"})
        for (const std::string standalone : {"", " standalone='yes'", " standalone='no'"}) {
            const std::string head = "<?xml" + version + " encoding='finf'" + standalone + "?>";
            EXPECT_TRUE(Read(head + body) == "<r/>" && isText(head + "\n" + body));
        }
    const std::string written =
        OctetsOf(CSmartPtr<CElement>(new CElement(u"r"))->ToFastInfosetStream(FInfoDecl_V10));
    EXPECT_TRUE(written.starts_with("<?xml version='1.0' encoding='finf'?>\xE0"));
    EXPECT_TRUE(isText(body.substr(0, 4)) && isText(Octets("E0 00 00 02 00 3C 00 72 FF")));
}

TEST(Limits, HoldAtTheirNumbers)
{
    // 8 MiB of text by indices are free; of short chunks all counts.
    const auto repeat = [](const char* head, std::size_t length, std::size_t count) {
        return Read(Whole(head) + std::string(length, 'x') + std::string(count, '\xA0') + '\xFF');
    };
    const char* const longChunk = "003C0072930000FEFD";
    const std::string refused = "Failed to parse FastInfoset. The document refers to more text "
                                "than 100 times its own size.";
    EXPECT_EQ(repeat(longChunk, 0x10000, 64).size(), 65UL * 0x10000 + sizeof("<r></r>") - 1);
    EXPECT_EQ(repeat(longChunk, 0x10000, 65), refused);
    EXPECT_EQ(repeat("003C0072923D", 64, 100'000), refused);
}

TEST(Limits, LetLongNamespacesOfSmallElementsPass)
{
    const CSmartPtr<CElement> root = new CElement(u"r", std::u16string(220, u'u').c_str());
    for (int i = 0; i < 50'000; ++i)
        root->GetChildElements()->Add(u"c");
    EXPECT_TRUE(Read(OctetsOf(root->ToFastInfosetStream())).ends_with("<AA:c/></AA:r>"));
}

/// What a document of these events comes to, in hexadecimal, or the message.
std::string Write(const std::string& events, const CFastInfosetContext& settings)
{
    CBinaryStream stream;
    CFastInfosetWriter writer(&settings, &stream);
    return TextOrMessage([&] {
        writer.WriteDocumentHeader(FInfoDecl_None);
        WriteEvents(writer, ToUtf16(events), [](auto...) { ADD_FAILURE() << "unknown event"; });
        writer.WriteDocumentEnd();
        writer.Close();
        return Hex(OctetsOf(stream.GetData()));
    });
}

// Events, and octets behind the header. XSI is the namespace of types.
const std::string kPlain = R"(
    <a @b=1 'x > = 78 F0 3C 00 61 78 00 62 40 31 F0 90 78 FF
    *u <a|u @b|u= <a|u > > = 78 CD 00 75 F0 3D 81 00 61 7B 01 'AA' 81 00 62 FF F0 00 FF F0
    +q|b +p|c <a|c @a|b=1 <a|c @k=1 <a|d <b|d > > > > = 78 CF 00 71 00 62 CF 00 70 00 63 F0 3F )"
                           R"(82 82 00 61 7B 81 81 80 40 31 F0 40 78 00 6B 80 F0 3F 01 'AA' 00 64 )"
                           R"(80 3F 83 83 00 62 FF FF F0
    <a <b +p|u *d <c|u <c|d > > > > = 38F0 3C0061 3C0062 3F007000750063 3D006482 FFFFF0
    <a <b > <b > > = 38 F0 3C 00 61 3C 00 62 F0 01 FF F0
    <a <b ' > 'x > = 38 F0 3C 00 61 3C 00 62 F0 90 78 FF
    <a @b= ' ' > = 78 F0 3C 00 61 78 00 62 FF F0 FF
    <a @b=12345 @c=12345 > = 78F03C0061 780062 44'12345' 780063 80 F0FF
    <a @b=123456 @c=123456 > = 78F03C0061 780062 05'123456' 780063 05'123456' F0FF
    <a '12345 '12345 '123456 '123456 > = 38F03C0061 9202'12345'A0 8203'123456' 8203'123456' FF
    <a '<![CDATA[x]]> > = 38 F0 3C 00 61 82 0A '<![CDATA[x]]>' FF
    +t|u <a :T|u > = 78 CF 00 74 00 75 F0 3C 00 61 7B 81 XSI 03 'type' 42 't:T' F0 FF
    *u <a :T|u <a :T > > = 78CD0075F03C0061 7B01'AA'XSI03'type'4054F0 400080F0 FFF0
    <a <b :T|u > > = 38F03C0061 78CF01'AA'0075F03C0062 7B81XSI03'type'43'AA:T'F0 FFF0
)";
const std::string kNothingShort = R"(
    <a @b=1 @c=1 '1 '1 > = 78 F0 3C 00 61 78 00 62 00 31 78 00 63 00 31 F0 80 31 80 31 FF
)";
const std::string kSuggested = R"(
    <a '123#5 '123#5 '-1.5#25 '123 > = 38F03C0061 9C0E01 0000007B A0 9801A1C5 A0 FF
    <a '10:00Z#21 '300#7 '=#2 'TWFu#2 > = 38F03C0061 88060010B00D 9C09012C 90 '=' 9C0600'Man' FF
    <a '1.50#11 '1.50 '1.50#11 > = 38F03C0061 8C1A013FC00000 9201'1.50' A0 FF
    <a @b=1#4 @c=-12#26 0 > = 78F03C0061 78006270210001 7800636001A12F 7B01'AA'XSI02'nil'705038 F0FF
)";
// And what fails under the suggested encodings.
const std::string kFailing = R"(
    <a > <b = A Fast Infoset document has one root
    <a 'P1Y#13 = Failed to write FastInfoset. Invalid character not found for Restricted Alphabet.
    < > = Failed to write FastInfoset. An empty name can not be written.
    > = There is no open element ;; <a = An Element has not been closed.
    <a <b > = An Element has not been closed.
    <a @b=1 :T|u = Failed to write FastInfoset. The namespace [u] of a type has no prefix. )"
                             "Register an alias for it.\n"
                             R"(
)";

TEST(Events, AreTheseOctets)
{
    CFastInfosetContext plain, none, suggested;
    none.SetElementMaxAddLength(0);
    none.SetAttributeMaxAddLength(0);
    suggested.SetSuggestedValues();
    for (const auto& [rows, settings] :
         {std::pair(kPlain, &plain), {kNothingShort, &none}, {kSuggested, &suggested}})
        for (const auto& [events, octets] : Rows(rows)) {
            const std::string xsi = "28 'http://www.w3.org/2001/XMLSchema-instance'";
            EXPECT_EQ(
                Write(events, *settings),
                Hex(Octets("E000000100" + std::regex_replace(octets, std::regex("XSI"), xsi))))
                << events;
        }
    for (const auto& [events, message] : Rows(kFailing))
        EXPECT_EQ(Write(events, suggested), message) << events;
    for (const auto* const late : {"<a 'x @b=1", "<a 'x :T|u", "<a 'x 0", "<a ? @b=1"})
        EXPECT_EQ(Write(late, suggested), "Attributes must be added before elements") << late;
    const auto refused = [&](std::uint32_t kind, std::uint32_t index, const char* message) {
        plain.SetEncoding(ItemType_i4, {kind, index});
        const std::string head = std::string("Failed to write FastInfoset. ") + message;
        EXPECT_EQ(Write("<a '1#5", plain), head + (kind == 3 ? "7." : ""));
        EXPECT_EQ(Write("<a @b=1#5", plain), head + (kind == 3 ? "5." : ""));
    };
    refused(1, 0, "Invalid Restricted Alphabet value [0]");
    refused(1, 3, "Invalid Restricted Alphabet value [3]");
    refused(2, 0, "Invalid Encoding Algorithm value [0]");
    refused(2, 11, "Invalid Encoding Algorithm value [11]");
    refused(3, 1, "Unknown encoding in EncodedCharacterStringBit");
}

// What repeats a child of the root whose name, namespace, attribute, value and text are the first
// ones with an index: the indices of the element, the attribute, its value, and the text.
const std::string kRepeated = R"(
    16 = 4F0F8FF0AF ;; 17 = 501090F0B000 ;; 32 = 5F1F9FF0B00F ;; 33 = 600020A0F0B010
    64 = 601F3FBFF0B02F ;; 65 = 60204000C000F0B030 ;; 1040 = 63EF43CFC3CFF0B3FF
    1041 = 63F043D0C3D0F0B40000 ;; 2080 = 67FF47DFC7DFF0B4040F ;; 2081 = 68000047E0C7E0F0B40410
    8256 = 68181F5FFFDFFFF0B41C2F ;; 8257 = 681820600000E00000F0B41C30
)";

TEST(Indices, AreTheSameOnBothSides)
{
    std::string events, xml = "<i1 xmlns='i1'>", octets;
    const auto fill = [](const char* form, const std::string& item) {
        return std::regex_replace(form, std::regex("X"), "i" + item);
    };
    const auto add = [&](const std::string& item) {
        events += fill("<X|X @X|X=X 'X > ", item);
        xml += fill("<X xmlns='X' xmlns:p='X' p:X='X'>X</X>", item);
    };
    for (int i = 1; i <= 8257; ++i)
        events += fill("+pX|X ", std::to_string(i));
    events += "<i1|i1 ";
    for (int i = 1; i <= 8257; ++i)
        add(std::to_string(i));
    for (const auto& [index, repeated] : Rows(kRepeated)) {
        add(index);
        octets += "F0" + repeated;
    }
    const std::string written = Write(events + ">", {});
    EXPECT_TRUE(written.ends_with(Hex(Octets(octets + "FFF0"))));
    EXPECT_TRUE(Read(Octets(written)) == Read(xml + "</i1>"));
}

// The head of a name N, a value V and a text T of a length.
const std::string kLengths = R"(
    1 = 00N40V90T ;; 2 = 01N41V91T ;; 3 = 02N42V9200T ;; 8 = 07N07V8205T ;; 9 = 08N0800V8206T
    64 = 3FN0837V823DT ;; 65 = 4000N0838V823ET ;; 258 = 40C1N08F9V82FFT
    259 = 40C2N08FAV8300000000T ;; 264 = 40C7N08FFV8300000005T ;; 265 = 40C8N0C00000000V8300000006T
    320 = 40FFN0C00000037V830000003DT ;; 321 = 6000000000N0C00000038V830000003ET
    70000 = 600001102FN0C00011067V830001106DT
)";

TEST(Lengths, HaveTheirFormsAndComeBack)
{
    for (auto [length, octets] : Rows(kLengths)) {
        const std::string text(std::stoul(length), 'x');
        for (const auto& [letter, behind] : {std::pair("N", "780061"), {"V", "F0"}, {"T", "FF"}})
            octets = std::regex_replace(octets, std::regex(letter), "'" + text + "'" + behind);
        octets = Hex(Octets("E0 00 00 01 00 78 F0 3C" + octets));
        EXPECT_TRUE(Write("<" + text + " @a=" + text + " '" + text + " >", {}) == octets) << length;
        EXPECT_EQ(Read(Octets(octets)),
                  "<" + text + " a=\"" + text + "\">" + text + "</" + text + ">");
    }
}

TEST(GeneratedVocabulary, IsSharedAndStaysAsItIs)
{
    CXmlSerializationContext context;
    CFastInfosetContext& settings = context.GetFIContext();
    settings.SetUseGeneratedVocabulary(true);
    EXPECT_EQ(Write("<a >", settings),
              Hex(Octets("E0 00 00 01 20 10 00 17 'urn:zqxmllib9:vocabulary' 38 F0 3C 00 61 FF")));
    settings.SetExternalVocabularyURI(u"u");
    for (int i = 0; i < 2; ++i)  // without effect the second time
        settings.GetVocabulary()->AddElement(u"", u"", u"r");
    settings.GetVocabulary()->AddAttribute(u"AA", u"n", u"r");
    settings.GetVocabulary()->AddAttributeValue(u"v");
    settings.GetVocabulary()->AddElementValue(u"t");
    for (int i = 0; i < 2; ++i) {
        const std::string octets = Write("<r @r|n=v @new=new 't >", settings);
        EXPECT_EQ(octets, Hex(Octets("E0 00 00 01 20 10 00 00 75 78 F0 00 00 80 78 02 'new' 42 "
                                     "'new' F0 A0 FF")));
        EXPECT_EQ(Read(Octets(octets), context), Read("<r xmlns:n='n' n:r='v' new='new'>t</r>"));
        EXPECT_EQ(Read(Octets(octets)),
                  "Failed to parse FastInfoset. The index 1 is beyond its table.");
    }
}

TEST(Types, AreFoundByPrefixesThatNobodyRegistered)
{
    struct CTypeOf : CClassfactoryBase {
        using CClassfactoryBase::GetElementTypeNamespaceUri;
    };
    // Siblings, each named as the namespace of its type; 0 has a prefix that nothing declares.
    const std::string octets = Octets(
        Write("<r|0 <u1|x :T|u1 > <0|x :T|0 > <u2|x :T|u2 <u1|x :T|u1 > > <u1|x :T|u1 > >", {}));
    CXmlDocument document;
    document.LoadXmlStream(Bytes(octets));
    const CXmlElement* e = document.GetDocumentElement()->GetFirstElement();
    for (; e != nullptr; e = e->GetNextSiblingElement())
        EXPECT_EQ(U8(CTypeOf::GetElementTypeNamespaceUri(e)), U8(e->GetLocalName()));
}

}  // namespace
}  // namespace ZqXmlLib9
