#include <ZqXmlLib9/collections/DatetimeCollections.h>
#include <ZqXmlLib9/collections/ValueCollections.h>

namespace ZqXmlLib9 {

template class CValueCollection<ItemType_i1>;
template class CValueCollection<ItemType_i2>;
template class CValueCollection<ItemType_i4>;
template class CValueCollection<ItemType_i8>;
template class CValueCollection<ItemType_ui1>;
template class CValueCollection<ItemType_ui2>;
template class CValueCollection<ItemType_ui4>;
template class CValueCollection<ItemType_ui8>;
template class CValueCollection<ItemType_r4>;
template class CValueCollection<ItemType_r8>;
template class CValueCollection<ItemType_decimal>;
template class CValueCollection<ItemType_integer>;
template class CValueCollection<ItemType_string>;
template class CValueCollection<ItemType_boolean>;
template class CValueCollection<ItemType_year>;
template class CValueCollection<ItemType_month>;
template class CValueCollection<ItemType_day>;
template class CValueCollection<ItemType_duration>;
template class CValueCollection<ItemType_hexBinary>;
template class CValueCollection<ItemType_base64Binary>;

template class CDateCollectionOf<ItemType_datetime, DTType_dateTime>;
template class CDateCollectionOf<ItemType_date, DTType_date>;
template class CDateCollectionOf<ItemType_yearMonth, DTType_gYearMonth>;
template class CDateCollectionOf<ItemType_time, DTType_time>;
template class CDateCollectionOf<ItemType_monthDay, DTType_gMonthDay>;

CdatetimeBaseCol::~CdatetimeBaseCol() = default;

void CdatetimeBaseCol::Add(const CDateTime& value)
{
    AddAt(GetCount(), value);
}

CDateTime CdatetimeBaseCol::Item(int index) const
{
    return GetAt(index);
}

void CdatetimeBaseCol::BaseAddAt(int index, const CDateTime& value)
{
    Insert(index, value, [](const CDateTime&) {});
}

void CdatetimeBaseCol::RequireType(const CDateTime& value, DTType type)
{
    if (value.GetType() != type)
        throw CZqInvalidParamException(
            FormatString(u"Dates added to this collection must be of type dt_%s",
                         CDateTime(type).GetTypeAsString()));
}

void CdatetimeBaseCol::ToXml_Int(CXmlWriter* writer, bool, const char16_t*,
                                 const CXmlSerializationContext& context, bool) const
{
    ValidateCount(context);
    for (const CDateTime& value : *this)
        WriteItem(writer, ItemToString(value), ItemType_datetime);
}

}  // namespace ZqXmlLib9
