// What a document takes in each of its byte forms.
#pragma once

#include "Gpx.h"

namespace Gpx {

/// Writes the document to files of UTF-8, UTF-16 and gzip in a directory that lasts as long as the
/// call, and in memory as zlib; reads each back, and prints a table of sizes. A document that is
/// too short to be compressed has a failure there.
/// \throws CZqException  a file can't be written or read, or holds another object
void PrintSizes(const CGpx& gpx, const ZqXmlLib9::CXmlSerializationContext& context);

}  // namespace Gpx
