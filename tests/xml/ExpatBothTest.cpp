// A program may use the 8-bit build of Expat beside the library, whose own build is the 16-bit one
// and exports the same names: each must get its own.

#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/xml/XmlDocument.h>
#include <ZqXmlLib9/xml/XmlElement.h>

#include <gtest/gtest.h>

#include <expat.h>

namespace ZqXmlLib9 {
namespace {

static_assert(sizeof(XML_Char) == 1);

constexpr std::string_view kXml = "<\xC3\xB6><b>\xF0\x9F\x98\x80</b>text</\xC3\xB6>";

/// Parses the document with the 8-bit build, and steps between its octets.
void ParseNarrow(void (*between)())
{
    std::string seen;
    XML_Parser const parser = XML_ParserCreate(nullptr);
    XML_SetUserData(parser, &seen);
    XML_SetCharacterDataHandler(parser, [](void* text, const XML_Char* more, int length) {
        static_cast<std::string*>(text)->append(more, static_cast<unsigned>(length));
    });
    for (std::size_t i = 0; i < kXml.size(); ++i, between())
        EXPECT_EQ(XML_Parse(parser, &kXml[i], 1, i + 1 == kXml.size()), XML_STATUS_OK);
    XML_ParserFree(parser);
    EXPECT_EQ(seen, "\xF0\x9F\x98\x80text");
}

TEST(BothBuilds, DoNotDisturbEachOther)
{
    ParseNarrow([] {
        CXmlDocument document([](CXmlElement*) {
            ParseNarrow([] {});
            return false;
        });
        document.LoadXml(ToUtf16(kXml).c_str());
        const CXmlElement& root = *document.GetDocumentElement();
        EXPECT_EQ(ToUtf8(root.GetLocalName()), "\xC3\xB6");
        EXPECT_EQ(ToUtf8(root.GetFirstElement()->GetText() + root.GetText()),
                  "\xF0\x9F\x98\x80text");
    });
}

}  // namespace
}  // namespace ZqXmlLib9
