// Without optimisation, 256 nested destructions of objects in variants took more than 256 KiB.

#include "model/Custom.h"
#include "support/Stack.h"

using namespace ZqXmlLib9;
using namespace TestModel;

TEST(DestructionStack, IsSmallForObjectsInVariants)
{
    CClass type(Info());
    CSmartPtr<CCustom> deep = new CCustom(type);
    for (int i = 0; i < 200'000; ++i)
        deep = new CCustom(type, u"e", {ObjectValue(deep.Get())});
    RunOnStack(256 << 10, [&deep] { deep = nullptr; });
    EXPECT_EQ(deep, nullptr);
}
