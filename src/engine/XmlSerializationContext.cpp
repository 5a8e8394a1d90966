#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/engine/XmlSerializationContext.h>

namespace ZqXmlLib9 {

// The priority places it before the initialisers of all files that state none.
[[gnu::init_priority(102)]] CXmlSerializationContext CXmlSerializationContext::m_defaultContext;

// Not inline: a program would have a copy of the object, whose size is the library's affair.
CXmlSerializationContext& CXmlSerializationContext::GetDefaultContext() noexcept
{
    return m_defaultContext;
}

CXmlSerializationContext::CXmlSerializationContext() = default;
CXmlSerializationContext::CXmlSerializationContext(const CXmlSerializationContext&) = default;
CXmlSerializationContext&
CXmlSerializationContext::operator=(const CXmlSerializationContext&) = default;
CXmlSerializationContext::~CXmlSerializationContext() = default;

void CXmlSerializationContext::SetDefaultNamespaceURI(const char16_t* uri)
{
    m_defaultNamespaceUri = TextOrEmpty(uri);
}

void CXmlSerializationContext::SetInLineSchema(const char16_t* schema)
{
    m_inLineSchema = TextOrEmpty(schema);
}

void CXmlSerializationContext::SetIgnoreMissingMandatoryElements(bool ignore)
{
    if (ignore && m_ignoreUnknownElements)
        throw CZqInvalidStateException(
            u"The parser can only ignore additional elements, or ignore the fact that some "
            u"required ones are missing, you can not ignore both\n"
            u"Set IgnoreUnknownElements to false before setting IgnoreMissingMandatoryElements to "
            u"true");
    m_ignoreMissingMandatoryElements = ignore;
}

void CXmlSerializationContext::SetIgnoreUnknownElements(bool ignore)
{
    if (ignore && m_ignoreMissingMandatoryElements)
        throw CZqInvalidStateException(
            u"The parser can only ignore additional elements, or ignore the fact that some "
            u"required ones are missing, you can not ignore both\n"
            u"Set IgnoreMissingMandatoryElements to false before setting IgnoreUnknownElements to "
            u"true");
    m_ignoreUnknownElements = ignore;
}

}  // namespace ZqXmlLib9
