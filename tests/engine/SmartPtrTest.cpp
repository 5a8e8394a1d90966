// The reference-holding pointer, and the end of the objects that it holds.

#include "support/Stack.h"

#include <ZqXmlLib9/ZqXmlLib9.h>

#include <set>

namespace ZqXmlLib9 {
namespace {

/// An object that owns two others. The class counts the objects that there are; each one of
/// `s_held`, as it is destroyed, holds all of them for a moment, also itself and those that wait.
class CNode : public CAttribute {
public:
    CNode() : CAttribute(u"n", u"", u"") { ++s_alive; }

    CSmartPtr<CNode> m_first;
    CSmartPtr<CNode> m_second;
    static inline int s_alive = 0;
    static inline std::set<CNode*> s_held;

protected:
    ~CNode() override
    {
        --s_alive;
        if (!s_held.contains(this))
            return;
        for (CNode* const each : s_held)
            const CSmartPtr<CNode> moment = each;
        s_held.erase(this);
    }
};

TEST(SmartPtr, TakesHoldOfTheNewBeforeItLetsTheOldGo)
{
    CSmartPtr<CNode> pointer = new CNode;
    CSmartPtr<CNode>& same = pointer;
    CNode* const child = new CNode;
    pointer->m_first = child;
    pointer = same;
    pointer = pointer.Get();
    pointer = std::move(same);
    pointer = pointer->m_first;
    const CSmartPtr<CXmlObjectBase> base = pointer;
    EXPECT_TRUE(base == pointer && pointer == child && base != nullptr);
    pointer = nullptr;
    EXPECT_TRUE(!pointer && CNode::s_alive == 1);
}

/// Owners in a row, each with a leaf beside the next; the last holder lets go on a small stack.
TEST(Destruction, NeedsLittleStack)
{
    for (const int levels : {500'000, 700}) {
        CSmartPtr<CNode> root = new CNode;
        CNode* last = root.Get();
        for (int i = 0; i < levels; ++i) {
            last->m_first = new CNode;
            last->m_second = new CNode;
            if (levels == 700)
                CNode::s_held.insert({last, last->m_first.Get()});
            last = last->m_second.Get();
        }
        RunOnStack(256 << 10, [&] { root = nullptr; });
        EXPECT_EQ(CNode::s_alive, 0);
    }
}

}  // namespace
}  // namespace ZqXmlLib9
