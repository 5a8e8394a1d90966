/// \file XmlCollection.h
/// The base of collections of objects.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/collections/XmlCollectionBase.h>
#include <ZqXmlLib9/collections/ZqIterator.h>

#include <cstdint>
#include <memory>

namespace ZqXmlLib9 {

/// A doubly linked list of reference-counted objects; a node holds one reference to its item.
///
/// Every change fires, in this order: add or remove, then, once the list has changed, its
/// completion, and the change event. The data of the add events is the item, that of the remove
/// events null. A class may duplicate it by `Clone()`.
///
/// Every adding operation takes hold of the item first: an item that nobody else holds is
/// destroyed if the operation fails.
class ZQXMLLIB9_API CXmlCollection : public CXmlCollectionBase {
public:
    int GetCount() const override { return m_count; }
    /// Removes the items one by one, from the first, each with its events.
    void Clear() override;
    /// \throws CZqInvalidParamException  "Index %d is out of range, use 0 - %d", before any event
    void Remove(int index) override;

protected:
    CXmlCollection();
    CXmlCollection(const char16_t* elementName, const char16_t* targetNamespace, int minOccurs,
                   int maxOccurs);
    /// Clears the collection; a listener must not throw then.
    ~CXmlCollection() override;

    /// Writes the attributes of every item: those of groups without a tag stand on the tag above.
    void AttributesToXml_Int(CXmlWriter* writer,
                             const CXmlSerializationContext& context) const override;
    using CXmlCollectionBase::AttributesToXml_Int;

    /// \name Adding
    /// \throws CZqInvalidParamException  "The object to add is null"
    /// @{
    void AppendItem(CXmlObjectBase* item);
    void PrependItem(CXmlObjectBase* item);
    /// \param index  of the item to stand behind the new one; the count appends
    /// \throws CZqInvalidParamException  "Index out of range", before any event
    void AddItemAt(int index, CXmlObjectBase* item);
    /// \param existing  null appends
    /// \throws CZqInvalidParamException  "The object was not found in the collection", after the
    ///         first event
    void AddBeforeItem(const CXmlObjectBase* existing, CXmlObjectBase* item);
    /// \param existing  null prepends
    /// \throws CZqInvalidParamException  as `AddBeforeItem`
    void AddAfterItem(const CXmlObjectBase* existing, CXmlObjectBase* item);
    /// @}

    /// Costs in proportion to the index.
    /// \throws CZqInvalidParamException  "Index %d is out of range, use 0 - %d"
    CNode* GetNodeAtIndex(int index) const;
    /// \throws CZqInvalidParamException  "The object was not found in the collection"
    CNode* GetNodeForItem(const CXmlObjectBase* item) const;
    /// Null for an empty collection.
    CNode* GetHead() const noexcept { return m_head; }
    void RemoveNode(CNode* node);

private:
    template <typename TFindNext>
    void Add(CXmlObjectBase* item, TFindNext&& findNext);

    CNode* m_head = nullptr;
    CNode* m_tail = nullptr;
    std::int32_t m_count = 0;
};

}  // namespace ZqXmlLib9
