/// \file DatetimeCollections.h
/// The value collections of dates and times.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/collections/ValueCollection.h>
#include <ZqXmlLib9/types/DateTime.h>

#include <string>

namespace ZqXmlLib9 {

/// The dates of one type.
///
/// Type and facets are tested before the first event of adding, the index after it.
class ZQXMLLIB9_API CdatetimeBaseCol : public CValueVector<CDateTime> {
public:
    /// Appends the value, as `AddAt`.
    virtual void Add(const CDateTime& value);
    /// \param index  of the value to stand behind the new one; the count appends
    /// \throws CZqInvalidParamException  "Dates added to this collection must be of type
    ///         dt_date" and its like, before any event; "Index out of range", after the first
    /// \throws CZqException              what `CheckValue` throws, before any event
    virtual void AddAt(int index, const CDateTime& value) = 0;
    /// \throws CZqInvalidParamException  "Index %d is out of range, use 0 - %d"
    virtual CDateTime Item(int index) const;

protected:
    virtual std::u16string ItemToString(const CDateTime& value) const = 0;

    using CValueVector::CValueVector;
    ~CdatetimeBaseCol() override;

    /// The steps of adding that follow the tests of the value.
    void BaseAddAt(int index, const CDateTime& value);
    /// \throws CZqInvalidParamException  "Dates added to this collection must be of type dt_%s"
    static void RequireType(const CDateTime& value, DTType type);

    /// Tells the writer of each value as an `ItemType_datetime`, whatever the type.
    /// \throws CZqValidationException  for a wrong count, before anything is written
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char16_t* namespaceUri,
                   const CXmlSerializationContext& context, bool isOptionalChoice) const override;
    using CXmlTypeCollection::ToXml_Int;
};

/// The dates of one item type. For one thread at a time.
template <ItemType type, DTType dateType>
class ZQXMLLIB9_API CDateCollectionOf : public CdatetimeBaseCol, public CInstanceMonitor {
public:
    /// \param maxOccurs   -1: unbounded
    /// \param pattern     the first of eight facets, as in `CPrimitiveRestrictions`
    /// \param format      without effect; the pointer is kept, not the text
    CDateCollectionOf(const char16_t* elementName, const char16_t* targetNamespace, int minOccurs,
                      int maxOccurs, const char16_t* pattern, int minLength, int maxLength,
                      const char16_t* minInclusive, const char16_t* maxInclusive,
                      const char16_t* minExclusive, const char16_t* maxExclusive, int length,
                      CWhitespaceUtils::WhitespaceRule rule, const char16_t* format)
        : CdatetimeBaseCol(type, elementName, targetNamespace, minOccurs, maxOccurs, pattern,
                           minLength, maxLength, minInclusive, maxInclusive, minExclusive,
                           maxExclusive, length, rule, format),
          CInstanceMonitor(u"CDateCollectionOf")
    {}

    void AddAt(int index, const CDateTime& value) override
    {
        RequireType(value, dateType);
        CheckValue<type>(GetElementName().c_str(), value, GetRestrictions());
        BaseAddAt(index, value);
    }

protected:
    void AddFromString(std::u16string text) override
    {
        Add(SValueKind<type>::Read(text, GetWhitespaceRule()));
    }
    std::u16string ItemToString(const CDateTime& value) const override
    {
        return SValueKind<type>::Print(value, GetFormat());
    }
};

extern template class ZQXMLLIB9_API CDateCollectionOf<ItemType_datetime, DTType_dateTime>;
extern template class ZQXMLLIB9_API CDateCollectionOf<ItemType_date, DTType_date>;
extern template class ZQXMLLIB9_API CDateCollectionOf<ItemType_yearMonth, DTType_gYearMonth>;
extern template class ZQXMLLIB9_API CDateCollectionOf<ItemType_time, DTType_time>;
extern template class ZQXMLLIB9_API CDateCollectionOf<ItemType_monthDay, DTType_gMonthDay>;

class ZQXMLLIB9_API CdatetimeCol : public CDateCollectionOf<ItemType_datetime, DTType_dateTime> {
public:
    using CDateCollectionOf::CDateCollectionOf;
};

class ZQXMLLIB9_API CdateCol : public CDateCollectionOf<ItemType_date, DTType_date> {
public:
    using CDateCollectionOf::CDateCollectionOf;
};

class ZQXMLLIB9_API CyearMonthCol
    : public CDateCollectionOf<ItemType_yearMonth, DTType_gYearMonth> {
public:
    using CDateCollectionOf::CDateCollectionOf;
};

class ZQXMLLIB9_API CtimeCol : public CDateCollectionOf<ItemType_time, DTType_time> {
public:
    using CDateCollectionOf::CDateCollectionOf;
};

class ZQXMLLIB9_API CmonthDayCol : public CDateCollectionOf<ItemType_monthDay, DTType_gMonthDay> {
public:
    using CDateCollectionOf::CDateCollectionOf;
};

}  // namespace ZqXmlLib9
