/// \file CriticalSection.h
/// The only lock class of the library.
#pragma once

#include <ZqXmlLib9/Export.h>

#include <mutex>

/// A recursive lock: the thread that has entered may enter again, and must leave as often.
///
/// Any number of threads may call; `Enter` and `Leave` pair on one thread. It satisfies the
/// standard's BasicLockable through `lock` and `unlock`, so `std::lock_guard` works on it.
class ZQXMLLIB9_API CZQCriticalSection {
public:
    CZQCriticalSection();
    CZQCriticalSection(const CZQCriticalSection&) = delete;
    CZQCriticalSection& operator=(const CZQCriticalSection&) = delete;
    virtual ~CZQCriticalSection();

    void Enter();
    void Leave();

    void lock() { Enter(); }
    void unlock() { Leave(); }

private:
    std::recursive_mutex m_mutex;
};
