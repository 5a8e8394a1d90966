/// \file ElementInfoChoice.h
/// The records of child elements of a choice.
///
/// True from `ElementFromXml` says that the record took an element. No record fails because its
/// element is absent, and none scans forward: what the choice as a whole requires is decided by the
/// class.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/metadata/ElementInfoKinds.h>

namespace ZqXmlLib9Data {

/// The base of the records of a choice, which is not validated after its walk.
class ZQXMLLIB9_API CElementInfoChoice : public CElementInfo {
public:
    CElementInfoChoice(const char16_t* name, const char16_t* ns, int propertyIndex);
    CElementInfoChoice(const char16_t* name, const char16_t* ns, int propertyIndex,
                       ItemType itemType, const char16_t* format,
                       CWhitespaceUtils::WhitespaceRule rule,
                       const CPrimitiveRestrictions& restrictions);

protected:
    /// \throws CZqException  "Not implemented, should never be called"
    bool Validate(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                  bool found, bool failIfMissing) const override;
};

/// A primitive.
class ZQXMLLIB9_API CElementInfoChoicePrimOpt : public CElementInfoPrimOf<CElementInfoChoice> {
public:
    using CElementInfoPrimOf::CElementInfoPrimOf;

protected:
    bool Read(const SElementReading& reading) const override;
};

/// An enumeration.
class ZQXMLLIB9_API CElementInfoChoiceEnumOpt : public CElementInfoEnumOf<CElementInfoChoice> {
public:
    using CElementInfoEnumOf::CElementInfoEnumOf;

protected:
    bool Read(const SElementReading& reading) const override;
};

/// An object. It is stored before it is read, so that the selection is made first; a group without
/// a tag that took nothing is unset again. The object may be an empty choice itself.
class ZQXMLLIB9_API CElementInfoChoiceClsOpt : public CElementInfoClsOf<CElementInfoChoice> {
public:
    using CElementInfoClsOf::CElementInfoClsOf;

protected:
    bool Read(const SElementReading& reading) const override;
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                      CXmlWriter* writer) const override;
};

/// An object whose class the element decides. A null of the factory is stored, and declines.
class ZQXMLLIB9_API CElementInfoChoiceAbsClsOpt : public CElementInfoAbsClsOf<CElementInfoChoice> {
public:
    using CElementInfoAbsClsOf::CElementInfoAbsClsOf;

protected:
    bool Read(const SElementReading& reading) const override;
};

/// An open element. One that took nothing unsets the property.
class ZQXMLLIB9_API CElementInfoChoiceUntpdOpt : public CElementInfoUntpdOf<CElementInfoChoice> {
public:
    using CElementInfoUntpdOf::CElementInfoUntpdOf;

protected:
    bool Read(const SElementReading& reading) const override;
};

/// A collection, which takes its whole run of elements as its one turn. An empty one lets the next
/// member have its turn on output, whatever its bounds.
class ZQXMLLIB9_API CElementInfoChoiceCol : public CElementInfoReadingOf<CElementInfoChoice> {
public:
    CElementInfoChoiceCol(const char16_t* name, const char16_t* ns, int propertyIndex);

protected:
    /// \throws CZqValidationException  as `CXmlCollectionBase::ValidateCount`
    bool Read(const SElementReading& reading) const override;
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                      CXmlWriter* writer) const override;

    /// Reads the run of the collection from the cursor on.
    virtual bool ReadItems(const SElementReading& reading, CXmlCollectionBase* collection) const;
};

/// A collection of primitives.
class ZQXMLLIB9_API CElementInfoChoicePrimCol : public CElementInfoChoiceCol {
public:
    using CElementInfoChoiceCol::CElementInfoChoiceCol;
};

/// A collection of enumerations.
class ZQXMLLIB9_API CElementInfoChoiceEnumCol : public CElementInfoChoiceCol {
public:
    using CElementInfoChoiceCol::CElementInfoChoiceCol;
};

/// A collection of objects.
class ZQXMLLIB9_API CElementInfoChoiceClsCol : public CElementInfoTypedOf<CElementInfoChoiceCol> {
public:
    CElementInfoChoiceClsCol(const char16_t* name, const char16_t* ns, int propertyIndex,
                             XmlElementType elementType);
};

/// A collection of objects whose class the element decides.
class ZQXMLLIB9_API CElementInfoChoiceAbsClsCol
    : public CElementInfoTypedOf<CElementInfoChoiceCol> {
public:
    CElementInfoChoiceAbsClsCol(const char16_t* name, const char16_t* ns, int propertyIndex,
                                XmlElementType elementType);
};

/// A collection of open elements.
class ZQXMLLIB9_API CElementInfoChoiceUntpdCol : public CElementInfoChoiceCol {
public:
    using CElementInfoChoiceCol::CElementInfoChoiceCol;

protected:
    bool ReadItems(const SElementReading& reading, CXmlCollectionBase* collection) const override;
};

}  // namespace ZqXmlLib9Data
