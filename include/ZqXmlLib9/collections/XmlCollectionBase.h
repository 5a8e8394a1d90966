/// \file XmlCollectionBase.h
/// What all collections have in common: the name of their items, bounds, and listeners.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/XmlObjectBase.h>

#include <cstdint>
#include <string>
#include <vector>

namespace ZqXmlLib9 {

/// The base of every collection, itself an object of the model.
///
/// Its element name is that of its items. The bounds are tested by `ValidateCount` and
/// `IsValidCount` alone: between serialisations a collection may hold any number of items.
///
/// Listeners hear of every change on the thread that makes it. They are not held: whoever
/// registers deregisters, or outlives the collection. One that is added during an event hears the
/// next event; one that is removed during an event is not called again.
///
/// Collections are not copied: listeners belong to one of them.
class ZQXMLLIB9_API CXmlCollectionBase : public CXmlObjectBase {
public:
    CXmlCollectionBase(const CXmlCollectionBase&) = delete;
    CXmlCollectionBase& operator=(const CXmlCollectionBase&) = delete;

    using CXmlObjectBase::GetBase;
    CXmlObjectBase* GetBase() override;

protected:
    ~CXmlCollectionBase() override;

    /// Not to be called: a collection has no place in the path of single objects.
    /// \throws CZqException  "CXmlCollectionBase::GetTargetNamespace Should not be used from within
    ///         a Collection (program logic error)"
    std::u16string GetTargetNamespace() const override;

public:
    /// The namespace of the items' elements.
    std::u16string GetNamespace() const override;

    virtual int GetCount() const = 0;
    virtual void Clear() = 0;
    /// \param index  from 0
    virtual void Remove(int index) = 0;

    /// Passes always where the context ignores counts.
    /// \throws CZqValidationException  "The Maximum number of [%s] elements allowed in this
    ///         collection is %d", or the same with "Minimum"
    virtual void ValidateCount(const CXmlSerializationContext& context) const;
    /// The same test as an answer.
    virtual bool IsValidCount(const CXmlSerializationContext& context) const;

    std::int32_t GetMinOccurs() const noexcept { return m_minOccurs; }
    /// -1: unbounded.
    std::int32_t GetMaxOccurs() const noexcept { return m_maxOccurs; }

    /// A listener that is added twice hears everything twice.
    void AddEventListener(IEventSink* listener);
    /// Removes every registration of the listener.
    void RemoveEventListener(IEventSink* listener);

protected:
    /// No names, and the bounds 0 and -1.
    CXmlCollectionBase();
    CXmlCollectionBase(const char16_t* elementName, const char16_t* targetNamespace, int minOccurs,
                       int maxOccurs);

    /// Whether an event would reach anyone.
    bool HasListeners() const noexcept { return !m_listeners.empty(); }
    void FireOnCollectionChange();
    void FireOnCollectionAdd(void* item);
    void FireOnCollectionAddComplete(void* item);
    /// \param index  -1: unknown
    void FireOnCollectionRemove(int index);
    void FireOnCollectionRemoveComplete(int index);

private:
    struct SEvent;

    template <typename TFire>
    void FireAll(TFire&& fire);

    std::u16string m_targetNamespace;
    std::vector<IEventSink*> m_listeners;  ///< not owned, in order of registration
    SEvent* m_event = nullptr;             ///< the innermost one that is on its way
    std::int32_t m_minOccurs = 0;
    std::int32_t m_maxOccurs = -1;
};

}  // namespace ZqXmlLib9
