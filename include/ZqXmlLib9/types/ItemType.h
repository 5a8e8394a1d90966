/// \file ItemType.h
/// The kinds of values that properties have.
#pragma once

#include <cstdint>

namespace ZqXmlLib9 {

/// The type of a value, the tag of `ZqVariant`; writers get it with every text.
enum ItemType : std::int32_t {
    ItemType_invalid = 0,  ///< no value
    ItemType_hexBinary = 1,
    ItemType_base64Binary = 2,
    ItemType_i1 = 3,    ///< signed, 8 bits
    ItemType_i2 = 4,    ///< signed, 16 bits
    ItemType_i4 = 5,    ///< signed, 32 bits
    ItemType_i8 = 6,    ///< signed, 64 bits
    ItemType_ui1 = 7,   ///< unsigned, 8 bits
    ItemType_ui2 = 8,   ///< unsigned, 16 bits
    ItemType_ui4 = 9,   ///< unsigned, 32 bits
    ItemType_ui8 = 10,  ///< unsigned, 64 bits
    ItemType_r4 = 11,   ///< floating point, 32 bits
    ItemType_r8 = 12,   ///< floating point, 64 bits
    ItemType_duration = 13,
    ItemType_yearMonth = 14,
    ItemType_monthDay = 15,
    ItemType_year = 16,
    ItemType_month = 17,
    ItemType_day = 18,
    ItemType_date = 19,
    ItemType_datetime = 20,
    ItemType_time = 21,
    ItemType_char = 22,  ///< one code unit
    ItemType_string = 23,
    ItemType_boolean = 24,
    ItemType_decimal = 25,
    ItemType_integer = 26,
    ItemType_xmlObject = 27,      ///< a `CXmlObjectBase`, may be null
    ItemType_xmlCollection = 28,  ///< a `CXmlCollectionBase`, may be null
};

}  // namespace ZqXmlLib9
