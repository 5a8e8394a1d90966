// What a document takes in each of its byte forms.
#pragma once

#include "Gpx.h"

namespace Gpx {

/// Writes the document in each form to a file in a directory that lasts as long as the call, or to
/// memory; reads it back, and prints a table of sizes and times. A document that is too short to be
/// compressed, or has values that don't fit their typed form, has a failure there.
/// \throws CZqException  a file can't be written or read, or holds another object
void PrintSizes(const CGpx& gpx, const ZqXmlLib9::CXmlSerializationContext& context);

}  // namespace Gpx
