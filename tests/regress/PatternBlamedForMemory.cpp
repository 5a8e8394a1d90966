// A pattern was said to be faulty, or a value not to match it, where memory had run out.

#include "support/HeapFault.h"

#include <thread>

using namespace ZqXmlLib9;

TEST(Regress, LackOfMemoryIsNoMismatch)
{
    FailEveryAllocation([](CHeapFaultRun& run) {
        std::thread([&run] {
            const auto test = [](const char16_t* text, const char16_t* pattern) {
                CheckValue<ItemType_string>(u"name", text,
                                            {pattern, -1, -1, u"", u"", u"", u"", -1});
            };
            test(u"x", u"x");
            const char16_t* const words = u"(\\i\\c*|[0-9]+)( \\p{Lu}+)*";
            run.Try([&] { test(u"10 UPPER CASE WORDS FOLLOW", words); });
            EXPECT_THROW(test(u"10 lower case words", words), CZqException);
        }).join();
    });
}
