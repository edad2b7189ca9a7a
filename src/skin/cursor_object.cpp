#include <qvui/skin/cursor_object.h>

#include <qvui/foundation/trace.h>

#include "skin/resource_id.h"

namespace DUI {

CCursorObject::CCursorObject()
{
    CTrace::TraceInfo("CCursorObject::CCursorObject()");
}

CCursorObject::~CCursorObject()
{
    CTrace::TraceInfo("CCursorObject::~CCursorObject(): m_hCursor(%u)",
                      static_cast<unsigned>(reinterpret_cast<ULONG_PTR>(m_hCursor)));
    DeleteObject();
}

int CCursorObject::CreateFromFile(const char* path)
{
    DeleteObject();
    return Adopt(LoadImageA(nullptr, path, IMAGE_CURSOR, 0, 0, LR_LOADFROMFILE));
}

int CCursorObject::CreateFromResource(HINSTANCE module, const char* id)
{
    DeleteObject();
    return Adopt(LoadImageA(module, MAKEINTRESOURCEA(ResourceIdOf(id)), IMAGE_CURSOR, 0, 0, 0));
}

int CCursorObject::Adopt(HANDLE cursor)
{
    m_hCursor = static_cast<HCURSOR>(cursor);
    return m_hCursor != nullptr;
}

void CCursorObject::DeleteObject()
{
    if (m_hCursor)
        DestroyCursor(m_hCursor);
    m_hCursor = nullptr;
}

}  // namespace DUI
