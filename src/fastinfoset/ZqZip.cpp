// A thin layer over zlib, for whole buffers in memory.

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/fastinfoset/ZqZip.h>
#include <ZqXmlLib9/types/BinaryData.h>

#include <memory>
#include <new>
#include <utility>
#include <zlib.h>

namespace ZqXmlLib9 {
namespace {

/// The largest window of deflate (RFC 1951, 2), and what zlib takes on top of it for a wrapper.
constexpr int kWindowBits = 15;
constexpr int kWriteGzip = 16;
constexpr int kDetectGzipOrZlib = 32;

/// The default of zlib.
constexpr int kMemoryLevel = 8;

constexpr std::uint32_t kChunkSize = 65536;

/// A stream of zlib, ended at the end of its life, also where it failed to begin.
class CZlibStream : public z_stream {
public:
    CZlibStream(std::span<const std::byte> input, int (*end)(z_stream*)) : z_stream(), m_end(end)
    {
        // zlib only reads it.
        next_in = reinterpret_cast<Bytef*>(const_cast<std::byte*>(input.data()));
        avail_in = ToLength32(input.size());
    }
    CZlibStream(const CZlibStream&) = delete;
    CZlibStream& operator=(const CZlibStream&) = delete;
    ~CZlibStream() { m_end(this); }

private:
    int (*m_end)(z_stream*);
};

struct SOctets {
    std::unique_ptr<unsigned char[]> data;
    std::uint32_t length = 0;
};

SOctets MakeOctets(std::uint32_t length)
{
    return {std::make_unique_for_overwrite<unsigned char[]>(length), length};
}

bool IsCompression(CompressionType type)
{
    return type == CompressionType_GZIP || type == CompressionType_ZLIB;
}

/// Lack of memory says nothing about the data.
void ThrowIfOutOfMemory(int result)
{
    if (result == Z_MEM_ERROR)
        throw std::bad_alloc();
}

/// The compressed form, which gets no more room than the data has.
SOctets Deflate(std::span<const std::byte> data, CompressionType type)
{
    CZlibStream stream(data, deflateEnd);
    SOctets octets = MakeOctets(stream.avail_in);
    stream.next_out = octets.data.get();
    stream.avail_out = octets.length;
    int result = type == CompressionType_GZIP
                     ? deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, kWindowBits + kWriteGzip,
                                    kMemoryLevel, Z_DEFAULT_STRATEGY)
                     : deflateInit(&stream, Z_BEST_SPEED);
    ThrowIfOutOfMemory(result);
    if (result == Z_OK) {
        deflate(&stream, Z_NO_FLUSH);
        result = deflate(&stream, Z_FINISH);
    }
    if (result != Z_STREAM_END)
        throw CZqException(FormatString(u"Failed to compress data. [Error Code: %d]", result));
    octets.length = ToLength32(stream.total_out);
    return octets;
}

}  // namespace

CZqZip::CZqZip() : CInstanceMonitor(u"CZqZip") {}
CZqZip::~CZqZip() = default;

void CZqZip::Compress(CBinaryData& data, CompressionType type)
{
    const std::uint32_t length = data.GetLength();
    if (length == 0 || !IsCompression(type))
        return;
    const std::unique_ptr<unsigned char[]> plain(data.ReleaseData());
    SOctets compressed = Deflate(ToOctets(plain.get(), length), type);
    data = CBinaryData(compressed.data.release(), compressed.length, true);
}

void CZqZip::CompressData(unsigned char** data, std::uint32_t* length, CompressionType type)
{
    if (!IsCompression(type))
        return;
    SOctets compressed = Deflate(ToOctets(*data, *length), type);
    delete[] std::exchange(*data, compressed.data.release());
    *length = compressed.length;
}

void CZqZip::Decompress(unsigned char** data, std::uint32_t* length)
{
    CBinaryData inflated;
    if (!Decompress(ToOctets(*data, *length), inflated, kMaxInflatedSize))
        return;
    *length = inflated.GetLength();
    delete[] std::exchange(*data, inflated.ReleaseData());
}

bool CZqZip::Decompress(std::span<const std::byte> data, CBinaryData& inflated,
                        std::uint64_t maxLength)
{
    CZlibStream stream(data, inflateEnd);
    const SOctets chunk = MakeOctets(kChunkSize);
    CBinaryData result;
    int outcome = inflateInit2(&stream, kWindowBits + kDetectGzipOrZlib);
    while (outcome == Z_OK) {
        stream.next_out = chunk.data.get();
        stream.avail_out = chunk.length;
        outcome = inflate(&stream, Z_NO_FLUSH);
        if (outcome != Z_OK && outcome != Z_STREAM_END)
            break;
        const std::uint32_t count = chunk.length - stream.avail_out;
        if (count > maxLength - result.GetLength())
            throw CZqException(FormatString(
                u"The compressed data is larger than %I64u octets when inflated", maxLength));
        result.Append(chunk.data.get(), count);
    }
    ThrowIfOutOfMemory(outcome);
    if (outcome != Z_STREAM_END)
        return false;
    inflated = std::move(result);
    return true;
}

}  // namespace ZqXmlLib9
