/// \file ZqIterator.h
/// The iterator of object collections, and the nodes under it.
#pragma once

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/XmlObjectBase.h>

namespace ZqXmlLib9 {

/// A node of a doubly linked list of objects; it belongs to its collection. Pointers are null at
/// the ends.
struct CNode {
    CSmartPtr<CXmlObjectBase> item;
    CNode* next = nullptr;
    CNode* previous = nullptr;
};

/// Goes through the items of a collection as `T*`. It is good as long as its node stays in the
/// collection; other items may come and go.
template <typename T>
class CZqIterator {
public:
    /// \param node  null: the end
    explicit CZqIterator(CNode* node) noexcept : m_node(node) {}

    /// The item; null if it is no `T`. It stays the collection's.
    /// \throws CZqException  "No More Elements in the Collection" at the end
    T* operator*() const { return dynamic_cast<T*>(Require()->item.Get()); }
    T* operator->() const { return **this; }

    /// \throws CZqException  "No More Elements in the Collection" at the end
    CZqIterator& operator++()
    {
        m_node = Require()->next;
        return *this;
    }
    CZqIterator operator++(int)
    {
        const CZqIterator before = *this;
        ++*this;
        return before;
    }

    /// The same node, or nodes with the same item.
    friend bool operator==(const CZqIterator& left, const CZqIterator& right) noexcept
    {
        if (left.m_node == nullptr || right.m_node == nullptr)
            return left.m_node == right.m_node;
        return left.m_node->item == right.m_node->item;
    }

private:
    CNode* Require() const
    {
        if (m_node == nullptr)
            throw CZqException(u"No More Elements in the Collection");
        return m_node;
    }

    CNode* m_node;
};

}  // namespace ZqXmlLib9
