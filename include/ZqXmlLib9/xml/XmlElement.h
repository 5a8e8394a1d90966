/// \file XmlElement.h
/// One element of the tree.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/InstanceMonitor.h>
#include <ZqXmlLib9/xml/XmlName.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ZqXmlLib9 {

class CXmlAttribute;

/// A read-only element: names resolved, attributes in document order, children in a list, and all
/// character data that stood directly in it as one text, wherever it stood among the children.
///
/// Its document alone makes and frees it; every reference and pointer handed out is good as long as
/// it lives, names as long as the tree. Carriage returns are never stored; other white space is.
/// Any number of threads may read.
class ZQXMLLIB9_API CXmlElement : public CInstanceMonitor {
public:
    CXmlElement(const CXmlElement&) = delete;
    CXmlElement& operator=(const CXmlElement&) = delete;

    CXmlDocument* GetDocument() const noexcept { return m_name->document; }
    /// Null for an element without children.
    CXmlElement* GetFirstElement() const noexcept { return m_firstChild; }
    /// Null for the last child of its parent.
    CXmlElement* GetNextSiblingElement() const noexcept { return m_nextSibling; }

    const std::u16string& GetLocalName() const noexcept { return m_name->localName; }
    /// Empty for an element without a namespace.
    const std::u16string& GetNamespaceURI() const noexcept { return *m_name->uri; }
    /// Empty before the end tag was read.
    const std::u16string& GetText() const noexcept { return m_text; }

    const std::vector<CXmlAttribute*>& GetAttributes() const noexcept
    {
        return m_attributes != nullptr ? *m_attributes : kNoAttributes;
    }
    /// The value of the first attribute with exactly this name and namespace; an empty text if
    /// there is none.
    const std::u16string& GetAttribute(std::u16string_view localName,
                                       std::u16string_view uri) const noexcept;

protected:
    friend class CXmlTree;
    template <typename>
    friend class CNodePool;

    using Attributes = std::vector<CXmlAttribute*>;

    explicit CXmlElement(const SXmlName* name) noexcept;
    ~CXmlElement() override;

private:
    static const Attributes kNoAttributes;

    const SXmlName* m_name;
    CXmlElement* m_nextSibling = nullptr;
    CXmlElement* m_firstChild = nullptr;
    std::unique_ptr<Attributes> m_attributes;  ///< most elements have none
    std::u16string m_text;
};

}  // namespace ZqXmlLib9
