// Objects of the examples, built by the octets, are written in one of the forms that a document has
// and read again: what comes back is what was written.

#include "Fuzz.h"
#include "gpx/Gpx.h"
#include "orders/Orders.h"

#include <filesystem>
#include <unistd.h>

using namespace Fuzz;

namespace {

/// Pieces of text that someone could get wrong: markup, white space, the edges of planes and of
/// UTF-8, the length up to which Fast Infoset makes an index, and what its tables know.
constexpr std::u16string_view kPieces[] = {
    u"a",    u"b",      u"0",      u" ",      u"\n",         u"\t",         u"<",   u">",
    u"&",    u"\"",     u"'",      u"]]>",    u"&#10;",      u"&amp;",      u"-->", u"%s",
    u"\x7F", u"\u00A0", u"\u07FF", u"\u0800", u"\U00010000", u"\U0010FFFD", u"-",   u".",
    u":",    u"\uFFFD", u"\uD7FF", u"\uE000", u"\uFEFF",     u"=\"x\"",     u"<!",  u"12345"};

std::u16string TakeText(CInput& input)
{
    std::u16string text;
    const unsigned count = input.TakeBelow(16);
    const unsigned times = input.TakeBelow(32) == 31 ? 100 : 1;
    for (unsigned i = 0; i < count; ++i)
        text += kPieces[input.TakeBelow(std::size(kPieces))];
    std::u16string whole;
    for (unsigned i = 0; i < times; ++i)
        whole += text;
    return whole;
}

/// The text of an attribute: every reader takes a tab there for a blank.
std::u16string TakeValue(CInput& input)
{
    std::u16string text = TakeText(input);
    std::ranges::replace(text, u'\t', u' ');
    return text;
}

/// White space at the ends of values that collapse it is not kept.
std::u16string TakeUri(CInput& input)
{
    return CWhitespaceUtils::Collapse(TakeText(input));
}

std::u16string TakeDigits(CInput& input, unsigned most)
{
    std::u16string digits;
    for (unsigned count = 1 + input.TakeBelow(most); count > 0; --count)
        digits += static_cast<char16_t>(u'0' + input.TakeBelow(10));
    return digits;
}

CBigInteger TakeInteger(CInput& input)
{
    return CBigInteger((input.TakeBool() ? u"-" : u"") + TakeDigits(input, 40));
}

CDecimal TakeDecimal(CInput& input)
{
    // More than 30 places would be rounded.
    return CDecimal((input.TakeBool() ? u"-" : u"") + TakeDigits(input, 40) + u"."
                    + TakeDigits(input, 30));
}

CDateTime TakeDate(CInput& input, bool withTime)
{
    const int year = 1 + static_cast<int>(input.TakeOctet() * 39);
    const unsigned month = 1 + input.TakeBelow(12), day = 1 + input.TakeBelow(28);
    if (!withTime)
        return CDateTime(year, month, day);
    CDateTime time(year, month, day, input.TakeBelow(24), input.TakeBelow(60), input.TakeBelow(60),
                   input.TakeOctet(), input.TakeOctet(), input.TakeOctet());
    if (input.TakeBool())
        time.SetUTC();
    return time;
}

template <typename T, typename TTake>
void MaySet(CInput& input, std::optional<T>& member, TTake&& take)
{
    if (input.TakeBool())
        member = take(input);
}

template <typename TItem, typename TFill>
void FillAll(CInput& input, CXmlObjectCollection<TItem>& items, unsigned least, TFill&& fill)
{
    for (unsigned count = least + input.TakeBelow(4); count > 0; --count)
        fill(input, *items.AddNew());
}

void FillOrder(CInput& input, Orders::COrder& order)
{
    order.m_id = static_cast<std::int32_t>(input.TakeOctet() * 0x01020305U);
    if (input.TakeBool())
        order.m_status = static_cast<Orders::Status>(input.TakeBelow(4));
    order.m_orderDate = TakeDate(input, true);
    order.m_customer->m_name = TakeText(input);
    MaySet(input, order.m_customer->m_email, TakeText);
    order.m_customer->m_address->m_city = TakeText(input);
    FillAll(input, *order.m_items, 1, [](CInput& in, Orders::CItem& item) {
        item.m_sku = TakeText(in);
        item.m_quantity = in.TakeOctet() * 0x01010101U;
        item.m_price = TakeDecimal(in);
        MaySet(in, item.m_weight,
               [](CInput& i) { return i.TakeOctet() / 7.0 * (i.TakeOctet() - 99.0); });
        MaySet(in, item.m_shipDate, [](CInput& i) { return TakeDate(i, false); });
    });
    MaySet(input, order.m_note, TakeText);
    for (unsigned count = input.TakeBelow(4); count > 0; --count)
        order.m_tags->Add(TakeText(input));
}

void FillOpen(CInput& input, CElement& element, int depth)
{
    static constexpr const char16_t* kUris[] = {u"urn:a", u"urn:b", u"urn:a/b?c#d"};
    static constexpr const char16_t* kNames[] = {u"a", u"b", u"\u00E9l\u00E9ment", u"xsi",
                                                 u"A-1._"};
    element.SetText(TakeText(input).c_str());
    for (unsigned count = input.TakeBelow(4); count > 0; --count)
        element.GetAttributes()->Add((u"n" + std::u16string(count, u'x')).c_str(),
                                     TakeValue(input).c_str(), kUris[input.TakeBelow(3)]);
    for (unsigned count = depth < 4 ? input.TakeBelow(3) : 0; count > 0; --count)
        FillOpen(
            input,
            *element.GetChildElements()->Add(kNames[input.TakeBelow(5)], kUris[input.TakeBelow(3)]),
            depth + 1);
}

void FillWaypoint(CInput& input, Gpx::CWaypoint& point)
{
    point.m_lat = TakeDecimal(input);
    point.m_lon = TakeDecimal(input);
    MaySet(input, point.m_ele, TakeDecimal);
    MaySet(input, point.m_time, [](CInput& in) { return TakeDate(in, true); });
    MaySet(input, point.m_name, TakeText);
    MaySet(input, point.m_sat, TakeInteger);
    if (input.TakeBool())
        point.m_fix = static_cast<Gpx::FixType>(input.TakeBelow(5));
    FillAll(input, *point.m_links, 0, [](CInput& in, Gpx::CLink& link) {
        link.m_href = TakeUri(in);
        MaySet(in, link.m_text, TakeText);
    });
    if (input.TakeBool()) {
        point.m_extensions = new Gpx::CExtensions();
        FillOpen(input, *point.m_extensions->m_elements->Add(u"e", u"urn:a"), 0);
    }
}

CSmartPtr<CXmlObjectBase> MakeObject(CInput& input)
{
    if (input.TakeBool()) {
        const CSmartPtr<Orders::COrders> orders = new Orders::COrders();
        FillAll(input, *orders->m_orders, 0, FillOrder);
        return orders.Get();
    }
    const CSmartPtr<Gpx::CGpx> gpx = new Gpx::CGpx();
    gpx->m_version = TakeValue(input);
    gpx->m_creator = TakeValue(input);
    FillAll(input, *gpx->m_waypoints, 0, FillWaypoint);
    FillAll(input, *gpx->m_tracks, 0, [](CInput& in, Gpx::CTrack& track) {
        MaySet(in, track.m_number, TakeInteger);
        FillAll(in, *track.m_segments, 0, [](CInput& i, Gpx::CTrackSegment& segment) {
            FillAll(i, *segment.m_points, 0, FillWaypoint);
        });
    });
    return gpx.Get();
}

void ChooseForm(CInput& input, CXmlSerializationContext& context)
{
    static constexpr const char16_t* kUris[] = {Orders::kNamespace, Gpx::kNamespace, u"urn:a",
                                                u"urn:b"};
    if (input.TakeBool())
        context.SetDefaultNamespaceURI(kUris[input.TakeBelow(2)]);
    for (unsigned count = input.TakeBelow(4); count > 0; --count)
        context.GetNamespaceAliases().Add((u"p" + std::u16string(count, u'q')).c_str(),
                                          kUris[input.TakeBelow(4)]);
    CFastInfosetContext& settings = context.GetFIContext();
    if (input.TakeBool())
        settings.SetSuggestedValues();
    settings.SetElementMaxAddLength(input.TakeOctet());
    settings.SetAttributeMaxAddLength(input.TakeOctet());
    settings.SetUseGeneratedVocabulary(input.TakeBool());
    if (input.TakeBool()) {
        settings.GetVocabulary()->AddElement(u"p", kUris[2], u"a");
        settings.GetVocabulary()->AddElementValue(u"12345");
        settings.GetVocabulary()->AddAttributeValue(u"a");
    }
}

/// Writes in the form that the octets choose, and reads that.
void WriteAndRead(CInput& input, const CXmlObjectBase& object, CXmlObjectBase& copy)
{
    static const std::u16string file =
        (std::filesystem::temp_directory_path() / ("zqxml-fuzz-" + std::to_string(::getpid())))
            .u16string();
    CXmlSerializationContext context;
    ChooseForm(input, context);
    const unsigned form = input.TakeBelow(8);
    // Formatting adds to the text of open content.
    const bool header = input.TakeBool();
    const auto eol = input.TakeBool() ? EOLType_CRLF : EOLType_LF;
    const auto encoding = static_cast<XmlEncoding>(1 + input.TakeBelow(3));
    const auto declaration = static_cast<FInfoDecl>(input.TakeBelow(10));
    const auto compression = static_cast<CompressionType>(input.TakeBelow(form < 4 ? 3 : 2));
    switch (form) {
    case 0:
    case 1: copy.FromXml(object.ToXml(header, false, eol, context).c_str(), context); break;
    case 2:
        copy.FromXmlStream(object.ToXmlStream(header, false, encoding, eol, context, compression),
                           context);
        break;
    case 3:
        copy.FromXmlStream(object.ToFastInfosetStream(declaration, context, compression), context);
        break;
    case 4:
    case 5:
        object.ToXmlFile(file.c_str(), header, false, encoding, eol, context, compression);
        copy.FromXmlFile(file.c_str(), context);
        break;
    default:
        object.ToFastInfosetFile(file.c_str(), declaration, context, compression);
        copy.FromXmlFile(file.c_str(), context);
    }
    if (form > 3)
        std::filesystem::remove(file);
}

/// What a form may refuse: short documents don't get shorter, and not every value fits the
/// suggested encodings.
bool IsDocumentedFailure(const std::u16string& message)
{
    constexpr std::u16string_view kMisfit =
        u"Failed to write FastInfoset. Invalid character not found for Restricted Alphabet.";
    return message.find(u"Failed to compress data.") != message.npos
           || message.find(kMisfit) != message.npos;
}

}  // namespace

FUZZ_TARGET(input)
{
    const CSmartPtr<CXmlObjectBase> object = MakeObject(input);
    const CSmartPtr<CXmlObjectBase> copy = dynamic_cast<Gpx::CGpx*>(object.Get()) != nullptr
                                               ? CSmartPtr<CXmlObjectBase>(new Gpx::CGpx())
                                               : CSmartPtr<CXmlObjectBase>(new Orders::COrders());
    const std::u16string first = object->ToXml(false, false);
    try {
        WriteAndRead(input, *object, *copy);
    }
    catch (const CZqException& failure) {
        Require(IsDocumentedFailure(failure.GetFullMessage()), "every form can be written and read",
                failure.GetFullMessage(), first);
        return;
    }
    const std::u16string second = copy->ToXml(false, false);
    Require(first == second, "what is read is what was written", first, second);
}
