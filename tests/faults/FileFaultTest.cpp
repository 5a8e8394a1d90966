// Every system call of the four ways to and from a file fails in turn, or passes less than it was
// asked for: the outcome is the right one or a failure that names the error, and a file whose
// writing has failed is never taken for a document.

#include "support/FileFault.h"
#include "support/Print.h"
#include "support/TempFile.h"

#include <ZqXmlLib9/ZqXmlLib9.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <set>

namespace ZqXmlLib9 {
namespace {

struct SWay {
    const char* name;
    /// What a file comes to, or the message of the failure.
    std::string (*pass)(const CTempFile& file, const std::string& content);
    bool isWriting;
};

template <bool inChunks>
std::string Load(const CTempFile& file, const std::string&)
{
    AsyncFromXmlFile(inChunks);
    return TextOrMessage([&] {
        CXmlDocument document;
        document.Load(file.GetName().c_str());
        return U8(document.GetDocumentElement()->GetText());
    });
}

std::string WritePieces(const CTempFile& file, const std::string& content)
{
    return TextOrMessage([&] {
        CFileTextStream stream(file.GetName().c_str(), XmlEncoding_UTF8);
        stream.Open();
        for (std::size_t i = 0; i < content.size(); i += 250'000) {
            stream.WriteString(ToUtf16(content.substr(i, 250'000)));
            stream.Flush();
        }
        stream.Close();
        return std::string("written");
    });
}

std::string WriteAtOnce(const CTempFile& file, const std::string& content)
{
    return TextOrMessage([&] {
        const CBinaryData data(std::as_bytes(std::span(content)));
        CFileBinaryStream(file.GetName().c_str(), XmlEncoding_UTF8, data).WriteToFile();
        return std::string("written");
    });
}

/// A document of a size, if it has room for one.
std::string Document(std::size_t size)
{
    const std::string tags = "<a></a>";
    return size < tags.size() ? tags.substr(0, size)
                              : "<a>" + std::string(size - tags.size(), 'x') + "</a>";
}

/// What a call that fails may come to, beside the failure that names its error.
bool MayStillWork(const std::string& call, int error, bool isWriting)
{
    const bool isRepeated = error == EINTR && call != "fstat" && call != "close";
    // A reader has nothing to lose at its end, and a writer closes a copy too, which it may lack.
    return call.empty() || isRepeated || call == "close" || (isWriting && call == "fcntl");
}

bool NamesError(const std::string& message, int error)
{
    const auto ends = [&](const char16_t* code) {
        return message.ends_with(U8(FormatString(code, error)));
    };
    return ends(u"rror [0x%08X]") || ends(u"rror [0x%08x]");
}

/// The calls whose failure must not be passed over.
std::set<std::string> GetCallsThatMatter(bool isWriting, std::size_t size)
{
    std::set<std::string> calls{"fstat", "open"};
    if (isWriting)
        calls.insert({"close", "fcntl", "ftruncate"});
    if (size != 0)
        calls.insert(isWriting ? "pwrite" : "pread");
    return calls;
}

class EveryCall : public testing::TestWithParam<SWay> {
protected:
    ~EveryCall() override { AsyncFromXmlFile(false); }
};

TEST_P(EveryCall, MayFailOrFallShort)
{
    const auto& [name, pass, isWriting] = GetParam();
    for (const std::size_t size : {0u, 1u, 4095u, 4096u, 4097u, 1'000'000u}) {
        const std::string document = Document(size);
        const CTempFile file(isWriting ? "old" : document);
        const std::string expected = pass(file, document);
        const int next = ::dup(0);
        ::close(next);
        for (const CFileFault::EKind kind : {CFileFault::Interrupted, CFileFault::Short}) {
            const CFileFault fault(kind);
            EXPECT_TRUE(pass(file, document) == expected) << size << ' ' << kind;
        }
        EXPECT_TRUE(file.GetContent() == document);
        for (const int error : {ENOSPC, EIO, EINTR, 0}) {
            std::string failed = "?";
            std::set<std::string> noticed;
            for (long n = 0; !failed.empty(); ++n) {
                if (isWriting)
                    std::ofstream(file.GetPath()) << "old";
                std::string outcome;
                {
                    const auto kind = error == 0 ? CFileFault::End : CFileFault::Fail;
                    const CFileFault fault(kind, n, error);
                    outcome = pass(file, document);
                    failed = fault.GetFailed();
                }
                SCOPED_TRACE(failed + ' ' + std::to_string(error) + ' ' + std::to_string(size));
                const bool works = outcome == expected;
                // A file that ends too early is no document, but for the last look at it.
                EXPECT_TRUE(works ? error == 0 || MayStillWork(failed, error, isWriting)
                                  : error == 0 || NamesError(outcome, error))
                    << outcome;
                if (!works)
                    noticed.insert(failed);
                if (!isWriting)
                    continue;
                const std::string content = file.GetContent();
                const bool isEarly = failed != "pwrite" && failed != "close";
                EXPECT_TRUE(works ? content == document
                                  : content.empty() || (isEarly && content == "old"))
                    << content.size();
            }
            EXPECT_TRUE(error == EINTR || error == 0
                        || std::ranges::includes(noticed, GetCallsThatMatter(isWriting, size)));
        }
        EXPECT_EQ(::dup(0), next) << "a descriptor is left open";
        ::close(next);
    }
}

INSTANTIATE_TEST_SUITE_P(Each, EveryCall,
                         testing::Values(SWay{"LoadWhole", Load<false>, false},
                                         SWay{"LoadChunks", Load<true>, false},
                                         SWay{"WritePieces", WritePieces, true},
                                         SWay{"WriteAtOnce", WriteAtOnce, true}),
                         kRowName);

}  // namespace
}  // namespace ZqXmlLib9
