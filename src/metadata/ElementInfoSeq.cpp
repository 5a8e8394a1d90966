#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/XmlGeneratedClass.h>
#include <ZqXmlLib9/metadata/ElementInfoSeq.h>

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

CElementInfoSeq::CElementInfoSeq(const CElementInfoSeq&) = default;
CElementInfoSeq& CElementInfoSeq::operator=(const CElementInfoSeq&) = default;
CElementInfoSeq::~CElementInfoSeq() = default;

bool CElementInfoSeq::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool,
                               bool) const
{
    throw ZqXmlLib9::CZqException(u"Not implemented, should never be called");
}

CElementInfoSeqPrimMnd::CElementInfoSeqPrimMnd(const char16_t* name, const char16_t* ns,
                                               int propertyIndex, ItemType itemType,
                                               const char16_t* format,
                                               CWhitespaceUtils::WhitespaceRule rule,
                                               const CPrimitiveRestrictions& restrictions)
    : CElementInfoSeq(name, ns, propertyIndex, itemType, format, rule, restrictions)
{}

CElementInfoSeqPrimMnd::CElementInfoSeqPrimMnd(const CElementInfoSeqPrimMnd&) = default;
CElementInfoSeqPrimMnd& CElementInfoSeqPrimMnd::operator=(const CElementInfoSeqPrimMnd&) = default;
CElementInfoSeqPrimMnd::~CElementInfoSeqPrimMnd() = default;

bool CElementInfoSeqPrimMnd::ElementToXml(const CXmlSerializationContext& context,
                                          const CXmlGeneratedClass* object,
                                          CXmlWriter* writer) const
{
    return ElementToXmlPrim(context, object, writer);
}

bool CElementInfoSeqPrimMnd::ElementFromXml(const CXmlSerializationContext& context,
                                            CXmlGeneratedClass* object, CXmlElement*,
                                            CXmlElement** cursor, const char16_t*,
                                            XmlElementType classElementType)
{
    if (ScanToThisElement(context, cursor)) {
        TakePrim(object, cursor);
        return true;
    }
    if (classElementType != XmlElementType_Element)
        return false;
    if (context.GetIgnoreMissingMandatoryElements())
        return true;
    throw ZqXmlLib9::CZqValidationException(
        ZqXmlLib9::FormatString(u"Failed to find a required element [%s]", GetElementName()));
}

}  // namespace ZqXmlLib9Data
