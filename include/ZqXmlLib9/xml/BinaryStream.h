/// \file BinaryStream.h
/// The octet stream under a binary writer.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/InstanceMonitor.h>
#include <ZqXmlLib9/types/BinaryData.h>

#include <cstdint>

namespace ZqXmlLib9 {

/// A stream that gathers octets in memory. One thread at a time.
class ZQXMLLIB9_API CBinaryStream : public CInstanceMonitor {
public:
    CBinaryStream();
    ~CBinaryStream() override;

    /// \throws CZqOverFlowException      the stream would have 4 GiB or more
    /// \throws CZqInvalidParamException  `data` is null and `length` is not 0
    void Append(const unsigned char* data, std::uint32_t length) { m_data.Append(data, length); }
    template <UncheckedLength TLength>
    void Append(const unsigned char* data, TLength length)
    {
        m_data.Append(data, length);
    }
    void Append(const CBinaryData& data) { m_data.Append(data); }
    void Append(unsigned char octet) { m_data.Append(octet); }

    /// All octets so far; the copy shares them until the stream changes.
    CBinaryData GetData() const { return m_data; }

protected:
    explicit CBinaryStream(const CBinaryData& data);

private:
    CBinaryData m_data;
};

}  // namespace ZqXmlLib9
