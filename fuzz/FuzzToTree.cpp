// A document to the tree and to an open element: text, Fast Infoset or one of both compressed. What
// becomes an element is written, and as Fast Infoset it comes back as it was.

#include "Fuzz.h"

using namespace Fuzz;

FUZZ_TARGET(input)
{
    const unsigned options = input.TakeOctet();
    const Octets octets = input.TakeRest();
    CXmlSerializationContext context;
    Choose(options, context);
    CXmlDocument document(context);
    if (Try([&] { document.LoadXmlStream(octets); }) && document.GetDocumentElement() != nullptr)
        document.LookupNamespaceFromAlias(u"a");

    const CSmartPtr<CElement> element = new CElement(u"");
    if (!Try([&] { element->FromXmlStream(octets, context); }))
        return;
    Try([&] { element->ToXmlStream(); });
    CBinaryData written;
    if (!Try([&] { written = element->ToFastInfosetStream(); }))
        return;
    const CSmartPtr<CElement> copy = new CElement(u"");
    Require(Try([&] { copy->FromXmlStream(written); }), "what is written can be read");
    const std::u16string first = element->ToXml(false, false);
    const std::u16string second = copy->ToXml(false, false);
    Require(first == second, "what is read is what was written", first, second);
}
