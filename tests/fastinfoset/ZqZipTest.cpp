// Compression and its reverse: what fits, and what octets of strangers come to.

#include "support/Print.h"

#include <ZqXmlLib9/fastinfoset/ZqZip.h>
#include <ZqXmlLib9/types/BinaryData.h>

#include <gtest/gtest.h>

namespace ZqXmlLib9 {
namespace {

class Wrapper : public testing::TestWithParam<std::pair<CompressionType, unsigned char>> {};

TEST_P(Wrapper, HoldsWhatGetsShorter)
{
    const CompressionType type = GetParam().first;
    for (std::uint32_t size = 0; size < 400'000; size += size < 64 ? 1 : 99'999) {
        const CBinaryData plain(Bytes(std::string(size, 'x')));
        CBinaryData data = plain;
        std::uint32_t length = size;
        unsigned char* array = CBinaryData(plain).ReleaseData();
        try {
            CZqZip::Compress(data, type);
            EXPECT_TRUE(size == 0 || data[0] == GetParam().second);
            CZqZip::CompressData(&array, &length, type);
            EXPECT_EQ(data, CBinaryData(array, length));
            CZqZip::Decompress(&array, &length);
        }
        catch (const CZqException& failure) {
            const std::string message = failure.GetFullMessageUtf8();
            EXPECT_TRUE(message == "Failed to compress data. [Error Code: 0]"
                        || message == "Failed to compress data. [Error Code: -5]");
            EXPECT_LT(size, 32u);
            EXPECT_EQ(data, size == 0 ? plain : CBinaryData());
        }
        EXPECT_EQ(CBinaryData(array, length, true), plain) << size;
    }
}

TEST_P(Wrapper, IsOpenedOnlyIfItIsWhole)
{
    const CBinaryData plain(Bytes(std::string(500, 'x')));
    CBinaryData whole = plain;
    CZqZip::Compress(whole, GetParam().first);
    const std::string stream = OctetsOf(whole);
    CBinaryData inflated = plain;
    const auto inflate = [&](std::string_view octets, std::uint64_t limit) {
        return CZqZip::Decompress(Bytes(octets), inflated, limit);
    };
    for (std::size_t length = 0; length < stream.size(); ++length)
        EXPECT_FALSE(inflate(stream.substr(0, length), 500));
    // A damaged octet is noticed, unless it says nothing about the data.
    for (std::size_t bit = 0; bit < 8 * stream.size(); ++bit) {
        std::string damaged = stream;
        damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ (1 << bit % 8));
        inflate(damaged, CZqZip::kMaxInflatedSize);
        EXPECT_EQ(inflated, plain) << bit;
    }
    for (const unsigned limit : {499u, 0u})
        EXPECT_EQ(MessageOf([&] { inflate(stream, limit); }), "The compressed data is larger than "
                                                                  + std::to_string(limit)
                                                                  + " octets when inflated");
    // Never read: the length alone is too much.
    EXPECT_THROW(inflate({stream.data(), std::size_t{1} << 32}, 1), CZqOverFlowException);
    inflated.Clear();
    EXPECT_TRUE(inflate(stream + stream + "<a/>", 500)) << "the rest is ignored";
    EXPECT_EQ(inflated, plain);
}

INSTANTIATE_TEST_SUITE_P(Each, Wrapper,
                         testing::Values(std::pair(CompressionType_GZIP, 0x1F),
                                         std::pair(CompressionType_ZLIB, 0x78)));

}  // namespace
}  // namespace ZqXmlLib9
