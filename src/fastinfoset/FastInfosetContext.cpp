#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/FormatString.h>
#include <ZqXmlLib9/fastinfoset/FastInfosetContext.h>

namespace ZqXmlLib9 {
namespace {

enum EKind : std::uint32_t { Alphabet = 1, Algorithm = 2 };

struct SSuggestion {
    ItemType type;
    EKind kind;
    std::uint32_t index;
};

/// An unsigned type takes the signed algorithm that is wider, but for the widest.
constexpr SSuggestion kSuggestions[] = {
    {ItemType_hexBinary, Algorithm, 1},                                  // hexadecimal
    {ItemType_base64Binary, Algorithm, 2}, {ItemType_i1, Algorithm, 3},  // short
    {ItemType_i2, Algorithm, 3},           {ItemType_i4, Algorithm, 4},  // int
    {ItemType_i8, Algorithm, 5},                                         // long
    {ItemType_ui1, Algorithm, 3},          {ItemType_ui2, Algorithm, 4},
    {ItemType_ui4, Algorithm, 5},          {ItemType_ui8, Algorithm, 5},
    {ItemType_r4, Algorithm, 7},       // float
    {ItemType_r8, Algorithm, 8},       // double
    {ItemType_duration, Alphabet, 2},  // date and time
    {ItemType_yearMonth, Alphabet, 2},     {ItemType_monthDay, Alphabet, 2},
    {ItemType_year, Alphabet, 2},          {ItemType_month, Alphabet, 2},
    {ItemType_day, Alphabet, 2},           {ItemType_date, Alphabet, 2},
    {ItemType_datetime, Alphabet, 2},      {ItemType_time, Alphabet, 2},
    {ItemType_boolean, Algorithm, 6},      {ItemType_decimal, Alphabet, 1},  // numeric
    {ItemType_integer, Alphabet, 1},
};

std::size_t ToIndex(ItemType type)
{
    if (type < ItemType_invalid || type > ItemType_xmlCollection)
        throw CZqInvalidParamException(FormatString(u"The item type %d has no encoding", type));
    return static_cast<std::size_t>(type);
}

}  // namespace

CFastInfosetContext::CFastInfosetContext() = default;
CFastInfosetContext::~CFastInfosetContext() = default;
CFastInfosetContext& CFastInfosetContext::operator=(const CFastInfosetContext&) = default;

// A vocabulary is copied by assignment alone.
CFastInfosetContext::CFastInfosetContext(const CFastInfosetContext& other) : CFastInfosetContext()
{
    *this = other;
}

void CFastInfosetContext::SetEncoding(ItemType type, EncodedCharacterString encoding)
{
    m_encodings[ToIndex(type)] = encoding;
}

CFastInfosetContext::EncodedCharacterString CFastInfosetContext::GetEncoding(ItemType type) const
{
    return m_encodings[ToIndex(type)];
}

void CFastInfosetContext::SetSuggestedValues()
{
    for (const auto& [type, kind, index] : kSuggestions)
        SetEncoding(type, {kind, index});
}

}  // namespace ZqXmlLib9
