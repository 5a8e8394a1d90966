#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/types/PrimitiveRestrictions.h>

namespace ZqXmlLib9 {

CPrimitiveRestrictions::CPrimitiveRestrictions() = default;
CPrimitiveRestrictions::CPrimitiveRestrictions(const CPrimitiveRestrictions&) = default;
CPrimitiveRestrictions& CPrimitiveRestrictions::operator=(const CPrimitiveRestrictions&) = default;
CPrimitiveRestrictions::~CPrimitiveRestrictions() = default;

CPrimitiveRestrictions::CPrimitiveRestrictions(const char16_t* pattern, int minLength,
                                               int maxLength, const char16_t* minInclusive,
                                               const char16_t* maxInclusive,
                                               const char16_t* minExclusive,
                                               const char16_t* maxExclusive, int length)
    : m_pattern(TextOrEmpty(pattern)), m_minLength(minLength), m_maxLength(maxLength),
      m_minInclusive(TextOrEmpty(minInclusive)), m_maxInclusive(TextOrEmpty(maxInclusive)),
      m_minExclusive(TextOrEmpty(minExclusive)), m_maxExclusive(TextOrEmpty(maxExclusive)),
      m_length(length)
{}

}  // namespace ZqXmlLib9
