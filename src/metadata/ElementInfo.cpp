// The base of the records, and the steps that the three families share.

#include "../engine/NamespaceRestriction.h"
#include "../engine/XmlNames.h"

#include <ZqXmlLib9/collections/ElementCol.h>
#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/engine/XmlGeneratedClass.h>
#include <ZqXmlLib9/metadata/ElementInfo.h>
#include <ZqXmlLib9/metadata/RestrictionCheck.h>
#include <ZqXmlLib9/xml/XmlElement.h>
#include <ZqXmlLib9/xml/XmlWriter.h>

#include <utility>

namespace ZqXmlLib9Data {

using ZqXmlLib9::CElement;
using ZqXmlLib9::CElementCol;
using ZqXmlLib9::CZqException;
using ZqXmlLib9::CZqInvalidStateException;
using ZqXmlLib9::CZqValidationException;
using ZqXmlLib9::FormatString;
using ZqXmlLib9::TextOrEmpty;

namespace {

/// The name of a record that stands for xs:any.
constexpr std::u16string_view kAnyElement = u"AnyElement";

void MoveOn(const SElementReading& reading)
{
    *reading.cursor = (*reading.cursor)->GetNextSiblingElement();
}

[[noreturn]] void ThrowNothingToReadInto(const std::u16string& elementName)
{
    throw CZqInvalidStateException(
        FormatString(u"The property of the element [%s] has no object to read into", elementName));
}

}  // namespace

CElementInfo::CElementInfo(const char16_t* name, const char16_t* ns, int propertyIndex)
    : m_elementName(TextOrEmpty(name)), m_elementNamespace(TextOrEmpty(ns)),
      m_propertyIndex(propertyIndex), m_hasPrimitiveType(false)
{}

CElementInfo::CElementInfo(const char16_t* name, const char16_t* ns, int propertyIndex,
                           ItemType itemType, const char16_t* format,
                           CWhitespaceUtils::WhitespaceRule rule,
                           const CPrimitiveRestrictions& restrictions)
    : m_elementName(TextOrEmpty(name)), m_elementNamespace(TextOrEmpty(ns)),
      m_propertyIndex(propertyIndex), m_restrictions(restrictions), m_itemType(itemType),
      m_format(format), m_whitespaceRule(rule), m_hasPrimitiveType(true)
{}

CElementInfo::CElementInfo(const CElementInfo&) = default;
CElementInfo& CElementInfo::operator=(const CElementInfo&) = default;
CElementInfo::~CElementInfo() = default;

void CElementInfo::PseudoChildAttributeToXml(const CXmlSerializationContext&,
                                             const CXmlGeneratedClass*, CXmlWriter*) const
{}

void CElementInfo::CheckRestriction(const ZqVariant& value) const
{
    if (!m_hasPrimitiveType)
        throw CZqException(u"Cannot CheckRestriction for type: " + value.GetType());
    ZqXmlLib9::CheckRestrictionValue(m_elementName.c_str(), value, m_itemType, m_restrictions);
}

void CElementInfo::ReadProperty(const CXmlGeneratedClass* object, ZqVariant& value) const
{
    object->ReadProperty(m_propertyIndex, value);
}

void CElementInfo::AccessProperty(CXmlGeneratedClass* object, bool read, ZqVariant& value) const
{
    object->AccessProperty(m_propertyIndex, read, value);
}

void CElementInfo::AttributesToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer,
                                       const CXmlSerializationContext& context) const
{
    object->AttributesToXml_Int(writer, context);
}

CXmlElement* CElementInfo::FromXml_Int(CXmlObjectBase* object, CXmlElement* parent,
                                       CXmlElement* cursor, const CXmlSerializationContext& context,
                                       bool isOptionalChoice) const
{
    return object->FromXml_Int(parent, cursor, context, isOptionalChoice);
}

bool CElementInfo::IsThisElement(const CXmlSerializationContext& context,
                                 const CXmlElement* element) const
{
    using ZqXmlLib9::IsSameName;
    return element != nullptr && IsSameName(element->GetLocalName(), m_elementName)
           && (context.GetIgnoreNamespaces()
               || IsSameName(element->GetNamespaceURI(), m_elementNamespace));
}

bool CElementInfo::ElementToXmlPrim(const CXmlSerializationContext&,
                                    const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    ZqVariant value;
    ReadProperty(object, value);
    if (!value.IsValid())
        return false;
    CheckRestriction(value);
    writer->WriteStartElement(m_elementName, m_elementNamespace);
    if (value.GetTypeAsEnum() == ZqXmlLib9::ItemType_string)
        writer->WriteText(value.GetString(), ZqXmlLib9::ItemType_string);
    else
        writer->WriteText(value.ToString(m_format), value.GetTypeAsEnum());
    writer->WriteEndElement();
    return true;
}

bool CElementInfo::ElementToXmlPrimOpt(const CXmlSerializationContext& context,
                                       const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    return ElementToXmlPrim(context, object, writer);
}

bool CElementInfo::ElementToXmlEnum(const CXmlSerializationContext&,
                                    const CXmlGeneratedClass* object, CXmlWriter* writer,
                                    const char16_t* (*toString)(int)) const
{
    ZqVariant value;
    ReadProperty(object, value);
    if (!value.IsValid())
        return false;
    writer->WriteStartElement(m_elementName, m_elementNamespace);
    writer->WriteText(TextOrEmpty(toString(value.GetI4())), ZqXmlLib9::ItemType_string);
    writer->WriteEndElement();
    return true;
}

bool CElementInfo::ElementToXmlEnumOpt(const CXmlSerializationContext& context,
                                       const CXmlGeneratedClass* object, CXmlWriter* writer,
                                       const char16_t* (*toString)(int)) const
{
    return ElementToXmlEnum(context, object, writer, toString);
}

bool CElementInfo::ElementToXmlCls(const CXmlSerializationContext& context,
                                   const CXmlGeneratedClass* object, CXmlWriter* writer,
                                   bool isOptionalChoice) const
{
    const CSmartPtr<CXmlObjectBase> child = ReadObject(object);
    if (child == nullptr)
        return false;
    const CXmlObjectBase* const base = child.Get();
    base->ToXml_Int(writer, false, m_elementNamespace.c_str(), context, isOptionalChoice);
    return true;
}

bool CElementInfo::ElementToXmlCol(const CXmlSerializationContext& context,
                                   const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    ZqVariant value;
    ReadProperty(object, value);
    const CSmartPtr<CXmlCollectionBase> collection = value.GetXmlCollection();
    if (collection == nullptr || collection->GetCount() < 1)
        return false;
    const CXmlObjectBase* const base = collection->GetBase();
    base->ToXml_Int(writer, false, m_elementNamespace.c_str(), context, false);
    return true;
}

void CElementInfo::ValidateCount(const CXmlSerializationContext& context,
                                 const CXmlGeneratedClass* object) const
{
    if (context.GetIgnoreInvalidCollectionCounts())
        return;
    ZqVariant value;
    ReadProperty(object, value);
    if (const CSmartPtr<CXmlCollectionBase> collection = value.GetXmlCollection())
        collection->ValidateCount(context);
}

bool CElementInfo::IsHere(const SElementReading& reading) const
{
    return IsThisElement(reading.context, *reading.cursor);
}

bool CElementInfo::ScanToThisElement(const SElementReading& reading) const
{
    while (!IsHere(reading)) {
        if (!reading.context.GetIgnoreUnknownElements() || *reading.cursor == nullptr)
            return false;
        MoveOn(reading);
    }
    return true;
}

void CElementInfo::TakePrim(const SElementReading& reading) const
{
    ZqVariant value;
    const std::u16string& text = (*reading.cursor)->GetText();
    if (m_itemType == ZqXmlLib9::ItemType_string
        && m_whitespaceRule == CWhitespaceUtils::WhitespaceRule_Preserve)
        value.LendString(text);  // which has no carriage returns that the rule would take
    else
        value.FromString(text, m_itemType, m_whitespaceRule);
    AccessProperty(reading.object, false, value);
    MoveOn(reading);
}

void CElementInfo::TakeEnum(const SElementReading& reading,
                            int (*fromString)(const char16_t*)) const
{
    ZqVariant value;
    value.SetI4(fromString((*reading.cursor)->GetText().c_str()));
    AccessProperty(reading.object, false, value);
    MoveOn(reading);
}

CSmartPtr<CXmlObjectBase> CElementInfo::ReadObject(const CXmlGeneratedClass* object) const
{
    ZqVariant value;
    ReadProperty(object, value);
    if (value.GetTypeAsEnum() != ZqXmlLib9::ItemType_xmlCollection)
        return value.GetXmlObject();
    const CSmartPtr<CXmlCollectionBase> collection = value.GetXmlCollection();
    return collection != nullptr ? collection->GetBase() : nullptr;
}

CXmlObjectBase* CElementInfo::RequireObject(const CSmartPtr<CXmlObjectBase>& held) const
{
    if (held == nullptr)
        ThrowNothingToReadInto(m_elementName);
    return held.Get();
}

CSmartPtr<CXmlCollectionBase> CElementInfo::RequireCollection(const SElementReading& reading) const
{
    ZqVariant value;
    ReadProperty(reading.object, value);
    CSmartPtr<CXmlCollectionBase> held = value.GetXmlCollection();
    if (held == nullptr)
        ThrowNothingToReadInto(m_elementName);
    return held;
}

void CElementInfo::StoreObject(const SElementReading& reading, CXmlObjectBase* value) const
{
    ZqVariant variant;
    variant.SetXmlObject(value);
    AccessProperty(reading.object, false, variant);
}

CSmartPtr<CXmlObjectBase> CElementInfo::MakeObject(ClassFactory factory, int classId) const
{
    CSmartPtr<CXmlObjectBase> made = factory(classId, m_elementName.c_str());
    if (made == nullptr)
        throw CZqInvalidStateException(
            FormatString(u"The factory of the element [%s] made no object", m_elementName));
    return made;
}

void CElementInfo::ReadElement(const SElementReading& reading, CXmlObjectBase* child,
                               bool isOptionalChoice) const
{
    CXmlElement* const element = *reading.cursor;
    FromXml_Int(child, element, element->GetFirstElement(), reading.context, isOptionalChoice);
    MoveOn(reading);
}

bool CElementInfo::ReadRun(const SElementReading& reading, CXmlObjectBase* child) const
{
    CXmlElement* const next =
        FromXml_Int(child, reading.parent, *reading.cursor, reading.context, false);
    return std::exchange(*reading.cursor, next) != next;
}

CSmartPtr<CXmlObjectBase> CElementInfo::MakeOpenElement(const SElementReading& reading,
                                                        const std::u16string& restriction,
                                                        const std::u16string& targetNamespace) const
{
    const std::u16string ns = GetAnyDefaultNamespace(restriction.c_str(), reading.parentNamespace,
                                                     targetNamespace.c_str());
    return new CElement(m_elementName.c_str(), ns.c_str(), restriction.c_str(),
                        targetNamespace.c_str());
}

bool CElementInfo::ReadOpenElement(const SElementReading& reading, CXmlObjectBase* element) const
{
    const bool isWanted =
        m_elementName == kAnyElement || (*reading.cursor)->GetLocalName() == m_elementName;
    return isWanted && ReadRun(reading, element);
}

bool CElementInfo::ReadOpenElements(const SElementReading& reading,
                                    CXmlCollectionBase* elements) const
{
    if (m_elementName == kAnyElement)
        return ReadRun(reading, elements->GetBase());
    auto* const collection = dynamic_cast<CElementCol*>(elements);
    if (collection == nullptr)
        throw CZqException(
            u"Serialization Data Error : The collection should be a CElementCol, it was not!");
    CXmlElement* const first = *reading.cursor;
    const std::u16string ns = first != nullptr ? first->GetNamespaceURI() : u"";
    *reading.cursor = collection->FromXmlLockElementName_Int(
        m_elementName.c_str(), ns.c_str(), reading.parent, first, reading.context);
    return *reading.cursor != first;
}

std::u16string CElementInfo::GetAnyDefaultNamespace(const char16_t* restriction,
                                                    const char16_t* parentNamespace,
                                                    const char16_t* targetNamespace)
{
    std::u16string_view rule = TextOrEmpty(restriction);
    if (rule.starts_with(u"##"))
        rule = ZqXmlLib9::TakeToken(rule);
    if (rule == ZqXmlLib9::kAnyNamespace)
        return std::u16string(TextOrEmpty(parentNamespace));
    if (rule == ZqXmlLib9::kOtherNamespace)
        return TextOrEmpty(parentNamespace).empty() ? u"DefaultNamespace" : u"";
    if (rule == ZqXmlLib9::kTargetNamespace)
        return std::u16string(TextOrEmpty(targetNamespace));
    return {};
}

void CElementInfo::ThrowRequired() const
{
    throw CZqValidationException(
        FormatString(u"Failed to find a required element [%s]", m_elementName));
}

}  // namespace ZqXmlLib9Data
