#pragma once

#include <qvui/render/image_list.h>
#include <qvui/skin/cursor_object.h>
#include <qvui/skin/font_object.h>

namespace DUI {

/// Where a document or an object of a skin package comes from. The texts are as the skin writes them.
struct QVUI_API CResourceFileInfo {
    CString m_strName;
    CString m_strConfigType;    // "file", "dll" or "exe", in any letter case
    CString m_strFileName;      // "file": the file; "dll": the module
    CString m_strResourceId;    // "dll", "exe": the resource's integer id in decimal
    CString m_strResourceType;  // "dll", "exe": the resource's type
};

/// The count of a record: a copy is a new record that nobody owns, and assignment leaves the owners as they
/// are.
class QVUI_API CResourceRecordCount : public CRefCountBase {
public:
    CResourceRecordCount() = default;
    // NOLINTNEXTLINE(bugprone-copy-constructor-init): the owners are not copied.
    CResourceRecordCount(const CResourceRecordCount&) : CRefCountBase() {}
    CResourceRecordCount& operator=(const CResourceRecordCount&) { return *this; }

protected:
    ~CResourceRecordCount() = default;
};

// Records are made with `new` and held by a CRefPtr of their exact type. Each caches the object made from it;
// a copied record shares that object.

struct QVUI_API CResourceImageData : CResourceFileInfo, CResourceRecordCount {
    CString m_strMaskColor;  // kept, not used
    CString m_strAlpha;      // kept, not used
    CString m_strCount;      // sub-images, decimal, used when above 0
    CString m_strDrawStyle;  // "stretch", "stretch_horz", "stretch_vert", "squard" or "tile"
    CString m_strCorner;     // "width,height"
    CString m_strDirection;  // "vert": sub-images stand one above the other
    CDUIImageListPtr m_pImageList;
};

struct QVUI_API CResourceCursorData : CResourceFileInfo, CResourceRecordCount {
    CRefPtr<CCursorObject> m_pCursor;
};

struct QVUI_API CResourceFontData : CResourceRecordCount {
    CString m_strName;
    CString m_strHeight;     // decimal, may be negative
    CString m_strWeight;     // decimal, 0 to 999
    CString m_strItalic;     // "true" or not
    CString m_strUnderline;  // "true" or not
    CString m_strStrikeout;  // "true" or not
    CString m_strFaceName;   // a string id; "#" and a name is the name itself
    CRefPtr<CFontObject> m_pFont;
};

}  // namespace DUI
