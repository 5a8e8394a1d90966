// What the fuzz targets share.
//
// Each target is one function over octets. Nothing but a CZqException may leave the calls that it
// makes: any other exception, a report of a sanitizer and a broken promise (`Require`) end the
// process, and libFuzzer keeps the octets.
#pragma once

#include <ZqXmlLib9/ZqXmlLib9.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>

namespace Fuzz {

using namespace ZqXmlLib9;

using Octets = std::span<const std::byte>;

/// Generated code of this library's version runs in every target.
inline const bool kRegistered = (Register(ZQXMLLIB9_VERSION_MAJOR, ZQXMLLIB9_VERSION_MINOR), true);

/// Ends the process where a promise is broken.
inline void Require(bool holds, const char* promise, std::u16string_view first = {},
                    std::u16string_view second = {})
{
    if (holds)
        return;
    std::fprintf(stderr, "broken: %s\n  [%s]\n  [%s]\n", promise, ToUtf8(first).c_str(),
                 ToUtf8(second).c_str());
    std::abort();
}

/// \return whether a step was done; a CZqException says that it wasn't
template <typename TStep>
bool Try(TStep&& step)
{
    try {
        step();
    }
    catch (const CZqException& failure) {
        static_cast<void>(failure.GetFullMessageUtf8());
        return false;
    }
    return true;
}

/// Fuzzed octets, from which choices are taken one after the other; when they are used up, every
/// choice is 0.
class CInput {
public:
    CInput(const std::uint8_t* data, std::size_t size)
        : m_octets(std::as_bytes(std::span(data, size)))
    {}

    bool IsEmpty() const { return m_octets.empty(); }

    unsigned TakeOctet()
    {
        if (m_octets.empty())
            return 0;
        const auto octet = std::to_integer<unsigned>(m_octets.front());
        m_octets = m_octets.subspan(1);
        return octet;
    }

    /// A number below `count`.
    unsigned TakeBelow(unsigned count) { return TakeOctet() % count; }
    bool TakeBool() { return TakeBelow(2) != 0; }

    /// As many octets of any value as their first one says.
    Octets TakeOctets()
    {
        const std::size_t count = std::min<std::size_t>(TakeOctet(), m_octets.size());
        const Octets taken = m_octets.first(count);
        m_octets = m_octets.subspan(count);
        return taken;
    }

    /// The octets up to the next line feed, as text.
    std::u16string TakeLine()
    {
        const auto end = std::ranges::find(m_octets, std::byte{'\n'});
        const auto length = static_cast<std::size_t>(end - m_octets.begin());
        const std::u16string line = ToText(m_octets.first(length));
        m_octets = m_octets.subspan(std::min(length + 1, m_octets.size()));
        return line;
    }

    Octets TakeRest() { return std::exchange(m_octets, {}); }
    std::u16string TakeRestAsText() { return ToText(TakeRest()); }

    /// UTF-8; what is none has a code unit for each octet, halves of surrogate pairs among them.
    static std::u16string ToText(Octets octets)
    {
        const std::string_view utf8(reinterpret_cast<const char*>(octets.data()), octets.size());
        std::u16string text;
        if (!Try([&] { text = ToUtf16(utf8); }))
            for (const std::byte each : octets) {
                const auto octet = std::to_integer<unsigned>(each);
                text += static_cast<char16_t>(octet < 0xF8 ? octet : 0xD800 + (octet - 0xF8) * 256);
            }
        return text;
    }

private:
    Octets m_octets;
};

/// The settings that an octet chooses; those of "@" are the default ones. Inflated documents are
/// kept small, since one takes all memory and time that it is let.
inline void Choose(unsigned options, CXmlSerializationContext& context)
{
    context.SetMaxInflatedSize(std::uint64_t{1} << 22);
    context.SetIgnoreInvalidCollectionCounts((options & 0x01) != 0);
    context.SetIgnoreUnknownElements((options & 0x02) != 0);
    context.SetIgnoreMissingMandatoryElements((options & 0x06) == 0x04);
    context.SetIgnoreUnknownAttributes((options & 0x08) != 0);
    context.SetIgnoreNamespaces((options & 0x10) != 0);
    context.SetSchemaType((options & 0x40) == 0 ? SchemaType_NoNamespaces : SchemaType_Default);
    context.SetStripCDATA((options & 0x80) == 0);
}

inline Octets OctetsOf(const CBinaryData& data)
{
    return std::as_bytes(std::span(data.GetData(), data.GetLength()));
}

}  // namespace Fuzz

/// The one function of a target.
#define FUZZ_TARGET(input)                                                                         \
    static void RunTarget(Fuzz::CInput input);                                                     \
    extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)              \
    {                                                                                              \
        RunTarget(Fuzz::CInput(data, size));                                                       \
        return 0;                                                                                  \
    }                                                                                              \
    static void RunTarget([[maybe_unused]] Fuzz::CInput input)
