/// \file Export.h
/// The one macro that marks what the shared library lets out.
///
/// It stands on every class with virtual operations too, interfaces and exceptions included:
/// their typeinfo must be one and the same on both sides of the library's border, or casts and
/// catches would miss.
#pragma once

#define ZQXMLLIB9_API __attribute__((visibility("default")))
