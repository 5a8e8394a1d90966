#include "ShowMessageBox.h"
#include "TextEncodings.h"

#include <ZqXmlLib9/platform/MessageBox.h>

#include <atomic>
#include <cstdio>
#include <string>

namespace ZqXmlLib9 {
namespace {

std::atomic<MessageBoxHandler> g_handler{nullptr};

}  // namespace

MessageBoxHandler SetMessageBoxHandler(MessageBoxHandler handler) noexcept
{
    return g_handler.exchange(handler);
}

void ShowMessageBox(std::u16string_view title, std::u16string_view text)
{
    if (const MessageBoxHandler handler = g_handler.load()) {
        handler(title, text);
        return;
    }
    const std::string lines = ToPrintableUtf8(title) + '\n' + ToPrintableUtf8(text) + '\n';
    static_cast<void>(std::fwrite(lines.data(), 1, lines.size(), stderr));
}

}  // namespace ZqXmlLib9
