/// \file XmlObjectCollection.h
/// The collection of objects that generated classes use for elements that repeat.
#pragma once

#include <ZqXmlLib9/collections/XmlCollection.h>
#include <ZqXmlLib9/metadata/MetadataEnums.h>
#include <ZqXmlLib9/xml/XmlElement.h>

namespace ZqXmlLib9 {

/// A collection of `T`, a generated class that can be made without arguments.
///
/// An item with a tag is read from each element that has the name and namespace of the collection;
/// a group without a tag is read from the cursor as long as it takes elements. A factory makes the
/// items itself, whatever the name of the element, and the run ends where it makes none.
template <typename T>
class CXmlObjectCollection : public CXmlCollection {
public:
    /// Makes the object of the class that an element asks for; null if no class fits.
    using ItemFactory = CSmartPtr<CXmlObjectBase> (*)(CXmlElement* element);

    /// \param maxOccurs  -1: unbounded
    /// \param factory    null: each item is a new `T`
    CXmlObjectCollection(
        const char16_t* elementName, const char16_t* ns, int minOccurs, int maxOccurs,
        ZqXmlLib9Data::XmlElementType elementType = ZqXmlLib9Data::XmlElementType_Element,
        ItemFactory factory = nullptr)
        : CXmlCollection(elementName, ns, minOccurs, maxOccurs), m_elementType(elementType),
          m_factory(factory)
    {}

    /// Appends an item; it may belong to other collections too.
    CSmartPtr<T> Add(T* item)
    {
        CSmartPtr<T> added(item);
        AppendItem(item);
        return added;
    }
    /// Makes an item under the element name of the collection and appends it.
    CSmartPtr<T> AddNew()
    {
        const CSmartPtr<T> item(new T());
        if (m_elementType == ZqXmlLib9Data::XmlElementType_Element)
            SetElementName(item.Get(), GetElementName().c_str());
        return Add(item.Get());
    }
    /// \throws CZqInvalidParamException  "Index out of range"
    void AddAt(int index, T* item) { AddItemAt(index, item); }
    /// \throws CZqInvalidParamException  "The object was not found in the collection"
    void AddBefore(const T* existing, T* item) { AddBeforeItem(existing, item); }
    /// \throws CZqInvalidParamException  "The object was not found in the collection"
    void AddAfter(const T* existing, T* item) { AddAfterItem(existing, item); }

    /// \throws CZqInvalidParamException  "Index %d is out of range, use 0 - %d"
    CSmartPtr<T> Item(int index) const
    {
        return dynamic_cast<T*>(GetNodeAtIndex(index)->item.Get());
    }

    CZqIterator<T> begin() const { return CZqIterator<T>(GetHead()); }
    CZqIterator<T> end() const { return CZqIterator<T>(nullptr); }

protected:
    void ToXml_Int(CXmlWriter* writer, bool, const char16_t* namespaceUri,
                   const CXmlSerializationContext& context, bool) const override
    {
        for (const CNode* node = GetHead(); node != nullptr; node = node->next)
            ToXml_Int(node->item->GetBase(), writer, false, namespaceUri, context, false);
    }

    CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* cursor,
                             const CXmlSerializationContext& context, bool) override
    {
        return m_elementType == ZqXmlLib9Data::XmlElementType_Element
                   ? ReadElements(cursor, context)
                   : ReadGroups(parent, cursor, context);
    }
    using CXmlCollection::FromXml_Int;
    using CXmlCollection::ToXml_Int;

private:
    CSmartPtr<CXmlObjectBase> MakeItem(CXmlElement* element) const
    {
        return m_factory != nullptr ? m_factory(element) : CSmartPtr<CXmlObjectBase>(new T());
    }

    CXmlElement* ReadElements(CXmlElement* cursor, const CXmlSerializationContext& context)
    {
        const std::u16string ns = GetNamespace();
        while (
            cursor != nullptr
            && (m_factory != nullptr
                || DoesElementNameMatch(context, cursor, GetElementName().c_str(), ns.c_str()))) {
            const CSmartPtr<CXmlObjectBase> item = MakeItem(cursor);
            if (item == nullptr)
                break;
            FromXml_Int(item.Get(), cursor, cursor->GetFirstElement(), context);
            AppendItem(item.Get());
            cursor = cursor->GetNextSiblingElement();
        }
        return cursor;
    }

    CXmlElement* ReadGroups(CXmlElement* parent, CXmlElement* cursor,
                            const CXmlSerializationContext& context)
    {
        while (cursor != nullptr) {
            const CSmartPtr<CXmlObjectBase> item = MakeItem(cursor);
            if (item == nullptr)
                break;
            CXmlElement* const next = FromXml_Int(item.Get(), parent, cursor, context);
            if (next == cursor)
                break;
            AppendItem(item.Get());
            cursor = next;
        }
        return cursor;
    }

    ZqXmlLib9Data::XmlElementType m_elementType;
    ItemFactory m_factory;
};

}  // namespace ZqXmlLib9
