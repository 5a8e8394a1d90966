// How the records of a sequence read.

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/XmlGeneratedClass.h>
#include <ZqXmlLib9/metadata/ElementInfoSeq.h>
#include <ZqXmlLib9/xml/XmlElement.h>

namespace ZqXmlLib9Data {

CElementInfoSeq::CElementInfoSeq(const char16_t* name, const char16_t* ns, int propertyIndex)
    : CElementInfo(name, ns, propertyIndex)
{}

CElementInfoSeq::CElementInfoSeq(const char16_t* name, const char16_t* ns, int propertyIndex,
                                 ItemType itemType, const char16_t* format,
                                 CWhitespaceUtils::WhitespaceRule rule,
                                 const CPrimitiveRestrictions& restrictions)
    : CElementInfo(name, ns, propertyIndex, itemType, format, rule, restrictions)
{}

bool CElementInfoSeq::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool,
                               bool) const
{
    throw ZqXmlLib9::CZqException(u"Not implemented, should never be called");
}

CElementInfoSeqNonCol::CElementInfoSeqNonCol(const char16_t* name, const char16_t* ns,
                                             int propertyIndex)
    : CElementInfoSeq(name, ns, propertyIndex)
{}

bool CElementInfoSeqPrimMnd::Read(const SElementReading& reading) const
{
    return TakeRequired(reading, /*mayScan*/ true, [&] { TakePrim(reading); });
}

bool CElementInfoSeqPrimOpt::Read(const SElementReading& reading) const
{
    TakeIfHere(reading, [&] { TakePrim(reading); });
    return true;
}

bool CElementInfoSeqEnumMnd::Read(const SElementReading& reading) const
{
    return TakeRequired(reading, /*mayScan*/ reading.IsInElement(), [&] { Take(reading); });
}

bool CElementInfoSeqEnumOpt::Read(const SElementReading& reading) const
{
    TakeIfHere(reading, [&] { Take(reading); });
    return true;
}

CElementInfoSeqClsMnd::CElementInfoSeqClsMnd(const char16_t* name, const char16_t* ns,
                                             int propertyIndex, XmlElementType elementType,
                                             ClassFactory factory, int classId,
                                             bool hasRequiredContent)
    : CElementInfoClsOf<CElementInfoSeq>(name, ns, propertyIndex, elementType, factory, classId),
      m_hasRequiredContent(hasRequiredContent)
{}

bool CElementInfoSeqClsMnd::Read(const SElementReading& reading) const
{
    const CSmartPtr<CXmlObjectBase> child = ReadObject(reading.object);
    if (!HasTag())
        return ReadGroup(reading, child);
    return TakeRequired(reading, /*mayScan*/ reading.IsInElement(),
                        [&] { ReadElement(reading, RequireObject(child)); });
}

/// A group without a tag reads straight from the cursor, also where nothing is left: the rules of
/// its class for empty content apply then.
bool CElementInfoSeqClsMnd::ReadGroup(const SElementReading& reading,
                                      const CSmartPtr<CXmlObjectBase>& child) const
{
    const bool isElement = reading.IsInElement();
    const bool wasAtEnd = *reading.cursor == nullptr;
    const bool taken =
        !(m_hasRequiredContent && wasAtEnd) && ReadRun(reading, RequireObject(child));
    if (m_hasRequiredContent) {
        if (!taken && isElement)
            ThrowRequired();
        return taken;
    }
    // Where unknown elements are ignored, the walk skips one and comes again.
    return taken || wasAtEnd || !isElement || !reading.context.GetIgnoreUnknownElements();
}

bool CElementInfoSeqClsOpt::Read(const SElementReading& reading) const
{
    TakeNew(reading);
    return true;
}

bool CElementInfoSeqAbsClsMnd::Read(const SElementReading& reading) const
{
    CSmartPtr<CXmlObjectBase> child;
    if (IsHere(reading))
        child = Make(*reading.cursor);
    if (child != nullptr) {
        ReadElement(reading, child.Get());
        StoreObject(reading, child.Get());
        return true;
    }
    if (!reading.IsInElement())
        return false;
    throw ZqXmlLib9::CZqValidationException(ZqXmlLib9::FormatString(
        u"Failed to find a suitable substitution element for [%s]", GetElementName()));
}

bool CElementInfoSeqAbsClsOpt::Read(const SElementReading& reading) const
{
    TakeIfHere(reading, [&] {
        if (const CSmartPtr<CXmlObjectBase> child = Make(*reading.cursor)) {
            ReadElement(reading, child.Get());
            StoreObject(reading, child.Get());
        }
    });
    return true;
}

bool CElementInfoSeqUntpdMnd::Read(const SElementReading& reading) const
{
    const CSmartPtr<CXmlObjectBase> element = ReadObject(reading.object);
    if (*reading.cursor == nullptr)
        ThrowRequired();
    if (ReadOpenElement(reading, RequireObject(element)))
        return true;
    if (!reading.IsInElement())
        return false;
    throw ZqXmlLib9::CZqValidationException(ZqXmlLib9::FormatString(
        u"Failed to find the required element from namespace [%s]", GetElementNamespace()));
}

bool CElementInfoSeqUntpdOpt::Read(const SElementReading& reading) const
{
    TakeNew(reading);
    return true;
}

bool CElementInfoSeqCol::Read(const SElementReading& reading) const
{
    const CSmartPtr<CXmlCollectionBase> collection = RequireCollection(reading);
    ReadItems(reading, collection.Get());
    if (!reading.IsInElement())
        return collection->IsValidCount(reading.context);
    collection->ValidateCount(reading.context);
    return true;
}

bool CElementInfoSeqCol::ReadItems(const SElementReading& reading,
                                   CXmlCollectionBase* collection) const
{
    return ReadRun(reading, collection->GetBase());
}

CElementInfoSeqClsCol::CElementInfoSeqClsCol(const char16_t* name, const char16_t* ns,
                                             int propertyIndex, XmlElementType elementType)
    : CElementInfoTypedOf<CElementInfoSeqCol>(name, ns, propertyIndex, elementType)
{}

CElementInfoSeqAbsClsCol::CElementInfoSeqAbsClsCol(const char16_t* name, const char16_t* ns,
                                                   int propertyIndex, XmlElementType elementType)
    : CElementInfoTypedOf<CElementInfoSeqCol>(name, ns, propertyIndex, elementType)
{}

bool CElementInfoSeqUntpdCol::ReadItems(const SElementReading& reading,
                                        CXmlCollectionBase* collection) const
{
    return ReadOpenElements(reading, collection);
}

}  // namespace ZqXmlLib9Data
