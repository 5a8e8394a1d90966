#include <ZqXmlLib9/collections/XmlTypeCollection.h>
#include <ZqXmlLib9/xml/XmlElement.h>
#include <ZqXmlLib9/xml/XmlWriter.h>

namespace ZqXmlLib9 {

CXmlTypeCollection::CXmlTypeCollection(ItemType itemType, const char16_t* elementName,
                                       const char16_t* targetNamespace, int minOccurs,
                                       int maxOccurs, const char16_t* pattern, int minLength,
                                       int maxLength, const char16_t* minInclusive,
                                       const char16_t* maxInclusive, const char16_t* minExclusive,
                                       const char16_t* maxExclusive, int length,
                                       CWhitespaceUtils::WhitespaceRule rule,
                                       const char16_t* format)
    : CXmlCollectionBase(elementName, targetNamespace, minOccurs, maxOccurs),
      m_restrictions(pattern, minLength, maxLength, minInclusive, maxInclusive, minExclusive,
                     maxExclusive, length),
      m_itemType(itemType), m_format(format), m_rule(rule)
{}

CXmlTypeCollection::~CXmlTypeCollection() = default;

CXmlElement* CXmlTypeCollection::FromXml_Int(CXmlElement*, CXmlElement* cursor,
                                             const CXmlSerializationContext& context, bool)
{
    const std::u16string ns = GetNamespace();
    while (cursor != nullptr
           && DoesElementNameMatch(context, cursor, GetElementName().c_str(), ns.c_str())) {
        AddFromString(cursor->GetText());
        cursor = cursor->GetNextSiblingElement();
    }
    return cursor;
}

void CXmlTypeCollection::WriteItem(CXmlWriter* writer, std::u16string_view text,
                                   ItemType itemType) const
{
    writer->WriteStartElement(GetElementName(), GetNamespace());
    writer->WriteText(text, itemType);
    writer->WriteEndElement();
}

}  // namespace ZqXmlLib9
