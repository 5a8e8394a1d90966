#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/ZqVariant.h>
#include <ZqXmlLib9/metadata/RestrictionCheck.h>
#include <ZqXmlLib9/types/PrimitiveRestrictions.h>

namespace ZqXmlLib9 {
namespace {

bool HasFacet(const CPrimitiveRestrictions& restrictions)
{
    return restrictions.m_minLength >= 0 || restrictions.m_maxLength >= 0
           || restrictions.m_length >= 0 || !restrictions.m_pattern.empty()
           || !restrictions.m_minInclusive.empty() || !restrictions.m_maxInclusive.empty()
           || !restrictions.m_minExclusive.empty() || !restrictions.m_maxExclusive.empty();
}

}  // namespace

void CheckRestrictionValue(const char16_t* name, const ZqVariant& value, ItemType type,
                           const CPrimitiveRestrictions& restrictions)
{
    if (type < ItemType_hexBinary || type > ItemType_integer || type == ItemType_char)
        throw CZqInvalidValueException(FormatString(u"unknown type [%s]", value.GetType()));
    if (HasFacet(restrictions))
        throw CZqException(FormatString(
            u"The facets of [%s] can not be tested by this version of the library", name));
}

}  // namespace ZqXmlLib9
