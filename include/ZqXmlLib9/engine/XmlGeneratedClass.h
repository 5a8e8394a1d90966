/// \file XmlGeneratedClass.h
/// The base of generated classes: the walks that write and read an object by its metadata.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/XmlObjectBase.h>
#include <ZqXmlLib9/engine/ZqVariant.h>
#include <ZqXmlLib9/metadata/AttributeInfo.h>
#include <ZqXmlLib9/metadata/ElementInfo.h>
#include <ZqXmlLib9/metadata/ParentElementInfo.h>
#include <ZqXmlLib9/platform/CriticalSection.h>

namespace ZqXmlLib9 {

using ZqXmlLib9Data::CAttributeInfo;
using ZqXmlLib9Data::CElementInfo;
using ZqXmlLib9Data::CParentElementInfo;
using ZqXmlLib9Data::XmlElementType;

/// A class that was made from a schema. It holds no serialisation code: it hands out tables of
/// metadata and one numbered accessor of its properties.
///
/// A derived class supplies, in this order: `GetBase`, `GetTargetNamespace`, `GetNamespace`,
/// `AccessProperty`, `GetClassInfo`, `GetClassElementInfo`, `GetClassAttributeInfo`, `Init`. It
/// sets its element name in its constructors, and inherits `INillable` if its element may be nil.
class ZQXMLLIB9_API CXmlGeneratedClass : public CXmlObjectBase {
public:
    CXmlGeneratedClass();
    CXmlGeneratedClass(const CXmlGeneratedClass&);
    CXmlGeneratedClass& operator=(const CXmlGeneratedClass&);
    ~CXmlGeneratedClass() override;

protected:
    void AttributesToXml_Int(CXmlWriter* writer,
                             const CXmlSerializationContext& context) const override;
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char16_t* namespaceUri,
                   const CXmlSerializationContext& context, bool isOptionalChoice) const override;
    CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* cursor,
                             const CXmlSerializationContext& context,
                             bool isOptionalChoice) override;
    using CXmlObjectBase::AttributesToXml_Int;
    using CXmlObjectBase::FromXml_Int;
    using CXmlObjectBase::ToXml_Int;

    /// Reads or stores a property.
    ///
    /// - primitive: the value in its item type; invalid where an optional one has none
    /// - enumeration: `SetI4`
    /// - class or open element: `SetXmlObject`; null: no value, and in a choice: unset
    /// - collection: `SetXmlCollection` with the collection, which always exists
    ///
    /// \param read  true: put the property into `value`; false: store what `value` holds
    virtual void AccessProperty(int propertyIndex, bool read, ZqVariant& value) = 0;
    /// The record of the class; cheap, since it is asked for many times.
    virtual CParentElementInfo* GetClassInfo() const = 0;
    /// The records of the children in schema order, ended by a null entry; null: no children.
    virtual CElementInfo** GetClassElementInfo() const = 0;
    /// The records of the attributes, ended by a null entry; null: no attributes.
    virtual CAttributeInfo** GetClassAttributeInfo() const = 0;
    /// Prepares the object for reading: mandatory objects and collections exist afterwards, and
    /// optional properties are unset.
    virtual void Init() = 0;

    /// `AccessProperty` of an object that stays as it is.
    void ReadProperty(int propertyIndex, ZqVariant& value) const;

    /// Whether any record of a child takes the element by its name.
    bool IsElementInList(const CXmlSerializationContext& context, CXmlElement* element) const;

    /// Whether a choice may stay empty: it has an optional member, or a collection whose minimum is
    /// 0. Records of other groups count for nothing.
    bool DoesElementContainOptionalElements() const;

    /// Offers the attributes of an element to the records, then has each record say whether it
    /// may do without.
    void ProcessAttributesFromXml(const CXmlSerializationContext& context, CXmlElement* element,
                                  bool failIfUnknown);

    /// One lock for the process, under which generated code builds its metadata on first use. The
    /// library itself never enters it.
    static CZQCriticalSection m_csInit;

    /// Frees the metadata of a class: records made by `new`, in arrays made by `new[]` and ended
    /// by a null entry. Nulls the references; null pointers are passed over.
    static void CleanMetaData(CParentElementInfo*& parent, CElementInfo**& elements,
                              CAttributeInfo**& attributes);

private:
    friend class ZqXmlLib9Data::CAttributeInfo;
    friend class ZqXmlLib9Data::CElementInfo;

    void WriteRootPrologue(CXmlWriter& writer, const CXmlSerializationContext& context) const;
    void WriteContent(CXmlWriter* writer, const CXmlSerializationContext& context,
                      const CParentElementInfo& info, bool isOptionalChoice) const;
    void ProcessElementSeqToXml(const CXmlSerializationContext& context, CElementInfo** infos,
                                CXmlWriter* writer) const;
    void ProcessElementAllToXml(const CXmlSerializationContext& context, CElementInfo** infos,
                                CXmlWriter* writer) const;
    void ProcessElementChoiceToXml(const CXmlSerializationContext& context, CElementInfo** infos,
                                   CXmlWriter* writer, bool isOptionalChoice) const;
    void ProcessAttributesToXml(const CXmlSerializationContext& context, CElementInfo** elements,
                                CAttributeInfo** attributes, CXmlWriter* writer) const;

    CXmlElement* ReadContent(CXmlElement* parent, CXmlElement* cursor,
                             const CXmlSerializationContext& context,
                             const CParentElementInfo& info, bool isOptionalChoice);
    CXmlElement* ProcessElementSeqFromXml(const CXmlSerializationContext& context,
                                          CXmlElement* parent, CXmlElement* cursor,
                                          XmlElementType elementType);
    CXmlElement* ProcessElementAllFromXml(const CXmlSerializationContext& context,
                                          CXmlElement* parent, CXmlElement* cursor,
                                          XmlElementType elementType);
    CXmlElement* ProcessElementChoiceFromXml(const CXmlSerializationContext& context,
                                             CXmlElement* parent, CXmlElement* cursor,
                                             XmlElementType elementType, bool isOptionalChoice);
    void ReadNil(const CXmlAttribute& attribute);
    bool IsNilObject() const;
    int GetClassElementInfoCount() const;
};

}  // namespace ZqXmlLib9
