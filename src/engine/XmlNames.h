// Names that XML itself and XML Schema fix.
#pragma once

#include <cstring>
#include <string_view>

namespace ZqXmlLib9 {

/// Bound to the prefix `xml` in every document (Namespaces in XML 1.0, 3).
inline constexpr std::u16string_view kXmlNamespace = u"http://www.w3.org/XML/1998/namespace";

/// Of declarations of namespaces, where a reader delivers them as attributes.
inline constexpr std::u16string_view kXmlnsNamespace = u"http://www.w3.org/2000/xmlns/";

/// Of `xsi:type`, `xsi:nil` and their like (XML Schema Part 1, 2.6).
inline constexpr std::u16string_view kXsiNamespace = u"http://www.w3.org/2001/XMLSchema-instance";

/// What a text begins with that is written as it stands.
inline constexpr std::u16string_view kCDataStart = u"<![CDATA[";
inline constexpr std::u16string_view kCDataEnd = u"]]>";

/// Whether two names or URIs are the same. In most pairs the length tells, and where it doesn't,
/// one comparison of octets is faster than that of strings, which goes unit by unit.
inline bool IsSameName(std::u16string_view left, std::u16string_view right) noexcept
{
    return left.size() == right.size()
           && (left.empty() || left.data() == right.data()
               || std::memcmp(left.data(), right.data(), left.size() * sizeof(char16_t)) == 0);
}

}  // namespace ZqXmlLib9
