// What the tests of the records share: classes to read, factories, and a way to tell what came out.
#pragma once

#include "model/Custom.h"
#include "support/Print.h"

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

/// A value as text: x, '' for an empty one, #2, name(...), [n], <open>, null, - for none.
inline std::string Describe(const ZqVariant& value)
{
    switch (value.GetTypeAsEnum()) {
    case ZqXmlLib9::ItemType_string:
        return value.GetString().empty() ? "''" : U8(value.GetString());
    case ZqXmlLib9::ItemType_i4: return "#" + std::to_string(value.GetI4());
    case ZqXmlLib9::ItemType_xmlObject: return Describe(value.GetXmlObject().Get());
    case ZqXmlLib9::ItemType_xmlCollection:
        return "[" + std::to_string(value.GetXmlCollection()->GetCount()) + "]";
    default: return "-";
    }
}

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

}  // namespace TestModel
