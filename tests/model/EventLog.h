// A listener that logs what collections tell it.
#pragma once

#include "model/Custom.h"
#include "support/Print.h"

#include <functional>

namespace TestModel {

/// Logs each event as its kind, the index or the item that it brings, and the count at that time.
class CEventLog final : public ZqXmlLib9::IEventSink {
public:
    void OnEvent(CXmlObjectBase* source, MsgType type, void* data) override
    {
        static constexpr const char* kKinds[] = {"change ", "add ", "added ", "remove ",
                                                 "removed "};
        m_text += kKinds[type];
        // An item comes as the operation was given it, and that takes pointers to the base.
        if (data != nullptr && type > MsgType_CollectionAddComplete)
            m_text += "[" + std::to_string(*static_cast<std::int32_t*>(data)) + "]";
        else if (data != nullptr && dynamic_cast<CItemCol*>(source) != nullptr)
            m_text += U8(dynamic_cast<CItem&>(*static_cast<CXmlObjectBase*>(data))[0].GetString());
        // In its destructor the source is no more than a collection.
        const auto& collection = dynamic_cast<ZqXmlLib9::CXmlCollectionBase&>(*source);
        m_text += std::to_string(collection.GetCount()) + ";";
        if (m_onEvent)
            m_onEvent();
    }

    std::string Take() { return std::exchange(m_text, {}); }

    std::string m_text;
    std::function<void()> m_onEvent;
};

}  // namespace TestModel
