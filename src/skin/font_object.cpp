#include <qvui/skin/font_object.h>

#include <atomic>
#include <cstring>
#include <iterator>

#include <qvui/foundation/trace.h>

#include "skin/character_set.h"

namespace DUI {
namespace {

constexpr std::size_t kLongestFaceName = 30;

}  // namespace

CFontObject::CFontObject()
{
    GetObjectA(GetStockObject(DEFAULT_GUI_FONT), sizeof m_logFont, &m_logFont);
    m_logFont.lfCharSet = CharacterSetOf(GetSystemDefaultLangID());
}

CFontObject::~CFontObject()
{
    CTrace::TraceInfo("CFontObject::~CFontObject(): m_hFont(%u)",
                      static_cast<unsigned>(reinterpret_cast<ULONG_PTR>(m_hFont)));
    DeleteObject();
}

int CFontObject::CreateFontA()
{
    DeleteObject();
    static std::atomic<unsigned> s_nLastVersion{0};
    m_nVersion = ++s_nLastVersion;
    m_hFont = CreateFontIndirectA(&m_logFont);
    return m_hFont != nullptr;
}

void CFontObject::DeleteObject()
{
    if (m_hFont)
        ::DeleteObject(m_hFont);
    m_hFont = nullptr;
}

void CFontObject::SetFaceName(const char* name)
{
    if (!name)
        return;
    const char* const end = name + std::strlen(name);
    std::size_t length = 0;
    while (name + length < end) {
        const std::size_t next = length + static_cast<std::size_t>(CharacterLength(name + length, end));
        if (next > kLongestFaceName)
            break;
        length = next;
    }
    static_assert(kLongestFaceName < std::size(LOGFONTA{}.lfFaceName));
    std::memcpy(m_logFont.lfFaceName, name, length);
    m_logFont.lfFaceName[length] = '\0';
}

}  // namespace DUI
