// A hash of octets that others choose: without the key of the process nobody can make octets that
// collide.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace ZqXmlLib9 {

/// SipHash-1-3 (Aumasson and Bernstein) with a key that is drawn when the first hash is made.
std::uint64_t HashWithKey(std::span<const std::byte> octets) noexcept;

}  // namespace ZqXmlLib9
