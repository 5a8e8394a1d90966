/// \file ValueCollection.h
/// What the value collections have in common.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/collections/XmlTypeCollection.h>
#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/InstanceMonitor.h>
#include <ZqXmlLib9/types/CheckValue.h>
#include <ZqXmlLib9/types/ValueKind.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace ZqXmlLib9 {

/// The values in a vector, and every change of it with its events.
///
/// The events of adding have a pointer to the value as data, those of removing the index. They are
/// fired before the index is tested, so that a failure leaves the first of them without the
/// others. Nothing is fired when the object is destroyed.
template <typename TValue>
class ZQXMLLIB9_API CValueVector : public CXmlTypeCollection {
public:
    using iterator = typename std::vector<TValue>::iterator;
    using const_iterator = typename std::vector<TValue>::const_iterator;

    int GetCount() const override { return static_cast<int>(m_values.size() - m_removed); }

    /// \throws CZqInvalidParamException  "Index %d is out of range, use 0 - %d", after the first
    ///         event
    void Remove(int index) override
    {
        const typename CXmlTypeCollection::CHold hold(*this);
        this->FireOnCollectionRemove(index);
        const std::size_t place = PlaceOf(index);
        if (place == m_removed)
            RemoveFirst();
        else
            m_values.erase(m_values.begin() + static_cast<std::ptrdiff_t>(place));
        this->FireOnCollectionRemoveComplete(index);
        this->FireOnCollectionChange();
    }

    /// Removes the values one by one, from the first, each with its events.
    void Clear() override
    {
        const typename CXmlTypeCollection::CHold hold(*this);
        while (GetCount() != 0)
            Remove(0);
    }

    iterator begin() { return m_values.begin() + static_cast<std::ptrdiff_t>(m_removed); }
    iterator end() { return m_values.end(); }
    const_iterator begin() const
    {
        return m_values.begin() + static_cast<std::ptrdiff_t>(m_removed);
    }
    const_iterator end() const { return m_values.end(); }

protected:
    using CXmlTypeCollection::CXmlTypeCollection;

    /// \param test  of the value, after the first event and the test of the index
    /// \throws CZqInvalidParamException  "Index out of range", after the first event
    template <typename TTest>
    void Insert(int index, TValue value, TTest&& test)
    {
        const typename CXmlTypeCollection::CHold hold(*this);
        this->FireOnCollectionAdd(&value);
        if (index < 0 || index > GetCount())
            throw CZqInvalidParamException(u"Index out of range");
        test(std::as_const(value));
        if (this->HasListeners())
            m_values.insert(begin() + index, value);
        else
            m_values.insert(begin() + index, std::move(value));
        this->FireOnCollectionAddComplete(&value);
        this->FireOnCollectionChange();
    }

    TValue GetAt(int index) const { return m_values[PlaceOf(index)]; }

private:
    std::size_t PlaceOf(int index) const
    {
        if (index < 0 || index >= GetCount())
            throw CZqInvalidParamException(
                FormatString(u"Index %d is out of range, use 0 - %d", index, GetCount() - 1));
        return m_removed + static_cast<std::size_t>(index);
    }

    /// The values that are gone from the front are erased together, so that clearing is linear.
    void RemoveFirst()
    {
        m_values[m_removed] = TValue();
        ++m_removed;
        if (m_removed * 2 < m_values.size())
            return;
        m_values.erase(m_values.begin(), begin());
        m_removed = 0;
    }

    std::vector<TValue> m_values;
    std::size_t m_removed = 0;  ///< how many values at the front are gone
};

/// The values of one item type.
///
/// A value is tested against the facets when it is added. For one thread at a time.
template <ItemType type>
class ZQXMLLIB9_API CValueCollection : public CValueVector<ValueOf<type>>, public CInstanceMonitor {
public:
    using Value = ValueOf<type>;

    /// \param maxOccurs   -1: unbounded
    /// \param pattern     the first of eight facets, as in `CPrimitiveRestrictions`
    /// \param format      of numbers, see `ZqVariant::ToString`; the pointer is kept, not the text
    CValueCollection(const char16_t* elementName, const char16_t* targetNamespace, int minOccurs,
                     int maxOccurs, const char16_t* pattern, int minLength, int maxLength,
                     const char16_t* minInclusive, const char16_t* maxInclusive,
                     const char16_t* minExclusive, const char16_t* maxExclusive, int length,
                     CWhitespaceUtils::WhitespaceRule rule, const char16_t* format)
        : CValueVector<Value>(type, elementName, targetNamespace, minOccurs, maxOccurs, pattern,
                              minLength, maxLength, minInclusive, maxInclusive, minExclusive,
                              maxExclusive, length, rule, format),
          CInstanceMonitor(u"CValueCollection")
    {}

    /// \throws CZqException  what `CheckValue` throws, after the first event
    void Add(Value value) { AddAt(this->GetCount(), std::move(value)); }
    /// \param index  of the value to stand behind the new one; the count appends
    /// \throws CZqInvalidParamException  "Index out of range", after the first event
    /// \throws CZqException              as `Add`
    void AddAt(int index, Value value)
    {
        this->Insert(index, std::move(value), [this](const Value& added) {
            CheckValue<type>(this->GetElementName().c_str(), added, this->GetRestrictions());
        });
    }
    /// \throws CZqInvalidParamException  "Index %d is out of range, use 0 - %d"
    Value Item(int index) const { return this->GetAt(index); }

protected:
    void AddFromString(std::u16string text) override
    {
        Add(SValueKind<type>::Read(text, this->GetWhitespaceRule()));
    }

    /// \throws CZqValidationException  for a wrong count, before anything is written
    void ToXml_Int(CXmlWriter* writer, bool, const char16_t*,
                   const CXmlSerializationContext& context, bool) const override
    {
        this->ValidateCount(context);
        for (const Value& value : *this)
            this->WriteItem(writer, SValueKind<type>::Print(value, this->GetFormat()), type);
    }
    using CXmlTypeCollection::ToXml_Int;
};

}  // namespace ZqXmlLib9
