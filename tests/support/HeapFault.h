// A heap that fails on demand, on the thread that demands it, and counts the blocks of all threads.
//
// The test program's own functions stand in front of those of the C library, so that what the
// library allocates, and Expat, zlib and PCRE2 for it, comes through here too. The sanitizers need
// malloc for themselves: there only operator new is replaced.
#pragma once

#include "Print.h"

#include <ZqXmlLib9/ZqXmlLib9.h>

#include <functional>

/// Fails an allocation of this thread, while it lives; only one may live on a thread.
class CHeapFault {
public:
    enum EKind { Once, FromThenOn };

    /// \param n  how many allocations still succeed
    CHeapFault(long n, EKind kind);
    CHeapFault(const CHeapFault&) = delete;
    CHeapFault& operator=(const CHeapFault&) = delete;
    ~CHeapFault();

    /// Whether an allocation has failed.
    bool WasReached() const;

    /// How many blocks are in use.
    static long CountBlocks();

    /// How many octets were in use at most since the last call, beyond those that are now.
    static long TakePeak();
};

/// One run of a scenario, in which one allocation fails.
class CHeapFaultRun {
public:
    /// Runs `step`, which must end in std::bad_alloc or as if nothing had failed. What a failure
    /// leaves must be what `afterFailure` expects, and another try must do it.
    void Try(const std::function<void()>& step, const std::function<void()>& afterFailure = {});

private:
    friend void FailEveryAllocation(const std::function<void(CHeapFaultRun&)>& scenario);

    CHeapFaultRun(long n, CHeapFault::EKind kind) : m_n(n), m_kind(kind) {}

    long m_n;
    CHeapFault::EKind m_kind;
    bool m_wasReached = false;
};

/// Runs a scenario with the n-th allocation failing, and with all from the n-th on, for every n
/// until none is left to fail. Nothing may leak.
void FailEveryAllocation(const std::function<void(CHeapFaultRun&)>& scenario);
