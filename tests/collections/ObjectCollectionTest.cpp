// Collections of objects: what every operation tells its listeners, how long items live, the way
// through them, and what is read by a factory and as groups.

#include "model/EventLog.h"

#include <gtest/gtest.h>

#include <tuple>

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
        try {
            switch (what) {
            case '@': items->AddAt(where, fresh.Get()); break;
            case '<': items->AddBefore(known[where].Get(), fresh.Get()); break;
            case '>': items->AddAfter(known[where].Get(), fresh.Get()); break;
            case '-': items->Remove(where); break;
            case 'c': items->Clear(); break;
            default: items = nullptr;
            }
        }
        catch (const CZqInvalidParamException& failure) {
            log.m_text += failure.GetFullMessageUtf8();
        }
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
    const CSmartPtr<CElement> element = new CElement(u"unread");
    CEventLog attributes, children;
    const auto removeFrom = [](CEventLog& log, auto collection) {
        collection->AddEventListener(&log);
        log.m_onEvent = [&log, collection] {
            if (log.Take() == "added 1;")
                collection->Remove(0);
        };
    };
    removeFrom(attributes, element->GetAttributes());
    removeFrom(children, element->GetChildElements());
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

}  // namespace
}  // namespace ZqXmlLib9
