// One flag for each record of a walk.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace ZqXmlLib9 {

/// Flags by index, all false at first. Up to 64 of them, more than nearly every class has records,
/// cost no allocation: a walk makes them for every element that it reads.
class CFoundFlags {
public:
    explicit CFoundFlags(std::size_t count)
    {
        if (count > kInPlace)
            m_more.resize(count - kInPlace);
    }

    bool Get(std::size_t index) const
    {
        return index < kInPlace ? ((m_first >> index) & 1) != 0 : m_more[index - kInPlace];
    }

    void Set(std::size_t index)
    {
        if (index < kInPlace)
            m_first |= std::uint64_t{1} << index;
        else
            m_more[index - kInPlace] = true;
    }

private:
    static constexpr std::size_t kInPlace = 64;

    std::uint64_t m_first = 0;
    std::vector<bool> m_more;
};

}  // namespace ZqXmlLib9
