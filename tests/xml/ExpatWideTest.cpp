// Surrogate pairs stay whole where the buffers of a parser end.
//
// The pools of Expat begin with 1024 characters. Version 2.5.0 halves a pair of UTF-16 that stands
// astride the end of one, last in its run. So the library feeds it UTF-8, and refuses what is still
// cut: the value of an attribute that refers to an entity.

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/xml/XmlDocument.h>
#include <ZqXmlLib9/xml/XmlElement.h>

#include <gtest/gtest.h>

#include <expat.h>

namespace ZqXmlLib9 {
namespace {

static_assert(sizeof(XML_Char) == sizeof(char16_t));

/// What attribute and text of a document hold, by Expat itself, which gets UTF-8 by octets.
std::u16string Parse(const std::u16string& xml)
{
    std::u16string seen;
    XML_Parser const parser = XML_ParserCreate(nullptr);
    XML_SetUserData(parser, &seen);
    XML_SetStartElementHandler(parser, [](void* text, const XML_Char*, const XML_Char** pair) {
        if (pair[0] != nullptr)
            *static_cast<std::u16string*>(text) = reinterpret_cast<const char16_t*>(pair[1]);
    });
    XML_SetCharacterDataHandler(parser, [](void* text, const XML_Char* more, int length) {
        static_cast<std::u16string*>(text)->append(reinterpret_cast<const char16_t*>(more),
                                                   static_cast<unsigned>(length));
    });
    const std::string octets = ToUtf8(xml);
    for (const char& octet : octets)
        EXPECT_EQ(XML_Parse(parser, &octet, 1, &octet == &octets.back()), XML_STATUS_OK);
    XML_ParserFree(parser);
    return seen;
}

/// The same by the library, or the message of its failure.
template <typename TText>
std::u16string Load(const TText& xml)
{
    CXmlDocument document;
    try {
        document.LoadXml(xml.c_str());
    }
    catch (const CZqException& failure) {
        return failure.GetMessageW();
    }
    const CXmlElement& root = *document.GetDocumentElement();
    return root.GetAttribute(u"n", u"") + root.GetText();
}

TEST(Pairs, StayWholeAroundTheEndOfThePool)
{
    const std::u16string refused =
        u"The value of the attribute [n] can not be read, the parser cut a character";
    for (const auto& [head, tail, mayBeCut] :
         {std::tuple(u"<a>", u"</a>", false),
          {u"<a n='", u"'/>", false},
          {u"<!DOCTYPE a [<!ENTITY e '", u"'>]><a>&e;</a>", false},
          {u"<!DOCTYPE a [<!ENTITY e '", u"'>]><a n='&e;'/>", true},
          {u"<!DOCTYPE a [<!ATTLIST a n CDATA '", u"'>]><a/>", false}}) {
        // What stands in a pool in front of the value is shorter than 14 characters.
        for (std::size_t before = 1010; before < 1027; ++before) {
            for (const auto* end : {u"\U0001F600", u"\U0001F600\U0001F600", u"\U0001F600y"}) {
                const std::u16string value = std::u16string(before, u'x') + end;
                const std::u16string xml = head + value + tail;
                const std::u16string seen = Parse(xml);
                EXPECT_TRUE(mayBeCut || seen == value) << ToUtf8(xml);
                for (const std::u16string& loaded : {Load(xml), Load(ToUtf8(xml))})
                    EXPECT_EQ(loaded, seen == value ? value : refused) << ToUtf8(xml);
            }
        }
    }
}

}  // namespace
}  // namespace ZqXmlLib9
