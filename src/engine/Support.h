// Where messages send those who meet what the library doesn't do.
#pragma once

namespace ZqXmlLib9 {

inline constexpr const char16_t* kSupportAddress = u"support@zqxmllib9.example";

}  // namespace ZqXmlLib9
