/// \file OctetSpan.h
/// Lengths of octet data, guarded against the cut to 32 bits that C++ makes without a word.
#pragma once

#include <ZqXmlLib9/Export.h>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>
#include <utility>

namespace ZqXmlLib9 {

/// A type whose arrays are octets.
template <typename T>
concept Octet = std::same_as < std::remove_const_t<T>,
unsigned char > || std::same_as<std::remove_const_t<T>, std::byte>;

/// An integer that needs a test before it can be a 32-bit length.
template <typename T>
concept UncheckedLength =
    std::integral<T> && !std::same_as<T, bool> && !std::same_as<T, std::uint32_t>;

/// A length that goes with a pointer, unless the pair is that of a function of its own: a pointer
/// to what isn't const, with 32 bits.
template <typename T, typename TOctet>
concept LengthOf = UncheckedLength<T> ||(std::is_const_v<TOctet>&& std::same_as<T, std::uint32_t>);

/// \throws CZqOverFlowException  "A length of %I64d octets is out of range", below 0 or 4 GiB and
///         more
ZQXMLLIB9_API std::uint32_t ToLength32(std::int64_t length);

/// \throws CZqOverFlowException  as above
template <std::integral TLength>
std::uint32_t ToLength32(TLength length)
{
    return ToLength32(std::in_range<std::int64_t>(length) ? static_cast<std::int64_t>(length)
                                                          : INT64_MAX);
}

/// The octets behind a pointer.
/// \throws CZqInvalidParamException  "The data is null and its length is not 0"
ZQXMLLIB9_API std::span<const std::byte> ToOctets(const void* data, std::uint32_t length);

}  // namespace ZqXmlLib9
