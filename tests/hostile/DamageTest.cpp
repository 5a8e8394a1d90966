// Documents that are cut or damaged end in an object or a CZqException.

#include "Hostile.h"
#include "gpx/Gpx.h"
#include "orders/Orders.h"

#include <algorithm>

namespace ZqXmlLib9 {
namespace {

/// How much more is tried than usual.
std::size_t GetEffort()
{
    return std::min<std::size_t>(GetScale(), 400);
}

/// Writes an object in one form.
using TWrite = CBinaryData (*)(const CXmlObjectBase&);

template <XmlEncoding encoding, CompressionType wrapper = CompressionType_None>
CBinaryData Text(const CXmlObjectBase& object)
{
    return object.ToXmlStream(true, false, encoding, EOLType_LF, {}, wrapper);
}

CBinaryData FastInfoset(const CXmlObjectBase& object)
{
    return object.ToFastInfosetStream();
}

CBinaryData Typed(const CXmlObjectBase& object)
{
    CXmlSerializationContext context;
    context.GetFIContext().SetEncoding(ItemType_decimal, {1, 1});
    context.GetFIContext().SetEncoding(ItemType_i4, {2, 4});
    context.GetFIContext().SetEncoding(ItemType_r8, {2, 8});
    context.GetFIContext().SetEncoding(ItemType_string, {2, 10});
    return object.ToFastInfosetStream(FInfoDecl_None, context);
}

/// A sample in one form.
struct SSample {
    const char* name;
    bool isGpx;
    TWrite write;
    std::size_t step;  ///< from one cut to the next
};

CSmartPtr<CXmlObjectBase> MakeObject(bool isGpx)
{
    if (isGpx)
        return new Gpx::CGpx();
    return new Orders::COrders();
}

class Sample : public testing::TestWithParam<SSample> {};

TEST_P(Sample, IsRefusedWhereItIsCutAndMayHaveAnyOtherOctet)
{
    const auto& [name, isGpx, write, step] = GetParam();
    const auto canRead = [isGpx = isGpx](std::string_view document) {
        const auto read = [&] { return MakeObject(isGpx)->FromXmlStream(Bytes(document)), ""; };
        return TextOrMessage(read).empty();
    };
    const CSmartPtr<CXmlObjectBase> object = MakeObject(isGpx);
    object->FromXmlFile(isGpx ? u"" EXAMPLES "/gpx/sample.gpx" : u"" EXAMPLES "/orders/orders.xml");
    std::string document = OctetsOf(write(*object));
    ASSERT_TRUE(canRead(document));
    // What stands behind the root isn't needed.
    const std::size_t end = document.find_last_not_of(std::string_view("\n\0\xF0", 3)) + 1;
    for (std::size_t i = 0; i < end; i += std::max<std::size_t>(step / GetEffort(), 1))
        EXPECT_FALSE(canRead(std::string_view(document).substr(0, i))) << i;
    const std::size_t values = std::max<std::size_t>(step * 257 / GetEffort(), 1);
    for (std::size_t i = 0; i < document.size() * 256; i += values) {
        const char whole = std::exchange(document[i / 256], static_cast<char>(i % 256));
        canRead(document);
        document[i / 256] = whole;
    }
}

const SSample kSamples[] = {{"OrdersText", false, Text<XmlEncoding_UTF8>, 5},
                            {"OrdersUtf16", false, Text<XmlEncoding_UTF16>, 9},
                            {"OrdersFastInfoset", false, FastInfoset, 1},
                            {"OrdersTyped", false, Typed, 1},
                            {"OrdersGzip", false, Text<XmlEncoding_UTF8, CompressionType_GZIP>, 1},
                            {"OrdersZlib", false, Text<XmlEncoding_UTF8, CompressionType_ZLIB>, 1},
                            {"GpxText", true, Text<XmlEncoding_UTF8>, 301},
                            {"GpxUtf16", true, Text<XmlEncoding_UTF16>, 601},
                            {"GpxFastInfoset", true, FastInfoset, 397},
                            {"GpxTyped", true, Typed, 397},
                            {"GpxZlib", true, Text<XmlEncoding_UTF8, CompressionType_ZLIB>, 47},
                            {"GpxGzip", true, Text<XmlEncoding_UTF8, CompressionType_GZIP>, 47}};
INSTANTIATE_TEST_SUITE_P(Of, Sample, testing::ValuesIn(kSamples), kRowName);

}  // namespace
}  // namespace ZqXmlLib9
