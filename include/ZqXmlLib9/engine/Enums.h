/// \file Enums.h
/// The choices that the entry points take.
#pragma once

#include <cstdint>

namespace ZqXmlLib9 {

/// The byte form of XML text.
enum XmlEncoding : std::int32_t {
    /// Text in memory, with no byte form; the declaration names no encoding.
    XmlEncoding_None = 0,
    XmlEncoding_UTF8 = 1,
    /// UTF-16, little-endian; a file begins with the mark FF FE.
    XmlEncoding_UTF16 = 2,
    /// As `XmlEncoding_UTF16`, with no encoding named in the declaration.
    XmlEncoding_UTF16Undeclared = 3,
};

/// The line end of XML text.
enum EOLType : std::int32_t {
    EOLType_CRLF = 0,
    EOLType_LF = 1,
};

/// The wrapper around a finished document.
enum CompressionType : std::int32_t {
    CompressionType_None = 0,
    CompressionType_GZIP = 1,  ///< deflate in a gzip wrapper, RFC 1952
    CompressionType_ZLIB = 2,  ///< deflate in a zlib wrapper, RFC 1950
};

/// The XML declaration in front of a Fast Infoset document. Source: ITU-T X.891, 12.3.
enum FInfoDecl : std::int32_t {
    FInfoDecl_None = 0,
    FInfoDecl_NoVersion = 1,               ///< `<?xml encoding='finf'?>`
    FInfoDecl_NoVersionStandalone = 2,     ///< the same with `standalone='yes'`
    FInfoDecl_NoVersionNotStandalone = 3,  ///< the same with `standalone='no'`
    FInfoDecl_V10 = 4,                     ///< `<?xml version='1.0' encoding='finf'?>`
    FInfoDecl_V10Standalone = 5,
    FInfoDecl_V10NotStandalone = 6,
    FInfoDecl_V11 = 7,  ///< `<?xml version='1.1' encoding='finf'?>`
    FInfoDecl_V11Standalone = 8,
    FInfoDecl_V11NotStandalone = 9,
};

/// Whether documents are read with namespaces.
enum SchemaType : std::int32_t {
    SchemaType_Default = 0,
    /// Names are taken as they stand in the document, and compared without regard to namespaces.
    SchemaType_NoNamespaces = 2,
};

}  // namespace ZqXmlLib9
