/// \file MachineInteger.h
/// Which machine types convert to the numbers of any size and to the fields of dates and durations.
#pragma once

#include <type_traits>

namespace ZqXmlLib9 {

template <typename T, typename... TKinds>
inline constexpr bool kIsOneOf = (std::is_same_v<T, TKinds> || ...);

/// The integers of the machine; neither bool nor a character is one.
template <typename T>
concept MachineInteger = kIsOneOf<T, signed char, unsigned char, short, unsigned short, int,
                                  unsigned, long, unsigned long, long long, unsigned long long>;

}  // namespace ZqXmlLib9
