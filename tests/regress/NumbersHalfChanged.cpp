// A big number that could not be assigned, multiplied or divided for lack of memory kept a part of
// the result.

#include "support/HeapFault.h"

using namespace ZqXmlLib9;

TEST(Regress, ABigNumberChangesAsAWhole)
{
    FailEveryAllocation([](CHeapFaultRun& run) {
        const CBigInteger five(u"5"), big(u"-123456789012345678901234567890");
        const CDecimal half(u"0.5"), tiny(u"-0.00000000000000000000000000000000000000000001");
        const auto test = [&run](auto before, auto behind, auto step) {
            auto value = before;
            run.Try([&] { step(value); },
                    [&] { EXPECT_TRUE(value == before) << U8(value.ToString()); });
            EXPECT_EQ(value, behind) << U8(value.ToString());
        };
        test(five, big, [&](auto& value) { value = big; });
        test(five, big, [&](auto& value) { value.Parse(u"-1.2345678901234567890123456789e29"); });
        test(five, CBigInteger(u"-617283945061728394506172839450"), [&](auto& v) { v *= big; });
        test(five, CBigInteger(u"-123456789012345678901234567885"), [&](auto& v) { v += big; });
        test(five, CBigInteger(u"123456789012345678901234567895"), [&](auto& v) { v -= big; });
        test(big, CBigInteger(u"-24691357802469135780246913578"), [&](auto& v) { v /= five; });
        test(CBigInteger(u"123456789012345678901234567893"), CBigInteger(3),
             [&](auto& v) { v %= five; });
        test(half, tiny, [&](auto& value) { value = tiny; });
        test(half, tiny, [&](auto& value) { value = CDecimal(tiny.ToString().c_str()); });
        test(half, CDecimal(u"-0.000000000000000000000000000000000000000000005"),
             [&](auto& v) { v *= tiny; });
        test(half, CDecimal(u"0.49999999999999999999999999999999999999999999"),
             [&](auto& v) { v += tiny; });
        test(half, CDecimal(u"0.166666666666666666666666666667"),
             [&](auto& v) { v /= CDecimal(3); });
    });
}
