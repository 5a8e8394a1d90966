// A buffer gives back what went in, wherever its blocks of 4095 code units were cut.

#include <ZqXmlLib9/engine/Exceptions.h>
#include <ZqXmlLib9/xml/StringBuffer.h>

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace ZqXmlLib9 {
namespace {

/// A text without a period that blocks or pieces could share.
std::u16string MakeText(std::size_t length)
{
    std::u16string text;
    for (std::size_t i = 0; i < length; ++i)
        text += static_cast<char16_t>(1 + i % 65521);
    return text;
}

/// Appends by each of the overloads in turn.
void AppendInPieces(CStringBuffer& buffer, const std::u16string& text, std::size_t piece)
{
    for (std::size_t i = 0; i < text.size(); i += piece) {
        const std::u16string next = text.substr(i, piece);
        switch (next.size() == 1 ? 0 : 1 + i % 3) {
        case 0: buffer.Append(next[0]); break;
        case 1: buffer.Append(next); break;
        case 2: buffer.Append(next.c_str()); break;
        default: buffer.Append(std::u16string_view(next));
        }
    }
}

/// Length of the text, and of the pieces in which it comes.
class BufferOf : public testing::TestWithParam<std::tuple<std::size_t, std::size_t>> {};

TEST_P(BufferOf, GivesBackWhatCameSinceItWasEmptied)
{
    const auto& [length, piece] = GetParam();
    for (const auto empty : {&CStringBuffer::Clear, &CStringBuffer::Reset}) {
        CStringBuffer buffer;
        std::u16string text;
        for (const std::size_t more : {length, std::size_t{1}, std::size_t{4095}, length}) {
            AppendInPieces(buffer, MakeText(more), piece);
            text += MakeText(more);
            EXPECT_EQ(buffer.GetPendingLength(), text.size());
            const char16_t* const whole = buffer.GetText();
            EXPECT_EQ(whole, text);
            EXPECT_EQ(buffer.GetText(), whole) << "moved without a write";
        }
        for (const std::size_t next : {std::size_t{3}, length, std::size_t{4000}}) {
            (buffer.*empty)();
            EXPECT_EQ(buffer.GetPendingLength(), 0U);
            EXPECT_EQ(buffer.GetText(), std::u16string());
            AppendInPieces(buffer, MakeText(next), piece);
            // The one between is emptied with its blocks as they came.
            if (next != length) {
                EXPECT_EQ(buffer.GetText(), MakeText(next));
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AroundBlocks, BufferOf,
                         testing::Combine(testing::Values(0, 1, 4094, 4095, 4096, 8190, 8191),
                                          testing::Values(1, 1001, 4095, 4096, 10000)));

TEST(BufferAtItsLimit, RefusesAndStaysAsItWas)
{
    CStringBuffer buffer;
    buffer.Append(u"ab");
    // Never read: the length alone is too much.
    const std::u16string_view tooLong(buffer.GetText(), 0xFFFF'FFFE);
    EXPECT_THROW(buffer.Append(tooLong), CZqOverFlowException);
    EXPECT_EQ(buffer.GetPendingLength(), 2U);
    EXPECT_EQ(buffer.GetText(), std::u16string(u"ab"));
}

}  // namespace
}  // namespace ZqXmlLib9
