// The table of aliases and the restrictions of open content, with any text.

#include "Fuzz.h"

#include <map>

using namespace Fuzz;

namespace {

void FillTable(CInput& input, CNamespaceAliasMap& table)
{
    std::map<std::u16string, std::u16string> expected;
    for (unsigned i = input.TakeBelow(8); i > 0; --i) {
        const std::u16string alias = input.TakeLine(), uri = input.TakeLine();
        const char16_t* const key = uri.c_str();
        if (alias == u"-") {
            table.RemoveNamespace(key);
            expected.erase(key);
        }
        else {
            table.Add(alias.c_str(), key);
            expected[key] = TextOrEmpty(alias.c_str());
        }
    }
    Require(table.GetNamespaceCount() == static_cast<int>(expected.size()),
            "every URI stands once");
    int index = 0;
    for (const auto& [uri, alias] : expected) {
        Require(table.GetNamespaceAt(index++) == uri, "URIs are in order", uri);
        Require(table.GetAliasFromNamespace(uri.c_str()) == alias, "a URI has its alias", uri);
        const std::u16string& found = table.GetNamespaceFromAlias(alias.c_str());
        Require(expected[found] == alias, "an alias has its URI", alias);
    }
}

}  // namespace

FUZZ_TARGET(input)
{
    CXmlSerializationContext context;
    FillTable(input, context.GetNamespaceAliases());
    const std::u16string ns = input.TakeLine(), restriction = input.TakeLine(),
                         target = input.TakeLine();

    CSmartPtr<CElement> element;
    const bool passes =
        Try([&] { element = new CElement(u"e", ns.c_str(), restriction.c_str(), target.c_str()); });
    const CSmartPtr<CElement> free = new CElement(u"e", u"", u"##any", u"");
    free->SetNamespace(ns.c_str());
    const bool passesLater =
        Try([&] { free->SetNamespaceRestrictions(restriction.c_str(), target.c_str()); });
    // A null or empty restriction of an element is its namespace.
    if (!restriction.empty())
        Require(passes == passesLater, "a restriction says the same to all", ns, restriction);
    Try([&] {
        const CSmartPtr<CAttributeCol> attributes =
            new CAttributeCol(ns.c_str(), restriction.c_str(), target.c_str());
        attributes->Add(u"a", u"v", ns.c_str());
    });
    Try([&] {
        const CSmartPtr<CElementCol> elements =
            new CElementCol(ns.c_str(), restriction.c_str(), target.c_str(), 0, -1);
        elements->Add(u"e");
    });
    Try([&] { free->ToXmlStream(true, true, XmlEncoding_UTF8, EOLType_LF, context); });
    Try([&] { free->ToFastInfosetStream(FInfoDecl_None, context); });
}
