// Surrogate pairs stay whole where the buffers of a parser end.
//
// The 16-bit build of Expat copies text into pools that begin with 1024 characters and grow. In
// version 2.5.0 a pair of UTF-16 that stands astride the end of one, last in its run of text, loses
// its second half there. So the library feeds it UTF-8, and refuses what is still cut: the value of
// an attribute that refers to an entity.

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/xml/XmlDocument.h>
#include <ZqXmlLib9/xml/XmlElement.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <expat.h>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

namespace ZqXmlLib9 {
namespace {

static_assert(sizeof(XML_Char) == sizeof(char16_t));

const char16_t* Wide(const XML_Char* text)
{
    return reinterpret_cast<const char16_t*>(text);
}

std::string Octets(std::u16string_view text, bool isBigEndian)
{
    std::string octets;
    for (const char16_t unit : text) {
        octets += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
        if (isBigEndian)
            std::swap(octets.end()[-1], octets.end()[-2]);
    }
    return octets;
}

/// What attribute and text of a document hold, by Expat itself, which gets so many octets at a
/// time.
std::u16string Parse(std::string_view octets, std::size_t piece)
{
    std::u16string seen;
    const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(
        XML_ParserCreate(nullptr), XML_ParserFree);
    XML_SetUserData(parser.get(), &seen);
    XML_SetStartElementHandler(
        parser.get(), [](void* userData, const XML_Char*, const XML_Char** attributes) {
            if (attributes[0] != nullptr)
                static_cast<std::u16string*>(userData)->append(Wide(attributes[1]));
        });
    XML_SetCharacterDataHandler(parser.get(), [](void* userData, const XML_Char* text, int length) {
        static_cast<std::u16string*>(userData)->append(Wide(text), static_cast<unsigned>(length));
    });
    for (; !octets.empty(); octets.remove_prefix(std::min(piece, octets.size()))) {
        const std::string_view next = octets.substr(0, piece);
        if (XML_Parse(parser.get(), next.data(), static_cast<int>(next.size()),
                      next.size() == octets.size())
            != XML_STATUS_OK)
            return u"failed";
    }
    return seen;
}

/// The same by the library.
template <typename TLoad>
std::u16string Load(TLoad load)
{
    CXmlDocument document;
    try {
        load(document);
    }
    catch (const CZqException& failure) {
        return failure.GetMessageW();
    }
    const CXmlElement& root = *document.GetDocumentElement();
    return root.GetAttribute(u"n", u"") + root.GetText();
}

std::u16string LoadOctets(const std::u16string& xml, bool isBigEndian)
{
    const std::string octets = Octets(u"\xFEFF" + xml, isBigEndian);
    return Load([&](CXmlDocument& d) { d.LoadXmlStream(std::as_bytes(std::span(octets))); });
}

struct SReader {
    const char* name;
    std::u16string (*read)(const std::u16string& xml);
    std::u16string (*cut)(const std::u16string& value);  ///< what comes of a value that Expat cuts
};

std::u16string WithoutItsEnd(const std::u16string& value)
{
    return value.back() == u'y' ? std::u16string(value).erase(value.size() - 2, 1)
                                : value.substr(0, value.size() - 1);
}

std::u16string Refused(const std::u16string&)
{
    return u"The value of the attribute [n] can not be read, the parser cut a character";
}

const SReader kReaders[] = {
    {"ExpatUtf8", [](const std::u16string& x) { return Parse(ToUtf8(x), std::string::npos); },
     WithoutItsEnd},
    {"ExpatUtf8ByOctets", [](const std::u16string& x) { return Parse(ToUtf8(x), 1); },
     WithoutItsEnd},
    {"DocumentLE", [](const std::u16string& x) { return LoadOctets(x, false); }, Refused},
    {"DocumentBE", [](const std::u16string& x) { return LoadOctets(x, true); }, Refused},
    {"DocumentUtf8",
     [](const std::u16string& x) {
         return Load([&](CXmlDocument& d) { d.LoadXml(ToUtf8(x).c_str()); });
     },
     Refused},
    {"DocumentOfText",
     [](const std::u16string& x) { return Load([&](CXmlDocument& d) { d.LoadXml(x.c_str()); }); },
     Refused},
};

struct SPlace {
    const char* name;
    std::u16string head;
    std::u16string tail;
};

const SPlace kPlaces[] = {
    {"Text", u"<a>", u"</a>"},
    {"Attribute", u"<a n='", u"'/>"},
    {"TextOfAnEntity", u"<!DOCTYPE a [<!ENTITY e '", u"'>]><a>&e;</a>"},
    {"AttributeOfAnEntity", u"<!DOCTYPE a [<!ENTITY e '", u"'>]><a n='&e;'/>"},
    {"AttributeByDefault", u"<!DOCTYPE a [<!ATTLIST a n CDATA '", u"'>]><a/>"},
};

/// Where Expat itself cuts a pair.
constexpr std::string_view kCutPlace = "AttributeOfAnEntity";

class Pairs : public testing::TestWithParam<std::tuple<SReader, SPlace>> {};

TEST_P(Pairs, StayWholeAroundTheEndOfThePool)
{
    const auto& [reader, place] = GetParam();
    // What stands in a pool in front of the value is shorter than 14 characters.
    for (std::size_t before = 1010; before < 1027; ++before) {
        for (const std::u16string_view pairs :
             {u"\U0001F600", u"\U0001F600\U0001F600", u"\U0001F600y"}) {
            const std::u16string value = std::u16string(before, u'x').append(pairs);
            const std::u16string seen = reader.read(place.head + value + place.tail);
            EXPECT_TRUE(seen == value || (place.name == kCutPlace && seen == reader.cut(value)))
                << pairs.size() << " code units behind " << before;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, Pairs,
                         testing::Combine(testing::ValuesIn(kReaders), testing::ValuesIn(kPlaces)),
                         [](const auto& row) {
                             return std::string(std::get<0>(row.param).name)
                                    + std::get<1>(row.param).name;
                         });

}  // namespace
}  // namespace ZqXmlLib9
