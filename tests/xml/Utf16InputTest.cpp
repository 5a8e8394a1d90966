// Documents in UTF-16: what begins one, what is a fault in one, and on which line.

#include "support/Print.h"
#include "support/TempFile.h"

#include <ZqXmlLib9/xml/XmlDocument.h>
#include <ZqXmlLib9/xml/XmlElement.h>

#include <gtest/gtest.h>

#include <span>

namespace ZqXmlLib9 {
namespace {

std::string Octets(std::u16string_view text, bool isBigEndian)
{
    std::string octets;
    for (const char16_t unit : text) {
        const char low = static_cast<char>(unit & 0xFF);
        const char high = static_cast<char>(unit >> 8);
        octets += isBigEndian ? std::string{high, low} : std::string{low, high};
    }
    return octets;
}

std::string Outcome(const std::function<void(CXmlDocument&)>& load)
{
    return TextOrMessage([&] {
        CXmlDocument document;
        load(document);
        return U8(document.GetDocumentElement()->GetText());
    });
}

using namespace std::string_view_literals;

TEST(Utf16, IsReadInBothOrders)
{
    const std::string invalid = "not well-formed (invalid token) at line ";
    for (const auto& [text, outcome] :
         {std::pair(u"\xFEFF<a>\u00E9</a>"sv, std::string("\xC3\xA9")),
          {u"<a>x</a>", "x"},
          {u"\n<a>x</a>", "x"},
          {u"\xFEFF\xFEFF<a/>", invalid + "1"},
          {u"\xFEFF<\0a\0/\0>\0"sv, invalid + "1"},
          {u"<a>\r\r\n\n\xDC00</a>", invalid + "4"},
          {u"<a/>\xD800", "partial character at line 1"},
          {u"<?xml version='1.0' encoding='utf-16'?><a>x</a>", "x"},
          {u"<?xml version='1.0' encoding='UTF-8'?><a/>", "incorrect encoding at line 1"},
          {u"<?xml version='1.0' encoding='FOO'?><a/>", "unknown encoding at line 1"}})
        for (const bool isBigEndian : {false, true}) {
            const std::string octets = Octets(text, isBigEndian);
            EXPECT_EQ(Outcome([&](CXmlDocument& document) {
                          document.LoadXmlStream(std::as_bytes(std::span(octets)));
                      }),
                      outcome);
        }
}

TEST(Utf16InChunks, KeepsWhatTheLastChunkCuts)
{
    // The half pair is the end of the first chunk, and the last one is empty.
    std::u16string text = u"\xFEFF<a>";
    text.append(0x10000 - text.size() - 5, u'x').append(u"</a>\xD83D");
    const CTempFile file(Octets(text, false));
    AsyncFromXmlFile(true);
    EXPECT_EQ(Outcome([&](CXmlDocument& document) { document.Load(file.GetName().c_str()); }),
              "partial character at line 1");
    AsyncFromXmlFile(false);
}

TEST(Entities, OfPredefinedOnesAreNotNested)
{
    std::string xml = "<!DOCTYPE a [";
    for (int i = 0; i < 1100; ++i)
        xml += "<!ENTITY e" + std::to_string(i) + " 'A &#38;amp; B'>";
    xml += "]><a>&e7;</a>";
    EXPECT_EQ(Outcome([&](CXmlDocument& document) { document.LoadXml(xml.c_str()); }), "A & B");
}

TEST(NamespaceOfAnEntity, IsNeverCut)
{
    for (std::size_t length = 1005; length < 1027; ++length) {
        const std::string uri(length, 'x');
        CXmlDocument document;
        try {
            document.LoadXml(
                ("<!DOCTYPE a [<!ENTITY e '\xF0\x9F\x98\x80'>]><a xmlns='" + uri + "&e;'/>")
                    .c_str());
            EXPECT_EQ(document.GetDocumentElement()->GetNamespaceURI().size(), length + 2);
        }
        catch (const CZqException& failure) {
            EXPECT_EQ(failure.GetFullMessageUtf8(),
                      "The namespace of the prefix [] can not be read, the parser cut a character");
        }
    }
}

}  // namespace
}  // namespace ZqXmlLib9
