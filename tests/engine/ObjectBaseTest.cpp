// What generated setters and collections take from the object base; the shape of its interface.

#include "model/Custom.h"
#include "support/Print.h"

#include <cstring>

namespace ZqXmlLib9 {
namespace {

using namespace TestModel;

CClass& PlainClass()
{
    static CClass type(Info());
    return type;
}

TEST(Guards, NameThePropertyAndTheElement)
{
    const CSmartPtr<CCustom> object = new CCustom(PlainClass());
    const CSmartPtr<CCustom> value = new CCustom(PlainClass(), u"other");
    EXPECT_NO_THROW(object->Throw_IfElementNameDiffers(nullptr, u"name"));
    EXPECT_NO_THROW(object->Throw_IfElementNameDiffers(value.Get(), u"other"));
    EXPECT_EQ(MessageOf<CZqInvalidParamException>(
                  [&] { object->Throw_IfElementNameDiffers(value.Get(), u"name"); }),
              "This property requrires an element with the name name the element being set has "
              "the element name other");
    EXPECT_EQ(MessageOf<CZqInvalidParamException>(
                  [&] { object->Throw_IfPropertyIsNull(nullptr, u"name"); }),
              "The Property [name] is mandatory, it may node be NULL");
}

TEST(Selection, FollowsTheMemberThatIsSet)
{
    const CSmartPtr<CCustom> object = new CCustom(PlainClass());
    const std::string isSet = " is already set. Only one element within this class bay be set at a "
                              "time";
    std::u16string selected;
    // An object, a value or a collection; whether it is there; the member; what is selected then.
    for (const auto& [step, outcome] : {std::pair(u"o-a", std::string("a")),
                                        {u"o-b", "a"},
                                        {u"o-a", ""},
                                        {u"o+a", "a"},
                                        {u"o+b", "The Property [a]" + isSet},
                                        {u"v+b", "The Property a" + isSet},
                                        {u"v-b", ""},
                                        {u"c-c", ""},
                                        {u"c+c", "c"},
                                        {u"c-d", "c"},
                                        {u"c+d", "The Property [c]" + isSet},
                                        {u"c-c", ""}}) {
        const bool isThere = step[1] == u'+';
        const char16_t* const member = step + 2;
        const std::string found = TextOrMessage([&, kind = step[0]] {
            if (kind == u'o')
                object->Choice_SelectElement(member, isThere ? object.Get() : nullptr, selected);
            else if (kind == u'v')
                object->Choice_SetElementValid(isThere, member, selected);
            else
                object->Choice_CollectionChanged(member, isThere ? 1 : 0, selected);
            return U8(selected);
        });
        EXPECT_EQ(found, outcome) << U8(step);
    }
}

/// Opens what a generated class finds in its base.
class CItems : public CItemCol {
public:
    using CItemCol::Choice_Read_Collection;
    using CItemCol::CItemCol;
    using CItemCol::FireOnCollectionRemoveCompleteEvent;
    using CItemCol::FireOnCollectionRemoveEvent;
};

TEST(Events, BringTheirIndexAndKeepTheCollection)
{
    CSmartPtr<CItems> items = new CItems(u"i", u"", 0, -1);
    CEventLog first, second;
    CItems::FireOnCollectionRemoveEvent(&first, items.Get(), 0);
    CItems::FireOnCollectionRemoveEvent(&first, items.Get(), -1);
    CItems::FireOnCollectionRemoveCompleteEvent(&first, items.Get(), 7);
    EXPECT_EQ(first.Take(), "remove [0]0;remove 0;removed [7]0;");
    items->AddEventListener(&first);
    items->AddEventListener(&second);
    first.m_onEvent = [&] { items = nullptr; };
    items->AddNew();
    EXPECT_EQ(first.m_text, "add 0;added 1;change 1;remove 1;removed 0;change 0;");
}

TEST(Events, ReachWhoWasThereAndStillIs)
{
    CEventLog first, changing, removed, added, last;
    bool isChanged = false;
    const CSmartPtr<CItems> items = new CItems(u"i", u"", 0, -1);
    for (CEventLog* const listener : {&first, &changing, &removed, &last})
        items->AddEventListener(listener);
    changing.m_onEvent = [&] {
        if (std::exchange(isChanged, true))
            return;
        items->RemoveEventListener(&first);
        items->RemoveEventListener(&removed);
        items->AddEventListener(&added);
        items->AddNew();  // within the event
    };
    items->AddNew();
    const std::string inner = "add 0;added 1;change 1;", rest = "added 2;change 2;";
    EXPECT_EQ(first.m_text, "add 0;");
    EXPECT_EQ(removed.m_text, "");
    EXPECT_EQ(changing.m_text, "add 0;" + inner + rest);
    EXPECT_EQ(added.m_text, inner + rest);
    EXPECT_EQ(last.m_text, inner + "add 1;" + rest);
}

TEST(ChoiceReadCollection, ReadsOnce)
{
    CXmlDocument document;
    document.LoadXml("<r><i/><i/><x/><i/></r>");
    CXmlElement* const root = document.GetDocumentElement();
    const CSmartPtr<CItems> collection = new CItems(u"i", u"", 0, 2);
    CXmlElement* cursor = root->GetFirstElement();
    std::int32_t count = 0;
    collection->Choice_Read_Collection(collection.Get(), root, cursor, count, {});
    EXPECT_EQ(U8(cursor->GetLocalName()), "x");
    EXPECT_EQ(count, 1);
    cursor = cursor->GetNextSiblingElement();
    collection->Choice_Read_Collection(collection.Get(), root, cursor, count, {});
    EXPECT_NE(cursor, nullptr);
    EXPECT_EQ(collection->GetCount(), 2);
}

TEST(Variant, KeepsWhatItHoldsByItsRules)
{
    const CSmartPtr<CCustom> object = new CCustom(PlainClass());
    const auto countOf = [&] { return object->AddRef(), object->Release(); };
    ZqVariant value = ObjectValue(object.Get());
    {
        const ZqVariant copy = value;
        EXPECT_EQ(countOf(), 3);
    }
    value = TextValue(u"text");
    EXPECT_EQ(countOf(), 1);
    value = std::as_const(value);
    constexpr auto kNone = CWhitespaceUtils::WhitespaceRule_None;
    EXPECT_EQ(MessageOf([&] { value.FromString(u"x", ItemType_xmlObject, kNone); }),
              "Invalid Type 27 to convert to string");
    constexpr auto kUnknown = static_cast<CWhitespaceUtils::WhitespaceRule>(4);
    EXPECT_THROW(value.FromString(u"x", ItemType_string, kUnknown), CZqException);
    EXPECT_THROW(static_cast<void>(value.GetI4()), CZqInvalidStateException);
    EXPECT_EQ(U8(value.ToString(u"ignored")), "text");
    value = ObjectValue(nullptr);
    EXPECT_TRUE(value.IsValid());
    EXPECT_EQ(MessageOf([&] { static_cast<void>(value.GetType()); }), "Invalid Type 27");
}

/// The place of a virtual operation in the table of its class, counted from 0 (Itanium C++ ABI).
template <typename TFunction>
std::ptrdiff_t SlotOf(TFunction function)
{
    std::ptrdiff_t words[2] = {};
    static_assert(sizeof(function) == sizeof(words));
    std::memcpy(words, &function, sizeof(words));
    return (words[0] - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

/// Generated classes are compiled against this order.
class CSlots : public CXmlGeneratedClass {
public:
    static std::vector<std::ptrdiff_t> Get()
    {
        using Base = CSlots;
        using Root = CXmlObjectBase;
        using Context = const CXmlSerializationContext&;
        return {
            SlotOf<void (Base::*)(Root*, MsgType, void*)>(&Base::OnEvent),
            SlotOf<Root* (Base::*)()>(&Base::GetBase),
            SlotOf(&Base::ToFastInfosetFile),
            SlotOf<std::u16string (Root::*)(bool, bool, EOLType, Context) const>(&Base::ToXml),
            SlotOf(&Base::ToFastInfosetStream),
            SlotOf(&Base::FromXmlFile),
            SlotOf<void (Root::*)(const char16_t*, Context)>(&Base::FromXml),
            SlotOf<void (Root::*)(const char*, Context)>(&Base::FromXml),
            SlotOf<void (Root::*)(const CBinaryData&, Context)>(&Base::FromXmlStream),
            SlotOf<void (Root::*)(unsigned char*, unsigned, Context)>(&Base::FromXmlStream),
            SlotOf<void (Root::*)(const CElement*, Context)>(&Base::FromXmlElement),
            SlotOf<void (Root::*)(const CXmlElement*, Context)>(&Base::FromXmlElement),
            SlotOf(&Base::GetTargetNamespace),
            SlotOf(&Base::GetNamespace),
            SlotOf<void (Base::*)(CXmlWriter*, Context) const>(&Base::AttributesToXml_Int),
            SlotOf<void (Base::*)(CXmlWriter*, bool, const char16_t*, Context, bool) const>(
                &Base::ToXml_Int),
            SlotOf<CXmlElement* (Base::*)(CXmlElement*, CXmlElement*, Context, bool)>(
                &Base::FromXml_Int),
            SlotOf(&Base::AccessProperty),
            SlotOf(&Base::GetClassInfo),
            SlotOf(&Base::GetClassElementInfo),
            SlotOf(&Base::GetClassAttributeInfo),
            SlotOf(&Base::Init),
        };
    }
};

TEST(VirtualOrder, StaysAsGeneratedClassesKnowIt)
{
    // ToXmlFile stands at 2 and ToXmlStream at 5, the destructor at 14 and 15.
    EXPECT_EQ(CSlots::Get(),
              (std::vector<std::ptrdiff_t>{0,  1,  3,  4,  6,  7,  8,  9,  10, 11, 12,
                                           13, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25}));
}

template <typename... TArguments>
concept WritesText = requires(const CXmlObjectBase& object, TArguments... arguments)
{
    object.ToXml(arguments...);
};
static_assert(!WritesText<EOLType> && !WritesText<bool, EOLType> && !WritesText<const char16_t*>);
static_assert(!std::is_constructible_v<CXmlDocument, CXmlSerializationContext>,
              "a document would keep the temporary");

}  // namespace
}  // namespace ZqXmlLib9
