/// \file ElementInfo.h
/// The base of the records of child elements.
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/SmartPtr.h>
#include <ZqXmlLib9/metadata/MetadataEnums.h>
#include <ZqXmlLib9/types/ItemType.h>
#include <ZqXmlLib9/types/PrimitiveRestrictions.h>
#include <ZqXmlLib9/types/WhitespaceUtils.h>

#include <string>

namespace ZqXmlLib9 {
class CXmlCollectionBase;
class CXmlElement;
class CXmlGeneratedClass;
class CXmlObjectBase;
class CXmlSerializationContext;
class CXmlWriter;
class ZqVariant;
}  // namespace ZqXmlLib9

namespace ZqXmlLib9Data {

using ZqXmlLib9::CPrimitiveRestrictions;
using ZqXmlLib9::CSmartPtr;
using ZqXmlLib9::CWhitespaceUtils;
using ZqXmlLib9::CXmlCollectionBase;
using ZqXmlLib9::CXmlElement;
using ZqXmlLib9::CXmlGeneratedClass;
using ZqXmlLib9::CXmlObjectBase;
using ZqXmlLib9::CXmlSerializationContext;
using ZqXmlLib9::CXmlWriter;
using ZqXmlLib9::ItemType;
using ZqXmlLib9::ZqVariant;

/// Makes the object of a class under an element name; generated code numbers its classes.
using ClassFactory = CSmartPtr<CXmlObjectBase> (*)(int classId, const char16_t* elementName);

/// Makes the object of the class that an element asks for, by its `xsi:type` or its name; null if
/// no class fits. See `CClassfactoryBase`.
using ElementFactory = CSmartPtr<CXmlObjectBase> (*)(CXmlElement* element);

/// Where the walk of a class stands when it offers the cursor to a record.
struct SElementReading {
    const CXmlSerializationContext& context;
    CXmlGeneratedClass* object;
    CXmlElement* parent;
    CXmlElement** cursor;             ///< the next child of `parent` to be taken; may be null
    const char16_t* parentNamespace;  ///< what the class gives as its namespace
    XmlElementType classElementType;

    /// Whether the class has a tag, so that a miss is final.
    bool IsInElement() const noexcept { return classElementType == XmlElementType_Element; }
};

/// One child element of a class: its name, its property, and how it is written, read and tested.
///
/// A record has no state after its construction; all objects of its class and all threads share
/// it. `CXmlGeneratedClass` walks an array of them.
class ZQXMLLIB9_API CElementInfo {
public:
    virtual ~CElementInfo();

    /// Tests a value against the record's facets.
    /// \throws CZqException  the value is outside a facet; or "Cannot CheckRestriction for type: "
    ///         and the value's type where the record has no primitive type
    void CheckRestriction(const ZqVariant& value) const;

protected:
    friend class ZqXmlLib9::CXmlGeneratedClass;

    /// A record without primitive type.
    CElementInfo(const char16_t* name, const char16_t* ns, int propertyIndex);
    /// A record of a primitive type.
    /// \param format  of the text, see `ZqVariant::ToString`; the pointer is kept, not the text
    CElementInfo(const char16_t* name, const char16_t* ns, int propertyIndex, ItemType itemType,
                 const char16_t* format, CWhitespaceUtils::WhitespaceRule rule,
                 const CPrimitiveRestrictions& restrictions);
    CElementInfo(const CElementInfo&);
    CElementInfo& operator=(const CElementInfo&);

    /// \return whether anything was written
    virtual bool ElementToXml(const CXmlSerializationContext& context,
                              const CXmlGeneratedClass* object, CXmlWriter* writer) const = 0;

    /// Takes zero or more elements at the cursor, which may be null, and moves it behind them.
    ///
    /// In a sequence true means that the record is done, also where it was allowed to find
    /// nothing; in a choice and an all group that it took an element.
    /// \param parentNamespace   what the enclosing class gives as its namespace
    /// \param classElementType  how the enclosing class stands in the document
    virtual bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                CXmlElement* parent, CXmlElement** cursor,
                                const char16_t* parentNamespace,
                                XmlElementType classElementType) = 0;

    /// Whether the outcome of the read of an all group is acceptable for this record.
    virtual bool Validate(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                          bool found, bool failIfMissing) const = 0;

    /// Writes the attributes of a child without a tag onto the enclosing tag. Nothing here.
    virtual void PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                           const CXmlGeneratedClass* object,
                                           CXmlWriter* writer) const;

    const std::u16string& GetElementName() const noexcept { return m_elementName; }
    const std::u16string& GetElementNamespace() const noexcept { return m_elementNamespace; }
    int GetPropertyIndex() const noexcept { return m_propertyIndex; }

    void ReadProperty(const CXmlGeneratedClass* object, ZqVariant& value) const;
    void AccessProperty(CXmlGeneratedClass* object, bool read, ZqVariant& value) const;
    void AttributesToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer,
                             const CXmlSerializationContext& context) const;
    CXmlElement* FromXml_Int(CXmlObjectBase* object, CXmlElement* parent, CXmlElement* cursor,
                             const CXmlSerializationContext& context, bool isOptionalChoice) const;

    /// Whether an element is this record's: by its name, and its namespace unless namespaces are
    /// ignored. False for null.
    bool IsThisElement(const CXmlSerializationContext& context, const CXmlElement* element) const;

    /// \name Steps that the families share
    /// @{

    /// Writes a primitive; nothing if the property has no value.
    bool ElementToXmlPrim(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                          CXmlWriter* writer) const;
    bool ElementToXmlPrimOpt(const CXmlSerializationContext& context,
                             const CXmlGeneratedClass* object, CXmlWriter* writer) const;
    /// Writes an enumeration; nothing if the property has no value.
    bool ElementToXmlEnum(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                          CXmlWriter* writer, const char16_t* (*toString)(int)) const;
    bool ElementToXmlEnumOpt(const CXmlSerializationContext& context,
                             const CXmlGeneratedClass* object, CXmlWriter* writer,
                             const char16_t* (*toString)(int)) const;
    /// Writes an object under its own element name; nothing if the property is null.
    bool ElementToXmlCls(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                         CXmlWriter* writer, bool isOptionalChoice) const;

    /// Writes a collection, which writes its items itself; nothing if it is empty.
    bool ElementToXmlCol(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                         CXmlWriter* writer) const;

    /// Tests the count of a collection unless the context ignores counts.
    /// \throws CZqValidationException  as `CXmlCollectionBase::ValidateCount`
    void ValidateCount(const CXmlSerializationContext& context,
                       const CXmlGeneratedClass* object) const;

    /// Whether the element at the cursor is this record's.
    bool IsHere(const SElementReading& reading) const;
    /// Moves the cursor to this record's element, past others where the context ignores unknown
    /// elements: a cursor that finds nothing then ends as null, and else stays.
    bool ScanToThisElement(const SElementReading& reading) const;
    /// Takes the element at the cursor if it is this record's.
    template <typename TTake>
    bool TakeIfHere(const SElementReading& reading, TTake&& take) const
    {
        const bool isHere = IsHere(reading);
        if (isHere)
            take();
        return isHere;
    }

    /// The take step of a primitive: stores the text at the cursor and moves on.
    void TakePrim(const SElementReading& reading) const;
    /// The take step of an enumeration.
    void TakeEnum(const SElementReading& reading, int (*fromString)(const char16_t*)) const;

    /// The object or collection that a property holds; null if it holds none.
    CSmartPtr<CXmlObjectBase> ReadObject(const CXmlGeneratedClass* object) const;
    /// What a property holds that is read into without being set.
    /// \throws CZqInvalidStateException  "The property of the element [%s] has no object to read
    ///         into"
    CXmlObjectBase* RequireObject(const CSmartPtr<CXmlObjectBase>& held) const;
    /// \throws CZqInvalidStateException  the same words
    CSmartPtr<CXmlCollectionBase> RequireCollection(const SElementReading& reading) const;
    /// \param value  null unsets the property
    void StoreObject(const SElementReading& reading, CXmlObjectBase* value) const;
    /// The object that a factory by class makes.
    /// \throws CZqInvalidStateException  "The factory of the element [%s] made no object"
    CSmartPtr<CXmlObjectBase> MakeObject(ClassFactory factory, int classId) const;

    /// Reads an object from the element at the cursor, and moves on.
    void ReadElement(const SElementReading& reading, CXmlObjectBase* child,
                     bool isOptionalChoice = false) const;
    /// Reads an object without a tag, or a collection, from the cursor on.
    /// \return whether it took anything; the cursor then stands behind it
    bool ReadRun(const SElementReading& reading, CXmlObjectBase* child) const;

    /// A new open element for this record.
    CSmartPtr<CXmlObjectBase> MakeOpenElement(const SElementReading& reading,
                                              const std::u16string& restriction,
                                              const std::u16string& targetNamespace) const;
    /// Reads an open element from the cursor, if the name there is this record's; the name
    /// `AnyElement` stands for all. The namespace is the matter of the open element.
    bool ReadOpenElement(const SElementReading& reading, CXmlObjectBase* element) const;
    /// Reads a collection of open elements from the cursor on: all of them for the name
    /// `AnyElement`, else those of this record's name and the namespace at the cursor.
    /// \throws CZqException  "Serialization Data Error : The collection should be a CElementCol, it
    ///         was not!"
    bool ReadOpenElements(const SElementReading& reading, CXmlCollectionBase* elements) const;

    /// The namespace that a new open element has by default under a restriction.
    static std::u16string GetAnyDefaultNamespace(const char16_t* restriction,
                                                 const char16_t* parentNamespace,
                                                 const char16_t* targetNamespace);

    /// \throws CZqValidationException  "Failed to find a required element [%s]"
    [[noreturn]] void ThrowRequired() const;
    /// @}

private:
    std::u16string m_elementName;
    std::u16string m_elementNamespace;
    int m_propertyIndex;
    CPrimitiveRestrictions m_restrictions;
    ItemType m_itemType = ZqXmlLib9::ItemType_invalid;
    const char16_t* m_format = nullptr;
    CWhitespaceUtils::WhitespaceRule m_whitespaceRule = CWhitespaceUtils::WhitespaceRule_None;
    bool m_hasPrimitiveType;
};

}  // namespace ZqXmlLib9Data
