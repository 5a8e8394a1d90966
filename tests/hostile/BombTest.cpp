// What would cost more than it should: it is refused, or its time grows with its size alone.

#include "Hostile.h"
#include "gpx/Gpx.h"
#include "orders/Orders.h"
#include "support/HeapFault.h"

#include <algorithm>
#include <ctime>
#include <limits>
#include <malloc.h>

namespace ZqXmlLib9 {
namespace {

using namespace std::string_literals;

/// Reads a document to an open element, writes that in both formats, and reads it back.
void Turn(const std::string& document)
{
    const CSmartPtr<CElement> element = new CElement(u""), copy = new CElement(u"");
    element->FromXmlStream(Bytes(document));
    element->Clone()->ToXmlStream(true, false);
    copy->FromXmlStream(element->ToFastInfosetStream());
}

/// The same with as many attributes in namespaces of their own on 300 levels within.
void TurnNested(const std::string& document)
{
    std::string nested = document.substr(0, document.size() - 2), ends = "</r>";
    const std::ptrdiff_t count = std::ranges::count(document, ' '), perLevel = count / 300;
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        if (i % perLevel == 0)
            nested += "><c", ends.insert(0, "</c>");
        const std::string number = std::to_string(i);
        nested += " xmlns:c" + number + "='c" + number + "' c" + number + ":a=''";
    }
    Turn(nested + ">" + ends);
}

template <typename TObject>
void TurnObject(const std::string& document)
{
    const CSmartPtr<TObject> object = new TObject();
    object->FromXmlStream(Bytes(document));
    object->FromXmlStream(object->ToXmlStream());
    object->FromXmlStream(object->ToFastInfosetStream());
}

void Inflate(const std::string& document)
{
    CBinaryData data(Bytes(document));
    CZqZip::Compress(data, CompressionType_GZIP);
    Turn(OctetsOf(data));
}

/// Reads and prints a value, and tests it against itself as a bound.
template <ItemType type>
void TurnValue(const std::string& text)
{
    using Kind = SValueKind<type>;
    const auto value = Kind::Read(ToUtf16(text), CWhitespaceUtils::WhitespaceRule_Collapse);
    const std::u16string bound = type == ItemType_string ? u"" : Kind::Print(value, nullptr);
    CheckValue<type>(u"v", value, {u"", 0, INT32_MAX, bound.c_str(), bound.c_str(), u"", u"", -1});
}

/// A pattern, a line feed, and the value.
void Match(const std::string& text)
{
    const std::u16string wide = ToUtf16(text);
    const std::size_t end = wide.find(u'\n');
    CheckValue<ItemType_string>(u"v", wide.substr(end + 1),
                                {wide.substr(0, end).c_str(), -1, -1, u"", u"", u"", u"", -1});
}

const std::string kGpx = "<gpx xmlns='http://www.topografix.com/GPX/1/1' version='' creator=''>";
const std::string kOrders =
    "<orders xmlns='urn:example:orders'><order id='1'><orderDate>2024-01-01T00:00:00</orderDate>"
    "<customer><name/><address><street/><city/><zip/><country/></address></customer><item><sku/>"
    "<description/><quantity>1</quantity><price>1</price></item>";
const std::string kFastInfoset("\xE0\0\0\1\0\x3C\0r", 8);
const std::string kLong(10'000, 'u');
const char* const kTooMuchText =
    "The document refers to more text than 100 times its own size at line 1";
const std::string kLongText = "\x92\x25" + std::string(40, 'x');  // and its index

/// Behind a head, a piece many times, in which "#" is the number of the repetition, and a tail.
struct SBomb {
    const char* name;
    std::size_t count;
    std::string head, piece, tail;
    void (*use)(const std::string& input) = nullptr;
    const char* failure = "";  ///< how its message begins

    std::string Make(std::size_t times) const
    {
        std::string all = head;
        for (std::size_t i = 0; i < times; ++i)
            for (const char c : piece)
                c == '#' ? all += std::to_string(10'000'000 + i) : all += c;
        return all + tail;
    }
};

const SBomb kBombs[] = {
    {"Attributes", 500, "<r", " n#='v'", "/>", Turn},
    {"AttributesWithPrefixes", 300, "<r", " xmlns:p#='u#' p#:a='v'", "/>", Turn},
    {"ScopesWithPrefixes", 300, "<r xmlns:a='ua' a:a=''", " xmlns:p#='u#' p#:a='v'", "/>",
     TurnNested},
    {"Names", 500, "<r>", "<n#/>", "</r>", Turn},
    {"Namespaces", 500, "<r>", "<e xmlns='u#'/>", "</r>", Turn},
    {"SiblingsWithPrefixes", 500, "<r>", "<p:e xmlns:p='u#' p:n='#'/>", "</r>", Turn},
    {"Pieces", 1000, "<r>", "text#\n&lt;<![CDATA[x]]><!---->", "</r>", Turn},
    {"Name", 50'000, "<n", "n", "/>", Turn},
    {"Value", 50'000, "<r a='", "&amp;", "'/>", Turn},
    {"Entities", 1000, "<!DOCTYPE r [<!ENTITY e 'text'>", "<!ENTITY e# 'text'>", "]><r>&e;</r>",
     Turn},
    {"Texts", 500, kFastInfoset + kLongText, "\xA0", "\xF0", Turn},
    {"Entries", 500, kFastInfoset, "\x3C\x07#\xF0", "\xF0", Turn},
    {"Booleans", 100, kFastInfoset, "\x8C\x16\x05\0\0\0\0\0\0\0\0"s, "\xF0", Turn},
    {"Extensions", 100, kGpx + "<extensions>", "<p:e xmlns:p='urn:#' p:n='#'>#</p:e>",
     "</extensions></gpx>", TurnObject<Gpx::CGpx>},
    {"Tags", 500, kOrders, "<tag>#</tag>", "</order></orders>", TurnObject<Orders::COrders>},
    {"LongNamespace", 1000, "<r xmlns='" + kLong + "'>", "<a/>", "</r>", Turn, kTooMuchText},
    {"LongNamespaceOfAttributes", 700, "<r xmlns:p='" + kLong + "'", " p:a#=''", "/>", Turn,
     "The document takes more memory than 100 times its own size at line 1"},
    {"LongDefault", 1000, "<!DOCTYPE r [<!ATTLIST a b CDATA '" + kLong + "'>]><r>", "<a/>", "</r>",
     Turn, kTooMuchText},
    {"Declarations", 2000, "<!DOCTYPE r [<!ATTLIST r", " a# CDATA ''", ">]><r/>", Turn,
     "The document declares more than 1024 attributes for one element at line 1"},
    {"DefaultNamespaces", 200,
     SBomb{"", 0, "<!DOCTYPE r [<!ATTLIST a", " xmlns:p# CDATA 'u'", ">]><r>"}.Make(1000), "<a/>",
     "</r>", Turn, kTooMuchText},
    {"Thousandfold", 50'000, "<r>", " ", "</r>", Inflate},
    {"Decimal", 20'000, "", "7", "", TurnValue<ItemType_decimal>},
    {"Double", 20'000, "", "7", "", TurnValue<ItemType_r8>},
    {"Small", 20'000, "", "7", "", TurnValue<ItemType_i4>, "The value [7777"},
    {"Second", 20'000, "00:00:00.", "7", "", TurnValue<ItemType_time>, "Invalid "},
    {"Duration", 20'000, "P", "7", "Y", TurnValue<ItemType_duration>},
    {"Hexadecimal", 20'000, "", "77", "", TurnValue<ItemType_hexBinary>},
    {"Base64", 20'000, "", "7", "", TurnValue<ItemType_base64Binary>},
    {"Blanks", 20'000, "", " a\t\n", "", TurnValue<ItemType_string>},
    {"Alternatives", 250, "(a|b)*\n", "a", "", Match},
    // The limit of steps ends it, whatever the length.
    {"Backtracking", 50, "(a+)+b\n", "a", "", Match, "Invalid Value for v [aaaa"},
};

/// What a use of each bomb may take of the heap, in octets, and in times of its size.
constexpr long kFreeMemory = 64L << 20;
constexpr long kMemory = 500;

class Bomb : public testing::TestWithParam<SBomb> {
protected:
    /// Keeps the memory of the process, whose pages cost more than the work on them.
    static void SetUpTestSuite()
    {
        mallopt(M_MMAP_THRESHOLD, 1 << 30);
        mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    }

    /// The processor time that the use of an input takes, in seconds.
    double Measure(const std::string& input)
    {
        const auto now = [] {
            timespec time;
            clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
            return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
        };
        CHeapFault::TakePeak();
        const double start = now();
        m_message = TextOrMessage([&] { return GetParam().use(input), ""; });
        const double time = now() - start;
        EXPECT_LE(CHeapFault::TakePeak(), kFreeMemory + kMemory * std::ssize(input));
        return time;
    }

    std::string m_message;
};

TEST_P(Bomb, TakesTimeByItsSize)
{
    const std::string once = GetParam().Make(GetParam().count * GetScale());
    const std::string twice = GetParam().Make(GetParam().count * GetScale() * 2);
    double first = Measure(once), second = Measure(twice);
    // Neighbours only ever make a run slower.
    for (int i = 0; i < 100 && second > 2.3 * first; ++i) {
        first = std::min(first, Measure(once));
        second = std::min(second, Measure(twice));
    }
    EXPECT_LE(second, 2.3 * first);
    const std::string_view failure = GetParam().failure;
    EXPECT_EQ(m_message.substr(0, failure.empty() ? m_message.npos : failure.size()), failure);
}

INSTANTIATE_TEST_SUITE_P(Of, Bomb, testing::ValuesIn(kBombs), kRowName);

}  // namespace
}  // namespace ZqXmlLib9
