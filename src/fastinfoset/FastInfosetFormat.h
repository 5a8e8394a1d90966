// What writer and reader of Fast Infoset both know of the format.
//
// Integers and lengths are written in ranges, each of which begins with a value of its own and is
// told by the first bits (ITU-T X.891, C.22 to C.28).

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace ZqXmlLib9 {

/// Values from `first` on are written as what is above it: the high bits in the first octet, added
/// to `prefix`, and `octets` more. A first octet from `prefix` up to `end` belongs to the range;
/// both without the bits in front of the field.
struct SNumberRange {
    std::uint32_t first;
    std::uint8_t prefix;
    std::uint8_t end;
    std::uint8_t octets;
};

using NumberRanges = std::span<const SNumberRange>;

/// The largest index of a table.
inline constexpr std::uint32_t kMaxIndex = std::uint32_t{1} << 20;

/// \name Indices, by the bit on which the field begins
/// @{
inline constexpr std::array<SNumberRange, 3> kIndexBit2{{
    {1, 0x00, 0x40, 0},
    {65, 0x40, 0x60, 1},
    {8257, 0x60, 0x70, 2},
}};
inline constexpr std::array<SNumberRange, 4> kIndexBit3{{
    {1, 0x00, 0x20, 0},
    {33, 0x20, 0x28, 1},
    {2081, 0x28, 0x30, 2},
    {526369, 0x30, 0x38, 3},
}};
inline constexpr std::array<SNumberRange, 4> kIndexBit4{{
    {1, 0x00, 0x10, 0},
    {17, 0x10, 0x14, 1},
    {1041, 0x14, 0x18, 2},
    {263185, 0x18, 0x1C, 3},
}};
/// @}

/// \name Lengths in octets
/// @{
inline constexpr std::array<SNumberRange, 3> kLengthBit2{{
    {1, 0x00, 0x40, 0},
    {65, 0x40, 0x41, 1},
    {321, 0x60, 0x61, 4},
}};
inline constexpr std::array<SNumberRange, 3> kLengthBit5{{
    {1, 0x00, 0x08, 0},
    {9, 0x08, 0x09, 1},
    {265, 0x0C, 0x0D, 4},
}};
inline constexpr std::array<SNumberRange, 3> kLengthBit7{{
    {1, 0x00, 0x02, 0},
    {3, 0x02, 0x03, 1},
    {259, 0x03, 0x04, 4},
}};
/// @}

/// The length of a list in the head of a document.
inline constexpr std::array<SNumberRange, 2> kSequenceLength{{
    {1, 0x00, 0x80, 0},
    {129, 0x80, 0x90, 2},
}};

/// The XML declarations of a document, by `FInfoDecl`; the first stands for none.
inline constexpr std::array<const char*, 10> kDeclarations{
    "",
    "<?xml encoding='finf'?>",
    "<?xml encoding='finf' standalone='yes'?>",
    "<?xml encoding='finf' standalone='no'?>",
    "<?xml version='1.0' encoding='finf'?>",
    "<?xml version='1.0' encoding='finf' standalone='yes'?>",
    "<?xml version='1.0' encoding='finf' standalone='no'?>",
    "<?xml version='1.1' encoding='finf'?>",
    "<?xml version='1.1' encoding='finf' standalone='yes'?>",
    "<?xml version='1.1' encoding='finf' standalone='no'?>",
};

/// What a document begins with: the identification and version 1.
inline constexpr std::array<std::uint8_t, 4> kMagic{0xE0, 0x00, 0x00, 0x01};

/// A half octet that is no character of an alphabet: both alphabets have fifteen.
inline constexpr unsigned kNoCharacter = 15;

}  // namespace ZqXmlLib9
