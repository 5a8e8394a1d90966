// The walk that reads an object: the tree and the metadata side by side, with a cursor over the
// child elements that are not consumed yet.

#include "FoundFlags.h"

#include "../platform/Ascii.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Nillable.h>
#include <ZqXmlLib9/engine/XmlGeneratedClass.h>
#include <ZqXmlLib9/xml/XmlAttribute.h>
#include <ZqXmlLib9/xml/XmlElement.h>

namespace ZqXmlLib9 {
namespace {

using ZqXmlLib9Data::XmlElementType_Element;
using ZqXmlLib9Data::XmlElementType_Pseudo;

template <typename TInfo>
std::size_t CountInfos(TInfo* const* infos)
{
    std::size_t count = 0;
    while (infos != nullptr && infos[count] != nullptr)
        ++count;
    return count;
}

[[noreturn]] void ThrowUnexpectedAttribute(const CXmlAttribute& attribute)
{
    throw CZqValidationException(
        FormatString(u"Unexpected Attribute [%s] found.", attribute.GetLocalName()));
}

/// An element of its own accounts for all its children.
void ThrowIfChildRemains(const CXmlSerializationContext& context, const CXmlElement* parent,
                         const CXmlElement* cursor, XmlElementType elementType)
{
    if (elementType == XmlElementType_Element && cursor != nullptr
        && !context.GetIgnoreUnknownElements())
        throw CZqValidationException(
            FormatString(u"Failed read all the elements held within the element [%s]. The "
                         u"unexpected element [%s] remains un processed",
                         parent->GetLocalName(), cursor->GetLocalName()));
}

}  // namespace

int CXmlGeneratedClass::GetClassElementInfoCount() const
{
    return static_cast<int>(CountInfos(GetClassElementInfo()));
}

CXmlElement* CXmlGeneratedClass::FromXml_Int(CXmlElement* parent, CXmlElement* cursor,
                                             const CXmlSerializationContext& context,
                                             bool isOptionalChoice)
{
    try {
        Init();
        const CParentElementInfo& info = *GetClassInfo();
        if (info.GetElementType() == XmlElementType_Element)
            SetElementName(parent->GetLocalName().c_str());
        ProcessAttributesFromXml(context, parent, info.GetFromXmlFailIfAttributeUnknown());
        if (IsNilObject())
            return cursor;
        cursor = ReadContent(parent, cursor, context, info, isOptionalChoice);
        if (info.GetElementTextPropertyIndex() != -1) {
            ZqVariant text;
            text.SetString(parent->GetText());
            AccessProperty(info.GetElementTextPropertyIndex(), false, text);
        }
        return cursor;
    }
    catch (const CZqException& inner) {
        throw CZqValidationException(
            FormatString(u"Failed to process the element [%s]", parent->GetLocalName()), inner);
    }
}

CXmlElement* CXmlGeneratedClass::ReadContent(CXmlElement* parent, CXmlElement* cursor,
                                             const CXmlSerializationContext& context,
                                             const CParentElementInfo& info, bool isOptionalChoice)
{
    const XmlElementType elementType = info.GetElementType();
    switch (info.GetElementGroupType()) {
    case ZqXmlLib9Data::XmlElementGroupType_Sequence:
        return ProcessElementSeqFromXml(context, parent, cursor, elementType);
    case ZqXmlLib9Data::XmlElementGroupType_Choice:
        return ProcessElementChoiceFromXml(context, parent, cursor, elementType, isOptionalChoice);
    case ZqXmlLib9Data::XmlElementGroupType_All:
        return ProcessElementAllFromXml(context, parent, cursor, elementType);
    }
    throw CZqException(u"Unknow Group Type");
}

void CXmlGeneratedClass::ProcessAttributesFromXml(const CXmlSerializationContext& context,
                                                  CXmlElement* element, bool failIfUnknown)
{
    CAttributeInfo** const infos = GetClassAttributeInfo();
    const std::size_t count = CountInfos(infos);
    CFoundFlags found(count);
    for (CXmlAttribute* const attribute : element->GetAttributes()) {
        if (attribute->IsNamespaceAttribute())
            continue;
        if (attribute->IsNilAttribute()) {
            ReadNil(*attribute);
            continue;
        }
        std::size_t taker = 0;
        while (taker < count && !infos[taker]->AttributeFromXml(context, this, attribute))
            ++taker;
        if (taker < count)
            found.Set(taker);
        else if (failIfUnknown && !context.GetIgnoreUnknownAttributes())
            ThrowUnexpectedAttribute(*attribute);
    }
    for (std::size_t i = 0; i < count; ++i)
        infos[i]->Validate(context, found.Get(i));
}

void CXmlGeneratedClass::ReadNil(const CXmlAttribute& attribute)
{
    auto* const nillable = dynamic_cast<INillable*>(this);
    if (nillable == nullptr)
        ThrowUnexpectedAttribute(attribute);
    if (EqualsIgnoringCase(attribute.GetValue(), u"true"))
        nillable->SetNil(true);
    else if (EqualsIgnoringCase(attribute.GetValue(), u"false"))
        nillable->SetNil(false);
    else
        throw CZqValidationException(
            FormatString(u"Unexpected Value for Attribute [%s] found.", attribute.GetLocalName()));
}

CXmlElement* CXmlGeneratedClass::ProcessElementSeqFromXml(const CXmlSerializationContext& context,
                                                          CXmlElement* parent, CXmlElement* cursor,
                                                          XmlElementType elementType)
{
    CXmlElement* const start = cursor;
    const std::u16string ns = GetNamespace();
    for (CElementInfo** info = GetClassElementInfo(); info != nullptr && *info != nullptr; ++info) {
        while (!(*info)->ElementFromXml(context, this, parent, &cursor, ns.c_str(), elementType)) {
            if (!context.GetIgnoreUnknownElements() || cursor == nullptr)
                return start;
            cursor = cursor->GetNextSiblingElement();
        }
    }
    ThrowIfChildRemains(context, parent, cursor, elementType);
    return cursor;
}

CXmlElement* CXmlGeneratedClass::ProcessElementAllFromXml(const CXmlSerializationContext& context,
                                                          CXmlElement* parent, CXmlElement* cursor,
                                                          XmlElementType elementType)
{
    CXmlElement* const start = cursor;
    const std::u16string ns = GetNamespace();
    CElementInfo** const infos = GetClassElementInfo();
    const auto count = static_cast<std::size_t>(GetClassElementInfoCount());
    CFoundFlags found(count);
    // Each sweep offers what is left to the records that are still open.
    for (CXmlElement* previous = nullptr; cursor != nullptr && cursor != previous;) {
        previous = cursor;
        for (std::size_t i = 0; i < count; ++i)
            if (!found.Get(i)
                && infos[i]->ElementFromXml(context, this, parent, &cursor, ns.c_str(),
                                            elementType))
                found.Set(i);
    }
    for (std::size_t i = 0; i < count; ++i)
        if (!infos[i]->Validate(context, this, found.Get(i), elementType == XmlElementType_Element))
            return start;
    ThrowIfChildRemains(context, parent, cursor, elementType);
    return cursor;
}

CXmlElement*
CXmlGeneratedClass::ProcessElementChoiceFromXml(const CXmlSerializationContext& context,
                                                CXmlElement* parent, CXmlElement* cursor,
                                                XmlElementType elementType, bool isOptionalChoice)
{
    CXmlElement* const start = cursor;
    const std::u16string ns = GetNamespace();
    CElementInfo** const infos = GetClassElementInfo();
    const bool mayScan =
        elementType == XmlElementType_Element && context.GetIgnoreUnknownElements();
    bool found = false;
    while (true) {
        for (CElementInfo** info = infos; !found && info != nullptr && *info != nullptr; ++info)
            found =
                (*info)->ElementFromXml(context, this, parent, &cursor, ns.c_str(), elementType);
        if (found || !mayScan || cursor == nullptr)
            break;
        cursor = cursor->GetNextSiblingElement();
        if (cursor == nullptr)
            break;
    }
    if (!found && !isOptionalChoice) {
        if (elementType == XmlElementType_Pseudo && context.GetIgnoreUnknownElements())
            cursor = start;
        if (elementType == XmlElementType_Element && !DoesElementContainOptionalElements()
            && !context.GetIgnoreMissingChoice())
            throw CZqValidationException(FormatString(
                u"No child elements within the element [%s] were populated. The element "
                u"represents a choice, so one and only one element should be populated. The "
                u"element contained no sutable child elements",
                parent->GetLocalName()));
    }
    ThrowIfChildRemains(context, parent, cursor, elementType);
    return cursor;
}

}  // namespace ZqXmlLib9
