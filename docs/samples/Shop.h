// The classes of the pages: an order of a shop, in the form of generated code.
#pragma once

#include <ZqXmlLib9/ZqXmlLib9.h>

#include <mutex>
#include <optional>
#include <string>

namespace Shop {

using namespace ZqXmlLib9;
using namespace ZqXmlLib9Data;

inline constexpr const char16_t* kShop = u"urn:shop";

inline constexpr char kOrder[] = R"(<order xmlns="urn:shop">
  <item sku="ABC-1" kind="disc"><title>Oper &amp; Lied</title><price>9.90</price></item>
  <card>4711</card>
</order>)";

/// What all classes of the schema have in common.
class CShopClass : public CXmlGeneratedClass {
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::u16string GetTargetNamespace() const override { return kShop; }
    std::u16string GetNamespace() const override { return kShop; }

protected:
    CElementInfo** GetClassElementInfo() const override { return nullptr; }
    CAttributeInfo** GetClassAttributeInfo() const override { return nullptr; }
};

enum EKind { Kind_Book, Kind_Disc };

inline const char16_t* KindToWord(int kind)
{
    return kind == Kind_Book ? u"book" : u"disc";
}

inline int KindFromWord(const char16_t* word)
{
    for (const int kind : {Kind_Book, Kind_Disc})
        if (std::u16string_view(word) == KindToWord(kind))
            return kind;
    throw CZqInvalidValueException(FormatString(u"The kind [%s] is unknown", word));
}

class CItem : public CShopClass {
public:
    CItem() { SetElementName(u"item"); }

    std::u16string m_title;
    CDecimal m_price;
    std::optional<std::uint16_t> m_count;
    std::u16string m_sku;
    std::optional<EKind> m_kind;

protected:
    void AccessProperty(int index, bool read, ZqVariant& value) override
    {
        if (read)
            GetProperty(index, value);
        else
            SetProperty(index, value);
    }
    void Init() override
    {
        m_title = m_sku = u"";
        m_price = 0;
        m_count.reset();
        m_kind.reset();
    }
    CParentElementInfo* GetClassInfo() const override { return GetMetadata().parent; }
    CElementInfo** GetClassElementInfo() const override { return GetMetadata().elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return GetMetadata().attributes; }

private:
    void GetProperty(int index, ZqVariant& value) const
    {
        switch (index) {
        case 0: value.SetString(m_title); break;
        case 1: value.SetDecimal(m_price); break;
        case 2: m_count ? value.SetUI2(*m_count) : value.SetInvalid(); break;
        case 3: value.SetString(m_sku); break;
        case 4: m_kind ? value.SetI4(*m_kind) : value.SetInvalid(); break;
        }
    }
    void SetProperty(int index, const ZqVariant& value)
    {
        switch (index) {
        case 0: m_title = value.GetString(); break;
        case 1: m_price = value.GetDecimal(); break;
        case 2: m_count = value.GetUI2(); break;
        case 3: m_sku = value.GetString(); break;
        case 4: m_kind = static_cast<EKind>(value.GetI4()); break;
        }
    }

    struct SMetadata {
        CParentElementInfo* parent = nullptr;
        CElementInfo** elements = nullptr;
        CAttributeInfo** attributes = nullptr;

        ~SMetadata() { CleanMetaData(parent, elements, attributes); }
    };

    static const SMetadata& GetMetadata()
    {
        static SMetadata metadata;
        const std::lock_guard lock(m_csInit);
        if (metadata.parent != nullptr)
            return metadata;
        constexpr auto kKeep = CWhitespaceUtils::WhitespaceRule_Preserve;
        constexpr auto kCollapse = CWhitespaceUtils::WhitespaceRule_Collapse;
        CPrimitiveRestrictions notNegative;
        notNegative.m_minInclusive = u"0";
        CPrimitiveRestrictions sku;
        sku.m_pattern = u"[A-Z]{3}-[0-9]+";
        metadata.elements = new CElementInfo*[4]();  // the last one stays null
        metadata.elements[0] =
            new CElementInfoSeqPrimMnd(u"title", kShop, 0, ItemType_string, nullptr, kKeep, {});
        metadata.elements[1] = new CElementInfoSeqPrimMnd(u"price", kShop, 1, ItemType_decimal,
                                                          u"2", kCollapse, notNegative);
        metadata.elements[2] =
            new CElementInfoSeqPrimOpt(u"count", kShop, 2, ItemType_ui2, nullptr, kCollapse, {});
        metadata.attributes = new CAttributeInfo*[3]();
        metadata.attributes[0] = new CAttributeInfoPrimitive(
            u"sku", u"", 3, /*optional*/ false, ItemType_string, nullptr, kCollapse, sku, nullptr);
        metadata.attributes[1] = new CAttributeInfoEnum(u"kind", u"", 4, /*optional*/ true,
                                                        KindToWord, KindFromWord, u"book");
        metadata.parent =
            new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element,
                                   u"itemType", kShop, /*elementTextPropertyIndex*/ -1,
                                   /*failIfAttributeUnknown*/ true, /*hasBaseClasses*/ false);
        return metadata;
    }
};

/// A choice without a tag: `card`, or `due`, a day.
class CPayment : public CShopClass {
public:
    const std::u16string& GetSelected() const { return m_selected; }
    const std::u16string& GetCard() const { return m_card; }
    void SetCard(const std::u16string& number)
    {
        Choice_SetElementValid(true, u"card", m_selected);
        m_card = number;
    }
    const CDateTime& GetDue() const { return m_due; }
    void SetDue(const CDateTime& day)
    {
        Choice_SetElementValid(true, u"due", m_selected);
        m_due = day;
    }

protected:
    void AccessProperty(int index, bool read, ZqVariant& value) override
    {
        if (!read)
            index == 0 ? SetCard(value.GetString()) : SetDue(value.GetDate());
        else if (index == 0 && m_selected == u"card")
            value.SetString(m_card);
        else if (index == 1 && m_selected == u"due")
            value.SetDate(m_due);
        else
            value.SetInvalid();
    }
    void Init() override { m_selected.clear(); }
    CParentElementInfo* GetClassInfo() const override
    {
        static CParentElementInfo info(XmlElementGroupType_Choice, XmlElementType_Pseudo,
                                       u"payment", kShop, -1, false, false);
        return &info;
    }
    CElementInfo** GetClassElementInfo() const override
    {
        constexpr auto kCollapse = CWhitespaceUtils::WhitespaceRule_Collapse;
        static CElementInfoChoicePrimOpt card(u"card", kShop, 0, ItemType_string, nullptr,
                                              kCollapse, {});
        static CElementInfoChoicePrimOpt due(u"due", kShop, 1, ItemType_date, nullptr, kCollapse,
                                             {});
        static CElementInfo* infos[] = {&card, &due, nullptr};
        return infos;
    }

private:
    std::u16string m_selected;
    std::u16string m_card;
    CDateTime m_due;
};

/// An element with text and no children, which may be nil.
class CDelivery : public CShopClass, public INillable {
public:
    CDelivery() { SetElementName(u"delivery"); }

    std::u16string m_text;

    bool IsNil() const override { return m_isNil; }
    void SetNil(bool isNil) override { m_isNil = isNil; }

protected:
    void AccessProperty(int, bool read, ZqVariant& value) override
    {
        if (read)
            value.SetString(m_text);
        else
            m_text = value.GetString();
    }
    void Init() override
    {
        m_text.clear();
        m_isNil = false;
    }
    CParentElementInfo* GetClassInfo() const override
    {
        static CParentElementInfo info(XmlElementGroupType_Sequence, XmlElementType_Element,
                                       u"deliveryType", kShop, /*elementTextPropertyIndex*/ 0, true,
                                       false);
        return &info;
    }

private:
    bool m_isNil = false;
};

/// The root: items, a payment, perhaps a delivery, and what other vocabularies add.
class COrder : public CShopClass {
public:
    COrder()
    {
        SetElementName(u"order");
        COrder::Init();
    }

    CSmartPtr<CXmlObjectCollection<CItem>> m_items;
    CSmartPtr<CPayment> m_payment;
    CSmartPtr<CDelivery> m_delivery;
    CSmartPtr<CElementCol> m_elements;
    CSmartPtr<CAttributeCol> m_attributes;

protected:
    void AccessProperty(int index, bool read, ZqVariant& value) override
    {
        switch (index) {
        case 0: value.SetXmlCollection(m_items.Get()); break;
        case 1: value.SetXmlObject(m_payment.Get()); break;
        case 2:
            if (read)
                value.SetXmlObject(m_delivery.Get());
            else
                m_delivery = dynamic_cast<CDelivery*>(value.GetXmlObject().Get());
            break;
        case 3: value.SetXmlCollection(m_elements.Get()); break;
        case 4: value.SetXmlCollection(m_attributes.Get()); break;
        }
    }
    void Init() override
    {
        m_items = new CXmlObjectCollection<CItem>(u"item", kShop, /*minOccurs*/ 1,
                                                  /*maxOccurs*/ -1);
        m_payment = new CPayment();
        m_delivery = nullptr;
        m_elements = new CElementCol(u"", u"##other", kShop, 0, -1);
        m_attributes = new CAttributeCol(u"", u"##other", kShop);
    }
    CParentElementInfo* GetClassInfo() const override
    {
        static CParentElementInfo info(XmlElementGroupType_Sequence, XmlElementType_Element,
                                       u"orderType", kShop, -1, true, false);
        return &info;
    }
    CElementInfo** GetClassElementInfo() const override
    {
        static CElementInfoSeqClsCol items(u"item", kShop, 0, XmlElementType_Element);
        static CElementInfoSeqClsMnd payment(u"payment", kShop, 1, XmlElementType_Pseudo, Make,
                                             /*classId*/ 0, /*hasRequiredContent*/ true);
        static CElementInfoSeqClsOpt delivery(u"delivery", kShop, 2, XmlElementType_Element, Make,
                                              /*classId*/ 1);
        static CElementInfoSeqUntpdCol rest(u"AnyElement", u"", 3);
        static CElementInfo* infos[] = {&items, &payment, &delivery, &rest, nullptr};
        return infos;
    }
    CAttributeInfo** GetClassAttributeInfo() const override
    {
        static CAttributeInfoAny any(u"AnyAttribute", u"", 4, true, u"##other", kShop, nullptr);
        static CAttributeInfo* infos[] = {&any, nullptr};
        return infos;
    }

private:
    /// The factory of the schema: its classes by number.
    static CSmartPtr<CXmlObjectBase> Make(int classId, const char16_t* elementName)
    {
        CSmartPtr<CXmlObjectBase> made;
        if (classId == 0)
            made = new CPayment();
        else
            made = new CDelivery();
        SetElementName(made.Get(), elementName);
        return made;
    }
};

}  // namespace Shop
