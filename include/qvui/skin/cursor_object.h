#pragma once

#include <qvui/foundation/ref_ptr.h>
#include <qvui/platform/platform.h>

namespace DUI {

/// A cursor. The object owns the handle and cannot be copied.
class QVUI_API CCursorObject : public CDUIObject {
public:
    CCursorObject();
    CCursorObject(const CCursorObject&) = delete;
    CCursorObject& operator=(const CCursorObject&) = delete;
    ~CCursorObject() override;

    /// Both functions load the cursor at its own size and return 1 on success. The previous cursor is
    /// released in any case.
    int CreateFromFile(const char* path);
    /// `id` is a decimal number whose low 16 bits are the integer id of the resource.
    int CreateFromResource(HINSTANCE module, const char* id);

    /// Not owned; valid until another cursor is loaded or the object is destroyed.
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
