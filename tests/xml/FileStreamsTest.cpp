// Text on its way to a file, in pieces that are flushed or at once, and failures on that way.

#include "support/Print.h"
#include "support/TempFile.h"

#include <ZqXmlLib9/ZqXmlLib9.h>

#include <gtest/gtest.h>

#include <regex>
#include <unistd.h>

namespace ZqXmlLib9 {
namespace {

using Pieces = std::vector<std::u16string>;

enum EWay { InPieces, AtOnce };
constexpr EWay kWays[] = {InPieces, AtOnce};

/// \return the message of the failure, empty without one
std::string Write(EWay way, const std::string& path, XmlEncoding encoding, const Pieces& pieces)
{
    const std::u16string name = ToUtf16(path);
    CTextStream memory(encoding);
    CFileTextStream file(name.c_str(), encoding);
    CTextStream& stream = way == InPieces ? static_cast<CTextStream&>(file) : memory;
    return TextOrMessage([&] {
        stream.Open();
        for (const std::u16string& piece : pieces) {
            stream.WriteString(piece);
            stream.Flush();
        }
        stream.Close();
        if (way == AtOnce)
            CFileBinaryStream(name.c_str(), encoding, memory.GetEncodedData()).WriteToFile();
        return std::string();
    });
}

TEST(File, HoldsTheWholeTextWhateverPartsIt)
{
    const std::u16string run(5000, u'x');
    const Pieces pieces = {u"\u00E9\u20AC\xD83D", u"\xDE00\xD83D", u"", u"\xDE01" + run};
    const std::string utf8 = ToUtf8(u"\u00E9\u20AC\U0001F600\U0001F601" + run);
    const CTempFile file(std::string(20'000, 'o'));
    int pipe[2];
    ASSERT_EQ(::pipe(pipe), 0);
    for (const EWay way : kWays) {
        EXPECT_EQ(Write(way, file.GetPath(), XmlEncoding_UTF8, pieces), "");
        EXPECT_TRUE(file.GetContent() == utf8) << way;
        EXPECT_EQ(Write(way, "/dev/fd/" + std::to_string(pipe[1]), XmlEncoding_UTF8, pieces), "");
        std::string received(utf8.size(), '\0');
        EXPECT_EQ(::read(pipe[0], received.data(), utf8.size()), std::ssize(utf8));
        EXPECT_TRUE(received == utf8) << way;
    }
    ::close(pipe[0]);
    ::close(pipe[1]);
}

TEST(Failure, SaysWhy)
{
    const CTempFile file("old");
    const std::string path = file.GetPath().string();
    const std::string named = "Failed to write data to the file [%] error [0x000000";
    const std::string later = "Failed to write data to the file. Error [0x000000";
    const std::string lone = "The text has an unpaired surrogate [0xD801] at position ";
    const std::string unknown =
        "Unknown Encoding, select UTF-8 (contact support support@zqxmllib9.example)";
    for (const auto& [target, encoding, pieces, inPieces, atOnce] :
         {std::tuple(path, 0, Pieces{u"a"}, unknown, unknown),
          {path, 4, {u"a"}, unknown, unknown},
          {"/tmp", 1, {u"a"}, named + "15]", named + "15]"},
          {path + "/\xC3\xBC \xF0\x9F\x98\x80", 1, {u"a"}, named + "14]", named + "14]"},
          {"/dev/full", 1, {u"a", u"b"}, later + "1C]", named + "1C]"},
          {"/dev/full", 2, {u"a"}, named + "1C]", named + "1C]"},
          {"/dev/zero", 1, {u"b", u"c\xD801", u"d"}, lone + "2", lone + "2"},
          {"/dev/zero", 1, {u"a\xD801"}, lone + "1", lone + "1"}}) {
        for (const EWay way : kWays) {
            const auto outcome = Write(way, target, static_cast<XmlEncoding>(encoding), pieces);
            const std::string message = way == InPieces ? inPieces : atOnce;
            EXPECT_EQ(outcome, std::regex_replace(message, std::regex("%"), target));
        }
    }
    EXPECT_EQ(file.GetContent(), "old");
}

}  // namespace
}  // namespace ZqXmlLib9
