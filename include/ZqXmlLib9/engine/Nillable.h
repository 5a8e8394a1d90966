/// \file Nillable.h
/// The interface of classes whose element may be nil.
#pragma once

#include <ZqXmlLib9/Export.h>

namespace ZqXmlLib9 {

/// A generated class of a nillable element inherits this beside `CXmlGeneratedClass`; the library
/// finds it by a cross-cast. Source: XML Schema Part 1, 2.6.2 (`xsi:nil`).
class ZQXMLLIB9_API INillable {
public:
    virtual bool IsNil() const = 0;
    virtual void SetNil(bool isNil) = 0;

protected:
    ~INillable() = default;
};

}  // namespace ZqXmlLib9
