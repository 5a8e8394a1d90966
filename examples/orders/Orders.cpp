// The tables of the classes, in the order of the schema.

#include "Orders.h"

namespace Orders {

CTableClass::CTable& CAddress::GetTable() const
{
    static constexpr SProperty properties[] = {
        Element<&CAddress::m_street>(u"street"),
        Element<&CAddress::m_city>(u"city"),
        Element<&CAddress::m_zip>(u"zip"),
        Element<&CAddress::m_country>(u"country"),
    };
    static CTable table(u"Address", kNamespace, properties);
    return table;
}

CTableClass::CTable& CCustomer::GetTable() const
{
    static constexpr SProperty properties[] = {
        Element<&CCustomer::m_name>(u"name"),
        Element<&CCustomer::m_email>(u"email"),
        RequiredChild<&CCustomer::m_address>(u"address"),
    };
    static CTable table(u"Customer", kNamespace, properties);
    return table;
}

CTableClass::CTable& CItem::GetTable() const
{
    static constexpr SProperty properties[] = {
        Element<&CItem::m_sku>(u"sku"),           Element<&CItem::m_description>(u"description"),
        Element<&CItem::m_quantity>(u"quantity"), Element<&CItem::m_price>(u"price"),
        Element<&CItem::m_weight>(u"weight"),     Element<&CItem::m_shipDate, SDate>(u"shipDate"),
    };
    static CTable table(u"Item", kNamespace, properties);
    return table;
}

CTableClass::CTable& COrder::GetTable() const
{
    static constexpr SProperty properties[] = {
        Attribute<&COrder::m_id>(u"id"),
        EnumAttribute<&COrder::m_status, kStatusWords>(u"status"),
        Element<&COrder::m_orderDate>(u"orderDate"),
        RequiredChild<&COrder::m_customer>(u"customer"),
        Children<&COrder::m_items>(u"item", /*minOccurs*/ 1),
        Element<&COrder::m_note>(u"note"),
        Values<&COrder::m_tags>(u"tag"),
    };
    static CTable table(u"Order", kNamespace, properties);
    return table;
}

CDecimal COrder::GetTotal() const
{
    CDecimal total;
    for (const CItem* item : *m_items)
        total += item->m_price * CDecimal(item->m_quantity);
    return total;
}

CTableClass::CTable& COrders::GetTable() const
{
    static constexpr SProperty properties[] = {Children<&COrders::m_orders>(u"order")};
    static CTable table(u"Orders", kNamespace, properties);
    return table;
}

}  // namespace Orders
