#include "KeyedHash.h"

#include <array>
#include <bit>
#include <chrono>
#include <cstring>
#include <unistd.h>

namespace ZqXmlLib9 {
namespace {

using Key = std::array<std::uint64_t, 2>;

Key DrawKey() noexcept
{
    Key key{};
    // Only a system without randomness refuses; then it is something that changes at least.
    if (::getentropy(key.data(), sizeof(key)) != 0)
        key = {
            static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()),
            reinterpret_cast<std::uintptr_t>(&key)};
    return key;
}

class CState {
public:
    explicit CState(const Key& key) noexcept
        : m_a(key[0] ^ 0x736F6D6570736575), m_b(key[1] ^ 0x646F72616E646F6D),
          m_c(key[0] ^ 0x6C7967656E657261), m_d(key[1] ^ 0x7465646279746573)
    {}

    void Add(std::uint64_t word) noexcept
    {
        m_d ^= word;
        Mix();
        m_a ^= word;
    }

    std::uint64_t Finish() noexcept
    {
        m_c ^= 0xFF;
        Mix();
        Mix();
        Mix();
        return m_a ^ m_b ^ m_c ^ m_d;
    }

private:
    void Mix() noexcept
    {
        m_a += m_b;
        m_c += m_d;
        m_b = std::rotl(m_b, 13) ^ m_a;
        m_d = std::rotl(m_d, 16) ^ m_c;
        m_a = std::rotl(m_a, 32) + m_d;
        m_c += m_b;
        m_d = std::rotl(m_d, 21) ^ m_a;
        m_b = std::rotl(m_b, 17) ^ m_c;
        m_c = std::rotl(m_c, 32);
    }

    std::uint64_t m_a, m_b, m_c, m_d;
};

}  // namespace

std::uint64_t HashWithKey(std::span<const std::byte> octets) noexcept
{
    static const Key kKey = DrawKey();
    CState state(kKey);
    const std::uint64_t length = octets.size();
    std::uint64_t word = 0;
    for (; octets.size() >= sizeof(word); octets = octets.subspan(sizeof(word))) {
        std::memcpy(&word, octets.data(), sizeof(word));
        state.Add(word);
    }
    word = 0;
    if (!octets.empty())
        std::memcpy(&word, octets.data(), octets.size());
    state.Add(word | length << 56);
    return state.Finish();
}

}  // namespace ZqXmlLib9
