// What docs/writing.md and docs/roundtrip.md show and claim.

#include "Shop.h"

#include "support/Print.h"
#include "support/TempFile.h"

namespace Shop {
namespace {

TEST(Writing, UsesThePrefixesOfTheContext)
{
    const CSmartPtr<COrder> order = new COrder();
    const CSmartPtr<CItem> item = order->m_items->AddNew();
    item->m_sku = u"ABC-1";
    item->m_title = u"Oper & Lied";
    item->m_price = CDecimal(u"9.9");
    order->m_payment->SetCard(u"4711");

    EXPECT_EQ(U8(order->ToXml(false, false)).substr(0, 43),
              R"(<AA:order xmlns:AA="urn:shop"><AA:item sku=)");

    CXmlSerializationContext context;
    context.SetDefaultNamespaceURI(u"urn:shop");
    context.GetNamespaceAliases().Add(u"x", u"urn:x");
    const std::u16string text = order->ToXml(true, true, EOLType_LF, context);
    EXPECT_EQ(U8(text), R"(<?xml version="1.0"?>
<order xmlns="urn:shop" xmlns:x="urn:x">
	<item sku="ABC-1">
		<title>Oper &amp; Lied</title>
		<price>9.90</price>
	</item>
	<card>4711</card>
</order>
)");

    const CBinaryData utf16 = order->ToXmlStream(true, true, XmlEncoding_UTF16, EOLType_LF, context,
                                                 CompressionType_GZIP);
    EXPECT_EQ(utf16[0], 0x1F);  // gzip
    const CTempFile file("");
    order->ToXmlFile(file.GetName().c_str());
    EXPECT_EQ(file.GetContent().substr(0, 38), R"(<?xml version="1.0" encoding="UTF-8"?>)");
}

/// A text after it has been written as the title of an item and read again.
std::u16string Again(const std::u16string& title)
{
    const CSmartPtr<CItem> item = new CItem();
    item->m_sku = u"ABC-1";
    item->m_title = title;
    item->FromXml(item->ToXml().c_str());
    return item->m_title;
}

TEST(RoundTrip, LosesWhatThePageSays)
{
    EXPECT_EQ(Again(u"a\r\nb\rc"), u"a\nbc");
    EXPECT_EQ(Again(std::u16string(u"a\0b", 3)), u"a");
    EXPECT_EQ(Again(u"<![CDATA[a]]>b"), u"ab");
    EXPECT_EQ(CDateTimeSpan(0, 0, 0).ToString(), u"P");
    CDateTimeSpan span;
    EXPECT_THROW(span.ParseXSDDuration(span.ToString()), CZqInvalidValueException);
    CBinaryData octets;
    octets.SetAsBase64(u"aGFsbG8*");
    EXPECT_EQ(octets.GetLength(), 0U);

    const CSmartPtr<CElement> mixed = new CElement(u"p");
    mixed->FromXml(u"<p>one<b/>two</p>");
    EXPECT_EQ(mixed->ToXml(false, false), u"<p><b/>onetwo</p>");
    const CSmartPtr<COrder> order = new COrder();
    order->FromXml(R"(<s:order xmlns:s="urn:shop"><s:item sku="ABC-1"><s:title/><s:price>1</s:price>
      </s:item><s:due>2024-05-18</s:due><bare/></s:order>)");
    CXmlSerializationContext context;
    context.SetDefaultNamespaceURI(u"urn:shop");
    const std::u16string text = order->ToXml(false, false, EOLType_LF, context);
    EXPECT_TRUE(text.ends_with(u"<bare/></order>")) << U8(text);
    order->FromXml(text.c_str());
    EXPECT_EQ(order->m_elements->Item(0)->GetNamespace(), u"urn:shop");
}

}  // namespace
}  // namespace Shop
