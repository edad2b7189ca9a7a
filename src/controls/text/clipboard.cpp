#include "controls/text/clipboard.h"

#include <algorithm>
#include <cstring>

namespace DUI::clipboard {

bool Write(HWND owner, const std::string& text)
{
    if (!OpenClipboard(owner))
        return false;
    EmptyClipboard();
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
    void* const place = block ? GlobalLock(block) : nullptr;
    if (place) {
        std::memcpy(place, text.c_str(), text.size() + 1);
        GlobalUnlock(block);
    }
    const bool isSet = place && SetClipboardData(CF_TEXT, block);
    if (block && !isSet)
        GlobalFree(block);
    CloseClipboard();
    return isSet;
}

void Read(const std::function<void(const std::string& text)>& use)
{
    if (!OpenClipboard(nullptr))
        return;
    std::string text;
    HGLOBAL block = GetClipboardData(CF_TEXT);
    if (const auto* const place = block ? static_cast<const char*>(GlobalLock(block)) : nullptr) {
        text.assign(place, std::find(place, place + GlobalSize(block), '\0'));
        GlobalUnlock(block);
    }
    CloseClipboard();
    if (!text.empty())
        use(text);
}

}  // namespace DUI::clipboard
