// The smallest class in the form of generated code: a sequence of mandatory strings, its metadata
// built on first use.
#pragma once

#include <ZqXmlLib9/ZqXmlLib9.h>

#include <array>
#include <string>

namespace TestModel {

using namespace ZqXmlLib9Data;

/// `<letter xmlns="urn:letter"><to/><from/><body/></letter>`
class CLetter : public ZqXmlLib9::CXmlGeneratedClass {
public:
    explicit CLetter(const char16_t* elementName = u"letter") { SetElementName(elementName); }
    CLetter(const char16_t* to, const char16_t* from, const char16_t* body) : CLetter()
    {
        m_texts = {to, from, body};
    }

    void SetBody(const std::u16string& body) { m_texts[2] = body; }

    using CXmlGeneratedClass::GetElementName;

    bool operator==(const CLetter& other) const { return m_texts == other.m_texts; }

    CXmlObjectBase* GetBase() override { return this; }
    std::u16string GetTargetNamespace() const override { return u"urn:letter"; }
    std::u16string GetNamespace() const override { return u"urn:letter"; }

protected:
    void AccessProperty(int propertyIndex, bool read, ZqXmlLib9::ZqVariant& value) override
    {
        std::u16string& text = m_texts.at(static_cast<std::size_t>(propertyIndex));
        if (read)
            value.SetString(text);
        else
            text = value.GetString();
    }

    CParentElementInfo* GetClassInfo() const override { return Metadata().parent; }
    CElementInfo** GetClassElementInfo() const override { return Metadata().elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return Metadata().attributes; }
    void Init() override { m_texts = {}; }

private:
    struct SMetadata {
        CParentElementInfo* parent = nullptr;
        CElementInfo** elements = nullptr;
        CAttributeInfo** attributes = nullptr;

        ~SMetadata() { CleanMetaData(parent, elements, attributes); }
    };

    static SMetadata& Metadata()
    {
        static SMetadata metadata;
        m_csInit.Enter();
        if (metadata.parent == nullptr) {
            const auto text = [](const char16_t* name, int index) {
                return new CElementInfoSeqPrimMnd(
                    name, u"urn:letter", index, ZqXmlLib9::ItemType_string, nullptr,
                    CWhitespaceUtils::WhitespaceRule_Preserve, CPrimitiveRestrictions());
            };
            metadata.elements = new CElementInfo* [4] {
                text(u"to", 0), text(u"from", 1), text(u"body", 2), nullptr
            };
            metadata.attributes = new CAttributeInfo* [1] { nullptr };
            metadata.parent =
                new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element,
                                       u"letter", u"urn:letter", -1, true, false);
        }
        m_csInit.Leave();
        return metadata;
    }

    std::array<std::u16string, 3> m_texts;
};

}  // namespace TestModel
