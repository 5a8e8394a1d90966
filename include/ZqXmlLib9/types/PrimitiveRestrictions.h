/// \file PrimitiveRestrictions.h
/// The facets of one primitive element or attribute.
#pragma once

#include <ZqXmlLib9/Export.h>

#include <cstdint>
#include <string>

namespace ZqXmlLib9 {

/// The facets as the schema gives them; the bounds are its literal text, not a parsed value.
///
/// A plain value, shared read-only once it stands in a metadata record.
/// Source: XML Schema Part 2, 4.3.
class ZQXMLLIB9_API CPrimitiveRestrictions {
public:
    /// No facet: every value passes.
    CPrimitiveRestrictions();

    /// Null pointers count as empty, that is as absent.
    CPrimitiveRestrictions(const char16_t* pattern, int minLength, int maxLength,
                           const char16_t* minInclusive, const char16_t* maxInclusive,
                           const char16_t* minExclusive, const char16_t* maxExclusive, int length);
    CPrimitiveRestrictions(const CPrimitiveRestrictions&);
    CPrimitiveRestrictions& operator=(const CPrimitiveRestrictions&);
    virtual ~CPrimitiveRestrictions();

    std::u16string m_pattern;       ///< absent when empty
    std::int32_t m_minLength = -1;  ///< in octets or code units; absent when negative
    std::int32_t m_maxLength = -1;  ///< in octets or code units; absent when negative
    std::u16string m_minInclusive;  ///< absent when empty
    std::u16string m_maxInclusive;  ///< absent when empty
    std::u16string m_minExclusive;  ///< absent when empty
    std::u16string m_maxExclusive;  ///< absent when empty
    std::int32_t m_length = -1;     ///< in octets or code units; absent when negative
};

}  // namespace ZqXmlLib9
