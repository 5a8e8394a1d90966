// conformance SUITE KNOWN: reads every document of the W3C XML conformance suite into a tree. What
// is well-formed must be accepted, and must be the tree of its canonical form where the suite has
// one; what isn't must be refused. Differences that KNOWN lists by rule are counted, any other is a
// failure, and so is one that is listed and doesn't show.

#include <ZqXmlLib9/ZqXmlLib9.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <map>
#include <set>
#include <sstream>

namespace {

using namespace ZqXmlLib9;

constexpr const char16_t* kXml = u"http://www.w3.org/XML/1998/namespace";

/// The tree as text, the same for trees that are equal.
std::string Dump(const CXmlElement& element)
{
    std::set<std::u16string> attributes;
    for (const CXmlAttribute* attribute : element.GetAttributes())
        attributes.insert(attribute->GetNamespaceURI() + u'|' + attribute->GetLocalName() + u'='
                          + attribute->GetValue() + u';');
    std::u16string text = element.GetNamespaceURI() + u'|' + element.GetLocalName() + u'(';
    for (const std::u16string& attribute : attributes)
        text += attribute;
    std::string dump = ToUtf8(text + u')' + element.GetText()) + '{';
    for (const CXmlElement* child = element.GetFirstElement(); child != nullptr;
         child = child->GetNextSiblingElement())
        dump += Dump(*child);
    return dump + '}';
}

struct STest {
    std::string id;
    std::u16string path;
    std::u16string output;  ///< empty: none
    bool isGood;
    bool hasNamespaces;
};

/// \return the tree, or the message in brackets
std::string Read(const std::u16string& path, bool hasNamespaces)
{
    CXmlSerializationContext context;
    if (!hasNamespaces)
        context.SetSchemaType(SchemaType_NoNamespaces);
    CXmlDocument document(context);
    try {
        document.Load(path.c_str());
        return Dump(*document.GetDocumentElement());
    }
    catch (const CZqException& failure) {
        return '[' + failure.GetFullMessageUtf8() + ']';
    }
}

/// \return what is wrong; empty if nothing is
std::string Run(const STest& test)
{
    const std::string outcome = Read(test.path, test.hasNamespaces);
    const bool isAccepted = !outcome.starts_with('[');
    if (isAccepted != test.isGood)
        return isAccepted ? "accepted" : "refused " + outcome;
    if (isAccepted && !test.output.empty() && outcome != Read(test.output, test.hasNamespaces))
        return "another tree " + outcome;
    return {};
}

/// The tests of XML 1.0 whose outcome isn't left open, of the editions before the fifth, whose
/// names the parser takes.
void Collect(const CXmlElement& element, std::u16string base, std::vector<STest>& tests)
{
    base += element.GetAttribute(u"base", kXml);
    const auto get = [&](const char16_t* name) { return element.GetAttribute(name, u""); };
    if (element.GetLocalName() == u"TEST") {
        const std::u16string edition = get(u"EDITION"), rule = get(u"RECOMMENDATION");
        if (get(u"VERSION") == u"1.1" || rule.ends_with(u"1.1") || get(u"TYPE") == u"error"
            || (!edition.empty() && edition.find(u'4') == std::u16string::npos))
            return;
        const std::u16string output = get(u"OUTPUT");
        tests.push_back({ToUtf8(get(u"ID")), base + get(u"URI"),
                         output.empty() ? output : base + output, get(u"TYPE") != u"not-wf",
                         get(u"NAMESPACE") != u"no"});
    }
    for (const CXmlElement* child = element.GetFirstElement(); child != nullptr;
         child = child->GetNextSiblingElement())
        Collect(*child, base, tests);
}

/// The rule of each test that is listed. A line is a test, or a rule behind "#".
std::map<std::string, std::string> ReadKnown(const char* path)
{
    std::map<std::string, std::string> known;
    std::ifstream file(path);
    std::string rule;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("# "))
            rule = line.substr(2);
        std::istringstream words(line.starts_with('#') ? "" : line);
        for (std::string id; words >> id;)
            known[id] = rule;
    }
    return known;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    const std::u16string suite = ToUtf16(argv[1]);
    CXmlDocument catalog;
    catalog.Load((suite + u"/cleaned/xmlconf-flattened.xml").c_str());
    std::vector<STest> tests;
    Collect(*catalog.GetDocumentElement(), suite + u"/xmlconf/", tests);
    auto known = ReadKnown(argv[2]);
    std::map<std::string, int> rules;
    int failures = 0;
    for (const STest& test : tests) {
        const std::string wrong = Run(test);
        const auto entry = known.find(test.id);
        const bool isKnown = entry != known.end();
        if (isKnown)
            ++rules[entry->second];
        if (isKnown == wrong.empty()) {
            ++failures;
            std::cout << test.id << ' ' << ToUtf8(test.path.substr(suite.size())) << ' '
                      << (isKnown ? "is no difference any more" : wrong) << '\n';
        }
    }
    for (const auto& [rule, count] : rules)
        std::cout << count << " known: " << rule << '\n';
    std::cout << tests.size() << " tests, " << failures << " failures\n";
    return failures == 0 ? 0 : 1;
}
