/// \file GeneratorVersion.h
/// The gate that keeps generated code of another version away from this library.
#pragma once

#include <ZqXmlLib9/Export.h>

namespace ZqXmlLib9 {

/// Records the version of the generator whose code runs in this process.
///
/// Generated code calls it before its first use of the library. The first call counts; later
/// calls change nothing. Any thread may call. Every entry point of `CXmlObjectBase` throws
/// unless 9.0 has been registered.
ZQXMLLIB9_API void Register(int major, int minor) noexcept;

}  // namespace ZqXmlLib9
