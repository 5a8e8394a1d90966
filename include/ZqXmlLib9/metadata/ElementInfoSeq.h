/// \file ElementInfoSeq.h
/// The records of child elements of a sequence.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/metadata/ElementInfo.h>

namespace ZqXmlLib9Data {

/// The base of the records of a sequence, which is not validated after its walk.
class ZQXMLLIB9_API CElementInfoSeq : public CElementInfo {
public:
    CElementInfoSeq(const char16_t* name, const char16_t* ns, int propertyIndex);
    CElementInfoSeq(const char16_t* name, const char16_t* ns, int propertyIndex, ItemType itemType,
                    const char16_t* format, CWhitespaceUtils::WhitespaceRule rule,
                    const CPrimitiveRestrictions& restrictions);
    CElementInfoSeq(const CElementInfoSeq&);
    CElementInfoSeq& operator=(const CElementInfoSeq&);
    ~CElementInfoSeq() override;

protected:
    /// \throws CZqException  "Not implemented, should never be called"
    bool Validate(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                  bool found, bool failIfMissing) const override;
};

/// A primitive that stands exactly once.
class ZQXMLLIB9_API CElementInfoSeqPrimMnd : public CElementInfoSeq {
public:
    /// \param format  of the text, see `ZqVariant::ToString`; the pointer is kept, not the text
    CElementInfoSeqPrimMnd(const char16_t* name, const char16_t* ns, int propertyIndex,
                           ItemType itemType, const char16_t* format,
                           CWhitespaceUtils::WhitespaceRule rule,
                           const CPrimitiveRestrictions& restrictions);
    CElementInfoSeqPrimMnd(const CElementInfoSeqPrimMnd&);
    CElementInfoSeqPrimMnd& operator=(const CElementInfoSeqPrimMnd&);
    ~CElementInfoSeqPrimMnd() override;

protected:
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                      CXmlWriter* writer) const override;
    /// Scans past other elements where the context ignores unknown ones. A miss is false in a
    /// class without a tag, and true where missing mandatory elements are ignored.
    /// \throws CZqValidationException  "Failed to find a required element [%s]"
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                        CXmlElement* parent, CXmlElement** cursor, const char16_t* parentNamespace,
                        XmlElementType classElementType) override;
};

}  // namespace ZqXmlLib9Data
