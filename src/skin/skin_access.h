#pragma once

#include <qvui/skin/skin_manager.h>

/// Access to the application's skin. All functions return an empty result if there is no skin manager.
namespace DUI::skin {

/// Not owned; null while the application is not initialised.
IDUISkinMgr* Manager();
/// Called by the application, which owns the manager.
void SetManager(IDUISkinMgr* manager);
/// Returns the shared image with that name, or null if the skin has none.
CDUIImageListPtr Image(const CString& name);
CRefPtr<CDUIFrameBK> Frame(const CString& name);
CARGB Color(const CString& text);
/// Returns the string with that id, or the text after a leading "#"; empty for an unknown id.
CString String(const CString& id);

/// Whether the image has a picture.
inline bool IsLoaded(const CDUIImageListPtr& image)
{
    return image && !image->IsNull();
}
/// Returns the index if the image has that icon, otherwise 0.
inline int IconIndex(const CDUIImageListPtr& image, int index)
{
    return index < image->GetItemCount() ? index : 0;
}

/// Returns the size of one icon, or 0 by 0 without a picture.
inline SIZE IconSize(const CDUIImageListPtr& image)
{
    return image && !image->IsNull() ? SIZE{image->GetIconWidth(), image->GetIconHeight()} : SIZE{0, 0};
}

}  // namespace DUI::skin
