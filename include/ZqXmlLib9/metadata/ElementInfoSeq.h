/// \file ElementInfoSeq.h
/// The records of child elements of a sequence.
///
/// True from `ElementFromXml` says that the record is done, also where it was allowed to find
/// nothing. In a class without a tag a miss is false, and the enclosing class judges what remains.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/XmlSerializationContext.h>
#include <ZqXmlLib9/metadata/ElementInfoKinds.h>

namespace ZqXmlLib9Data {

/// The base of the records of a sequence, which is not validated after its walk.
class ZQXMLLIB9_API CElementInfoSeq : public CElementInfo {
public:
    CElementInfoSeq(const char16_t* name, const char16_t* ns, int propertyIndex);
    CElementInfoSeq(const char16_t* name, const char16_t* ns, int propertyIndex, ItemType itemType,
                    const char16_t* format, CWhitespaceUtils::WhitespaceRule rule,
                    const CPrimitiveRestrictions& restrictions);

protected:
    /// \throws CZqException  "Not implemented, should never be called"
    bool Validate(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                  bool found, bool failIfMissing) const override;

    /// Takes the element of a mandatory record. A miss isn't final in a class without a tag, and is
    /// good where missing mandatory elements are ignored.
    /// \param mayScan  past other elements, where the context ignores unknown ones
    /// \throws CZqValidationException  "Failed to find a required element [%s]"
    template <typename TTake>
    bool TakeRequired(const SElementReading& reading, bool mayScan, TTake&& take) const
    {
        if (mayScan ? ScanToThisElement(reading) : IsHere(reading)) {
            take();
            return true;
        }
        if (reading.IsInElement() && !reading.context.GetIgnoreMissingMandatoryElements())
            ThrowRequired();
        return reading.IsInElement();
    }
};

/// A record of a single element that a program makes up; no record of the library derives from it.
class ZQXMLLIB9_API CElementInfoSeqNonCol : public CElementInfoSeq {
public:
    CElementInfoSeqNonCol(const char16_t* name, const char16_t* ns, int propertyIndex);
};

/// A primitive that stands exactly once.
class ZQXMLLIB9_API CElementInfoSeqPrimMnd : public CElementInfoPrimOf<CElementInfoSeq> {
public:
    using CElementInfoPrimOf::CElementInfoPrimOf;

protected:
    /// Scans past other elements where the context ignores unknown ones. A miss is good where
    /// missing mandatory elements are ignored. \throws CZqValidationException  "Failed to find a
    /// required element [%s]"
    bool Read(const SElementReading& reading) const override;
};

/// A primitive that may be absent.
class ZQXMLLIB9_API CElementInfoSeqPrimOpt : public CElementInfoPrimOf<CElementInfoSeq> {
public:
    using CElementInfoPrimOf::CElementInfoPrimOf;

protected:
    bool Read(const SElementReading& reading) const override;
};

/// An enumeration that stands exactly once.
class ZQXMLLIB9_API CElementInfoSeqEnumMnd : public CElementInfoEnumOf<CElementInfoSeq> {
public:
    using CElementInfoEnumOf::CElementInfoEnumOf;

protected:
    /// As a primitive, but that it doesn't scan in a class without a tag.
    /// \throws CZqValidationException  "Failed to find a required element [%s]"
    bool Read(const SElementReading& reading) const override;
};

/// An enumeration that may be absent.
class ZQXMLLIB9_API CElementInfoSeqEnumOpt : public CElementInfoEnumOf<CElementInfoSeq> {
public:
    using CElementInfoEnumOf::CElementInfoEnumOf;

protected:
    bool Read(const SElementReading& reading) const override;
};

/// An object that always exists: it is read in place, and no setter runs.
class ZQXMLLIB9_API CElementInfoSeqClsMnd : public CElementInfoClsOf<CElementInfoSeq> {
public:
    /// \param hasRequiredContent  whether a group without a tag must take an element
    CElementInfoSeqClsMnd(const char16_t* name, const char16_t* ns, int propertyIndex,
                          XmlElementType elementType, ClassFactory factory, int classId,
                          bool hasRequiredContent);

protected:
    /// \throws CZqValidationException  "Failed to find a required element [%s]"
    bool Read(const SElementReading& reading) const override;

private:
    bool ReadGroup(const SElementReading& reading, const CSmartPtr<CXmlObjectBase>& child) const;

    bool m_hasRequiredContent;
};

/// An object that may be absent: it is made when its element stands there, and stored once read.
class ZQXMLLIB9_API CElementInfoSeqClsOpt : public CElementInfoClsOf<CElementInfoSeq> {
public:
    using CElementInfoClsOf::CElementInfoClsOf;

protected:
    bool Read(const SElementReading& reading) const override;
};

/// An object that stands exactly once, and whose class the element decides.
class ZQXMLLIB9_API CElementInfoSeqAbsClsMnd : public CElementInfoAbsClsOf<CElementInfoSeq> {
public:
    using CElementInfoAbsClsOf::CElementInfoAbsClsOf;

protected:
    /// Never scans forward.
    /// \throws CZqValidationException  "Failed to find a suitable substitution element for [%s]"
    bool Read(const SElementReading& reading) const override;
};

/// An object that may be absent, and whose class the element decides.
class ZQXMLLIB9_API CElementInfoSeqAbsClsOpt : public CElementInfoAbsClsOf<CElementInfoSeq> {
public:
    using CElementInfoAbsClsOf::CElementInfoAbsClsOf;

protected:
    bool Read(const SElementReading& reading) const override;
};

/// An open element that always exists: it is read in place.
class ZQXMLLIB9_API CElementInfoSeqUntpdMnd : public CElementInfoUntpdOf<CElementInfoSeq> {
public:
    using CElementInfoUntpdOf::CElementInfoUntpdOf;

protected:
    /// \throws CZqValidationException  "Failed to find a required element [%s]", also in a class
    ///         without a tag; "Failed to find the required element from namespace [%s]"
    bool Read(const SElementReading& reading) const override;
};

/// An open element that may be absent.
class ZQXMLLIB9_API CElementInfoSeqUntpdOpt : public CElementInfoUntpdOf<CElementInfoSeq> {
public:
    using CElementInfoUntpdOf::CElementInfoUntpdOf;

protected:
    bool Read(const SElementReading& reading) const override;
};

/// A collection, which takes its whole run of elements at one go.
class ZQXMLLIB9_API CElementInfoSeqCol : public CElementInfoCountedColOf<CElementInfoSeq> {
public:
    using CElementInfoCountedColOf::CElementInfoCountedColOf;

protected:
    /// \throws CZqValidationException  as `CXmlCollectionBase::ValidateCount`
    bool Read(const SElementReading& reading) const override;

    /// Reads the run of the collection from the cursor on.
    virtual bool ReadItems(const SElementReading& reading, CXmlCollectionBase* collection) const;
};

/// A collection of primitives.
class ZQXMLLIB9_API CElementInfoSeqPrimCol : public CElementInfoSeqCol {
public:
    using CElementInfoSeqCol::CElementInfoSeqCol;
};

/// A collection of enumerations.
class ZQXMLLIB9_API CElementInfoSeqEnumCol : public CElementInfoSeqCol {
public:
    using CElementInfoSeqCol::CElementInfoSeqCol;
};

/// A collection of objects.
class ZQXMLLIB9_API CElementInfoSeqClsCol : public CElementInfoTypedOf<CElementInfoSeqCol> {
public:
    CElementInfoSeqClsCol(const char16_t* name, const char16_t* ns, int propertyIndex,
                          XmlElementType elementType);
};

/// A collection of objects whose class the element decides.
class ZQXMLLIB9_API CElementInfoSeqAbsClsCol : public CElementInfoTypedOf<CElementInfoSeqCol> {
public:
    CElementInfoSeqAbsClsCol(const char16_t* name, const char16_t* ns, int propertyIndex,
                             XmlElementType elementType);
};

/// A collection of open elements.
class ZQXMLLIB9_API CElementInfoSeqUntpdCol : public CElementInfoSeqCol {
public:
    using CElementInfoSeqCol::CElementInfoSeqCol;

protected:
    bool ReadItems(const SElementReading& reading, CXmlCollectionBase* collection) const override;
};

}  // namespace ZqXmlLib9Data
