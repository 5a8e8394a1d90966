// Events of a writer, spelled as text.
#pragma once

#include "Print.h"

#include <ZqXmlLib9/xml/XmlWriter.h>

#include <algorithm>

/// Cuts a text at a separator and gives what stands in front of it.
inline std::u16string_view Take(std::u16string_view& text, char16_t separator)
{
    const std::u16string_view head = text.substr(0, text.find(separator));
    text.remove_prefix(std::min(head.size() + 1, text.size()));
    return head;
}

/// Writes events with blanks between them, a character for the kind and arguments behind it. Values
/// and texts may end in "#" and the number of their item type.
///
///     <name|uri    start of an element   @name|uri=value  attribute    'text  text
///     >            end of it             :name|uri        xsi:type     0      xsi:nil
///     +prefix|uri  alias                 *uri     default namespace    ?text  instruction
///     !text        comment               #text    in-line schema
///
/// \param other  takes the mark and the arguments of an event that isn't among these
template <typename TOther>
void WriteEvents(ZqXmlLib9::CXmlWriter& writer, std::u16string_view events, TOther&& other)
{
    using namespace ZqXmlLib9;
    while (!events.empty()) {
        const std::u16string_view event = Take(events, u' ');
        const std::u16string_view arguments = event.substr(1);
        std::u16string_view type = arguments;
        std::u16string_view value = Take(type, u'#');
        const auto itemType =
            type.empty() ? ItemType_string : static_cast<ItemType>(std::stoi(U8(type)));
        const std::u16string_view text = value;
        std::u16string_view uri = Take(value, u'=');
        const std::u16string_view name = Take(uri, u'|');
        switch (event[0]) {
        case u'<': writer.WriteStartElement(name, uri); break;
        case u'>': writer.WriteEndElement(); break;
        case u'@': writer.WriteAttribute(name, uri, value, itemType); break;
        case u'\'': writer.WriteText(text, itemType); break;
        case u':': writer.WriteXsiType(uri, name, ItemType_string); break;
        case u'0': writer.WriteXsiNil(); break;
        case u'+': writer.AddNamespaceAlias(name, uri); break;
        case u'*': writer.SetDefaultNamespace(arguments); break;
        case u'?': writer.WriteProcessingInstruction(arguments); break;
        case u'!': writer.WriteComment(arguments); break;
        case u'#': writer.WriteInLineSchema(arguments); break;
        default: other(event[0], arguments);
        }
    }
}
