// Depth: 1024 levels are read and written in every way, 1025 are refused; what a program builds
// deeper is refused under a small stack.

#include "Hostile.h"
#include "model/Custom.h"
#include "support/Stack.h"

#include <algorithm>

namespace ZqXmlLib9 {
namespace {

using namespace TestModel;
using namespace std::string_literals;

/// An element `e` that may hold another one.
class CNest : public CCustom {
public:
    explicit CNest(CXmlObjectBase* child = nullptr) : CCustom(Type(), u"e", {ObjectValue(child)}) {}

private:
    static CClass& Type()
    {
        static CClass type = [] {
            CClass made(Info());
            made.Element<CElementInfoSeqClsOpt>(
                u"e", u"", 0, XmlElementType_Element,
                [](int, const char16_t*) -> CSmartPtr<CXmlObjectBase> { return new CNest(); }, 0);
            return made;
        }();
        return type;
    }
};

enum EWhat { Tree, Objects, OpenContent };

CSmartPtr<CXmlObjectBase> Build(EWhat what, std::size_t levels)
{
    CSmartPtr<CXmlObjectBase> top;
    for (; levels > 0; --levels) {
        const CSmartPtr<CElement> element = new CElement(u"e");
        if (what == OpenContent && top != nullptr)
            element->GetChildElements()->Add(static_cast<CElement*>(top.Get()));
        top = what == Objects ? CSmartPtr<CXmlObjectBase>(new CNest(top.Get())) : element.Get();
    }
    return top;
}

/// The message of reading or writing so many levels; empty: it succeeds.
std::string Go(EWhat what, bool isText, bool isRead, std::size_t levels)
{
    const std::string document =
        isText ? Times(levels, "<e>") + Times(levels, "</e>")
               : "\xE0\0\0\1\0\x3C\0e"s + Times(levels - 1, {"\0", 1}) + Times(levels, "\xF0");
    return TextOrMessage([&] {
        if (isRead && what == Tree)
            CXmlDocument().LoadXmlStream(Bytes(document));
        else if (isRead)
            Build(what, 1)->FromXmlStream(Bytes(document));
        else
            isText ? Build(what, levels)->ToXmlStream()
                   : Build(what, levels)->ToFastInfosetStream();
        return "";
    });
}

TEST(Depth, EndsAt1024LevelsOnEveryRoad)
{
    const std::size_t many = 20'000 * std::min<std::size_t>(GetScale(), 50);
    RunOnStack(2 << 20, [many] {
        for (const EWhat what : {Tree, Objects, OpenContent})
            for (const bool isText : {false, true})
                for (const bool isRead : {true, what == Tree}) {
                    EXPECT_EQ(Go(what, isText, isRead, 1024), "") << what << isText << isRead;
                    for (const std::size_t levels : {std::size_t{1025}, many})
                        EXPECT_TRUE(Go(what, isText, isRead, levels)
                                        .ends_with("is nested deeper than 1024 levels"))
                            << what << isText << isRead << levels;
                }
    });
}

}  // namespace
}  // namespace ZqXmlLib9
