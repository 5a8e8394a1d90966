/// \file AttributeInfo.h
/// The base of the records of attributes.
#pragma once

#include <ZqXmlLib9/Export.h>

#include <string>
#include <string_view>

namespace ZqXmlLib9 {
class CXmlAttribute;
class CXmlGeneratedClass;
class CXmlObjectBase;
class CXmlSerializationContext;
class CXmlWriter;
class ZqVariant;
}  // namespace ZqXmlLib9

namespace ZqXmlLib9Data {

using ZqXmlLib9::CXmlAttribute;
using ZqXmlLib9::CXmlGeneratedClass;
using ZqXmlLib9::CXmlObjectBase;
using ZqXmlLib9::CXmlSerializationContext;
using ZqXmlLib9::CXmlWriter;
using ZqXmlLib9::ZqVariant;

/// One attribute of a class: its name, its property, and how it is written and read.
///
/// A record has no state after its construction; all objects of its class and all threads share
/// it.
class ZQXMLLIB9_API CAttributeInfo {
public:
    CAttributeInfo(const CAttributeInfo&);
    CAttributeInfo& operator=(const CAttributeInfo&);
    virtual ~CAttributeInfo();

protected:
    friend class ZqXmlLib9::CXmlGeneratedClass;

    /// \param ns            empty for an attribute without a namespace
    /// \param defaultValue  the default of the schema as text; null: none
    CAttributeInfo(const char16_t* name, const char16_t* ns, int propertyIndex, bool optional,
                   const char16_t* defaultValue);

    virtual void AttributeToXml(const CXmlSerializationContext& context,
                                const CXmlGeneratedClass* object, CXmlWriter* writer) const = 0;
    /// \return whether this record took the attribute
    virtual bool AttributeFromXml(const CXmlSerializationContext& context,
                                  CXmlGeneratedClass* object, CXmlAttribute* attribute) = 0;
    /// Called for every record once all attributes of an element have been offered.
    virtual void Validate(const CXmlSerializationContext& context, bool found) const = 0;

    const std::u16string& GetAttributeName() const noexcept { return m_attributeName; }
    const std::u16string& GetAttributeNamespace() const noexcept { return m_attributeNamespace; }
    bool IsOptional() const noexcept { return m_optional; }
    const std::u16string& GetDefaultValue() const noexcept { return m_defaultValue; }

    void ReadProperty(const CXmlGeneratedClass* object, ZqVariant& value) const;
    void AccessProperty(CXmlGeneratedClass* object, bool read, ZqVariant& value) const;

    /// Whether an attribute is this record's: by its name, and its namespace unless namespaces are
    /// ignored. False for null.
    bool IsThisAttribute(const CXmlSerializationContext& context,
                         const CXmlAttribute* attribute) const;

    /// Whether an optional attribute with this text is left out, since it equals its default.
    bool IsOmittedDefault(const CXmlSerializationContext& context, std::u16string_view text) const;
    /// \throws CZqValidationException  "Failed to find the required Attribute [%s]"
    void RequireFound(bool found) const;

    /// \throws CZqInvalidNamespaceException  see `CXmlObjectBase::TestNamespace`
    static void TestNamespace(const std::u16string& ns, const std::u16string& restriction,
                              const std::u16string& targetNamespace);
    static std::u16string GetTargetNamespace(const CXmlObjectBase* object);
    static void ToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer, bool isRoot,
                          const char16_t* namespaceUri, const CXmlSerializationContext& context);

private:
    std::u16string m_attributeName;
    std::u16string m_attributeNamespace;
    int m_propertyIndex;
    bool m_optional;
    std::u16string m_defaultValue;
};

}  // namespace ZqXmlLib9Data
