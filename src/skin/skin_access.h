#pragma once

#include <qvui/skin/skin_manager.h>

/// What controls ask of the application's skin; each gives an empty result when there is no skin manager.
namespace DUI::skin {

/// Not owned; null while the application is not initialised.
IDUISkinMgr* Manager();
/// For the application, which owns the manager.
void SetManager(IDUISkinMgr* manager);
/// The shared image of that name; null when the skin lacks it.
CDUIImageListPtr Image(const CString& name);
CRefPtr<CDUIFrameBK> Frame(const CString& name);
CARGB Color(const CString& text);
/// The string of that id, or the text after a leading "#"; empty for an id that the skin lacks.
CString String(const CString& id);

/// Whether the image holds a picture.
inline bool IsLoaded(const CDUIImageListPtr& image)
{
    return image && !image->IsNull();
}
/// The index when the image has such an icon, else 0.
inline int IconIndex(const CDUIImageListPtr& image, int index)
{
    return index < image->GetItemCount() ? index : 0;
}

/// The size of one icon; 0 by 0 without a picture.
inline SIZE IconSize(const CDUIImageListPtr& image)
{
    return image && !image->IsNull() ? SIZE{image->GetIconWidth(), image->GetIconHeight()} : SIZE{0, 0};
}

}  // namespace DUI::skin
