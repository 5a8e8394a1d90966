// The walk that writes an object by its metadata.

#include <ZqXmlLib9/collections/AttributeCol.h>
#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/engine/XmlGeneratedClass.h>
#include <ZqXmlLib9/xml/XmlWriter.h>

#include <optional>

namespace ZqXmlLib9 {
void CXmlGeneratedClass::ToXml_Int(CXmlWriter* writer, bool isRoot, const char16_t* namespaceUri,
                                   const CXmlSerializationContext& context,
                                   bool isOptionalChoice) const
{
    try {
        const CParentElementInfo& info = *GetClassInfo();
        const bool isElement = info.GetElementType() == ZqXmlLib9Data::XmlElementType_Element;
        std::optional<CXmlWriter::CGroupScope> group;
        if (isElement) {
            if (isRoot)
                WriteRootPrologue(*writer, context);
            writer->WriteStartElement(GetElementName(), TextOrEmpty(namespaceUri));
            if (isRoot)
                ToXml_Int(context.GetAdditionalRootAttributes().Get(), writer, false, namespaceUri,
                          context, isOptionalChoice);
            AttributesToXml_Int(writer, context);
            if (isRoot && !context.GetInLineSchema().empty())
                writer->WriteInLineSchema(context.GetInLineSchema());
        }
        else {
            group.emplace(*writer);
        }
        if (IsNilObject())
            writer->WriteXsiNil();
        else
            WriteContent(writer, context, info, isOptionalChoice);
        if (isElement)
            writer->WriteEndElement();
    }
    catch (const CZqException& inner) {
        throw CZqValidationException(
            FormatString(u"Failed to convert the element [%s] to XML", GetElementName()), inner);
    }
}

void CXmlGeneratedClass::WriteRootPrologue(CXmlWriter& writer,
                                           const CXmlSerializationContext& context) const
{
    for (const std::u16string& instruction : context.GetProcessingInstructions())
        writer.WriteProcessingInstruction(instruction);
    for (const auto& [uri, alias] : context.GetNamespaceAliases().GetEntries())
        writer.AddNamespaceAlias(alias, uri);
    if (!context.GetDefaultNamespaceURI().empty())
        writer.SetDefaultNamespace(context.GetDefaultNamespaceURI());
}

void CXmlGeneratedClass::WriteContent(CXmlWriter* writer, const CXmlSerializationContext& context,
                                      const CParentElementInfo& info, bool isOptionalChoice) const
{
    CElementInfo** const infos = GetClassElementInfo();
    switch (info.GetElementGroupType()) {
    case ZqXmlLib9Data::XmlElementGroupType_Sequence:
        ProcessElementSeqToXml(context, infos, writer);
        break;
    case ZqXmlLib9Data::XmlElementGroupType_Choice:
        ProcessElementChoiceToXml(context, infos, writer, isOptionalChoice);
        break;
    case ZqXmlLib9Data::XmlElementGroupType_All:
        ProcessElementAllToXml(context, infos, writer);
        break;
    default: throw CZqException(u"Unknown XML Group Type");
    }
    if (info.GetElementTextPropertyIndex() != -1) {
        ZqVariant value;
        ReadProperty(info.GetElementTextPropertyIndex(), value);
        writer->WriteText(value.GetString(), value.GetTypeAsEnum());
    }
}

void CXmlGeneratedClass::AttributesToXml_Int(CXmlWriter* writer,
                                             const CXmlSerializationContext& context) const
{
    try {
        const CParentElementInfo& info = *GetClassInfo();
        std::optional<CXmlWriter::CGroupScope> group;
        if (info.GetElementType() != ZqXmlLib9Data::XmlElementType_Element)
            group.emplace(*writer);
        if (context.GetWriteTypeAttribute() && info.GetHasBaseClasses()
            && GetElementName() != info.GetElementName())
            writer->WriteXsiType(info.GetElementNamespace(), info.GetElementName(),
                                 ItemType_string);
        ProcessAttributesToXml(context, GetClassElementInfo(), GetClassAttributeInfo(), writer);
    }
    catch (const CZqException& inner) {
        throw CZqException(u"Failed to convert attributes to XML", inner);
    }
}

void CXmlGeneratedClass::ProcessAttributesToXml(const CXmlSerializationContext& context,
                                                CElementInfo** elements,
                                                CAttributeInfo** attributes,
                                                CXmlWriter* writer) const
{
    for (; attributes != nullptr && *attributes != nullptr; ++attributes)
        (*attributes)->AttributeToXml(context, this, writer);
    for (; elements != nullptr && *elements != nullptr; ++elements)
        (*elements)->PseudoChildAttributeToXml(context, this, writer);
}

void CXmlGeneratedClass::ProcessElementSeqToXml(const CXmlSerializationContext& context,
                                                CElementInfo** infos, CXmlWriter* writer) const
{
    for (; infos != nullptr && *infos != nullptr; ++infos)
        (*infos)->ElementToXml(context, this, writer);
}

void CXmlGeneratedClass::ProcessElementAllToXml(const CXmlSerializationContext& context,
                                                CElementInfo** infos, CXmlWriter* writer) const
{
    ProcessElementSeqToXml(context, infos, writer);
}

void CXmlGeneratedClass::ProcessElementChoiceToXml(const CXmlSerializationContext& context,
                                                   CElementInfo** infos, CXmlWriter* writer,
                                                   bool isOptionalChoice) const
{
    for (; infos != nullptr && *infos != nullptr; ++infos)
        if ((*infos)->ElementToXml(context, this, writer))
            return;
    if (DoesElementContainOptionalElements() || isOptionalChoice
        || context.GetIgnoreMissingChoice())
        return;
    throw CZqValidationException(
        u"This element is a choice, and as such must have at one (and only one) valid item, "
        u"currently there are none set");
}

}  // namespace ZqXmlLib9
