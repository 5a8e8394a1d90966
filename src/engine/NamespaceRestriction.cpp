#include "NamespaceRestriction.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/XmlObjectBase.h>

#include <algorithm>

namespace ZqXmlLib9 {
namespace {

bool PassesToken(std::u16string_view ns, std::u16string_view token,
                 std::u16string_view targetNamespace) noexcept
{
    if (token == kAnyNamespace)
        return true;
    if (token == kOtherNamespace)
        return ns != targetNamespace;
    if (token == kLocalNamespace)
        return ns.empty();
    if (token == kTargetNamespace)
        return ns == targetNamespace;
    return ns == token || ns.empty();
}

}  // namespace

std::u16string_view TakeToken(std::u16string_view& restriction) noexcept
{
    const std::u16string_view token = restriction.substr(0, restriction.find(u' '));
    restriction.remove_prefix(std::min(token.size() + 1, restriction.size()));
    return token;
}

bool DoesNamespacePass(std::u16string_view ns, std::u16string_view restriction,
                       std::u16string_view targetNamespace) noexcept
{
    do {
        if (PassesToken(ns, TakeToken(restriction), targetNamespace))
            return true;
    } while (!restriction.empty());
    return false;
}

void RequireNamespacePasses(std::u16string_view ns, std::u16string_view restriction,
                            std::u16string_view targetNamespace)
{
    if (!DoesNamespacePass(ns, restriction, targetNamespace))
        throw CZqInvalidNamespaceException(
            FormatString(u"Invalid namespace [%s]. The namespace must be one of [%s] where the "
                         u"target namespace is [%s]",
                         ns, restriction, targetNamespace));
}

bool CXmlObjectBase::IsNamespaceValid(const char16_t* ns, const char16_t* restriction,
                                      const char16_t* targetNamespace) const
{
    return DoesNamespacePass(TextOrEmpty(ns), TextOrEmpty(restriction),
                             TextOrEmpty(targetNamespace));
}

void CXmlObjectBase::TestNamespace(const char16_t* ns, const char16_t* restriction,
                                   const char16_t* targetNamespace) const
{
    RequireNamespacePasses(TextOrEmpty(ns), TextOrEmpty(restriction), TextOrEmpty(targetNamespace));
}

}  // namespace ZqXmlLib9
