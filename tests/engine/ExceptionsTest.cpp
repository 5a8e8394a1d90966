// Chains of failures: their text, their dynamic types, and their life.

#include "support/Print.h"

#include <memory>
#include <sstream>

namespace ZqXmlLib9 {
namespace {

template <typename T>
class EveryException : public testing::Test {};

using Family = testing::Types<CZqException, CZqOverFlowException, CZqInvalidParamException,
                              CZqInvalidStateException, CZqValidationException,
                              CZqInvalidNamespaceException, CZqInvalidValueException>;
TYPED_TEST_SUITE(EveryException, Family);

TYPED_TEST(EveryException, KeepsItsTypeInChainsAndCopies)
{
    const CZqException& fault = TypeParam(u"fault");
    const CZqOverFlowException outer(u"outer", CZqValidationException(u"middle", fault));
    auto source = std::make_unique<TypeParam>(static_cast<const CZqException&>(outer));
    const TypeParam copy = *source;
    TypeParam assigned(u"replaced", CZqException(u"replaced"));
    assigned = *source;
    *source = TypeParam();
    EXPECT_EQ(U8(source->GetFullMessage()), "");
    source.reset();
    for (const CZqException* const result : {&copy, &std::as_const(assigned)}) {
        EXPECT_EQ(U8(result->GetFullMessage()), "outer\nmiddle\nfault");
        EXPECT_EQ(typeid(*result), typeid(TypeParam));
        const CZqException* const middle = result->GetInnerException();
        EXPECT_EQ(typeid(*middle), typeid(CZqValidationException));
        const CZqException* const inner = middle->GetInnerException();
        EXPECT_EQ(typeid(*inner), typeid(TypeParam));
    }
}

TEST(FullMessage, IsPrintedInUtf8WhateverItHolds)
{
    std::ostringstream stream;
    stream << CZqException(u"\u00E4\xD800", CZqException(u"\U0001F600"));
    EXPECT_EQ(stream.str(), "\xC3\xA4\xEF\xBF\xBD\n\xF0\x9F\x98\x80");
}

}  // namespace
}  // namespace ZqXmlLib9
