/// \file StreamOutput.h
/// Values to standard streams, for logs and tests.
#pragma once

#include <ZqXmlLib9/Export.h>

#include <iosfwd>

namespace ZqXmlLib9 {

class CBigInteger;
class CDateTime;
class CDateTimeSpan;
class CDecimal;

/// \name The text of a value, as `ToString()` makes it
/// Neither the locale nor the format flags of the stream have a say; its width does.
/// \throws CZqException  as `ToString()`
/// @{
ZQXMLLIB9_API std::ostream& operator<<(std::ostream& stream, const CBigInteger& value);
ZQXMLLIB9_API std::ostream& operator<<(std::ostream& stream, const CDateTime& value);
ZQXMLLIB9_API std::ostream& operator<<(std::ostream& stream, const CDateTimeSpan& value);
ZQXMLLIB9_API std::ostream& operator<<(std::ostream& stream, const CDecimal& value);
/// @}

}  // namespace ZqXmlLib9
