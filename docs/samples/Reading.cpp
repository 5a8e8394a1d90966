// What docs/classes.md and docs/reading.md show and claim.

#include "Shop.h"

#include "support/Print.h"

#include <iostream>

namespace Shop {
namespace {

TEST(Reading, TakesWhatTheClassKnows)
{
    testing::internal::CaptureStdout();
    const CSmartPtr<COrder> order = new COrder();
    order->FromXml(kOrder);
    for (const CItem* item : *order->m_items)
        std::cout << ToUtf8(item->m_title) << ", " << ToUtf8(item->m_price.ToString()) << '\n';
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Oper & Lied, 9.9\n");
    EXPECT_EQ(order->m_payment->GetSelected(), u"card");
    EXPECT_EQ(order->m_items->Item(0)->m_kind, Kind_Disc);
}

TEST(Reading, FailsWithAChain)
{
    testing::internal::CaptureStderr();
    const CSmartPtr<COrder> order = new COrder();
    try {
        order->FromXml(R"(<order xmlns="urn:shop"><item sku="ABC-1"/></order>)");
    }
    catch (const CZqValidationException& failure) {
        std::cerr << failure << '\n';
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Failed to process the element [order]\n"
              "Failed to process the element [item]\n"
              "Failed to find a required element [title]\n");
    EXPECT_EQ(MessageOf([&] { order->FromXml("<order xmlns='urn:shop'>\n<item></order>"); }),
              "mismatched tag at line 2");
}

TEST(Reading, LooksPastWhatItIsToldTo)
{
    constexpr char kLater[] = R"(<order xmlns="urn:shop">
      <item sku="ABC-1" shelf="7"><isbn/><title>A</title><price>1</price><weight/><count>2</count>
      </item>
      <due>2024-05-18</due>
    </order>)";
    CXmlSerializationContext lenient;
    lenient.SetIgnoreUnknownElements(true);
    lenient.SetIgnoreUnknownAttributes(true);
    const CSmartPtr<COrder> order = new COrder();
    order->FromXml(kLater, lenient);
    EXPECT_EQ(order->m_payment->GetDue().ToString(), u"2024-05-18");
    // In front of what is optional, and of a collection, nothing is looked past.
    EXPECT_FALSE(order->m_items->Item(0)->m_count);
    EXPECT_THROW(order->FromXml(kLater), CZqValidationException);
    const auto read = [&] {
        order->FromXml("<order xmlns='urn:shop'><coupon/><item sku='ABC-1'/></order>", lenient);
    };
    EXPECT_EQ(MessageOf<CZqValidationException>(read),
              "Failed to process the element [order]\n"
              "The Minimum number of [item] elements allowed in this collection is 1");
}

TEST(Classes, HaveOneMemberOfAChoice)
{
    const CSmartPtr<COrder> order = new COrder();
    order->m_payment->SetCard(u"4711");
    EXPECT_THROW(order->m_payment->SetDue(CDateTime(2024, 5, 18)), CZqInvalidStateException);
    EXPECT_THROW(order->FromXml("<order xmlns='urn:shop'><item sku='ABC-1'><title/><price>1</price>"
                                "</item></order>"),
                 CZqValidationException);
}

TEST(Classes, TakeNilAndOpenContent)
{
    const CSmartPtr<COrder> order = new COrder();
    order->FromXml(R"(<order xmlns="urn:shop" xmlns:x="urn:x" x:by="Ada">
      <item sku="ABC-1"><title>A</title><price>1</price></item>
      <card>4711</card>
      <delivery xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xsi:nil="true"/>
      <x:wrap colour="red"/>
    </order>)");
    EXPECT_TRUE(order->m_delivery->IsNil());
    const CSmartPtr<CElement> wrap = order->m_elements->Item(0);
    std::cout << ToUtf8(wrap->GetAttributes()->Item(0)->GetValue()) << '\n';
    const CSmartPtr<CElement> tag = order->m_elements->Add(u"tag", u"urn:x");
    tag->SetText(u"fragile");
    EXPECT_EQ(wrap->GetAttributes()->Item(0)->GetValue(), u"red");
    EXPECT_EQ(order->m_attributes->Item(0)->GetValue(), u"Ada");
}

TEST(Classes, AreTestedWhenTheyAreWritten)
{
    const CSmartPtr<COrder> order = new COrder();
    const CSmartPtr<CItem> item = order->m_items->AddNew();
    item->m_sku = u"abc";
    order->m_payment->SetCard(u"4711");
    EXPECT_EQ(MessageOf<CZqValidationException>([&] { order->ToXml(); }),
              "Failed to convert the element [order] to XML\n"
              "Failed to convert the element [item] to XML\n"
              "Failed to convert attributes to XML\n"
              "Invalid Value for sku [abc]");
}

}  // namespace
}  // namespace Shop
