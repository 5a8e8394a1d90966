// Every allocation of a scenario fails in turn: the outcome is std::bad_alloc or as if nothing had
// failed, what is left is what the docstrings promise, another try succeeds, and nothing leaks.

#include "support/HeapFault.h"
#include "support/Print.h"
#include "support/TempFile.h"

#include <Orders.h>

#include <gtest/gtest.h>

namespace ZqXmlLib9 {
namespace {

using Orders::COrders;
using Run = CHeapFaultRun;

constexpr const char16_t* kText =
    u"<?xml version=\"1.0\"?>\n<orders xmlns=\"urn:example:orders\"><order id=\"1001\" "
    u"status=\"shipped\"><orderDate>2024-03-01T09:15:00Z</orderDate><customer><name>Käthe Öhlmann "
    u"&amp; Söhne</name><address><street>Große Straße 5</street><city>Osnabrück</city>"
    u"<zip>49074</zip><country>DE</country></address></customer><item><sku>BR-0042</sku>"
    u"<description/><quantity>400</quantity>"
    u"<price>123456789012345678901234567890.1234567890123456789</price><weight>0.0021</weight>"
    u"<shipDate>2024-03-04</shipDate></item><tag>wholesale</tag><tag>wholesale</tag></order>"
    u"</orders>";

/// What a tree is, with the default namespace of the orders, with integers of all sizes as octets.
const CXmlSerializationContext& Context()
{
    static CXmlSerializationContext context;
    context.SetDefaultNamespaceURI(Orders::kNamespace);
    context.GetFIContext().SetSuggestedValues();
    return context;
}

CSmartPtr<COrders> Read(const char16_t* text)
{
    const CSmartPtr<COrders> orders = new COrders();
    orders->FromXml(text, Context());
    return orders;
}

std::string Text(const CXmlObjectBase& object)
{
    return U8(object.ToXml(true, false, EOLType_LF, Context()));
}

void WriteText(Run& run)
{
    const CSmartPtr<COrders> orders = Read(kText);
    std::string text;
    run.Try([&] { text = Text(*orders); }, [&] { EXPECT_EQ(text, ""); });
    EXPECT_EQ(text, U8(kText));
}

void ReadText(Run& run)
{
    const CSmartPtr<COrders> orders = Read(kText);
    run.Try([&] { orders->FromXml(kText, Context()); });
    EXPECT_EQ(Text(*orders), U8(kText));
}

using Write = CBinaryData (*)(const COrders&);
constexpr Write kToFastInfoset = [](const COrders& orders) {
    return orders.ToFastInfosetStream(FInfoDecl_None, Context());
};
constexpr Write kToGzip = [](const COrders& orders) {
    return orders.ToXmlStream(true, false, XmlEncoding_UTF16, EOLType_LF, Context(),
                              CompressionType_GZIP);
};

/// The object in octets, and back.
template <Write write, bool isWriting>
void PassOctets(Run& run)
{
    const CSmartPtr<COrders> orders = Read(kText);
    CBinaryData octets;
    if (!isWriting)
        octets = write(*orders);
    run.Try([&] { isWriting ? octets = write(*orders) : (orders->FromXmlStream(octets), octets); });
    orders->FromXmlStream(octets);
    EXPECT_EQ(Text(*orders), U8(kText));
}

/// A message in place of an object: a chain of failures, or none for lack of memory.
void RefuseText(Run& run)
{
    std::u16string text = kText;
    text.replace(text.find(u"400"), 3, u"4x0");
    std::string message;
    run.Try([&] { message = TextOrMessage([&] { return Text(*Read(text.c_str())); }); });
    EXPECT_TRUE(message.starts_with("Failed to process the element [orders]\n")) << message;
    EXPECT_TRUE(message.ends_with("The value [4x0] can not be converted to a ui4")) << message;
}

void LoadFile(Run& run)
{
    const CTempFile file("<a>" + std::string(200'000, 'x') + "</a>");
    const std::u16string name = file.GetName();
    for (const bool isAsync : {true, false}) {
        AsyncFromXmlFile(isAsync);
        CXmlDocument document;
        run.Try([&] { document.Load(name.c_str()); },
                [&] { EXPECT_TRUE(!isAsync || document.GetDocumentElement() == nullptr); });
        EXPECT_EQ(document.GetDocumentElement()->GetText().size(), 200'000u);
    }
}

/// The old content, or none: no part of the new one.
void WriteFile(Run& run)
{
    const CTempFile file("old");
    const std::u16string name = file.GetName();
    const CSmartPtr<COrders> orders = Read(kText);
    for (const bool isAsync : {true, false}) {
        AsyncToXmlFile(isAsync);
        run.Try([&] { orders->ToXmlFile(name.c_str(), false, true); },
                [&] { EXPECT_TRUE(file.GetContent().size() <= 3) << file.GetContent(); });
        EXPECT_EQ(file.GetContent(), U8(orders->ToXml(false, true)));
        std::filesystem::resize_file(file.GetPath(), 3);
    }
    AsyncToXmlFile(false);
}

/// Half of a text is never in a stream.
void FillStream(Run& run)
{
    CTextStream stream(XmlEncoding_UTF8);
    const std::u16string text(10'000, u'x');
    std::string octets;
    run.Try(
        [&] {
            stream.Open();
            stream.WriteString(text);
            octets = OctetsOf(stream.GetEncodedData());
        },
        [&] { EXPECT_EQ(std::u16string(stream.GetText()).size(), stream.GetPendingLength()); });
    EXPECT_TRUE(octets == U8(text));
}

void CloneElement(Run& run)
{
    const CSmartPtr<CElement> element = new CElement(u"");
    element->FromXml(u"<a xmlns='urn:one' b='1'><c>text</c><d xmlns='urn:two'><e/></d></a>");
    CSmartPtr<CElement> copy, clone;
    run.Try([&] {
        copy = new CElement(element.Get(), u"urn:two");
        clone = element->Clone();
        clone->SetText(u"a text that needs memory");
        clone->GetAttributes()->Clone()->Add(u"a", u"a value that needs memory");
    });
    EXPECT_EQ(U8(element->ToXml(false, false)),
              "<AA:a xmlns:AA=\"urn:one\" b=\"1\"><AA:c>text</AA:c><AB:d xmlns:AB=\"urn:two\">"
              "<AB:e/></AB:d></AA:a>");
    EXPECT_EQ(clone->GetChildElements()->GetCount(), 2);
}

void PackOctets(Run& run)
{
    const CBinaryData plain(reinterpret_cast<const unsigned char*>(kText), 1000);
    CBinaryData shared = plain, text, packed = plain;
    run.Try(
        [&] {
            shared.Append(u"more");
            shared[0] = 1;
            text.SetAsBase64(shared.GetAsBase64());
        },
        [&] {
            EXPECT_TRUE(shared == plain || shared.GetLength() == 1008);
            shared = plain;
        });
    EXPECT_EQ(text, shared);
    run.Try([&] { CZqZip::Compress(packed, CompressionType_ZLIB); },
            [&] {
                EXPECT_TRUE(packed == plain || packed == CBinaryData());
                packed = plain;
            });
    const std::span octets = std::as_bytes(std::span(packed.GetData(), packed.GetLength()));
    run.Try([&] { CZqZip::Decompress(octets, text, 1000); }, [&] { EXPECT_EQ(text, shared); });
    EXPECT_EQ(text, plain);
}

struct SScenario {
    const char* name;
    void (*run)(Run&);
};

class WithoutMemory : public testing::TestWithParam<SScenario> {};

TEST_P(WithoutMemory, FailsCleanlyAtEveryAllocation)
{
    FailEveryAllocation(GetParam().run);
}

const SScenario kScenarios[] = {{"WriteText", WriteText},
                                {"ReadText", ReadText},
                                {"WriteFastInfoset", PassOctets<kToFastInfoset, true>},
                                {"ReadFastInfoset", PassOctets<kToFastInfoset, false>},
                                {"WriteGzip", PassOctets<kToGzip, true>},
                                {"ReadGzip", PassOctets<kToGzip, false>},
                                {"RefuseText", RefuseText},
                                {"LoadFile", LoadFile},
                                {"WriteFile", WriteFile},
                                {"FillStream", FillStream},
                                {"CloneElement", CloneElement},
                                {"PackOctets", PackOctets}};
INSTANTIATE_TEST_SUITE_P(Each, WithoutMemory, testing::ValuesIn(kScenarios), kRowName);

}  // namespace
}  // namespace ZqXmlLib9
