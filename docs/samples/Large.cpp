// What docs/large.md and docs/safety.md show and claim.

#include "Shop.h"

#include "support/Print.h"
#include "support/TempFile.h"

namespace Shop {
namespace {

/// The sum of the prices of all items of a document, one item in memory at a time.
CDecimal SumOfPrices(const char16_t* fileName)
{
    thread_local CDecimal sum;  // a filter is a plain function
    sum = 0;
    const ElementFilter takeItem = [](CXmlElement* element) {
        if (element->GetLocalName() != u"item" || element->GetNamespaceURI() != u"urn:shop")
            return false;  // it stays in the tree
        const CSmartPtr<CItem> item = new CItem();
        item->FromXmlElement(element);
        sum += item->m_price;
        return true;  // it is freed now
    };
    CXmlDocument document(takeItem);
    document.Load(fileName);
    return sum;
}

TEST(Large, ReadsRecordByRecord)
{
    std::string text = "<orders xmlns=\"urn:shop\">";
    for (int i = 0; i < 5000; ++i)
        text += "<item sku=\"ABC-1\"><title>T</title><price>0.10</price></item>";
    const CTempFile file(text + "</orders>");
    AsyncFromXmlFile(true);
    EXPECT_EQ(SumOfPrices(file.GetName().c_str()).ToString(), u"500");
    AsyncFromXmlFile(false);
}

TEST(Safety, TightensTheLimits)
{
    CXmlSerializationContext context;
    context.SetMaxDepth(3);
    context.SetMaxInflatedSize(std::uint64_t{16} << 20);
    context.SetMaxAmplification(10);
    const CSmartPtr<COrder> order = new COrder();
    order->FromXml(kOrder, context);
    const CSmartPtr<CElement> open = new CElement(u"a");
    const auto read = [&] { open->CXmlObjectBase::FromXml("<a><b><c><d/></c></b></a>", context); };
    EXPECT_EQ(MessageOf(read), "The document is nested deeper than 3 levels");
}

}  // namespace
}  // namespace Shop
