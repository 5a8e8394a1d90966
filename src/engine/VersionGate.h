// The test that opens every entry point.
#pragma once

namespace ZqXmlLib9 {

/// Shows the message box and throws unless the registered generator fits this library.
/// \throws CZqException  "Wrong Version (...)"
void PassVersionGate();

/// The same test without the exception, once per process.
void CheckVersionOnce();

}  // namespace ZqXmlLib9
