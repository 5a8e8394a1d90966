/// \file ZqZip.h
/// Compression of finished documents, and its reverse.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/Enums.h>
#include <ZqXmlLib9/engine/InstanceMonitor.h>

#include <cstddef>
#include <cstdint>
#include <span>

namespace ZqXmlLib9 {

class CBinaryData;

/// Compresses buffers, and inflates those that turn out to be compressed. Source: RFC 1950 (zlib)
/// and RFC 1952 (gzip), both around deflate, RFC 1951.
///
/// It holds nothing; any number of threads may work on buffers of their own.
class ZQXMLLIB9_API CZqZip : public CInstanceMonitor {
public:
    /// What `Decompress` inflates to at most unless it is told otherwise, in octets. One octet of
    /// deflate can stand for a thousand.
    static constexpr std::uint64_t kMaxInflatedSize = std::uint64_t{1} << 30;

    CZqZip();
    ~CZqZip() override;

    /// Replaces data by its compressed form, at the fastest level. Empty data, and any type but
    /// gzip and zlib, is left alone.
    /// \throws CZqException  "Failed to compress data. [Error Code: %d]", with the code of zlib:
    ///         the compressed form has to fit into the length of the data, and that of short data
    ///         seldom does; `data` is then without a buffer
    static void Compress(CBinaryData& data, CompressionType type);

    /// The same for an array that was made by `new[]`. It is freed and replaced by a new one, or
    /// left alone on failure; either is the caller's.
    /// \throws CZqException  as above; an empty array fails too
    static void CompressData(unsigned char** data, std::uint32_t* length, CompressionType type);

    /// Replaces an array that was made by `new[]` by what it inflates to, if it begins with a
    /// complete stream of gzip or zlib. What follows the stream is ignored, a second member of a
    /// gzip file too. Anything else is left alone, a cut or damaged stream too.
    /// \throws CZqException  "The compressed data is larger than %I64u octets when inflated",
    ///         beyond `kMaxInflatedSize`; the array is left alone
    static void Decompress(unsigned char** data, std::uint32_t* length);

    /// The same for octets that stay where they are.
    /// \param inflated   takes what they inflate to
    /// \param maxLength  of that, in octets
    /// \return whether they begin with a complete stream; `inflated` is left alone if they don't
    /// \throws CZqException  "The compressed data is larger than %I64u octets when inflated"
    /// \throws CZqOverFlowException  the data has 4 GiB or more, or inflates to that, and
    ///         `maxLength` lets it
    static bool Decompress(std::span<const std::byte> data, CBinaryData& inflated,
                           std::uint64_t maxLength);
};

}  // namespace ZqXmlLib9
