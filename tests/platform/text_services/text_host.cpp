#include "platform/text_services/text_host.h"

#include <algorithm>

namespace qvui::test {

TextHost::TextHost()
{
    constexpr WCHAR kFace[] = {'D', 'e', 'j', 'a', 'V', 'u', ' ', 'S', 'a',
                               'n', 's', ' ', 'M', 'o', 'n', 'o', 0};
    character.cbSize = sizeof character;
    character.dwMask =
        CFM_BOLD | CFM_ITALIC | CFM_UNDERLINE | CFM_SIZE | CFM_COLOR | CFM_FACE | CFM_OFFSET | CFM_CHARSET;
    character.yHeight = 240;
    std::copy(std::begin(kFace), std::end(kFace), character.szFaceName);
    paragraph.cbSize = sizeof paragraph;
    paragraph.dwMask = PFM_ALIGNMENT;
    paragraph.wAlignment = PFA_LEFT;
}

HRESULT TextHost::QueryInterface(REFIID, void** object)
{
    *object = nullptr;
    return E_NOINTERFACE;
}

BOOL TextHost::TxShowScrollBar(INT bar, BOOL show)
{
    notes.push_back("show bar " + std::to_string(bar) + " " + std::to_string(show));
    return TRUE;
}

BOOL TextHost::TxSetScrollRange(INT bar, LONG least, INT most, BOOL)
{
    notes.push_back("range " + std::to_string(bar) + " " + std::to_string(least) + " " +
                    std::to_string(most));
    return TRUE;
}

BOOL TextHost::TxSetCaretPos(INT x, INT y)
{
    notes.push_back("caret " + std::to_string(x) + " " + std::to_string(y));
    return TRUE;
}

HRESULT TextHost::TxGetClientRect(LPRECT rect)
{
    *rect = client;
    return S_OK;
}

HRESULT TextHost::TxGetViewInset(LPRECT inset)
{
    *inset = {};
    return S_OK;
}

HRESULT TextHost::TxGetCharFormat(const CHARFORMATW** format)
{
    *format = reinterpret_cast<const CHARFORMATW*>(&character);
    return S_OK;
}

HRESULT TextHost::TxGetParaFormat(const PARAFORMAT** format)
{
    *format = reinterpret_cast<const PARAFORMAT*>(&paragraph);
    return S_OK;
}

HRESULT TextHost::TxGetBackStyle(TXTBACKSTYLE* style)
{
    *style = TXTBACK_OPAQUE;
    return S_OK;
}

HRESULT TextHost::TxGetScrollBars(DWORD* given)
{
    *given = bars;
    return S_OK;
}

HRESULT TextHost::TxGetPasswordChar(CHAR* given)
{
    *given = '*';
    return S_OK;
}

HRESULT TextHost::TxGetPropertyBits(DWORD mask, DWORD* bits)
{
    *bits = properties & mask;
    return S_OK;
}

HRESULT TextHost::TxNotify(DWORD code, void* data)
{
    if (code == EN_CHANGE)
        notes.push_back("change");
    else if (code == EN_SELCHANGE)
        notes.push_back("selection " + std::to_string(static_cast<SELCHANGE*>(data)->chrg.cpMin) + " " +
                        std::to_string(static_cast<SELCHANGE*>(data)->chrg.cpMax));
    return S_OK;
}

HRESULT TextHost::TxGetSelectionBarWidth(LONG* width)
{
    *width = 0;
    return S_OK;
}

}  // namespace qvui::test
