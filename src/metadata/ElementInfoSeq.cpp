// How the records of a sequence read.

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/XmlGeneratedClass.h>
#include <ZqXmlLib9/metadata/ElementInfoSeq.h>
#include <ZqXmlLib9/xml/XmlElement.h>

namespace ZqXmlLib9Data {
namespace {

/// The search of a mandatory record: `search` moves the cursor to its element, `take` takes it. In
/// a class without a tag a miss isn't final.
template <typename TSearch, typename TTake, typename TFail>
bool TakeRequired(const CXmlSerializationContext& context, XmlElementType classElementType,
                  TSearch&& search, TTake&& take, TFail&& fail)
{
    if (search()) {
        take();
        return true;
    }
    if (classElementType != XmlElementType_Element)
        return false;
    if (!context.GetIgnoreMissingMandatoryElements())
        fail();
    return true;
}

}  // namespace

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

bool CElementInfoSeqPrimMnd::ElementFromXml(const CXmlSerializationContext& context,
                                            CXmlGeneratedClass* object, CXmlElement*,
                                            CXmlElement** cursor, const char16_t*,
                                            XmlElementType classElementType)
{
    return TakeRequired(
        context, classElementType, [&] { return ScanToThisElement(context, cursor); },
        [&] { TakePrim(object, cursor); }, [&] { ThrowRequired(); });
}

bool CElementInfoSeqPrimOpt::ElementFromXml(const CXmlSerializationContext& context,
                                            CXmlGeneratedClass* object, CXmlElement*,
                                            CXmlElement** cursor, const char16_t*, XmlElementType)
{
    TakeIfHere(context, cursor, [&] { TakePrim(object, cursor); });
    return true;
}

bool CElementInfoSeqEnumMnd::ElementFromXml(const CXmlSerializationContext& context,
                                            CXmlGeneratedClass* object, CXmlElement*,
                                            CXmlElement** cursor, const char16_t*,
                                            XmlElementType classElementType)
{
    return TakeRequired(
        context, classElementType,
        [&] {
            return classElementType == XmlElementType_Element ? ScanToThisElement(context, cursor)
                                                              : IsThisElement(context, *cursor);
        },
        [&] { Take(object, cursor); }, [&] { ThrowRequired(); });
}

bool CElementInfoSeqEnumOpt::ElementFromXml(const CXmlSerializationContext& context,
                                            CXmlGeneratedClass* object, CXmlElement*,
                                            CXmlElement** cursor, const char16_t*, XmlElementType)
{
    TakeIfHere(context, cursor, [&] { Take(object, cursor); });
    return true;
}

CElementInfoSeqClsMnd::CElementInfoSeqClsMnd(const char16_t* name, const char16_t* ns,
                                             int propertyIndex, XmlElementType elementType,
                                             ClassFactory factory, int classId,
                                             bool hasRequiredContent)
    : CElementInfoClsOf<CElementInfoSeq>(name, ns, propertyIndex, elementType, factory, classId),
      m_hasRequiredContent(hasRequiredContent)
{}

bool CElementInfoSeqClsMnd::ElementFromXml(const CXmlSerializationContext& context,
                                           CXmlGeneratedClass* object, CXmlElement* parent,
                                           CXmlElement** cursor, const char16_t*,
                                           XmlElementType classElementType)
{
    if (!HasTag())
        return ReadGroup(context, object, parent, cursor, classElementType);
    return TakeRequired(
        context, classElementType,
        [&] {
            return classElementType == XmlElementType_Element ? ScanToThisElement(context, cursor)
                                                              : IsThisElement(context, *cursor);
        },
        [&] { ReadElement(context, RequireObject(object).Get(), cursor, false); },
        [&] { ThrowRequired(); });
}

/// A group without a tag reads straight from the cursor, also where nothing is left: the rules of
/// its class for empty content apply then.
bool CElementInfoSeqClsMnd::ReadGroup(const CXmlSerializationContext& context,
                                      CXmlGeneratedClass* object, CXmlElement* parent,
                                      CXmlElement** cursor, XmlElementType classElementType) const
{
    const bool isElement = classElementType == XmlElementType_Element;
    const bool wasAtEnd = *cursor == nullptr;
    const bool taken = !(m_hasRequiredContent && wasAtEnd)
                       && ReadRun(context, RequireObject(object).Get(), parent, cursor);
    if (m_hasRequiredContent) {
        if (!taken && isElement)
            ThrowRequired();
        return taken;
    }
    // Where unknown elements are ignored, the walk skips one and comes again.
    return taken || wasAtEnd || !isElement || !context.GetIgnoreUnknownElements();
}

bool CElementInfoSeqClsOpt::ElementFromXml(const CXmlSerializationContext& context,
                                           CXmlGeneratedClass* object, CXmlElement* parent,
                                           CXmlElement** cursor, const char16_t*, XmlElementType)
{
    if (HasTag()) {
        TakeIfHere(context, cursor, [&] {
            const CSmartPtr<CXmlObjectBase> child = Make();
            ReadElement(context, child.Get(), cursor, false);
            StoreObject(object, child.Get());
        });
    }
    else if (*cursor != nullptr) {
        const CSmartPtr<CXmlObjectBase> child = Make();
        if (ReadRun(context, child.Get(), parent, cursor))
            StoreObject(object, child.Get());
    }
    return true;
}

bool CElementInfoSeqAbsClsMnd::ElementFromXml(const CXmlSerializationContext& context,
                                              CXmlGeneratedClass* object, CXmlElement*,
                                              CXmlElement** cursor, const char16_t*,
                                              XmlElementType classElementType)
{
    CSmartPtr<CXmlObjectBase> child;
    if (IsThisElement(context, *cursor))
        child = Make(*cursor);
    if (child != nullptr) {
        ReadElement(context, child.Get(), cursor, false);
        StoreObject(object, child.Get());
        return true;
    }
    if (classElementType != XmlElementType_Element)
        return false;
    throw ZqXmlLib9::CZqValidationException(ZqXmlLib9::FormatString(
        u"Failed to find a suitable substitution element for [%s]", GetElementName()));
}

bool CElementInfoSeqAbsClsOpt::ElementFromXml(const CXmlSerializationContext& context,
                                              CXmlGeneratedClass* object, CXmlElement*,
                                              CXmlElement** cursor, const char16_t*, XmlElementType)
{
    TakeIfHere(context, cursor, [&] {
        if (const CSmartPtr<CXmlObjectBase> child = Make(*cursor)) {
            ReadElement(context, child.Get(), cursor, false);
            StoreObject(object, child.Get());
        }
    });
    return true;
}

bool CElementInfoSeqUntpdMnd::ElementFromXml(const CXmlSerializationContext& context,
                                             CXmlGeneratedClass* object, CXmlElement* parent,
                                             CXmlElement** cursor, const char16_t*,
                                             XmlElementType classElementType)
{
    if (*cursor == nullptr)
        ThrowRequired();
    if (ReadOpenElement(context, RequireObject(object).Get(), parent, cursor))
        return true;
    if (classElementType != XmlElementType_Element)
        return false;
    throw ZqXmlLib9::CZqValidationException(ZqXmlLib9::FormatString(
        u"Failed to find the required element from namespace [%s]", GetElementNamespace()));
}

bool CElementInfoSeqUntpdOpt::ElementFromXml(const CXmlSerializationContext& context,
                                             CXmlGeneratedClass* object, CXmlElement* parent,
                                             CXmlElement** cursor, const char16_t* parentNamespace,
                                             XmlElementType)
{
    TakeNew(context, object, parent, cursor, parentNamespace);
    return true;
}

bool CElementInfoSeqCol::ElementFromXml(const CXmlSerializationContext& context,
                                        CXmlGeneratedClass* object, CXmlElement* parent,
                                        CXmlElement** cursor, const char16_t*,
                                        XmlElementType classElementType)
{
    const CSmartPtr<CXmlCollectionBase> collection = RequireCollection(object);
    ReadItems(context, collection.Get(), parent, cursor);
    if (classElementType != XmlElementType_Element)
        return collection->IsValidCount(context);
    collection->ValidateCount(context);
    return true;
}

bool CElementInfoSeqCol::ReadItems(const CXmlSerializationContext& context,
                                   CXmlCollectionBase* collection, CXmlElement* parent,
                                   CXmlElement** cursor) const
{
    return ReadRun(context, collection->GetBase(), parent, cursor);
}

CElementInfoSeqClsCol::CElementInfoSeqClsCol(const char16_t* name, const char16_t* ns,
                                             int propertyIndex, XmlElementType elementType)
    : CElementInfoTypedOf<CElementInfoSeqCol>(name, ns, propertyIndex, elementType)
{}

CElementInfoSeqAbsClsCol::CElementInfoSeqAbsClsCol(const char16_t* name, const char16_t* ns,
                                                   int propertyIndex, XmlElementType elementType)
    : CElementInfoTypedOf<CElementInfoSeqCol>(name, ns, propertyIndex, elementType)
{}

bool CElementInfoSeqUntpdCol::ReadItems(const CXmlSerializationContext& context,
                                        CXmlCollectionBase* collection, CXmlElement* parent,
                                        CXmlElement** cursor) const
{
    return ReadOpenElements(context, collection, parent, cursor);
}

}  // namespace ZqXmlLib9Data
