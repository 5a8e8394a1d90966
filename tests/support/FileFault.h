// System calls on files that fail on demand. The program's own functions stand in front of those of
// the C library, for the library too.
#pragma once

#include <string>

/// Troubles the file calls of the thread that makes it, while it lives; one at a time. The calls
/// are open, fstat, pread, pwrite, write, ftruncate, fcntl and close.
class CFileFault {
public:
    enum EKind {
        None,         ///< counts, and nothing else
        Fail,         ///< the n-th call fails with an error code
        End,          ///< the n-th read finds the end of the file
        Interrupted,  ///< every other call that may be repeated is interrupted
        Short,        ///< reads and writes pass 1000 octets at most
    };

    explicit CFileFault(EKind kind, long n = -1, int error = 0);
    CFileFault(const CFileFault&) = delete;
    CFileFault& operator=(const CFileFault&) = delete;
    ~CFileFault();

    /// The call that was made to fail; empty if none was.
    std::string GetFailed() const;
};
