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

bool CElementInfoChoicePrimOpt::ElementFromXml(const CXmlSerializationContext& context,
                                               CXmlGeneratedClass* object, CXmlElement*,
                                               CXmlElement** cursor, const char16_t*,
                                               XmlElementType)
{
    return TakeIfHere(context, cursor, [&] { TakePrim(object, cursor); });
}

bool CElementInfoChoiceEnumOpt::ElementFromXml(const CXmlSerializationContext& context,
                                               CXmlGeneratedClass* object, CXmlElement*,
                                               CXmlElement** cursor, const char16_t*,
                                               XmlElementType)
{
    return TakeIfHere(context, cursor, [&] { Take(object, cursor); });
}

bool CElementInfoChoiceClsOpt::ElementToXml(const CXmlSerializationContext& context,
                                            const CXmlGeneratedClass* object,
                                            CXmlWriter* writer) const
{
    return ElementToXmlCls(context, object, writer, true);
}

bool CElementInfoChoiceClsOpt::ElementFromXml(const CXmlSerializationContext& context,
                                              CXmlGeneratedClass* object, CXmlElement* parent,
                                              CXmlElement** cursor, const char16_t*, XmlElementType)
{
    if (HasTag())
        return TakeIfHere(context, cursor, [&] {
            const CSmartPtr<CXmlObjectBase> child = Make();
            StoreObject(object, child.Get());
            ReadElement(context, child.Get(), cursor, true);
        });
    if (*cursor == nullptr)
        return false;
    const CSmartPtr<CXmlObjectBase> child = Make();
    StoreObject(object, child.Get());
    const bool taken = ReadRun(context, child.Get(), parent, cursor);
    if (!taken)
        StoreObject(object, nullptr);
    return taken;
}

bool CElementInfoChoiceAbsClsOpt::ElementFromXml(const CXmlSerializationContext& context,
                                                 CXmlGeneratedClass* object, CXmlElement*,
                                                 CXmlElement** cursor, const char16_t*,
                                                 XmlElementType)
{
    if (!IsThisElement(context, *cursor))
        return false;
    const CSmartPtr<CXmlObjectBase> child = Make(*cursor);
    StoreObject(object, child.Get());
    if (child != nullptr)
        ReadElement(context, child.Get(), cursor, false);
    return child != nullptr;
}

bool CElementInfoChoiceUntpdOpt::ElementFromXml(const CXmlSerializationContext& context,
                                                CXmlGeneratedClass* object, CXmlElement* parent,
                                                CXmlElement** cursor,
                                                const char16_t* parentNamespace, XmlElementType)
{
    if (*cursor == nullptr)
        return false;
    const bool taken = TakeNew(context, object, parent, cursor, parentNamespace);
    if (!taken)
        StoreObject(object, nullptr);
    return taken;
}

CElementInfoChoiceCol::CElementInfoChoiceCol(const char16_t* name, const char16_t* ns,
                                             int propertyIndex)
    : CElementInfoChoice(name, ns, propertyIndex)
{}

bool CElementInfoChoiceCol::ElementToXml(const CXmlSerializationContext& context,
                                         const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    return ElementToXmlCol(context, object, writer);
}

bool CElementInfoChoiceCol::ElementFromXml(const CXmlSerializationContext& context,
                                           CXmlGeneratedClass* object, CXmlElement* parent,
                                           CXmlElement** cursor, const char16_t*,
                                           XmlElementType classElementType)
{
    const CSmartPtr<CXmlCollectionBase> collection = RequireCollection(object);
    CXmlElement* next = *cursor;
    if (!ReadItems(context, collection.Get(), parent, &next))
        return false;
    if (classElementType != XmlElementType_Element) {
        // The items that were read stay in the collection.
        if (!collection->IsValidCount(context))
            return false;
        *cursor = next;
        return true;
    }
    *cursor = next;
    collection->ValidateCount(context);
    return true;
}

bool CElementInfoChoiceCol::ReadItems(const CXmlSerializationContext& context,
                                      CXmlCollectionBase* collection, CXmlElement* parent,
                                      CXmlElement** cursor) const
{
    return ReadRun(context, collection->GetBase(), parent, cursor);
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

bool CElementInfoChoiceUntpdCol::ReadItems(const CXmlSerializationContext& context,
                                           CXmlCollectionBase* collection, CXmlElement* parent,
                                           CXmlElement** cursor) const
{
    return ReadOpenElements(context, collection, parent, cursor);
}

}  // namespace ZqXmlLib9Data
