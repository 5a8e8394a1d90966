// What the tests with hostile input share.
#pragma once

#include "support/Print.h"

#include <ZqXmlLib9/ZqXmlLib9.h>

#include <cstdlib>
#include <string>
#include <string_view>

/// How much larger than usual the inputs are; scripts/hostile makes them so.
inline std::size_t GetScale()
{
    const char* const scale = std::getenv("ZQXML_HOSTILE_SCALE");
    return scale != nullptr ? std::strtoul(scale, nullptr, 10) : 1;
}

inline std::string Times(std::size_t count, std::string_view text)
{
    std::string all;
    for (std::size_t i = 0; i < count; ++i)
        all += text;
    return all;
}
