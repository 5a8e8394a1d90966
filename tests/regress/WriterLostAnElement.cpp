// A writer of Fast Infoset that had failed went on as if it had not, and its document lacked an
// element, or said that attributes were text.

#include "support/EventScript.h"
#include "support/HeapFault.h"

using namespace ZqXmlLib9;

namespace {

/// Makes a document of the events that succeed, and reads it.
std::string WriteWhatCanBe(CHeapFaultRun& run, std::u16string_view events)
{
    CFastInfosetContext settings;
    settings.SetEncoding(ItemType_i4, {2, 4});
    CBinaryStream stream;
    CFastInfosetWriter writer(&settings, &stream);
    const auto other = [&](char16_t mark, std::u16string_view) {
        mark == u'^' ? writer.WriteDocumentHeader(FInfoDecl_None) : writer.Close();
    };
    return TextOrMessage([&] {
        while (!events.empty()) {
            const std::u16string_view event = Take(events, u' ');
            run.Try([&] {
                const std::string outcome =
                    TextOrMessage([&] { return WriteEvents(writer, event, other), ""; });
                if (outcome.ends_with("before"))
                    throw CZqException(ToUtf16(outcome));
            });
        }
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
    const std::string failed = "The Fast Infoset document has failed before";
    FailEveryAllocation([&](CHeapFaultRun& run) {
        for (const auto& [events, end] : {std::pair(u"^ <r <c / 't > >", "<r><c>t</c></r>"),
                                          {u"^ <r @a=x#5 ^ >", "before"},
                                          {u"^ <r <e|urn:a :T|urn:type @k|urn:attribute=v 't > >",
                                           " AC:k=\"v\">t</AA:e></r> and urn:type"}}) {
            const std::string outcome = WriteWhatCanBe(run, events);
            EXPECT_TRUE(outcome == failed || outcome.ends_with(end)) << outcome;
        }
    });
}
