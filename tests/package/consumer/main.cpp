// Uses what a program can only use if headers, library and casts across its border are right, and
// holds a value of each class that gdb has a printer for.
#include <ZqXmlLib9/ZqXmlLib9.h>

#include <iostream>

using namespace ZqXmlLib9;

/// Where gdb stops.
void Stop()
{
    std::cout << "version " << GetLibraryVersion().major << '\n';
}

int main()
{
    Register(ZQXMLLIB9_VERSION_MAJOR, ZQXMLLIB9_VERSION_MINOR);
    try {
        CDecimal(u"1x");
    }
    catch (const CZqException& failure) {
        std::cout << failure << '\n';
    }
    const CBigInteger integer(u"-12345678901234567890");
    const CDecimal decimal(u"-0.0125");
    CDateTime date(-44, 3, 15, 12, 30, 5, 250);
    date.SetTimeZone(-5, 30);
    CDateTimeSpan span(1, 0, 3, 0, 90, 0, 5000);
    span.Negate();
    const unsigned char octets[] = {0x0A, 0xFF};
    const CBinaryData binary(octets, 2u);
    const CBinaryData noBinary;
    ZqVariant text, number, nothing;
    text.SetString(u"Grüße");
    number.SetDecimal(decimal);
    CXmlDocument document;
    document.LoadXml(u"<a xmlns='urn:a' b='1'>x<c/></a>");
    const CXmlElement& tree = *document.GetDocumentElement();
    const CSmartPtr<CXmlObjectBase> pointer = new CElement(u"a");
    const CSmartPtr<CXmlObjectBase> null;
    Stop();
}
