// The records of attributes: what is written, what is left out, what is taken.

#include "metadata/Grid.h"

namespace ZqXmlLib9 {
namespace {

using namespace TestModel;

TEST(Primitive, IsWrittenAsTextOrLeftOut)
{
    for (const auto& [optional, defaultValue, value, leaveOutDefaults, xml] :
         {std::tuple(true, u"d", TextValue(u"v"), true, "<r a=\"v\"/>"),
          {true, u"d", Nothing(), false, "<r/>"},
          {true, u"d", TextValue(u"d"), false, "<r a=\"d\"/>"},
          {true, u"d", TextValue(u"d"), true, "<r/>"},
          {true, nullptr, TextValue(u""), true, "<r a=\"\"/>"},
          {false, u"d", TextValue(u"d"), true, "<r a=\"d\"/>"}}) {
        CClass type(Info());
        type.TextAttribute(u"a", 0, optional, defaultValue);
        const CSmartPtr<CCustom> object = new CCustom(type, u"r", {value});
        CXmlSerializationContext context;
        context.SetNoOptionalAttributeDefaultOutput(leaveOutDefaults);
        EXPECT_EQ(U8(object->ToXml(false, false, EOLType_LF, context)), xml);
    }
}

TEST(Enumeration, IsWrittenByItsWordAndReadInAnyIgnoredNamespace)
{
    CClass type(Info()), primitive(Info());
    type.Attribute<CAttributeInfoEnum>(u"e", u"urn:e", 0, false, ColourToString, ColourFromString,
                                       u"green");
    primitive.TextAttribute(u"e", 0, false);
    const CSmartPtr<CCustom> object = new CCustom(type, u"r");
    (*object)[0].SetI4(2);
    EXPECT_EQ(U8(object->ToXml(false, false)), "<r xmlns:AA=\"urn:e\" AA:e=\"blue\"/>");
    EXPECT_NE(ReadOrFail(*object, "<r e='red'/>", ""), "");
    EXPECT_EQ(ReadOrFail(*object, "<r e='red'/>", "n"), "");
    EXPECT_EQ((*object)[0].GetI4(), 0);
    const CSmartPtr<CCustom> other = new CCustom(primitive);
    EXPECT_EQ(ReadOrFail(*other, "<r xmlns:p='urn:p' p:e='1'/>", "n"),
              "Failed to process the element [r]\nUnexpected Attribute [e] found.");
}

TEST(Wildcard, TakesWhatNoOtherRecordTakes)
{
    CClass type(Info());
    type.TextAttribute(u"own", 0, true)
        .Attribute<CAttributeInfoAny>(u"", u"", 1, true, u"##other", u"urn:t", nullptr);
    const CSmartPtr<CAttributeCol> rest = new CAttributeCol(u"", u"##any", u"");
    const CSmartPtr<CCustom> object =
        new CCustom(type, u"r", {Nothing(), CollectionValue(rest.Get())});
    const char* const xml = "<r own=\"1\" more=\"2\" xmlns:AA=\"urn:o\" AA:far=\"3\"/>";
    EXPECT_EQ(ReadOrFail(*object, xml, ""), "");
    EXPECT_EQ(rest->GetCount(), 2);
    EXPECT_EQ(U8(object->ToXml(false, false)), xml);
    const std::string failed = "Failed to process the element [r]\n";
    EXPECT_EQ(ReadOrFail(*object, "<r xmlns:t='urn:t' t:x='1'/>", ""),
              failed
                  + "Invalid namespace [urn:t]. The namespace must be one of [##other] where "
                    "the target namespace is [urn:t]");
    (*object)[1] = Items();
    EXPECT_EQ(ReadOrFail(*object, "<r x='1'/>", ""),
              failed
                  + "Serialization Data Error : The collection should be a CAttributeCol, it "
                    "was not!");
}

}  // namespace
}  // namespace ZqXmlLib9
