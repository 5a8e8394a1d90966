#include "GpxClass.h"

#include <mutex>

namespace Gpx {

void CGpxClass::AccessProperty(int propertyIndex, bool read, ZqVariant& value)
{
    GetTable().GetProperties()[static_cast<std::size_t>(propertyIndex)].access(*this, read, value);
}

void CGpxClass::Init()
{
    for (const SProperty& property : GetTable().GetProperties())
        property.reset(property, *this);
}

CParentElementInfo* CGpxClass::GetClassInfo() const
{
    return GetTable().GetMetadata().parent;
}

CElementInfo** CGpxClass::GetClassElementInfo() const
{
    return GetTable().GetMetadata().elements;
}

CAttributeInfo** CGpxClass::GetClassAttributeInfo() const
{
    return GetTable().GetMetadata().attributes;
}

const CGpxClass::CTable::SMetadata& CGpxClass::CTable::GetMetadata()
{
    // The engine asks several times per element: the lock is for the first time alone.
    if (!m_isBuilt.load(std::memory_order_acquire)) {
        const std::lock_guard lock(m_csInit);
        if (!m_isBuilt.load(std::memory_order_relaxed)) {
            Build();
            m_isBuilt.store(true, std::memory_order_release);
        }
    }
    return m_metadata;
}

void CGpxClass::CTable::Build()
{
    Clean();  // what a build left behind that ran out of memory
    // Null entries end the arrays, however many of the records are elements or attributes.
    m_metadata.elements = new CElementInfo* [m_properties.size() + 1] {};
    m_metadata.attributes = new CAttributeInfo* [m_properties.size() + 1] {};
    CElementInfo** element = m_metadata.elements;
    CAttributeInfo** attribute = m_metadata.attributes;
    for (int index = 0; const SProperty& property : m_properties) {
        if (property.makeAttribute != nullptr)
            *attribute++ = property.makeAttribute(property, index);
        else
            *element++ = property.makeElement(property, index);
        ++index;
    }
    m_metadata.parent =
        new CParentElementInfo(ZqXmlLib9Data::XmlElementGroupType_Sequence,
                               ZqXmlLib9Data::XmlElementType_Element, m_typeName, kNamespace,
                               /*elementTextPropertyIndex*/ -1, /*failIfAttributeUnknown*/ true,
                               /*hasBaseClasses*/ false);
}

}  // namespace Gpx
