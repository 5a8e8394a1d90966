// Shows a message through the handler of the application, or on standard error.
#pragma once

#include <string_view>

namespace ZqXmlLib9 {

void ShowMessageBox(std::u16string_view title, std::u16string_view text);

}  // namespace ZqXmlLib9
