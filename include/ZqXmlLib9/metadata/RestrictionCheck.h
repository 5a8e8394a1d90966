/// \file RestrictionCheck.h
/// The test of a value against the facets of its metadata.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/types/ItemType.h>

namespace ZqXmlLib9 {

class CPrimitiveRestrictions;
class ZqVariant;

/// `CheckValue` for a value whose type is known at run time alone.
/// \param name  of the element or attribute, for the message
/// \param type  the item type of the metadata, by which the value is read
/// \throws CZqInvalidValueException  "unknown type [%s]" with the word of the value's own type,
///         for `ItemType_char`, objects and collections
/// \throws CZqInvalidStateException  the value is of another kind than `type`
/// \throws CZqException              what `CheckValue` throws
ZQXMLLIB9_API void CheckRestrictionValue(const char16_t* name, const ZqVariant& value,
                                         ItemType type, const CPrimitiveRestrictions& restrictions);

}  // namespace ZqXmlLib9
