/// \file RestrictionCheck.h
/// The test of a value against the facets of its metadata.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/types/ItemType.h>

namespace ZqXmlLib9 {

class CPrimitiveRestrictions;
class ZqVariant;

/// Tests a value against facets; a record without facets passes every value.
/// \param name  of the element or attribute, for the message
/// \param type  the item type of the metadata
/// \throws CZqInvalidValueException  "unknown type [...]" for a type that has no facets
/// \throws CZqException              there is a facet: this version of the library tests none
ZQXMLLIB9_API void CheckRestrictionValue(const char16_t* name, const ZqVariant& value,
                                         ItemType type, const CPrimitiveRestrictions& restrictions);

}  // namespace ZqXmlLib9
