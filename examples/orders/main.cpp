// Reads the orders of a shop, prints their totals, writes them back and reads that again.
//
//     orders [FILE]
//
// Exit code 1, with the chain of messages on standard error, if the file can't be read or doesn't
// follow the schema.

#include "Orders.h"

#include <array>
#include <cstdlib>
#include <exception>
#include <iomanip>
#include <iostream>

namespace {

using namespace ZqXmlLib9;

/// The orders of one status, and what they cost.
struct STotal {
    int orders = 0;
    CDecimal sum;
};

void Print(const char* name, const STotal& total)
{
    std::cout << std::left << std::setw(12) << name << std::right << std::setw(4) << total.orders
              << std::setw(16) << ToUtf8(total.sum.ToString(2)) << '\n';
}

void PrintTotals(const Orders::COrders& orders)
{
    // Behind the statuses stand the orders without one.
    std::array<STotal, Orders::kStatusWords.size() + 1> totals;
    STotal all;
    for (const Orders::COrder* order : *orders.m_orders) {
        const CDecimal sum = order->GetTotal();
        for (STotal* total :
             {&totals.at(order->m_status ? *order->m_status : totals.size() - 1), &all}) {
            ++total->orders;
            total->sum += sum;
        }
    }
    for (std::size_t i = 0; i < Orders::kStatusWords.size(); ++i)
        Print(ToUtf8(Orders::kStatusWords[i]).c_str(), totals[i]);
    Print("no status", totals.back());
    Print("all", all);
}

/// The library tests what it writes: words of enumerations, counts, and facets where a schema has
/// them.
void PrintRefusal(const Orders::COrder& order)
{
    try {
        order.ToXml();
        throw CZqException(u"An order that breaks the schema was written");
    }
    catch (const CZqValidationException& failure) {
        std::cout << "\nRefused:\n" << failure << '\n';
    }
}

void PrintRefusals()
{
    const CSmartPtr<Orders::COrder> order = new Orders::COrder();
    order->m_orderDate = CDateTime::GetTickCount();
    PrintRefusal(*order);
    order->m_status = static_cast<Orders::Status>(7);
    PrintRefusal(*order);
}

void Run(const char* path)
{
    CXmlSerializationContext context;
    context.SetDefaultNamespaceURI(Orders::kNamespace);
    const auto write = [&](const Orders::COrders& orders) {
        return orders.ToXml(/*writeHeader*/ true, /*format*/ true, EOLType_LF, context);
    };

    const CSmartPtr<Orders::COrders> orders = new Orders::COrders();
    orders->FromXmlFile(ToUtf16(path).c_str(), context);
    PrintTotals(*orders);

    const std::u16string text = write(*orders);
    std::cout << "\nWritten back: " << ToUtf8(text).size() << " octets of XML.\n";
    const CSmartPtr<Orders::COrders> again = new Orders::COrders();
    again->FromXml(text.c_str(), context);
    if (write(*again) != text)
        throw CZqException(u"What was read again differs from what was read first");
    std::cout << "Read again: both agree.\n";
    PrintRefusals();
}

}  // namespace

int main(int argc, char** argv)
{
    Register(ZQXMLLIB9_VERSION_MAJOR, ZQXMLLIB9_VERSION_MINOR);
    try {
        Run(argc > 1 ? argv[1] : DEFAULT_DOCUMENT);
    }
    catch (const CZqException& failure) {
        std::cerr << failure << '\n';
        return EXIT_FAILURE;
    }
    catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
