/// \file Version.h
/// The version of the library, for the preprocessor and at run time.
#pragma once

#include <ZqXmlLib9/Export.h>

#define ZQXMLLIB9_VERSION_MAJOR 9
#define ZQXMLLIB9_VERSION_MINOR 0

namespace ZqXmlLib9 {

/// A version of the library or of the code generator.
struct SVersion {
    int major;
    int minor;
};

/// The version of the library that is loaded; the macros are that of the headers compiled with.
ZQXMLLIB9_API SVersion GetLibraryVersion() noexcept;

}  // namespace ZqXmlLib9
