/// \file ElementCol.h
/// A collection of elements that the schema doesn't describe.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/collections/Element.h>
#include <ZqXmlLib9/collections/XmlCollection.h>
#include <ZqXmlLib9/engine/InstanceMonitor.h>

#include <string>

namespace ZqXmlLib9 {

/// Open elements. Whatever restriction it is made with, the collection takes elements of any
/// namespace: the restriction is tested against its own namespace alone.
class ZQXMLLIB9_API CElementCol : public CXmlCollection, public CInstanceMonitor {
public:
    /// \param ns  of new elements; empty: `Add(name)` fails
    /// \throws CZqInvalidNamespaceException  `ns` is outside the restriction
    CElementCol(const char16_t* ns, const char16_t* restriction, const char16_t* targetNamespace,
                int minOccurs, int maxOccurs);

    /// Appends an element. It may belong to other collections too.
    /// \throws CZqInvalidNamespaceException  its namespace is outside the restriction
    CSmartPtr<CElement> Add(CElement* element);
    /// Makes an element in the namespace of the collection and appends it.
    /// \throws CZqInvalidStateException  "A Namespace has not been set for this Collection"
    CSmartPtr<CElement> Add(const char16_t* name);
    CSmartPtr<CElement> Add(const char16_t* name, const char16_t* ns);

    /// \param existing  null: at the end; the namespace isn't tested
    /// \throws CZqInvalidParamException  "The object was not found in the collection"
    void AddBefore(const CElement* existing, CElement* element);
    /// \param existing  null: at the start; the namespace isn't tested
    /// \throws CZqInvalidParamException  "The object was not found in the collection"
    void AddAfter(const CElement* existing, CElement* element);

    /// \throws CZqInvalidParamException  "Index %d is out of range, use 0 - %d"
    CSmartPtr<CElement> Item(int index) const;

    CZqIterator<CElement> begin() const { return CZqIterator<CElement>(GetHead()); }
    CZqIterator<CElement> end() const { return CZqIterator<CElement>(nullptr); }

    /// A collection of its own, with a clone of each element.
    CSmartPtr<CElementCol> Clone() const;

    std::u16string GetNamespace() const override { return m_targetNamespace; }

protected:
    friend class ZqXmlLib9Data::CElementInfo;

    ~CElementCol() override;

    std::u16string GetTargetNamespace() const override { return m_targetNamespace; }
    /// \throws CZqValidationException  as `ValidateCount`
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char16_t* namespaceUri,
                   const CXmlSerializationContext& context, bool isOptionalChoice) const override;
    /// Takes the elements from the cursor on.
    CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* cursor,
                             const CXmlSerializationContext& context,
                             bool isOptionalChoice) override;
    using CXmlCollection::FromXml_Int;
    using CXmlCollection::ToXml_Int;

    /// Takes the elements from the cursor on that have one name and namespace.
    virtual CXmlElement* FromXmlLockElementName_Int(const char16_t* name, const char16_t* ns,
                                                    CXmlElement* parent, CXmlElement* cursor,
                                                    const CXmlSerializationContext& context,
                                                    bool isOptionalChoice = false);

private:
    friend class CElement;

    template <typename TIsWanted>
    CXmlElement* ReadRun(CXmlElement* parent, CXmlElement* cursor,
                         const CXmlSerializationContext& context, const char16_t* restriction,
                         TIsWanted&& isWanted);
    CSmartPtr<CElementCol> CloneWithoutItems() const;

    std::u16string m_namespaceRestriction;
    std::u16string m_namespace;
    std::u16string m_targetNamespace;
};

}  // namespace ZqXmlLib9
