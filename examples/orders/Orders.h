// The orders of a shop, as classes in the form of generated code. Source: the schema orders.xsd.
//
// An optional member without a value has no element; mandatory children and collections always
// exist. Objects are for one thread at a time.
#pragma once

#include "../common/TableClass.h"

#include <cstdint>
#include <optional>
#include <string>

namespace Orders {

using namespace Examples;

/// The namespace of the schema and of its elements; its attributes have none.
inline constexpr char16_t kNamespace[] = u"urn:example:orders";

enum Status : std::int32_t {
    Status_New = 0,
    Status_Paid = 1,
    Status_Shipped = 2,
    Status_Cancelled = 3,
};

/// The words of the document, in the order of `Status`.
inline constexpr SWords<4> kStatusWords{u"status", {u"new", u"paid", u"shipped", u"cancelled"}};

class CAddress final : public CTableClass {
public:
    explicit CAddress(const char16_t* elementName = u"address") : CTableClass(elementName)
    {
        Init();
    }

    std::u16string m_street;
    std::u16string m_city;
    std::u16string m_zip;
    std::u16string m_country;

protected:
    CTable& GetTable() const override;
};

class CCustomer final : public CTableClass {
public:
    explicit CCustomer(const char16_t* elementName = u"customer") : CTableClass(elementName)
    {
        Init();
    }

    std::u16string m_name;
    std::optional<std::u16string> m_email;
    CSmartPtr<CAddress> m_address;

protected:
    CTable& GetTable() const override;
};

class CItem final : public CTableClass {
public:
    explicit CItem(const char16_t* elementName = u"item") : CTableClass(elementName) { Init(); }

    std::u16string m_sku;
    std::u16string m_description;
    std::uint32_t m_quantity = 0;
    CDecimal m_price;  ///< of one piece
    std::optional<double> m_weight;
    std::optional<CDateTime> m_shipDate;  ///< a date without a time

protected:
    CTable& GetTable() const override;
};

class COrder final : public CTableClass {
public:
    explicit COrder(const char16_t* elementName = u"order") : CTableClass(elementName) { Init(); }

    /// Price times quantity over all items, exactly.
    CDecimal GetTotal() const;

    std::int32_t m_id = 0;
    std::optional<Status> m_status;
    CDateTime m_orderDate;
    CSmartPtr<CCustomer> m_customer;
    Collection<CItem> m_items;  ///< one at least
    std::optional<std::u16string> m_note;
    CSmartPtr<ZqXmlLib9::CstringCol> m_tags;

protected:
    CTable& GetTable() const override;
};

/// The document.
class COrders final : public CTableClass {
public:
    explicit COrders(const char16_t* elementName = u"orders") : CTableClass(elementName) { Init(); }

    Collection<COrder> m_orders;

protected:
    CTable& GetTable() const override;
};

}  // namespace Orders
