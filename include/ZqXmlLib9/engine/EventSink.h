/// \file EventSink.h
/// The interface through which collections tell of their changes.
#pragma once

#include <ZqXmlLib9/Export.h>

#include <cstdint>

namespace ZqXmlLib9 {

class CXmlObjectBase;

/// Hears of the changes of collections, synchronously, on the thread that makes them.
class ZQXMLLIB9_API IEventSink {
public:
    /// What happened, and what `data` of `OnEvent` points to.
    enum MsgType : std::int32_t {
        MsgType_CollectionChange = 0,       ///< null
        MsgType_CollectionAdd = 1,          ///< the item, as given to the adding operation
        MsgType_CollectionAddComplete = 2,  ///< the same
        MsgType_CollectionRemove = 3,       ///< `const std::int32_t*`: the index; null if unknown
        MsgType_CollectionRemoveComplete = 4,  ///< the same
    };

    /// \param source  the collection; it stays its holders'
    /// \param data    good for the time of the call
    virtual void OnEvent(CXmlObjectBase* source, MsgType type, void* data) = 0;

protected:
    ~IEventSink() = default;
};

}  // namespace ZqXmlLib9
