/// \file AttributeInfoEnum.h
/// The record of an attribute with a word of an enumeration as its value.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/metadata/AttributeInfo.h>

namespace ZqXmlLib9Data {

/// An enumerated attribute: an integer in the object, a word in the document.
class ZQXMLLIB9_API CAttributeInfoEnum : public CAttributeInfo {
public:
    /// \param fromString    decides what an unknown word means
    /// \param defaultValue  the default of the schema as text; null: none
    CAttributeInfoEnum(const char16_t* name, const char16_t* ns, int propertyIndex, bool optional,
                       const char16_t* (*toString)(int), int (*fromString)(const char16_t*),
                       const char16_t* defaultValue);

protected:
    void AttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                        CXmlWriter* writer) const override;
    bool AttributeFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                          CXmlAttribute* attribute) override;
    /// \throws CZqValidationException  "Failed to find the required Attribute [%s]"
    void Validate(const CXmlSerializationContext& context, bool found) const override;

private:
    const char16_t* (*m_toString)(int);
    int (*m_fromString)(const char16_t*);
};

}  // namespace ZqXmlLib9Data
