/// \file ClassfactoryBase.h
/// What generated class factories take from a document to choose a class.
#pragma once

#include <ZqXmlLib9/Export.h>

#include <string>

namespace ZqXmlLib9 {

class CXmlElement;

/// The base of generated class factories, which have no state.
///
/// Source: XML Schema Part 1, 2.6.1 (`xsi:type`), but that a type name without a prefix is in the
/// namespace of its element.
class ZQXMLLIB9_API CClassfactoryBase {
public:
    CClassfactoryBase();
    CClassfactoryBase(const CClassfactoryBase&);
    CClassfactoryBase& operator=(const CClassfactoryBase&);
    virtual ~CClassfactoryBase();

protected:
    /// The local name in `xsi:type`: what stands behind its first colon, or all of it. Empty
    /// without that attribute.
    static std::u16string GetElementType(const CXmlElement* element);

    /// The namespace of the prefix in `xsi:type`; that of the element itself where there is no
    /// prefix, or an undeclared one.
    static std::u16string GetElementTypeNamespaceUri(const CXmlElement* element);
};

}  // namespace ZqXmlLib9
