// What a generated class is made of; the walks stand in XmlGeneratedClassWrite.cpp and
// XmlGeneratedClassRead.cpp.

#include <ZqXmlLib9/engine/Nillable.h>
#include <ZqXmlLib9/engine/XmlGeneratedClass.h>
#include <ZqXmlLib9/metadata/ElementInfoChoice.h>

#include <utility>

namespace ZqXmlLib9 {
namespace {

template <typename... TInfos>
bool IsOneOf(const CElementInfo* info)
{
    return ((dynamic_cast<const TInfos*>(info) != nullptr) || ...);
}

/// Deletes the records of an array up to its null entry, and the array.
template <typename TInfo>
void DeleteInfos(TInfo**& infos)
{
    if (infos == nullptr)
        return;
    for (TInfo** info = infos; *info != nullptr; ++info)
        delete std::exchange(*info, nullptr);
    delete[] std::exchange(infos, nullptr);
}

}  // namespace

CZQCriticalSection CXmlGeneratedClass::m_csInit;

CXmlGeneratedClass::CXmlGeneratedClass() = default;
CXmlGeneratedClass::CXmlGeneratedClass(const CXmlGeneratedClass&) = default;
CXmlGeneratedClass& CXmlGeneratedClass::operator=(const CXmlGeneratedClass&) = default;
CXmlGeneratedClass::~CXmlGeneratedClass() = default;

void CXmlGeneratedClass::ReadProperty(int propertyIndex, ZqVariant& value) const
{
    const_cast<CXmlGeneratedClass*>(this)->AccessProperty(propertyIndex, true, value);
}

bool CXmlGeneratedClass::IsNilObject() const
{
    std::atomic<const std::type_info*>& plainClass = GetClassInfo()->m_plainClass.type;
    const std::type_info& type = typeid(*this);
    if (plainClass.load(std::memory_order_relaxed) == &type)
        return false;
    const auto* const nillable = dynamic_cast<const INillable*>(this);
    if (nillable == nullptr)
        plainClass.store(&type, std::memory_order_relaxed);
    return nillable != nullptr && nillable->IsNil();
}

bool CXmlGeneratedClass::IsElementInList(const CXmlSerializationContext& context,
                                         CXmlElement* element) const
{
    for (CElementInfo** info = GetClassElementInfo(); info != nullptr && *info != nullptr; ++info)
        if ((*info)->IsThisElement(context, element))
            return true;
    return false;
}

bool CXmlGeneratedClass::DoesElementContainOptionalElements() const
{
    for (CElementInfo** info = GetClassElementInfo(); info != nullptr && *info != nullptr; ++info) {
        using namespace ZqXmlLib9Data;
        if (IsOneOf<CElementInfoChoicePrimOpt, CElementInfoChoiceEnumOpt, CElementInfoChoiceClsOpt,
                    CElementInfoChoiceAbsClsOpt, CElementInfoChoiceUntpdOpt>(*info))
            return true;
        if (!IsOneOf<CElementInfoChoicePrimCol, CElementInfoChoiceEnumCol, CElementInfoChoiceClsCol,
                     CElementInfoChoiceAbsClsCol, CElementInfoChoiceUntpdCol>(*info))
            continue;
        ZqVariant value;
        (*info)->ReadProperty(this, value);
        const CSmartPtr<CXmlCollectionBase> collection = value.GetXmlCollection();
        if (collection != nullptr && collection->GetMinOccurs() == 0)
            return true;
    }
    return false;
}

void CXmlGeneratedClass::CleanMetaData(CParentElementInfo*& parent, CElementInfo**& elements,
                                       CAttributeInfo**& attributes)
{
    delete std::exchange(parent, nullptr);
    DeleteInfos(elements);
    DeleteInfos(attributes);
}

}  // namespace ZqXmlLib9
