// How the values of the library look in the messages of failed tests, and short ways to them.
#pragma once

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/engine/Text.h>
#include <ZqXmlLib9/types/BinaryData.h>

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <string_view>
#include <typeinfo>

/// UTF-8 of a text, so that a failed comparison is readable.
inline std::string U8(std::u16string_view text)
{
    return ZqXmlLib9::ToUtf8(text);
}

/// Octets as the library takes them, and as tests compare them.
inline std::span<const std::byte> Bytes(std::string_view octets)
{
    return std::as_bytes(std::span(octets));
}

inline std::string OctetsOf(const ZqXmlLib9::CBinaryData& data)
{
    return {reinterpret_cast<const char*>(data.GetData()), data.GetLength()};
}

/// What a step throws as `TException`, as the full message in UTF-8; a test failure if it doesn't.
template <typename TException = ZqXmlLib9::CZqException, typename TStep>
std::string MessageOf(TStep&& step)
{
    try {
        step();
    }
    catch (const TException& failure) {
        EXPECT_EQ(typeid(failure), typeid(TException)) << failure;
        return failure.GetFullMessageUtf8();
    }
    ADD_FAILURE() << "nothing was thrown";
    return {};
}

/// What a step returns, or the message of its failure.
template <typename TStep>
std::string TextOrMessage(TStep&& step)
try {
    return step();
}
catch (const ZqXmlLib9::CZqException& failure) {
    return failure.GetFullMessageUtf8();
}

/// Names a row of a parameterised test by its field `name`.
inline const auto kRowName = [](const auto& info) { return std::string(info.param.name); };
