#include "VersionGate.h"

#include "../platform/ShowMessageBox.h"

#include <ZqXmlLib9/Version.h>
#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/engine/GeneratorVersion.h>

#include <atomic>

namespace ZqXmlLib9 {
namespace {

std::atomic<bool> g_isRegistered{false};
std::atomic<int> g_major{0};
std::atomic<int> g_minor{0};
std::atomic<bool> g_isChecked{false};

SVersion GetGeneratorVersion()
{
    return {g_major.load(std::memory_order_relaxed), g_minor.load(std::memory_order_relaxed)};
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
    if (g_isRegistered.exchange(true, std::memory_order_relaxed))
        return;
    g_major.store(major, std::memory_order_relaxed);
    g_minor.store(minor, std::memory_order_relaxed);
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
