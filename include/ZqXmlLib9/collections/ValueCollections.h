/// \file ValueCollections.h
/// The value collections: a class for each item type that repeats. The dates are in
/// DatetimeCollections.h.
#pragma once

#include <ZqXmlLib9/collections/ValueCollection.h>

namespace ZqXmlLib9 {

extern template class ZQXMLLIB9_API CValueCollection<ItemType_i1>;
extern template class ZQXMLLIB9_API CValueCollection<ItemType_i2>;
extern template class ZQXMLLIB9_API CValueCollection<ItemType_i4>;
extern template class ZQXMLLIB9_API CValueCollection<ItemType_i8>;
extern template class ZQXMLLIB9_API CValueCollection<ItemType_ui1>;
extern template class ZQXMLLIB9_API CValueCollection<ItemType_ui2>;
extern template class ZQXMLLIB9_API CValueCollection<ItemType_ui4>;
extern template class ZQXMLLIB9_API CValueCollection<ItemType_ui8>;
extern template class ZQXMLLIB9_API CValueCollection<ItemType_r4>;
extern template class ZQXMLLIB9_API CValueCollection<ItemType_r8>;
extern template class ZQXMLLIB9_API CValueCollection<ItemType_decimal>;
extern template class ZQXMLLIB9_API CValueCollection<ItemType_integer>;
extern template class ZQXMLLIB9_API CValueCollection<ItemType_string>;
extern template class ZQXMLLIB9_API CValueCollection<ItemType_boolean>;
extern template class ZQXMLLIB9_API CValueCollection<ItemType_year>;
extern template class ZQXMLLIB9_API CValueCollection<ItemType_month>;
extern template class ZQXMLLIB9_API CValueCollection<ItemType_day>;
extern template class ZQXMLLIB9_API CValueCollection<ItemType_duration>;
extern template class ZQXMLLIB9_API CValueCollection<ItemType_hexBinary>;
extern template class ZQXMLLIB9_API CValueCollection<ItemType_base64Binary>;

class ZQXMLLIB9_API Ci1Col : public CValueCollection<ItemType_i1> {
public:
    using CValueCollection::CValueCollection;
};

class ZQXMLLIB9_API Ci2Col : public CValueCollection<ItemType_i2> {
public:
    using CValueCollection::CValueCollection;
};

class ZQXMLLIB9_API Ci4Col : public CValueCollection<ItemType_i4> {
public:
    using CValueCollection::CValueCollection;
};

class ZQXMLLIB9_API Ci8Col : public CValueCollection<ItemType_i8> {
public:
    using CValueCollection::CValueCollection;
};

class ZQXMLLIB9_API Cui1Col : public CValueCollection<ItemType_ui1> {
public:
    using CValueCollection::CValueCollection;
};

class ZQXMLLIB9_API Cui2Col : public CValueCollection<ItemType_ui2> {
public:
    using CValueCollection::CValueCollection;
};

class ZQXMLLIB9_API Cui4Col : public CValueCollection<ItemType_ui4> {
public:
    using CValueCollection::CValueCollection;
};

class ZQXMLLIB9_API Cui8Col : public CValueCollection<ItemType_ui8> {
public:
    using CValueCollection::CValueCollection;
};

class ZQXMLLIB9_API Cr4Col : public CValueCollection<ItemType_r4> {
public:
    using CValueCollection::CValueCollection;
};

class ZQXMLLIB9_API Cr8Col : public CValueCollection<ItemType_r8> {
public:
    using CValueCollection::CValueCollection;
};

class ZQXMLLIB9_API CdecimalCol : public CValueCollection<ItemType_decimal> {
public:
    using CValueCollection::CValueCollection;
};

class ZQXMLLIB9_API CintegerCol : public CValueCollection<ItemType_integer> {
public:
    using CValueCollection::CValueCollection;
};

class ZQXMLLIB9_API CstringCol : public CValueCollection<ItemType_string> {
public:
    using CValueCollection::CValueCollection;
};

/// The values are packed, as `std::vector<bool>` packs them.
class ZQXMLLIB9_API CbooleanCol : public CValueCollection<ItemType_boolean> {
public:
    using CValueCollection::CValueCollection;
};

class ZQXMLLIB9_API CyearCol : public CValueCollection<ItemType_year> {
public:
    using CValueCollection::CValueCollection;
};

class ZQXMLLIB9_API CmonthCol : public CValueCollection<ItemType_month> {
public:
    using CValueCollection::CValueCollection;
};

class ZQXMLLIB9_API CdayCol : public CValueCollection<ItemType_day> {
public:
    using CValueCollection::CValueCollection;
};

class ZQXMLLIB9_API CdurationCol : public CValueCollection<ItemType_duration> {
public:
    using CValueCollection::CValueCollection;
};

class ZQXMLLIB9_API ChexBinaryCol : public CValueCollection<ItemType_hexBinary> {
public:
    using CValueCollection::CValueCollection;
};

class ZQXMLLIB9_API Cbase64BinaryCol : public CValueCollection<ItemType_base64Binary> {
public:
    using CValueCollection::CValueCollection;
};

}  // namespace ZqXmlLib9
