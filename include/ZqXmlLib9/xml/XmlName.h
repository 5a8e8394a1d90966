/// \file XmlName.h
/// The name of nodes of a tree.
#pragma once

#include <string>

namespace ZqXmlLib9 {

class CXmlDocument;

/// The resolved name of elements or attributes. A document has each name once, so its nodes have
/// the same name where they point to the same one. It lives as long as the tree.
struct SXmlName {
    std::u16string localName;
    const std::u16string* uri;  ///< one for all names of the namespace; an empty text: none
    CXmlDocument* document;

    /// Of attributes; see CXmlAttribute.
    bool isNil;
    bool isNamespace;
};

}  // namespace ZqXmlLib9
