/// \file ZqVariant.h
/// The tagged value that crosses between generated properties and the engine.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/collections/XmlCollectionBase.h>
#include <ZqXmlLib9/engine/SmartPtr.h>
#include <ZqXmlLib9/engine/XmlObjectBase.h>
#include <ZqXmlLib9/types/BigInteger.h>
#include <ZqXmlLib9/types/BinaryData.h>
#include <ZqXmlLib9/types/DateTime.h>
#include <ZqXmlLib9/types/DateTimeSpan.h>
#include <ZqXmlLib9/types/Decimal.h>
#include <ZqXmlLib9/types/ItemType.h>
#include <ZqXmlLib9/types/WhitespaceUtils.h>

#include <cstdint>
#include <string>
#include <utility>
#include <variant>

namespace ZqXmlLib9Data {
class CElementInfo;
}

namespace ZqXmlLib9 {

/// One value of one of the item types, or none.
///
/// It owns what it holds: values are copies, an object or collection is held by one reference. A
/// null object is a value too. For one thread at a time.
class ZQXMLLIB9_API ZqVariant {
public:
    /// No value: `ItemType_invalid`.
    ZqVariant();
    ZqVariant(const ZqVariant& other);
    ZqVariant(ZqVariant&& other);
    ZqVariant& operator=(const ZqVariant& other);
    ZqVariant& operator=(ZqVariant&& other);
    virtual ~ZqVariant();

    bool IsValid() const noexcept { return m_type != ItemType_invalid; }
    ItemType GetTypeAsEnum() const noexcept { return m_type; }
    /// The word of the type, `string` for `ItemType_string`.
    /// \throws CZqException  "Invalid Type %d" without a value, and for objects and collections
    std::u16string GetType() const;

    /// Leaves no value.
    void Clear();
    void SetInvalid() { Clear(); }

    /// \name Values
    ///
    /// A setter stores a copy; those of the dates store one of any type, and the tag says which
    /// setter ran. A getter asks for the kind of payload that was set. Without a value it gives 0,
    /// an empty value or null. A reference is good until the next change.
    /// \throws CZqInvalidStateException  "The value has the type %d, which is not the one asked
    ///         for", from a getter
    /// @{
    void SetHexBinary(const CBinaryData& value) { Set<CBinaryData>(ItemType_hexBinary, value); }
    const CBinaryData& GetHexBinary() const { return Get<CBinaryData>(); }
    void SetBase64Binary(const CBinaryData& value)
    {
        Set<CBinaryData>(ItemType_base64Binary, value);
    }
    const CBinaryData& GetBase64Binary() const { return Get<CBinaryData>(); }
    void SetI1(std::int8_t value) { Set<std::int8_t>(ItemType_i1, value); }
    std::int8_t GetI1() const { return Get<std::int8_t>(); }
    void SetI2(std::int16_t value) { Set<std::int16_t>(ItemType_i2, value); }
    std::int16_t GetI2() const { return Get<std::int16_t>(); }
    void SetI4(std::int32_t value) { Set<std::int32_t>(ItemType_i4, value); }
    std::int32_t GetI4() const { return Get<std::int32_t>(); }
    void SetI8(std::int64_t value) { Set<std::int64_t>(ItemType_i8, value); }
    std::int64_t GetI8() const { return Get<std::int64_t>(); }
    void SetUI1(std::uint8_t value) { Set<std::uint8_t>(ItemType_ui1, value); }
    std::uint8_t GetUI1() const { return Get<std::uint8_t>(); }
    void SetUI2(std::uint16_t value) { Set<std::uint16_t>(ItemType_ui2, value); }
    std::uint16_t GetUI2() const { return Get<std::uint16_t>(); }
    void SetUI4(std::uint32_t value) { Set<std::uint32_t>(ItemType_ui4, value); }
    std::uint32_t GetUI4() const { return Get<std::uint32_t>(); }
    void SetUI8(std::uint64_t value) { Set<std::uint64_t>(ItemType_ui8, value); }
    std::uint64_t GetUI8() const { return Get<std::uint64_t>(); }
    void SetR4(float value) { Set<float>(ItemType_r4, value); }
    float GetR4() const { return Get<float>(); }
    void SetR8(double value) { Set<double>(ItemType_r8, value); }
    double GetR8() const { return Get<double>(); }
    void SetDuration(const CDateTimeSpan& value) { Set<CDateTimeSpan>(ItemType_duration, value); }
    const CDateTimeSpan& GetDuration() const { return Get<CDateTimeSpan>(); }
    void SetYearMonth(const CDateTime& value) { Set<CDateTime>(ItemType_yearMonth, value); }
    const CDateTime& GetYearMonth() const { return Get<CDateTime>(); }
    void SetMonthDay(const CDateTime& value) { Set<CDateTime>(ItemType_monthDay, value); }
    const CDateTime& GetMonthDay() const { return Get<CDateTime>(); }
    void SetYear(std::uint16_t value) { Set<std::uint16_t>(ItemType_year, value); }
    std::uint16_t GetYear() const { return Get<std::uint16_t>(); }
    void SetMonth(std::uint8_t value) { Set<std::uint8_t>(ItemType_month, value); }
    std::uint8_t GetMonth() const { return Get<std::uint8_t>(); }
    void SetDay(std::uint8_t value) { Set<std::uint8_t>(ItemType_day, value); }
    std::uint8_t GetDay() const { return Get<std::uint8_t>(); }
    void SetDate(const CDateTime& value) { Set<CDateTime>(ItemType_date, value); }
    const CDateTime& GetDate() const { return Get<CDateTime>(); }
    void SetDateTime(const CDateTime& value) { Set<CDateTime>(ItemType_datetime, value); }
    const CDateTime& GetDateTime() const { return Get<CDateTime>(); }
    void SetTime(const CDateTime& value) { Set<CDateTime>(ItemType_time, value); }
    const CDateTime& GetTime() const { return Get<CDateTime>(); }
    void SetChar(char16_t value) { Set<char16_t>(ItemType_char, value); }
    char16_t GetChar() const { return Get<char16_t>(); }
    void SetString(std::u16string value) { Set<std::u16string>(ItemType_string, std::move(value)); }
    const std::u16string& GetString() const
    {
        const auto* const lent = std::get_if<SLentText>(&m_payload);
        return lent != nullptr ? *lent->text : Get<std::u16string>();
    }
    void SetBoolean(bool value) { Set<bool>(ItemType_boolean, value); }
    bool GetBoolean() const { return Get<bool>(); }
    void SetDecimal(const CDecimal& value) { Set<CDecimal>(ItemType_decimal, value); }
    const CDecimal& GetDecimal() const { return Get<CDecimal>(); }
    void SetInteger(const CBigInteger& value) { Set<CBigInteger>(ItemType_integer, value); }
    const CBigInteger& GetInteger() const { return Get<CBigInteger>(); }
    /// \param object  may be null
    void SetXmlObject(CXmlObjectBase* object)
    {
        Set<CSmartPtr<CXmlObjectBase>>(ItemType_xmlObject, object);
    }
    CSmartPtr<CXmlObjectBase> GetXmlObject() const { return Get<CSmartPtr<CXmlObjectBase>>(); }
    /// \param collection  may be null
    void SetXmlCollection(CXmlCollectionBase* collection)
    {
        Set<CSmartPtr<CXmlCollectionBase>>(ItemType_xmlCollection, collection);
    }
    CSmartPtr<CXmlCollectionBase> GetXmlCollection() const
    {
        return Get<CSmartPtr<CXmlCollectionBase>>();
    }
    /// @}

    /// The value as XML text.
    /// \param format  of `CConversions::r4ToString`, `r8ToString` and `decimalToString`; null for
    ///                the usual form; of no effect on other types
    /// \throws CZqException  "Invalid Type %d to convert to string" without a value, and for
    ///         objects and collections; and what the conversion of the type throws
    std::u16string ToString(const char16_t* format) const;

    /// Takes a value from its XML text. A failure leaves the value as it was.
    /// \throws CZqException  "Invalid Type %d to convert to string" for a type without text; and
    ///         what the conversion of the type throws
    void FromString(const std::u16string& text, ItemType type,
                    CWhitespaceUtils::WhitespaceRule rule);

private:
    friend class ZqXmlLib9Data::CElementInfo;

    /// A text that belongs to someone else and lives longer than the value. Copies have their own.
    struct SLentText {
        const std::u16string* text;
    };
    void LendString(const std::u16string& text)
    {
        m_payload.emplace<SLentText>(SLentText{&text});
        m_type = ItemType_string;
    }
    void OwnString();

    using Payload =
        std::variant<std::monostate, std::int8_t, std::int16_t, std::int32_t, std::int64_t,
                     std::uint8_t, std::uint16_t, std::uint32_t, std::uint64_t, float, double, bool,
                     char16_t, std::u16string, CBinaryData, CDateTimeSpan, CDateTime, CDecimal,
                     CBigInteger, CSmartPtr<CXmlObjectBase>, CSmartPtr<CXmlCollectionBase>,
                     SLentText>;

    struct SKind;
    static const SKind* FindKind(ItemType type);

    template <typename TValue>
    void Set(ItemType type, TValue value)
    {
        m_payload.emplace<TValue>(std::move(value));
        m_type = type;
    }

    template <typename TValue>
    const TValue& Get() const
    {
        // Never destroyed, since destructors of static objects may still read values.
        static const TValue& nothing = *new TValue{};
        if (!IsValid())
            return nothing;
        const TValue* const value = std::get_if<TValue>(&m_payload);
        if (value == nullptr)
            ThrowOtherKind();
        return *value;
    }

    [[noreturn]] void ThrowOtherKind() const;

    ItemType m_type = ItemType_invalid;
    Payload m_payload;
};

}  // namespace ZqXmlLib9
