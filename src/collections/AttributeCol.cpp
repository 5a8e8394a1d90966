#include "../engine/NamespaceRestriction.h"

#include <ZqXmlLib9/collections/AttributeCol.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/xml/XmlAttribute.h>
#include <ZqXmlLib9/xml/XmlElement.h>

namespace ZqXmlLib9 {
namespace {

/// The namespace of new attributes: a restriction that begins with a URI names it.
std::u16string DefaultNamespace(std::u16string_view ns, std::u16string_view restriction)
{
    const std::u16string_view token = TakeToken(restriction);
    const bool isUri = token.size() >= 2 && token[0] != u'#' && token[1] != u'#';
    return std::u16string(ns.empty() && isUri ? token : ns);
}

}  // namespace

CAttributeCol::CAttributeCol(const char16_t* ns, const char16_t* restriction,
                             const char16_t* targetNamespace)
    : CXmlCollection(u"", DefaultNamespace(TextOrEmpty(ns), TextOrEmpty(restriction)).c_str(), 0,
                     -1),
      CInstanceMonitor(u"CAttributeCol"), m_namespaceRestriction(TextOrEmpty(restriction)),
      m_targetNamespace(TextOrEmpty(targetNamespace))
{}

CAttributeCol::~CAttributeCol() = default;

CSmartPtr<CAttribute> CAttributeCol::Add(CAttribute* attribute)
{
    CSmartPtr<CAttribute> added(attribute);
    AppendItem(attribute);
    return added;
}

CSmartPtr<CAttribute> CAttributeCol::Add(const char16_t* name)
{
    return Add(name, u"");
}

CSmartPtr<CAttribute> CAttributeCol::Add(const char16_t* name, const char16_t* value)
{
    return Add(name, value, GetNamespace().c_str());
}

CSmartPtr<CAttribute> CAttributeCol::Add(const char16_t* name, const char16_t* value,
                                         const char16_t* ns)
{
    RequireNamespacePasses(TextOrEmpty(ns), m_namespaceRestriction, m_targetNamespace);
    return Add(new CAttribute(name, value, ns));
}

void CAttributeCol::AddBefore(const CAttribute* existing, CAttribute* attribute)
{
    AddBeforeItem(existing, attribute);
}

void CAttributeCol::AddAfter(const CAttribute* existing, CAttribute* attribute)
{
    AddAfterItem(existing, attribute);
}

CSmartPtr<CAttribute> CAttributeCol::Item(int index) const
{
    return dynamic_cast<CAttribute*>(GetNodeAtIndex(index)->item.Get());
}

CSmartPtr<CAttributeCol> CAttributeCol::Clone() const
{
    CSmartPtr<CAttributeCol> clone(new CAttributeCol(
        GetNamespace().c_str(), m_namespaceRestriction.c_str(), m_targetNamespace.c_str()));
    for (const CAttribute* attribute : *this)
        clone->Add(attribute->Clone().Get());
    return clone;
}

void CAttributeCol::ToXml_Int(CXmlWriter* writer, bool, const char16_t* namespaceUri,
                              const CXmlSerializationContext& context, bool isOptionalChoice) const
{
    for (const CAttribute* attribute : *this)
        ToXml_Int(attribute->GetBase(), writer, false, namespaceUri, context, isOptionalChoice);
}

CXmlElement* CAttributeCol::FromXml_Int(CXmlElement* parent, CXmlElement* cursor,
                                        const CXmlSerializationContext&, bool)
{
    for (const CXmlAttribute* attribute : parent->GetAttributes()) {
        if (!DoesNamespacePass(attribute->GetNamespaceURI(), m_namespaceRestriction,
                               m_targetNamespace))
            throw CZqInvalidNamespaceException(
                FormatString(u"Invalid Attribute [%s]. The attributes namespace is Inappropriate.",
                             attribute->GetLocalName()));
        Add(attribute->GetLocalName().c_str(), attribute->GetValue().c_str(),
            attribute->GetNamespaceURI().c_str());
    }
    return cursor;
}

}  // namespace ZqXmlLib9
