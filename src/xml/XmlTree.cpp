#include "XmlTree.h"

#include "../engine/XmlNames.h"

namespace ZqXmlLib9 {
namespace {

/// Whether a name of these namespaces is one of XML Schema's own, like xsi:type.
bool IsOfInstance(std::u16string_view uri)
{
    return uri == kXsiNamespace || uri == kXmlnsNamespace;
}

bool IsNamespaceWord(std::u16string_view localName)
{
    constexpr std::u16string_view kWords[] = {u"xmlns", u"type", u"schemaLocation",
                                              u"noNamespaceSchemaLocation"};
    return std::ranges::find(kWords, localName) != std::end(kWords);
}

}  // namespace

CXmlTree::~CXmlTree()
{
    Clear();
}

void CXmlTree::Clear() noexcept
{
    Free(std::exchange(m_root, nullptr));
    m_open = {};
    m_depth = 0;
    m_elements = {};
    m_attributes = {};
    m_names.clear();
    m_uris.clear();
}

const SXmlName* CXmlTree::FindName(std::u16string_view uri, std::u16string_view localName)
{
    auto ns = m_uris.find(uri);
    if (ns == m_uris.end())
        ns = m_uris.emplace(uri).first;
    const SNameKey key{&*ns, localName};
    if (const auto found = m_names.find(key); found != m_names.end())
        return &*found;
    const bool isOfInstance = IsOfInstance(uri);
    return &*m_names
                 .insert({std::u16string(localName), key.uri, m_document,
                          isOfInstance && localName == u"nil",
                          isOfInstance && IsNamespaceWord(localName)})
                 .first;
}

CXmlElement* CXmlTree::Open(const SXmlName* name)
{
    if (m_depth == m_open.size())
        m_open.emplace_back();
    CXmlElement* const element = m_elements.Make(name);
    SOpenElement& open = m_open[m_depth];
    open.element = element;
    open.lastChild = nullptr;
    open.text.clear();
    if (m_depth == 0) {
        m_root = element;
        open.previous = nullptr;
    }
    else {
        SOpenElement& parent = m_open[m_depth - 1];
        open.previous = std::exchange(parent.lastChild, element);
        (open.previous != nullptr ? open.previous->m_nextSibling : parent.element->m_firstChild) =
            element;
    }
    ++m_depth;
    m_text = &open.text;
    return element;
}

void CXmlTree::AddAttribute(CXmlElement* element, const SXmlName* name, std::u16string_view value)
{
    if (element->m_attributes == nullptr)
        element->m_attributes = std::make_unique<CXmlElement::Attributes>();
    CXmlElement::Attributes& attributes = *element->m_attributes;
    attributes.push_back(nullptr);
    try {
        attributes.back() = m_attributes.Make(name, std::u16string(value));
    }
    catch (...) {
        attributes.pop_back();
        throw;
    }
}

CXmlElement* CXmlTree::Close()
{
    SOpenElement& open = m_open[m_depth - 1];
    if (HasUnit(open.text, u'\r'))
        std::erase(open.text, u'\r');
    // A copy has the capacity of the text, and the buffer stays.
    open.element->m_text = std::u16string(std::u16string_view(open.text));
    if (--m_depth == 0)
        m_open = {};
    else
        m_text = &m_open[m_depth - 1].text;
    return m_depth != 0 ? m_open[m_depth].element : m_root;
}

void CXmlTree::FreeClosed() noexcept
{
    if (m_depth == 0)
        return;
    SOpenElement& parent = m_open[m_depth - 1];
    Free(std::exchange(parent.lastChild, m_open[m_depth].previous));
    (parent.lastChild != nullptr ? parent.lastChild->m_nextSibling : parent.element->m_firstChild) =
        nullptr;
}

/// Frees a subtree, which may be deeper than the stack: on the way down the pointer of a node to
/// its sibling, which its parent takes over, becomes the way back.
void CXmlTree::Free(CXmlElement* element) noexcept
{
    if (element != nullptr)
        element->m_nextSibling = nullptr;
    while (element != nullptr) {
        if (CXmlElement* const child = element->m_firstChild) {
            element->m_firstChild = std::exchange(child->m_nextSibling, element);
            element = child;
            continue;
        }
        CXmlElement* const parent = element->m_nextSibling;
        for (CXmlAttribute* const attribute : element->GetAttributes())
            m_attributes.Destroy(attribute);
        m_elements.Destroy(element);
        element = parent;
    }
}

}  // namespace ZqXmlLib9
