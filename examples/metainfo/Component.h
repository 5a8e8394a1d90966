// The head of an AppStream metainfo file: what a package says of its application.
//
// The class has the form of generated code. It knows three of the many elements of <component>,
// each a mandatory string:
//
//     <component>
//       <id>org.example.Editor</id>
//       <name>Editor</name>
//       <summary>Edit text</summary>
//     </component>
#pragma once

#include <ZqXmlLib9/ZqXmlLib9.h>

#include <string>

namespace Metainfo {

class CComponent : public ZqXmlLib9::CXmlGeneratedClass {
public:
    CComponent();

    const std::u16string& GetId() const { return m_id; }
    const std::u16string& GetName() const { return m_name; }
    const std::u16string& GetSummary() const { return m_summary; }

    ZqXmlLib9::CXmlObjectBase* GetBase() override { return this; }
    std::u16string GetTargetNamespace() const override { return u""; }
    std::u16string GetNamespace() const override { return u""; }

protected:
    void AccessProperty(int propertyIndex, bool read, ZqXmlLib9::ZqVariant& value) override;
    ZqXmlLib9Data::CParentElementInfo* GetClassInfo() const override;
    ZqXmlLib9Data::CElementInfo** GetClassElementInfo() const override;
    ZqXmlLib9Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;

private:
    /// The tables of the class, built when they are first asked for.
    struct SMetadata;
    static const SMetadata& GetMetadata();

    std::u16string m_id;
    std::u16string m_name;
    std::u16string m_summary;
};

}  // namespace Metainfo
