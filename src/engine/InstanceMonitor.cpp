// Out of line, so that the vtable has one home.

#include <ZqXmlLib9/engine/InstanceMonitor.h>

CInstanceMonitor::CInstanceMonitor(const char16_t*) noexcept {}
CInstanceMonitor::CInstanceMonitor(const CInstanceMonitor&) noexcept = default;
CInstanceMonitor& CInstanceMonitor::operator=(const CInstanceMonitor&) noexcept = default;
CInstanceMonitor::~CInstanceMonitor() = default;
