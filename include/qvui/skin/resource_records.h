#pragma once

#include <qvui/render/image_list.h>
#include <qvui/skin/cursor_object.h>
#include <qvui/skin/font_object.h>

namespace DUI {

/// The source of a document or object of a skin package, as written in the skin.
struct QVUI_API CResourceFileInfo {
    CString m_strName;
    CString m_strConfigType;    // "file", "dll" or "exe", ignoring case
    CString m_strFileName;      // "file": the file; "dll": the module
    CString m_strResourceId;    // "dll", "exe": the resource's integer id in decimal
    CString m_strResourceType;  // "dll", "exe": the resource's type
};

/// The reference count of a record. A copied record has a count of 0; assignment does not change the count.
class QVUI_API CResourceRecordCount : public CRefCountBase {
public:
    CResourceRecordCount() = default;
    // NOLINTNEXTLINE(bugprone-copy-constructor-init): the count must not be copied.
    CResourceRecordCount(const CResourceRecordCount&) : CRefCountBase() {}
    CResourceRecordCount& operator=(const CResourceRecordCount&) { return *this; }

protected:
    ~CResourceRecordCount() = default;
};

// Records are allocated with `new` and held by a CRefPtr of their exact type. Each caches the object created
// from it; a copied record shares that object.

struct QVUI_API CResourceImageData : CResourceFileInfo, CResourceRecordCount {
    CString m_strMaskColor;  // stored but not used
    CString m_strAlpha;      // stored but not used
    CString m_strCount;      // number of icons, decimal, used if above 0
    CString m_strDrawStyle;  // "stretch", "stretch_horz", "stretch_vert", "squard" or "tile"
    CString m_strCorner;     // "width,height"
    CString m_strDirection;  // "vert": icons are arranged vertically
    CDUIImageListPtr m_pImageList;
};

struct QVUI_API CResourceCursorData : CResourceFileInfo, CResourceRecordCount {
    CRefPtr<CCursorObject> m_pCursor;
};

struct QVUI_API CResourceFontData : CResourceRecordCount {
    CString m_strName;
    CString m_strHeight;     // decimal, may be negative
    CString m_strWeight;     // decimal, 0 to 999
    CString m_strItalic;     // "true", or anything else for false
    CString m_strUnderline;  // "true", or anything else for false
    CString m_strStrikeout;  // "true", or anything else for false
    CString m_strFaceName;   // a string id, or "#" followed by the face name
    CRefPtr<CFontObject> m_pFont;
};

}  // namespace DUI
