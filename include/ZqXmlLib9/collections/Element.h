/// \file Element.h
/// An element that the schema doesn't describe.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/InstanceMonitor.h>
#include <ZqXmlLib9/engine/XmlObjectBase.h>

#include <string>

namespace ZqXmlLib9 {

class CAttributeCol;
class CElementCol;
class CXmlTextWriter;

#pragma GCC diagnostic push
// FromXml stands for the inherited forms: beside it, a call with a text alone would be ambiguous.
#pragma GCC diagnostic ignored "-Woverloaded-virtual"

/// An open element, for xs:any and for elements declared without a type: a name, a namespace, a
/// text, attributes and child elements, all of which can be edited.
///
/// Its text stands behind all its children when it is written. Its own namespace is held to a
/// restriction (`CXmlObjectBase::TestNamespace`) when it is made or read; its attributes and
/// children may come from any namespace. A subtree may sit in two parents at once.
///
/// The white space between its children is a part of its text, as in every element of a tree: who
/// writes open content with formatting and reads it again gets more of it each time.
///
/// The entry points that read take the root of the document, or the element given, itself. Reading
/// adds to the attributes and children that the element has.
class ZQXMLLIB9_API CElement : public CXmlObjectBase, public CInstanceMonitor {
public:
    /// An element without a namespace, under the restriction `##any`.
    explicit CElement(const char16_t* name);
    /// An element in a namespace that is its own restriction.
    /// \throws CZqInvalidNamespaceException  "Invalid Namespace [%s]" where `ns` is one of the
    ///         words of restrictions; "Element Name must have a value" and its like for a null
    CElement(const char16_t* name, const char16_t* ns);
    /// \throws CZqInvalidNamespaceException  the namespace is outside the restriction; "Element
    ///         Name must have a value" and its like for a null
    CElement(const char16_t* name, const char16_t* ns, const char16_t* restriction,
             const char16_t* targetNamespace);
    /// An open copy of an object, under the restriction `##any`, by way of its document.
    /// \param defaultNamespace  of that document, and of the copy where it is written as text; null
    ///                          for none
    /// \throws CZqInvalidParamException  the object is null
    /// \throws CZqException              as `CXmlObjectBase::ToXmlStream` and
    ///         `CXmlDocument::LoadXmlStream`
    CElement(const CXmlObjectBase* object, const char16_t* defaultNamespace);
    CElement(const CElement&) = delete;
    CElement& operator=(const CElement&) = delete;

    using CXmlObjectBase::GetBase;
    CXmlObjectBase* GetBase() override { return this; }

    const std::u16string& GetName() const noexcept { return m_name; }
    /// \param name  not null
    void SetName(const char16_t* name);
    std::u16string GetNamespace() const override { return m_namespace; }
    /// Doesn't test the restriction.
    void SetNamespace(const char16_t* ns);
    const std::u16string& GetText() const noexcept { return m_text; }
    void SetText(const char16_t* text);

    CSmartPtr<CAttributeCol> GetAttributes() const;
    CSmartPtr<CElementCol> GetChildElements() const;

    /// Tests the whole subtree against a rule, and stores nothing.
    /// \throws CZqInvalidNamespaceException  "The namespace %s in the class %s is invalid against
    ///         restriction %s" for an element, with the failure of the test inside; the failure of
    ///         the test itself for an attribute
    void SetNamespaceRestrictions(const char16_t* restriction,
                                  const char16_t* targetNamespace) const;

    /// Reads the element from text, under the default context.
    /// \throws CZqException  as `CXmlObjectBase::FromXml`
    void FromXml(const char16_t* xml);

    /// Takes name, namespace, text, attributes and children from an element of a tree, in place of
    /// its own. An attribute with the local name `xmlns` sets the default namespace too.
    /// \throws CZqInvalidParamException  the element is null
    void CopyXmlElement(const CXmlElement* element);

    /// A deep copy that is nobody's yet, whatever the depth.
    CSmartPtr<CElement> Clone() const;

protected:
    ~CElement() override;

    std::u16string GetTargetNamespace() const override { return m_namespace; }
    /// Where the element has a default namespace and the writer writes text, it is written as a
    /// little document of its own, with that declaration, and pasted in.
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char16_t* namespaceUri,
                   const CXmlSerializationContext& context, bool isOptionalChoice) const override;
    /// Takes the element at the cursor if its namespace passes the restriction.
    /// \return the cursor itself, or the next sibling of what it took
    CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* cursor,
                             const CXmlSerializationContext& context,
                             bool isOptionalChoice) override;
    using CXmlObjectBase::FromXml_Int;
    using CXmlObjectBase::ToXml_Int;

    /// \name Called with a new value before it is stored; nothing here
    /// @{
    virtual void FireOnChangeName(const char16_t* name);
    virtual void FireOnChangeNamespace(const char16_t* ns);
    virtual void FireOnChangeText(const char16_t* text);
    /// @}

    /// What all constructors do.
    void Init(const char16_t* name, const char16_t* ns, const char16_t* restriction,
              const char16_t* targetNamespace);

private:
    friend class CElementCol;

    CSmartPtr<CElement> CloneWithoutChildren() const;
    void TakeWithoutChildren(const CXmlElement& element);
    void WriteAsDocument(CXmlTextWriter& writer) const;

    std::u16string m_name;
    std::u16string m_text;
    std::u16string m_namespace;
    std::u16string m_namespaceRestriction;
    std::u16string m_targetNamespace;
    CSmartPtr<CAttributeCol> m_attributes;
    CSmartPtr<CElementCol> m_childElements;
    std::u16string m_defaultNamespace;
};
#pragma GCC diagnostic pop

}  // namespace ZqXmlLib9
