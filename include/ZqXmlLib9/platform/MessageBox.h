/// \file MessageBox.h
/// How the library shows its one message: that generated code and library don't fit together.
#pragma once

#include <ZqXmlLib9/Export.h>

#include <string_view>

namespace ZqXmlLib9 {

/// Shows a message of the severity "error" to whoever runs the program.
///
/// It is called on the thread that found the fault, and must not throw.
using MessageBoxHandler = void (*)(std::u16string_view title, std::u16string_view text);

/// Replaces the way in which messages are shown, for the whole process.
///
/// A desktop application shows its own box here. Any thread may call.
/// \param handler  null brings back the default: title and text on standard error, one line each
/// \return the handler that stood before; null for the default
ZQXMLLIB9_API MessageBoxHandler SetMessageBoxHandler(MessageBoxHandler handler) noexcept;

}  // namespace ZqXmlLib9
