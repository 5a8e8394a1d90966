// The rule language of xs:any and xs:anyAttribute: which namespaces open content may come from.
//
// A restriction is a list of tokens, separated by single blanks: ##any, ##other, ##local,
// ##targetNamespace, or a URI. A URI lets the empty namespace pass too, and an empty restriction is
// one empty URI.
//
// Source: XML Schema Part 1, 3.10.
#pragma once

#include <string_view>

namespace ZqXmlLib9 {

/// Whether a namespace passes one token of a restriction at least.
bool DoesNamespacePass(std::u16string_view ns, std::u16string_view restriction,
                       std::u16string_view targetNamespace) noexcept;

/// \throws CZqInvalidNamespaceException  "Invalid namespace [%s]. The namespace must be one of
///         [%s] where the target namespace is [%s]"
void RequireNamespacePasses(std::u16string_view ns, std::u16string_view restriction,
                            std::u16string_view targetNamespace);

/// Takes the first token off a restriction, with the blank behind it.
std::u16string_view TakeToken(std::u16string_view& restriction) noexcept;

inline constexpr std::u16string_view kAnyNamespace = u"##any";
inline constexpr std::u16string_view kOtherNamespace = u"##other";
inline constexpr std::u16string_view kLocalNamespace = u"##local";
inline constexpr std::u16string_view kTargetNamespace = u"##targetNamespace";

}  // namespace ZqXmlLib9
