#include "Utf16Input.h"

#include "../platform/TextEncodings.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace ZqXmlLib9 {
namespace {

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
    for (const EOrder order : {EOrder::LittleEndian, EOrder::BigEndian}) {
        const char16_t unit = MakeUnit(start[0], start[1], order);
        if (unit == u'\xFEFF' || unit == u'<')
            return order;
    }
    return std::nullopt;
}

CUtf16Input::EOutcome CUtf16Input::Convert(std::span<const std::byte> data, bool final,
                                           std::string& utf8)
{
    const std::size_t before = utf8.size();
    EOutcome outcome = EOutcome::Good;
    while (outcome == EOutcome::Good && !data.empty()) {
        if (m_halfUnit) {
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
    }
    if (outcome == EOutcome::Good && final && m_halfUnit)
        outcome = EOutcome::Cut;
    const std::string_view added = std::string_view(utf8).substr(before);
    m_line += static_cast<std::uint64_t>(std::ranges::count(added, '\n'));
    return outcome;
}

CUtf16Input::EOutcome CUtf16Input::ConvertUnits(bool final, std::string& utf8)
{
    std::u16string_view units = m_units;
    if (m_isAtStart && units.starts_with(u'\xFEFF'))
        units.remove_prefix(1);
    m_isAtStart = m_isAtStart && m_units.empty();
    const std::size_t bad = AppendAsUtf8(units, utf8);
    if (bad == kWholeText) {
        m_units.clear();
        return EOutcome::Good;
    }
    const bool mayGoOn = bad + 1 == units.size() && IsHighSurrogate(units[bad]);
    m_units.assign(1, units[bad]);
    if (!mayGoOn)
        return EOutcome::Invalid;
    return final ? EOutcome::Cut : EOutcome::Good;
}

}  // namespace ZqXmlLib9
