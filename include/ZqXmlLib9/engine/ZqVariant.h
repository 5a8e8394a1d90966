/// \file ZqVariant.h
/// The tagged value that crosses between generated properties and the engine.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/collections/XmlCollectionBase.h>
#include <ZqXmlLib9/engine/SmartPtr.h>
#include <ZqXmlLib9/engine/XmlObjectBase.h>
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
    /// A getter asks for the kind of payload that was set. Without a value it gives 0, an empty
    /// text or null.
    /// \throws CZqInvalidStateException  "The value has the type %d, which is not the one asked
    ///         for", from a getter
    /// @{
    void SetI4(std::int32_t value);
    std::int32_t GetI4() const;
    void SetString(std::u16string value);
    const std::u16string& GetString() const;
    /// \param object  may be null
    void SetXmlObject(CXmlObjectBase* object);
    CSmartPtr<CXmlObjectBase> GetXmlObject() const;
    /// \param collection  may be null
    void SetXmlCollection(CXmlCollectionBase* collection);
    CSmartPtr<CXmlCollectionBase> GetXmlCollection() const;
    /// @}

    /// The value as XML text.
    /// \param format  of numbers; null for the usual form
    /// \throws CZqException  "Invalid Type %d to convert to string" for what has no text
    std::u16string ToString(const char16_t* format) const;

    /// Takes a value from its XML text. A failure leaves the value as it was.
    /// \throws CZqException  "Invalid Type %d to convert to string" for a type without text; and
    ///         what the conversion of the type throws
    void FromString(const std::u16string& text, ItemType type,
                    CWhitespaceUtils::WhitespaceRule rule);

private:
    using Payload = std::variant<std::monostate, std::int32_t, std::u16string,
                                 CSmartPtr<CXmlObjectBase>, CSmartPtr<CXmlCollectionBase>>;

    template <typename TValue>
    void Set(ItemType type, TValue&& value);
    template <typename TValue>
    const TValue& Get() const;

    ItemType m_type = ItemType_invalid;
    Payload m_payload;
};

}  // namespace ZqXmlLib9
