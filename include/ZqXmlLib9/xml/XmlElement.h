/// \file XmlElement.h
/// One element of the tree.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/InstanceMonitor.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ZqXmlLib9 {

class CXmlAttribute;
class CXmlDocument;

/// A read-only element: names resolved, attributes in document order, children in a list, and all
/// character data that stood directly in it as one text, wherever it stood among the children.
///
/// It belongs to its document and dies with it; every reference and pointer handed out is good as
/// long. Carriage returns are never stored; other white space is. Any number of threads may read.
class ZQXMLLIB9_API CXmlElement : public CInstanceMonitor {
public:
    CXmlElement(const CXmlElement&) = delete;
    CXmlElement& operator=(const CXmlElement&) = delete;
    ~CXmlElement() override;

    CXmlDocument* GetDocument() const noexcept { return m_document; }
    /// Null for an element without children.
    CXmlElement* GetFirstElement() const noexcept { return m_firstChild; }
    /// Null for the last child of its parent.
    CXmlElement* GetNextSiblingElement() const noexcept { return m_nextSibling; }

    const std::u16string& GetLocalName() const noexcept { return m_localName; }
    /// Empty for an element without a namespace.
    const std::u16string& GetNamespaceURI() const noexcept { return m_namespaceUri; }
    const std::u16string& GetText() const noexcept { return m_text; }

    const std::vector<CXmlAttribute*>& GetAttributes() const noexcept { return m_attributes; }
    /// The value of the first attribute with exactly this name and namespace; an empty text if
    /// there is none.
    const std::u16string& GetAttribute(std::u16string_view localName,
                                       std::u16string_view uri) const noexcept;

protected:
    friend class CXmlDocument;

    explicit CXmlElement(CXmlDocument* document);

    void SetElementName(std::u16string_view localName) { m_localName = localName; }
    void SetNamespace(std::u16string_view uri) { m_namespaceUri = uri; }
    void AddAttribute(std::u16string_view localName, std::u16string_view value,
                      std::u16string_view uri);
    /// Grows the text by doubling, since parsers deliver it in small pieces.
    void AppendText(std::u16string_view text);
    /// A new last child, which belongs to this element.
    CXmlElement* CreateNewChildElement();
    /// Unlinks the last child; null if there is none.
    std::unique_ptr<CXmlElement> RemoveLastChildElement() noexcept;

private:
    CXmlDocument* const m_document;
    CXmlElement* m_nextSibling = nullptr;
    CXmlElement* m_firstChild = nullptr;  ///< the children are owned, by way of their siblings
    CXmlElement* m_lastChild = nullptr;
    std::vector<CXmlAttribute*> m_attributes;  ///< owned
    std::u16string m_text;
    std::u16string m_localName;
    std::u16string m_namespaceUri;
};

}  // namespace ZqXmlLib9
