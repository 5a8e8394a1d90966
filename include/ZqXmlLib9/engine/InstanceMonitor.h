/// \file InstanceMonitor.h
/// The root class of nearly every class of the library.
#pragma once

#include <ZqXmlLib9/Export.h>

/// Gives a class a virtual destructor and a place to pass its own name, by convention.
///
/// The name is dropped: nothing is stored and nothing is counted.
class ZQXMLLIB9_API CInstanceMonitor {
public:
    explicit CInstanceMonitor(const char16_t* className) noexcept;
    CInstanceMonitor(const CInstanceMonitor&) noexcept;
    CInstanceMonitor& operator=(const CInstanceMonitor&) noexcept;
    virtual ~CInstanceMonitor();
};
