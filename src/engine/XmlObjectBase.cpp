#include "VersionGate.h"
#include "XmlNames.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/engine/XmlObjectBase.h>
#include <ZqXmlLib9/xml/XmlElement.h>

namespace ZqXmlLib9 {
namespace {

/// Enough that the objects of usual documents are destroyed at once; without optimisation, one
/// that is held by a variant in a vector takes a KiB of stack.
constexpr int kMaxNestedDestructions = 64;

/// The count of an object that is being destroyed, or waits for that: whoever holds it for a moment
/// (its own events do) must not bring the count to 0 again.
constexpr std::int32_t kDying = 0x40000000;

/// The destructions that run on a thread, and the objects whose turn has not come yet.
struct SDestruction {
    int depth = 0;
    const CXmlObjectBase* first = nullptr;
};

thread_local SDestruction t_destruction;

[[noreturn]] void ThrowAlreadySelected(const char16_t* format, const std::u16string& selected)
{
    throw CZqInvalidStateException(FormatString(format, selected));
}

constexpr const char16_t* kAlreadySelected =
    u"The Property [%s] is already set. Only one element within this class bay be set at a time";

}  // namespace

CXmlObjectBase::CXmlObjectBase()
{
    CheckVersionOnce();
}

CXmlObjectBase::CXmlObjectBase(const CXmlObjectBase& other)
    : IEventSink(other), m_elementName(other.m_elementName)
{}

CXmlObjectBase& CXmlObjectBase::operator=(const CXmlObjectBase& other)
{
    m_elementName = other.m_elementName;
    return *this;
}

CXmlObjectBase::~CXmlObjectBase() = default;

void CXmlObjectBase::OnEvent(CXmlObjectBase*, MsgType, void*) {}

void CXmlObjectBase::AttributesToXml_Int(CXmlWriter*, const CXmlSerializationContext&) const {}

std::int32_t CXmlObjectBase::AddRef() const noexcept
{
    return m_holders.fetch_add(1, std::memory_order_relaxed) + 1;
}

std::int32_t CXmlObjectBase::Release() const noexcept
{
    const std::int32_t holders = m_holders.fetch_sub(1, std::memory_order_acq_rel) - 1;
    if (holders == 0)
        DestroyOrQueue();
    return holders;
}

void CXmlObjectBase::DestroyOrQueue() const noexcept
{
    m_holders.store(kDying, std::memory_order_relaxed);
    SDestruction& destruction = t_destruction;
    if (destruction.depth >= kMaxNestedDestructions) {
        m_nextToDestroy = destruction.first;
        destruction.first = this;
        return;
    }
    const auto destroy = [&](const CXmlObjectBase* object) {
        ++destruction.depth;
        delete object;
        --destruction.depth;
    };
    destroy(this);
    // Only the outermost destruction empties the queue, so that what waits gets the whole stack.
    while (destruction.depth == 0 && destruction.first != nullptr) {
        const CXmlObjectBase* const next = destruction.first;
        destruction.first = next->m_nextToDestroy;
        destroy(next);
    }
}

CXmlObjectBase::CHold::CHold(const CXmlObjectBase& object)
    : m_object(object.m_holders.load(std::memory_order_relaxed) > 0 ? &object : nullptr)
{
    if (m_object != nullptr)
        m_object->AddRef();
}

CXmlObjectBase::CHold::~CHold()
{
    if (m_object != nullptr)
        m_object->Release();
}

void CXmlObjectBase::SetElementName(const char16_t* name)
{
    m_elementName = TextOrEmpty(name);
}

void CXmlObjectBase::SetElementName(CXmlObjectBase* object, const char16_t* name)
{
    object->SetElementName(name);
}

CXmlElement* CXmlObjectBase::FromXml_Int(CXmlObjectBase* object, CXmlElement* parent,
                                         CXmlElement* cursor,
                                         const CXmlSerializationContext& context)
{
    return object->FromXml_Int(parent, cursor, context, false);
}

void CXmlObjectBase::ToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer, bool isRoot,
                               const char16_t* namespaceUri,
                               const CXmlSerializationContext& context, bool isOptionalChoice)
{
    object->ToXml_Int(writer, isRoot, namespaceUri, context, isOptionalChoice);
}

void CXmlObjectBase::AttributesToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer,
                                         const CXmlSerializationContext& context)
{
    object->AttributesToXml_Int(writer, context);
}

void CXmlObjectBase::Throw_IfElementNameDiffers(CXmlObjectBase* value, const char16_t* name) const
{
    if (value == nullptr)
        return;
    const std::u16string& valueName = value->GetBase()->GetElementName();
    if (valueName != TextOrEmpty(name))
        throw CZqInvalidParamException(FormatString(
            u"This property requrires an element with the name %s the element being set has the "
            u"element name %s",
            name, valueName));
}

void CXmlObjectBase::Throw_IfPropertyIsNull(CXmlObjectBase* value, const char16_t* name) const
{
    if (value == nullptr)
        throw CZqInvalidParamException(
            FormatString(u"The Property [%s] is mandatory, it may node be NULL", name));
}

bool CXmlObjectBase::DoesElementNameMatch(const CXmlSerializationContext& context,
                                          const CXmlElement* element, const char16_t* name,
                                          const char16_t* ns) const
{
    return element != nullptr && IsSameName(element->GetLocalName(), TextOrEmpty(name))
           && (context.GetIgnoreNamespaces()
               || IsSameName(element->GetNamespaceURI(), TextOrEmpty(ns)));
}

void CXmlObjectBase::Choice_SelectElement(const char16_t* name, CXmlObjectBase* value,
                                          std::u16string& selected) const
{
    if (selected == TextOrEmpty(name)) {
        if (value == nullptr)
            selected.clear();
    }
    else if (selected.empty()) {
        selected = TextOrEmpty(name);
    }
    else if (value != nullptr) {
        ThrowAlreadySelected(kAlreadySelected, selected);
    }
}

void CXmlObjectBase::Choice_SetElementValid(bool valid, const char16_t* name,
                                            std::u16string& selected) const
{
    if (!valid) {
        selected.clear();
        return;
    }
    if (!selected.empty() && selected != TextOrEmpty(name))
        ThrowAlreadySelected(u"The Property %s is already set. Only one element within this class "
                             u"bay be set at a time",
                             selected);
    selected = TextOrEmpty(name);
}

void CXmlObjectBase::Choice_CollectionChanged(const char16_t* name, std::int32_t count,
                                              std::u16string& selected) const
{
    if (selected == TextOrEmpty(name)) {
        if (count == 0)
            selected.clear();
    }
    else if (selected.empty()) {
        if (count > 0)
            selected = TextOrEmpty(name);
    }
    else if (count != 0) {
        ThrowAlreadySelected(kAlreadySelected, selected);
    }
}

}  // namespace ZqXmlLib9
