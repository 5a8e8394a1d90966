/// \file CheckValue.h
/// The test of a value against the facets of its type.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/types/PrimitiveRestrictions.h>
#include <ZqXmlLib9/types/ValueKind.h>

namespace ZqXmlLib9 {

/// Tests a value of an item type, any but `ItemType_char`; it raises or does nothing.
///
/// | types                            | facets                                                    |
/// |----------------------------------|-----------------------------------------------------------|
/// | `hexBinary`, `base64Binary`      | the lengths, in octets                                    |
/// | `string`                         | the lengths, in code units, then the pattern              |
/// | `boolean`                        | none                                                      |
/// | all others                       | the bounds, each read from its text for every test        |
///
/// Bounds of dates and durations pass what can't be compared with them. A NaN passes no bound.
///
/// A pattern is a regular expression of XML Schema, translated to PCRE2's: the escapes `\i`, `\I`,
/// `\c`, `\C` and four blocks `\p{Is...}` are replaced, everything else goes there as it is. The
/// first match at the start of the value has to be the whole value: `a|ab` doesn't match "ab". A
/// match that takes more than the limits of steps and memory counts as none.
///
/// Any thread may call.
/// Source: XML Schema Part 2, 4.3.
///
/// \param name  of the element or attribute, for the message
/// \throws CZqException  "Invalid Value for %s [%s]" or [%d] or [%f], with the value; and before a
///         line feed and that, "Invalid Regular Expression: %s Error: '%s'" for a bad pattern
/// \throws CZqInvalidValueException  what the conversion of the type throws for a bound's text
/// \throws CZqInvalidStateException  the same for a bound of a day, month or year that has none
template <ItemType type>
void CheckValue(const char16_t* name, const ValueOf<type>& value,
                const CPrimitiveRestrictions& restrictions);

extern template ZQXMLLIB9_API void
CheckValue<ItemType_hexBinary>(const char16_t*, const ValueOf<ItemType_hexBinary>&,
                               const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void
CheckValue<ItemType_base64Binary>(const char16_t*, const ValueOf<ItemType_base64Binary>&,
                                  const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_i1>(const char16_t*,
                                                           const ValueOf<ItemType_i1>&,
                                                           const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_i2>(const char16_t*,
                                                           const ValueOf<ItemType_i2>&,
                                                           const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_i4>(const char16_t*,
                                                           const ValueOf<ItemType_i4>&,
                                                           const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_i8>(const char16_t*,
                                                           const ValueOf<ItemType_i8>&,
                                                           const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_ui1>(const char16_t*,
                                                            const ValueOf<ItemType_ui1>&,
                                                            const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_ui2>(const char16_t*,
                                                            const ValueOf<ItemType_ui2>&,
                                                            const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_ui4>(const char16_t*,
                                                            const ValueOf<ItemType_ui4>&,
                                                            const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_ui8>(const char16_t*,
                                                            const ValueOf<ItemType_ui8>&,
                                                            const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_r4>(const char16_t*,
                                                           const ValueOf<ItemType_r4>&,
                                                           const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_r8>(const char16_t*,
                                                           const ValueOf<ItemType_r8>&,
                                                           const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_duration>(const char16_t*,
                                                                 const ValueOf<ItemType_duration>&,
                                                                 const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void
CheckValue<ItemType_yearMonth>(const char16_t*, const ValueOf<ItemType_yearMonth>&,
                               const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_monthDay>(const char16_t*,
                                                                 const ValueOf<ItemType_monthDay>&,
                                                                 const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_year>(const char16_t*,
                                                             const ValueOf<ItemType_year>&,
                                                             const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_month>(const char16_t*,
                                                              const ValueOf<ItemType_month>&,
                                                              const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_day>(const char16_t*,
                                                            const ValueOf<ItemType_day>&,
                                                            const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_date>(const char16_t*,
                                                             const ValueOf<ItemType_date>&,
                                                             const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_datetime>(const char16_t*,
                                                                 const ValueOf<ItemType_datetime>&,
                                                                 const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_time>(const char16_t*,
                                                             const ValueOf<ItemType_time>&,
                                                             const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_string>(const char16_t*,
                                                               const ValueOf<ItemType_string>&,
                                                               const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_boolean>(const char16_t*,
                                                                const ValueOf<ItemType_boolean>&,
                                                                const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_decimal>(const char16_t*,
                                                                const ValueOf<ItemType_decimal>&,
                                                                const CPrimitiveRestrictions&);
extern template ZQXMLLIB9_API void CheckValue<ItemType_integer>(const char16_t*,
                                                                const ValueOf<ItemType_integer>&,
                                                                const CPrimitiveRestrictions&);

}  // namespace ZqXmlLib9
