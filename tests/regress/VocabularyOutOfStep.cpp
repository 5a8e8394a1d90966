// After an addition to a vocabulary had failed, its writer and its reader knew entries by different
// indices.

#include "support/HeapFault.h"

using namespace ZqXmlLib9;

TEST(Regress, AVocabularyTakesAnEntryAsAWholeOrNotAtAll)
{
    FailEveryAllocation([](CHeapFaultRun& run) {
        CXmlSerializationContext context;
        context.GetFIContext().SetUseGeneratedVocabulary(true);
        CFIVocabulary& vocabulary = *context.GetFIContext().GetVocabulary();
        const std::u16string name = u"aNameThatNeedsMemory", other = u"n";
        for (int i = 0; i < 2; ++i)
            run.Try([&] {
                vocabulary.AddElement(u"", name, name);
                vocabulary.AddAttribute(u"", u"", other);
                vocabulary.AddElementValue(name);
                vocabulary.AddAttributeValue(name);
            });
        context.GetNamespaceAliases().Add(u"alias", u"urn:alias");
        const CSmartPtr<CElement> element = new CElement(name.c_str(), name.c_str());
        element->SetText(name.c_str());
        element->GetAttributes()->Add(other.c_str(), name.c_str(), u"");
        const CSmartPtr<CElement> read = new CElement(u"");
        run.Try([&] {
            read->GetAttributes()->Clear();
            read->FromXmlStream(element->ToFastInfosetStream(FInfoDecl_None, context), context);
        });
        EXPECT_EQ(U8(read->ToXml()), U8(element->ToXml()));
    });
}
