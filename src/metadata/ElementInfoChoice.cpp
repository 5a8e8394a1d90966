// How the records of a choice read.

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/XmlGeneratedClass.h>
#include <ZqXmlLib9/metadata/ElementInfoChoice.h>
#include <ZqXmlLib9/xml/XmlElement.h>

namespace ZqXmlLib9Data {

CElementInfoChoice::CElementInfoChoice(const char16_t* name, const char16_t* ns, int propertyIndex)
    : CElementInfo(name, ns, propertyIndex)
{}

CElementInfoChoice::CElementInfoChoice(const char16_t* name, const char16_t* ns, int propertyIndex,
                                       ItemType itemType, const char16_t* format,
                                       CWhitespaceUtils::WhitespaceRule rule,
                                       const CPrimitiveRestrictions& restrictions)
    : CElementInfo(name, ns, propertyIndex, itemType, format, rule, restrictions)
{}

bool CElementInfoChoice::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool,
                                  bool) const
{
    throw ZqXmlLib9::CZqException(u"Not implemented, should never be called");
}

bool CElementInfoChoicePrimOpt::Read(const SElementReading& reading) const
{
    return TakeIfHere(reading, [&] { TakePrim(reading); });
}

bool CElementInfoChoiceEnumOpt::Read(const SElementReading& reading) const
{
    return TakeIfHere(reading, [&] { Take(reading); });
}

bool CElementInfoChoiceClsOpt::ElementToXml(const CXmlSerializationContext& context,
                                            const CXmlGeneratedClass* object,
                                            CXmlWriter* writer) const
{
    return ElementToXmlCls(context, object, writer, true);
}

bool CElementInfoChoiceClsOpt::Read(const SElementReading& reading) const
{
    if (HasTag())
        return TakeIfHere(reading, [&] {
            const CSmartPtr<CXmlObjectBase> child = Make();
            StoreObject(reading, child.Get());
            ReadElement(reading, child.Get(), true);
        });
    if (*reading.cursor == nullptr)
        return false;
    const CSmartPtr<CXmlObjectBase> child = Make();
    StoreObject(reading, child.Get());
    const bool taken = ReadRun(reading, child.Get());
    if (!taken)
        StoreObject(reading, nullptr);
    return taken;
}

bool CElementInfoChoiceAbsClsOpt::Read(const SElementReading& reading) const
{
    if (!IsHere(reading))
        return false;
    const CSmartPtr<CXmlObjectBase> child = Make(*reading.cursor);
    StoreObject(reading, child.Get());
    if (child != nullptr)
        ReadElement(reading, child.Get());
    return child != nullptr;
}

bool CElementInfoChoiceUntpdOpt::Read(const SElementReading& reading) const
{
    if (*reading.cursor == nullptr)
        return false;
    const bool taken = TakeNew(reading);
    if (!taken)
        StoreObject(reading, nullptr);
    return taken;
}

CElementInfoChoiceCol::CElementInfoChoiceCol(const char16_t* name, const char16_t* ns,
                                             int propertyIndex)
    : CElementInfoReadingOf<CElementInfoChoice>(name, ns, propertyIndex)
{}

bool CElementInfoChoiceCol::ElementToXml(const CXmlSerializationContext& context,
                                         const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    return ElementToXmlCol(context, object, writer);
}

bool CElementInfoChoiceCol::Read(const SElementReading& reading) const
{
    const CSmartPtr<CXmlCollectionBase> collection = RequireCollection(reading);
    CXmlElement* const start = *reading.cursor;
    if (!ReadItems(reading, collection.Get()))
        return false;
    if (reading.IsInElement()) {
        collection->ValidateCount(reading.context);
        return true;
    }
    const bool isValid = collection->IsValidCount(reading.context);
    if (!isValid)
        *reading.cursor = start;  // the items that were read stay in the collection
    return isValid;
}

bool CElementInfoChoiceCol::ReadItems(const SElementReading& reading,
                                      CXmlCollectionBase* collection) const
{
    return ReadRun(reading, collection->GetBase());
}

CElementInfoChoiceClsCol::CElementInfoChoiceClsCol(const char16_t* name, const char16_t* ns,
                                                   int propertyIndex, XmlElementType elementType)
    : CElementInfoTypedOf<CElementInfoChoiceCol>(name, ns, propertyIndex, elementType)
{}

CElementInfoChoiceAbsClsCol::CElementInfoChoiceAbsClsCol(const char16_t* name, const char16_t* ns,
                                                         int propertyIndex,
                                                         XmlElementType elementType)
    : CElementInfoTypedOf<CElementInfoChoiceCol>(name, ns, propertyIndex, elementType)
{}

bool CElementInfoChoiceUntpdCol::ReadItems(const SElementReading& reading,
                                           CXmlCollectionBase* collection) const
{
    return ReadOpenElements(reading, collection);
}

}  // namespace ZqXmlLib9Data
