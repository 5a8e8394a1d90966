// Hexadecimal, base64 and the algorithms of Fast Infoset: octets come back from their text, and any
// text ends in octets or a failure.

#include "Fuzz.h"

using namespace Fuzz;

FUZZ_TARGET(input)
{
    const unsigned algorithm = input.TakeBelow(12);
    const Octets octets = input.TakeRest();
    const CBinaryData data(octets);
    CBinaryData back;
    back.SetAsHexString(data.GetAsHexString());
    Require(back == data, "octets come back from hexadecimal", data.GetAsHexString());
    back.SetAsBase64(data.GetAsBase64());
    Require(back == data, "octets come back from base64", data.GetAsBase64());

    const std::u16string text = CInput::ToText(octets);
    Try([&] { back.SetAsHexString(text); });
    Try([&] { back.SetAsBase64(text); });

    CFastInfosetBinaryData encoded(data);
    std::u16string first, second;
    if (Try([&] { first = encoded.GetAsString(algorithm); }) && !first.empty()
        && Try([&] { encoded.SetAsEncodedString(algorithm, first); })) {
        second = encoded.GetAsString(algorithm);
        Require(first == second, "a value comes back from its text", first, second);
    }
    Try([&] { encoded.SetAsEncodedString(algorithm, text); });
}
