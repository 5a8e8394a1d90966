// A collection that had changed could not tell its listeners for lack of memory; in its destructor
// that ended the program.

#include "support/HeapFault.h"

using namespace ZqXmlLib9;

/// Counts the items of a collection by its events alone.
struct SCounter final : IEventSink {
    int count = 0;
    int changes = 0;

    void OnEvent(CXmlObjectBase*, MsgType type, void*) override
    {
        count += type == MsgType_CollectionAddComplete;
        count -= type == MsgType_CollectionRemoveComplete;
        changes += type == MsgType_CollectionChange;
    }
};

TEST(Regress, ListenersKnowWhatACollectionHolds)
{
    FailEveryAllocation([](CHeapFaultRun& run) {
        SCounter objects, values;
        const CSmartPtr<CElementCol> elements = new CElementCol(u"urn:e", u"##any", u"", 0, -1);
        const CSmartPtr<CstringCol> texts =
            new CstringCol(u"t", u"", 0, -1, u"", -1, -1, u"", u"", u"", u"", -1,
                           CWhitespaceUtils::WhitespaceRule_None, nullptr);
        elements->AddEventListener(&objects);
        texts->AddEventListener(&values);
        const auto isTold = [&] {
            EXPECT_EQ(elements->GetCount(), objects.count);
            EXPECT_EQ(texts->GetCount(), values.count);
        };
        run.Try(
            [&] {
                for (int i = 0; i < 3; ++i) {
                    elements->Add(u"a name that needs memory");
                    elements->AddBefore(nullptr, new CElement(u"b"));
                    texts->Add(u"a text that needs memory");
                    texts->AddAt(0, u"another text that needs memory");
                }
                elements->Remove(1);
                texts->Remove(1);
            },
            isTold);
        isTold();
        run.Try([&] {
            elements->Clear();
            texts->Clear();
        });
        EXPECT_EQ(elements->GetCount() + texts->GetCount() + objects.count + values.count, 0);
        EXPECT_GE(objects.changes + values.changes, 24);
        elements->Add(u"last");  // whose end the listener hears of too
    });
}
