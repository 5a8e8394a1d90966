// Settings of a context that touch one another, and the table of namespace aliases.

#include "support/Print.h"

#include <ZqXmlLib9/engine/XmlSerializationContext.h>

#include <gtest/gtest.h>

namespace ZqXmlLib9 {
namespace {

TEST(Context, IgnoresUnknownOrMissingElements)
{
    CXmlSerializationContext context;
    context.SetIgnoreUnknownElements(true);
    EXPECT_EQ(MessageOf<CZqInvalidStateException>(
                  [&] { context.SetIgnoreMissingMandatoryElements(true); }),
              "The parser can only ignore additional elements, or ignore the fact that some "
              "required ones are missing, you can not ignore both\nSet IgnoreUnknownElements to "
              "false before setting IgnoreMissingMandatoryElements to true");
    EXPECT_FALSE(context.GetIgnoreMissingMandatoryElements());
    context.SetIgnoreUnknownElements(false);
    context.SetIgnoreMissingMandatoryElements(true);
    const std::string message =
        MessageOf<CZqInvalidStateException>([&] { context.SetIgnoreUnknownElements(true); });
    EXPECT_TRUE(message.ends_with("\nSet IgnoreMissingMandatoryElements to false before setting "
                                  "IgnoreUnknownElements to true"));
    EXPECT_FALSE(context.GetIgnoreUnknownElements());
}

TEST(Context, IgnoresTheNamespacesOfASchemaWithoutAny)
{
    CXmlSerializationContext context;
    for (const int type : {0, 1, 2, 3}) {
        context.SetSchemaType(static_cast<SchemaType>(type));
        EXPECT_EQ(context.GetIgnoreNamespaces(), type == 2) << type;
    }
}

TEST(AliasMap, HasOneEntryForEachUriInTheOrderOfCodeUnits)
{
    // By code points, U+FF5E would stand in front of U+10000, whose first unit is D800.
    CNamespaceAliasMap map;
    for (const char16_t* const uri : {u"\uFF5E", u"urn:b", u"", u"\U00010000", u"urn:B", u"urn:b"})
        map.Add(u"x", uri);
    std::u16string order;
    for (int i = 0; i < map.GetNamespaceCount(); ++i)
        order += map.GetNamespaceAt(i) + u"|";
    EXPECT_EQ(U8(order), U8(u"|urn:B|urn:b|\U00010000|\uFF5E|"));
    EXPECT_THROW(map.GetNamespaceAt(-1), CZqInvalidParamException);
    EXPECT_THROW(map.GetNamespaceAt(5), CZqInvalidParamException);
}

TEST(AliasMap, LooksUpBothWaysAndRemembersAUriThatWasAskedFor)
{
    CNamespaceAliasMap map;
    map.Add(u"old", u"2");
    map.Add(u"p", u"2");
    map.Add(u"p", u"1");
    EXPECT_EQ(map.GetNamespaceFromAlias(u"p"), u"1");
    map.RemoveNamespace(u"1");
    EXPECT_EQ(map.GetNamespaceFromAlias(u"p"), u"2");
    EXPECT_EQ(MessageOf([&] { map.GetNamespaceFromAlias(u"old"); }),
              "Namespace alias [old] not found");
    EXPECT_EQ(map.GetAliasFromNamespace(u"2") + map.GetAliasFromNamespace(u"0"), u"p");
    EXPECT_EQ(map.GetNamespaceFromAlias(u""), u"0");
}

}  // namespace
}  // namespace ZqXmlLib9
