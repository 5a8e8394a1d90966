/// \file BinaryData.h
/// The octet buffer: the value of hexBinary and base64Binary, and the result of all stream output.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/types/OctetSpan.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace ZqXmlLib9 {

/// Octets, held in a shared buffer that is duplicated only when one of its holders changes it.
///
/// An object has no buffer, or a buffer that may have length 0: two states, which differ in
/// `GetData()` and under `==`. A length has 32 bits; more is refused.
///
/// Copies of one value may live on different threads, and each may be changed there. One object is
/// for one thread at a time.
class ZQXMLLIB9_API CBinaryData {
public:
    /// No buffer.
    CBinaryData() noexcept;

    /// The text's code units as raw octets, two per unit, least significant first, no terminator.
    /// This is no conversion to UTF-8.
    explicit CBinaryData(const char16_t* text);

    /// \param data           `length` octets
    /// \param takeOwnership  true: the buffer adopts `data`, made by `new[]`, also where memory for
    ///                       the buffer is lacking; false: it copies
    /// \throws CZqInvalidParamException  `data` is null and `length` is not 0
    CBinaryData(unsigned char* const data, std::uint32_t length, bool takeOwnership);
    /// \throws CZqOverFlowException  the length is below 0, or 4 GiB or more; `data` stays the
    ///         caller's
    template <UncheckedLength TLength>
    CBinaryData(unsigned char* const data, TLength length, bool takeOwnership)
        : CBinaryData(data, ToLength32(length), takeOwnership)
    {}

    /// A copy of the octets.
    /// \throws CZqInvalidParamException  `data` is null and `length` is not 0
    CBinaryData(const unsigned char* data, std::uint32_t length);
    /// \throws CZqOverFlowException  the length is below 0, or 4 GiB or more
    template <UncheckedLength TLength>
    CBinaryData(const unsigned char* data, TLength length) : CBinaryData(data, ToLength32(length))
    {}
    /// \throws CZqOverFlowException  4 GiB or more
    explicit CBinaryData(std::span<const std::byte> data);

    CBinaryData(const CBinaryData& other);
    CBinaryData(CBinaryData&& other) noexcept;
    CBinaryData& operator=(const CBinaryData& other);
    /// The two exchange their contents.
    CBinaryData& operator=(CBinaryData&& other) noexcept;
    virtual ~CBinaryData();

    /// Both without a buffer, or both with one and the same octets in it.
    friend ZQXMLLIB9_API bool operator==(const CBinaryData& left, const CBinaryData& right);

    /// \throws CZqException  "Index Out of range [%d]"
    const unsigned char& operator[](std::uint32_t index) const;
    /// Writing through the reference reaches no other holder. It is good until the next change or
    /// copy of this object.
    /// \throws CZqException  "Index Out of range [%d]"
    unsigned char& operator[](std::uint32_t index);
    template <UncheckedLength TIndex>
    const unsigned char& operator[](TIndex index) const
    {
        return (*this)[ToIndex32(index)];
    }
    template <UncheckedLength TIndex>
    unsigned char& operator[](TIndex index)
    {
        return (*this)[ToIndex32(index)];
    }

    /// The octets, null without a buffer; good until the next change.
    const unsigned char* GetData() const noexcept;
    /// In octets; 0 without a buffer.
    std::uint32_t GetLength() const noexcept;

    /// Gives up the buffer.
    void Clear() noexcept;

    /// Replaces the contents by a copy.
    /// \throws CZqInvalidParamException  `data` is null and `length` is not 0
    void SetBuffer(const unsigned char* data, std::uint32_t length);
    /// \throws CZqOverFlowException  the length is below 0, or 4 GiB or more
    template <UncheckedLength TLength>
    void SetBuffer(const unsigned char* data, TLength length)
    {
        SetBuffer(data, ToLength32(length));
    }
    void SetBuffer(const char16_t* text);
    /// \throws CZqOverFlowException  4 GiB or more
    void SetBuffer(std::span<const std::byte> data);

    /// Appends octets, or the raw octets of text as in the constructor. The data may lie within
    /// this object. A failure leaves the contents as they were.
    /// \throws CZqOverFlowException      the result would have 4 GiB or more
    /// \throws CZqInvalidParamException  `data` is null and `length` is not 0
    void Append(const unsigned char* data, std::uint32_t length);
    template <UncheckedLength TLength>
    void Append(const unsigned char* data, TLength length)
    {
        Append(data, ToLength32(length));
    }
    void Append(std::span<const std::byte> data);
    void Append(const CBinaryData& other);
    void Append(unsigned char octet);
    void Append(char16_t unit);
    void Append(const char16_t* text);
    void Append(const std::u16string& text);

    /// Hands over a private copy of the octets, or the octets themselves where no other object
    /// holds them; this object is then without a buffer.
    /// \return an array that the caller frees with `delete[]`; null without a buffer
    unsigned char* ReleaseData();

    /// Two upper case digits for each octet; empty without a buffer.
    std::u16string GetAsHexString() const;

    /// Replaces the contents. An object whose text was refused is without a buffer.
    /// \throws CZqException  "Invalid char in hex string [%c]"; a text of odd length names U+0000
    void SetAsHexString(const char16_t* text);
    void SetAsHexString(std::u16string_view text);

    /// Base64 without line breaks; empty without a buffer.
    std::u16string GetAsBase64() const;

    /// Replaces the contents. White space and equals signs may stand anywhere; a text with any
    /// other character gives a buffer of length 0.
    void SetAsBase64(const char16_t* text);
    void SetAsBase64(std::u16string_view text);

protected:
    /// The hexadecimal text of octets; empty if `data` is null.
    static std::u16string GetAsHexString(const unsigned char* data, std::uint32_t length);

    /// Reads hexadecimal text.
    /// \param data  takes a new array of the octets, made by `new[]`; the caller's
    /// \return the octet count
    /// \throws CZqException  "Invalid char in hex string [%c]"; `data` is then unchanged
    static std::uint32_t ConvertToHexData(std::u16string_view text, unsigned char** data);
    static std::uint32_t ConvertToHexData(const char16_t* text, unsigned char** data);

private:
    class CBinaryDataBuffer;

    /// What 32 bits can't hold is beyond every length.
    template <UncheckedLength TIndex>
    static std::uint32_t ToIndex32(TIndex index) noexcept
    {
        return std::in_range<std::uint32_t>(index) ? static_cast<std::uint32_t>(index) : UINT32_MAX;
    }

    void Adopt(unsigned char* data, std::uint32_t length);
    CBinaryDataBuffer* MakeUnique();

    CBinaryDataBuffer* m_buffer = nullptr;
};

}  // namespace ZqXmlLib9
