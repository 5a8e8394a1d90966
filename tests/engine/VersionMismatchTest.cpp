// The gate in a process whose generator doesn't fit the library: the version is registered once
// for a process, so each case is a process of its own. The argument names it.

#include "model/Letter.h"
#include "support/Print.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

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
    const std::string box =
        "Version Mismatch Error: Please ensure your generated code is the same version as this "
        "library (Quorel Runtime: v9.0, Generator: v"
        + g_registered + ").\n";
    const CSmartPtr<CLetter> letter = new CLetter();
    EXPECT_EQ(g_shown, box);
    const CSmartPtr<CLetter> second = new CLetter();
    EXPECT_EQ(g_shown, box) << "the constructor tests once for the process";

    const std::string wrong =
        "Wrong Version (Quorel Runtime: v9.0, Generator: v" + g_registered + ")";
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
        [&] {
            AsyncToXmlFile(true);
            letter->ToXmlFile(u"/missing/a");
        },
    };
    for (const auto& entryPoint : entryPoints) {
        g_shown.clear();
        EXPECT_EQ(MessageOf(entryPoint), wrong);
        EXPECT_EQ(g_shown, box);
    }

    const CXmlSerializationContext context;
    EXPECT_EQ(MessageOf([&] {
                  letter->ToXmlFile(u"/missing/a", true, true, XmlEncoding_UTF8, EOLType_LF,
                                    context, CompressionType_ZLIB);
              }),
              "ZLIB Compression only available for To Stream methods.");

    if (g_registered != "0.0") {
        Register(9, 0);
        EXPECT_EQ(MessageOf(entryPoints[0]), wrong) << "the first registration counts";
    }
}

TEST(Mismatch, GoesToStandardErrorWithoutAHandler)
{
    SetMessageBoxHandler(nullptr);
    const CSmartPtr<CLetter> letter = new CLetter();
    testing::internal::CaptureStderr();
    EXPECT_THROW(letter->ToXml(), CZqException);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Version Mismatch Error\n"
              "Please ensure your generated code is the same version as this library (Quorel "
              "Runtime: v9.0, Generator: v"
                  + g_registered + ").\n");
}

}  // namespace
}  // namespace ZqXmlLib9

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const std::string which = argc > 1 ? argv[1] : "none";
    using namespace ZqXmlLib9;
    g_registered = which == "none" ? "0.0" : which;
    if (which == "9.1")
        Register(9, 1);
    else if (which == "8.0")
        Register(8, 0);
    return RUN_ALL_TESTS();
}
