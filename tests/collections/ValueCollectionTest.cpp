// The collections of plain values: their texts both ways, their events, and when facets are tested.

#include "model/EventLog.h"

namespace ZqXmlLib9 {
namespace {

using TestModel::CEventLog;

constexpr auto kCollapse = CWhitespaceUtils::WhitespaceRule_Collapse;

/// Opens what only generated classes call.
template <typename TCollection>
class COpen : public TCollection {
public:
    explicit COpen(const char16_t* minInclusive = u"", int maxOccurs = -1,
                   const char16_t* format = nullptr)
        : TCollection(u"a", u"urn:t", 0, maxOccurs, u"", -1, -1, minInclusive, u"", u"", u"", -1,
                      kCollapse, format)
    {}

    std::string Write() const
    {
        CTextStream stream;
        CXmlTextWriter writer(&stream);
        writer.SetFormat(false);
        writer.SetDefaultNamespace(u"urn:t");
        this->ToXml_Int(&writer, false, u"", {}, false);
        return U8(stream.GetText());
    }

    /// \return the name of the element at which the run ended
    std::string Read(const std::u16string& content, const CXmlSerializationContext& context = {})
    {
        CXmlDocument document(context);
        document.LoadXml((u"<r xmlns='urn:t'>" + content + u"</r>").c_str());
        CXmlElement* const root = document.GetDocumentElement();
        const CXmlElement* const next =
            this->FromXml_Int(root, root->GetFirstElement(), context, false);
        return next != nullptr ? U8(next->GetLocalName()) : "";
    }
};

/// Reads texts and writes them again.
template <typename TCollection>
std::string RoundTrip(std::initializer_list<const char16_t*> texts,
                      const char16_t* format = nullptr)
{
    const CSmartPtr<COpen<TCollection>> values = new COpen<TCollection>(u"", -1, format);
    std::u16string content;
    for (const char16_t* text : texts)
        content += u"<a>" + std::u16string(text) + u"</a>";
    values->Read(content);
    EXPECT_EQ(values->GetCount(), static_cast<int>(texts.size()));
    return values->Write();
}

TEST(ValueCollection, WritesAndReadsEachType)
{
    EXPECT_EQ(RoundTrip<Ci1Col>({u"-128", u" 7 "}), RoundTrip<Ci2Col>({u"-128", u"7"}));
    EXPECT_EQ(RoundTrip<Ci4Col>({u"-128", u"7"}), RoundTrip<Ci8Col>({u"-128", u"7"}));
    EXPECT_EQ(RoundTrip<Cui1Col>({u"255"}), RoundTrip<Cui2Col>({u"0255"}));
    EXPECT_EQ(RoundTrip<Cui4Col>({u"255"}), RoundTrip<Cui8Col>({u"255"}));
    EXPECT_EQ(RoundTrip<Cr4Col>({u"0.5"}, u"%.2f"), RoundTrip<CdecimalCol>({u".5"}, u"2"));
    EXPECT_EQ(RoundTrip<Cr8Col>({u"5e-1"}), RoundTrip<CdecimalCol>({u"0.50"}));
    EXPECT_EQ(RoundTrip<CintegerCol>({u"007"}), RoundTrip<CyearCol>({u"0007"}));
    EXPECT_EQ(RoundTrip<CmonthCol>({u"--07"}), RoundTrip<CstringCol>({u"\t--07"}));
    EXPECT_EQ(RoundTrip<CdayCol>({u"---07"}), RoundTrip<CstringCol>({u"---07"}));
    EXPECT_EQ(RoundTrip<CbooleanCol>({u"1", u"FALSE"}), RoundTrip<CstringCol>({u"true", u"false"}));
    EXPECT_EQ(RoundTrip<CdurationCol>({u"P1D"}), RoundTrip<CstringCol>({u"P1D"}));
    EXPECT_EQ(RoundTrip<ChexBinaryCol>({u"0a"}), RoundTrip<CstringCol>({u"0A"}));
    EXPECT_EQ(RoundTrip<Cbase64BinaryCol>({u"Cg"}), RoundTrip<CstringCol>({u"Cg=="}));
    EXPECT_EQ(RoundTrip<CdatetimeCol>({u"2000-01-01T00:00:00.0Z"}),
              RoundTrip<CstringCol>({u"2000-01-01T00:00:00Z"}));
    EXPECT_EQ(RoundTrip<CdateCol>({u"2000-01-01"}), RoundTrip<CstringCol>({u"2000-01-01"}));
    EXPECT_EQ(RoundTrip<CyearMonthCol>({u"2000-01"}), RoundTrip<CstringCol>({u"2000-01"}));
    EXPECT_EQ(RoundTrip<CtimeCol>({u"10:00:00"}), RoundTrip<CstringCol>({u"10:00:00"}));
    EXPECT_EQ(RoundTrip<CmonthDayCol>({u"--01-02"}), RoundTrip<CstringCol>({u"--01-02"}));
    EXPECT_EQ(RoundTrip<CstringCol>({u"", u"b"}), "<a xmlns=\"urn:t\"/><a xmlns=\"urn:t\">b</a>");
    EXPECT_EQ(RoundTrip<CstringCol>({}), "");
}

TEST(ValueCollection, ReadsARunOfSiblings)
{
    const CSmartPtr<COpen<Ci4Col>> values = new COpen<Ci4Col>();
    EXPECT_EQ(values->Read(u"<a x='1'>1<z>9</z></a><a>2</a><b/><a>3</a>"), "b");
    EXPECT_EQ(values->Read(u""), "");
    EXPECT_EQ(values->Read(u"<a>3</a><a xmlns='urn:o'>4</a>"), "a");
    CXmlSerializationContext context;
    context.SetIgnoreNamespaces(true);
    EXPECT_EQ(values->Read(u"<a xmlns='urn:o'>4</a>", context), "");
    EXPECT_EQ(std::vector<std::int32_t>(values->begin(), values->end()),
              std::vector<std::int32_t>({1, 2, 3, 4}));
    EXPECT_THROW(values->Read(u"<a>x</a>"), CZqInvalidValueException);
}

TEST(ValueCollection, FiresBeforeItTests)
{
    CEventLog log;
    const CSmartPtr<COpen<Ci4Col>> values = new COpen<Ci4Col>(u"5", 1);
    values->AddEventListener(&log);
    values->Add(7);
    values->AddAt(0, 6);
    EXPECT_EQ(log.Take(), "add 0;added 1;change 1;add 1;added 2;change 2;");
    EXPECT_EQ(MessageOf<CZqValidationException>([&] { values->Write(); }),
              "The Maximum number of [a] elements allowed in this collection is 1");
    EXPECT_EQ(MessageOf<CZqInvalidParamException>([&] { values->AddAt(-1, 9); }),
              "Index out of range");
    EXPECT_EQ(MessageOf([&] { values->Add(4); }), "Invalid Value for a [4]");
    EXPECT_EQ(log.Take(), "add 2;add 2;");
    EXPECT_EQ(MessageOf<CZqInvalidParamException>([&] { values->Item(2); }),
              "Index 2 is out of range, use 0 - 1");
    values->Remove(1);
    EXPECT_EQ(values->Item(0), 6);
    values->Clear();
    EXPECT_EQ(log.Take(), "remove [1]2;removed [1]1;change 1;remove [0]1;removed [0]0;change 0;");
    EXPECT_EQ(MessageOf<CZqInvalidParamException>([&] { values->Remove(0); }),
              "Index 0 is out of range, use 0 - -1");
    EXPECT_EQ(log.Take(), "remove [0]0;");
}

TEST(ValueCollection, TestsADateBeforeTheFirstEvent)
{
    CEventLog log;
    const CSmartPtr<COpen<CdateCol>> values = new COpen<CdateCol>(u"2000-01-01");
    values->AddEventListener(&log);
    CDateTime time;
    time.SetTime(10, 0, 0);
    EXPECT_EQ(MessageOf<CZqInvalidParamException>([&] { values->Add(time); }),
              "Dates added to this collection must be of type dt_date");
    EXPECT_EQ(MessageOf([&] { values->AddAt(-1, CDateTime(1999, 1, 1)); }),
              "Invalid Value for a [1999-01-01]");
    EXPECT_EQ(log.Take(), "");
    EXPECT_THROW(values->AddAt(-1, CDateTime(2001, 1, 1)), CZqInvalidParamException);
    values->Add(CDateTime(2001, 1, 1));
    values->AddAt(0, *values->begin());
    EXPECT_EQ(log.Take(), "add 0;add 0;added 1;change 1;add 1;added 2;change 2;");
}

TEST(ValueCollection, ClearsInLinearTime)
{
    const CSmartPtr<COpen<Ci4Col>> values = new COpen<Ci4Col>();
    for (int i = 0; i < 1'000'000; ++i)
        values->Add(i);
    for (int i = 0; i < 600'000; ++i)
        values->Remove(0);
    values->AddAt(0, -1);
    EXPECT_EQ(values->Item(1), 600'000);
    values->Clear();
    EXPECT_EQ(values->begin(), values->end());
}

}  // namespace
}  // namespace ZqXmlLib9
