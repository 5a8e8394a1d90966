/// \file XmlTypeCollection.h
/// The base of collections of plain values.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/collections/XmlCollectionBase.h>
#include <ZqXmlLib9/types/ItemType.h>
#include <ZqXmlLib9/types/PrimitiveRestrictions.h>
#include <ZqXmlLib9/types/WhitespaceUtils.h>

#include <string>

namespace ZqXmlLib9 {

/// An element of a simple type that repeats: a run of elements with one name, a value in each.
class ZQXMLLIB9_API CXmlTypeCollection : public CXmlCollectionBase {
protected:
    /// \param maxOccurs   -1: unbounded
    /// \param pattern     the first of eight facets, as in `CPrimitiveRestrictions`
    /// \param format      of numbers, see `ZqVariant::ToString`; the pointer is kept, not the text
    CXmlTypeCollection(ItemType itemType, const char16_t* elementName,
                       const char16_t* targetNamespace, int minOccurs, int maxOccurs,
                       const char16_t* pattern, int minLength, int maxLength,
                       const char16_t* minInclusive, const char16_t* maxInclusive,
                       const char16_t* minExclusive, const char16_t* maxExclusive, int length,
                       CWhitespaceUtils::WhitespaceRule rule, const char16_t* format);
    ~CXmlTypeCollection() override;

    /// Adds the value of each element of the run that begins at the cursor. Attributes and children
    /// of these elements are passed over; the count isn't tested.
    /// \return the first element with another name, or null
    CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* cursor,
                             const CXmlSerializationContext& context,
                             bool isOptionalChoice) override;
    using CXmlCollectionBase::FromXml_Int;

    /// Reads a value from its text and adds it.
    virtual void AddFromString(std::u16string text) = 0;

    /// Writes an element with a value's text.
    void WriteItem(CXmlWriter* writer, std::u16string_view text, ItemType itemType) const;

    const CPrimitiveRestrictions& GetRestrictions() const noexcept { return m_restrictions; }
    ItemType GetItemType() const noexcept { return m_itemType; }
    const char16_t* GetFormat() const noexcept { return m_format; }
    CWhitespaceUtils::WhitespaceRule GetWhitespaceRule() const noexcept { return m_rule; }

private:
    CPrimitiveRestrictions m_restrictions;
    ItemType m_itemType;
    const char16_t* m_format;
    CWhitespaceUtils::WhitespaceRule m_rule;
};

}  // namespace ZqXmlLib9
