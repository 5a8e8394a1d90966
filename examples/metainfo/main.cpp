// Reads an AppStream metainfo file, prints what it says, writes it back and reads that again.
//
//     metainfo [FILE]
//
// Exit code 1, with the chain of messages on standard error, if the file can't be read or lacks
// what the class asks for.

#include "Component.h"

#include <cstdlib>
#include <iostream>

namespace {

using namespace ZqXmlLib9;

void Run(const char* path)
{
    // The class knows the head of the file only.
    CXmlSerializationContext context;
    context.SetIgnoreUnknownElements(true);
    context.SetIgnoreUnknownAttributes(true);

    const CSmartPtr<Metainfo::CComponent> component = new Metainfo::CComponent();
    component->FromXmlFile(ToUtf16(path).c_str(), context);
    std::cout << "id:      " << ToUtf8(component->GetId()) << '\n'
              << "name:    " << ToUtf8(component->GetName()) << '\n'
              << "summary: " << ToUtf8(component->GetSummary()) << '\n';

    const std::u16string text = component->ToXml();
    std::cout << "\nWritten back:\n" << ToUtf8(text);

    const CSmartPtr<Metainfo::CComponent> again = new Metainfo::CComponent();
    again->FromXml(text.c_str());
    if (again->GetId() != component->GetId() || again->GetName() != component->GetName()
        || again->GetSummary() != component->GetSummary())
        throw CZqException(u"What was read again differs from what was read first");
    std::cout << "\nRead again: both agree.\n";
}

}  // namespace

int main(int argc, char** argv)
{
    Register(ZQXMLLIB9_VERSION_MAJOR, ZQXMLLIB9_VERSION_MINOR);
    try {
        Run(argc > 1 ? argv[1] : DEFAULT_DOCUMENT);
    }
    catch (const CZqException& failure) {
        std::cerr << failure << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
