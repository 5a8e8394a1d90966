// What threads may share, and that each of them may have objects of its own of one class, whose
// metadata all of them use first at the same moment. The thread sanitizer watches.

#include "model/Letter.h"
#include "support/Print.h"

#include <barrier>
#include <thread>
#include <vector>

namespace ZqXmlLib9 {
namespace {

using TestModel::CLetter;

constexpr int kThreads = 16;

/// Runs `step` many times, with the number of the thread, on all threads at once.
template <typename TStep>
void OnAllThreads(const TStep& step)
{
    std::barrier start(kThreads);
    std::vector<std::jthread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([&start, &step, i] {
            start.arrive_and_wait();
            for (int round = 0; round < 25; ++round)
                step(i);
        });
}

TEST(Threads, WriteAndReadObjectsOfOneClass)
{
    OnAllThreads([](int i) {
        const CSmartPtr<CLetter> written =
            new CLetter(u"to", u"from", ToUtf16(std::to_string(i)).c_str());
        const CSmartPtr<CLetter> read = new CLetter();
        read->FromXml(written->ToXml().c_str());
        ASSERT_EQ(*read, *written);
        read->FromXmlStream(written->ToFastInfosetStream());
        ASSERT_EQ(*read, *written);
    });
}

TEST(Threads, ShareWhatNoneChanges)
{
    const CSmartPtr<CLetter> shared = new CLetter(u"to", u"from", u"body");
    const std::u16string expected = shared->ToXml();
    CXmlDocument document;
    document.LoadXml(expected.c_str());
    CXmlSerializationContext context;
    context.GetNamespaceAliases().Add(u"l", u"urn:letter");
    CFastInfosetContext& settings = context.GetFIContext();
    settings.SetUseGeneratedVocabulary(true);
    settings.GetVocabulary()->AddElement(u"l", u"urn:letter", u"letter");
    const CBinaryData text = shared->ToXmlStream(), octets = shared->ToFastInfosetStream();
    const CBinaryData compact = shared->ToFastInfosetStream(FInfoDecl_None, context);
    OnAllThreads([&](int i) {
        const CSmartPtr<CLetter> holder = shared;
        ASSERT_EQ(holder->ToXml(), expected);
        ASSERT_EQ(holder->ToFastInfosetStream(FInfoDecl_None, context), compact);
        const CSmartPtr<CLetter> read = new CLetter();
        if (i % 4 == 0)
            read->FromXmlElement(std::as_const(document).GetDocumentElement());
        else
            read->FromXmlStream(i % 4 == 1 ? text : i % 4 == 2 ? octets : compact, context);
        ASSERT_EQ(*read, *shared);
        // Made by the first who asks.
        ASSERT_EQ(context.GetAdditionalRootAttributes()->GetCount(), 0);
    });
    EXPECT_EQ(shared->AddRef(), 2);
    EXPECT_EQ(shared->Release(), 1);
}

/// Holders of a list pass it on and give it up, the one that made it first.
TEST(Threads, GiveUpTheLastReferenceOnAnyOfThem)
{
    for (int round = 0; round < 20; ++round) {
        CSmartPtr<CElement> element = new CElement(u"e");
        for (int i = 0; i < 1000; ++i) {
            const CSmartPtr<CElement> parent = new CElement(u"e");
            parent->GetChildElements()->Add(element.Get());
            element = parent;
        }
        std::vector<CSmartPtr<CElement>> holders(kThreads, element);
        element = nullptr;
        OnAllThreads([&](int i) {
            const CSmartPtr<CElement> copy = holders[static_cast<std::size_t>(i)];
            holders[static_cast<std::size_t>(i)] = nullptr;
        });
    }
}

}  // namespace
}  // namespace ZqXmlLib9
