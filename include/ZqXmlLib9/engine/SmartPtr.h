/// \file SmartPtr.h
/// The reference-holding pointer of the whole library.
#pragma once

#include <concepts>
#include <cstddef>
#include <utility>

namespace ZqXmlLib9 {

/// A class whose pointers turn into pointers to `TBase`.
template <typename T, typename TBase>
concept PointsInto = std::convertible_to<T*, TBase*>;

/// Holds one reference to an object that counts its holders by `AddRef` and `Release`.
///
/// It takes a raw pointer and a pointer to a derived class, and never turns into a raw pointer by
/// itself. One thread at a time may change a pointer; the count of its object is atomic.
template <typename T>
class CSmartPtr {
public:
    CSmartPtr() noexcept = default;
    CSmartPtr(std::nullptr_t) noexcept {}
    CSmartPtr(T* object) : m_object(object) { Hold(); }
    CSmartPtr(const CSmartPtr& other) : m_object(other.m_object) { Hold(); }
    CSmartPtr(CSmartPtr&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    template <PointsInto<T> TDerived>
    CSmartPtr(const CSmartPtr<TDerived>& other) : CSmartPtr(static_cast<T*>(other.Get()))
    {}

    /// Takes hold of the new object before it lets the old one go.
    CSmartPtr& operator=(CSmartPtr other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }

    ~CSmartPtr()
    {
        if (m_object != nullptr)
            m_object->Release();
    }

    /// The object, which stays alive at least as long as this pointer holds it; may be null.
    T* Get() const noexcept { return m_object; }
    T* operator->() const noexcept { return m_object; }
    T& operator*() const noexcept { return *m_object; }
    explicit operator bool() const noexcept { return m_object != nullptr; }

    friend bool operator==(const CSmartPtr& left, const CSmartPtr& right) noexcept
    {
        return left.m_object == right.m_object;
    }
    friend bool operator==(const CSmartPtr& left, const T* right) noexcept
    {
        return left.m_object == right;
    }
    friend bool operator==(const CSmartPtr& left, std::nullptr_t) noexcept
    {
        return left.m_object == nullptr;
    }

private:
    void Hold()
    {
        if (m_object != nullptr)
            m_object->AddRef();
    }

    T* m_object = nullptr;
};

}  // namespace ZqXmlLib9
