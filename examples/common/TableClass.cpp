#include "TableClass.h"

#include <mutex>

namespace Examples {

void CTableClass::AccessProperty(int propertyIndex, bool read, ZqVariant& value)
{
    GetTable().GetProperties()[static_cast<std::size_t>(propertyIndex)].access(*this, read, value);
}

void CTableClass::Init()
{
    const CTable& table = GetTable();
    for (const SProperty& property : table.GetProperties())
        property.reset(property, table.GetNamespace(), *this);
}

std::u16string CTableClass::GetTargetNamespace() const
{
    return GetTable().GetNamespace();
}

std::u16string CTableClass::GetNamespace() const
{
    return GetTable().GetNamespace();
}

CParentElementInfo* CTableClass::GetClassInfo() const
{
    return GetTable().GetMetadata().parent;
}

CElementInfo** CTableClass::GetClassElementInfo() const
{
    return GetTable().GetMetadata().elements;
}

CAttributeInfo** CTableClass::GetClassAttributeInfo() const
{
    return GetTable().GetMetadata().attributes;
}

const CTableClass::CTable::SMetadata& CTableClass::CTable::GetMetadata()
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

void CTableClass::CTable::Build()
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
            *element++ = property.makeElement(property, m_namespace, index);
        ++index;
    }
    m_metadata.parent =
        new CParentElementInfo(ZqXmlLib9Data::XmlElementGroupType_Sequence,
                               ZqXmlLib9Data::XmlElementType_Element, m_typeName, m_namespace,
                               /*elementTextPropertyIndex*/ -1, /*failIfAttributeUnknown*/ true,
                               /*hasBaseClasses*/ false);
}

}  // namespace Examples
