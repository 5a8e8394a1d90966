// What docs/values.md shows and claims.

#include <ZqXmlLib9/ZqXmlLib9.h>

#include "support/Print.h"

namespace ZqXmlLib9 {
namespace {

TEST(Values, AreExact)
{
    const CDecimal price(u"19.99");
    const CDecimal total = price * 3 + CDecimal(u"0.03");
    EXPECT_EQ(total.ToString(), u"60");
    EXPECT_EQ(total.ToString(2), u"60.00");
    const CBigInteger large = CBigInteger::Pow10(40) + 1;
    EXPECT_THROW(static_cast<void>(static_cast<int>(large)), CZqInvalidValueException);
}

TEST(Values, OrderDatesPartially)
{
    const CDateTime start(u"2024-05-18T08:12:07Z");
    const CDateTime noZone(u"2024-05-18T09:00:00");
    EXPECT_EQ(start.CompareTo(noZone), DTCompareResult_Indeterminate);
    const CDateTime end = start + CDateTimeSpan(1, 30, 0);
    EXPECT_EQ(end.ToString(), u"2024-05-18T09:42:07Z");
    const std::int64_t seconds = end.GetTime() - start.GetTime();
    EXPECT_EQ(seconds, 5400);

    CDateTime date;
    date.SetDate(2024, 2, 29);
    EXPECT_EQ(date.ToString(), u"2024-02-29");
    EXPECT_THROW(date.SetDate(2023, 2, 29), CZqInvalidValueException);
    EXPECT_EQ(CDateTime(2023, 2, 29).GetType(), DTType_yearZero);
    EXPECT_EQ((CDateTime(2001, 1, 31) + CDateTimeSpan(0, 1, 0, 0, 0, 0)).ToString(), u"2001-02-31");
}

TEST(Values, ReadWhatXmlSchemaAllowsAndMore)
{
    constexpr auto kCollapse = CWhitespaceUtils::WhitespaceRule_Collapse;
    EXPECT_EQ(CConversions::i4FromString(u" +42 ", kCollapse), 42);
    EXPECT_EQ(CConversions::i4FromString(u"", kCollapse), 0);
    EXPECT_TRUE(CConversions::booleanFromString(u"True", kCollapse));
    EXPECT_EQ(CConversions::ui4FromString(u"-1", kCollapse), 4294967295U);
    EXPECT_EQ(CConversions::r8ToString(0.1, nullptr), u"0.1");
    EXPECT_EQ(CConversions::r8ToString(0.1, u"%.3f"), u"0.100");
    CPrimitiveRestrictions code;
    code.m_pattern = u"a|ab";
    EXPECT_THROW(CheckValue<ItemType_string>(u"code", u"ab", code), CZqException);
    EXPECT_NO_THROW(CheckValue<ItemType_string>(u"code", u"a", code));
    code.m_pattern = u"(ab|a)";
    EXPECT_NO_THROW(CheckValue<ItemType_string>(u"code", u"ab", code));
}

}  // namespace
}  // namespace ZqXmlLib9
