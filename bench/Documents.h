// Order documents of any size, of the schema in examples/orders. The same size gives the same
// octets on every machine: nothing but integers goes into them.
#pragma once

#include <cstddef>
#include <string>

namespace Bench {

/// A document in UTF-8, formatted as the library formats by default, of `octets` or a little more.
/// One text in four is not ASCII, one in eight has something escaped.
std::string MakeOrders(std::size_t octets);

/// The elements of such a document.
std::size_t CountElements(const std::string& document);

}  // namespace Bench
