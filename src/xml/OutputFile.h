// What the streams to files have in common.
#pragma once

#include "../platform/File.h"

#include <ZqXmlLib9/engine/Enums.h>

#include <cstdint>
#include <string>

namespace ZqXmlLib9 {

/// Creates a file, or empties the one that is there once it is open, and writes the mark of UTF-16
/// if the encoding has one.
/// \return where the document begins, in octets
/// \throws CZqException  "Failed to write data to the file [%s] error [0x%08X]", with errno
std::uint64_t OpenOutputFile(CWriteFile& file, const std::u16string& name, XmlEncoding encoding);

}  // namespace ZqXmlLib9
