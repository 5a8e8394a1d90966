// A class writes itself and reads itself back by every road: texts, elements, and octets and files
// in every encoding, way and wrapper.

#include "model/Letter.h"
#include "support/Print.h"
#include "support/TempFile.h"

#include <functional>

namespace ZqXmlLib9 {
namespace {

using TestModel::CLetter;

/// Long enough for several flushes; pairs stand at every place of one.
CSmartPtr<CLetter> MakeLetter()
{
    std::u16string body = u"x";
    for (int i = 0; i < 3000; ++i)
        body += u"\U0001F600\u00E9<\n";
    return new CLetter(u"J\u00F3n", u"", body.c_str());
}

template <typename TLoad>
void ExpectBack(const CLetter& written, TLoad load)
{
    const CSmartPtr<CLetter> read = new CLetter(u"renamed");
    load(*read);
    EXPECT_TRUE(*read == written);
    EXPECT_EQ(U8(read->GetElementName()), "letter");
}

TEST(Documents, ComeBackByEveryRoadOfText)
{
    const CSmartPtr<CLetter> letter = MakeLetter();
    const std::u16string wide = letter->ToXml();
    std::string utf8 = ToUtf8(wide);
    CXmlDocument document;
    document.LoadXml(wide.c_str());
    const CXmlElement* const element = document.GetDocumentElement();
    const std::function<void(CLetter&)> roads[] = {
        [&](CLetter& read) { read.FromXml(wide.c_str()); },
        [&](CLetter& read) { read.FromXml(utf8.c_str()); },
        [&](CLetter& read) {
            read.FromXmlStream(reinterpret_cast<unsigned char*>(utf8.data()), utf8.size());
        },
        [&](CLetter& read) { read.FromXmlStream(Bytes(utf8)); },
        [&](CLetter& read) { read.FromXmlElement(element); },
    };
    for (const auto& road : roads)
        ExpectBack(*letter, road);
}

TEST(Documents, ComeBackFromEveryEncodingWayAndWrapper)
{
    const CXmlSerializationContext context;
    const CSmartPtr<CLetter> letter = MakeLetter();
    const CTempFile file("");
    const std::u16string name = file.GetName();
    const std::u16string body = letter->ToXml().substr(19);
    for (const auto& [encoding, head, mark] :
         {std::tuple(XmlEncoding_UTF8, u"<?xml version=\"1.0\" encoding=\"UTF-8\"", ""),
          {XmlEncoding_UTF16, u"<?xml version=\"1.0\" encoding=\"UTF-16\"", "\xFF\xFE"},
          {XmlEncoding_UTF16Undeclared, u"<?xml version=\"1.0\"", "\xFF\xFE"}}) {
        const auto write = [&, e = encoding](CompressionType wrapper) {
            return letter->ToXmlStream(true, true, e, EOLType_LF, context, wrapper);
        };
        const std::string utf16 = OctetsOf(CBinaryData((head + body).c_str()));
        EXPECT_TRUE(OctetsOf(write(CompressionType_None))
                    == (encoding == XmlEncoding_UTF8 ? ToUtf8(head + body) : utf16));
        for (int wrapper = CompressionType_None; wrapper <= CompressionType_ZLIB; ++wrapper)
            ExpectBack(*letter, [&](CLetter& read) {
                read.FromXmlStream(write(static_cast<CompressionType>(wrapper)));
            });
        for (const bool isAsync : {false, true}) {
            for (const CompressionType wrapper : {CompressionType_None, CompressionType_GZIP}) {
                AsyncToXmlFile(isAsync);
                letter->ToXmlFile(name.c_str(), true, true, encoding, EOLType_LF, context, wrapper);
                EXPECT_TRUE(file.GetContent() == mark + OctetsOf(write(wrapper))) << mark;
                AsyncFromXmlFile(isAsync && wrapper == CompressionType_None);
                ExpectBack(*letter, [&](CLetter& read) { read.FromXmlFile(name.c_str()); });
            }
        }
        AsyncToXmlFile(false);
        AsyncFromXmlFile(false);
    }
}

TEST(GzipFiles, AreThoseOfOtherPrograms)
{
    const CSmartPtr<CLetter> letter = MakeLetter();
    const CTempFile ours(""), theirs("");
    CXmlSerializationContext context;
    letter->ToXmlFile(ours.GetName().c_str(), false, false, XmlEncoding_UTF8, EOLType_LF, context,
                      CompressionType_GZIP);
    const std::string command = "zcat < " + ours.GetPath().string() + " | gzip -9 > ";
    ASSERT_EQ(std::system((command + theirs.GetPath().string()).c_str()), 0);
    ExpectBack(*letter, [&](CLetter& read) { read.FromXmlFile(theirs.GetName().c_str()); });
    const CTempFile cut(theirs.GetContent().substr(0, 100));
    EXPECT_EQ(MessageOf([&] { letter->FromXmlFile(cut.GetName().c_str()); }),
              "not well-formed (invalid token) at line 1");
    context.SetMaxInflatedSize(1000);
    EXPECT_EQ(MessageOf([&] { letter->FromXmlFile(theirs.GetName().c_str(), context); }),
              "The compressed data is larger than 1000 octets when inflated");
}

TEST(OpenCopy, IsTheObjectAsAnElement)
{
    const CSmartPtr<CLetter> letter = new CLetter(u"a", u"<", u"c\n");
    const std::string content = "<AA:to>a</AA:to><AA:from>&lt;</AA:from><AA:body>c\n</AA:body>";
    const std::string tag = "AA:letter xmlns:AA=\"urn:letter\"";
    for (const auto& [ns, xml] :
         {std::pair<const char16_t*, std::string>(nullptr,
                                                  "<" + tag + ">" + content + "</AA:letter>"),
          {u"urn:o", "<" + tag + " xmlns=\"urn:o\">" + content + "</AA:letter>"},
          {u"urn:letter",
           "<letter xmlns=\"urn:letter\"><to>a</to><from>&lt;</from><body>c\n</body></letter>"}}) {
        const CSmartPtr<CElement> copy = new CElement(letter.Get(), ns);
        EXPECT_EQ(U8(copy->ToXml(false, false)), xml);
        const CSmartPtr<CElement> second = new CElement(copy.Get(), nullptr);
        ExpectBack(*letter, [&](CLetter& read) { read.FromXmlElement(second.Get()); });
    }
}

}  // namespace
}  // namespace ZqXmlLib9
