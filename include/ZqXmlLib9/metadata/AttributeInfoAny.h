/// \file AttributeInfoAny.h
/// The record of xs:anyAttribute.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/metadata/AttributeInfo.h>

#include <string>

namespace ZqXmlLib9Data {

/// The open attributes of a class, in a property that is a `CAttributeCol`. It takes every
/// attribute that reaches it, so it stands last among the records of its class.
class ZQXMLLIB9_API CAttributeInfoAny : public CAttributeInfo {
public:
    /// \param namespaceRestriction  see `CXmlObjectBase::TestNamespace`
    CAttributeInfoAny(const char16_t* name, const char16_t* ns, int propertyIndex, bool optional,
                      const char16_t* namespaceRestriction, const char16_t* targetNamespace,
                      const char16_t* defaultValue);

protected:
    void AttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                        CXmlWriter* writer) const override;
    /// \throws CZqInvalidNamespaceException  the attribute's namespace is outside the restriction
    /// \throws CZqException  "Serialization Data Error : The collection should be a CAttributeCol,
    ///         it was not!"
    bool AttributeFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                          CXmlAttribute* attribute) override;
    void Validate(const CXmlSerializationContext& context, bool found) const override;

private:
    std::u16string m_namespaceRestriction;
    std::u16string m_targetNamespace;
};

}  // namespace ZqXmlLib9Data
