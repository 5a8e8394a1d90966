#include "Component.h"

namespace Metainfo {

using namespace ZqXmlLib9Data;

struct CComponent::SMetadata {
    CParentElementInfo* parent = nullptr;
    CElementInfo** elements = nullptr;
    CAttributeInfo** attributes = nullptr;

    ~SMetadata() { CleanMetaData(parent, elements, attributes); }
};

CComponent::CComponent()
{
    SetElementName(u"component");
}

void CComponent::AccessProperty(int propertyIndex, bool read, ZqXmlLib9::ZqVariant& value)
{
    std::u16string* const properties[] = {&m_id, &m_name, &m_summary};
    if (read)
        value.SetString(*properties[propertyIndex]);
    else
        *properties[propertyIndex] = value.GetString();
}

void CComponent::Init()
{
    m_id.clear();
    m_name.clear();
    m_summary.clear();
}

const CComponent::SMetadata& CComponent::GetMetadata()
{
    static SMetadata metadata;
    const std::lock_guard lock(m_csInit);
    if (metadata.parent == nullptr) {
        const auto text = [](const char16_t* name, int propertyIndex) {
            return new CElementInfoSeqPrimMnd(name, u"", propertyIndex, ZqXmlLib9::ItemType_string,
                                              nullptr, CWhitespaceUtils::WhitespaceRule_Collapse,
                                              CPrimitiveRestrictions());
        };
        metadata.elements =
            new CElementInfo* [] { text(u"id", 0), text(u"name", 1), text(u"summary", 2), nullptr };
        metadata.attributes = new CAttributeInfo* [] { nullptr };
        metadata.parent = new CParentElementInfo(XmlElementGroupType_Sequence,
                                                 XmlElementType_Element, u"component", u"", -1,
                                                 /*failIfAttributeUnknown*/ true,
                                                 /*hasBaseClasses*/ false);
    }
    return metadata;
}

CParentElementInfo* CComponent::GetClassInfo() const
{
    return GetMetadata().parent;
}

CElementInfo** CComponent::GetClassElementInfo() const
{
    return GetMetadata().elements;
}

CAttributeInfo** CComponent::GetClassAttributeInfo() const
{
    return GetMetadata().attributes;
}

}  // namespace Metainfo
