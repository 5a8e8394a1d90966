// The memory of a tree, and how it grows: nodes in blocks, each name once, text copied once.
//
// A node that is freed leaves its place to the next one, so that a document whose elements a filter
// claims takes no more memory than it holds at once. Names stay until the tree goes; the parser
// keeps them as long.
#pragma once

#include <ZqXmlLib9/xml/XmlAttribute.h>
#include <ZqXmlLib9/xml/XmlElement.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <new>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ZqXmlLib9 {

/// Whether a text has this unit. There is no early end, so that the compiler tests several at once.
inline bool HasUnit(std::u16string_view text, char16_t wanted)
{
    std::uint16_t found = 0;
    for (const char16_t unit : text)
        found |= static_cast<std::uint16_t>(-(unit == wanted));
    return found != 0;
}

/// Places for nodes of one kind. Whoever makes a node destroys it before the pool goes.
template <typename TNode>
class CNodePool {
public:
    template <typename... TArguments>
    TNode* Make(TArguments&&... arguments)
    {
        // The constructor doesn't throw, so that the place isn't lost.
        static_assert(noexcept(TNode(std::forward<TArguments>(arguments)...)));
        return new (TakePlace()) TNode(std::forward<TArguments>(arguments)...);
    }

    void Destroy(TNode* node) noexcept
    {
        node->~TNode();
        m_free = new (node) SFreePlace{m_free};
    }

private:
    struct SFreePlace {
        SFreePlace* next;
    };
    struct SPlace {
        alignas(TNode) std::byte octets[sizeof(TNode)];
    };

    void* TakePlace()
    {
        if (m_free != nullptr)
            return std::exchange(m_free, m_free->next);
        if (m_unused == 0)
            AddBlock();
        return &m_blocks.back()[m_blockSize - m_unused--];
    }

    void AddBlock()
    {
        // What a tree doesn't use of its last block shall be little beside the tree.
        const std::size_t size = std::clamp<std::size_t>(m_count / 8, 16, 1024);
        m_blocks.push_back(std::make_unique_for_overwrite<SPlace[]>(size));
        m_blockSize = size;
        m_unused = size;
        m_count += size;
    }

    std::vector<std::unique_ptr<SPlace[]>> m_blocks;
    std::size_t m_count = 0;      ///< places in all blocks
    std::size_t m_blockSize = 0;  ///< places in the last block
    std::size_t m_unused = 0;     ///< places at the end of the last block
    SFreePlace* m_free = nullptr;
};

/// The tree of one document. The front ends build it: a new element goes into the innermost one
/// that is open, and so does text.
class CXmlTree {
public:
    explicit CXmlTree(CXmlDocument* document) : m_document(document) {}
    CXmlTree(const CXmlTree&) = delete;
    CXmlTree& operator=(const CXmlTree&) = delete;
    ~CXmlTree();

    void Clear() noexcept;

    /// Null before the first element.
    CXmlElement* GetRoot() const noexcept { return m_root; }
    /// How many elements are open.
    std::size_t GetDepth() const noexcept { return m_depth; }

    /// The one name of this kind, which is made where it is new.
    const SXmlName* FindName(std::u16string_view uri, std::u16string_view localName);

    /// A new element, which is open.
    CXmlElement* Open(const SXmlName* name);
    void AddAttribute(CXmlElement* element, const SXmlName* name, std::u16string_view value);
    /// Carriage returns go when the element is closed.
    void AppendText(std::u16string_view text) { m_text->append(text); }
    /// Closes the innermost element, and gives it its text.
    CXmlElement* Close();
    /// Takes the element that was closed last out of the tree again, unless it is the root.
    void FreeClosed() noexcept;

private:
    /// An element that is open, and what there is to know until it is closed. Records are used
    /// again, with their buffers.
    struct SOpenElement {
        CXmlElement* element = nullptr;
        CXmlElement* previous = nullptr;  ///< the sibling in front of it
        CXmlElement* lastChild = nullptr;
        std::u16string text;
    };

    /// Any order will do, so the quickest: long names that begin alike cost little.
    struct STextOrder {
        using is_transparent = void;

        bool operator()(std::u16string_view left, std::u16string_view right) const
        {
            const std::size_t length = left.size() * sizeof(char16_t);
            return left.size() != right.size()
                       ? left.size() < right.size()
                       : length != 0 && std::memcmp(left.data(), right.data(), length) < 0;
        }
    };

    struct SNameKey {
        const std::u16string* uri;
        std::u16string_view localName;
    };

    struct SNameOrder {
        using is_transparent = void;

        static SNameKey KeyOf(const SNameKey& key) { return key; }
        static SNameKey KeyOf(const SXmlName& name) { return {name.uri, name.localName}; }

        template <typename TLeft, typename TRight>
        bool operator()(const TLeft& left, const TRight& right) const
        {
            const SNameKey l = KeyOf(left);
            const SNameKey r = KeyOf(right);
            return l.uri != r.uri ? std::less<>()(l.uri, r.uri)
                                  : STextOrder()(l.localName, r.localName);
        }
    };

    void Free(CXmlElement* element) noexcept;

    CXmlDocument* m_document;
    CXmlElement* m_root = nullptr;
    std::vector<SOpenElement> m_open;  ///< outermost first
    std::size_t m_depth = 0;           ///< how many of them are in use
    std::u16string* m_text = nullptr;  ///< of the innermost one
    CNodePool<CXmlElement> m_elements;
    CNodePool<CXmlAttribute> m_attributes;
    // Ordered, since a document could choose its names to collide in a hash table.
    std::set<std::u16string, STextOrder> m_uris;
    std::set<SXmlName, SNameOrder> m_names;
};

}  // namespace ZqXmlLib9
