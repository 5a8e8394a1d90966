#include "VersionGate.h"

#include "../platform/ShowMessageBox.h"

#include <ZqXmlLib9/Version.h>
#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/GeneratorVersion.h>

#include <atomic>
#include <cstdint>

namespace ZqXmlLib9 {
namespace {

/// Both numbers in one word, so that no thread sees half a registration.
constexpr std::uint64_t Pack(SVersion version)
{
    return std::uint64_t{static_cast<std::uint32_t>(version.major)} << 32
           | static_cast<std::uint32_t>(version.minor);
}

/// No generator has these numbers.
constexpr std::uint64_t kUnregistered = Pack({-1, -1});

std::atomic<std::uint64_t> g_generator{kUnregistered};
std::atomic<bool> g_isChecked{false};

SVersion GetGeneratorVersion()
{
    const std::uint64_t packed = g_generator.load(std::memory_order_relaxed);
    if (packed == kUnregistered)
        return {0, 0};
    return {static_cast<std::int32_t>(packed >> 32), static_cast<std::int32_t>(packed)};
}

bool IsSupported(SVersion generator)
{
    return generator.major == ZQXMLLIB9_VERSION_MAJOR && generator.minor == ZQXMLLIB9_VERSION_MINOR;
}

void ShowMismatch(SVersion generator)
{
    ShowMessageBox(u"Version Mismatch Error",
                   FormatString(u"Please ensure your generated code is the same version as this "
                                u"library (Quorel Runtime: v%d.%d, Generator: v%d.%d).",
                                ZQXMLLIB9_VERSION_MAJOR, ZQXMLLIB9_VERSION_MINOR, generator.major,
                                generator.minor));
}

}  // namespace

SVersion GetLibraryVersion() noexcept
{
    return {ZQXMLLIB9_VERSION_MAJOR, ZQXMLLIB9_VERSION_MINOR};
}

void Register(int major, int minor) noexcept
{
    std::uint64_t expected = kUnregistered;
    g_generator.compare_exchange_strong(expected, Pack({major, minor}), std::memory_order_relaxed);
}

void PassVersionGate()
{
    const SVersion generator = GetGeneratorVersion();
    if (IsSupported(generator))
        return;
    ShowMismatch(generator);
    throw CZqException(FormatString(u"Wrong Version (Quorel Runtime: v%d.%d, Generator: v%d.%d)",
                                    ZQXMLLIB9_VERSION_MAJOR, ZQXMLLIB9_VERSION_MINOR,
                                    generator.major, generator.minor));
}

void CheckVersionOnce()
{
    if (g_isChecked.load(std::memory_order_relaxed)
        || g_isChecked.exchange(true, std::memory_order_relaxed))
        return;
    const SVersion generator = GetGeneratorVersion();
    if (!IsSupported(generator))
        ShowMismatch(generator);
}

}  // namespace ZqXmlLib9
