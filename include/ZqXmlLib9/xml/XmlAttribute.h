/// \file XmlAttribute.h
/// One attribute of the tree.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/InstanceMonitor.h>

#include <string>
#include <string_view>

namespace ZqXmlLib9 {

/// A read-only attribute; it belongs to its element and lives as long. Any number of threads may
/// read.
class ZQXMLLIB9_API CXmlAttribute : public CInstanceMonitor {
public:
    CXmlAttribute(const CXmlAttribute&) = delete;
    CXmlAttribute& operator=(const CXmlAttribute&) = delete;
    ~CXmlAttribute() override;

    const std::u16string& GetLocalName() const noexcept { return m_localName; }
    const std::u16string& GetValue() const noexcept { return m_value; }
    /// Empty for an attribute without a namespace.
    const std::u16string& GetNamespaceURI() const noexcept { return m_namespaceUri; }

    /// Whether this is `xsi:nil`.
    bool IsNilAttribute() const noexcept;
    /// Whether this is no data: a declaration of a namespace, `xsi:type`, `xsi:schemaLocation` or
    /// `xsi:noNamespaceSchemaLocation`.
    bool IsNamespaceAttribute() const noexcept;

protected:
    friend class CXmlElement;

    CXmlAttribute(std::u16string_view localName, std::u16string_view value,
                  std::u16string_view namespaceUri);

private:
    bool IsOfInstance() const noexcept;

    std::u16string m_localName;
    std::u16string m_value;
    std::u16string m_namespaceUri;
};

}  // namespace ZqXmlLib9
