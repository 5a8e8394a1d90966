// How the records of an all group read.

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/XmlGeneratedClass.h>
#include <ZqXmlLib9/metadata/ElementInfoAll.h>
#include <ZqXmlLib9/xml/XmlElement.h>

namespace ZqXmlLib9Data {
namespace {

constexpr const char16_t* kSupportAddress = u"support@zqxmllib9.example";

[[noreturn]] void ThrowCannotRead(const char16_t* className)
{
    throw ZqXmlLib9::CZqException(
        ZqXmlLib9::FormatString(u"%s::ElementFromXml, has not been implemented fully, contact %s",
                                className, kSupportAddress));
}

}  // namespace

CElementInfoAll::CElementInfoAll(const char16_t* name, const char16_t* ns, int propertyIndex)
    : CElementInfo(name, ns, propertyIndex)
{}

CElementInfoAll::CElementInfoAll(const char16_t* name, const char16_t* ns, int propertyIndex,
                                 ItemType itemType, const char16_t* format,
                                 CWhitespaceUtils::WhitespaceRule rule,
                                 const CPrimitiveRestrictions& restrictions)
    : CElementInfo(name, ns, propertyIndex, itemType, format, rule, restrictions)
{}

bool CElementInfoAll::ValidateMandatory(bool found, bool failIfMissing) const
{
    if (!found && failIfMissing)
        throw ZqXmlLib9::CZqValidationException(ZqXmlLib9::FormatString(
            u"Failed to find the mandatory element [%s]", GetElementName()));
    return found;
}

CElementInfoAllNonCol::CElementInfoAllNonCol(const char16_t* name, const char16_t* ns,
                                             int propertyIndex)
    : CElementInfoAll(name, ns, propertyIndex)
{}

bool CElementInfoAllPrimMnd::ElementFromXml(const CXmlSerializationContext& context,
                                            CXmlGeneratedClass* object, CXmlElement*,
                                            CXmlElement** cursor, const char16_t*, XmlElementType)
{
    return TakeIfHere(context, cursor, [&] { TakePrim(object, cursor); });
}

bool CElementInfoAllPrimOpt::ElementFromXml(const CXmlSerializationContext& context,
                                            CXmlGeneratedClass* object, CXmlElement*,
                                            CXmlElement** cursor, const char16_t*, XmlElementType)
{
    return TakeIfHere(context, cursor, [&] { TakePrim(object, cursor); });
}

bool CElementInfoAllEnumMnd::ElementFromXml(const CXmlSerializationContext& context,
                                            CXmlGeneratedClass* object, CXmlElement*,
                                            CXmlElement** cursor, const char16_t*, XmlElementType)
{
    return TakeIfHere(context, cursor, [&] { Take(object, cursor); });
}

bool CElementInfoAllEnumOpt::ElementFromXml(const CXmlSerializationContext& context,
                                            CXmlGeneratedClass* object, CXmlElement*,
                                            CXmlElement** cursor, const char16_t*, XmlElementType)
{
    return TakeIfHere(context, cursor, [&] { Take(object, cursor); });
}

CElementInfoAllClsMnd::CElementInfoAllClsMnd(const char16_t* name, const char16_t* ns,
                                             int propertyIndex, XmlElementType elementType,
                                             ClassFactory factory, int classId,
                                             bool hasRequiredContent)
    : CElementInfoClsOf<CElementInfoAll>(name, ns, propertyIndex, elementType, factory, classId),
      m_hasRequiredContent(hasRequiredContent)
{}

bool CElementInfoAllClsMnd::ElementFromXml(const CXmlSerializationContext& context,
                                           CXmlGeneratedClass* object, CXmlElement* parent,
                                           CXmlElement** cursor, const char16_t*, XmlElementType)
{
    if (!HasTag())
        return ReadRun(context, RequireObject(object).Get(), parent, cursor);
    return TakeIfHere(context, cursor,
                      [&] { ReadElement(context, RequireObject(object).Get(), cursor, false); });
}

bool CElementInfoAllClsMnd::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*,
                                     bool found, bool failIfMissing) const
{
    if (!found && failIfMissing && !IsPseudo() && !m_hasRequiredContent)
        return true;
    return ValidateMandatory(found, failIfMissing);
}

bool CElementInfoAllClsOpt::ElementFromXml(const CXmlSerializationContext& context,
                                           CXmlGeneratedClass* object, CXmlElement* parent,
                                           CXmlElement** cursor, const char16_t*, XmlElementType)
{
    if (HasTag())
        return TakeIfHere(context, cursor, [&] {
            const CSmartPtr<CXmlObjectBase> child = Make();
            ReadElement(context, child.Get(), cursor, false);
            StoreObject(object, child.Get());
        });
    if (*cursor == nullptr)
        return false;
    const CSmartPtr<CXmlObjectBase> child = Make();
    const bool taken = ReadRun(context, child.Get(), parent, cursor);
    if (taken)
        StoreObject(object, child.Get());
    return taken;
}

CElementInfoAllAbsClsMnd::CElementInfoAllAbsClsMnd(const char16_t* name, const char16_t* ns,
                                                   int propertyIndex, XmlElementType elementType,
                                                   ElementFactory factory, int reserved)
    : CElementInfoAllMndOf<CElementInfoAbsClsOf<CElementInfoAll>>(name, ns, propertyIndex,
                                                                  elementType, factory),
      m_reserved(reserved)
{}

bool CElementInfoAllAbsClsMnd::ElementFromXml(const CXmlSerializationContext&, CXmlGeneratedClass*,
                                              CXmlElement*, CXmlElement**, const char16_t*,
                                              XmlElementType)
{
    ThrowCannotRead(u"CElementInfoAllAbsClsMnd");
}

bool CElementInfoAllAbsClsOpt::ElementFromXml(const CXmlSerializationContext&, CXmlGeneratedClass*,
                                              CXmlElement*, CXmlElement**, const char16_t*,
                                              XmlElementType)
{
    ThrowCannotRead(u"CElementInfoAllAbsClsOpt");
}

bool CElementInfoAllUntpdMnd::ElementFromXml(const CXmlSerializationContext& context,
                                             CXmlGeneratedClass* object, CXmlElement* parent,
                                             CXmlElement** cursor, const char16_t*, XmlElementType)
{
    return *cursor != nullptr
           && ReadOpenElement(context, RequireObject(object).Get(), parent, cursor);
}

bool CElementInfoAllUntpdOpt::ElementFromXml(const CXmlSerializationContext& context,
                                             CXmlGeneratedClass* object, CXmlElement* parent,
                                             CXmlElement** cursor, const char16_t* parentNamespace,
                                             XmlElementType)
{
    return TakeNew(context, object, parent, cursor, parentNamespace);
}

bool CElementInfoAllCol::ElementFromXml(const CXmlSerializationContext& context,
                                        CXmlGeneratedClass* object, CXmlElement* parent,
                                        CXmlElement** cursor, const char16_t*, XmlElementType)
{
    ReadRun(context, RequireCollection(object)->GetBase(), parent, cursor);
    return false;
}

CElementInfoAllEnumCol::CElementInfoAllEnumCol(const char16_t* name, const char16_t* ns,
                                               int propertyIndex)
    : CElementInfoAll(name, ns, propertyIndex)
{}

CElementInfoAllClsCol::CElementInfoAllClsCol(const char16_t* name, const char16_t* ns,
                                             int propertyIndex, XmlElementType elementType)
    : CElementInfoTypedOf<CElementInfoAllCol>(name, ns, propertyIndex, elementType)
{}

CElementInfoAllAbsClsCol::CElementInfoAllAbsClsCol(const char16_t* name, const char16_t* ns,
                                                   int propertyIndex, XmlElementType elementType)
    : CElementInfoTypedOf<CElementInfoAllCol>(name, ns, propertyIndex, elementType)
{}

}  // namespace ZqXmlLib9Data
