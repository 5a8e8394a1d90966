#include "File.h"
#include "TextEncodings.h"

#include <cerrno>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <pthread.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace ZqXmlLib9 {
namespace {

/// A call that may be interrupted.
template <typename TCall>
int Repeat(TCall&& call)
{
    int result = 0;
    do {
        result = call();
    } while (result < 0 && errno == EINTR);
    return result;
}

/// Opens without waiting, not for a pipe either.
int OpenDescriptor(std::u16string_view path, int flags, int& descriptor)
{
    std::string name;
    if (AppendAsUtf8(path, name) != kWholeText)
        return EILSEQ;
    descriptor = Repeat([&] { return ::open(name.c_str(), flags | O_CLOEXEC | O_NONBLOCK, 0666); });
    return descriptor < 0 ? errno : 0;
}

/// Keeps the signals of a failed write (a limit on file size, a pipe without a reader) from this
/// thread, so that the failure comes as an error code and not as the end of the process.
class CSignalsOfWriting {
public:
    CSignalsOfWriting()
    {
        ::sigemptyset(&m_signals);
        ::sigaddset(&m_signals, SIGPIPE);
        ::sigaddset(&m_signals, SIGXFSZ);
        sigset_t pending;
        ::sigpending(&pending);
        // What waits already is someone else's.
        for (const int signal : {SIGPIPE, SIGXFSZ})
            if (::sigismember(&pending, signal) == 1)
                ::sigdelset(&m_signals, signal);
        ::pthread_sigmask(SIG_BLOCK, &m_signals, &m_before);
    }
    CSignalsOfWriting(const CSignalsOfWriting&) = delete;
    CSignalsOfWriting& operator=(const CSignalsOfWriting&) = delete;
    ~CSignalsOfWriting()
    {
        const int error = errno;
        const timespec now{};
        while (::sigtimedwait(&m_signals, nullptr, &now) > 0)
            ;
        ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
        errno = error;
    }

private:
    sigset_t m_signals;
    sigset_t m_before;
};

}  // namespace

CReadFile::~CReadFile()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

int CReadFile::Open(std::u16string_view path)
{
    if (const int error = OpenDescriptor(path, O_RDONLY, m_descriptor))
        return error;
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

CWriteFile::~CWriteFile()
{
    Discard();
}

int CWriteFile::Open(std::u16string_view path)
{
    Discard();
    m_isRegular = false;
    if (const int error = OpenDescriptor(path, O_WRONLY | O_CREAT, m_descriptor))
        return error;
    // The writes may wait, for the reader of a pipe.
    const int flags = ::fcntl(m_descriptor, F_GETFL);
    struct stat status {};
    if (flags < 0 || ::fcntl(m_descriptor, F_SETFL, flags & ~O_NONBLOCK) != 0
        || ::fstat(m_descriptor, &status) != 0)
        return errno;
    m_canSeek = ::lseek(m_descriptor, 0, SEEK_CUR) >= 0;
    if (!S_ISREG(status.st_mode))
        return 0;
    if (Repeat([this] { return ::ftruncate(m_descriptor, 0); }) != 0)
        return errno;
    m_isRegular = true;
    return 0;
}

void CWriteFile::StartWrite(std::uint64_t offset, std::span<const std::byte> data)
{
    m_written = 0;
    m_error = 0;
    const CSignalsOfWriting signals;
    while (m_written < data.size()) {
        const std::span<const std::byte> rest = data.subspan(m_written);
        const ssize_t count = m_canSeek ? ::pwrite(m_descriptor, rest.data(), rest.size(),
                                                   static_cast<off_t>(offset + m_written))
                                        : ::write(m_descriptor, rest.data(), rest.size());
        if (count > 0) {
            m_written += static_cast<std::size_t>(count);
        }
        else if (count == 0 || errno != EINTR) {
            m_error = count == 0 ? EIO : errno;
            return;
        }
    }
}

int CWriteFile::FinishWrite(std::size_t& count)
{
    count = std::exchange(m_written, 0);
    return std::exchange(m_error, 0);
}

int CWriteFile::Close()
{
    // The descriptor is gone after any outcome; a second close could hit another one's. So a copy
    // of it is there to empty the file, should the system find only now that it can't be written.
    const int copy = m_isRegular ? ::fcntl(m_descriptor, F_DUPFD_CLOEXEC, 0) : -1;
    const int descriptor = std::exchange(m_descriptor, copy);
    const int error = descriptor < 0 || ::close(descriptor) == 0 ? 0 : errno;
    if (error == 0)
        m_isRegular = false;
    Discard();
    return error;
}

void CWriteFile::Discard()
{
    m_written = 0;
    m_error = 0;
    const int descriptor = std::exchange(m_descriptor, -1);
    if (descriptor < 0)
        return;
    // Nothing is left to try where this fails.
    if (std::exchange(m_isRegular, false))
        static_cast<void>(Repeat([&] { return ::ftruncate(descriptor, 0); }));
    ::close(descriptor);
}

}  // namespace ZqXmlLib9
