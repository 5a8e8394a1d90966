// What generated setters and collections take from the object base; the shape of its interface.

#include "model/Custom.h"
#include "support/Print.h"

#include <gtest/gtest.h>

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
    const CXmlElement* const none = nullptr;
    EXPECT_THROW(object->FromXmlElement(none), CZqInvalidParamException);
}

TEST(Selection, FollowsTheMemberThatIsSet)
{
    const CSmartPtr<CCustom> object = new CCustom(PlainClass());
    CXmlObjectBase* const value = object.Get();
    std::u16string selected;
    const auto is = [&](const char* name) { return U8(selected) == name; };

    object->Choice_SelectElement(u"a", nullptr, selected);
    EXPECT_TRUE(is("a")) << "a null selects where nothing is set";
    object->Choice_SelectElement(u"b", nullptr, selected);
    EXPECT_TRUE(is("a")) << "a null of another member changes nothing";
    object->Choice_SelectElement(u"a", nullptr, selected);
    EXPECT_TRUE(is(""));
    object->Choice_SelectElement(u"a", value, selected);
    EXPECT_EQ(MessageOf<CZqInvalidStateException>(
                  [&] { object->Choice_SelectElement(u"b", value, selected); }),
              "The Property [a] is already set. Only one element within this class bay be set at a "
              "time");
    EXPECT_EQ(MessageOf<CZqInvalidStateException>(
                  [&] { object->Choice_SetElementValid(true, u"b", selected); }),
              "The Property a is already set. Only one element within this class bay be set at a "
              "time");
    object->Choice_SetElementValid(false, u"b", selected);
    EXPECT_TRUE(is("")) << "whatever was set";
    object->Choice_CollectionChanged(u"c", 0, selected);
    EXPECT_TRUE(is(""));
    object->Choice_CollectionChanged(u"c", 1, selected);
    object->Choice_CollectionChanged(u"d", 0, selected);
    EXPECT_TRUE(is("c"));
    EXPECT_THROW(object->Choice_CollectionChanged(u"d", 1, selected), CZqInvalidStateException);
    object->Choice_CollectionChanged(u"c", 0, selected);
    EXPECT_TRUE(is(""));
}

/// Opens what a generated class finds in its base.
class CItems : public CItemCol {
public:
    using CItemCol::Choice_Read_Collection;
    using CItemCol::CItemCol;
    using CItemCol::FireOnCollectionAddEvent;
    using CItemCol::FireOnCollectionChangeEvent;
    using CItemCol::FireOnCollectionRemoveCompleteEvent;
    using CItemCol::FireOnCollectionRemoveEvent;
    using CItemCol::GetTargetNamespace;
};

/// Logs what it hears, with an index where there is one.
class CListener final : public IEventSink {
public:
    void OnEvent(CXmlObjectBase*, MsgType type, void* data) override
    {
        const bool isRemoval =
            type == MsgType_CollectionRemove || type == MsgType_CollectionRemoveComplete;
        m_log += std::to_string(type);
        if (data != nullptr && isRemoval)
            m_log += "(" + std::to_string(*static_cast<std::int32_t*>(data)) + ")";
        else if (data != nullptr)
            m_log += "!";
        if (m_onEvent)
            m_onEvent();
    }

    std::string m_log;
    std::function<void()> m_onEvent;
};

TEST(Events, BringTheirData)
{
    const CSmartPtr<CItems> items = new CItems(u"i", u"", 0, -1);
    CListener listener;
    CItems::FireOnCollectionAddEvent(&listener, items.Get(), &listener);
    CItems::FireOnCollectionRemoveEvent(&listener, items.Get(), 0);
    CItems::FireOnCollectionRemoveEvent(&listener, items.Get(), -1);
    CItems::FireOnCollectionRemoveCompleteEvent(&listener, items.Get(), 7);
    CItems::FireOnCollectionChangeEvent(&listener, items.Get());
    EXPECT_EQ(listener.m_log, "1!3(0)34(7)0");
}

TEST(Events, TheCollectionOutlivesItsOwn)
{
    CSmartPtr<CItems> items = new CItems(u"i", u"", 0, -1);
    CListener first;
    CListener second;
    items->AddEventListener(&first);
    items->AddEventListener(&second);
    first.m_onEvent = [&] { items = nullptr; };
    items->AddNew();
    EXPECT_EQ(first.m_log, "1!2!0340");
}

TEST(Events, ReachWhoWasThereAndStillIs)
{
    CListener first, changing, removed, added, last;
    bool isChanged = false;
    const CSmartPtr<CItems> items = new CItems(u"i", u"", 0, -1);
    for (CListener* const listener : {&first, &changing, &removed, &last})
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
    EXPECT_EQ(first.m_log, "1!");
    EXPECT_EQ(removed.m_log, "");
    EXPECT_EQ(changing.m_log, "1!1!2!02!0");
    EXPECT_EQ(added.m_log, "1!2!02!0");
    EXPECT_EQ(last.m_log, "1!2!01!2!0");
}

TEST(Counts, AreTestedAgainstBothBounds)
{
    const CXmlSerializationContext strict;
    CXmlSerializationContext lax;
    lax.SetIgnoreInvalidCollectionCounts(true);
    const CSmartPtr<CItems> items = new CItems(u"i", u"", 2, 1);
    EXPECT_EQ(MessageOf<CZqValidationException>([&] { items->ValidateCount(strict); }),
              "The Minimum number of [i] elements allowed in this collection is 2");
    items->AddNew();
    items->AddNew();
    EXPECT_EQ(MessageOf<CZqValidationException>([&] { items->ValidateCount(strict); }),
              "The Maximum number of [i] elements allowed in this collection is 1");
    EXPECT_FALSE(items->IsValidCount(strict));
    EXPECT_NO_THROW(items->ValidateCount(lax));
    EXPECT_TRUE(items->IsValidCount(lax));
    EXPECT_EQ(MessageOf([&] { items->GetTargetNamespace(); }),
              "CXmlCollectionBase::GetTargetNamespace Should not be used from within a Collection "
              "(program logic error)");
}

TEST(ChoiceReadCollection, ReadsOnce)
{
    CXmlDocument document;
    document.LoadXml("<r><i/><i/><x/><i/></r>");
    CXmlElement* const root = document.GetDocumentElement();
    const CSmartPtr<CItems> collection = new CItems(u"i", u"", 0, 2);
    CXmlElement* cursor = root->GetFirstElement();
    std::int32_t count = 0;
    const CXmlSerializationContext context;
    collection->Choice_Read_Collection(collection.Get(), root, cursor, count, context);
    EXPECT_EQ(U8(cursor->GetLocalName()), "x");
    EXPECT_EQ(count, 1);
    cursor = cursor->GetNextSiblingElement();
    collection->Choice_Read_Collection(collection.Get(), root, cursor, count, context);
    EXPECT_NE(cursor, nullptr);
    EXPECT_EQ(collection->GetCount(), 2);
}

TEST(Variant, KeepsWhatItHoldsByItsRules)
{
    const CSmartPtr<CCustom> object = new CCustom(PlainClass());
    const auto countOf = [&] { return object->AddRef(), object->Release(); };
    {
        ZqVariant value = ObjectValue(object.Get());
        const ZqVariant copy = value;
        EXPECT_EQ(countOf(), 3);
        value = TextValue(u"text");
        EXPECT_EQ(countOf(), 2);
        const ZqVariant& self = value;
        value = self;
        EXPECT_EQ(U8(value.ToString(u"ignored")), "text");
        EXPECT_EQ(MessageOf([&] {
                      value.FromString(u"x", ItemType_xmlObject,
                                       CWhitespaceUtils::WhitespaceRule_None);
                  }),
                  "Invalid Type 27 to convert to string");
        EXPECT_THROW(value.FromString(u"x", ItemType_string,
                                      static_cast<CWhitespaceUtils::WhitespaceRule>(4)),
                     CZqException);
        EXPECT_EQ(U8(value.GetString()), "text");
        EXPECT_THROW(static_cast<void>(value.GetI4()), CZqInvalidStateException);
    }
    EXPECT_EQ(countOf(), 1);
    ZqVariant null = ObjectValue(nullptr);
    EXPECT_TRUE(null.IsValid());
    EXPECT_EQ(MessageOf([&] { static_cast<void>(null.GetType()); }), "Invalid Type 27");
    null.SetInvalid();
    EXPECT_EQ(MessageOf([&] { static_cast<void>(null.ToString(nullptr)); }),
              "Invalid Type 0 to convert to string");
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
        using Context = const CXmlSerializationContext&;
        return {
            SlotOf<void (Base::*)(CXmlObjectBase*, MsgType, void*)>(&Base::OnEvent),
            SlotOf<CXmlObjectBase* (Base::*)()>(&Base::GetBase),
            SlotOf(&Base::ToFastInfosetFile),
            SlotOf<std::u16string (CXmlObjectBase::*)(bool, bool, EOLType, Context) const>(
                &Base::ToXml),
            SlotOf(&Base::ToFastInfosetStream),
            SlotOf(&Base::FromXmlFile),
            SlotOf<void (CXmlObjectBase::*)(const char16_t*, Context)>(&Base::FromXml),
            SlotOf<void (CXmlObjectBase::*)(const char*, Context)>(&Base::FromXml),
            SlotOf<void (CXmlObjectBase::*)(const CBinaryData&, Context)>(&Base::FromXmlStream),
            SlotOf<void (CXmlObjectBase::*)(unsigned char*, std::uint32_t, Context)>(
                &Base::FromXmlStream),
            SlotOf<void (CXmlObjectBase::*)(const CElement*, Context)>(&Base::FromXmlElement),
            SlotOf<void (CXmlObjectBase::*)(const CXmlElement*, Context)>(&Base::FromXmlElement),
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

template <typename... TArguments>
concept Loads = requires(TArguments... arguments)
{
    CXmlDocument(std::forward<TArguments>(arguments)...);
};

static_assert(WritesText<> && WritesText<bool, bool, EOLType>);
static_assert(!WritesText<EOLType> && !WritesText<bool, EOLType>);
static_assert(!WritesText<const char16_t*>);
static_assert(Loads<const CXmlSerializationContext&>);
static_assert(!Loads<CXmlSerializationContext>, "a document would keep the temporary");

}  // namespace
}  // namespace ZqXmlLib9
