#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/types/BigInteger.h>
#include <ZqXmlLib9/types/DateTime.h>
#include <ZqXmlLib9/types/DateTimeSpan.h>
#include <ZqXmlLib9/types/Decimal.h>
#include <ZqXmlLib9/types/StreamOutput.h>

#include <ostream>

namespace ZqXmlLib9 {

std::ostream& operator<<(std::ostream& stream, const CBigInteger& value)
{
    return stream << ToUtf8(value.ToString());
}

std::ostream& operator<<(std::ostream& stream, const CDateTime& value)
{
    return stream << ToUtf8(value.ToString());
}

std::ostream& operator<<(std::ostream& stream, const CDateTimeSpan& value)
{
    return stream << ToUtf8(value.ToString());
}

std::ostream& operator<<(std::ostream& stream, const CDecimal& value)
{
    return stream << ToUtf8(value.ToString());
}

}  // namespace ZqXmlLib9
