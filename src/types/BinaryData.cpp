// A value class over a shared, reference-counted buffer.
//
// Holds between any two calls:
//   - the octets of a buffer with two or more holders never change
//   - length <= capacity, and capacity octets are allocated
// Every change goes through MakeUnique() first, so that it can reach no other holder.

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/platform/CriticalSection.h>
#include <ZqXmlLib9/types/Base64.h>
#include <ZqXmlLib9/types/BinaryData.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <memory>
#include <mutex>
#include <utility>

namespace ZqXmlLib9 {
namespace {

/// Room for the growth of small values without another allocation.
constexpr std::uint32_t kMinCapacity = 8192;

constexpr std::uint32_t kMaxLength = std::numeric_limits<std::uint32_t>::max();

std::uint32_t CapacityFor(std::uint32_t length, std::uint32_t minimum)
{
    return std::max(minimum, length > kMaxLength / 2 ? kMaxLength : 2 * length);
}

std::unique_ptr<unsigned char[]> MakeOctets(std::uint32_t count)
{
    return std::unique_ptr<unsigned char[]>(new unsigned char[count]);
}

void CopyOctets(unsigned char* target, const void* source, std::size_t length)
{
    if (length != 0)
        std::memcpy(target, source, length);
}

/// Raw octets of text: what lies in memory, least significant octet of a unit first.
std::span<const std::byte> OctetsOf(std::u16string_view text)
{
    static_assert(std::endian::native == std::endian::little);
    return std::as_bytes(std::span(text));
}

}  // namespace

std::uint32_t ToLength32(std::int64_t length)
{
    if (length < 0 || length > kMaxLength)
        throw CZqOverFlowException(
            FormatString(u"A length of %I64d octets is out of range", length));
    return static_cast<std::uint32_t>(length);
}

std::span<const std::byte> ToOctets(const void* data, std::uint32_t length)
{
    if (data == nullptr && length != 0)
        throw CZqInvalidParamException(u"The data is null and its length is not 0");
    return {static_cast<const std::byte*>(data), length};
}

class __attribute__((visibility("hidden"))) CBinaryData::CBinaryDataBuffer {
public:
    /// Copies, with room to grow.
    explicit CBinaryDataBuffer(std::span<const std::byte> data)
        : m_length(ToLength32(data.size())), m_capacity(CapacityFor(m_length, kMinCapacity)),
          m_data(MakeOctets(m_capacity))
    {
        CopyOctets(m_data.get(), data.data(), data.size());
    }

    /// Adopts.
    CBinaryDataBuffer(std::unique_ptr<unsigned char[]> data, std::uint32_t length)
        : m_length(length), m_capacity(length), m_data(std::move(data))
    {}

    unsigned char* GetData() const { return m_data.get(); }
    std::uint32_t GetLength() const { return m_length; }
    std::span<const std::byte> GetOctets() const
    {
        return std::as_bytes(std::span<const unsigned char>(m_data.get(), m_length));
    }

    bool IsShared()
    {
        const std::lock_guard lock(m_lock);
        return m_holders >= 2;
    }

    void AddHolder()
    {
        const std::lock_guard lock(m_lock);
        ++m_holders;
    }

    void DropHolder()
    {
        bool isLast = false;
        {
            const std::lock_guard lock(m_lock);
            isLast = --m_holders == 0;
        }
        if (isLast)
            delete this;
    }

    /// For the only holder. `data` may lie within this buffer.
    void Append(std::span<const std::byte> data)
    {
        const std::lock_guard lock(m_lock);
        if (m_holders >= 2)
            throw CZqException(FormatString(u"Failed to append. [RefCount=%d]", m_holders));
        const std::uint32_t length = ToLength32(std::uint64_t{m_length} + data.size());
        if (length <= m_capacity) {
            CopyOctets(m_data.get() + m_length, data.data(), data.size());
        }
        else {
            const std::uint32_t capacity = CapacityFor(length, 0);
            std::unique_ptr<unsigned char[]> grown = MakeOctets(capacity);
            CopyOctets(grown.get(), m_data.get(), m_length);
            CopyOctets(grown.get() + m_length, data.data(), data.size());
            m_data = std::move(grown);
            m_capacity = capacity;
        }
        m_length = length;
    }

    /// For the only holder: takes the octets out and deletes the buffer.
    unsigned char* Release()
    {
        {
            const std::lock_guard lock(m_lock);
            if (--m_holders > 0)
                throw CZqException(
                    FormatString(u"Failed to release data. [RefCount=%d]", m_holders));
        }
        unsigned char* const data = m_data.release();
        delete this;
        return data;
    }

private:
    ~CBinaryDataBuffer() = default;

    std::uint32_t m_length;
    std::uint32_t m_capacity;
    std::unique_ptr<unsigned char[]> m_data;
    std::int32_t m_holders = 1;
    CZQCriticalSection m_lock;
};

CBinaryData::CBinaryData() noexcept = default;

CBinaryData::CBinaryData(const char16_t* text)
    : m_buffer(new CBinaryDataBuffer(OctetsOf(TextOrEmpty(text))))
{}

CBinaryData::CBinaryData(unsigned char* const data, std::uint32_t length, bool takeOwnership)
{
    if (takeOwnership && data != nullptr)
        Adopt(data, length);
    else
        m_buffer = new CBinaryDataBuffer(ToOctets(data, length));
}

CBinaryData::CBinaryData(const unsigned char* data, std::uint32_t length)
    : CBinaryData(ToOctets(data, length))
{}

CBinaryData::CBinaryData(std::span<const std::byte> data) : m_buffer(new CBinaryDataBuffer(data)) {}

CBinaryData::CBinaryData(const CBinaryData& other) : m_buffer(other.m_buffer)
{
    if (m_buffer != nullptr)
        m_buffer->AddHolder();
}

CBinaryData::CBinaryData(CBinaryData&& other) noexcept
    : m_buffer(std::exchange(other.m_buffer, nullptr))
{}

CBinaryData& CBinaryData::operator=(const CBinaryData& other)
{
    return *this = CBinaryData(other);
}

CBinaryData& CBinaryData::operator=(CBinaryData&& other) noexcept
{
    std::swap(m_buffer, other.m_buffer);
    return *this;
}

CBinaryData::~CBinaryData()
{
    Clear();
}

bool operator==(const CBinaryData& left, const CBinaryData& right)
{
    if (left.m_buffer == right.m_buffer)
        return true;
    if (left.m_buffer == nullptr || right.m_buffer == nullptr)
        return false;
    return std::ranges::equal(left.m_buffer->GetOctets(), right.m_buffer->GetOctets());
}

const unsigned char& CBinaryData::operator[](std::uint32_t index) const
{
    if (index >= GetLength())
        throw CZqException(FormatString(u"Index Out of range [%d]", index));
    return m_buffer->GetData()[index];
}

unsigned char& CBinaryData::operator[](std::uint32_t index)
{
    static_cast<void>(std::as_const(*this)[index]);
    return MakeUnique()->GetData()[index];
}

const unsigned char* CBinaryData::GetData() const noexcept
{
    return m_buffer != nullptr ? m_buffer->GetData() : nullptr;
}

std::uint32_t CBinaryData::GetLength() const noexcept
{
    return m_buffer != nullptr ? m_buffer->GetLength() : 0;
}

void CBinaryData::Clear() noexcept
{
    if (CBinaryDataBuffer* const buffer = std::exchange(m_buffer, nullptr))
        buffer->DropHolder();
}

void CBinaryData::SetBuffer(const unsigned char* data, std::uint32_t length)
{
    SetBuffer(ToOctets(data, length));
}

void CBinaryData::SetBuffer(const char16_t* text)
{
    SetBuffer(OctetsOf(TextOrEmpty(text)));
}

void CBinaryData::SetBuffer(std::span<const std::byte> data)
{
    *this = CBinaryData(data);
}

void CBinaryData::Append(const unsigned char* data, std::uint32_t length)
{
    Append(ToOctets(data, length));
}

void CBinaryData::Append(std::span<const std::byte> data)
{
    if (m_buffer == nullptr) {
        m_buffer = new CBinaryDataBuffer(data);
        return;
    }
    if (!m_buffer->IsShared()) {
        m_buffer->Append(data);
        return;
    }
    // The data may lie in the shared buffer, which must outlive the copying.
    CBinaryData own(m_buffer->GetOctets());
    own.m_buffer->Append(data);
    std::swap(m_buffer, own.m_buffer);
}

void CBinaryData::Append(const CBinaryData& other)
{
    Append(other.GetData(), other.GetLength());
}

void CBinaryData::Append(unsigned char octet)
{
    Append(std::as_bytes(std::span(&octet, 1)));
}

void CBinaryData::Append(char16_t unit)
{
    Append(OctetsOf(std::u16string_view(&unit, 1)));
}

void CBinaryData::Append(const char16_t* text)
{
    Append(OctetsOf(TextOrEmpty(text)));
}

void CBinaryData::Append(const std::u16string& text)
{
    Append(OctetsOf(std::u16string_view(text)));
}

unsigned char* CBinaryData::ReleaseData()
{
    if (m_buffer == nullptr)
        return nullptr;
    MakeUnique();
    return std::exchange(m_buffer, nullptr)->Release();
}

std::u16string CBinaryData::GetAsHexString() const
{
    return GetAsHexString(GetData(), GetLength());
}

std::u16string CBinaryData::GetAsHexString(const unsigned char* data, std::uint32_t length)
{
    constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
    std::u16string text;
    if (data == nullptr)
        return text;
    text.reserve(std::size_t{length} * 2);
    for (const unsigned char octet : std::span(data, length)) {
        text.push_back(kDigits[octet >> 4]);
        text.push_back(kDigits[octet & 0xF]);
    }
    return text;
}

void CBinaryData::SetAsHexString(const char16_t* text)
{
    SetAsHexString(TextOrEmpty(text));
}

void CBinaryData::SetAsHexString(std::u16string_view text)
{
    Clear();
    unsigned char* data = nullptr;
    const std::uint32_t length = ConvertToHexData(text, &data);
    Adopt(data, length);
}

std::uint32_t CBinaryData::ConvertToHexData(std::u16string_view text, unsigned char** data)
{
    const auto digitAt = [&](std::size_t index) -> unsigned {
        const char16_t c = index < text.size() ? text[index] : u'\0';
        if (c >= u'0' && c <= u'9')
            return c - u'0';
        if (c >= u'A' && c <= u'F')
            return c - u'A' + 10u;
        if (c >= u'a' && c <= u'f')
            return c - u'a' + 10u;
        throw CZqException(FormatString(u"Invalid char in hex string [%c]", c));
    };
    const std::uint32_t length = ToLength32(text.size() / 2 + text.size() % 2);
    std::unique_ptr<unsigned char[]> octets(new unsigned char[std::size_t{length} + 1]);
    for (std::size_t i = 0; i < length; ++i) {
        const unsigned high = digitAt(2 * i);
        octets[i] = static_cast<unsigned char>((high << 4) | digitAt(2 * i + 1));
    }
    *data = octets.release();
    return length;
}

std::uint32_t CBinaryData::ConvertToHexData(const char16_t* text, unsigned char** data)
{
    return ConvertToHexData(TextOrEmpty(text), data);
}

std::u16string CBinaryData::GetAsBase64() const
{
    return CBase64().Encode(GetData(), GetLength());
}

void CBinaryData::SetAsBase64(const char16_t* text)
{
    SetAsBase64(TextOrEmpty(text));
}

void CBinaryData::SetAsBase64(std::u16string_view text)
{
    Clear();
    static_cast<void>(ToLength32(text.size() / 4 * 3 + text.size() % 4));
    std::unique_ptr<unsigned char[]> octets(new unsigned char[text.size() + 1]);
    const std::uint32_t length = CBase64().Decode(text, octets.get());
    Adopt(octets.release(), length);
}

/// Takes the array over, also when it fails. This object has no buffer.
void CBinaryData::Adopt(unsigned char* data, std::uint32_t length)
{
    std::unique_ptr<unsigned char[]> owned(data);
    m_buffer = new CBinaryDataBuffer(std::move(owned), length);
}

/// The buffer, of which this object is then the only holder.
CBinaryData::CBinaryDataBuffer* CBinaryData::MakeUnique()
{
    if (m_buffer->IsShared())
        *this = CBinaryData(m_buffer->GetOctets());
    return m_buffer;
}

}  // namespace ZqXmlLib9
