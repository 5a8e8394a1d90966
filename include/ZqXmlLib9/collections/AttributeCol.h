/// \file AttributeCol.h
/// A collection of attributes that the schema doesn't name.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/collections/Attribute.h>
#include <ZqXmlLib9/collections/XmlCollection.h>
#include <ZqXmlLib9/engine/InstanceMonitor.h>

#include <string>

namespace ZqXmlLib9 {

/// Open attributes under a namespace restriction: those of xs:anyAttribute, of open elements, and
/// the additional root attributes of a context.
///
/// Nothing looks for a second attribute of one name: it would reach the output.
class ZQXMLLIB9_API CAttributeCol : public CXmlCollection, public CInstanceMonitor {
public:
    /// \param ns           of new attributes; where it is empty and the restriction begins with a
    ///                     URI of two characters or more, that URI is taken
    /// \param restriction  a list of tokens, see `CXmlObjectBase::TestNamespace`
    CAttributeCol(const char16_t* ns, const char16_t* restriction, const char16_t* targetNamespace);

    /// Appends an attribute, without a test. It may belong to other collections too.
    CSmartPtr<CAttribute> Add(CAttribute* attribute);

    /// Makes an attribute and appends it; without a value it is empty, without a namespace it has
    /// that of the collection.
    /// \throws CZqInvalidNamespaceException  the namespace is outside the restriction; nothing is
    ///         changed
    CSmartPtr<CAttribute> Add(const char16_t* name);
    CSmartPtr<CAttribute> Add(const char16_t* name, const char16_t* value);
    CSmartPtr<CAttribute> Add(const char16_t* name, const char16_t* value, const char16_t* ns);

    /// \param existing  null: at the end, without a test
    /// \throws CZqInvalidParamException  "The object was not found in the collection"
    void AddBefore(const CAttribute* existing, CAttribute* attribute);
    /// \param existing  null: at the start, without a test
    /// \throws CZqInvalidParamException  "The object was not found in the collection"
    void AddAfter(const CAttribute* existing, CAttribute* attribute);

    /// \throws CZqInvalidParamException  "Index %d is out of range, use 0 - %d"
    CSmartPtr<CAttribute> Item(int index) const;

    CZqIterator<CAttribute> begin() const { return CZqIterator<CAttribute>(GetHead()); }
    CZqIterator<CAttribute> end() const { return CZqIterator<CAttribute>(nullptr); }

    /// A collection of its own, with a clone of each attribute.
    CSmartPtr<CAttributeCol> Clone() const;

protected:
    ~CAttributeCol() override;

    std::u16string GetTargetNamespace() const override { return GetNamespace(); }
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char16_t* namespaceUri,
                   const CXmlSerializationContext& context, bool isOptionalChoice) const override;
    /// Takes all attributes of `parent`, also those that are no data.
    /// \return `cursor`
    /// \throws CZqInvalidNamespaceException  "Invalid Attribute [%s]. The attributes namespace is
    ///         Inappropriate."; the attributes before it stay in the collection
    CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* cursor,
                             const CXmlSerializationContext& context,
                             bool isOptionalChoice) override;
    using CXmlCollection::FromXml_Int;
    using CXmlCollection::ToXml_Int;

private:
    std::u16string m_namespaceRestriction;
    std::u16string m_targetNamespace;
};

}  // namespace ZqXmlLib9
