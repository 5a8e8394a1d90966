// How much more than itself a document may come to.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

namespace ZqXmlLib9 {

/// In octets: below this, a document is never too small for what it comes to.
constexpr std::uint64_t kFreeAmplification = std::uint64_t{8} << 20;

/// In code units: so much of a part of a name costs little more than the node that it is for.
constexpr std::size_t kFreeNameLength = 128;

/// Counts the text that a document names without spelling it out: namespaces by their prefixes,
/// default values of attributes, entries of tables.
class CReferredText {
public:
    static constexpr const char16_t* kTooMuch =
        u"The document refers to more text than %d times its own size";

    /// \param length        in code units
    /// \param freeLength    so much of it isn't counted
    /// \param documentSize  in octets, as far as it is known
    /// \return false: it is more than `limit` times the size of the document
    bool Add(std::size_t length, std::size_t freeLength, std::uint64_t documentSize, int limit)
    {
        if (length <= freeLength)
            return true;
        m_length += length - freeLength;
        const std::uint64_t octets = m_length * sizeof(char16_t);
        return octets <= kFreeAmplification || std::cmp_less_equal(octets / documentSize, limit);
    }

private:
    std::uint64_t m_length = 0;
};

}  // namespace ZqXmlLib9
