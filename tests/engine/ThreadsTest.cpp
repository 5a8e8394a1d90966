// Many threads, each with objects of its own of one class, whose metadata all of them use first at
// the same moment, and with the default context.

#include "model/Letter.h"
#include "support/Print.h"

#include <gtest/gtest.h>

#include <barrier>
#include <thread>
#include <vector>

namespace ZqXmlLib9 {
namespace {

using TestModel::CLetter;

TEST(Threads, WriteAndReadObjectsOfOneClass)
{
    constexpr int kThreads = 16;
    std::barrier start(kThreads);
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([&start, i] {
            const std::u16string body = FormatString(u"letter %d", i);
            start.arrive_and_wait();
            for (int round = 0; round < 50; ++round) {
                const CSmartPtr<CLetter> written = new CLetter(u"to", u"from", body.c_str());
                const CSmartPtr<CLetter> read = new CLetter();
                read->FromXml(written->ToXml().c_str());
                ASSERT_EQ(*read, *written);
            }
        });
    for (std::thread& thread : threads)
        thread.join();
}

TEST(Threads, ShareAnObjectAndADocument)
{
    const CSmartPtr<CLetter> shared = new CLetter(u"to", u"from", u"body");
    const std::u16string expected = shared->ToXml();
    CXmlDocument document;
    document.LoadXml(expected.c_str());
    const CXmlElement* const element = document.GetDocumentElement();
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i)
        threads.emplace_back([&] {
            for (int round = 0; round < 50; ++round) {
                const CSmartPtr<CLetter> holder = shared;
                ASSERT_EQ(holder->ToXml(), expected);
                const CSmartPtr<CLetter> read = new CLetter();
                read->FromXmlElement(element);
                ASSERT_EQ(*read, *shared);
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(shared->AddRef(), 2);
    EXPECT_EQ(shared->Release(), 1);
}

}  // namespace
}  // namespace ZqXmlLib9
