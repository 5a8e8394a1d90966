/// \file Attribute.h
/// An attribute that the schema doesn't name.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/InstanceMonitor.h>
#include <ZqXmlLib9/engine/XmlObjectBase.h>

#include <string>

namespace ZqXmlLib9 {

/// An open attribute: a name, a value and a namespace. It is made by a `CAttributeCol`.
class ZQXMLLIB9_API CAttribute : public CXmlObjectBase, public CInstanceMonitor {
public:
    using CXmlObjectBase::GetBase;
    CXmlObjectBase* GetBase() override { return this; }

    const std::u16string& GetName() const noexcept { return m_name; }
    void SetName(const char16_t* name);
    const std::u16string& GetValue() const noexcept { return m_value; }
    void SetValue(const char16_t* value);
    std::u16string GetNamespace() const override { return m_namespace; }
    /// Tests nothing.
    void SetNamespace(const char16_t* ns);

    /// A copy that is nobody's yet.
    CSmartPtr<CAttribute> Clone() const;

protected:
    friend class CAttributeCol;

    CAttribute(const char16_t* name, const char16_t* value, const char16_t* ns);
    ~CAttribute() override;

    std::u16string GetTargetNamespace() const override { return m_namespace; }
    /// The start tag of the element must be open.
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char16_t* namespaceUri,
                   const CXmlSerializationContext& context, bool isOptionalChoice) const override;
    /// \throws CZqException  "This should be done by the collection"
    CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* cursor,
                             const CXmlSerializationContext& context,
                             bool isOptionalChoice) override;
    using CXmlObjectBase::FromXml_Int;
    using CXmlObjectBase::ToXml_Int;

    /// \name Called with a new value before it is stored; nothing here
    /// @{
    virtual void FireOnChangeName(const char16_t* name);
    virtual void FireOnChangeNamespace(const char16_t* ns);
    /// @}

private:
    std::u16string m_name;
    std::u16string m_value;
    std::u16string m_namespace;
};

}  // namespace ZqXmlLib9
