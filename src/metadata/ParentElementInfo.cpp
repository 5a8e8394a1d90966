#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/metadata/ParentElementInfo.h>

namespace ZqXmlLib9Data {

using ZqXmlLib9::TextOrEmpty;

CParentElementInfo::CParentElementInfo(XmlElementGroupType groupType, XmlElementType elementType,
                                       const char16_t* elementName,
                                       const char16_t* elementNamespace,
                                       int elementTextPropertyIndex, bool failIfAttributeUnknown,
                                       bool hasBaseClasses)
    : m_groupType(groupType), m_elementType(elementType), m_elementName(TextOrEmpty(elementName)),
      m_elementNamespace(TextOrEmpty(elementNamespace)),
      m_elementTextPropertyIndex(elementTextPropertyIndex),
      m_failIfAttributeUnknown(failIfAttributeUnknown), m_hasBaseClasses(hasBaseClasses)
{}

CParentElementInfo::CParentElementInfo(const CParentElementInfo&) = default;
CParentElementInfo& CParentElementInfo::operator=(const CParentElementInfo&) = default;
CParentElementInfo::~CParentElementInfo() = default;

}  // namespace ZqXmlLib9Data
