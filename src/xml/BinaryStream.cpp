#include <ZqXmlLib9/xml/BinaryStream.h>

namespace ZqXmlLib9 {

CBinaryStream::CBinaryStream() : CBinaryStream(CBinaryData()) {}

CBinaryStream::CBinaryStream(const CBinaryData& data)
    : CInstanceMonitor(u"CBinaryStream"), m_data(data)
{}

CBinaryStream::~CBinaryStream() = default;

}  // namespace ZqXmlLib9
