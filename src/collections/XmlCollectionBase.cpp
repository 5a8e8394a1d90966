#include <ZqXmlLib9/collections/XmlCollectionBase.h>
#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>

namespace ZqXmlLib9 {

/// Nothing is allocated: the collection has changed by then, and its destructor fires too.
struct CXmlCollectionBase::SEvent {
    explicit SEvent(CXmlCollectionBase& collection)
        : source(collection), end(collection.m_listeners.size()), outer(collection.m_event)
    {
        source.m_event = this;
    }
    SEvent(const SEvent&) = delete;
    SEvent& operator=(const SEvent&) = delete;
    ~SEvent() { source.m_event = outer; }

    CXmlCollectionBase& source;
    std::size_t next = 0;  ///< the listener to be called
    std::size_t end;       ///< behind the last listener that was there when it began
    SEvent* outer;         ///< in whose time this one came
};

CXmlCollectionBase::CXmlCollectionBase() = default;

CXmlCollectionBase::CXmlCollectionBase(const char16_t* elementName, const char16_t* targetNamespace,
                                       int minOccurs, int maxOccurs)
    : m_targetNamespace(TextOrEmpty(targetNamespace)), m_minOccurs(minOccurs),
      m_maxOccurs(maxOccurs)
{
    SetElementName(elementName);
}

CXmlCollectionBase::~CXmlCollectionBase() = default;

CXmlObjectBase* CXmlCollectionBase::GetBase()
{
    return this;
}

std::u16string CXmlCollectionBase::GetTargetNamespace() const
{
    throw CZqException(u"CXmlCollectionBase::GetTargetNamespace Should not be used from within a "
                       u"Collection (program logic error)");
}

std::u16string CXmlCollectionBase::GetNamespace() const
{
    return m_targetNamespace;
}

void CXmlCollectionBase::ValidateCount(const CXmlSerializationContext& context) const
{
    if (context.GetIgnoreInvalidCollectionCounts())
        return;
    if (m_maxOccurs != -1 && GetCount() > m_maxOccurs)
        throw CZqValidationException(
            FormatString(u"The Maximum number of [%s] elements allowed in this collection is %d",
                         GetElementName(), m_maxOccurs));
    if (GetCount() < m_minOccurs)
        throw CZqValidationException(
            FormatString(u"The Minimum number of [%s] elements allowed in this collection is %d",
                         GetElementName(), m_minOccurs));
}

bool CXmlCollectionBase::IsValidCount(const CXmlSerializationContext& context) const
{
    if (context.GetIgnoreInvalidCollectionCounts())
        return true;
    return (m_maxOccurs == -1 || GetCount() <= m_maxOccurs) && GetCount() >= m_minOccurs;
}

void CXmlCollectionBase::AddEventListener(IEventSink* listener)
{
    m_listeners.push_back(listener);
}

void CXmlCollectionBase::RemoveEventListener(IEventSink* listener)
{
    for (std::size_t i = m_listeners.size(); i-- > 0;) {
        if (m_listeners[i] != listener)
            continue;
        m_listeners.erase(m_listeners.begin() + static_cast<std::ptrdiff_t>(i));
        for (SEvent* event = m_event; event != nullptr; event = event->outer) {
            event->next -= i < event->next ? 1 : 0;
            event->end -= i < event->end ? 1 : 0;
        }
    }
}

template <typename TFire>
void CXmlCollectionBase::FireAll(TFire&& fire)
{
    if (m_listeners.empty())
        return;
    const CHold hold(*this);
    // Listeners may come and go in the middle of the event.
    for (SEvent event(*this); event.next != event.end;)
        fire(m_listeners[event.next++]);
}

void CXmlCollectionBase::FireOnCollectionChange()
{
    FireAll([&](IEventSink* listener) { FireOnCollectionChangeEvent(listener, this); });
}

void CXmlCollectionBase::FireOnCollectionAdd(void* item)
{
    FireAll([&](IEventSink* listener) { FireOnCollectionAddEvent(listener, this, item); });
}

void CXmlCollectionBase::FireOnCollectionAddComplete(void* item)
{
    FireAll([&](IEventSink* listener) { FireOnCollectionAddCompleteEvent(listener, this, item); });
}

void CXmlCollectionBase::FireOnCollectionRemove(int index)
{
    FireAll([&](IEventSink* listener) { FireOnCollectionRemoveEvent(listener, this, index); });
}

void CXmlCollectionBase::FireOnCollectionRemoveComplete(int index)
{
    FireAll(
        [&](IEventSink* listener) { FireOnCollectionRemoveCompleteEvent(listener, this, index); });
}

}  // namespace ZqXmlLib9
