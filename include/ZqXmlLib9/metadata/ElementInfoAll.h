/// \file ElementInfoAll.h
/// The records of child elements of an all group.
///
/// True from `ElementFromXml` says that the record took an element. The class sweeps over the open
/// records as long as elements are taken; `Validate` then tells of each record whether its outcome
/// is acceptable. No flag of the context makes a missing mandatory element of an all group good.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/metadata/ElementInfoKinds.h>

namespace ZqXmlLib9Data {

/// The base of the records of an all group.
class ZQXMLLIB9_API CElementInfoAll : public CElementInfo {
protected:
    CElementInfoAll(const char16_t* name, const char16_t* ns, int propertyIndex);
    CElementInfoAll(const char16_t* name, const char16_t* ns, int propertyIndex, ItemType itemType,
                    const char16_t* format, CWhitespaceUtils::WhitespaceRule rule,
                    const CPrimitiveRestrictions& restrictions);

    /// The verdict on a mandatory record.
    /// \throws CZqValidationException  "Failed to find the mandatory element [%s]"
    bool ValidateMandatory(bool found, bool failIfMissing) const;
};

/// A record of a single element that a program makes up; no record of the library derives from it.
class ZQXMLLIB9_API CElementInfoAllNonCol : public CElementInfoAll {
public:
    CElementInfoAllNonCol(const char16_t* name, const char16_t* ns, int propertyIndex);
};

/// A record that must find its element.
template <typename TKind>
class ZQXMLLIB9_API CElementInfoAllMndOf : public TKind {
public:
    using TKind::TKind;

protected:
    bool Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool found,
                  bool failIfMissing) const override
    {
        return this->ValidateMandatory(found, failIfMissing);
    }
};

/// A record that may do without its element.
template <typename TKind>
class ZQXMLLIB9_API CElementInfoAllOptOf : public TKind {
public:
    using TKind::TKind;

protected:
    bool Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool,
                  bool) const override
    {
        return true;
    }
};

/// A primitive that stands exactly once.
class ZQXMLLIB9_API CElementInfoAllPrimMnd
    : public CElementInfoAllMndOf<CElementInfoPrimOf<CElementInfoAll>> {
public:
    using CElementInfoAllMndOf::CElementInfoAllMndOf;

protected:
    bool Read(const SElementReading& reading) const override;
};

/// A primitive that may be absent.
class ZQXMLLIB9_API CElementInfoAllPrimOpt
    : public CElementInfoAllOptOf<CElementInfoPrimOf<CElementInfoAll>> {
public:
    using CElementInfoAllOptOf::CElementInfoAllOptOf;

protected:
    bool Read(const SElementReading& reading) const override;
};

/// An enumeration that stands exactly once.
class ZQXMLLIB9_API CElementInfoAllEnumMnd
    : public CElementInfoAllMndOf<CElementInfoEnumOf<CElementInfoAll>> {
public:
    using CElementInfoAllMndOf::CElementInfoAllMndOf;

protected:
    bool Read(const SElementReading& reading) const override;
};

/// An enumeration that may be absent.
class ZQXMLLIB9_API CElementInfoAllEnumOpt
    : public CElementInfoAllOptOf<CElementInfoEnumOf<CElementInfoAll>> {
public:
    using CElementInfoAllOptOf::CElementInfoAllOptOf;

protected:
    bool Read(const SElementReading& reading) const override;
};

/// An object that always exists: it is read in place, and no setter runs.
class ZQXMLLIB9_API CElementInfoAllClsMnd : public CElementInfoClsOf<CElementInfoAll> {
public:
    /// \param hasRequiredContent  false: an element may be absent all the same
    CElementInfoAllClsMnd(const char16_t* name, const char16_t* ns, int propertyIndex,
                          XmlElementType elementType, ClassFactory factory, int classId,
                          bool hasRequiredContent);

protected:
    bool Read(const SElementReading& reading) const override;
    bool Validate(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                  bool found, bool failIfMissing) const override;

private:
    bool m_hasRequiredContent;
};

/// An object that may be absent: it is made when its element stands there, and stored once read.
class ZQXMLLIB9_API CElementInfoAllClsOpt
    : public CElementInfoAllOptOf<CElementInfoClsOf<CElementInfoAll>> {
public:
    using CElementInfoAllOptOf::CElementInfoAllOptOf;

protected:
    bool Read(const SElementReading& reading) const override;
};

/// An object that stands exactly once, and whose class the element decides.
class ZQXMLLIB9_API CElementInfoAllAbsClsMnd
    : public CElementInfoAllMndOf<CElementInfoAbsClsOf<CElementInfoAll>> {
public:
    /// \param reserved  kept by generated code; nothing reads it
    CElementInfoAllAbsClsMnd(const char16_t* name, const char16_t* ns, int propertyIndex,
                             XmlElementType elementType, ElementFactory factory, int reserved);

protected:
    /// \throws CZqException  always: such a class can be written, but not read
    bool Read(const SElementReading& reading) const override;

private:
    [[maybe_unused]] int m_reserved;
};

/// An object that may be absent, and whose class the element decides.
class ZQXMLLIB9_API CElementInfoAllAbsClsOpt
    : public CElementInfoAllOptOf<CElementInfoAbsClsOf<CElementInfoAll>> {
public:
    using CElementInfoAllOptOf::CElementInfoAllOptOf;

protected:
    /// \throws CZqException  always: such a class can be written, but not read
    bool Read(const SElementReading& reading) const override;
};

/// An open element that always exists: it is read in place.
class ZQXMLLIB9_API CElementInfoAllUntpdMnd
    : public CElementInfoAllMndOf<CElementInfoUntpdOf<CElementInfoAll>> {
public:
    using CElementInfoAllMndOf::CElementInfoAllMndOf;

protected:
    bool Read(const SElementReading& reading) const override;
};

/// An open element that may be absent.
class ZQXMLLIB9_API CElementInfoAllUntpdOpt
    : public CElementInfoAllOptOf<CElementInfoUntpdOf<CElementInfoAll>> {
public:
    using CElementInfoAllOptOf::CElementInfoAllOptOf;

protected:
    bool Read(const SElementReading& reading) const override;
};

/// A collection. The record stays open for all sweeps. It is abstract, as all collections of an all
/// group are: what uses one supplies `Validate`.
class ZQXMLLIB9_API CElementInfoAllCol : public CElementInfoCountedColOf<CElementInfoAll> {
public:
    using CElementInfoCountedColOf::CElementInfoCountedColOf;

protected:
    bool Read(const SElementReading& reading) const override;
};

/// A collection of primitives.
class ZQXMLLIB9_API CElementInfoAllPrimCol : public CElementInfoAllCol {
public:
    using CElementInfoAllCol::CElementInfoAllCol;
};

/// A collection of enumerations, which implements nothing.
class ZQXMLLIB9_API CElementInfoAllEnumCol : public CElementInfoAll {
public:
    CElementInfoAllEnumCol(const char16_t* name, const char16_t* ns, int propertyIndex);
};

/// A collection of objects.
class ZQXMLLIB9_API CElementInfoAllClsCol : public CElementInfoTypedOf<CElementInfoAllCol> {
public:
    CElementInfoAllClsCol(const char16_t* name, const char16_t* ns, int propertyIndex,
                          XmlElementType elementType);
};

/// A collection of objects whose class the element decides.
class ZQXMLLIB9_API CElementInfoAllAbsClsCol : public CElementInfoTypedOf<CElementInfoAllCol> {
public:
    CElementInfoAllAbsClsCol(const char16_t* name, const char16_t* ns, int propertyIndex,
                             XmlElementType elementType);
};

/// A collection of open elements.
class ZQXMLLIB9_API CElementInfoAllUntpdCol : public CElementInfoAllCol {
public:
    using CElementInfoAllCol::CElementInfoAllCol;
};

}  // namespace ZqXmlLib9Data
