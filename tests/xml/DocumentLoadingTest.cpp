// The ways from octets to a tree: texts, memory blocks, and files whole and in chunks.

#include "support/Print.h"
#include "support/TempFile.h"

#include <ZqXmlLib9/xml/XmlDocument.h>
#include <ZqXmlLib9/xml/XmlElement.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <span>
#include <string>
#include <sys/stat.h>

namespace ZqXmlLib9 {
namespace {

constexpr std::size_t kChunk = 0x20000;

void LoadWhole(CXmlDocument& document, const std::u16string& path)
{
    document.Load(path.c_str());
}

void LoadChunks(CXmlDocument& document, const std::u16string& path)
{
    struct SGuard {
        SGuard() { AsyncFromXmlFile(true); }
        ~SGuard() { AsyncFromXmlFile(false); }
    } const guard;
    document.Load(path.c_str());
}

struct SRoad {
    const char* name;
    void (*load)(CXmlDocument&, const std::string& octets);
};

/// The first one takes no octets that are 0.
const SRoad kRoads[] = {
    {"text", [](CXmlDocument& d, const std::string& o) { d.LoadXml(o.c_str()); }},
    {"octets",
     [](CXmlDocument& d, const std::string& o) { d.LoadXmlStream(std::as_bytes(std::span(o))); }},
    {"whole", [](CXmlDocument& d, const std::string& o) { LoadWhole(d, CTempFile(o).GetName()); }},
    {"chunks",
     [](CXmlDocument& d, const std::string& o) { LoadChunks(d, CTempFile(o).GetName()); }},
};

std::string RootText(const CXmlDocument& document)
{
    const CXmlElement* const root = document.GetDocumentElement();
    return root != nullptr ? U8(root->GetText()) : "no root";
}

auto CountDescriptors()
{
    return std::ranges::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                                 std::filesystem::directory_iterator());
}

std::string Utf16LE(std::u16string_view text)
{
    std::string octets;
    for (const char16_t unit : text)
        octets += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    return octets;
}

std::string Utf16BE(std::u16string_view text)
{
    std::string octets = Utf16LE(text);
    for (std::size_t i = 0; i < octets.size(); i += 2)
        std::swap(octets[i], octets[i + 1]);
    return octets;
}

/// Entities that each stand for ten of the one before.
std::string BillionLaughs(const std::string& root)
{
    std::string xml = "<!DOCTYPE a [<!ENTITY e0 'ha'>";
    for (char level = '1'; level <= '9'; ++level) {
        xml += std::string("<!ENTITY e") + level + " '";
        for (int i = 0; i < 10; ++i)
            xml += std::string("&e") + static_cast<char>(level - 1) + ";";
        xml += "'>";
    }
    return xml + "]>" + root;
}

struct SOctets {
    const char* name;
    std::string octets;
    const char* outcome;  ///< the text of the root, or the message of the failure
};

class Octets : public testing::TestWithParam<SOctets> {};

TEST_P(Octets, HaveOneOutcomeOnEveryRoad)
{
    CXmlDocument document;
    const bool hasNul = GetParam().octets.find('\0') != std::string::npos;
    for (const SRoad& road : std::span(kRoads).subspan(hasNul ? 1 : 0)) {
        const auto descriptors = CountDescriptors();
        std::string outcome;
        try {
            road.load(document, GetParam().octets);
            outcome = RootText(document);
        }
        catch (const CZqException& failure) {
            outcome = failure.GetFullMessageUtf8();
        }
        EXPECT_EQ(outcome, GetParam().outcome) << road.name;
        EXPECT_EQ(CountDescriptors(), descriptors) << road.name;
        road.load(document, "<a>next</a>");
        EXPECT_EQ(RootText(document), "next") << road.name;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Encodings, Octets,
    testing::Values(
        SOctets{"Utf8", "<a>\xC3\xA9\xF0\x9F\x98\x80</a>", "\xC3\xA9\xF0\x9F\x98\x80"},
        SOctets{"Latin1", "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9\xFF</a>",
                "\xC3\xA9\xC3\xBF"},
        SOctets{"LittleEndian", Utf16LE(u"\xFEFF<a>\u00E9\U0001F600</a>"),
                "\xC3\xA9\xF0\x9F\x98\x80"},
        SOctets{"BigEndian",
                Utf16BE(u"\xFEFF<?xml version='1.0' encoding='UTF-16'?><a>\u00E9\U0001F600</a>"),
                "\xC3\xA9\xF0\x9F\x98\x80"}),
    kRowName);

INSTANTIATE_TEST_SUITE_P(
    Faults, Octets,
    testing::Values(
        SOctets{"Token", "<a>\n\n<</a>", "not well-formed (invalid token) at line 3"},
        SOctets{"OtherEndTag", "<a>\n<b>\n</a>", "mismatched tag at line 3"},
        SOctets{"NoEndTag", "<a>\n\n", "no element found at line 3"},
        SOctets{"Encoding", "<?xml version='1.0' encoding='x-none'?>\n<a/>",
                "unknown encoding at line 1"},
        SOctets{"Prefix", "<a>\n<p:b/></a>", "unbound prefix at line 2"},
        // The bar stands between URI and name inside the parser, and in no URI (RFC 3986).
        SOctets{"BarInTheNamespace", "<a xmlns='urn:x|y'/>", "syntax error at line 1"}),
    kRowName);

INSTANTIATE_TEST_SUITE_P(
    Entities, Octets,
    testing::Values(
        SOctets{"Unknown", "<a>\n&e;</a>", "undefined entity at line 2"},
        SOctets{"AmplifiedText", BillionLaughs("<a>&e9;</a>"),
                "limit on input amplification factor (from DTD and entities) breached at line 1"},
        SOctets{"AmplifiedAttribute", BillionLaughs("<a n='&e9;'/>"),
                "limit on input amplification factor (from DTD and entities) breached at line 1"}),
    kRowName);

TEST(ChainOfEntities, IsLimitedLikeTheDepth)
{
    const auto load = [](int levels) {
        std::string xml = "<!DOCTYPE a [<!ENTITY e0 'x'>";
        for (int i = 1; i <= levels; ++i)
            xml += "<!ENTITY e" + std::to_string(i) + " '&e" + std::to_string(i - 1) + ";'>";
        CXmlDocument document;
        document.LoadXml((xml + "]><a>&e" + std::to_string(levels) + ";</a>").c_str());
        return RootText(document);
    };
    EXPECT_EQ(load(1024), "x");
    EXPECT_EQ(MessageOf([&] { load(1025); }), "The document is nested deeper than 1024 levels");
    EXPECT_THROW(load(200'000), CZqException);
}

TEST(WideText, NamesUtf16OrNoEncoding)
{
    CXmlDocument document;
    document.LoadXml(u"<?xml version='1.0'?><a>\u00E9\U0001F600</a>");
    EXPECT_EQ(RootText(document), "\xC3\xA9\xF0\x9F\x98\x80");
    document.LoadXml(u"<?xml version='1.0' encoding='UTF-16'?><a>x</a>");
    EXPECT_EQ(RootText(document), "x");
    EXPECT_EQ(
        MessageOf([&] { document.LoadXml(u"<?xml version='1.0' encoding='UTF-8'?><a>x</a>"); }),
        "incorrect encoding at line 1");
}

TEST(WideText, WithHalfASurrogatePairIsNoXml)
{
    for (const char16_t* const xml :
         {u"<a>\xDC00</a>", u"<a>\xD800</a>", u"<a>\xD800 x</a>", u"<a n='\xD800 x'/>"})
        EXPECT_THROW(CXmlDocument().LoadXml(xml), CZqException)
            << testing::PrintToString(std::u16string(xml));
}

TEST(NothingToLoad, IsReported)
{
    CXmlDocument document;
    for (const char16_t* const text : {static_cast<const char16_t*>(nullptr), u""})
        EXPECT_EQ(MessageOf([&] { document.LoadXml(text); }), "XML String is empty!");
    const char* const messages[] = {"XML String is empty!", "XML Stream is empty!",
                                    "no element found at line 1", "no element found at line 1"};
    for (std::size_t i = 0; i < std::size(kRoads); ++i)
        EXPECT_EQ(MessageOf([&] { kRoads[i].load(document, ""); }), messages[i]) << kRoads[i].name;
}

TEST(FourGigabytes, AreRefusedWhereALengthHas32Bits)
{
    const std::byte octet{};
    // Never read: the length alone is too much.
    const std::span<const std::byte> block(&octet, std::size_t{1} << 32);
    CXmlDocument document;
    EXPECT_THROW(document.LoadXmlStream(block), CZqOverFlowException);
    const CTempFile file("<a/>");
    std::filesystem::resize_file(file.GetPath(), std::uintmax_t{1} << 32);
    EXPECT_EQ(MessageOf([&] { LoadWhole(document, file.GetName()); }),
              "Failed to get the size of the file [" + file.GetPath().string()
                  + "] Error [0x0000001b]");
    // In chunks it is read, and zeros follow the root.
    EXPECT_EQ(MessageOf([&] { LoadChunks(document, file.GetName()); }),
              "not well-formed (invalid token) at line 1");
}

class FileOfSize : public testing::TestWithParam<std::size_t> {};

TEST_P(FileOfSize, GivesTheSameTreeOnEveryRoad)
{
    std::string text;
    while (text.size() < GetParam() - 7)
        text += "line " + std::to_string(text.size()) + "\n";
    text.resize(GetParam() - 7);
    CXmlDocument document;
    for (const SRoad& road : kRoads) {
        road.load(document, "<a>" + text + "</a>");
        EXPECT_TRUE(RootText(document) == text) << road.name;
    }
}

INSTANTIATE_TEST_SUITE_P(AroundChunks, FileOfSize,
                         testing::Values(kChunk - 1, kChunk, kChunk + 1, 2 * kChunk, 2 * kChunk + 1,
                                         5 * kChunk + 1));

struct SPiece {
    const char* name;
    const char16_t* piece;
    const char* text;  ///< what the piece is in the tree
    std::string (*encode)(std::u16string_view) = ToUtf8;
    std::size_t unitSize = 1;  ///< octets
};

class PieceAtTheChunk : public testing::TestWithParam<SPiece> {};

TEST_P(PieceAtTheChunk, MayBeCutAtEveryOctet)
{
    const auto& [name, piece, text, encode, unitSize] = GetParam();
    const std::string head = encode(u"\xFEFF<a>");
    const std::string cut = encode(piece);
    for (std::size_t before = 0; before <= cut.size(); before += unitSize) {
        const std::u16string fill((kChunk - before - head.size()) / unitSize, u'x');
        CXmlDocument document;
        LoadChunks(document, CTempFile(head + encode(fill) + cut + encode(u"y</a>")).GetName());
        EXPECT_TRUE(RootText(document) == U8(fill) + text + "y") << before;
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, PieceAtTheChunk,
    testing::Values(SPiece{"TwoOctets", u"\u00E9", "\xC3\xA9"},
                    SPiece{"ThreeOctets", u"\u20AC", "\xE2\x82\xAC"},
                    SPiece{"FourOctets", u"\U0001F600", "\xF0\x9F\x98\x80"},
                    SPiece{"SurrogatesLE", u"\U0001F600", "\xF0\x9F\x98\x80", Utf16LE, 2},
                    SPiece{"SurrogatesBE", u"\U0001F600", "\xF0\x9F\x98\x80", Utf16BE, 2},
                    SPiece{"LineEnd", u"\r\n\r", "\n\n"}, SPiece{"Reference", u"&amp;&#65;", "&A"},
                    SPiece{"Tags", u"<b n='v'/>", ""}, SPiece{"CData", u"<![CDATA[<]]]]>", "<]]"}),
    kRowName);

/// A document whose last line, the 50,000th, is in its third chunk.
std::string LongDocument(const char* lastLine)
{
    std::string xml = "<a xmlns:p='urn:x'><first/>\n";
    for (int line = 2; line < 50'000; ++line)
        xml += "a line\n";
    return xml + lastLine;
}

TEST(LaterChunk, FailsWithTheLineOfTheFileAndLeavesNothing)
{
    const auto descriptors = CountDescriptors();
    CXmlDocument document(
        [](CXmlElement* element) { return element->GetLocalName() == u"last" ? throw 42 : false; });
    for (const SRoad& road : kRoads)
        EXPECT_EQ(MessageOf([&] { road.load(document, LongDocument("</b>")); }),
                  "mismatched tag at line 50000")
            << road.name;
    EXPECT_EQ(document.GetDocumentElement(), nullptr);
    EXPECT_EQ(U8(document.LookupNamespaceFromAlias(u"p")), "");

    EXPECT_THROW(kRoads[3].load(document, LongDocument("<last/></a>")), int);
    EXPECT_EQ(document.GetDocumentElement(), nullptr);
    EXPECT_EQ(CountDescriptors(), descriptors);
}

struct SBadFile {
    const char* name;
    void (*make)(const std::filesystem::path&);
    const char* whole;   ///< the message in front of the path
    const char* chunks;  ///< the same where the file is read in chunks
    const char* error;   ///< errno, as Linux numbers it
};

class BadFile : public testing::TestWithParam<SBadFile> {};

TEST_P(BadFile, IsReportedAndClosed)
{
    const std::filesystem::path path = CTempFile("").GetPath();
    GetParam().make(path);
    const std::string tail = " [" + path.string() + "] Error [" + GetParam().error + "]";
    const auto descriptors = CountDescriptors();
    CXmlDocument document;
    document.LoadXml("<a/>");
    EXPECT_EQ(MessageOf([&] { LoadWhole(document, path.u16string()); }), GetParam().whole + tail);
    EXPECT_EQ(document.GetDocumentElement(), nullptr);
    EXPECT_EQ(MessageOf([&] { LoadChunks(document, path.u16string()); }), GetParam().chunks + tail);
    EXPECT_EQ(CountDescriptors(), descriptors);
    std::filesystem::remove(path);
}

using Path = std::filesystem::path;
constexpr const char* kOpen = "Failed to open the file";
constexpr const char* kSize = "Failed to get the size of the file";

INSTANTIATE_TEST_SUITE_P(
    All, BadFile,
    testing::Values(
        SBadFile{"Missing", [](const Path&) {}, kOpen, kOpen, "0x00000002"},
        SBadFile{"Directory", [](const Path& path) { std::filesystem::create_directory(path); },
                 kOpen, kOpen, "0x00000015"},
        SBadFile{"Pipe", [](const Path& path) { ::mkfifo(path.c_str(), 0600); }, kSize, kOpen,
                 "0x0000001d"},
        SBadFile{"Device",
                 [](const Path& path) { std::filesystem::create_symlink("/dev/null", path); },
                 kSize, kOpen, "0x0000001d"}),
    kRowName);

TEST(FileName, MayHoldCharactersBeyondAscii)
{
    const CTempFile file("<a>found</a>");
    const std::u16string name = file.GetName() + u" gr\u00F6\u00DFe \u65E5\u672C \U0001F600";
    std::filesystem::copy(file.GetPath(), name);
    CXmlDocument document;
    for (const auto load : {LoadWhole, LoadChunks}) {
        load(document, name);
        EXPECT_EQ(RootText(document), "found");
        EXPECT_EQ(MessageOf([&] { load(document, u"half a pair \xD800"); }),
                  "Failed to open the file [half a pair \xEF\xBF\xBD] Error [0x00000054]");
    }
    std::filesystem::remove(name);
}

}  // namespace
}  // namespace ZqXmlLib9
