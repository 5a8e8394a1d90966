// Collections of objects: what every operation tells its listeners, and how long items live.

#include "model/Custom.h"
#include "support/Print.h"

#include <gtest/gtest.h>

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

/// Logs each event as its kind, the item (nothing for null) and the count at that time.
class CLog final : public IEventSink {
public:
    void OnEvent(CXmlObjectBase* source, MsgType type, void* data) override
    {
        static constexpr const char* kKinds[] = {"change ", "add ", "added ", "remove ",
                                                 "removed "};
        m_text += kKinds[type];
        // The data is what the operation was given, and that takes pointers to the base.
        if (data != nullptr)
            m_text += U8(dynamic_cast<CItem&>(*static_cast<CXmlObjectBase*>(data))[0].GetString());
        // In its destructor the source is no more than a collection.
        m_text += std::to_string(dynamic_cast<CXmlCollectionBase&>(*source).GetCount()) + ";";
        if (m_isRefusing)
            throw CZqException(u"no");
    }

    std::string m_text;
    bool m_isRefusing = false;
};

enum class EWhat { Add, At, Before, After, Remove, Clear, Destroy };
constexpr int kStranger = 3;  ///< an item that is in no collection
constexpr int kNull = 4;

struct SOperation {
    const char* name;
    EWhat what;
    int where;  ///< an index, or the item there
    const char* events;
    const char* items;
    const char* message = "";
};

class Operation : public testing::TestWithParam<SOperation> {};

TEST_P(Operation, TellsEachStepInOrder)
{
    const SOperation& row = GetParam();
    CSmartPtr<CItem> known[] = {new CItem(u"a"), new CItem(u"b"), new CItem(u"c"), new CItem(u"x"),
                                nullptr};
    const CSmartPtr<CItem> fresh = new CItem(u"n");
    CLog log;
    CSmartPtr<CItemCol> items = new CItemCol(u"item", u"", 0, -1);
    for (int i = 0; i < 3; ++i)
        items->Add(known[i].Get());
    items->AddEventListener(&log);
    const auto step = [&] {
        switch (row.what) {
        case EWhat::Add: items->Add(fresh.Get()); break;
        case EWhat::At: items->AddAt(row.where, fresh.Get()); break;
        case EWhat::Before: items->AddBefore(known[row.where].Get(), fresh.Get()); break;
        case EWhat::After: items->AddAfter(known[row.where].Get(), fresh.Get()); break;
        case EWhat::Remove: items->Remove(row.where); break;
        case EWhat::Clear: items->Clear(); break;
        case EWhat::Destroy: items = nullptr; break;
        }
    };
    if (row.message[0] == '\0')
        step();
    else
        EXPECT_EQ(MessageOf<CZqInvalidParamException>(step), row.message);
    EXPECT_EQ(log.m_text, row.events);
    if (items == nullptr)
        return;
    EXPECT_EQ(NamesOf(*items), row.items);
    EXPECT_EQ(static_cast<std::size_t>(items->GetCount()), NamesOf(*items).size());
}

constexpr const char* kAdded = "add n3;added n4;change 4;";
constexpr const char* kRemoved = "remove 3;removed 2;change 2;";
constexpr const char* kCleared = "remove 3;removed 2;change 2;remove 2;removed 1;change 1;"
                                 "remove 1;removed 0;change 0;";
constexpr const char* kBadIndex = "Index out of range";
constexpr const char* kUnknown = "The object was not found in the collection";

const SOperation kOperations[] = {
    {"Add", EWhat::Add, 0, kAdded, "abcn"},
    {"AtStart", EWhat::At, 0, kAdded, "nabc"},
    {"AtMiddle", EWhat::At, 2, kAdded, "abnc"},
    {"AtCount", EWhat::At, 3, kAdded, "abcn"},
    {"AtBeyond", EWhat::At, 4, "", "abc", kBadIndex},
    {"AtBelow", EWhat::At, -1, "", "abc", kBadIndex},
    {"BeforeNull", EWhat::Before, kNull, kAdded, "abcn"},
    {"BeforeFirst", EWhat::Before, 0, kAdded, "nabc"},
    {"BeforeLast", EWhat::Before, 2, kAdded, "abnc"},
    {"BeforeUnknown", EWhat::Before, kStranger, "add n3;", "abc", kUnknown},
    {"AfterNull", EWhat::After, kNull, kAdded, "nabc"},
    {"AfterFirst", EWhat::After, 0, kAdded, "anbc"},
    {"AfterLast", EWhat::After, 2, kAdded, "abcn"},
    {"AfterUnknown", EWhat::After, kStranger, "add n3;", "abc", kUnknown},
    {"RemoveFirst", EWhat::Remove, 0, kRemoved, "bc"},
    {"RemoveMiddle", EWhat::Remove, 1, kRemoved, "ac"},
    {"RemoveLast", EWhat::Remove, 2, kRemoved, "ab"},
    {"RemoveBeyond", EWhat::Remove, 3, "", "abc", "Index 3 is out of range, use 0 - 2"},
    {"RemoveBelow", EWhat::Remove, -1, "", "abc", "Index -1 is out of range, use 0 - 2"},
    {"Clear", EWhat::Clear, 0, kCleared, ""},
    {"Destroy", EWhat::Destroy, 0, kCleared, ""},
};
INSTANTIATE_TEST_SUITE_P(All, Operation, testing::ValuesIn(kOperations), kRowName);

TEST(EmptyCollection, TakesItemsAtBothEndsAgain)
{
    CLog log;
    const CSmartPtr<CItemCol> items = new CItemCol(u"item", u"", 0, -1);
    items->Add(new CItem(u"x"));
    items->Remove(0);
    items->AddEventListener(&log);
    items->Clear();
    EXPECT_EQ(log.m_text, "");
    items->RemoveEventListener(&log);
    items->AddAfter(nullptr, new CItem(u"b"));
    items->Add(new CItem(u"c"));
    items->AddAfter(nullptr, new CItem(u"a"));
    EXPECT_EQ(NamesOf(*items), "abc");
}

/// An item that counts its destructions.
class CWatched : public CItem {
public:
    static inline int s_destroyed = 0;

protected:
    ~CWatched() override { ++s_destroyed; }
};

using CWatchedCol = CXmlObjectCollection<CWatched>;

TEST(Items, LiveAsLongAsACollectionOrAPointerHoldsThem)
{
    CWatched::s_destroyed = 0;
    const CSmartPtr<CWatchedCol> first = new CWatchedCol(u"item", u"", 0, -1);
    CSmartPtr<CWatchedCol> second = new CWatchedCol(u"item", u"", 0, -1);
    CSmartPtr<CWatched> pointer = first->Add(new CWatched());
    second->Add(pointer.Get());
    second->Add(pointer.Get());
    pointer = nullptr;
    first->Clear();
    second->Remove(0);
    EXPECT_EQ(CWatched::s_destroyed, 0);
    pointer = second->Item(0);
    second = nullptr;
    EXPECT_EQ(CWatched::s_destroyed, 0);
    pointer = nullptr;
    EXPECT_EQ(CWatched::s_destroyed, 1);
}

TEST(Items, AreFreedWhenTheirAddFailsAndNobodyElseHoldsThem)
{
    CWatched::s_destroyed = 0;
    const CSmartPtr<CWatchedCol> items = new CWatchedCol(u"item", u"", 0, -1);
    const CSmartPtr<CWatched> stranger = new CWatched();
    EXPECT_THROW(items->AddAt(1, new CWatched()), CZqInvalidParamException);
    EXPECT_THROW(items->AddBefore(stranger.Get(), new CWatched()), CZqInvalidParamException);
    EXPECT_THROW(items->AddAfter(stranger.Get(), new CWatched()), CZqInvalidParamException);
    CLog refusing;
    refusing.m_isRefusing = true;
    items->AddEventListener(&refusing);
    EXPECT_EQ(MessageOf([&] { items->AddBefore(nullptr, new CWatched()); }), "no");
    EXPECT_EQ(CWatched::s_destroyed, 4);
    EXPECT_EQ(items->GetCount(), 0);
}

}  // namespace
}  // namespace ZqXmlLib9
