#include "Utf16Input.h"

#include "../platform/TextEncodings.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace ZqXmlLib9 {
namespace {

constexpr char16_t kMark = u'\xFEFF';

/// So many units are converted at a time.
constexpr std::size_t kBlock = 32768;

char16_t MakeUnit(std::byte first, std::byte second, CUtf16Input::EOrder order)
{
    const auto low = order == CUtf16Input::EOrder::LittleEndian ? first : second;
    const auto high = order == CUtf16Input::EOrder::LittleEndian ? second : first;
    return static_cast<char16_t>(std::to_integer<unsigned>(high) << 8
                                 | std::to_integer<unsigned>(low));
}

}  // namespace

std::optional<CUtf16Input::EOrder> CUtf16Input::Detect(std::span<const std::byte> start)
{
    if (start.size() < 2)
        return std::nullopt;
    if (MakeUnit(start[0], start[1], EOrder::LittleEndian) == kMark)
        return EOrder::LittleEndian;
    if (MakeUnit(start[0], start[1], EOrder::BigEndian) == kMark || start[0] == std::byte{0})
        return EOrder::BigEndian;
    if (start[1] == std::byte{0})
        return EOrder::LittleEndian;
    return std::nullopt;
}

CUtf16Input::EOutcome CUtf16Input::Convert(std::span<const std::byte> data, bool final,
                                           std::string& utf8)
{
    const std::size_t before = utf8.size();
    EOutcome outcome = EOutcome::Good;
    do {
        if (m_halfUnit && !data.empty()) {
            m_units.push_back(MakeUnit(*m_halfUnit, data[0], m_order));
            m_halfUnit.reset();
            data = data.subspan(1);
        }
        const std::size_t count = std::min(data.size() / 2, kBlock);
        for (std::size_t i = 0; i < count; ++i)
            m_units.push_back(MakeUnit(data[2 * i], data[2 * i + 1], m_order));
        data = data.subspan(2 * count);
        if (data.size() == 1) {
            m_halfUnit = data[0];
            data = {};
        }
        outcome = ConvertUnits(final && data.empty(), utf8);
    } while (outcome == EOutcome::Good && !data.empty());
    CountLines(std::string_view(utf8).substr(before));
    return outcome;
}

CUtf16Input::EOutcome CUtf16Input::ConvertUnits(bool final, std::string& utf8)
{
    std::u16string_view units = m_units;
    if (m_isAtStart && !units.empty()) {
        m_isAtStart = false;
        if (m_mayHaveMark && units[0] == kMark)
            units.remove_prefix(1);
        // The parser would drop another mark, and take U+0000 for a sign of UTF-16.
        if (units.starts_with(kMark))
            return EOutcome::Invalid;
    }
    const std::u16string_view good = units.substr(0, units.find(u'\0'));
    const std::size_t bad = AppendAsUtf8(good, utf8);
    if (bad == kWholeText) {
        const bool isWhole = good.size() == units.size();
        m_units.clear();
        if (!isWhole)
            return EOutcome::Invalid;
        return final && m_halfUnit ? EOutcome::Cut : EOutcome::Good;
    }
    const bool mayGoOn = bad + 1 == units.size() && IsHighSurrogate(units[bad]);
    m_units.assign(1, units[bad]);
    if (!mayGoOn)
        return EOutcome::Invalid;
    return final ? EOutcome::Cut : EOutcome::Good;
}

/// A carriage return ends a line like a line feed, and both together end one.
void CUtf16Input::CountLines(std::string_view utf8)
{
    for (const char c : utf8) {
        if (c == '\r' || (c == '\n' && !m_isBehindReturn))
            ++m_line;
        m_isBehindReturn = c == '\r';
    }
}

}  // namespace ZqXmlLib9
