// A writer of Fast Infoset that had failed went on as if it had not, and its document lacked an
// element, or said that attributes were text.

#include "support/EventScript.h"
#include "support/HeapFault.h"

using namespace ZqXmlLib9;

namespace {

/// Makes a document of the events that succeed, and reads it.
std::string WriteWhatCanBe(CHeapFaultRun& run, const std::vector<std::u16string>& events)
{
    CFastInfosetContext settings;
    settings.SetEncoding(ItemType_i4, {2, 4});
    CBinaryStream stream;
    CFastInfosetWriter writer(&settings, &stream);
    return TextOrMessage([&] {
        writer.WriteDocumentHeader(FInfoDecl_None);
        const auto other = [&](char16_t mark, std::u16string_view) {
            mark == u'^' ? writer.WriteDocumentHeader(FInfoDecl_None) : writer.Close();
        };
        for (const std::u16string& event : events)
            run.Try([&] {
                try {
                    WriteEvents(writer, event, other);
                }
                catch (const CZqException& failure) {
                    if (failure.GetFullMessageUtf8().ends_with("has failed before"))
                        throw;
                }
            });
        writer.WriteDocumentEnd();
        writer.Close();
        const CSmartPtr<CElement> element = new CElement(u"");
        element->FromXmlStream(stream.GetData());
        const bool hasType = OctetsOf(stream.GetData()).find("urn:type") != std::string::npos;
        return U8(element->ToXml(false, false)) + (hasType ? " and urn:type" : "");
    });
}

}  // namespace

TEST(Regress, AFastInfosetDocumentIsWholeOrRefused)
{
    using Events = std::vector<std::u16string>;
    const std::string failed = "The Fast Infoset document has failed before";
    FailEveryAllocation([&](CHeapFaultRun& run) {
        for (const auto& [events, end] :
             {std::pair(Events{u"<r", u"<c", u"/", u"'t", u">", u">"}, "<r><c>t</c></r>"),
              {{u"<r", u"@a=x#5", u"^", u">"}, "before"},
              {{u"<r", u"<e|urn:a", u":T|urn:type", u"@k|urn:attribute=v", u"'t", u">", u">"},
               " AC:k=\"v\">t</AA:e></r> and urn:type"}}) {
            const std::string outcome = WriteWhatCanBe(run, events);
            EXPECT_TRUE(outcome == failed || outcome.ends_with(end)) << outcome;
        }
    });
}
