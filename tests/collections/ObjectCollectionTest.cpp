// The collections of generated classes: what they read and write, and the way through them.

#include "model/Custom.h"
#include "support/Print.h"

#include <gtest/gtest.h>

namespace ZqXmlLib9 {
namespace {

using namespace TestModel;

TEST(Elements, AreTakenByNameAndNamespace)
{
    CClass type(Info());
    type.Element<CElementInfoSeqClsCol>(u"item", u"urn:i", 0, XmlElementType_Element)
        .Text<CElementInfoSeqPrimOpt>(u"item", 1);
    const CSmartPtr<CCustom> object = new CCustom(type, u"r");
    const CSmartPtr<CItemCol> items = new CItemCol(u"item", u"urn:i", 1, 2);
    (*object)[0] = CollectionValue(items.Get());
    const char* const xml = "<r xmlns:p='urn:i'><p:item>1</p:item><item>2</item></r>";
    object->FromXml(xml);
    EXPECT_EQ(U8(object->ToXml(false, false)),
              "<r><AA:item xmlns:AA=\"urn:i\">1</AA:item><item>2</item></r>");
    CXmlSerializationContext context;
    context.SetIgnoreNamespaces(true);
    items->Clear();
    object->FromXml(xml, context);
    EXPECT_EQ(items->GetCount(), 2);
    EXPECT_EQ(U8((*items->Item(1))[0].GetString()), "2");
}

/// Items for elements named "x" alone.
CSmartPtr<CXmlObjectBase> MakeX(CXmlElement* element)
{
    if (element->GetLocalName() != u"x")
        return nullptr;
    return new CItem();
}

TEST(Factory, DecidesWhatIsTakenAndWhereTheRunEnds)
{
    CClass type(Info());
    type.Element<CElementInfoSeqAbsClsCol>(u"item", u"", 0, XmlElementType_Element).Text(u"y", 1);
    const CSmartPtr<CCustom> object = new CCustom(type);
    const CSmartPtr<CItemCol> items =
        new CItemCol(u"item", u"", 0, -1, XmlElementType_Element, MakeX);
    (*object)[0] = CollectionValue(items.Get());
    object->FromXml("<r><x>1</x><x xmlns='urn:any'>2</x><y>3</y></r>");
    EXPECT_EQ(items->GetCount(), 2);
    EXPECT_EQ(U8((*items->Item(1))[0].GetString()), "2");
    EXPECT_THROW(object->FromXml("<r><item>1</item><y/></r>"), CZqValidationException);
}

/// A pair of elements without a tag of its own, with an attribute on the tag above.
class CPair : public CCustom {
public:
    CPair() : CCustom(Type(), u"pair") {}

private:
    static CClass& Type()
    {
        static CClass type = [] {
            CClass made(Info(XmlElementGroupType_Sequence, XmlElementType_Pseudo));
            made.Text(u"a", 0).Text(u"b", 1).TextAttribute(u"id", 2, true);
            return made;
        }();
        return type;
    }
};

using CPairCol = CXmlObjectCollection<CPair>;

TEST(GroupsWithoutATag, AreReadAsLongAsTheyTakeElements)
{
    CClass type(Info());
    type.Element<CElementInfoSeqClsCol>(u"pair", u"", 0, XmlElementType_Pseudo).Text(u"z", 1);
    const CSmartPtr<CCustom> object = new CCustom(type, u"r");
    const CSmartPtr<CPairCol> pairs = new CPairCol(u"pair", u"", 1, 2, XmlElementType_Pseudo);
    (*object)[0] = CollectionValue(pairs.Get());
    object->FromXml("<r><a>1</a><b>2</b><a>3</a><b>4</b><z>5</z></r>");
    EXPECT_EQ(pairs->GetCount(), 2);
    (*pairs->Item(1))[2] = TextValue(u"7");
    EXPECT_EQ(U8(object->ToXml(false, false)),
              "<r id=\"7\"><a>1</a><b>2</b><a>3</a><b>4</b><z>5</z></r>");
}

TEST(AddNew, NamesItemsThatHaveATag)
{
    const CSmartPtr<CItemCol> items = new CItemCol(u"entry", u"", 0, -1);
    const CSmartPtr<CPairCol> pairs = new CPairCol(u"other", u"", 0, -1, XmlElementType_Pseudo);
    EXPECT_EQ(U8(items->AddNew()->GetElementName()), "entry");
    EXPECT_EQ(U8(pairs->AddNew()->GetElementName()), "pair");
}

constexpr const char* kNoMore = "No More Elements in the Collection";

TEST(Iterator, GoesThroughTheItemsToTheEnd)
{
    const CSmartPtr<CItemCol> items = new CItemCol(u"item", u"", 0, -1);
    EXPECT_TRUE(items->begin() == items->end());
    for (const char16_t* const text : {u"a", u"b", u"c"})
        items->Add(new CItem(text));
    std::u16string found;
    for (CItem* const item : *items)
        found += (*item)[0].GetString();
    EXPECT_EQ(U8(found), "abc");
    auto it = items->begin();
    EXPECT_EQ(*it++, items->Item(0).Get());
    EXPECT_EQ(*it, items->Item(1).Get());
    EXPECT_EQ(*++it, items->Item(2).Get());
    items->Remove(1);
    EXPECT_EQ(*it, items->Item(1).Get()) << "its node stays where others go";
    ++it;
    EXPECT_TRUE(it == items->end());
    EXPECT_EQ(MessageOf([&] { it++; }), kNoMore);
    EXPECT_EQ(MessageOf([&] { ++it; }), kNoMore);
    EXPECT_EQ(MessageOf([&] { static_cast<void>(*it); }), kNoMore);
}

TEST(Iterator, IsEqualAtTheSameItem)
{
    const CSmartPtr<CItemCol> left = new CItemCol(u"item", u"", 0, -1);
    const CSmartPtr<CItemCol> right = new CItemCol(u"item", u"", 0, -1);
    const CSmartPtr<CItem> shared = left->Add(new CItem());
    right->Add(new CItem());
    EXPECT_FALSE(left->begin() == right->begin());
    right->AddAt(0, shared.Get());
    EXPECT_TRUE(left->begin() == right->begin());
    EXPECT_TRUE(left->end() == right->end());
    EXPECT_FALSE(left->begin() == left->end());
    EXPECT_FALSE(left->end() == right->begin());
}

TEST(MillionItems, AreAppendedVisitedAndDestroyedInLinearTime)
{
    constexpr int kItems = 1'000'000;
    const CSmartPtr<CItem> shared = new CItem();
    {
        const CSmartPtr<CItemCol> items = new CItemCol(u"item", u"", 0, -1);
        for (int i = 0; i < kItems; ++i)
            items->Add(i % 20 == 0 ? new CItem() : shared.Get());
        int visited = 0;
        for (auto it = items->begin(); it != items->end(); ++it)
            ++visited;
        EXPECT_EQ(visited, kItems);
    }
    EXPECT_EQ(shared->AddRef(), 2);
    EXPECT_EQ(shared->Release(), 1);
}

}  // namespace
}  // namespace ZqXmlLib9
