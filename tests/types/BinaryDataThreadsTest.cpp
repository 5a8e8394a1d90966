// Copies of one value on several threads share its buffer until they change it, all at once.

#include <ZqXmlLib9/types/BinaryData.h>

#include <gtest/gtest.h>

#include <latch>
#include <memory>
#include <thread>
#include <vector>

namespace ZqXmlLib9 {
namespace {

using Octets = std::unique_ptr<unsigned char[]>;

void ChangeCopies(const CBinaryData& own, unsigned char octet)
{
    CBinaryData appended = own, written = own, released = own;
    appended.Append(octet);
    written[0] = octet;
    Octets(released.ReleaseData())[3] = octet;
    EXPECT_TRUE(appended[4] == octet && written[3] == 2 && own.GetAsHexString() == u"0AFF0102");
}

/// The holders leave in any order; whoever is the last gives the array itself away or frees it.
TEST(CopiesOnThreads, ReachNoOtherHolder)
{
    for (int round = 0; round < 500; ++round) {
        std::latch start(4);
        std::vector<std::jthread> threads;
        CBinaryData source;
        source.SetAsHexString(u"0AFF0102");
        for (unsigned char i = 0; i < 4; ++i)
            threads.emplace_back([&start, round, i, own = source]() mutable {
                start.arrive_and_wait();
                for (int change = 0; change < round % 16; ++change)
                    ChangeCopies(own, i);
                EXPECT_TRUE(i % 2 == 0 || Octets(own.ReleaseData())[1] == 0xFF);
            });
        source.Clear();
    }
}

}  // namespace
}  // namespace ZqXmlLib9
