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
#include <variant>

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
    ZqVariant(ZqVariant&& other) noexcept;
    ZqVariant& operator=(const ZqVariant& other);
    ZqVariant& operator=(ZqVariant&& other) noexcept;
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
    void SetHexBinary(const CBinaryData& value);
    const CBinaryData& GetHexBinary() const;
    void SetBase64Binary(const CBinaryData& value);
    const CBinaryData& GetBase64Binary() const;
    void SetI1(std::int8_t value);
    std::int8_t GetI1() const;
    void SetI2(std::int16_t value);
    std::int16_t GetI2() const;
    void SetI4(std::int32_t value);
    std::int32_t GetI4() const;
    void SetI8(std::int64_t value);
    std::int64_t GetI8() const;
    void SetUI1(std::uint8_t value);
    std::uint8_t GetUI1() const;
    void SetUI2(std::uint16_t value);
    std::uint16_t GetUI2() const;
    void SetUI4(std::uint32_t value);
    std::uint32_t GetUI4() const;
    void SetUI8(std::uint64_t value);
    std::uint64_t GetUI8() const;
    void SetR4(float value);
    float GetR4() const;
    void SetR8(double value);
    double GetR8() const;
    void SetDuration(const CDateTimeSpan& value);
    const CDateTimeSpan& GetDuration() const;
    void SetYearMonth(const CDateTime& value);
    const CDateTime& GetYearMonth() const;
    void SetMonthDay(const CDateTime& value);
    const CDateTime& GetMonthDay() const;
    void SetYear(std::uint16_t value);
    std::uint16_t GetYear() const;
    void SetMonth(std::uint8_t value);
    std::uint8_t GetMonth() const;
    void SetDay(std::uint8_t value);
    std::uint8_t GetDay() const;
    void SetDate(const CDateTime& value);
    const CDateTime& GetDate() const;
    void SetDateTime(const CDateTime& value);
    const CDateTime& GetDateTime() const;
    void SetTime(const CDateTime& value);
    const CDateTime& GetTime() const;
    void SetChar(char16_t value);
    char16_t GetChar() const;
    void SetString(std::u16string value);
    const std::u16string& GetString() const;
    void SetBoolean(bool value);
    bool GetBoolean() const;
    void SetDecimal(const CDecimal& value);
    const CDecimal& GetDecimal() const;
    void SetInteger(const CBigInteger& value);
    const CBigInteger& GetInteger() const;
    /// \param object  may be null
    void SetXmlObject(CXmlObjectBase* object);
    CSmartPtr<CXmlObjectBase> GetXmlObject() const;
    /// \param collection  may be null
    void SetXmlCollection(CXmlCollectionBase* collection);
    CSmartPtr<CXmlCollectionBase> GetXmlCollection() const;
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
    using Payload =
        std::variant<std::monostate, std::int8_t, std::int16_t, std::int32_t, std::int64_t,
                     std::uint8_t, std::uint16_t, std::uint32_t, std::uint64_t, float, double, bool,
                     char16_t, std::u16string, CBinaryData, CDateTimeSpan, CDateTime, CDecimal,
                     CBigInteger, CSmartPtr<CXmlObjectBase>, CSmartPtr<CXmlCollectionBase>>;

    struct SKind;
    static const SKind* FindKind(ItemType type);

    template <typename TValue>
    void Set(ItemType type, TValue value);
    template <typename TValue>
    const TValue& Get() const;

    ItemType m_type = ItemType_invalid;
    Payload m_payload;
};

}  // namespace ZqXmlLib9
