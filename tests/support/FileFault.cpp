#include "FileFault.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr std::size_t kShort = 1000;

struct SFault {
    CFileFault::EKind kind = CFileFault::None;
    long untilFailure = -1;
    int error = 0;
    bool isRepeated = false;
    const char* failed = "";
};
constinit thread_local SFault t_fault;

/// Whether a call fails; `errno` then says why, 0 where it is the end of the file.
bool Fails(const char* call, bool mayRepeat)
{
    SFault& fault = t_fault;
    if (fault.kind == CFileFault::Interrupted && mayRepeat) {
        fault.isRepeated = !fault.isRepeated;
        errno = EINTR;
        return fault.isRepeated;
    }
    const bool isCounted = fault.kind != CFileFault::End || call == std::string_view("pread");
    if (!isCounted || fault.untilFailure < 0 || fault.untilFailure-- != 0)
        return false;
    fault.failed = call;
    errno = fault.error;
    return true;
}

std::size_t Cut(std::size_t size)
{
    return t_fault.kind == CFileFault::Short ? std::min(size, kShort) : size;
}

template <typename... TArguments>
int Call(const char* name, bool mayRepeat, long number, TArguments... arguments)
{
    return Fails(name, mayRepeat) ? -1 : static_cast<int>(::syscall(number, arguments...));
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int mode = (flags & O_CREAT) != 0 ? va_arg(arguments, int) : 0;
    va_end(arguments);
    return Call("open", true, SYS_openat, AT_FDCWD, path, flags, mode);
}

int fstat(int descriptor, struct stat* status) noexcept
{
    return Call("fstat", false, SYS_fstat, descriptor, status);
}

int ftruncate(int descriptor, off_t length) noexcept
{
    return Call("ftruncate", true, SYS_ftruncate, descriptor, length);
}

int fcntl(int descriptor, int command, ...)
{
    va_list arguments;
    va_start(arguments, command);
    const long argument = va_arg(arguments, long);
    va_end(arguments);
    return Call("fcntl", false, SYS_fcntl, descriptor, command, argument);
}

ssize_t pread(int descriptor, void* buffer, std::size_t size, off_t offset)
{
    if (Fails("pread", true))
        return errno == 0 ? 0 : -1;
    return ::syscall(SYS_pread64, descriptor, buffer, Cut(size), offset);
}

ssize_t pwrite(int descriptor, const void* data, std::size_t size, off_t offset)
{
    return Fails("pwrite", true) ? -1
                                 : ::syscall(SYS_pwrite64, descriptor, data, Cut(size), offset);
}

ssize_t write(int descriptor, const void* data, std::size_t size)
{
    return Fails("write", true) ? -1 : ::syscall(SYS_write, descriptor, data, Cut(size));
}

// The descriptor is gone after a failure too.
int close(int descriptor)
{
    const bool fails = Fails("close", false);
    const int error = errno;
    const auto result = static_cast<int>(::syscall(SYS_close, descriptor));
    if (!fails)
        return result;
    errno = error;
    return -1;
}
}

CFileFault::CFileFault(EKind kind, long n, int error)
{
    t_fault = {kind, n, error, false, ""};
}

CFileFault::~CFileFault()
{
    t_fault = {};
}

std::string CFileFault::GetFailed() const
{
    return t_fault.failed;
}
