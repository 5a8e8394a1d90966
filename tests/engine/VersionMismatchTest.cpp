// The gate in a process whose generator doesn't fit the library: the version is registered once
// for a process, so each one is a process of its own. The argument names it.

#include "model/Letter.h"
#include "support/Print.h"

namespace ZqXmlLib9 {
namespace {

using TestModel::CLetter;

std::string g_registered;
std::string g_shown;

void Show(std::u16string_view title, std::u16string_view text)
{
    g_shown += U8(title) + ": " + U8(text) + "\n";
}

TEST(Mismatch, ShowsAtTheFirstObjectAndFailsAtEveryEntryPoint)
{
    SetMessageBoxHandler(Show);
    const std::string versions = "(Quorel Runtime: v9.0, Generator: v" + g_registered + ")";
    const std::string advice =
        "Please ensure your generated code is the same version as this library " + versions + ".\n";
    const CSmartPtr<CLetter> letter = new CLetter(), second = new CLetter();
    const std::string box = "Version Mismatch Error: " + advice;
    EXPECT_EQ(g_shown, box) << "the constructor tests once for the process";

    unsigned char octet = '<';
    CXmlDocument document;
    document.LoadXml("<r/>");
    const CXmlElement* const element = document.GetDocumentElement();
    const std::function<void()> entryPoints[] = {
        [&] { letter->ToXml(); },
        [&] { letter->FromXml(u""); },
        [&] { letter->FromXml(""); },
        [&] { letter->FromXmlFile(u"/missing"); },
        [&] { letter->FromXmlStream(&octet, 1u); },
        [&] { letter->FromXmlStream(CBinaryData()); },
        [&] { letter->FromXmlElement(element); },
        [&] { letter->ToXmlStream(); },
        [&] { letter->ToXmlFile(u"/missing/a"); },
        [&] { CSmartPtr<CElement>(new CElement(letter.Get(), u"")); },
        [&] { AsyncToXmlFile(true), letter->ToXmlFile(u"/missing/a"); },
    };
    for (const auto& entryPoint : entryPoints) {
        g_shown.clear();
        EXPECT_EQ(MessageOf(entryPoint), "Wrong Version " + versions);
        EXPECT_EQ(g_shown, box);
    }
    EXPECT_EQ(MessageOf([&] {
                  letter->ToXmlFile(u"/missing/a", true, true, XmlEncoding_UTF8, EOLType_LF, {},
                                    CompressionType_ZLIB);
              }),
              "ZLIB Compression only available for To Stream methods.");

    Register(9, 0);
    SetMessageBoxHandler(nullptr);
    testing::internal::CaptureStderr();
    EXPECT_EQ(MessageOf(entryPoints[0]), "Wrong Version " + versions) << "the first one counts";
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Version Mismatch Error\n" + advice);
}

}  // namespace
}  // namespace ZqXmlLib9

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const bool isNewer = argc > 1 && argv[1] == std::string_view("9.1");
    ZqXmlLib9::g_registered = isNewer ? "9.1" : "8.0";
    ZqXmlLib9::Register(isNewer ? 9 : 8, isNewer ? 1 : 0);
    return RUN_ALL_TESTS();
}
