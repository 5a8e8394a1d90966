#include "HeapFault.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <malloc.h>
#include <new>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define HEAP_OF_A_SANITIZER
#endif

namespace {

constexpr long kNever = -1;

constinit thread_local long t_untilFailure = kNever;
constinit thread_local CHeapFault::EKind t_kind = CHeapFault::Once;
constinit thread_local bool t_wasReached = false;
constinit std::atomic<long> g_blocks{0};
constinit std::atomic<long> g_octets{0};
constinit std::atomic<long> g_peak{0};

bool Fails()
{
    if (t_untilFailure == kNever || t_untilFailure-- != 0)
        return false;
    t_wasReached = true;
    t_untilFailure = t_kind == CHeapFault::Once ? kNever : 0;
    errno = ENOMEM;
    return true;
}

void* Count(void* block)
{
    if (block == nullptr)
        return nullptr;
    ++g_blocks;
    const long octets = g_octets += static_cast<long>(::malloc_usable_size(block));
    for (long peak = g_peak; peak < octets && !g_peak.compare_exchange_weak(peak, octets);) {
    }
    return block;
}

void Uncount(void* block)
{
    if (block == nullptr)
        return;
    --g_blocks;
    g_octets -= static_cast<long>(::malloc_usable_size(block));
}

}  // namespace

#ifndef HEAP_OF_A_SANITIZER
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void __libc_free(void* block);

void* malloc(std::size_t size)
{
    return Fails() ? nullptr : Count(__libc_malloc(size));
}

void* calloc(std::size_t count, std::size_t size)
{
    return Fails() ? nullptr : Count(__libc_calloc(count, size));
}

void* realloc(void* block, std::size_t size)
{
    if (Fails())
        return nullptr;
    const auto former = static_cast<long>(::malloc_usable_size(block));
    void* const moved = __libc_realloc(block, size);
    if (moved != nullptr && block != nullptr) {
        --g_blocks;
        g_octets -= former;
    }
    return Count(moved);
}

void free(void* block)
{
    Uncount(block);
    __libc_free(block);
}
}
#else
void* operator new(std::size_t size)
{
    void* const block = Fails() ? nullptr : Count(std::malloc(size != 0 ? size : 1));
    if (block == nullptr)
        throw std::bad_alloc();
    return block;
}

void operator delete(void* block) noexcept
{
    Uncount(block);
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    operator delete(block);
}
#endif

CHeapFault::CHeapFault(long n, EKind kind)
{
    t_wasReached = false;
    t_kind = kind;
    t_untilFailure = n;
}

CHeapFault::~CHeapFault()
{
    t_untilFailure = kNever;
}

bool CHeapFault::WasReached() const
{
    return t_wasReached;
}

long CHeapFault::CountBlocks()
{
    return g_blocks;
}

long CHeapFault::TakePeak()
{
    const long octets = g_octets;
    return g_peak.exchange(octets) - octets;
}

void CHeapFaultRun::Try(const std::function<void()>& step,
                        const std::function<void()>& afterFailure)
{
    bool failed = false;
    {
        const CHeapFault fault(m_n, m_kind);
        try {
            step();
        }
        catch (const std::bad_alloc&) {
            failed = true;
        }
        EXPECT_TRUE(fault.WasReached() || !failed);
        m_wasReached |= fault.WasReached();
    }
    if (!failed)
        return;
    if (afterFailure)
        afterFailure();
    step();
}

static void RunScenario(const std::function<void(CHeapFaultRun&)>& scenario, CHeapFaultRun& run)
{
    try {
        scenario(run);
    }
    catch (const ZqXmlLib9::CZqException& failure) {
        ADD_FAILURE() << failure;
    }
}

void FailEveryAllocation(const std::function<void(CHeapFaultRun&)>& scenario)
{
    // What is made once and kept, such as the store of patterns, is made here.
    CHeapFaultRun first(kNever, CHeapFault::Once);
    RunScenario(scenario, first);
    ASSERT_FALSE(testing::Test::HasFailure());
    for (const CHeapFault::EKind kind : {CHeapFault::Once, CHeapFault::FromThenOn})
        for (long n = 0;; ++n) {
            const long blocks = CHeapFault::CountBlocks();
            CHeapFaultRun run(n, kind);
            RunScenario(scenario, run);
            ASSERT_FALSE(testing::Test::HasFailure()) << "at allocation " << n;
            ASSERT_EQ(CHeapFault::CountBlocks(), blocks) << "leaks at allocation " << n;
            ASSERT_LT(n, 100'000) << "no end in sight";
            if (run.m_wasReached)
                continue;
            ASSERT_GT(n, 0) << "the heap is not in use";
            break;
        }
}
