// Open elements. Programs build them to any depth, so what walks a subtree without a writer or a
// tree to bound it (cloning, the test of namespaces) keeps its way in a list and not on the stack.

#include "../engine/NamespaceRestriction.h"

#include <ZqXmlLib9/collections/AttributeCol.h>
#include <ZqXmlLib9/collections/Element.h>
#include <ZqXmlLib9/collections/ElementCol.h>
#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/engine/XmlSerializationContext.h>
#include <ZqXmlLib9/types/BinaryData.h>
#include <ZqXmlLib9/xml/XmlAttribute.h>
#include <ZqXmlLib9/xml/XmlDocument.h>
#include <ZqXmlLib9/xml/XmlElement.h>
#include <ZqXmlLib9/xml/XmlTextWriter.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace ZqXmlLib9 {
namespace {

void RequireValue(const char16_t* value, const char16_t* message)
{
    if (value == nullptr)
        throw CZqInvalidNamespaceException(message);
}

/// Whether an attribute declares the default namespace, as documents read without namespaces do.
bool IsDefaultDeclaration(std::u16string_view name)
{
    return name == u"xmlns";
}

}  // namespace

CElement::CElement(const char16_t* name) : CInstanceMonitor(u"CElement")
{
    Init(name, u"", u"##any", u"");
}

CElement::CElement(const char16_t* name, const char16_t* ns) : CInstanceMonitor(u"CElement")
{
    const std::u16string_view uri = TextOrEmpty(ns);
    if (uri == kAnyNamespace || uri == kOtherNamespace || uri == kLocalNamespace
        || uri == kTargetNamespace)
        throw CZqInvalidNamespaceException(FormatString(u"Invalid Namespace [%s]", uri));
    Init(name, ns, ns, u"");
}

CElement::CElement(const char16_t* name, const char16_t* ns, const char16_t* restriction,
                   const char16_t* targetNamespace)
    : CInstanceMonitor(u"CElement")
{
    Init(name, ns, restriction, targetNamespace);
}

CElement::CElement(const CXmlObjectBase* object, const char16_t* defaultNamespace)
    : CInstanceMonitor(u"CElement"), m_defaultNamespace(TextOrEmpty(defaultNamespace))
{
    if (object == nullptr)
        throw CZqInvalidParamException(u"The object to copy is null");
    Init(u"", u"", u"##any", u"");
    CXmlSerializationContext context;
    context.SetDefaultNamespaceURI(m_defaultNamespace.c_str());
    const CBinaryData data = object->ToXmlStream(false, false, XmlEncoding_UTF8, EOLType_LF,
                                                 context, CompressionType_None);
    CXmlDocument document(context);
    document.LoadXmlStream(data.GetData(), data.GetLength());
    CopyXmlElement(document.GetDocumentElement());
}

CElement::~CElement() = default;

void CElement::Init(const char16_t* name, const char16_t* ns, const char16_t* restriction,
                    const char16_t* targetNamespace)
{
    RequireValue(name, u"Element Name must have a value");
    RequireValue(ns, u"Element Namespace must have a value");
    RequireValue(restriction, u"Namespace Restriction must have a value");
    RequireValue(targetNamespace, u"Target Namespace must have a value");
    TestNamespace(ns, restriction, targetNamespace);
    m_name = name;
    m_namespace = ns;
    m_namespaceRestriction = restriction;
    m_targetNamespace = targetNamespace;
    m_attributes = new CAttributeCol(ns, u"##any", targetNamespace);
    m_childElements = new CElementCol(ns, u"##any", targetNamespace, 0, -1);
}

void CElement::SetName(const char16_t* name)
{
    FireOnChangeName(name);
    m_name = TextOrEmpty(name);
}

void CElement::SetNamespace(const char16_t* ns)
{
    FireOnChangeNamespace(ns);
    m_namespace = TextOrEmpty(ns);
}

void CElement::SetText(const char16_t* text)
{
    FireOnChangeText(text);
    m_text = TextOrEmpty(text);
}

CSmartPtr<CAttributeCol> CElement::GetAttributes() const
{
    return m_attributes;
}

CSmartPtr<CElementCol> CElement::GetChildElements() const
{
    return m_childElements;
}

void CElement::SetNamespaceRestrictions(const char16_t* restriction,
                                        const char16_t* targetNamespace) const
{
    std::vector<const CElement*> waiting{this};
    while (!waiting.empty()) {
        const CElement* const element = waiting.back();
        waiting.pop_back();
        try {
            TestNamespace(element->m_namespace.c_str(), restriction, targetNamespace);
        }
        catch (const CZqException& inner) {
            throw CZqInvalidNamespaceException(
                FormatString(u"The namespace %s in the class %s is invalid against restriction %s",
                             element->m_namespace, element->m_name, restriction),
                inner);
        }
        for (const CAttribute* attribute : *element->m_attributes)
            TestNamespace(attribute->GetNamespace().c_str(), restriction, targetNamespace);
        const std::size_t first = waiting.size();
        for (const CElement* child : *element->m_childElements)
            waiting.push_back(child);
        std::reverse(waiting.begin() + static_cast<std::ptrdiff_t>(first), waiting.end());
    }
}

void CElement::FromXml(const char16_t* xml)
{
    const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext();
    CXmlDocument document(context);
    document.LoadXml(xml);
    CXmlElement* const root = document.GetDocumentElement();
    FromXml_Int(root, root, context, false);
}

void CElement::CopyXmlElement(const CXmlElement* element)
{
    if (element == nullptr)
        throw CZqInvalidParamException(u"The element to read from is null");
    const CHold hold(*this);
    // A child is added once it is complete.
    struct SLevel {
        CElement* target;
        CSmartPtr<CElement> hold;  ///< of a child; whoever calls holds the outermost
        const CXmlElement* nextChild;
    };
    TakeWithoutChildren(*element);
    std::vector<SLevel> levels{{this, nullptr, element->GetFirstElement()}};
    while (true) {
        SLevel& level = levels.back();
        if (const CXmlElement* const child = level.nextChild) {
            level.nextChild = child->GetNextSiblingElement();
            const CSmartPtr<CElement> copy(new CElement(child->GetLocalName().c_str()));
            copy->TakeWithoutChildren(*child);
            levels.push_back({copy.Get(), copy, child->GetFirstElement()});
            continue;
        }
        const CSmartPtr<CElement> complete = level.hold;
        levels.pop_back();
        if (levels.empty())
            return;
        levels.back().target->m_childElements->Add(complete.Get());
    }
}

void CElement::TakeWithoutChildren(const CXmlElement& element)
{
    m_name = element.GetLocalName();
    m_namespace = element.GetNamespaceURI();
    m_text = element.GetText();
    m_attributes->Clear();
    m_childElements->Clear();
    for (const CXmlAttribute* attribute : element.GetAttributes()) {
        m_attributes->Add(attribute->GetLocalName().c_str(), attribute->GetValue().c_str(),
                          attribute->GetNamespaceURI().c_str());
        if (IsDefaultDeclaration(attribute->GetLocalName()))
            m_defaultNamespace = attribute->GetValue();
    }
}

CSmartPtr<CElement> CElement::CloneWithoutChildren() const
{
    CSmartPtr<CElement> clone(new CElement(m_name.c_str(), m_namespace.c_str(),
                                           m_namespaceRestriction.c_str(),
                                           m_targetNamespace.c_str()));
    clone->m_attributes = m_attributes->Clone();
    clone->m_childElements = m_childElements->CloneWithoutItems();
    clone->m_text = m_text;
    clone->m_defaultNamespace = m_defaultNamespace;
    return clone;
}

CSmartPtr<CElement> CElement::Clone() const
{
    CSmartPtr<CElement> clone = CloneWithoutChildren();
    std::vector<std::pair<const CElement*, CElement*>> waiting{{this, clone.Get()}};
    while (!waiting.empty()) {
        const auto [source, target] = waiting.back();
        waiting.pop_back();
        for (const CElement* child : *source->m_childElements) {
            const CSmartPtr<CElement> copy = child->CloneWithoutChildren();
            target->m_childElements->AppendItem(copy.Get());
            waiting.emplace_back(child, copy.Get());
        }
    }
    return clone;
}

void CElement::ToXml_Int(CXmlWriter* writer, bool, const char16_t* namespaceUri,
                         const CXmlSerializationContext& context, bool isOptionalChoice) const
{
    if (auto* const textWriter = dynamic_cast<CXmlTextWriter*>(writer);
        textWriter != nullptr && !m_defaultNamespace.empty()) {
        WriteAsDocument(*textWriter);
        return;
    }
    writer->WriteStartElement(m_name, m_namespace);
    ToXml_Int(m_attributes.Get(), writer, false, namespaceUri, context, isOptionalChoice);
    ToXml_Int(m_childElements.Get(), writer, false, namespaceUri, context, isOptionalChoice);
    writer->WriteText(m_text, ItemType_string);
    writer->WriteEndElement();
}

void CElement::WriteAsDocument(CXmlTextWriter& writer) const
{
    writer.CloseStartTag();
    CXmlTextWriter inner(writer.GetStream());
    inner.ContinueDepthOf(writer);
    inner.SetEOLType(writer.GetEOLType());
    inner.SetFormat(writer.GetFormat());
    inner.SetDefaultNamespace(m_defaultNamespace);
    inner.WriteStartElement(m_name, m_namespace);
    CXmlSerializationContext context;
    context.SetDefaultNamespaceURI(m_defaultNamespace.c_str());
    for (const CAttribute* attribute : *m_attributes)
        if (!attribute->GetNamespace().empty() || !IsDefaultDeclaration(attribute->GetName()))
            ToXml_Int(attribute->GetBase(), &inner, false, m_namespace.c_str(), context, false);
    ToXml_Int(m_childElements.Get(), &inner, false, m_namespace.c_str(), context, false);
    inner.WriteText(m_text, ItemType_string);
    inner.WriteEndElement();
    writer.WriteRawLine({});
}

CXmlElement* CElement::FromXml_Int(CXmlElement*, CXmlElement* cursor,
                                   const CXmlSerializationContext& context, bool)
{
    if (cursor == nullptr
        || !DoesNamespacePass(cursor->GetNamespaceURI(), m_namespaceRestriction, m_targetNamespace))
        return cursor;
    const CHold hold(*this);
    FromXml_Int(m_attributes.Get(), cursor, nullptr, context);
    const CXmlElement* const rest =
        FromXml_Int(m_childElements.Get(), cursor, cursor->GetFirstElement(), context);
    if (rest != nullptr)
        throw CZqValidationException(FormatString(u"Invalid Element [%s] found in element [%s]",
                                                  cursor->GetLocalName(), m_name));
    m_text = cursor->GetText();
    m_name = cursor->GetLocalName();
    m_namespace = cursor->GetNamespaceURI();
    return cursor->GetNextSiblingElement();
}

void CElement::FireOnChangeName(const char16_t*) {}

void CElement::FireOnChangeNamespace(const char16_t*) {}

void CElement::FireOnChangeText(const char16_t*) {}

}  // namespace ZqXmlLib9
