/// \file AttributeInfoPrimitive.h
/// The record of an attribute with a primitive value.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/metadata/AttributeInfo.h>
#include <ZqXmlLib9/types/ItemType.h>
#include <ZqXmlLib9/types/PrimitiveRestrictions.h>
#include <ZqXmlLib9/types/WhitespaceUtils.h>

namespace ZqXmlLib9Data {

/// A primitive attribute. Its name and namespace are compared even where namespaces are ignored.
class ZQXMLLIB9_API CAttributeInfoPrimitive : public CAttributeInfo {
public:
    /// \param format        of the text, see `ZqVariant::ToString`; the pointer is kept
    /// \param defaultValue  the default of the schema as text; null: none
    CAttributeInfoPrimitive(const char16_t* name, const char16_t* ns, int propertyIndex,
                            bool optional, ZqXmlLib9::ItemType itemType, const char16_t* format,
                            ZqXmlLib9::CWhitespaceUtils::WhitespaceRule rule,
                            const ZqXmlLib9::CPrimitiveRestrictions& restrictions,
                            const char16_t* defaultValue);

    /// \throws CZqException  the value is outside a facet
    void CheckRestriction(ZqVariant value) const;

protected:
    void AttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                        CXmlWriter* writer) const override;
    bool AttributeFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                          CXmlAttribute* attribute) override;
    /// \throws CZqValidationException  "Failed to find the required Attribute [%s]"
    void Validate(const CXmlSerializationContext& context, bool found) const override;

private:
    ZqXmlLib9::CPrimitiveRestrictions m_restrictions;
    ZqXmlLib9::ItemType m_itemType;
    const char16_t* m_format;
    ZqXmlLib9::CWhitespaceUtils::WhitespaceRule m_whitespaceRule;
};

}  // namespace ZqXmlLib9Data
