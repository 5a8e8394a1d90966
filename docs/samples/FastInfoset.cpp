// What docs/fastinfoset.md shows and claims.

#include "Shop.h"

#include "support/Print.h"

namespace Shop {
namespace {

CSmartPtr<COrder> MakeOrder()
{
    CSmartPtr<COrder> order = new COrder();
    order->FromXml(kOrder);
    return order;
}

TEST(FastInfoset, TakesSettingsOnBothSides)
{
    const CSmartPtr<COrder> order = MakeOrder();
    CXmlSerializationContext context;
    context.GetNamespaceAliases().Add(u"s", u"urn:shop");
    context.GetFIContext().SetSuggestedValues();
    const CBinaryData typed = order->ToFastInfosetStream(FInfoDecl_None, context);
    const CSmartPtr<COrder> again = new COrder();
    again->FromXmlStream(typed);
    EXPECT_EQ(again->ToXml(), order->ToXml());
}

CXmlSerializationContext MakeShared()
{
    CXmlSerializationContext context;
    context.GetNamespaceAliases().Add(u"s", u"urn:shop");
    CFastInfosetContext& settings = context.GetFIContext();
    settings.SetUseGeneratedVocabulary(true);
    settings.SetExternalVocabularyURI(u"urn:shop:vocabulary:1");
    for (const char16_t* name : {u"order", u"item", u"title", u"price", u"card"})
        settings.GetVocabulary()->AddElement(u"s", u"urn:shop", name);
    settings.GetVocabulary()->AddAttribute(u"", u"", u"sku");
    return context;
}

TEST(FastInfoset, SharesAVocabulary)
{
    const CSmartPtr<COrder> order = MakeOrder();
    const CXmlSerializationContext shared = MakeShared();
    const CBinaryData data = order->ToFastInfosetStream(FInfoDecl_None, shared);
    const CSmartPtr<COrder> again = new COrder();
    again->FromXmlStream(data, shared);
    EXPECT_EQ(again->ToXml(), order->ToXml());
    EXPECT_LT(data.GetLength(), order->ToFastInfosetStream().GetLength());
    EXPECT_THROW(again->FromXmlStream(data), CZqException);  // without the vocabulary
}

/// Writes a document of one value.
void WriteValue(const CFastInfosetContext& settings, const char16_t* text, ItemType type)
{
    CBinaryStream stream;
    CFastInfosetWriter writer(&settings, &stream);
    writer.Open();
    writer.WriteDocumentHeader(FInfoDecl_None);
    writer.WriteStartElement(u"e", u"");
    writer.WriteText(text, type);
}

TEST(FastInfoset, RefusesWhatDoesNotFit)
{
    CFastInfosetContext settings;
    settings.SetSuggestedValues();
    EXPECT_THROW(WriteValue(settings, u"PT90M30S", ItemType_duration), CZqException);
    EXPECT_THROW(WriteValue(settings, u"08:00:00.5", ItemType_time), CZqException);
    EXPECT_THROW(WriteValue(settings, u"18446744073709551615", ItemType_ui8), CZqException);
    EXPECT_NO_THROW(WriteValue(settings, u"2024-05-18T08:00:00Z", ItemType_datetime));
    settings.SetEncoding(ItemType_duration, {});
    EXPECT_NO_THROW(WriteValue(settings, u"PT90M30S", ItemType_duration));
}

}  // namespace
}  // namespace Shop
