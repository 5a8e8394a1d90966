// The octet buffer: what a change makes and reaches, the lengths it takes, its two text forms.

#include "Rows.h"

#include <ZqXmlLib9/types/BinaryData.h>

#include <gtest/gtest.h>

#include <latch>
#include <memory>
#include <thread>
#include <utility>

namespace ZqXmlLib9 {
namespace {

using namespace std::string_literals;
using Octets = std::unique_ptr<unsigned char[]>;

CBinaryData FromHex(std::u16string_view hex)
{
    CBinaryData data;
    data.SetAsHexString(hex);
    return data;
}

std::string Hex(const CBinaryData& data)
{
    return data.GetData() != nullptr ? U8(data.GetAsHexString()) : "none";
}

/// A change, and what it makes of 0A FF 01.
struct SChange {
    const char* name;
    const char* expected;
    void (*change)(CBinaryData&);
};

class Change : public testing::TestWithParam<SChange> {};

TEST_P(Change, ReachesNoOtherHolder)
{
    const CBinaryData source = FromHex(u"0AFF01");
    CBinaryData copy = source, withRoom(source.GetData(), 3), withoutRoom = FromHex(u"0AFF01");
    EXPECT_EQ(copy.GetData(), source.GetData());
    for (CBinaryData* const data : {&copy, &withRoom, &withoutRoom}) {
        GetParam().change(*data);
        EXPECT_EQ(Hex(*data), GetParam().expected);
    }
    EXPECT_EQ(Hex(source), "0AFF01");
}

const SChange kChanges[] = {
    {"AppendOctet", "0AFF0107", [](auto& d) { d.Append(static_cast<unsigned char>(7)); }},
    {"AppendUnit", "0AFF013A26", [](auto& d) { d.Append(u'\u263A'); }},
    {"AppendText", "0AFF01000000DC", [](auto& d) { d.Append(std::u16string(u"\0\xDC00", 2)); }},
    {"AppendItself", "0AFF010AFF01", [](auto& d) { d.Append(d); }},
    {"AppendPartOfItself", "0AFF01FF01", [](auto& d) { d.Append(d.GetData() + 1, 2); }},
    {"Write", "0A0001", [](auto& d) { d[1] = 0; }},
    {"SetItself", "0AFF01", [](auto& d) { d = std::as_const(d); }},
    {"MoveToItself", "0AFF01", [](auto& d) { d = std::move(d); }},
    {"SetPartOfItself", "FF01", [](auto& d) { d.SetBuffer(d.GetData() + 1, 2); }},
    {"SetNothing", "", [](auto& d) { d.SetBuffer(nullptr, 0); }},
    {"AdoptNothing", "", [](auto& d) { d = CBinaryData(new unsigned char[1], 0, true); }},
    {"SetBadHex", "none", [](auto& d) { EXPECT_ANY_THROW(d.SetAsHexString(u"x")); }},
    {"Release", "none", [](auto& d) { Octets(d.ReleaseData())[1] = 0; }}};
INSTANTIATE_TEST_SUITE_P(All, Change, testing::ValuesIn(kChanges), kRowName);

TEST(BinaryData, IsEqualByItsOctetsAndItsBuffer)
{
    CBinaryData data;
    EXPECT_TRUE(data == CBinaryData() && data != CBinaryData(u"") && data.ReleaseData() == nullptr);
    data.Append(u"");
    EXPECT_EQ(data, CBinaryData(u""));
    data.SetBuffer(u"A\u263A");
    EXPECT_EQ(data, FromHex(u"41003a26"));
    for (const char16_t* const other : {u"41003A", u"41003A27", u"41003A2600"})
        EXPECT_NE(data, FromHex(other));
}

TEST(BinaryData, AppendsItselfAcrossEveryGrowth)
{
    for (const bool isShared : {false, true}) {
        CBinaryData data = FromHex(u"010203");
        while (data.GetLength() < 50'000) {
            const CBinaryData former = isShared ? data : CBinaryData();
            data.Append(data);
        }
        for (std::uint32_t i = 0; i < data.GetLength(); ++i)
            ASSERT_EQ(data.GetData()[i], i % 3 + 1) << i;
    }
}

TEST(BinaryData, NamesAnIndexOutOfRange)
{
    CBinaryData data;
    EXPECT_EQ(MessageOf([&] { data[0] = 0; }), "Index Out of range [0]");
    EXPECT_EQ(MessageOf([&] { (void)std::as_const(data)[~0u]; }), "Index Out of range [-1]");
}

/// There is only one octet to read, so each length must be refused before.
TEST(BinaryData, RefusesLengthsOutOfRange)
{
    unsigned char octet = 1;
    CBinaryData data(&octet, 1, false);
    for (const std::int64_t length : {std::int64_t{-1}, std::int64_t{1} << 32, INT64_MAX}) {
        EXPECT_EQ(MessageOf<CZqOverFlowException>([&] { data.Append(&octet, length); }),
                  "A length of " + std::to_string(length) + " octets is out of range");
        EXPECT_THROW(CBinaryData(&octet, length, true), CZqOverFlowException);
        EXPECT_THROW(CBinaryData(&octet, length), CZqOverFlowException);
        EXPECT_THROW(data.SetBuffer(&octet, length), CZqOverFlowException);
    }
    const std::span tooLong(reinterpret_cast<const std::byte*>(&octet), std::size_t{1} << 32);
    EXPECT_THROW(data.SetBuffer(tooLong), CZqOverFlowException);
    EXPECT_THROW(data.Append(&octet, UINT32_MAX), CZqOverFlowException);
    EXPECT_THROW(CBinaryData(nullptr, 1, true), CZqInvalidParamException);
    EXPECT_THROW(data.Append(nullptr, 1), CZqInvalidParamException);
    EXPECT_EQ(Hex(data), "01");
}

/// Copies of one value on several threads share its buffer until they change it, all at once.
void ChangeCopies(const CBinaryData& own, unsigned char octet)
{
    CBinaryData appended = own, written = own, released = own;
    appended.Append(octet);
    written[0] = octet;
    Octets(released.ReleaseData())[3] = octet;
    EXPECT_TRUE(appended[4] == octet && written[3] == 2 && own.GetAsHexString() == u"0AFF0102");
}

/// The holders leave in any order; whoever is the last gives the array itself away or frees it.
TEST(CopiesOnThreads, ReachNoOtherHolder)
{
    for (int round = 0; round < 500; ++round) {
        std::latch start(4);
        std::vector<std::jthread> threads;
        CBinaryData source;
        source.SetAsHexString(u"0AFF0102");
        for (unsigned char i = 0; i < 4; ++i)
            threads.emplace_back([&start, round, i, own = source]() mutable {
                start.arrive_and_wait();
                for (int change = 0; change < round % 16; ++change)
                    ChangeCopies(own, i);
                EXPECT_TRUE(i % 2 == 0 || Octets(own.ReleaseData())[1] == 0xFF);
            });
        source.Clear();
    }
}

TEST(HexText, NamesItsFirstFault)
{
    EXPECT_EQ(Hex(FromHex(u"0123456789abcdefABCDEF")), "0123456789ABCDEFABCDEF");
    // A text and its first fault.
    const std::vector<std::string> rows = Words("0xFF1 x /0 / 0: : @0 @ 0G G 0`g ` \u01310 \u0131");
    for (std::size_t i = 0; i < rows.size(); i += 2)
        EXPECT_EQ(MessageOf([&] { FromHex(ToUtf16(rows[i])); }),
                  "Invalid char in hex string [" + rows[i + 1] + "]");
    EXPECT_EQ(MessageOf([] { FromHex(u"0A FF"); }), "Invalid char in hex string [ ]");
    EXPECT_EQ(MessageOf([] { FromHex(u"0AFF1"); }), "Invalid char in hex string [\0]"s);
}

/// RFC 4648, 10, and the whole alphabet.
TEST(Base64Text, IsWrittenAndRead)
{
    const std::vector<std::string> rows =
        Words("Zg== 66 Zm9vYmE= 666F6F6261 "
              "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/ "
              "00108310518720928B30D38F41149351559761969B71D79F8218A39259A7A29AABB2DBAFC31CB3D35DB7"
              "E39EBBF3DFBF");
    for (std::size_t i = 0; i < rows.size(); i += 2) {
        CBinaryData data = FromHex(ToUtf16(rows[i + 1]));
        EXPECT_EQ(U8(data.GetAsBase64()), rows[i]);
        data.SetAsBase64(ToUtf16(rows[i]));
        EXPECT_EQ(Hex(data), rows[i + 1]);
    }
}

TEST(Base64Text, IsReadLeniently)
{
    // Skipped: white space, equals signs, bits that make no octet, all but seven bits.
    const std::pair<const char16_t*, const char*> rows[] = {{u" T\tW\r\nF u ", "4D616E"},
                                                            {u"=T=W==Fu===", "4D616E"},
                                                            {u"TR==", "4D"},
                                                            {u"T\u0157\u20C6uT\u013D", "4D616E"},
                                                            {u"*TWFu", ""},
                                                            {u"TW-_", ""},
                                                            {u"", ""},
                                                            {u"TWFu\v", ""}};
    for (const auto& [text, hex] : rows) {
        CBinaryData data(u"before");
        data.SetAsBase64(text);
        EXPECT_EQ(Hex(data), hex) << U8(text);
    }
}

}  // namespace
}  // namespace ZqXmlLib9
