#include <ZqXmlLib9/collections/XmlCollection.h>
#include <ZqXmlLib9/engine/FormatString.h>

#include <utility>

namespace ZqXmlLib9 {

CXmlCollection::CXmlCollection() = default;

CXmlCollection::CXmlCollection(const char16_t* elementName, const char16_t* targetNamespace,
                               int minOccurs, int maxOccurs)
    : CXmlCollectionBase(elementName, targetNamespace, minOccurs, maxOccurs)
{}

CXmlCollection::~CXmlCollection()
{
    CXmlCollection::Clear();
}

void CXmlCollection::AttributesToXml_Int(CXmlWriter* writer,
                                         const CXmlSerializationContext& context) const
{
    for (const CNode* node = m_head; node != nullptr; node = node->next)
        AttributesToXml_Int(node->item->GetBase(), writer, context);
}

void CXmlCollection::Clear()
{
    const CHold hold(*this);
    while (m_count >= 1)
        Remove(0);
}

void CXmlCollection::Remove(int index)
{
    RemoveNode(GetNodeAtIndex(index));
}

/// Adds an item in front of the node that `findNext` tells after the first event; null: at the end.
template <typename TFindNext>
void CXmlCollection::Add(CXmlObjectBase* item, TFindNext&& findNext)
{
    if (item == nullptr)
        throw CZqInvalidParamException(u"The object to add is null");
    const CHold hold(*this);
    const CSmartPtr<CXmlObjectBase> holdItem(item);
    auto node = std::make_unique<CNode>();
    node->item = item;
    FireOnCollectionAdd(item);
    CNode* const next = findNext();
    CNode* const previous = next != nullptr ? next->previous : m_tail;
    node->next = next;
    node->previous = previous;
    (next != nullptr ? next->previous : m_tail) = node.get();
    (previous != nullptr ? previous->next : m_head) = node.get();
    ++m_count;
    static_cast<void>(node.release());
    FireOnCollectionAddComplete(item);
    FireOnCollectionChange();
}

void CXmlCollection::AppendItem(CXmlObjectBase* item)
{
    Add(item, [] { return nullptr; });
}

void CXmlCollection::PrependItem(CXmlObjectBase* item)
{
    Add(item, [this] { return m_head; });
}

void CXmlCollection::AddItemAt(int index, CXmlObjectBase* item)
{
    const CSmartPtr<CXmlObjectBase> hold(item);
    if (index < 0 || index > m_count)
        throw CZqInvalidParamException(u"Index out of range");
    Add(item, [&] { return index == m_count ? nullptr : GetNodeAtIndex(index); });
}

void CXmlCollection::AddBeforeItem(const CXmlObjectBase* existing, CXmlObjectBase* item)
{
    Add(item, [&] { return existing == nullptr ? nullptr : GetNodeForItem(existing); });
}

void CXmlCollection::AddAfterItem(const CXmlObjectBase* existing, CXmlObjectBase* item)
{
    Add(item, [&] { return existing == nullptr ? m_head : GetNodeForItem(existing)->next; });
}

CNode* CXmlCollection::GetNodeAtIndex(int index) const
{
    if (index < 0 || index >= m_count)
        throw CZqInvalidParamException(
            FormatString(u"Index %d is out of range, use 0 - %d", index, m_count - 1));
    CNode* node = m_head;
    for (; index > 0; --index)
        node = node->next;
    return node;
}

CNode* CXmlCollection::GetNodeForItem(const CXmlObjectBase* item) const
{
    for (CNode* node = m_head; node != nullptr; node = node->next)
        if (node->item->GetBase() == item->GetBase())
            return node;
    throw CZqInvalidParamException(u"The object was not found in the collection");
}

void CXmlCollection::RemoveNode(CNode* node)
{
    const CHold hold(*this);
    FireOnCollectionRemove(-1);
    (node->previous != nullptr ? node->previous->next : m_head) = node->next;
    (node->next != nullptr ? node->next->previous : m_tail) = node->previous;
    delete node;
    --m_count;
    FireOnCollectionRemoveComplete(-1);
    FireOnCollectionChange();
}

}  // namespace ZqXmlLib9
