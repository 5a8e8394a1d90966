// The ways from octets to a tree: texts, memory blocks, and files whole and in chunks; UTF-8 and
// UTF-16; and characters that stand where a chunk or a buffer of the parser ends.

#include "support/Print.h"
#include "support/TempFile.h"

#include <ZqXmlLib9/xml/XmlDocument.h>
#include <ZqXmlLib9/xml/XmlElement.h>

#include <gtest/gtest.h>

#include <regex>
#include <sys/stat.h>

namespace ZqXmlLib9 {
namespace {

namespace fs = std::filesystem;
using namespace std::literals;

constexpr std::size_t kChunk = 0x20000;

/// The text of the root that a load leaves, or the message of its failure.
template <typename TLoad>
std::string Outcome(CXmlDocument& document, TLoad load)
{
    return TextOrMessage([&] {
        load();
        return U8(document.GetDocumentElement()->GetText());
    });
}

std::string LoadFile(CXmlDocument& document, const std::u16string& path, bool inChunks)
{
    AsyncFromXmlFile(inChunks);
    return Outcome(document, [&] { document.Load(path.c_str()); });
}

/// The roads that octets may take; a text has none that are 0.
enum ERoad { Text, Block, Whole, Chunks };

std::string Load(CXmlDocument& document, ERoad road, const std::string& octets)
{
    if (road == Text)
        return Outcome(document, [&] { document.LoadXml(octets.c_str()); });
    if (road == Block)
        return Outcome(document, [&] { document.LoadXmlStream(Bytes(octets)); });
    return LoadFile(document, CTempFile(octets).GetName(), road == Chunks);
}

template <bool isBigEndian>
std::string Utf16(std::u16string_view text)
{
    std::string octets;
    for (const char16_t unit : text)
        for (const int shift : {isBigEndian ? 8 : 0, isBigEndian ? 0 : 8})
            octets += static_cast<char>(unit >> shift);
    return octets;
}

/// Entities that each stand for some of the one before, and the last of them in a root.
std::string Entities(int levels, int width)
{
    std::string xml = "<!DOCTYPE a [<!ENTITY e0 'x'>";
    for (int level = 1; level <= levels; ++level) {
        xml += "<!ENTITY e" + std::to_string(level) + " '";
        for (int i = 0; i < width; ++i)
            xml += "&e" + std::to_string(level - 1) + ";";
        xml += "'>";
    }
    return xml + "]><a>&e" + std::to_string(levels) + ";</a>";
}

TEST(Octets, HaveOneOutcomeOnEveryRoad)
{
    const std::pair<std::string, std::string> rows[] = {
        {"<a>\xC3\xA9\xF0\x9F\x98\x80</a>", "\xC3\xA9\xF0\x9F\x98\x80"},
        {"<a>\n\n<</a>", "not well-formed (invalid token) at line 3"},
        {"<a>\n\n", "no element found at line 3"},
        {"<a>\n<p:b/></a>", "unbound prefix at line 2"},
        // The bar stands between URI and name inside the parser, and in no URI (RFC 3986).
        {"<a xmlns='urn:x|y'/>", "syntax error at line 1"},
        {Entities(9, 10),
         "limit on input amplification factor (from DTD and entities) breached at line 1"},
        {Entities(1024, 1), "x"},
        {Entities(1025, 1), "The document is nested deeper than 1024 levels"}};
    CXmlDocument document;
    for (const auto& [octets, outcome] : rows)
        for (const ERoad road : {Text, Block, Whole, Chunks})
            EXPECT_EQ(Load(document, road, octets), outcome) << road << ": " << octets;
}

TEST(Utf16, IsReadInBothOrders)
{
    const std::string invalid = "not well-formed (invalid token) at line ";
    CXmlDocument document;
    for (const auto& [text, outcome] :
         {std::pair(u"\xFEFF<a>\u00E9\U0001F600</a>"sv, "\xC3\xA9\xF0\x9F\x98\x80"s),
          {u"<a>x</a>", "x"},
          {u"\n<a>x</a>", "x"},
          {u"\xFEFF\xFEFF<a/>", invalid + "1"},
          {u"\xFEFF<\0a\0/\0>\0"sv, invalid + "1"},
          {u"<a>\n\n\xD800 </a>", invalid + "3"},
          {u"<a>\r\r\n\n\xDC00</a>", invalid + "4"},
          {u"<a>\n\xD83D", "partial character at line 2"},
          {u"<a/>\xD800", "partial character at line 1"},
          {u"<?xml version='1.0' encoding='utf-16'?><a>\u00E9</a>", "\xC3\xA9"},
          {u"<?xml version='1.0' encoding='UTF-8'?><a/>", "incorrect encoding at line 1"},
          {u"<?xml version='1.0' encoding='FOO'?><a/>", "unknown encoding at line 1"}})
        for (const std::string& octets : {Utf16<false>(text), Utf16<true>(text)})
            for (const ERoad road : {Block, Whole, Chunks})
                EXPECT_EQ(Load(document, road, octets), outcome) << U8(text);
    for (const auto& [text, outcome] :
         {std::pair(u"<?xml version='1.0' encoding='UTF-16'?><a>\U0001F600</a>",
                    "\xF0\x9F\x98\x80"s),
          {u"<?xml version='1.0' encoding='UTF-8'?><a/>", "incorrect encoding at line 1"},
          {u"<a n='\xD800 x'/>", invalid + "1"}})
        EXPECT_EQ(Outcome(document, [&, &t = text] { document.LoadXml(t); }), outcome);
    // The half pair is the end of the first chunk, and the last one is empty.
    const std::u16string fill(kChunk / 2 - 8, u'x');
    EXPECT_EQ(Load(document, Chunks, Utf16<false>(u"<a>" + fill + u"</a>\xD83D")),
              "partial character at line 1");
}

/// The pools of Expat begin with 1024 characters. Version 2.5.0 halves a pair that stands astride
/// the end of one, last in its run. So the library feeds it UTF-8, and refuses what is still
/// cut: the value of an attribute that refers to an entity.
TEST(Pairs, StayWholeAroundTheEndOfAPool)
{
    const std::string cut = " can not be read, the parser cut a character";
    CXmlDocument document;
    for (const auto& [head, tail, refused] :
         {std::tuple("<a>", "</a>", ""s),
          {"<a n='", "'/>", ""},
          {"<!DOCTYPE a [<!ATTLIST a n CDATA '", "'>]><a/>", ""},
          {"<!DOCTYPE a [<!ENTITY e '", "'>]><a>&e;</a>", ""},
          {"<!DOCTYPE a [<!ENTITY e '", "'>]><a n='&e;'/>", "The value of the attribute [n]" + cut},
          {"<!DOCTYPE a [<!ENTITY e '", "'>]><a xmlns='&e;'/>",
           "The namespace of the prefix []" + cut}})
        // What stands in a pool in front of the value is shorter than 14 characters.
        for (std::size_t before = 1005; before < 1027; ++before)
            for (const auto* end : {"\U0001F600", "\U0001F600\U0001F600", "\U0001F600y"}) {
                const std::string value = std::string(before, 'x') + end, xml = head + value + tail;
                const auto load = [&](const auto& text) {
                    return TextOrMessage([&] {
                        document.LoadXml(text.c_str());
                        const CXmlElement& root = *document.GetDocumentElement();
                        return U8(root.GetAttribute(u"n", u"") + root.GetText()
                                  + root.GetNamespaceURI());
                    });
                };
                for (const std::string& seen : {load(xml), load(ToUtf16(xml))})
                    EXPECT_TRUE(seen == value || (seen == refused && !refused.empty())) << seen;
            }
}

TEST(Entities, OfPredefinedOnesAreNotNested)
{
    std::string xml = "<!DOCTYPE a [";
    for (int i = 0; i < 1100; ++i)
        xml += "<!ENTITY e" + std::to_string(i) + " 'A &#38;amp; B'>";
    CXmlDocument document;
    EXPECT_EQ(Load(document, Text, xml + "]><a>&e7;</a>"), "A & B");
}

TEST(Block, IsRefusedWithoutOctetsAndWith4GiB)
{
    CXmlDocument document;
    EXPECT_EQ(Load(document, Text, ""), "XML String is empty!");
    const char16_t* const none = nullptr;
    EXPECT_EQ(Outcome(document, [&] { document.LoadXml(none); }), "XML String is empty!");
    EXPECT_EQ(Load(document, Block, ""), "XML Stream is empty!");
    EXPECT_EQ(Load(document, Whole, ""), "no element found at line 1");
    EXPECT_EQ(Load(document, Chunks, ""), "no element found at line 1");
    // Never read: the length alone is too much.
    const std::byte octet{};
    EXPECT_THROW(document.LoadXmlStream({&octet, std::size_t{1} << 32}), CZqOverFlowException);
}

TEST(File, MayBeCutAtEveryOctet)
{
    using TEncode = std::string (*)(std::u16string_view);
    const std::tuple<TEncode, std::size_t, std::u16string, std::string> rows[] = {
        {ToUtf8, 1, u"</a>", ""},
        {ToUtf8, 1, u"\U0001F600</a>", "\xF0\x9F\x98\x80"},
        {Utf16<true>, 2, u"\U0001F600</a>", "\xF0\x9F\x98\x80"},
        {ToUtf8, 1, u"\r\n\r</a>", "\n\n"}};
    std::string lines;
    for (int i = 0; lines.size() < 3 * kChunk; ++i)
        lines += "line " + std::to_string(i) + "\n";
    CXmlDocument document;
    for (const auto& [encode, unitSize, tail, text] : rows) {
        const std::size_t head = encode(u"\xFEFF<a>").size();
        for (std::size_t before = 0; before <= encode(tail).size(); before += unitSize) {
            for (const std::size_t cut : {kChunk, 3 * kChunk}) {
                const std::string fill = lines.substr(0, (cut - before - head) / unitSize);
                const std::string xml = encode(u"\xFEFF<a>" + ToUtf16(fill) + tail);
                for (const ERoad road : {Whole, Chunks})
                    EXPECT_TRUE(Load(document, road, xml) == fill + text) << U8(tail) << before;
            }
        }
    }
}

TEST(LaterChunk, FailsWithTheLineOfTheFileAndLeavesNothing)
{
    // The last line is in the third chunk.
    std::string xml = "<a xmlns:p='urn:x'><first/>\n";
    for (int line = 2; line < 50'000; ++line)
        xml += "a line\n";
    CXmlDocument document;
    EXPECT_EQ(Load(document, Chunks, "<a><!--" + std::string(9 * kChunk, 'c') + "-->x</a>"), "x");
    EXPECT_EQ(Load(document, Chunks, xml + "</b>"), "mismatched tag at line 50000");
    EXPECT_EQ(document.GetDocumentElement(), nullptr);
    EXPECT_EQ(U8(document.LookupNamespaceFromAlias(u"p")), "");
}

TEST(FileName, LeadsToTheDocumentOrToItsFailure)
{
    using TMake = void (*)(const fs::path&);
    const std::string open = "Failed to open the file [%] Error [0x000000";
    const std::string size = "Failed to get the size of the file [%] Error [0x000000";
    const std::tuple<TMake, std::string, std::string> rows[] = {
        {[](const fs::path& path) { std::ofstream(path) << "<a>x</a>"; }, "x", "x"},
        {[](const fs::path&) {}, open + "02]", open + "02]"},
        {[](const fs::path& path) { fs::create_directory(path); }, open + "15]", open + "15]"},
        {[](const fs::path& path) { ::mkfifo(path.c_str(), 0600); }, size + "1d]", open + "1d]"},
        {[](const fs::path& path) { std::ofstream(path).seekp(0xFFFF'FFFF).put('x'); },
         size + "1b]", "not well-formed (invalid token) at line 1"}};
    const fs::path path = CTempFile("").GetName() + u" gr\u00F6\u00DFe \u65E5\u672C \U0001F600";
    CXmlDocument document;
    for (const auto& [make, whole, chunks] : rows) {
        make(path);
        for (const bool inChunks : {false, true}) {
            document.LoadXml("<a/>");
            const std::string outcome =
                std::regex_replace(inChunks ? chunks : whole, std::regex("%"), path.string());
            EXPECT_EQ(LoadFile(document, path.u16string(), inChunks), outcome);
            EXPECT_EQ(document.GetDocumentElement() == nullptr, outcome != "x");
        }
        fs::remove(path);
    }
    EXPECT_EQ(LoadFile(document, u"half a pair \xD800", false),
              "Failed to open the file [half a pair \xEF\xBF\xBD] Error [0x00000054]");
}

}  // namespace
}  // namespace ZqXmlLib9
