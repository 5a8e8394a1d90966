// Settings of a context that touch one another, and the table of namespace aliases.

#include "support/Print.h"

#include <ZqXmlLib9/engine/XmlSerializationContext.h>

namespace ZqXmlLib9 {
namespace {

TEST(Context, IgnoresUnknownOrMissingElements)
{
    CXmlSerializationContext context;
    const std::string both =
        "The parser can only ignore additional elements, or ignore the fact that some required "
        "ones are missing, you can not ignore both\nSet ";
    context.SetIgnoreUnknownElements(true);
    EXPECT_EQ(MessageOf<CZqInvalidStateException>(
                  [&] { context.SetIgnoreMissingMandatoryElements(true); }),
              both
                  + "IgnoreUnknownElements to false before setting "
                    "IgnoreMissingMandatoryElements to true");
    EXPECT_FALSE(context.GetIgnoreMissingMandatoryElements());
    context.SetIgnoreUnknownElements(false);
    context.SetIgnoreMissingMandatoryElements(true);
    EXPECT_EQ(MessageOf<CZqInvalidStateException>([&] { context.SetIgnoreUnknownElements(true); }),
              both
                  + "IgnoreMissingMandatoryElements to false before setting "
                    "IgnoreUnknownElements to true");
    EXPECT_FALSE(context.GetIgnoreUnknownElements());
    for (const int type : {0, 1, 2, 3}) {
        context.SetSchemaType(static_cast<SchemaType>(type));
        EXPECT_EQ(context.GetIgnoreNamespaces(), type == 2) << type;
    }
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
    // In the order of code units: U+10000, whose first unit is D800, stands before U+FF5E.
    for (const char16_t* const uri : {u"\uFF5E", u"\U00010000", u"0"})
        EXPECT_EQ(U8(map.GetAliasFromNamespace(uri)), "");
    EXPECT_EQ(map.GetNamespaceFromAlias(u""), u"0");
    std::u16string order;
    for (int i = 0; i < map.GetNamespaceCount(); ++i)
        order += map.GetNamespaceAt(i) + u"|";
    EXPECT_EQ(U8(order), U8(u"0|2|\U00010000|\uFF5E|"));
    for (const int outside : {-1, 4})
        EXPECT_THROW(map.GetNamespaceAt(outside), CZqInvalidParamException);
}

}  // namespace
}  // namespace ZqXmlLib9
