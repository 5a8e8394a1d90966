// How each record of an element reads: what it takes, where it scans, when it fails and stores.

#include "metadata/Grid.h"

#include <map>
#include <sstream>

namespace ZqXmlLib9 {
namespace {

using namespace TestModel;

constexpr auto kTag = XmlElementType_Element;
constexpr auto kGroup = XmlElementType_Pseudo;
constexpr auto kInSequence = XmlElementGroupType_Sequence;
constexpr auto kInChoice = XmlElementGroupType_Choice;
constexpr auto kInAll = XmlElementGroupType_All;

/// A record of an element e as the first one of a class, and its property before the read.
struct SRecord {
    CClass& (*add)(CClass&);
    ZqVariant (*property)();
};

template <typename TInfo>
CClass& Text(CClass& c)
{
    return c.Text<TInfo>(u"e", 0);
}
template <typename TInfo>
CClass& Colour(CClass& c)
{
    return c.Colour<TInfo>(u"e", 0);
}
/// A mandatory object, of which content may be required.
template <typename TInfo, XmlElementType type = kTag, bool isRequired = false>
CClass& Mnd(CClass& c)
{
    return c.Element<TInfo>(u"e", u"", 0, type, nullptr, 0, isRequired);
}
/// An optional object of a class of `MakeByClass`.
template <typename TInfo, XmlElementType type = kTag, int classId = 0>
CClass& Opt(CClass& c)
{
    return c.Element<TInfo>(u"e", u"", 0, type, MakeByClass, classId);
}
template <typename TInfo, int... isRequired>
CClass& Abs(CClass& c)
{
    return c.Element<TInfo>(u"e", u"", 0, kTag, CFactory::Make, isRequired...);
}
template <typename TInfo, bool isAny = true>
CClass& Open(CClass& c)
{
    return c.Element<TInfo>(isAny ? u"AnyElement" : u"e", u"", 0, u"##other", u"urn:t");
}
template <typename TInfo>
CClass& Col(CClass& c)
{
    return c.Element<TInfo>(u"e", u"", 0, kTag);
}
template <typename TInfo, bool isAny = true>
CClass& OpenCol(CClass& c)
{
    return c.Element<TInfo>(isAny ? u"AnyElement" : u"e", u"", 0);
}

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
template <typename... TInfos>
constexpr bool kAreAbstract = (std::is_abstract_v<TInfos> && ...);
static_assert(kAreAbstract<CElementInfoAllPrimCol, CElementInfoAllCol, CElementInfoAllEnumCol,
                           CElementInfoAllAbsClsCol, CElementInfoAllUntpdCol>);

const std::map<std::string, SRecord> kSequenceRecords{
    {"PrimMnd", {Text<CElementInfoSeqPrimMnd>, Nothing}},
    {"PrimOpt", {Text<CElementInfoSeqPrimOpt>, Nothing}},
    {"EnumMnd", {Colour<CElementInfoSeqEnumMnd>, Nothing}},
    {"EnumOpt", {Colour<CElementInfoSeqEnumOpt>, Nothing}},
    {"ClsMnd", {Mnd<CElementInfoSeqClsMnd>, AnItem}},
    {"ClsMndWithoutObject", {Mnd<CElementInfoSeqClsMnd>, Nothing}},
    {"Group", {Mnd<CElementInfoSeqClsMnd, kGroup>, AGroup}},
    {"GroupRequired", {Mnd<CElementInfoSeqClsMnd, kGroup, true>, AGroup}},
    {"ClsOpt", {Opt<CElementInfoSeqClsOpt>, Nothing}},
    {"GroupOpt", {Opt<CElementInfoSeqClsOpt, kGroup, 1>, Nothing}},
    {"AbsMnd", {Abs<CElementInfoSeqAbsClsMnd>, Nothing}},
    {"AbsOpt", {Abs<CElementInfoSeqAbsClsOpt>, Nothing}},
    {"AnyMnd", {Open<CElementInfoSeqUntpdMnd>, AnOpenElement}},
    {"OpenMnd", {Open<CElementInfoSeqUntpdMnd, false>, AnOpenElement}},
    {"AnyOpt", {Open<CElementInfoSeqUntpdOpt>, Nothing}},
    {"Col", {Col<CElementInfoSeqClsCol>, Items}},
    {"AnyCol", {OpenCol<CElementInfoSeqUntpdCol>, OpenElements}},
    {"OpenCol", {OpenCol<CElementInfoSeqUntpdCol, false>, OpenElements}}};
const std::map<std::string, SRecord> kChoiceRecords{
    {"Enum", {Colour<CElementInfoChoiceEnumOpt>, Nothing}},
    {"Cls", {Opt<CElementInfoChoiceClsOpt>, Nothing}},
    {"StrictChoice", {Opt<CElementInfoChoiceClsOpt, kTag, 2>, Nothing}},
    {"Group", {Opt<CElementInfoChoiceClsOpt, kGroup, 1>, Nothing}},
    {"Abs", {Abs<CElementInfoChoiceAbsClsOpt>, Nothing}},
    {"Any", {Open<CElementInfoChoiceUntpdOpt>, Nothing}},
    {"Open", {Open<CElementInfoChoiceUntpdOpt, false>, Nothing}},
    {"Col", {Col<CElementInfoChoiceClsCol>, Items}},
    {"OpenCol", {OpenCol<CElementInfoChoiceUntpdCol, false>, OpenElements}}};
const std::map<std::string, SRecord> kAllRecords{
    {"PrimMnd", {Text<CElementInfoAllPrimMnd>, Nothing}},
    {"EnumMnd", {Colour<CElementInfoAllEnumMnd>, Nothing}},
    {"EnumOpt", {Colour<CElementInfoAllEnumOpt>, Nothing}},
    {"ClsMnd", {Mnd<CElementInfoAllClsMnd, kTag, true>, AnItem}},
    {"ClsMndNotRequired", {Mnd<CElementInfoAllClsMnd>, AnItem}},
    {"Group", {Mnd<CElementInfoAllClsMnd, kGroup>, AGroup}},
    {"ClsOpt", {Opt<CElementInfoAllClsOpt>, Nothing}},
    {"GroupOpt", {Opt<CElementInfoAllClsOpt, kGroup, 1>, Nothing}},
    {"AbsMnd", {Abs<CElementInfoAllAbsClsMnd, 0>, Nothing}},
    {"AbsOpt", {Abs<CElementInfoAllAbsClsOpt>, Nothing}},
    {"AnyMnd", {Open<CElementInfoAllUntpdMnd>, AnOpenElement}},
    {"AnyOpt", {Open<CElementInfoAllUntpdOpt>, Nothing}},
    {"Col", {Col<CCompleteCol>, Items}}};

// A record; flags of the context, "g" in a group without a tag, "o" as the only element; the
// content; the properties of the record and of the element z behind it, or the last message.
const char* const kSequence = R"(
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
PrimMnd mg | <z/> | left z
PrimOpt | <z/> | - ''
PrimOpt u | <x/><e>1</e><z/> | - ''
EnumMnd | <e>blue</e><z/> | #2 ''
EnumMnd u | <x/><e>red</e><z/> | #0 ''
EnumMnd | <e>x</e> | no colour
EnumMnd | <z/> | required e
EnumMnd ug | <x/><e>red</e><z/> | #0 ''
EnumMnd g | <x/> | left x
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
AbsOpt | <z/> | - ''
AnyMnd | <q xmlns='urn:q'/><z/> | <q> ''
OpenMnd | <e/><z/> | <e> ''
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
OpenCol | <e/><e/><z/> | [2] ''
OpenCol | <e/><e xmlns='urn:q'/><z/> | required z
OpenCol | | The Minimum number of [] elements allowed in this collection is 1
)";
const char* const kChoice = R"(
Enum | <e>blue</e> | #2 -
Enum | <z>1</z> | - 1
Enum | | - -
Enum | <e>blue</e><x/> | left x
Enum u | <x/><e>blue</e><x/> | #2 -
Cls | <e>1</e> | e(1) -
Cls | <z>1</z> | - 1
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
Col | <z>1</z> | [0] 1
Col | <e/><z/><e/> | left z
Col | <e/><e/><e/> | The Maximum number of [e] elements allowed in this collection is 2
Col g | <e/><e/><e/> | left e
Col o | <e/><e/> | [2] -
Col o | | none r
Col o | <x/> | none r
Col oc | | [0] -
Col oc | <x/> | left x
Col ou | <x/> | none r
OpenCol | <e/><e/> | [2] -
OpenCol | <z>1</z> | [0] 1
)";
const char* const kAll = R"(
PrimMnd | <z/><e>1</e> | 1 ''
PrimMnd | <z/><z/><e>1</e> | mandatory e
PrimMnd | <z/><e>1</e><x/> | left x
PrimMnd u | <z/><x/><e>1</e> | mandatory e
PrimMnd u | <z/><e>1</e><x/> | 1 ''
EnumMnd | <z/><e>red</e> | #0 ''
EnumMnd m | <z/> | mandatory e
EnumMnd g | <z/> | left z
EnumOpt | <z/> | - ''
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
AbsOpt | | - -
)";

/// Reads a content into a class of this group with the record as its first one and an element z
/// behind it. Tells the properties, or the last message.
std::string Read(XmlElementGroupType group, const SRecord& record, const std::string& flags,
                 const std::string& content)
{
    const auto has = [&](char flag) { return flags.find(flag) != std::string::npos; };
    CClass type(Info(group, has('g') ? kGroup : kTag), u"urn:parent");
    record.add(type);
    if (group == kInSequence)
        type.Text(u"z", 1);
    else if (group == kInAll)
        type.Text<CElementInfoAllPrimOpt>(u"z", 1);
    else if (!has('o'))
        type.Text<CElementInfoChoicePrimOpt>(u"z", 1);
    CClass outer(Info());
    outer.Child(u"group", 0, kGroup);
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
         {std::tuple(kInSequence, &kSequenceRecords, kSequence),
          {kInChoice, &kChoiceRecords, kChoice},
          {kInAll, &kAllRecords, kAll}}) {
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
         {std::tuple(kInSequence, kSequenceRecords.at("ClsOpt"), "", "<e>1</e><z/>",
                     "r init; item init; e set 0; r set 0; r set 1; "),
          {kInSequence, kSequenceRecords.at("ClsMnd"), "", "<e>1</e><z/>",
           "r init; item init; e set 0; r set 1; "},
          {kInChoice, kChoiceRecords.at("Cls"), "", "<e>1</e>",
           "r init; r set 0; item init; e set 0; "},
          {kInChoice, kChoiceRecords.at("Group"), "", "", "r init; "},
          {kInChoice, kChoiceRecords.at("Group"), "u", "<x/>",
           "r init; r set 0; group init; r set 0; "},
          {kInChoice, kChoiceRecords.at("Abs"), "u", "<e/>", "r init; r set 0; "},
          {kInAll, kAllRecords.at("ClsOpt"), "", "<e>1</e>",
           "r init; item init; e set 0; r set 0; "}}) {
        Read(group, record, flags, content);
        EXPECT_EQ(CCustom::s_log, log);
    }
}

TEST(Record, LetsAnEmptyChoiceBeWrittenOneLevelDown)
{
    CClass type(Info(XmlElementGroupType_Choice));
    Opt<CElementInfoChoiceClsOpt, kTag, 2>(type);
    CClass sequence(Info());
    sequence.Child(u"strict", 0);
    const CSmartPtr<CStrictChoice> strict = new CStrictChoice();
    const CSmartPtr<CCustom> inChoice = new CCustom(type, u"r", {ObjectValue(strict.Get())});
    const CSmartPtr<CCustom> inSequence = new CCustom(sequence, u"r", {ObjectValue(strict.Get())});
    EXPECT_EQ(U8(inChoice->ToXml(false, false)), "<r><strict/></r>");
    EXPECT_THROW(inSequence->ToXml(), CZqValidationException);
}

TEST(Record, WritesWhatItCanNotRead)
{
    CClass all(Info(XmlElementGroupType_All));
    Abs<CElementInfoAllAbsClsMnd, 0>(all);
    const CSmartPtr<CCustom> object = new CCustom(all, u"r", {ObjectValue(new CItem(u"1"))});
    EXPECT_EQ(U8(object->ToXml(false, false)), "<r><item>1</item></r>");
}

TEST(Record, TestsTheCountOfACollectionOnOutput)
{
    CClass type(Info());
    const CSmartPtr<CCustom> object =
        new CCustom(Col<CElementInfoSeqClsCol>(type), u"r", {Items()});
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

}  // namespace
}  // namespace ZqXmlLib9
