#include "Cases.h"
#include "Documents.h"

#include <expat.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iostream>

namespace Bench {
namespace {

using namespace ZqXmlLib9;
using Made = std::shared_ptr<const void>;

template <typename T>
Made Keep(T made)
{
    return std::make_shared<T>(std::move(made));
}

Made ParseOnly(const SData& data)
{
    XML_Parser const parser = XML_ParserCreateNS(nullptr, '|');
    XML_SetElementHandler(
        parser, [](void*, const XML_Char*, const XML_Char**) {}, [](void*, const XML_Char*) {});
    XML_SetCharacterDataHandler(parser, [](void*, const XML_Char*, int) {});
    XML_SetNamespaceDeclHandler(
        parser, [](void*, const XML_Char*, const XML_Char*) {}, [](void*, const XML_Char*) {});
    if (XML_Parse(parser, data.text.data(), static_cast<int>(data.text.size()), 1)
        != XML_STATUS_OK) {
        std::cerr << "The document is not well-formed\n";
        std::abort();
    }
    XML_ParserFree(parser);
    return nullptr;
}

Made ReadTree(const SData& data)
{
    auto document = std::make_shared<CXmlDocument>(data.context);
    document->LoadXmlStream(std::as_bytes(std::span(data.text)));
    return document;
}

template <typename TOctets>
Made Read(const SData& data, const TOctets& octets)
{
    CSmartPtr<Orders::COrders> orders = new Orders::COrders();
    orders->FromXmlStream(octets, data.context);
    return Keep(std::move(orders));
}

CBinaryData WriteUtf8(const SData& data, CompressionType compression)
{
    return data.objects->ToXmlStream(/*writeHeader*/ true, /*format*/ true, XmlEncoding_UTF8,
                                     EOLType_LF, data.context, compression);
}

constexpr SCase kCases[] = {
    {"parser alone", 0, ParseOnly},
    {"text to tree", 0.7, ReadTree},
    {"text to objects", 0.55,
     [](const SData& data) { return Read(data, std::as_bytes(std::span(data.text))); }},
    {"objects to UTF-8", 3,
     [](const SData& data) { return Keep(WriteUtf8(data, CompressionType_None)); }},
    {"objects to wide string", 0,
     [](const SData& data) {
         return Keep(data.objects->ToXml(true, true, EOLType_LF, data.context));
     }},
    {"objects to Fast Infoset", 3,
     [](const SData& data) {
         return Keep(data.objects->ToFastInfosetStream(FInfoDecl_None, data.context));
     }},
    {"Fast Infoset to objects", 2, [](const SData& data) { return Read(data, data.infoset); }},
    {"objects to typed Fast Infoset", 0,
     [](const SData& data) {
         return Keep(data.objects->ToFastInfosetStream(FInfoDecl_None, data.typedContext));
     }},
    {"typed Fast Infoset to objects", 0,
     [](const SData& data) { return Read(data, data.typedInfoset); }},
    {"objects to gzip", 0,
     [](const SData& data) { return Keep(WriteUtf8(data, CompressionType_GZIP)); }},
    {"gzip to objects", 0, [](const SData& data) { return Read(data, data.gzip); }},
};

}  // namespace

SData::SData(std::size_t octets)
    : text(MakeOrders(octets)), elements(CountElements(text)), objects(new Orders::COrders())
{
    context.SetDefaultNamespaceURI(Orders::kNamespace);
    typedContext = context;
    typedContext.GetFIContext().SetSuggestedValues();
    objects->FromXmlStream(std::as_bytes(std::span(text)), context);
    const CBinaryData written = WriteUtf8(*this, CompressionType_None);
    const std::string_view again(reinterpret_cast<const char*>(written.GetData()),
                                 written.GetLength());
    if (again != text) {
        const auto place = std::ranges::mismatch(again, text).in1 - again.begin();
        std::cerr << "What is written differs at " << place << ": "
                  << again.substr(static_cast<std::size_t>(place), 40) << '\n';
        std::abort();
    }
    gzip = WriteUtf8(*this, CompressionType_GZIP);
    infoset = objects->ToFastInfosetStream(FInfoDecl_None, context);
    typedInfoset = objects->ToFastInfosetStream(FInfoDecl_None, typedContext);
}

std::span<const SCase> GetCases()
{
    return kCases;
}

std::vector<SValues> MakeValues()
{
    std::vector<SValues> all{
        {"dateTime", ItemType_datetime, {}},        {"date", ItemType_date, {}},
        {"decimal", ItemType_decimal, {}},          {"int", ItemType_i4, {}},
        {"integer", ItemType_integer, {}},          {"double", ItemType_r8, {}},
        {"base64Binary", ItemType_base64Binary, {}}};
    for (int i = 0; i < 64; ++i) {
        const auto text = [](const std::string& ascii) {
            return std::u16string(ascii.begin(), ascii.end());
        };
        const std::string two = std::to_string(10 + i % 14);
        const std::string date = "20" + two + "-1" + std::to_string(i % 3) + "-" + two;
        const std::string number = std::to_string(std::int64_t{i} * i * 35393 + 17);
        all[0].texts.push_back(text(date + "T" + two + ":" + two + ":" + two + "Z"));
        all[1].texts.push_back(text(date));
        all[2].texts.push_back(text(number + "." + two + "1"));
        all[3].texts.push_back(text(number));
        all[4].texts.push_back(text(number + number + number));
        all[5].texts.push_back(text(number + "." + two + "1"));
        const std::string octets(1024, static_cast<char>(i * 3));
        all[6].texts.push_back(CBinaryData(std::as_bytes(std::span(octets))).GetAsBase64());
    }
    return all;
}

}  // namespace Bench
