#include "../engine/NamespaceRestriction.h"

#include <ZqXmlLib9/collections/ElementCol.h>
#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/xml/XmlElement.h>

namespace ZqXmlLib9 {

CElementCol::CElementCol(const char16_t* ns, const char16_t* restriction,
                         const char16_t* targetNamespace, int minOccurs, int maxOccurs)
    : CXmlCollection(u"", targetNamespace, minOccurs, maxOccurs), CInstanceMonitor(u"CElementCol"),
      m_namespaceRestriction(kAnyNamespace), m_namespace(TextOrEmpty(ns)),
      m_targetNamespace(TextOrEmpty(targetNamespace))
{
    RequireNamespacePasses(m_namespace, TextOrEmpty(restriction), m_targetNamespace);
}

CElementCol::~CElementCol() = default;

CSmartPtr<CElement> CElementCol::Add(CElement* element)
{
    if (element == nullptr)
        throw CZqInvalidParamException(u"The object to add is null");
    CSmartPtr<CElement> added(element);
    RequireNamespacePasses(element->GetNamespace(), m_namespaceRestriction, m_targetNamespace);
    AppendItem(element);
    return added;
}

CSmartPtr<CElement> CElementCol::Add(const char16_t* name)
{
    if (m_namespace.empty())
        throw CZqInvalidStateException(u"A Namespace has not been set for this Collection");
    return Add(name, m_namespace.c_str());
}

CSmartPtr<CElement> CElementCol::Add(const char16_t* name, const char16_t* ns)
{
    RequireNamespacePasses(TextOrEmpty(ns), m_namespaceRestriction, m_targetNamespace);
    return Add(new CElement(name, ns, m_namespaceRestriction.c_str(), m_targetNamespace.c_str()));
}

void CElementCol::AddBefore(const CElement* existing, CElement* element)
{
    AddBeforeItem(existing, element);
}

void CElementCol::AddAfter(const CElement* existing, CElement* element)
{
    AddAfterItem(existing, element);
}

CSmartPtr<CElement> CElementCol::Item(int index) const
{
    return dynamic_cast<CElement*>(GetNodeAtIndex(index)->item.Get());
}

CSmartPtr<CElementCol> CElementCol::CloneWithoutItems() const
{
    return new CElementCol(m_namespace.c_str(), m_namespaceRestriction.c_str(),
                           m_targetNamespace.c_str(), GetMinOccurs(), GetMaxOccurs());
}

CSmartPtr<CElementCol> CElementCol::Clone() const
{
    CSmartPtr<CElementCol> clone = CloneWithoutItems();
    for (const CElement* element : *this)
        clone->AppendItem(element->Clone().Get());
    return clone;
}

void CElementCol::ToXml_Int(CXmlWriter* writer, bool, const char16_t* namespaceUri,
                            const CXmlSerializationContext& context, bool isOptionalChoice) const
{
    ValidateCount(context);
    for (const CElement* element : *this)
        ToXml_Int(element->GetBase(), writer, false, namespaceUri, context, isOptionalChoice);
}

/// Reads elements as long as they are wanted and take themselves.
template <typename TIsWanted>
CXmlElement* CElementCol::ReadRun(CXmlElement* parent, CXmlElement* cursor,
                                  const CXmlSerializationContext& context,
                                  const char16_t* restriction, TIsWanted&& isWanted)
{
    while (cursor != nullptr && isWanted(*cursor)) {
        const CSmartPtr<CElement> element(new CElement(cursor->GetLocalName().c_str(),
                                                       cursor->GetNamespaceURI().c_str(),
                                                       restriction, m_targetNamespace.c_str()));
        CXmlElement* const next = FromXml_Int(element.Get(), parent, cursor, context);
        if (next == cursor)
            break;
        Add(element.Get());
        cursor = next;
    }
    return cursor;
}

CXmlElement* CElementCol::FromXml_Int(CXmlElement* parent, CXmlElement* cursor,
                                      const CXmlSerializationContext& context, bool)
{
    return ReadRun(parent, cursor, context, m_namespaceRestriction.c_str(),
                   [&](const CXmlElement& element) {
                       return DoesNamespacePass(element.GetNamespaceURI(), m_namespaceRestriction,
                                                m_targetNamespace);
                   });
}

CXmlElement* CElementCol::FromXmlLockElementName_Int(const char16_t* name, const char16_t* ns,
                                                     CXmlElement* parent, CXmlElement* cursor,
                                                     const CXmlSerializationContext& context, bool)
{
    return ReadRun(parent, cursor, context, u"##any", [&](const CXmlElement& element) {
        return element.GetLocalName() == TextOrEmpty(name)
               && element.GetNamespaceURI() == TextOrEmpty(ns);
    });
}

}  // namespace ZqXmlLib9
