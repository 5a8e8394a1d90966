/// \file XmlAttribute.h
/// One attribute of the tree.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/InstanceMonitor.h>
#include <ZqXmlLib9/xml/XmlName.h>

#include <string>

namespace ZqXmlLib9 {

/// A read-only attribute; it belongs to its element and lives as long. Any number of threads may
/// read.
class ZQXMLLIB9_API CXmlAttribute : public CInstanceMonitor {
public:
    CXmlAttribute(const CXmlAttribute&) = delete;
    CXmlAttribute& operator=(const CXmlAttribute&) = delete;

    const std::u16string& GetLocalName() const noexcept { return m_name->localName; }
    const std::u16string& GetValue() const noexcept { return m_value; }
    /// Empty for an attribute without a namespace.
    const std::u16string& GetNamespaceURI() const noexcept { return *m_name->uri; }

    /// Whether this is `xsi:nil`.
    bool IsNilAttribute() const noexcept { return m_name->isNil; }
    /// Whether this is no data: a declaration of a namespace, `xsi:type`, `xsi:schemaLocation` or
    /// `xsi:noNamespaceSchemaLocation`.
    bool IsNamespaceAttribute() const noexcept { return m_name->isNamespace; }

protected:
    friend class CXmlTree;
    template <typename>
    friend class CNodePool;

    CXmlAttribute(const SXmlName* name, std::u16string&& value) noexcept;
    ~CXmlAttribute() override;

private:
    const SXmlName* m_name;
    std::u16string m_value;
};

}  // namespace ZqXmlLib9
