// A document was said to be faulty ("out of memory at line 1") where memory had run out.

#include "support/HeapFault.h"

using namespace ZqXmlLib9;

TEST(Regress, LackOfMemoryIsNoFaultOfTheDocument)
{
    FailEveryAllocation([](CHeapFaultRun& run) {
        CXmlDocument document;
        run.Try([&] {
            try {
                document.LoadXml(
                    "<!DOCTYPE r [<!ENTITY e 'entity &amp; its text'><!ATTLIST r d CDATA 'd'>]>"
                    "<r xmlns='urn:one' xmlns:p='urn:two' p:a='1' a='2'><!--c--><?p i?>"
                    "<p:b>&e;&#x1F600;<![CDATA[<&>]]></p:b>&e;<b/></r>");
            }
            catch (const CZqException& failure) {
                // Expat passes over a declaration for which it has no memory.
                EXPECT_EQ(failure.GetFullMessageUtf8(), "unbound prefix at line 1");
                throw std::bad_alloc();
            }
        });
        const CSmartPtr<CElement> copy = new CElement(u"");
        copy->CopyXmlElement(document.GetDocumentElement());
        EXPECT_EQ(
            U8(copy->ToXml(false, false)),
            "<AA:r xmlns:AA=\"urn:one\" xmlns:AB=\"urn:two\" AB:a=\"1\" a=\"2\" d=\"d\"><AB:b>"
            "entity &amp; its text\xF0\x9F\x98\x80&lt;&amp;&gt;</AB:b><AA:b/>"
            "entity &amp; its text</AA:r>");
    });
}
