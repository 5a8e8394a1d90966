// What is measured: ways between the forms of one document, and between values and their texts.
#pragma once

#include <Orders.h>

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace Bench {

/// A document in all its forms.
struct SData {
    explicit SData(std::size_t octets);

    ZqXmlLib9::CXmlSerializationContext context;       ///< orders without a prefix
    ZqXmlLib9::CXmlSerializationContext typedContext;  ///< the same with suggested values
    std::string text;
    std::size_t elements;
    ZqXmlLib9::CSmartPtr<Orders::COrders> objects;
    ZqXmlLib9::CBinaryData gzip;
    ZqXmlLib9::CBinaryData infoset;
    ZqXmlLib9::CBinaryData typedInfoset;
};

struct SCase {
    const char* name;
    /// The least ratio to the floor that is asked for; 0: none.
    double mark;
    /// \return what it made, which shows what it holds
    std::shared_ptr<const void> (*run)(const SData& data);
};

/// The first is the floor: the parser alone, with handlers that do nothing.
std::span<const SCase> GetCases();

/// Values of one type as texts.
struct SValues {
    const char* name;
    ZqXmlLib9::ItemType type;
    std::vector<std::u16string> texts;
};

std::vector<SValues> MakeValues();

}  // namespace Bench
