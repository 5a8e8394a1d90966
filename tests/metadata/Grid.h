// What the tests of the records and of the walk share: classes to read, factories, and ways
// to read and to tell what came out.
#pragma once

#include "model/Custom.h"
#include "support/Print.h"

#include <map>

namespace TestModel {

inline constexpr auto kSequence = XmlElementGroupType_Sequence;
inline constexpr auto kChoice = XmlElementGroupType_Choice;
inline constexpr auto kAll = XmlElementGroupType_All;
inline constexpr auto kTag = XmlElementType_Element;
inline constexpr auto kPseudo = XmlElementType_Pseudo;

/// By class: 0 an item; 1 a group without a tag, a sequence of the elements a and b, both mandatory;
/// 2 a choice that must not be empty.
inline CSmartPtr<CXmlObjectBase> MakeByClass(int classId, const char16_t*)
{
    static CClass group =
        std::move(CClass(Info(XmlElementGroupType_Sequence, XmlElementType_Pseudo))
                      .Text(u"a", 0)
                      .Text(u"b", 1));
    static CClass strict =
        std::move(CClass(Info(XmlElementGroupType_Choice))
                      .Element<CElementInfoChoiceClsCol>(u"i", u"", 0, XmlElementType_Element));
    if (classId == 0)
        return new CItem();
    if (classId == 1)
        return new CCustom(group, u"group");
    return new CCustom(strict, u"strict", {CollectionValue(new CItemCol(u"i", u"", 1, -1))});
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

// What properties hold before a read.
inline const auto kNothing = [] { return ZqVariant(); };
inline const auto kItem = [] { return ObjectValue(new CItem()); };
inline const auto kGroupObject = [] { return ObjectValue(MakeByClass(1, u"").Get()); };
inline const auto kOpenElement = [] {
    return ObjectValue(new ZqXmlLib9::CElement(u"e", u"", u"##other", u"urn:t"));
};
inline const auto kItems = [] { return CollectionValue(new CItemCol(u"e", u"", 1, 2)); };
inline const auto kOpenElements = [] {
    return CollectionValue(new ZqXmlLib9::CElementCol(u"", u"##any", u"", 1, 2));
};

/// Reads a document into an object. "u" ignores unknown elements, "m" missing mandatory ones, "c" a
/// missing choice, "a" unknown attributes, "n" namespaces.
/// \return the chain of messages of a failure
inline std::string ReadOrFail(CCustom& object, const std::string& xml, const std::string& flags)
{
    const auto has = [&](char flag) { return flags.find(flag) != std::string::npos; };
    ZqXmlLib9::CXmlSerializationContext context;
    context.SetIgnoreUnknownElements(has('u'));
    context.SetIgnoreMissingMandatoryElements(has('m'));
    context.SetIgnoreMissingChoice(has('c'));
    context.SetIgnoreUnknownAttributes(has('a'));
    context.SetIgnoreNamespaces(has('n'));
    return TextOrMessage([&] { return object.FromXml(xml.c_str(), context), std::string(); });
}

/// The messages that the tables have by their first word.
inline std::string Expand(const std::string& outcome)
{
    const std::map<std::string, std::pair<std::string, std::string>> kMessages{
        {"left",
         {"Failed read all the elements held within the element [r]. The unexpected element [",
          "] remains un processed"}},
        {"none",
         {"No child elements within the element [",
          "] were populated. The element represents a choice, so one and only one element should "
          "be populated. The element contained no sutable child elements"}},
        {"required", {"Failed to find a required element [", "]"}},
        {"mandatory", {"Failed to find the mandatory element [", "]"}},
        {"unfinished",
         {"", "::ElementFromXml, has not been implemented fully, contact "
              "support@zqxmllib9.example"}}};
    const std::size_t blank = outcome.find(' ');
    const auto message = kMessages.find(outcome.substr(0, blank));
    return message == kMessages.end()
               ? outcome
               : message->second.first + outcome.substr(blank + 1) + message->second.second;
}

#define XSI "xmlns:i='http://www.w3.org/2001/XMLSchema-instance'"

}  // namespace TestModel
