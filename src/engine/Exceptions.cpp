// Each element level of a document wraps the failure below it. Were the chain below copied at each
// level, a failure at the deepest level would cost its depth squared; so the inner exceptions,
// which nothing can change, are shared between copies.

#include "../platform/TextEncodings.h"

#include <ZqXmlLib9/engine/Exceptions.h>

#include <ostream>

namespace ZqXmlLib9 {

CZqException::CZqException() = default;
CZqException::CZqException(const CZqException&) = default;
CZqException& CZqException::operator=(const CZqException&) = default;
CZqException::~CZqException() = default;

CZqException::CZqException(std::u16string message) : m_message(std::move(message)) {}

CZqException::CZqException(std::u16string message, const CZqException& inner)
    : m_message(std::move(message)), m_inner(inner.Clone())
{}

CZqException* CZqException::Clone() const
{
    return new CZqException(*this);
}

std::u16string CZqException::GetFullMessage() const
{
    std::u16string text = m_message;
    for (const CZqException* inner = m_inner.get(); inner != nullptr; inner = inner->m_inner.get())
        text.append(u"\n").append(inner->m_message);
    return text;
}

std::string CZqException::GetFullMessageUtf8() const
{
    return ToPrintableUtf8(GetFullMessage());
}

std::ostream& operator<<(std::ostream& stream, const CZqException& failure)
{
    return stream << failure.GetFullMessageUtf8();
}

}  // namespace ZqXmlLib9
