// A class writes itself and reads itself back, by every road.

#include "model/Letter.h"
#include "support/Print.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace ZqXmlLib9 {
namespace {

using TestModel::CLetter;

CSmartPtr<CLetter> MakeLetter()
{
    return new CLetter(u"Tove", u"Jani", u"Don't forget me this weekend!");
}

TEST(ToXml, WritesTheDocument)
{
    EXPECT_EQ(U8(MakeLetter()->ToXml()), "<?xml version=\"1.0\"?>\n"
                                         "<AA:letter xmlns:AA=\"urn:letter\">\n"
                                         "\t<AA:to>Tove</AA:to>\n"
                                         "\t<AA:from>Jani</AA:from>\n"
                                         "\t<AA:body>Don't forget me this weekend!</AA:body>\n"
                                         "</AA:letter>\n");
    EXPECT_EQ(U8(MakeLetter()->ToXml(false, false)),
              "<AA:letter xmlns:AA=\"urn:letter\"><AA:to>Tove</AA:to><AA:from>Jani</AA:from>"
              "<AA:body>Don't forget me this weekend!</AA:body></AA:letter>");
}

/// Any text that XML 1.0 allows, but for carriage returns, which are dropped.
std::u16string RandomText(std::mt19937& random)
{
    constexpr std::u16string_view kPieces[] = {
        u"x",  u"&",  u"<",   u">",      u"\"",     u"'",      u" ",
        u"\t", u"\n", u"]]>", u"\u00E9", u"\u4E2D", u"\uFFFD", u"\U0001F600"};
    std::u16string text;
    for (auto i = random() % 12; i != 0; --i)
        text += kPieces[random() % std::size(kPieces)];
    return text;
}

TEST(RandomObjects, ComeBackUnderEveryFormAndSetting)
{
    std::mt19937 random(1);
    for (unsigned form = 0; form < 400; ++form) {
        CXmlSerializationContext context;
        if ((form & 1) != 0)
            context.GetNamespaceAliases().Add(u"l", u"urn:letter");
        if ((form & 2) != 0)
            context.SetDefaultNamespaceURI((form & 4) != 0 ? u"urn:letter" : u"urn:other");
        const CSmartPtr<CLetter> written = new CLetter(
            RandomText(random).c_str(), RandomText(random).c_str(), RandomText(random).c_str());
        const std::u16string xml =
            written->ToXml((form & 8) != 0, (form & 16) != 0,
                           (form & 32) != 0 ? EOLType_LF : EOLType_CRLF, context);
        const CSmartPtr<CLetter> read = new CLetter();
        read->FromXml(xml.c_str(), context);
        EXPECT_EQ(*read, *written) << U8(xml);
    }
}

struct SRoad {
    const char* name;
    std::function<void(CLetter&, const std::u16string&)> read;
};

class EveryRoad : public testing::TestWithParam<SRoad> {};

TEST_P(EveryRoad, ReadsWhatWasWritten)
{
    const CSmartPtr<CLetter> written = MakeLetter();
    const CSmartPtr<CLetter> read = new CLetter(u"renamed");
    GetParam().read(*read, written->ToXml());
    EXPECT_EQ(*read, *written);
    EXPECT_EQ(U8(read->GetElementName()), "letter");
}

INSTANTIATE_TEST_SUITE_P(
    From, EveryRoad,
    testing::Values(
        SRoad{"WideText", [](CLetter& l, const std::u16string& x) { l.FromXml(x.c_str()); }},
        SRoad{"NarrowText",
              [](CLetter& l, const std::u16string& x) { l.FromXml(ToUtf8(x).c_str()); }},
        SRoad{"Octets",
              [](CLetter& l, const std::u16string& x) {
                  std::string utf8 = ToUtf8(x);
                  l.FromXmlStream(reinterpret_cast<unsigned char*>(utf8.data()), utf8.size());
              }},
        SRoad{"Span",
              [](CLetter& l, const std::u16string& x) {
                  const std::string utf8 = ToUtf8(x);
                  l.FromXmlStream(std::as_bytes(std::span(utf8)));
              }},
        SRoad{"Element",
              [](CLetter& l, const std::u16string& x) {
                  CXmlDocument document;
                  document.LoadXml(x.c_str());
                  l.FromXmlElement(static_cast<const CXmlElement*>(document.GetDocumentElement()));
              }}),
    kRowName);

}  // namespace
}  // namespace ZqXmlLib9
