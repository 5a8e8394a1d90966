// The loads of CXmlDocument: how octets get from a text, a memory block or a file to the parser.
//
// A load that has its data in memory parses it in place and keeps nothing of it. The chunked load
// of a file asks the system for the next chunk, parses the current one, and only then takes the
// next, so that reading and parsing overlap without a thread and no buffer is ever in flight.

#include "ExpatReader.h"

#include "../fastinfoset/FastInfosetReader.h"
#include "../platform/File.h"

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/engine/XmlSerializationContext.h>
#include <ZqXmlLib9/fastinfoset/ZqZip.h>
#include <ZqXmlLib9/types/BinaryData.h>
#include <ZqXmlLib9/xml/XmlDocument.h>
#include <ZqXmlLib9/xml/XmlElement.h>

#include <atomic>
#include <bit>
#include <cerrno>
#include <limits>
#include <memory>
#include <utility>

namespace ZqXmlLib9 {
namespace {

/// 128 KiB: large enough that a read costs little beside the parsing of it.
constexpr std::size_t kChunkSize = 0x20000;

constexpr const char16_t* kOpenFailed = u"Failed to open the file [%s] Error [0x%08x]";
constexpr const char16_t* kSizeFailed = u"Failed to get the size of the file [%s] Error [0x%08x]";
constexpr const char16_t* kReadFailed =
    u"Failed to read the contents of the file [%s] Error [0x%08x]";
constexpr const char16_t* kChunkFailed = u"Failed to read the contents of the file. Error [0x%08x]";

std::atomic<bool> g_async{false};

void ThrowIf(int error, const char16_t* format, const char16_t* path)
{
    if (error != 0)
        throw CZqException(FormatString(format, TextOrEmpty(path), error));
}

std::unique_ptr<std::byte[]> MakeBuffer(std::size_t size)
{
    return std::make_unique_for_overwrite<std::byte[]>(size);
}

/// Frees a document unless the load that it guards has been completed.
class CCleanupOnFailure {
public:
    explicit CCleanupOnFailure(CXmlDocument& document) : m_document(&document) {}
    CCleanupOnFailure(const CCleanupOnFailure&) = delete;
    CCleanupOnFailure& operator=(const CCleanupOnFailure&) = delete;
    ~CCleanupOnFailure()
    {
        if (m_document != nullptr)
            m_document->Cleanup();
    }

    void Complete() { m_document = nullptr; }

private:
    CXmlDocument* m_document;
};

}  // namespace

void AsyncFromXmlFile(bool async) noexcept
{
    g_async.store(async, std::memory_order_relaxed);
}

void CXmlDocument::LoadXml(const char16_t* text)
{
    Cleanup();
    const std::u16string_view view = TextOrEmpty(text);
    if (view.empty())
        throw CZqException(u"XML String is empty!");
    static_cast<void>(ToLength32(view.size() * sizeof(char16_t)));
    static_assert(std::endian::native == std::endian::little);
    CExpatReader reader(this);
    reader.Initialise();
    reader.UseUtf16(CUtf16Input::EOrder::LittleEndian);
    reader.ParseBuffer(std::as_bytes(std::span(view)), true);
}

void CXmlDocument::LoadXml(const char* text)
{
    Cleanup();
    const std::string_view view = text != nullptr ? std::string_view(text) : std::string_view();
    if (view.empty())
        throw CZqException(u"XML String is empty!");
    static_cast<void>(ToLength32(view.size()));
    ParseText(std::as_bytes(std::span(view)));
}

void CXmlDocument::LoadXmlStream(const unsigned char* data, std::uint32_t length)
{
    LoadXmlStream(ToOctets(data, length));
}

void CXmlDocument::LoadXmlStream(std::span<const std::byte> data)
{
    Cleanup();
    if (data.empty())
        throw CZqException(u"XML Stream is empty!");
    static_cast<void>(ToLength32(data.size()));
    Parse(data);
}

void CXmlDocument::Load(const char16_t* path)
{
    Cleanup();
    if (g_async.load(std::memory_order_relaxed))
        LoadChunks(path);
    else
        LoadWhole(path);
}

void CXmlDocument::LoadWhole(const char16_t* path)
{
    std::unique_ptr<std::byte[]> buffer;
    std::uint64_t size = 0;
    {
        CReadFile file;
        ThrowIf(file.Open(TextOrEmpty(path)), kOpenFailed, path);
        ThrowIf(file.GetSize(size), kSizeFailed, path);
        if (size > std::numeric_limits<std::uint32_t>::max())
            ThrowIf(EFBIG, kSizeFailed, path);
        buffer = MakeBuffer(size);
        std::size_t count = 0;
        ThrowIf(file.ReadWhole({buffer.get(), size}, count), kReadFailed, path);
        if (count != size)
            throw CZqException(FormatString(kReadFailed, TextOrEmpty(path), 0));
    }
    Parse({buffer.get(), size});
}

void CXmlDocument::LoadChunks(const char16_t* path)
{
    CReadFile file;
    ThrowIf(file.Open(TextOrEmpty(path)), kOpenFailed, path);
    // What has no size can't be read at an offset either.
    std::uint64_t size = 0;
    ThrowIf(file.GetSize(size), kOpenFailed, path);

    std::uint64_t position = 0;
    std::unique_ptr<std::byte[]> front = MakeBuffer(kChunkSize);
    std::unique_ptr<std::byte[]> back = MakeBuffer(kChunkSize);
    std::size_t count = 0;
    ThrowIf(file.FinishRead(position, {front.get(), kChunkSize}, count), kReadFailed, path);

    CCleanupOnFailure guard(*this);
    CExpatReader reader(this);
    reader.Initialise();
    while (count == kChunkSize) {
        position += count;
        file.StartRead(position, kChunkSize);
        reader.ParseBuffer({front.get(), count}, false);
        if (const int error = file.FinishRead(position, {back.get(), kChunkSize}, count))
            throw CZqException(FormatString(kChunkFailed, error));
        std::swap(front, back);
    }
    reader.ParseBuffer({front.get(), count}, true);
    if (GetDocumentElement() == nullptr)
        throw CZqException(u"Invalid or empty XML document");
    guard.Complete();
}

void CXmlDocument::Parse(std::span<const std::byte> data)
{
    // A compressed file of UTF-16 has the mark of that encoding in front of the compressed octets.
    const bool hasMark =
        data.size() >= 2 && data[0] == std::byte{0xFF} && data[1] == std::byte{0xFE};
    CBinaryData inflated;
    const bool isCompressed = CZqZip::Decompress(data.subspan(hasMark ? 2 : 0), inflated,
                                                 m_context->GetMaxInflatedSize());
    const std::span<const std::byte> document =
        isCompressed ? ToOctets(inflated.GetData(), inflated.GetLength()) : data;
    CFastInfosetReader reader(&m_context->GetFIContext(), this);
    if (!reader.ReadDocument(document))
        ParseText(document);
}

void CXmlDocument::ParseText(std::span<const std::byte> data)
{
    CExpatReader reader(this);
    reader.Initialise();
    reader.ParseBuffer(data, true);
}

}  // namespace ZqXmlLib9
