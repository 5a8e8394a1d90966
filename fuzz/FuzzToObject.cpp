// A document to an object of the examples: text, Fast Infoset or one of both compressed. What was
// read can be written, unless counts were let pass, and is the same when it comes back; see
// docs/roundtrip.md for what isn't.

#include "Fuzz.h"
#include "gpx/Gpx.h"
#include "orders/Orders.h"

using namespace Fuzz;

namespace {

CSmartPtr<CXmlObjectBase> Make(bool isGpx)
{
    if (isGpx)
        return new Gpx::CGpx();
    return new Orders::COrders();
}

}  // namespace

FUZZ_TARGET(input)
{
    const unsigned options = input.TakeOctet();
    const Octets octets = input.TakeRest();
    CXmlSerializationContext context;
    Choose(options, context);
    const bool isGpx = (options & 0x20) != 0;
    const CSmartPtr<CXmlObjectBase> object = Make(isGpx);
    if (!Try([&] { object->FromXmlStream(octets, context); }))
        return;
    Try([&] { object->ToXmlStream(true, true, XmlEncoding_UTF16, EOLType_CRLF, context); });
    std::u16string first;
    CBinaryData written;
    if (!Try([&] {
            first = object->ToXml(false, false, EOLType_LF, context);
            written = object->ToFastInfosetStream(FInfoDecl_None, context);
        }))
        return;
    const CSmartPtr<CXmlObjectBase> copy = Make(isGpx);
    try {
        copy->FromXmlStream(written, context);
    }
    catch (const CZqException& failure) {
        // A year is written without leading zeros.
        Require(failure.GetFullMessage().find(u"[copyright]") != std::u16string::npos,
                "what was read and written can be read", failure.GetFullMessage(), first);
        return;
    }
    const std::u16string second = copy->ToXml(false, false, EOLType_LF, context);
    Require(first == second || first.find(u"1.797693134862316e+308") != first.npos,
            "what is read is what was written", first, second);
}
