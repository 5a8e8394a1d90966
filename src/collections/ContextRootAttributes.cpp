// The additional root attributes of a context. They are made by an operation that is const and that
// many threads run at once with the default context, so the first one puts them in by an atomic
// exchange and the others take what they find.

#include <ZqXmlLib9/collections/AttributeCol.h>
#include <ZqXmlLib9/engine/XmlSerializationContext.h>

namespace ZqXmlLib9 {

CSmartPtr<CAttributeCol> CXmlSerializationContext::GetAdditionalRootAttributes() const
{
    return m_rootAttributes.Get();
}

CXmlSerializationContext::CRootAttributes::CRootAttributes(const CRootAttributes& other)
    : m_attributes(other.m_attributes.load(std::memory_order_acquire))
{
    if (CAttributeCol* const shared = m_attributes.load(std::memory_order_relaxed))
        shared->AddRef();
}

CXmlSerializationContext::CRootAttributes&
CXmlSerializationContext::CRootAttributes::operator=(const CRootAttributes& other)
{
    CRootAttributes copy(other);
    copy.m_attributes = m_attributes.exchange(copy.m_attributes);
    return *this;
}

CXmlSerializationContext::CRootAttributes::~CRootAttributes()
{
    if (CAttributeCol* const held = m_attributes.load(std::memory_order_relaxed))
        held->Release();
}

CSmartPtr<CAttributeCol> CXmlSerializationContext::CRootAttributes::Get()
{
    CAttributeCol* present = m_attributes.load(std::memory_order_acquire);
    if (present == nullptr) {
        CSmartPtr<CAttributeCol> made(new CAttributeCol(u"", u"##any", u""));
        if (!m_attributes.compare_exchange_strong(present, made.Get(), std::memory_order_acq_rel))
            return present;
        made->AddRef();
        return made;
    }
    return present;
}

}  // namespace ZqXmlLib9
