/// \file ParentElementInfo.h
/// The record of a generated class as a whole.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/metadata/MetadataEnums.h>

#include <atomic>
#include <string>
#include <typeinfo>

namespace ZqXmlLib9 {
class CXmlGeneratedClass;
}

namespace ZqXmlLib9Data {

/// What the engine knows of a class besides its children and attributes.
///
/// A plain value, built once per class and shared read-only by all its objects and all threads.
class ZQXMLLIB9_API CParentElementInfo {
public:
    /// \param elementName               the name of the type; `xsi:type` is written where an
    ///                                  object stands under another element name
    /// \param elementNamespace          the namespace of that name
    /// \param elementTextPropertyIndex  the property that holds the element's own text; -1: none
    /// \param failIfAttributeUnknown    whether reading fails on an attribute without a record
    /// \param hasBaseClasses            whether `xsi:type` can be written at all
    CParentElementInfo(XmlElementGroupType groupType, XmlElementType elementType,
                       const char16_t* elementName, const char16_t* elementNamespace,
                       int elementTextPropertyIndex, bool failIfAttributeUnknown,
                       bool hasBaseClasses);
    CParentElementInfo(const CParentElementInfo&);
    CParentElementInfo& operator=(const CParentElementInfo&);
    virtual ~CParentElementInfo();

    XmlElementGroupType GetElementGroupType() const noexcept { return m_groupType; }
    XmlElementType GetElementType() const noexcept { return m_elementType; }
    const std::u16string& GetElementName() const noexcept { return m_elementName; }
    const std::u16string& GetElementNamespace() const noexcept { return m_elementNamespace; }
    int GetElementTextPropertyIndex() const noexcept { return m_elementTextPropertyIndex; }
    bool GetFromXmlFailIfAttributeUnknown() const noexcept { return m_failIfAttributeUnknown; }
    bool GetHasBaseClasses() const noexcept { return m_hasBaseClasses; }

private:
    friend class ZqXmlLib9::CXmlGeneratedClass;

    /// The class of an object of this record that was found not to be nillable, since the cast that
    /// tells costs more than the rest of what is done once per object. A copy begins without.
    struct SPlainClass {
        SPlainClass() = default;
        SPlainClass(const SPlainClass&) noexcept {}
        SPlainClass& operator=(const SPlainClass&) noexcept { return *this; }

        std::atomic<const std::type_info*> type{nullptr};
    };

    XmlElementGroupType m_groupType;
    XmlElementType m_elementType;
    std::u16string m_elementName;
    std::u16string m_elementNamespace;
    int m_elementTextPropertyIndex;
    bool m_failIfAttributeUnknown;
    bool m_hasBaseClasses;
    mutable SPlainClass m_plainClass;
};

}  // namespace ZqXmlLib9Data
