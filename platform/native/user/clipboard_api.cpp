// The clipboard: formats of our own process, and text shared with the desktop.

#include <algorithm>
#include <cstring>

#include "native/display/display.h"
#include "native/kernel/code_pages.h"
#include "native/user/desktop.h"

using namespace qvui::native;

namespace {

constexpr UINT kUtf8 = 65001;

void DropItems(ClipboardState& clipboard)
{
    for (const ClipboardItem& item : clipboard.items)
        GlobalFree(item.block);
    clipboard.items.clear();
}

HGLOBAL Find(const ClipboardState& clipboard, UINT format)
{
    for (const ClipboardItem& item : clipboard.items)
        if (item.format == format)
            return item.block;
    return nullptr;
}

HGLOBAL MakeBlock(const void* bytes, std::size_t size)
{
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size);
    if (void* place = block ? GlobalLock(block) : nullptr) {
        std::memcpy(place, bytes, size);
        GlobalUnlock(block);
    }
    return block;
}

// Reads text up to the terminating zero or the end of the block.
template <class Unit>
std::basic_string<Unit> TextOf(HGLOBAL block)
{
    const auto* place = static_cast<const Unit*>(GlobalLock(block));
    if (!place)
        return {};
    const Unit* end = place + GlobalSize(block) / sizeof(Unit);
    std::basic_string<Unit> text(place, std::find(place, end, Unit{}));
    GlobalUnlock(block);
    return text;
}

std::u16string Wide(std::string_view text, UINT codePage)
{
    std::u16string wide(text.size(), u'\0');
    const int units = text.empty()
                          ? 0
                          : MultiByteToWideChar(codePage, 0, text.data(), static_cast<int>(text.size()),
                                                wide.data(), static_cast<int>(wide.size()));
    wide.resize(static_cast<std::size_t>(std::max(units, 0)));
    return wide;
}

std::string Narrow(std::u16string_view wide, UINT codePage)
{
    std::string text(wide.size() * 4, '\0');
    const int bytes = wide.empty()
                          ? 0
                          : WideCharToMultiByte(codePage, 0, wide.data(), static_cast<int>(wide.size()),
                                                text.data(), static_cast<int>(text.size()), nullptr, nullptr);
    text.resize(static_cast<std::size_t>(std::max(bytes, 0)));
    return text;
}

// The desktop uses "
// " as line ending, the platform "\r
// ".
std::string WithCarriageReturns(std::string_view text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r'))
            out += '\r';
        out += text[i];
    }
    return out;
}

std::string WithoutCarriageReturns(std::string_view text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] != '\r' || i + 1 >= text.size() || text[i + 1] != '\n')
            out += text[i];
    return out;
}

// Text that another program has put on the clipboard replaces our contents.
void TakeDesktopText(ClipboardState& clipboard)
{
    std::string text = TheDisplay().ClipboardText();
    if (text == clipboard.desktopText)
        return;
    DropItems(clipboard);
    if (!text.empty()) {
        const std::u16string wide = Wide(WithCarriageReturns(text), kUtf8);
        clipboard.items.push_back(
            {CF_UNICODETEXT, MakeBlock(wide.c_str(), (wide.size() + 1) * sizeof(char16_t))});
    }
    clipboard.desktopText = std::move(text);
}

bool IsText(UINT format)
{
    return format == CF_TEXT || format == CF_UNICODETEXT;
}

}  // namespace

BOOL OpenClipboard(HWND)
{
    ClipboardState& clipboard = TheDesktop().clipboard;
    if (clipboard.isOpen)
        return FALSE;
    clipboard.isOpen = true;
    clipboard.isChanged = false;
    TakeDesktopText(clipboard);
    return TRUE;
}

BOOL CloseClipboard()
{
    ClipboardState& clipboard = TheDesktop().clipboard;
    if (!clipboard.isOpen)
        return FALSE;
    if (clipboard.isChanged) {
        std::string text;
        if (const HGLOBAL wide = Find(clipboard, CF_UNICODETEXT))
            text = Narrow(TextOf<char16_t>(wide), kUtf8);
        else if (const HGLOBAL narrow = Find(clipboard, CF_TEXT))
            text = SystemToUtf8(TextOf<char>(narrow));
        clipboard.desktopText = WithoutCarriageReturns(text);
        TheDisplay().SetClipboardText(clipboard.desktopText);
    }
    clipboard.isOpen = false;
    return TRUE;
}

BOOL EmptyClipboard()
{
    ClipboardState& clipboard = TheDesktop().clipboard;
    if (!clipboard.isOpen)
        return FALSE;
    DropItems(clipboard);
    clipboard.isChanged = true;
    return TRUE;
}

HANDLE SetClipboardData(UINT format, HANDLE data)
{
    ClipboardState& clipboard = TheDesktop().clipboard;
    if (!clipboard.isOpen || !data)
        return nullptr;
    for (const ClipboardItem& item : clipboard.items)
        if (item.format == format && item.block != data)
            GlobalFree(item.block);
    std::erase_if(clipboard.items, [format](const ClipboardItem& item) { return item.format == format; });
    clipboard.items.push_back({format, data});
    clipboard.isChanged = true;
    return data;
}

HANDLE GetClipboardData(UINT format)
{
    ClipboardState& clipboard = TheDesktop().clipboard;
    if (!clipboard.isOpen)
        return nullptr;
    if (const HGLOBAL block = Find(clipboard, format))
        return block;
    // Either text format is converted from the other one on request.
    const HGLOBAL other =
        IsText(format) ? Find(clipboard, format == CF_TEXT ? CF_UNICODETEXT : CF_TEXT) : nullptr;
    if (!other)
        return nullptr;
    HGLOBAL made = nullptr;
    if (format == CF_TEXT) {
        const std::string text = Narrow(TextOf<char16_t>(other), CP_ACP);
        made = MakeBlock(text.c_str(), text.size() + 1);
    } else {
        const std::u16string text = Wide(TextOf<char>(other), CP_ACP);
        made = MakeBlock(text.c_str(), (text.size() + 1) * sizeof(char16_t));
    }
    if (made)
        clipboard.items.push_back({format, made});
    return made;
}

BOOL IsClipboardFormatAvailable(UINT format)
{
    ClipboardState& clipboard = TheDesktop().clipboard;
    if (!clipboard.isOpen)
        TakeDesktopText(clipboard);
    return Find(clipboard, format) ||
           (IsText(format) && (Find(clipboard, CF_TEXT) || Find(clipboard, CF_UNICODETEXT)));
}

UINT RegisterClipboardFormatA(LPCSTR name)
{
    return RegisterWindowMessageA(name);
}
