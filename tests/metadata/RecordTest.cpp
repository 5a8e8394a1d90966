// How each record of an element reads: what it takes, where it scans, when it fails and stores; and
// what the records of attributes write, leave out and take.

#include "metadata/Grid.h"

#include <map>
#include <sstream>

namespace ZqXmlLib9 {
namespace {

using namespace TestModel;

/// A record of an element e as the first one of a class, and its property before the read.
struct SRecord {
    void (*add)(CClass&);
    ZqVariant (*property)();
};

template <typename TInfo>
constexpr auto kText = [](CClass& c) { c.Text<TInfo>(u"e", 0); };
template <typename TInfo>
constexpr auto kColour = [](CClass& c) { c.Colour<TInfo>(u"e", 0); };
/// A mandatory object, of which content may be required.
template <typename TInfo, XmlElementType type = kTag, bool isRequired = false>
constexpr auto kMnd =
    [](CClass& c) { c.Element<TInfo>(u"e", u"", 0, type, nullptr, 0, isRequired); };
/// An optional object of a class of `MakeByClass`.
template <typename TInfo, XmlElementType type = kTag, int classId = 0>
constexpr auto kOpt = [](CClass& c) { c.Element<TInfo>(u"e", u"", 0, type, MakeByClass, classId); };
template <typename TInfo, int... isRequired>
constexpr auto kAbs =
    [](CClass& c) { c.Element<TInfo>(u"e", u"", 0, kTag, CFactory::Make, isRequired...); };
template <typename TInfo, bool isAny = true>
constexpr auto kOpen =
    [](CClass& c) { c.Element<TInfo>(isAny ? u"AnyElement" : u"e", u"", 0, u"##other", u"urn:t"); };
template <typename TInfo>
constexpr auto kCol = [](CClass& c) { c.Element<TInfo>(u"e", u"", 0, kTag); };
template <typename TInfo, bool isAny = true>
constexpr auto kOpenCol = [](CClass& c) { c.Element<TInfo>(isAny ? u"AnyElement" : u"e", u"", 0); };

/// A collection of an all group, as a program completes it.
class CCompleteCol : public CElementInfoAllClsCol {
public:
    using CElementInfoAllClsCol::CElementInfoAllClsCol;

protected:
    bool Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool,
                  bool) const override
    {
        return true;
    }
};
const std::map<std::string, SRecord> kSequenceRecords{
    {"PrimMnd", {kText<CElementInfoSeqPrimMnd>, kNothing}},
    {"PrimOpt", {kText<CElementInfoSeqPrimOpt>, kNothing}},
    {"EnumMnd", {kColour<CElementInfoSeqEnumMnd>, kNothing}},
    {"EnumOpt", {kColour<CElementInfoSeqEnumOpt>, kNothing}},
    {"ClsMnd", {kMnd<CElementInfoSeqClsMnd>, kItem}},
    {"ClsMndWithoutObject", {kMnd<CElementInfoSeqClsMnd>, kNothing}},
    {"Group", {kMnd<CElementInfoSeqClsMnd, kPseudo>, kGroupObject}},
    {"GroupRequired", {kMnd<CElementInfoSeqClsMnd, kPseudo, true>, kGroupObject}},
    {"ClsOpt", {kOpt<CElementInfoSeqClsOpt>, kNothing}},
    {"GroupOpt", {kOpt<CElementInfoSeqClsOpt, kPseudo, 1>, kNothing}},
    {"AbsMnd", {kAbs<CElementInfoSeqAbsClsMnd>, kNothing}},
    {"AbsOpt", {kAbs<CElementInfoSeqAbsClsOpt>, kNothing}},
    {"AnyMnd", {kOpen<CElementInfoSeqUntpdMnd>, kOpenElement}},
    {"OpenMnd", {kOpen<CElementInfoSeqUntpdMnd, false>, kOpenElement}},
    {"AnyOpt", {kOpen<CElementInfoSeqUntpdOpt>, kNothing}},
    {"Col", {kCol<CElementInfoSeqClsCol>, kItems}},
    {"AnyCol", {kOpenCol<CElementInfoSeqUntpdCol>, kOpenElements}},
    {"OpenCol", {kOpenCol<CElementInfoSeqUntpdCol, false>, kOpenElements}}};
const std::map<std::string, SRecord> kChoiceRecords{
    {"Enum", {kColour<CElementInfoChoiceEnumOpt>, kNothing}},
    {"Cls", {kOpt<CElementInfoChoiceClsOpt>, kNothing}},
    {"StrictChoice", {kOpt<CElementInfoChoiceClsOpt, kTag, 2>, kNothing}},
    {"Group", {kOpt<CElementInfoChoiceClsOpt, kPseudo, 1>, kNothing}},
    {"Abs", {kAbs<CElementInfoChoiceAbsClsOpt>, kNothing}},
    {"Any", {kOpen<CElementInfoChoiceUntpdOpt>, kNothing}},
    {"Open", {kOpen<CElementInfoChoiceUntpdOpt, false>, kNothing}},
    {"Col", {kCol<CElementInfoChoiceClsCol>, kItems}},
    {"OpenCol", {kOpenCol<CElementInfoChoiceUntpdCol, false>, kOpenElements}}};
const std::map<std::string, SRecord> kAllRecords{
    {"PrimMnd", {kText<CElementInfoAllPrimMnd>, kNothing}},
    {"EnumMnd", {kColour<CElementInfoAllEnumMnd>, kNothing}},
    {"EnumOpt", {kColour<CElementInfoAllEnumOpt>, kNothing}},
    {"ClsMnd", {kMnd<CElementInfoAllClsMnd, kTag, true>, kItem}},
    {"ClsMndNotRequired", {kMnd<CElementInfoAllClsMnd>, kItem}},
    {"Group", {kMnd<CElementInfoAllClsMnd, kPseudo>, kGroupObject}},
    {"ClsOpt", {kOpt<CElementInfoAllClsOpt>, kNothing}},
    {"GroupOpt", {kOpt<CElementInfoAllClsOpt, kPseudo, 1>, kNothing}},
    {"AbsMnd", {kAbs<CElementInfoAllAbsClsMnd, 0>, kNothing}},
    {"AbsOpt", {kAbs<CElementInfoAllAbsClsOpt>, kNothing}},
    {"AnyMnd", {kOpen<CElementInfoAllUntpdMnd>, kOpenElement}},
    {"AnyOpt", {kOpen<CElementInfoAllUntpdOpt>, kNothing}},
    {"Col", {kCol<CCompleteCol>, kItems}}};

// A record; flags of the context, "g" in a group without a tag, "o" as the only element; the
// content; the properties of the record and of the element z behind it, or the last message.
const char* const kSequenceRows = R"(
PrimMnd | <e>1</e><z/> | 1 ''
PrimMnd | <z/><e>1</e> | required e
PrimMnd | | required e
PrimMnd | <x/><e>1</e><z/> | required e
PrimMnd | <e>1</e><z/><x/> | left x
PrimMnd | <e>1</e><e>1</e><z/> | required z
PrimMnd | <t:e>1</t:e><z/> | required e
PrimMnd n | <t:e>1</t:e><z/> | 1 ''
PrimMnd u | <x/><e>1</e><x/><z/><x/> | 1 ''
PrimMnd u | <z/><e>1</e> | required z
PrimMnd m | <x/> | left x
PrimMnd m | <z/> | - ''
PrimMnd g | <x/> | left x
PrimMnd ug | <x/><e>1</e><z/> | 1 ''
PrimOpt | <z/> | - ''
PrimOpt u | <x/><e>1</e><z/> | - ''
EnumMnd | <e>blue</e><z/> | #2 ''
EnumMnd u | <x/><e>red</e><z/> | #0 ''
EnumMnd | <e>x</e> | no colour
EnumMnd ug | <x/><e>red</e><z/> | #0 ''
EnumOpt | <z/> | - ''
EnumOpt | <e>green</e><z/> | #1 ''
ClsMnd | <e>1</e><z/> | e(1) ''
ClsMnd u | <x/><e>1</e><z/> | e(1) ''
ClsMnd m | <z/> | item('') ''
ClsMnd g | <x/> | left x
ClsMndWithoutObject | <e/> | The property of the element [e] has no object to read into
Group | <a>1</a><b>2</b><z/> | group(1 2) ''
Group | <z/> | group() ''
GroupRequired | <z/> | required e
GroupRequired g | <x/> | left x
ClsOpt | <e>1</e><z/> | e(1) ''
ClsOpt u | <x/><e>1</e><z/> | - ''
GroupOpt | <a>1</a><b>2</b><z/> | group(1 2) ''
GroupOpt | <a>1</a><z/> | required z
GroupOpt | <z/> | - ''
AbsMnd | <e i:type='t:Item'>1</e><z/> | e(1) ''
AbsMnd u | <e/><z/> | Failed to find a suitable substitution element for [e]
AbsMnd u | <x/><e i:type='t:Item'/><z/> | Failed to find a suitable substitution element for [e]
AbsMnd m | <z/> | Failed to find a suitable substitution element for [e]
AbsMnd g | <e/> | left e
AbsOpt | <e i:type='t:Item'>1</e><z/> | e(1) ''
AbsOpt | <e/><z/> | required z
AnyMnd | <q xmlns='urn:q'/><z/> | <q> ''
OpenMnd | <q/> | Failed to find the required element from namespace []
AnyMnd | <q xmlns='urn:t'/> | Failed to find the required element from namespace []
AnyMnd g | <x xmlns='urn:t'/> | left x
OpenMnd g | | required e
AnyOpt | <q xmlns='urn:q'/><z/> | <q> ''
AnyOpt | <z xmlns='urn:t'/> | required z
AnyOpt m | | - -
Col | <e/><e/><z/> | [2] ''
Col | <z/> | The Minimum number of [e] elements allowed in this collection is 1
Col | <e/><e/><e/><z/> | The Maximum number of [e] elements allowed in this collection is 2
Col g | <e/><e/><e/><z/> | left e
AnyCol m | <q/><z/> | [2] -
OpenCol | <e/><e xmlns='urn:q'/><z/> | required z
OpenCol | | The Minimum number of [] elements allowed in this collection is 1
)";
const char* const kChoiceRows = R"(
Enum | <e>blue</e> | #2 -
Enum | <z>1</z> | - 1
Enum | <e>blue</e><x/> | left x
Enum u | <x/><e>blue</e><x/> | #2 -
Cls | <e>1</e> | e(1) -
StrictChoice | <e/> | e([0]) -
Group | <a>1</a><b>2</b> | group(1 2) -
Group | <z>1</z> | null 1
Abs | <e i:type='t:Item'>1</e> | e(1) -
Abs | <e/> | left e
Any | <q/> | <q> -
Any | <z xmlns='urn:t'/> | left z
Open | <z>1</z> | null 1
Any | | - -
Col | <e/><e/> | [2] -
Col | <e/><z/><e/> | left z
Col | <e/><e/><e/> | The Maximum number of [e] elements allowed in this collection is 2
Col g | <e/><e/><e/> | left e
Col o | <e/><e/> | [2] -
Col o | | none r
Col o | <x/> | none r
Col oc | | [0] -
Col oc | <x/> | left x
Col ou | <x/> | none r
OpenCol | <z>1</z> | [0] 1
)";
const char* const kAllRows = R"(
PrimMnd | <z/><e>1</e> | 1 ''
PrimMnd | <z/><z/><e>1</e> | mandatory e
PrimMnd | <z/><e>1</e><x/> | left x
PrimMnd u | <z/><x/><e>1</e> | mandatory e
PrimMnd u | <z/><e>1</e><x/> | 1 ''
EnumMnd | <z/><e>red</e> | #0 ''
EnumMnd m | <z/> | mandatory e
ClsMnd | <z/><e>1</e> | e(1) ''
ClsMnd | | mandatory e
ClsMndNotRequired | | item('') -
ClsMndNotRequired g | <z/> | left z
Group | <z/><a>1</a><b>2</b> | group(1 2) ''
Group | <z/> | mandatory e
ClsOpt | <z/><e>1</e> | e(1) ''
GroupOpt | <z/><a>1</a><b>2</b> | group(1 2) ''
GroupOpt | <z/> | - ''
AnyMnd | <q/><z/> | <q> ''
AnyMnd | | mandatory AnyElement
AnyOpt | <z/> | <z> -
Col | <e/><z/><e/> | [2] ''
AbsMnd | <z/> | unfinished CElementInfoAllAbsClsMnd
AbsOpt | <z/> | unfinished CElementInfoAllAbsClsOpt
AbsMnd | | mandatory e
)";

/// Reads a content into a class of this group with the record as its first one and an element z
/// behind it. Tells the properties, or the last message.
std::string Read(XmlElementGroupType group, const SRecord& record, const std::string& flags,
                 const std::string& content)
{
    const auto has = [&](char flag) { return flags.find(flag) != std::string::npos; };
    CClass type(Info(group, has('g') ? kPseudo : kTag), u"urn:parent");
    record.add(type);
    if (group == kSequence)
        type.Text(u"z", 1);
    else if (group == kAll)
        type.Text<CElementInfoAllPrimOpt>(u"z", 1);
    else if (!has('o'))
        type.Text<CElementInfoChoicePrimOpt>(u"z", 1);
    CClass outer(Info());
    outer.Child(u"group", 0, kPseudo);
    const CSmartPtr<CCustom> object = new CCustom(type, u"r");
    (*object)[0] = record.property();
    const CSmartPtr<CCustom> root = has('g') ? new CCustom(outer) : object;
    if (has('g'))
        (*root)[0] = ObjectValue(object.Get());
    CCustom::s_log.clear();
    const std::string xml = "<r xmlns:t='urn:t' " XSI ">" + content + "</r>";
    const std::string failure = ReadOrFail(*root, xml, flags);
    return failure.empty() ? Describe((*object)[0]) + " " + Describe((*object)[1])
                           : failure.substr(failure.rfind('\n') + 1);
}

TEST(Record, ReadsAsItsCellSays)
{
    for (const auto& [group, records, rows] :
         {std::tuple(kSequence, &kSequenceRecords, kSequenceRows),
          {kChoice, &kChoiceRecords, kChoiceRows},
          {kAll, &kAllRecords, kAllRows}}) {
        std::istringstream lines(rows);
        for (std::string line; std::getline(lines, line);) {
            if (line.empty())
                continue;
            const std::size_t first = line.find('|'), second = line.find('|', first + 1);
            std::istringstream words(line.substr(0, first));
            std::string name, flags;
            words >> name >> flags;
            const std::string content = line.substr(first + 1, second - first - 1);
            EXPECT_EQ(Read(group, records->at(name), flags, content),
                      Expand(line.substr(second + 2)))
                << line;
        }
    }
}

TEST(Record, StoresWhenItsKindDoes)
{
    for (const auto& [group, record, flags, content, log] :
         {std::tuple(kSequence, kSequenceRecords.at("ClsOpt"), "", "<e>1</e><z/>",
                     "r init; item init; e set 0; r set 0; r set 1; "),
          {kSequence, kSequenceRecords.at("ClsMnd"), "", "<e>1</e><z/>",
           "r init; item init; e set 0; r set 1; "},
          {kChoice, kChoiceRecords.at("Cls"), "", "<e>1</e>",
           "r init; r set 0; item init; e set 0; "},
          {kChoice, kChoiceRecords.at("Group"), "", "", "r init; "},
          {kChoice, kChoiceRecords.at("Group"), "u", "<x/>",
           "r init; r set 0; group init; r set 0; "},
          {kChoice, kChoiceRecords.at("Abs"), "u", "<e/>", "r init; r set 0; "},
          {kAll, kAllRecords.at("ClsOpt"), "", "<e>1</e>",
           "r init; item init; e set 0; r set 0; "}}) {
        Read(group, record, flags, content);
        EXPECT_EQ(CCustom::s_log, log);
    }
}

TEST(Record, WritesAnEmptyChoiceBelowAChoiceAndWhatItCanNotRead)
{
    CClass choice(Info(kChoice)), sequence(Info()), all(Info(kAll));
    kOpt<CElementInfoChoiceClsOpt, kTag, 2>(choice);
    sequence.Child(u"strict", 0);
    kAbs<CElementInfoAllAbsClsMnd, 0>(all);
    const auto write = [](CClass& type, const CSmartPtr<CXmlObjectBase>& value) {
        return U8(CSmartPtr<CCustom>(new CCustom(type, u"r", {ObjectValue(value.Get())}))
                      ->ToXml(false, false));
    };
    EXPECT_EQ(write(choice, MakeByClass(2, u"")), "<r><strict/></r>");
    EXPECT_THROW(write(sequence, MakeByClass(2, u"")), CZqValidationException);
    EXPECT_EQ(write(all, new CItem(u"1")), "<r><item>1</item></r>");
}

TEST(Record, TestsTheCountOfACollectionOnOutput)
{
    CClass type(Info());
    kCol<CElementInfoSeqClsCol>(type);
    const CSmartPtr<CCustom> object = new CCustom(type, u"r", {kItems()});
    EXPECT_THROW(object->ToXml(), CZqValidationException);
    CXmlSerializationContext context;
    context.SetIgnoreInvalidCollectionCounts(true);
    EXPECT_EQ(U8(object->ToXml(false, false, EOLType_LF, context)), "<r/>");
}

TEST(TypeName, IsResolvedByTheDocument)
{
    for (const auto& [attribute, type, ns] : {std::tuple("i:type='T'", "T", "urn:e"),
                                              {"i:type='p:T'", "T", "urn:p"},
                                              {"i:type='q:T'", "T", "urn:e"},
                                              {"i:type='p:T:U'", "T:U", "urn:p"},
                                              {"", "", "urn:e"},
                                              {"type='p:T'", "", "urn:e"}}) {
        const std::string xml = "<e xmlns='urn:e' xmlns:p='urn:p' "
                                "xmlns:i='http://www.w3.org/2001/XMLSchema-instance' ";
        CXmlDocument document;
        document.LoadXml((xml + attribute + "/>").c_str());
        const CXmlElement* const root = document.GetDocumentElement();
        EXPECT_EQ(U8(CFactory::GetElementType(root)), type) << attribute;
        EXPECT_EQ(U8(CFactory::GetElementTypeNamespaceUri(root)), ns) << attribute;
    }
}

TEST(Primitive, IsWrittenAsTextOrLeftOut)
{
    for (const auto& [optional, defaultValue, value, leaveOutDefaults, xml] :
         {std::tuple(true, u"d", TextValue(u"v"), true, "<r a=\"v\"/>"),
          {true, u"d", ZqVariant(), false, "<r/>"},
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
        new CCustom(type, u"r", {ZqVariant(), CollectionValue(rest.Get())});
    const char* const xml = "<r own=\"1\" more=\"2\" xmlns:AA=\"urn:o\" AA:far=\"3\"/>";
    EXPECT_EQ(ReadOrFail(*object, xml, ""), "");
    EXPECT_EQ(rest->GetCount(), 2);
    EXPECT_EQ(U8(object->ToXml(false, false)), xml);
    const std::string failed = "Failed to process the element [r]\n";
    EXPECT_EQ(ReadOrFail(*object, "<r xmlns:t='urn:t' t:x='1'/>", ""),
              failed
                  + "Invalid namespace [urn:t]. The namespace must be one of [##other] where "
                    "the target namespace is [urn:t]");
    (*object)[1] = kItems();
    EXPECT_EQ(ReadOrFail(*object, "<r x='1'/>", ""),
              failed
                  + "Serialization Data Error : The collection should be a CAttributeCol, it "
                    "was not!");
}

}  // namespace
}  // namespace ZqXmlLib9
