/// \file ElementInfoKinds.h
/// What the records of one kind have in common in all groups: their fields, and how they write.
///
/// A record is a cell of a grid of group (Seq, Choice, All), kind (Prim, Enum, Cls, AbsCls, Untpd)
/// and occurrence (Mnd, Opt, Col). The templates here are the kinds over the group; the concrete
/// records in ElementInfoSeq.h, ElementInfoChoice.h and ElementInfoAll.h add how they read:
///
/// |                     | Seq                       | Choice            | All                 |
/// |---------------------|---------------------------|-------------------|---------------------|
/// | element absent      | Mnd fails, Opt is true    | false             | false, `Validate`   |
/// | the same in a class | Mnd is false              | false             | false, `Validate`   |
/// | without a tag       |                           |                   |                     |
/// | past unknown ones   | Mnd of Prim, Enum, Cls    | never             | never               |
/// | the same in a class | Mnd of Prim               | never             | never               |
/// | without a tag       |                           |                   |                     |
/// | object is stored    | once read; Mnd of Cls and | before it is read | as in Seq           |
/// |                     | Untpd: never              |                   |                     |
/// | Cls, an empty one   | a choice fails            | a choice may be   | a choice fails      |
/// | AbsCls, no class    | Mnd fails, Opt is true    | stores null,      | can't be read       |
/// | fits                |                           | false             |                     |
/// | Col                 | true; in a class without  | whether it took   | false, stays open   |
/// |                     | a tag whether its count   | anything          |                     |
/// |                     | is good                   |                   |                     |
/// | Col, count on output| tested                    | not tested        | tested              |
#pragma once

#include <ZqXmlLib9/Export.h>
#include <ZqXmlLib9/engine/SmartPtr.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/engine/XmlObjectBase.h>
#include <ZqXmlLib9/metadata/ElementInfo.h>

#include <string>

namespace ZqXmlLib9Data {

/// A record that reads by one operation over where the walk stands.
template <typename TGroup>
class ZQXMLLIB9_API CElementInfoReadingOf : public TGroup {
protected:
    using TGroup::TGroup;

    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                        CXmlElement* parent, CXmlElement** cursor, const char16_t* parentNamespace,
                        XmlElementType classElementType) override
    {
        return Read({context, object, parent, cursor, parentNamespace, classElementType});
    }

    /// `ElementFromXml` of the record.
    virtual bool Read(const SElementReading& reading) const = 0;
};

/// A record whose property is an object, or a collection of objects, with a tag or without one.
template <typename TGroup>
class ZQXMLLIB9_API CElementInfoTypedOf : public TGroup {
protected:
    CElementInfoTypedOf(const char16_t* name, const char16_t* ns, int propertyIndex,
                        XmlElementType elementType)
        : TGroup(name, ns, propertyIndex), m_elementType(elementType)
    {}

    /// The attributes of a class without a tag stand on the enclosing tag.
    void PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                   const CXmlGeneratedClass* object,
                                   CXmlWriter* writer) const override
    {
        if (m_elementType != XmlElementType_Pseudo)
            return;
        if (const CSmartPtr<CXmlObjectBase> child = this->ReadObject(object))
            this->AttributesToXml_Int(child.Get(), writer, context);
    }

    bool HasTag() const noexcept { return m_elementType == XmlElementType_Element; }
    bool IsPseudo() const noexcept { return m_elementType == XmlElementType_Pseudo; }

private:
    XmlElementType m_elementType;
};

/// A primitive.
template <typename TGroup>
class ZQXMLLIB9_API CElementInfoPrimOf : public CElementInfoReadingOf<TGroup> {
public:
    /// \param format  of the text, see `ZqVariant::ToString`; the pointer is kept, not the text
    CElementInfoPrimOf(const char16_t* name, const char16_t* ns, int propertyIndex,
                       ItemType itemType, const char16_t* format,
                       CWhitespaceUtils::WhitespaceRule rule,
                       const CPrimitiveRestrictions& restrictions)
        : CElementInfoReadingOf<TGroup>(name, ns, propertyIndex, itemType, format, rule,
                                        restrictions)
    {}

protected:
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                      CXmlWriter* writer) const override
    {
        return this->ElementToXmlPrim(context, object, writer);
    }
};

/// An enumeration: an integer in the object, a word in the document.
template <typename TGroup>
class ZQXMLLIB9_API CElementInfoEnumOf : public CElementInfoReadingOf<TGroup> {
public:
    /// \param fromString  takes the text as it stands, with its white space, and decides what an
    ///                    unknown word means
    CElementInfoEnumOf(const char16_t* name, const char16_t* ns, int propertyIndex,
                       const char16_t* (*toString)(int), int (*fromString)(const char16_t*))
        : CElementInfoReadingOf<TGroup>(name, ns, propertyIndex), m_toString(toString),
          m_fromString(fromString)
    {}

protected:
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                      CXmlWriter* writer) const override
    {
        return this->ElementToXmlEnum(context, object, writer, m_toString);
    }

    void Take(const SElementReading& reading) const { this->TakeEnum(reading, m_fromString); }

private:
    const char16_t* (*m_toString)(int);
    int (*m_fromString)(const char16_t*);
};

/// An object of a generated class.
template <typename TGroup>
class ZQXMLLIB9_API CElementInfoClsOf : public CElementInfoTypedOf<CElementInfoReadingOf<TGroup>> {
public:
    CElementInfoClsOf(const char16_t* name, const char16_t* ns, int propertyIndex,
                      XmlElementType elementType, ClassFactory factory, int classId)
        : CElementInfoTypedOf<CElementInfoReadingOf<TGroup>>(name, ns, propertyIndex, elementType),
          m_factory(factory), m_classId(classId)
    {}

protected:
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                      CXmlWriter* writer) const override
    {
        return this->ElementToXmlCls(context, object, writer, false);
    }

    CSmartPtr<CXmlObjectBase> Make() const { return this->MakeObject(m_factory, m_classId); }

    /// Reads a new object, and stores it if it took anything.
    bool TakeNew(const SElementReading& reading) const
    {
        if (this->HasTag() ? !this->IsHere(reading) : *reading.cursor == nullptr)
            return false;
        const CSmartPtr<CXmlObjectBase> child = Make();
        if (this->HasTag())
            this->ReadElement(reading, child.Get());
        else if (!this->ReadRun(reading, child.Get()))
            return false;
        this->StoreObject(reading, child.Get());
        return true;
    }

private:
    ClassFactory m_factory;
    int m_classId;
};

/// An object whose class the element decides.
template <typename TGroup>
class ZQXMLLIB9_API CElementInfoAbsClsOf
    : public CElementInfoTypedOf<CElementInfoReadingOf<TGroup>> {
public:
    CElementInfoAbsClsOf(const char16_t* name, const char16_t* ns, int propertyIndex,
                         XmlElementType elementType, ElementFactory factory)
        : CElementInfoTypedOf<CElementInfoReadingOf<TGroup>>(name, ns, propertyIndex, elementType),
          m_factory(factory)
    {}

protected:
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                      CXmlWriter* writer) const override
    {
        return this->ElementToXmlCls(context, object, writer, false);
    }

    /// Null if no class fits.
    CSmartPtr<CXmlObjectBase> Make(CXmlElement* element) const { return m_factory(element); }

private:
    ElementFactory m_factory;
};

/// An open element. The element name `AnyElement` stands for xs:any: every name is taken.
template <typename TGroup>
class ZQXMLLIB9_API CElementInfoUntpdOf : public CElementInfoReadingOf<TGroup> {
public:
    /// \param namespaceRestriction  see `CXmlObjectBase::TestNamespace`
    CElementInfoUntpdOf(const char16_t* name, const char16_t* ns, int propertyIndex,
                        const char16_t* namespaceRestriction, const char16_t* targetNamespace)
        : CElementInfoReadingOf<TGroup>(name, ns, propertyIndex),
          m_namespaceRestriction(ZqXmlLib9::TextOrEmpty(namespaceRestriction)),
          m_targetNamespace(ZqXmlLib9::TextOrEmpty(targetNamespace))
    {}

protected:
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                      CXmlWriter* writer) const override
    {
        return this->ElementToXmlCls(context, object, writer, false);
    }

    /// Reads a new open element, and stores it if it took anything.
    bool TakeNew(const SElementReading& reading) const
    {
        if (*reading.cursor == nullptr)
            return false;
        const CSmartPtr<CXmlObjectBase> element =
            this->MakeOpenElement(reading, m_namespaceRestriction, m_targetNamespace);
        const bool taken = this->ReadOpenElement(reading, element.Get());
        if (taken)
            this->StoreObject(reading, element.Get());
        return taken;
    }

private:
    std::u16string m_namespaceRestriction;
    std::u16string m_targetNamespace;
};

/// A collection whose count is tested when it is written.
template <typename TGroup>
class ZQXMLLIB9_API CElementInfoCountedColOf : public CElementInfoReadingOf<TGroup> {
public:
    CElementInfoCountedColOf(const char16_t* name, const char16_t* ns, int propertyIndex)
        : CElementInfoReadingOf<TGroup>(name, ns, propertyIndex)
    {}

protected:
    /// \throws CZqValidationException  as `CXmlCollectionBase::ValidateCount`
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                      CXmlWriter* writer) const override
    {
        this->ValidateCount(context, object);
        return this->ElementToXmlCol(context, object, writer);
    }
};

}  // namespace ZqXmlLib9Data
