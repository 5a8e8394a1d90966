/// \file MetadataEnums.h
/// How a class stands in its schema.
#pragma once

#include <cstdint>

namespace ZqXmlLib9Data {

/// The content model of a class. Source: XML Schema Part 1, 3.8.
enum XmlElementGroupType : std::int32_t {
    XmlElementGroupType_Sequence = 0,  ///< children in the order of the metadata
    XmlElementGroupType_Choice = 1,    ///< one child
    XmlElementGroupType_All = 2,       ///< children in any order
};

/// How a class stands in the document.
enum XmlElementType : std::int32_t {
    /// An element of its own: a tag with its attributes on it and its children inside.
    XmlElementType_Element = 0,
    /// A model group without a tag: its children stand among those of the enclosing class, its
    /// attributes on the enclosing tag.
    XmlElementType_Pseudo = 1,
};

}  // namespace ZqXmlLib9Data
