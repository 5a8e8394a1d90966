// What the tests of the records share: classes to read, factories, and a way to tell what came out.
#pragma once

#include "model/Custom.h"
#include "support/Print.h"

#include <functional>
#include <string>

namespace TestModel {

/// A group without a tag: a sequence of the elements a and b, both mandatory.
class CGroup : public CCustom {
public:
    CGroup() : CCustom(Type(), u"group") {}

private:
    static CClass& Type()
    {
        static CClass type =
            std::move(CClass(Info(XmlElementGroupType_Sequence, XmlElementType_Pseudo))
                          .Text(u"a", 0)
                          .Text(u"b", 1));
        return type;
    }
};

/// A choice that must not be empty.
class CStrictChoice : public CCustom {
public:
    CStrictChoice() : CCustom(Type(), u"strict", {CollectionValue(new CItemCol(u"i", u"", 1, -1))})
    {}

private:
    static CClass& Type()
    {
        static CClass type =
            std::move(CClass(Info(XmlElementGroupType_Choice))
                          .Element<CElementInfoChoiceClsCol>(u"i", u"", 0, XmlElementType_Element));
        return type;
    }
};

/// By class: 0 an item, 1 a group, 2 a choice that must not be empty.
inline CSmartPtr<CXmlObjectBase> MakeByClass(int classId, const char16_t*)
{
    if (classId == 0)
        return new CItem();
    if (classId == 1)
        return new CGroup();
    return new CStrictChoice();
}

/// By element: an item for the type `Item`, nothing for any other.
class CFactory : public ZqXmlLib9::CClassfactoryBase {
public:
    static CSmartPtr<CXmlObjectBase> Make(CXmlElement* element)
    {
        if (GetElementType(element) != u"Item" || GetElementTypeNamespaceUri(element) != u"urn:t")
            return nullptr;
        return new CItem();
    }
    using CClassfactoryBase::GetElementType;
    using CClassfactoryBase::GetElementTypeNamespaceUri;
};

inline std::string Describe(const ZqVariant& value);

inline std::string Describe(CXmlObjectBase* object)
{
    if (object == nullptr)
        return "null";
    if (auto* const element = dynamic_cast<ZqXmlLib9::CElement*>(object))
        return "<" + U8(element->GetName()) + ">";
    auto* const custom = dynamic_cast<CCustom*>(object);
    std::string text = U8(custom->GetElementName()) + "(";
    for (std::size_t i = 0; i < custom->GetPropertyCount(); ++i)
        if ((*custom)[i].IsValid())
            text += (text.back() == '(' ? "" : " ") + Describe((*custom)[i]);
    return text + ")";
}

/// A value as text: x, #2, name(...), [n], <open>, null.
inline std::string Describe(const ZqVariant& value)
{
    switch (value.GetTypeAsEnum()) {
    case ZqXmlLib9::ItemType_string: return U8(value.GetString());
    case ZqXmlLib9::ItemType_i4: return "#" + std::to_string(value.GetI4());
    case ZqXmlLib9::ItemType_xmlObject: return Describe(value.GetXmlObject().Get());
    case ZqXmlLib9::ItemType_xmlCollection:
        return "[" + std::to_string(value.GetXmlCollection()->GetCount()) + "]";
    default: return "-";
    }
}

/// One record in a class, and what comes of a document.
struct SGridCase {
    const char* name;
    std::function<CClass&(CClass&)> record;
    std::function<ZqVariant()> property;  ///< property 0, before the read
    unsigned flags;                       ///< 1 ignores unknown elements, 2 missing mandatory ones
    bool isInGroup;
    const char* xml;
    const char* outcome;
};

inline ZqVariant Nothing()
{
    return ZqVariant();
}
inline ZqVariant AnItem()
{
    return ObjectValue(new CItem());
}
inline ZqVariant AGroup()
{
    return ObjectValue(new CGroup());
}
inline ZqVariant AnOpenElement()
{
    return ObjectValue(new ZqXmlLib9::CElement(u"e", u"", u"##other", u"urn:t"));
}
inline ZqVariant Items()
{
    return CollectionValue(new CItemCol(u"e", u"", 1, 2));
}
inline ZqVariant OpenElements()
{
    return CollectionValue(new ZqXmlLib9::CElementCol(u"", u"##any", u"", 1, 2));
}

constexpr unsigned kUnknown = 1;
constexpr unsigned kMissing = 2;

/// Reads a document into a class of this group with the record of the case as its first one and,
/// for sequences and all groups, an element z behind it. Tells the properties, or the last message.
inline std::string ReadGrid(const SGridCase& row, XmlElementGroupType group)
{
    CClass type(Info(group, row.isInGroup ? XmlElementType_Pseudo : XmlElementType_Element),
                u"urn:parent");
    row.record(type);
    if (group == XmlElementGroupType_Sequence)
        type.Text(u"z", 1);
    if (group == XmlElementGroupType_All)
        type.Text<CElementInfoAllPrimOpt>(u"z", 1);
    CClass outer(Info());
    outer.Child(u"group", 0, XmlElementType_Pseudo);

    const CSmartPtr<CCustom> object = new CCustom(type, u"r");
    (*object)[0] = row.property();
    CSmartPtr<CCustom> root = object;
    if (row.isInGroup) {
        root = new CCustom(outer);
        (*root)[0] = ObjectValue(object.Get());
    }
    CXmlSerializationContext context;
    context.SetIgnoreUnknownElements((row.flags & kUnknown) != 0);
    context.SetIgnoreMissingMandatoryElements((row.flags & kMissing) != 0);
    CCustom::s_log.clear();
    try {
        root->FromXml(row.xml, context);
    }
    catch (const ZqXmlLib9::CZqException& failure) {
        const std::string chain = failure.GetFullMessageUtf8();
        return chain.substr(chain.rfind('\n') + 1);
    }
    return Describe((*object)[0]) + " " + Describe((*object)[1]);
}

}  // namespace TestModel
