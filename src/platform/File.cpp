#include "File.h"
#include "TextEncodings.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace ZqXmlLib9 {

CReadFile::~CReadFile()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

int CReadFile::Open(std::u16string_view path)
{
    std::string name;
    if (AppendAsUtf8(path, name) != kWholeText)
        return EILSEQ;
    do {
        m_descriptor = ::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    } while (m_descriptor < 0 && errno == EINTR);
    if (m_descriptor < 0)
        return errno;
    struct stat status {};
    if (::fstat(m_descriptor, &status) != 0)
        return errno;
    return S_ISDIR(status.st_mode) ? EISDIR : 0;
}

int CReadFile::GetSize(std::uint64_t& size) const
{
    struct stat status {};
    if (::fstat(m_descriptor, &status) != 0)
        return errno;
    if (!S_ISREG(status.st_mode))
        return ESPIPE;
    size = static_cast<std::uint64_t>(status.st_size);
    return 0;
}

int CReadFile::ReadWhole(std::span<std::byte> buffer, std::size_t& count) const
{
    ::posix_fadvise(m_descriptor, 0, 0, POSIX_FADV_SEQUENTIAL);
    return FinishRead(0, buffer, count);
}

void CReadFile::StartRead(std::uint64_t offset, std::size_t length) const
{
    ::posix_fadvise(m_descriptor, static_cast<off_t>(offset), static_cast<off_t>(length),
                    POSIX_FADV_WILLNEED);
}

int CReadFile::FinishRead(std::uint64_t offset, std::span<std::byte> buffer,
                          std::size_t& count) const
{
    count = 0;
    while (count < buffer.size()) {
        const ssize_t got = ::pread(m_descriptor, buffer.data() + count, buffer.size() - count,
                                    static_cast<off_t>(offset + count));
        if (got == 0)
            break;
        if (got > 0)
            count += static_cast<std::size_t>(got);
        else if (errno != EINTR)
            return errno;
    }
    return 0;
}

}  // namespace ZqXmlLib9
