// The records of attributes: what is written, what is left out, what is taken.

#include "metadata/Grid.h"

#include <gtest/gtest.h>

namespace ZqXmlLib9 {
namespace {

using namespace TestModel;

struct SWritten {
    const char* name;
    bool optional;
    const char16_t* defaultValue;
    ZqVariant value;
    bool leaveOutDefaults;
    const char* xml;
};

class Written : public testing::TestWithParam<SWritten> {};

TEST_P(Written, AsTextOrLeftOut)
{
    CClass type(Info());
    type.TextAttribute(u"a", 0, GetParam().optional, GetParam().defaultValue);
    const CSmartPtr<CCustom> object = new CCustom(type, u"r", {GetParam().value});
    CXmlSerializationContext context;
    context.SetNoOptionalAttributeDefaultOutput(GetParam().leaveOutDefaults);
    EXPECT_EQ(U8(object->ToXml(false, false, EOLType_LF, context)), GetParam().xml);
}

INSTANTIATE_TEST_SUITE_P(
    Primitive, Written,
    testing::Values(
        SWritten{"Value", true, u"d", TextValue(u"v"), true, "<r a=\"v\"/>"},
        SWritten{"NoValue", true, u"d", Nothing(), false, "<r/>"},
        SWritten{"Default", true, u"d", TextValue(u"d"), false, "<r a=\"d\"/>"},
        SWritten{"DefaultLeftOut", true, u"d", TextValue(u"d"), true, "<r/>"},
        SWritten{"EmptyDefaultStays", true, nullptr, TextValue(u""), true, "<r a=\"\"/>"},
        SWritten{"RequiredDefaultStays", false, u"d", TextValue(u"d"), true, "<r a=\"d\"/>"}),
    kRowName);

TEST(RequiredAttribute, WithoutAValueFails)
{
    CClass type(Info());
    type.TextAttribute(u"a", 0, false);
    const CSmartPtr<CCustom> object = new CCustom(type, u"r", {Nothing()});
    EXPECT_EQ(MessageOf<CZqValidationException>([&] { object->ToXml(); }),
              "Failed to convert the element [r] to XML\n"
              "Failed to convert attributes to XML\n"
              "Invalid Type 0 to convert to string");
}

CClass& WithEnum(CClass& type)
{
    return type.Attribute<CAttributeInfoEnum>(u"e", u"urn:e", 0, false, ColourToString,
                                              ColourFromString, u"green");
}

TEST(Namespaces, AreIgnoredByEnumerationsAndNotByPrimitives)
{
    CXmlSerializationContext context;
    context.SetIgnoreNamespaces(true);
    CClass enumType(Info());
    WithEnum(enumType);
    const CSmartPtr<CCustom> byEnum = new CCustom(enumType);
    EXPECT_THROW(byEnum->FromXml("<r e='red'/>"), CZqValidationException);
    EXPECT_NO_THROW(byEnum->FromXml("<r e='red'/>", context));
    EXPECT_EQ(Describe((*byEnum)[0]), "#0");

    CClass primType(Info());
    primType.TextAttribute(u"e", 0, false);
    const CSmartPtr<CCustom> byPrim = new CCustom(primType);
    EXPECT_EQ(MessageOf<CZqValidationException>(
                  [&] { byPrim->FromXml("<r xmlns:p='urn:p' p:e='1'/>", context); }),
              "Failed to process the element [r]\nUnexpected Attribute [e] found.");
}

TEST(Enumeration, IsWrittenByItsWord)
{
    CClass type(Info());
    WithEnum(type);
    ZqVariant blue;
    blue.SetI4(2);
    const CSmartPtr<CCustom> object = new CCustom(type, u"r", {blue});
    EXPECT_EQ(U8(object->ToXml(false, false)), "<r xmlns:AA=\"urn:e\" AA:e=\"blue\"/>");
}

CClass& WithAny(CClass& type, const char16_t* restriction)
{
    type.TextAttribute(u"own", 0, true);
    return type.Attribute<CAttributeInfoAny>(u"", u"", 1, true, restriction, u"urn:t", nullptr);
}

TEST(Wildcard, TakesWhatNoOtherRecordTakes)
{
    CClass type(Info());
    WithAny(type, u"##other");
    const CSmartPtr<CAttributeCol> rest = new CAttributeCol(u"", u"##any", u"");
    const CSmartPtr<CCustom> object =
        new CCustom(type, u"r", {Nothing(), CollectionValue(rest.Get())});
    const char* const xml = "<r own=\"1\" more=\"2\" xmlns:AA=\"urn:o\" AA:far=\"3\"/>";
    object->FromXml(xml);
    EXPECT_EQ(rest->GetCount(), 2);
    EXPECT_EQ(U8(object->ToXml(false, false)), xml);
    EXPECT_EQ(
        MessageOf<CZqValidationException>([&] { object->FromXml("<r xmlns:t='urn:t' t:x='1'/>"); }),
        "Failed to process the element [r]\n"
        "Invalid namespace [urn:t]. The namespace must be one of [##other] where the target "
        "namespace is [urn:t]");
}

TEST(Wildcard, NeedsAnAttributeCollection)
{
    CClass type(Info());
    WithAny(type, u"##any");
    const CSmartPtr<CCustom> object = new CCustom(type, u"r", {Nothing(), Items()});
    EXPECT_EQ(MessageOf<CZqValidationException>([&] { object->FromXml("<r x='1'/>"); }),
              "Failed to process the element [r]\n"
              "Serialization Data Error : The collection should be a CAttributeCol, it was not!");
}

}  // namespace
}  // namespace ZqXmlLib9
