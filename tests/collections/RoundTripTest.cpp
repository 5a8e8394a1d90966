// Random trees of open elements come back as they were written, in every form of the output.

#include "model/Custom.h"
#include "support/Print.h"

#include <gtest/gtest.h>

#include <random>

namespace ZqXmlLib9 {
namespace {

using namespace TestModel;

constexpr const char16_t* kXml = u"http://www.w3.org/XML/1998/namespace";

/// Makes trees from a seed. All elements have a namespace if the tree is for a default namespace.
class CTreeMaker {
public:
    CTreeMaker(unsigned seed, bool needsNamespaces)
        : m_random(seed), m_needsNamespaces(needsNamespaces)
    {}

    CSmartPtr<CElement> Make(int depth = 0)
    {
        const char16_t* const ns = Pick<const char16_t*>(
            {u"urn:a", u"urn:b", u"http://h/?q=1;'2'", m_needsNamespaces ? u"urn:c" : u""});
        CSmartPtr<CElement> element(new CElement(Name().c_str(), ns));
        element->SetText(Text(u"\t\n").c_str());
        for (std::size_t i = Below(4); i > 0; --i) {
            // The number makes the name unique. A tab would be read as a blank (XML 1.0, 3.3.3).
            const std::u16string name = Name() + static_cast<char16_t>(u'0' + i);
            element->GetAttributes()->Add(name.c_str(), Text(u"\n").c_str(),
                                          Pick<const char16_t*>({u"", u"", u"urn:a", u"u", kXml}));
        }
        for (std::size_t i = depth < 6 ? Below(4) : 0; i > 0; --i)
            element->GetChildElements()->Add(Make(depth + 1).Get());
        return element;
    }

private:
    std::size_t Below(std::size_t limit)
    {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(m_random);
    }

    template <typename T>
    T Pick(std::initializer_list<T> choices)
    {
        return choices.begin()[Below(choices.size())];
    }

    std::u16string Name()
    {
        static constexpr std::u16string_view kStart = u"abzAZ_\u00E9\u0416\u4E2D\uAC00";
        static constexpr std::u16string_view kRest = u"abz09-._\u00E9\u0416\u4E2D\uAC00\u00B7";
        std::u16string name(1, kStart[Below(kStart.size())]);
        for (std::size_t i = Below(4); i > 0; --i)
            name += kRest[Below(kRest.size())];
        return name;
    }

    /// Half of the texts are empty.
    std::u16string Text(std::u16string_view spaces)
    {
        static constexpr std::u16string_view kMarkup = u" \"'&<>]![;#-xA";
        std::u16string text;
        for (std::size_t i = Below(2) * Below(20); i > 0; --i)
            switch (Below(5)) {
            case 0: text += kMarkup[Below(kMarkup.size())]; break;
            case 1: text += spaces[Below(spaces.size())]; break;
            case 2: text += static_cast<char16_t>(u' ' + Below(0xD800 - 0x20)); break;
            case 3: text += static_cast<char16_t>(0xE000 + Below(0xFFFE - 0xE000)); break;
            default:
                text += static_cast<char16_t>(0xD800 + Below(0x400));
                text += static_cast<char16_t>(0xDC00 + Below(0x400));
            }
        return text;
    }

    std::mt19937 m_random;
    bool m_needsNamespaces;
};

/// Everything in a tree as one text. Formatting adds white space to the text of elements with
/// children, so it can be left out there.
void Describe(const CElement& element, bool withMixedText, std::u16string& text)
{
    text += u"<{" + element.GetNamespace() + u"}" + element.GetName();
    for (const CAttribute* const attribute : *element.GetAttributes())
        text += u" {" + attribute->GetNamespace() + u"}" + attribute->GetName() + u"=\""
                + attribute->GetValue() + u"\"";
    text += u">";
    for (const CElement* const child : *element.GetChildElements())
        Describe(*child, withMixedText, text);
    if (withMixedText || element.GetChildElements()->GetCount() == 0)
        text += element.GetText();
    text += u"</>";
}

std::string Describe(const CElement& element, bool withMixedText)
{
    std::u16string text;
    Describe(element, withMixedText, text);
    return U8(text);
}

/// A document with one open element in it.
CSmartPtr<CCustom> Wrap(const CSmartPtr<CElement>& element)
{
    static CClass type = [] {
        CClass made(Info());
        made.Element<CElementInfoSeqUntpdMnd>(u"AnyElement", u"", 0, u"##any", u"");
        return made;
    }();
    CSmartPtr<CCustom> document(new CCustom(type));
    (*document)[0] = ObjectValue(element.Get());
    return document;
}

struct SForm {
    const char* name;
    unsigned firstSeed;
    bool isWrapped;  ///< aliases and a default namespace need a generated class around the tree
    bool hasAliases;
    const char16_t* defaultNamespace;
};

class RoundTrip : public testing::TestWithParam<SForm> {};

constexpr unsigned kTrees = 100;

TEST_P(RoundTrip, GivesTheSameTreeBack)
{
    CXmlSerializationContext context;
    context.SetDefaultNamespaceURI(GetParam().defaultNamespace);
    if (GetParam().hasAliases) {
        context.GetNamespaceAliases().Add(u"p", u"urn:a");
        context.GetNamespaceAliases().Add(u"AA", u"urn:unused");
        context.GetNamespaceAliases().Add(u"AB", u"urn:b");
    }
    const unsigned first = GetParam().firstSeed;
    for (unsigned seed = first; seed < first + kTrees; ++seed) {
        const CSmartPtr<CElement> tree =
            CTreeMaker(seed, GetParam().defaultNamespace[0] != u'\0').Make();
        const CSmartPtr<CXmlObjectBase> written =
            GetParam().isWrapped ? CSmartPtr<CXmlObjectBase>(Wrap(tree)) : tree;
        ASSERT_EQ(Describe(*tree->Clone(), true), Describe(*tree, true)) << seed;
        for (const bool format : {false, true})
            for (const EOLType eol : {EOLType_LF, EOLType_CRLF}) {
                const std::u16string xml = written->ToXml(seed % 2 == 0, format, eol, context);
                const std::string expected = Describe(*tree, !format);
                const CSmartPtr<CElement> found = new CElement(u"unread");
                const CSmartPtr<CXmlObjectBase> read =
                    GetParam().isWrapped ? CSmartPtr<CXmlObjectBase>(Wrap(found)) : found;
                ASSERT_NO_THROW(read->FromXml(xml.c_str())) << seed << "\n" << U8(xml);
                ASSERT_EQ(Describe(*found, !format), expected) << seed << "\n" << U8(xml);

                CXmlDocument document;
                document.LoadXml(U8(xml).c_str());
                const CXmlElement* const root = document.GetDocumentElement();
                const CSmartPtr<CElement> copy = new CElement(u"unread");
                copy->CopyXmlElement(GetParam().isWrapped ? root->GetFirstElement() : root);
                ASSERT_EQ(Describe(*copy, !format), expected) << seed << "\n" << U8(xml);
            }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Forms, RoundTrip,
    testing::Values(SForm{"Bare", 0, false, false, u""}, SForm{"Wrapped", 100, true, false, u""},
                    SForm{"Aliases", 200, true, true, u""},
                    SForm{"DefaultNamespace", 300, true, false, u"urn:a"},
                    SForm{"UnusedDefaultNamespace", 400, true, false, u"urn:unused"},
                    SForm{"AliasesAndDefaultNamespace", 500, true, true, u"urn:b"}),
    kRowName);

}  // namespace
}  // namespace ZqXmlLib9
