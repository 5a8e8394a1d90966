// How the records of an all group read.

#include "../engine/Support.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/XmlGeneratedClass.h>
#include <ZqXmlLib9/metadata/ElementInfoAll.h>
#include <ZqXmlLib9/xml/XmlElement.h>

namespace ZqXmlLib9Data {
namespace {

[[noreturn]] void ThrowCannotRead(const char16_t* className)
{
    throw ZqXmlLib9::CZqException(
        ZqXmlLib9::FormatString(u"%s::ElementFromXml, has not been implemented fully, contact %s",
                                className, ZqXmlLib9::kSupportAddress));
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

bool CElementInfoAllPrimMnd::Read(const SElementReading& reading) const
{
    return TakeIfHere(reading, [&] { TakePrim(reading); });
}

bool CElementInfoAllPrimOpt::Read(const SElementReading& reading) const
{
    return TakeIfHere(reading, [&] { TakePrim(reading); });
}

bool CElementInfoAllEnumMnd::Read(const SElementReading& reading) const
{
    return TakeIfHere(reading, [&] { Take(reading); });
}

bool CElementInfoAllEnumOpt::Read(const SElementReading& reading) const
{
    return TakeIfHere(reading, [&] { Take(reading); });
}

CElementInfoAllClsMnd::CElementInfoAllClsMnd(const char16_t* name, const char16_t* ns,
                                             int propertyIndex, XmlElementType elementType,
                                             ClassFactory factory, int classId,
                                             bool hasRequiredContent)
    : CElementInfoClsOf<CElementInfoAll>(name, ns, propertyIndex, elementType, factory, classId),
      m_hasRequiredContent(hasRequiredContent)
{}

bool CElementInfoAllClsMnd::Read(const SElementReading& reading) const
{
    const CSmartPtr<CXmlObjectBase> child = ReadObject(reading.object);
    if (!HasTag())
        return ReadRun(reading, RequireObject(child));
    return TakeIfHere(reading, [&] { ReadElement(reading, RequireObject(child)); });
}

bool CElementInfoAllClsMnd::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*,
                                     bool found, bool failIfMissing) const
{
    if (!found && failIfMissing && !IsPseudo() && !m_hasRequiredContent)
        return true;
    return ValidateMandatory(found, failIfMissing);
}

bool CElementInfoAllClsOpt::Read(const SElementReading& reading) const
{
    return TakeNew(reading);
}

CElementInfoAllAbsClsMnd::CElementInfoAllAbsClsMnd(const char16_t* name, const char16_t* ns,
                                                   int propertyIndex, XmlElementType elementType,
                                                   ElementFactory factory, int reserved)
    : CElementInfoAllMndOf<CElementInfoAbsClsOf<CElementInfoAll>>(name, ns, propertyIndex,
                                                                  elementType, factory),
      m_reserved(reserved)
{}

bool CElementInfoAllAbsClsMnd::Read(const SElementReading&) const
{
    ThrowCannotRead(u"CElementInfoAllAbsClsMnd");
}

bool CElementInfoAllAbsClsOpt::Read(const SElementReading&) const
{
    ThrowCannotRead(u"CElementInfoAllAbsClsOpt");
}

bool CElementInfoAllUntpdMnd::Read(const SElementReading& reading) const
{
    return *reading.cursor != nullptr
           && ReadOpenElement(reading, RequireObject(ReadObject(reading.object)));
}

bool CElementInfoAllUntpdOpt::Read(const SElementReading& reading) const
{
    return TakeNew(reading);
}

bool CElementInfoAllCol::Read(const SElementReading& reading) const
{
    ReadRun(reading, RequireCollection(reading)->GetBase());
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
