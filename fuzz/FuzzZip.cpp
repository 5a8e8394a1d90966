// Compression both ways: what was compressed comes back, and hostile streams inflate within limits.

#include "Fuzz.h"

using namespace Fuzz;

namespace {

constexpr std::uint64_t kLimit = std::uint64_t{1} << 22;

}  // namespace

FUZZ_TARGET(input)
{
    const auto type = static_cast<CompressionType>(input.TakeBelow(4));
    // Short data get longer: a copy of them behind themselves gets shorter.
    const unsigned copies = 1 + input.TakeBelow(8);
    const Octets octets = input.TakeRest();
    CBinaryData inflated;
    Try([&] {
        CZqZip::Decompress(octets, inflated, kLimit);
        Require(inflated.GetLength() <= kLimit, "no limit is passed");
    });

    CBinaryData plain;
    for (unsigned i = 0; i < copies; ++i)
        plain.Append(octets);
    CBinaryData compressed = plain;
    if (!Try([&] { CZqZip::Compress(compressed, type); }))
        return;
    Require(compressed.GetLength() <= plain.GetLength(), "compressed data are not longer");
    if (!octets.empty() && (type == CompressionType_GZIP || type == CompressionType_ZLIB)) {
        inflated.Clear();
        CZqZip::Decompress(OctetsOf(compressed), inflated, kLimit);
        Require(inflated == plain, "compressed data come back");
    }
}
