// A program may use the 8-bit build of Expat beside the library, whose own build is the 16-bit one
// and exports the same names: each must get its own.

#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/xml/XmlDocument.h>
#include <ZqXmlLib9/xml/XmlElement.h>

#include <gtest/gtest.h>

#include <expat.h>
#include <memory>
#include <string>
#include <string_view>

namespace ZqXmlLib9 {
namespace {

static_assert(sizeof(XML_Char) == 1);

constexpr std::string_view kXml = "<\xC3\xB6><b>\xF0\x9F\x98\x80</b>text</\xC3\xB6>";

/// Loads the document through the library.
void LoadWide()
{
    CXmlDocument document;
    document.LoadXml(ToUtf16(kXml).c_str());
    const CXmlElement& root = *document.GetDocumentElement();
    EXPECT_EQ(ToUtf8(root.GetLocalName()), "\xC3\xB6");
    EXPECT_EQ(ToUtf8(root.GetText()), "text");
    EXPECT_EQ(ToUtf8(root.GetFirstElement()->GetText()), "\xF0\x9F\x98\x80");
}

/// Parses the document with the 8-bit build, so many octets at a time.
/// \param between  called at each start of an element, and after each piece
void ParseNarrow(std::size_t piece, void (*between)())
{
    struct SSeen {
        std::string text;
        void (*between)();
    } seen{{}, between};
    const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(
        XML_ParserCreate(nullptr), XML_ParserFree);
    XML_SetUserData(parser.get(), &seen);
    XML_SetStartElementHandler(
        parser.get(), [](void* userData, const XML_Char* name, const XML_Char**) {
            static_cast<SSeen*>(userData)->text.append("<").append(name).append(">");
            static_cast<SSeen*>(userData)->between();
        });
    XML_SetCharacterDataHandler(parser.get(), [](void* userData, const XML_Char* text, int length) {
        static_cast<SSeen*>(userData)->text.append(text, static_cast<unsigned>(length));
    });
    for (std::size_t i = 0; i < kXml.size(); i += piece) {
        const std::string_view next = kXml.substr(i, piece);
        EXPECT_EQ(XML_Parse(parser.get(), next.data(), static_cast<int>(next.size()),
                            i + piece >= kXml.size()),
                  XML_STATUS_OK);
        between();
    }
    EXPECT_EQ(seen.text, "<\xC3\xB6><b>\xF0\x9F\x98\x80text");
}

TEST(NarrowParse, IsNotDisturbedByTheLibrary)
{
    ParseNarrow(kXml.size(), [] {});
    ParseNarrow(1, LoadWide);
}

TEST(Load, IsNotDisturbedByANarrowParser)
{
    LoadWide();
    CXmlDocument document([](CXmlElement*) {
        ParseNarrow(3, LoadWide);
        return false;
    });
    document.LoadXml(u"<a><b/>\u20AC</a>");
    EXPECT_EQ(ToUtf8(document.GetDocumentElement()->GetText()), "\xE2\x82\xAC");
}

}  // namespace
}  // namespace ZqXmlLib9
