#pragma once

#include <qvui/foundation/ref_ptr.h>
#include <qvui/platform/platform.h>

namespace DUI {

/// One cursor. The object owns the handle, so it cannot be copied.
class QVUI_API CCursorObject : public CDUIObject {
public:
    CCursorObject();
    CCursorObject(const CCursorObject&) = delete;
    CCursorObject& operator=(const CCursorObject&) = delete;
    ~CCursorObject() override;

    /// Both load the cursor in its own size, 1 on success. An earlier cursor is gone either way.
    int CreateFromFile(const char* path);
    /// `id` is a decimal text, the low 16 bits of its value the resource's integer id.
    int CreateFromResource(HINSTANCE module, const char* id);

    /// Borrowed; valid until another cursor is loaded or the object goes.
    HCURSOR GetCursor() const { return m_hCursor; }
    int IsNull() const { return m_hCursor == nullptr; }
    /// A name for the application's use; the library does not set it.
    void SetCursorName(const CString& name) { m_strName = name; }
    CString GetCursorName() const { return m_strName; }

protected:
    void DeleteObject();

private:
    int Adopt(HANDLE cursor);

    HCURSOR m_hCursor = nullptr;
    CString m_strName;
};

}  // namespace DUI
