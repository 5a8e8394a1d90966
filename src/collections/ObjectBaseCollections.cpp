// The operations of CXmlObjectBase that need to know what a collection is.

#include <ZqXmlLib9/collections/XmlCollectionBase.h>
#include <ZqXmlLib9/engine/XmlObjectBase.h>

namespace ZqXmlLib9 {
namespace {

/// The data of a remove event: where the index is, or null if it is unknown.
void* IndexData(std::int32_t& index)
{
    return index == -1 ? nullptr : &index;
}

}  // namespace

void CXmlObjectBase::FireOnCollectionChangeEvent(IEventSink* sink, CXmlCollectionBase* collection)
{
    sink->OnEvent(collection->GetBase(), MsgType_CollectionChange, nullptr);
}

void CXmlObjectBase::FireOnCollectionAddEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                              void* item)
{
    sink->OnEvent(collection->GetBase(), MsgType_CollectionAdd, item);
}

void CXmlObjectBase::FireOnCollectionAddCompleteEvent(IEventSink* sink,
                                                      CXmlCollectionBase* collection, void* item)
{
    sink->OnEvent(collection->GetBase(), MsgType_CollectionAddComplete, item);
}

void CXmlObjectBase::FireOnCollectionRemoveEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                                 int index)
{
    std::int32_t data = index;
    sink->OnEvent(collection->GetBase(), MsgType_CollectionRemove, IndexData(data));
}

void CXmlObjectBase::FireOnCollectionRemoveCompleteEvent(IEventSink* sink,
                                                         CXmlCollectionBase* collection, int index)
{
    std::int32_t data = index;
    sink->OnEvent(collection->GetBase(), MsgType_CollectionRemoveComplete, IndexData(data));
}

void CXmlObjectBase::Choice_Read_Collection(CXmlCollectionBase* collection, CXmlElement* parent,
                                            CXmlElement*& cursor, std::int32_t& count,
                                            const CXmlSerializationContext& context) const
{
    if (count >= 1)
        return;
    CXmlElement* const next = FromXml_Int(collection, parent, cursor, context);
    if (next == cursor)
        return;
    cursor = next;
    collection->ValidateCount(context);
    ++count;
}

}  // namespace ZqXmlLib9
