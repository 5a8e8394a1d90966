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
    return std::min<std::size_t>(GetScale(), 50);
}

enum EForm { Text, Utf16, FastInfoset, Typed, Gzip, Zlib };

/// A sample in one form.
struct SSample {
    std::string name;
    bool isGpx;
    EForm form;
    std::size_t step;  ///< from one cut to the next
};

class Sample : public testing::TestWithParam<SSample> {
protected:
    static CSmartPtr<CXmlObjectBase> MakeObject()
    {
        if (GetParam().isGpx)
            return new Gpx::CGpx();
        return new Orders::COrders();
    }

    static std::string MakeDocument()
    {
        const CSmartPtr<CXmlObjectBase> object = MakeObject();
        object->FromXmlFile(GetParam().isGpx ? u"" EXAMPLES "/gpx/sample.gpx"
                                             : u"" EXAMPLES "/orders/orders.xml");
        CXmlSerializationContext context;
        if (GetParam().form == Typed)
            for (const auto& [type, kind, index] : {std::tuple(ItemType_decimal, 1U, 1U),
                                                    {ItemType_i4, 2U, 4U},
                                                    {ItemType_r8, 2U, 8U},
                                                    {ItemType_string, 2U, 10U}})
                context.GetFIContext().SetEncoding(type, {kind, index});
        if (GetParam().form == FastInfoset || GetParam().form == Typed)
            return ToString(object->ToFastInfosetStream(FInfoDecl_None, context));
        return ToString(object->ToXmlStream(
            true, false, GetParam().form == Utf16 ? XmlEncoding_UTF16 : XmlEncoding_UTF8,
            EOLType_LF, context,
            static_cast<CompressionType>(std::max(GetParam().form - Typed, 0))));
    }

    static bool CanRead(std::string_view document)
    {
        try {
            MakeObject()->FromXmlStream(Octets(document));
            return true;
        }
        catch (const CZqException&) {
            return false;
        }
    }
};

TEST_P(Sample, IsReadWholeAndRefusedWhereItIsCut)
{
    const std::string document = MakeDocument();
    ASSERT_TRUE(CanRead(document));
    // What stands behind the root isn't needed.
    const std::size_t end = document.find_last_not_of(std::string_view("\n\0\xF0", 3)) + 1;
    const std::size_t step = std::max<std::size_t>(GetParam().step / GetEffort(), 1);
    for (std::size_t length = 0; length < end; length += step)
        EXPECT_FALSE(CanRead(std::string_view(document).substr(0, length))) << length;
}

TEST_P(Sample, MayHaveAnyOtherOctetAnywhere)
{
    std::string document = MakeDocument();
    const std::size_t step = std::max<std::size_t>(GetParam().step * 257 / GetEffort(), 1);
    for (std::size_t i = 0; i < document.size() * 256; i += step) {
        const char whole = std::exchange(document[i / 256], static_cast<char>(i % 256));
        CanRead(document);
        document[i / 256] = whole;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Of, Sample,
    testing::Values(SSample{"OrdersText", false, Text, 5}, SSample{"OrdersUtf16", false, Utf16, 9},
                    SSample{"OrdersFastInfoset", false, FastInfoset, 1},
                    SSample{"OrdersTyped", false, Typed, 1}, SSample{"OrdersGzip", false, Gzip, 1},
                    SSample{"OrdersZlib", false, Zlib, 1}, SSample{"GpxText", true, Text, 301},
                    SSample{"GpxFastInfoset", true, FastInfoset, 397},
                    SSample{"GpxGzip", true, Gzip, 47}),
    kRowName);

}  // namespace
}  // namespace ZqXmlLib9
