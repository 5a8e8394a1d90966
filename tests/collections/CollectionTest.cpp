// Collections of objects: what every operation tells its listeners, how long items live, the way
// through them, and what is read by a factory and as groups. Collections of plain values: their
// texts both ways, their events, and when facets are tested.

#include "model/Custom.h"
#include "support/Print.h"

namespace ZqXmlLib9 {
namespace {

using namespace TestModel;

std::string NamesOf(const CItemCol& items)
{
    std::string names;
    for (CItem* const item : items)
        names += U8((*item)[0].GetString());
    return names;
}

/// The items a, b and c, an operation with n, and what the listeners heard.
struct SOperation {
    /// \param where  an index, or the item there; 3 is a stranger, 4 is null
    SOperation(char what, int where)
    {
        const CSmartPtr<CItem> known[] = {new CItem(u"a"), new CItem(u"b"), new CItem(u"c"),
                                          new CItem(u"x"), nullptr};
        const CSmartPtr<CItem> fresh = new CItem(u"n");
        for (int i = 0; i < 3; ++i)
            items->Add(known[i].Get());
        items->AddEventListener(&log);
        log.m_text += TextOrMessage([&] {
            switch (what) {
            case '@': items->AddAt(where, fresh.Get()); break;
            case '<': items->AddBefore(known[where].Get(), fresh.Get()); break;
            case '>': items->AddAfter(known[where].Get(), fresh.Get()); break;
            case '-': items->Remove(where); break;
            case 'c': items->Clear(); break;
            default: items = nullptr;
            }
            return std::string();
        });
    }

    CEventLog log;
    CSmartPtr<CItemCol> items = new CItemCol(u"item", u"", 0, -1);
};

TEST(Operation, TellsEachStepInOrder)
{
    // The operation, where, and the items after it.
    for (const std::string row : {"@2abnc", "@3abcn", "<4abcn", "<0nabc", "<2abnc", ">4nabc",
                                  ">0anbc", ">2abcn", "-0bc", "-1ac", "-2ab"}) {
        const SOperation done(row[0], row[1] - '0');
        EXPECT_EQ(done.log.m_text,
                  row[0] == '-' ? "remove 3;removed 2;change 2;" : "add n3;added n4;change 4;")
            << row;
        EXPECT_EQ(NamesOf(*done.items), row.substr(2)) << row;
        EXPECT_EQ(static_cast<std::size_t>(done.items->GetCount()), row.size() - 2) << row;
    }
    for (const char what : {'c', 'd'})  // Clear and destroy.
        EXPECT_EQ(SOperation(what, 0).log.m_text, "remove 3;removed 2;change 2;remove 2;removed 1;"
                                                  "change 1;remove 1;removed 0;change 0;");
}

TEST(Operation, FailsAndChangesNothing)
{
    const std::string unknown = "add n3;The object was not found in the collection";
    for (const auto& [what, where, outcome] :
         {std::tuple('@', 4, std::string("Index out of range")),
          {'@', -1, "Index out of range"},
          {'<', 3, unknown},
          {'>', 3, unknown},
          {'-', 3, "Index 3 is out of range, use 0 - 2"},
          {'-', -1, "Index -1 is out of range, use 0 - 2"}}) {
        const SOperation done(what, where);
        EXPECT_EQ(done.log.m_text, outcome);
        EXPECT_EQ(NamesOf(*done.items), "abc");
    }
}

struct SWatched : CItem {
    ~SWatched() override { ++s_destroyed; }
    static inline int s_destroyed = 0;
};

TEST(Items, LiveAsLongAsSomebodyHoldsThemAndNoLongerIfTheirAddFails)
{
    const CSmartPtr<CItemCol> first = new CItemCol(u"item", u"", 0, -1);
    CSmartPtr<CItemCol> second = new CItemCol(u"item", u"", 0, -1);
    CSmartPtr<CItem> pointer = first->Add(new SWatched());
    second->Add(pointer.Get());
    second->Add(pointer.Get());
    pointer = nullptr;
    first->Clear();
    second->Remove(0);
    pointer = second->Item(0);
    second = nullptr;
    EXPECT_EQ(SWatched::s_destroyed, 0);
    EXPECT_THROW(first->AddAt(1, new SWatched()), CZqInvalidParamException);
    EXPECT_THROW(first->AddAfter(pointer.Get(), new SWatched()), CZqInvalidParamException);
    CEventLog refusing;
    refusing.m_onEvent = [] { throw CZqException(u"no"); };
    first->AddEventListener(&refusing);
    EXPECT_EQ(MessageOf([&] { first->AddBefore(nullptr, new SWatched()); }), "no");
    EXPECT_EQ(SWatched::s_destroyed, 3);
    pointer = nullptr;
    EXPECT_EQ(SWatched::s_destroyed, 4);
}

TEST(Items, MayBeRemovedByAListenerAsSoonAsTheyAreAdded)
{
    CXmlDocument document;
    document.LoadXml("<a x='1'><b><c/></b></a>");
    CEventLog attributes, children;
    const CSmartPtr<CElement> element = new CElement(u"unread");
    const auto removeFrom = [](CEventLog& log, auto* collection) {
        collection->AddEventListener(&log);
        log.m_onEvent = [&log, collection] {
            if (log.Take() == "added 1;")
                collection->Remove(0);
        };
    };
    removeFrom(attributes, element->GetAttributes().Get());
    removeFrom(children, element->GetChildElements().Get());
    EXPECT_EQ(U8(element->GetAttributes()->Add(u"x")->GetName()), "x");
    element->CopyXmlElement(document.GetDocumentElement());
    EXPECT_EQ(U8(element->ToXml(false, false)), "<a/>");
}

TEST(Iterator, GoesThroughTheItemsToTheEnd)
{
    const CSmartPtr<CItemCol> items = new CItemCol(u"item", u"", 0, -1);
    const CSmartPtr<CItemCol> other = new CItemCol(u"item", u"", 0, -1);
    const CSmartPtr<CItem> b = items->Add(new CItem(u"b"));
    other->Add(b.Get());
    items->Remove(0);
    EXPECT_TRUE(items->begin() == items->end());
    items->AddAfter(nullptr, b.Get());
    items->Add(new CItem(u"c"));
    items->AddAfter(nullptr, new CItem(u"a"));
    EXPECT_EQ(NamesOf(*items), "abc");
    auto it = items->begin();
    EXPECT_EQ(*it++, items->Item(0).Get());
    EXPECT_TRUE(it == other->begin()) << "the same item";
    EXPECT_EQ(*++it, items->Item(2).Get());
    EXPECT_FALSE(it == other->begin());
    items->Remove(1);
    EXPECT_EQ(*it, items->Item(1).Get()) << "its node stays where others go";
    EXPECT_TRUE(++it == items->end());
    constexpr const char* kNoMore = "No More Elements in the Collection";
    EXPECT_EQ(MessageOf([&] { it++; }), kNoMore);
    EXPECT_EQ(MessageOf([&] { static_cast<void>(*it); }), kNoMore);
}

/// Two elements without a tag of their own, with an attribute on the tag above.
struct SPair : CCustom {
    SPair() : CCustom(Type(), u"pair") {}

    static CClass& Type()
    {
        static CClass type(Info(XmlElementGroupType_Sequence, XmlElementType_Pseudo));
        static CClass& made = type.Text(u"a", 0).Text(u"b", 1).TextAttribute(u"id", 2, true);
        return made;
    }
};

/// Items for elements named "x" alone.
CSmartPtr<CXmlObjectBase> MakeX(CXmlElement* element)
{
    return element->GetLocalName() == u"x" ? new CItem() : nullptr;
}

TEST(Reading, TakesGroupsAsLongAsTheyFitAndWhatTheFactoryMakes)
{
    CClass type(Info());
    type.Element<CElementInfoSeqClsCol>(u"pair", u"", 0, XmlElementType_Pseudo)
        .Element<CElementInfoSeqAbsClsCol>(u"item", u"", 1, XmlElementType_Element)
        .Text(u"y", 2);
    const CSmartPtr<CXmlObjectCollection<SPair>> pairs =
        new CXmlObjectCollection<SPair>(u"other", u"", 1, 2, XmlElementType_Pseudo);
    const CSmartPtr<CItemCol> items = new CItemCol(u"x", u"", 0, -1, XmlElementType_Element, MakeX);
    const CSmartPtr<CCustom> object = new CCustom(
        type, u"r", {CollectionValue(pairs.Get()), CollectionValue(items.Get()), ZqVariant()});
    object->FromXml("<r><a>1</a><b>2</b><a>3</a><b>4</b><x>5</x><x xmlns='u'>6</x><y>7</y></r>");
    (*pairs->Item(1))[2] = TextValue(u"8");
    EXPECT_EQ(U8(object->ToXml(false, false)), "<r id=\"8\"><a>1</a><b>2</b><a>3</a><b>4</b>"
                                               "<x>5</x><x>6</x><y>7</y></r>");
    EXPECT_EQ(U8(items->AddNew()->GetElementName()), "x");
    EXPECT_EQ(U8(pairs->AddNew()->GetElementName()), "pair");
}

constexpr auto kCollapse = CWhitespaceUtils::WhitespaceRule_Collapse;

/// Opens what only generated classes call.
template <typename TCollection>
class COpen : public TCollection {
public:
    explicit COpen(const char16_t* minInclusive = u"", int maxOccurs = -1,
                   const char16_t* format = nullptr)
        : TCollection(u"a", u"urn:t", 0, maxOccurs, u"", -1, -1, minInclusive, u"", u"", u"", -1,
                      kCollapse, format)
    {}

    std::string Write() const
    {
        CTextStream stream;
        CXmlTextWriter writer(&stream);
        writer.SetFormat(false);
        writer.SetDefaultNamespace(u"urn:t");
        this->ToXml_Int(&writer, false, u"", {}, false);
        return U8(stream.GetText());
    }

    /// \return the name of the element at which the run ended
    std::string Read(const std::u16string& content, const CXmlSerializationContext& context = {})
    {
        CXmlDocument document(context);
        document.LoadXml((u"<r xmlns='urn:t'>" + content + u"</r>").c_str());
        CXmlElement* const root = document.GetDocumentElement();
        const CXmlElement* const next =
            this->FromXml_Int(root, root->GetFirstElement(), context, false);
        return next != nullptr ? U8(next->GetLocalName()) : "";
    }
};

/// Reads texts and writes them again.
template <typename TCollection>
std::string RoundTrip(std::initializer_list<const char16_t*> texts,
                      const char16_t* format = nullptr)
{
    const CSmartPtr<COpen<TCollection>> values = new COpen<TCollection>(u"", -1, format);
    std::u16string content;
    for (const char16_t* text : texts)
        content += u"<a>" + std::u16string(text) + u"</a>";
    values->Read(content);
    EXPECT_EQ(values->GetCount(), static_cast<int>(texts.size()));
    return values->Write();
}

TEST(ValueCollection, WritesAndReadsEachType)
{
    EXPECT_EQ(RoundTrip<Ci1Col>({u"-128", u" 7 "}), RoundTrip<Ci2Col>({u"-128", u"7"}));
    EXPECT_EQ(RoundTrip<Ci4Col>({u"-128", u"7"}), RoundTrip<Ci8Col>({u"-128", u"7"}));
    EXPECT_EQ(RoundTrip<Cui1Col>({u"255"}), RoundTrip<Cui2Col>({u"0255"}));
    EXPECT_EQ(RoundTrip<Cui4Col>({u"255"}), RoundTrip<Cui8Col>({u"255"}));
    EXPECT_EQ(RoundTrip<Cr4Col>({u"0.5"}, u"%.2f"), RoundTrip<CdecimalCol>({u".5"}, u"2"));
    EXPECT_EQ(RoundTrip<Cr8Col>({u"5e-1"}), RoundTrip<CdecimalCol>({u"0.50"}));
    EXPECT_EQ(RoundTrip<CintegerCol>({u"007"}), RoundTrip<CyearCol>({u"0007"}));
    EXPECT_EQ(RoundTrip<CmonthCol>({u"--07"}), RoundTrip<CstringCol>({u"\t--07"}));
    EXPECT_EQ(RoundTrip<CdayCol>({u"---07"}), RoundTrip<CstringCol>({u"---07"}));
    EXPECT_EQ(RoundTrip<CbooleanCol>({u"1", u"FALSE"}), RoundTrip<CstringCol>({u"true", u"false"}));
    EXPECT_EQ(RoundTrip<CdurationCol>({u"P1D"}), RoundTrip<CstringCol>({u"P1D"}));
    EXPECT_EQ(RoundTrip<ChexBinaryCol>({u"0a"}), RoundTrip<CstringCol>({u"0A"}));
    EXPECT_EQ(RoundTrip<Cbase64BinaryCol>({u"Cg"}), RoundTrip<CstringCol>({u"Cg=="}));
    EXPECT_EQ(RoundTrip<CdatetimeCol>({u"2000-01-01T00:00:00.0Z"}),
              RoundTrip<CstringCol>({u"2000-01-01T00:00:00Z"}));
    EXPECT_EQ(RoundTrip<CdateCol>({u"2000-01-01"}), RoundTrip<CstringCol>({u"2000-01-01"}));
    EXPECT_EQ(RoundTrip<CyearMonthCol>({u"2000-01"}), RoundTrip<CstringCol>({u"2000-01"}));
    EXPECT_EQ(RoundTrip<CtimeCol>({u"10:00:00"}), RoundTrip<CstringCol>({u"10:00:00"}));
    EXPECT_EQ(RoundTrip<CmonthDayCol>({u"--01-02"}), RoundTrip<CstringCol>({u"--01-02"}));
    EXPECT_EQ(RoundTrip<CstringCol>({u"", u"b"}), "<a xmlns=\"urn:t\"/><a xmlns=\"urn:t\">b</a>");
    EXPECT_EQ(RoundTrip<CstringCol>({}), "");
}

TEST(ValueCollection, ReadsARunOfSiblings)
{
    const CSmartPtr<COpen<Ci4Col>> values = new COpen<Ci4Col>();
    EXPECT_EQ(values->Read(u"<a x='1'>1<z>9</z></a><a>2</a><b/><a>3</a>"), "b");
    EXPECT_EQ(values->Read(u""), "");
    EXPECT_EQ(values->Read(u"<a>3</a><a xmlns='urn:o'>4</a>"), "a");
    CXmlSerializationContext context;
    context.SetIgnoreNamespaces(true);
    EXPECT_EQ(values->Read(u"<a xmlns='urn:o'>4</a>", context), "");
    EXPECT_EQ(std::vector<std::int32_t>(values->begin(), values->end()),
              std::vector<std::int32_t>({1, 2, 3, 4}));
    EXPECT_THROW(values->Read(u"<a>x</a>"), CZqInvalidValueException);
}

TEST(ValueCollection, FiresBeforeItTests)
{
    CEventLog log;
    const CSmartPtr<COpen<Ci4Col>> values = new COpen<Ci4Col>(u"5", 1);
    values->AddEventListener(&log);
    values->Add(7);
    values->AddAt(0, 6);
    EXPECT_EQ(log.Take(), "add 0;added 1;change 1;add 1;added 2;change 2;");
    EXPECT_EQ(MessageOf<CZqValidationException>([&] { values->Write(); }),
              "The Maximum number of [a] elements allowed in this collection is 1");
    EXPECT_EQ(MessageOf<CZqInvalidParamException>([&] { values->AddAt(-1, 9); }),
              "Index out of range");
    EXPECT_EQ(MessageOf([&] { values->Add(4); }), "Invalid Value for a [4]");
    EXPECT_EQ(log.Take(), "add 2;add 2;");
    EXPECT_EQ(MessageOf<CZqInvalidParamException>([&] { values->Item(2); }),
              "Index 2 is out of range, use 0 - 1");
    values->Remove(1);
    EXPECT_EQ(values->Item(0), 6);
    values->Clear();
    EXPECT_EQ(log.Take(), "remove [1]2;removed [1]1;change 1;remove [0]1;removed [0]0;change 0;");
    EXPECT_EQ(MessageOf<CZqInvalidParamException>([&] { values->Remove(0); }),
              "Index 0 is out of range, use 0 - -1");
    EXPECT_EQ(log.Take(), "remove [0]0;");
}

TEST(ValueCollection, TestsADateBeforeTheFirstEvent)
{
    CEventLog log;
    const CSmartPtr<COpen<CdateCol>> values = new COpen<CdateCol>(u"2000-01-01");
    values->AddEventListener(&log);
    CDateTime time;
    time.SetTime(10, 0, 0);
    EXPECT_EQ(MessageOf<CZqInvalidParamException>([&] { values->Add(time); }),
              "Dates added to this collection must be of type dt_date");
    EXPECT_EQ(MessageOf([&] { values->AddAt(-1, CDateTime(1999, 1, 1)); }),
              "Invalid Value for a [1999-01-01]");
    EXPECT_EQ(log.Take(), "");
    EXPECT_THROW(values->AddAt(-1, CDateTime(2001, 1, 1)), CZqInvalidParamException);
    values->Add(CDateTime(2001, 1, 1));
    values->AddAt(0, *values->begin());
    EXPECT_EQ(log.Take(), "add 0;add 0;added 1;change 1;add 1;added 2;change 2;");
}

TEST(ValueCollection, ClearsInLinearTime)
{
    const CSmartPtr<COpen<Ci4Col>> values = new COpen<Ci4Col>();
    for (int i = 0; i < 1'000'000; ++i)
        values->Add(i);
    for (int i = 0; i < 600'000; ++i)
        values->Remove(0);
    values->AddAt(0, -1);
    EXPECT_EQ(values->Item(1), 600'000);
    values->Clear();
    EXPECT_EQ(values->begin(), values->end());
}

}  // namespace
}  // namespace ZqXmlLib9
