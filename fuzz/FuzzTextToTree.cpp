// Any octets, compressed or not, as a document: they end in a tree or in a CZqException.

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/XmlSerializationContext.h>
#include <ZqXmlLib9/xml/XmlDocument.h>

#include <cstddef>
#include <cstdint>
#include <span>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ZqXmlLib9::CXmlSerializationContext context;
    context.SetMaxInflatedSize(std::uint64_t{1} << 24);
    ZqXmlLib9::CXmlDocument document(context);
    try {
        document.LoadXmlStream(std::as_bytes(std::span(data, size)));
    }
    catch (const ZqXmlLib9::CZqException&) {
        return 0;
    }
    return document.GetDocumentElement() == nullptr ? -1 : 0;
}
