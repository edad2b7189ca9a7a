#include <qvui/bars/builtin_controls.h>

#include <qvui/bars/tab_bar.h>
#include <qvui/bars/tab_item.h>
#include <qvui/bars/tab_layout.h>
#include <qvui/bars/tool_bar.h>
#include <qvui/controls/button.h>
#include <qvui/controls/check_button.h>
#include <qvui/controls/combo/combo_box.h>
#include <qvui/controls/hyper_link.h>
#include <qvui/controls/label.h>
#include <qvui/controls/picture_box.h>
#include <qvui/controls/progress_bar.h>
#include <qvui/controls/rows/list_box.h>
#include <qvui/controls/rows/tree_view.h>
#include <qvui/controls/scrolling/scroll_bar.h>
#include <qvui/controls/text/edit.h>
#include <qvui/controls/text/rich_edit.h>
#include <qvui/controls/track_bar.h>
#include <qvui/layout/dialog_layout.h>
#include <qvui/layout/dock_layout.h>
#include <qvui/layout/frame_panel.h>
#include <qvui/layout/linear_layout.h>
#include <qvui/layout/padding_panel.h>
#include <qvui/layout/split.h>
#include <qvui/layout/tile_layout.h>

namespace DUI {
namespace {

template <class Control>
IDUIControl* Make()
{
    return new Control;
}

template <class Control>
BuiltinControl Tag(const char* tag)
{
    return {tag, &Make<Control>, &Control::Class};
}

}  // namespace

const std::vector<BuiltinControl>& BuiltinControls()
{
    static const std::vector<BuiltinControl> controls{
        Tag<CDUIHorizontalLayout>("horz_layout"),
        Tag<CDUIVerticalLayout>("vert_layout"),
        Tag<CDUITileLayout>("tile_layout"),
        Tag<CDUIDialogLayout>("dialog_layout"),
        Tag<CDUIDockLayout>("dock_layout"),
        Tag<CDUIVerticalSplit>("vert_split"),
        Tag<CDUIHorizontalSplit>("horz_split"),
        Tag<CDUICanvas>("canvas"),
        Tag<CDUIPaddingPanel>("padding_panel"),
        Tag<CDUIFramePanel>("frame_panel"),
        Tag<CDUIButton>("button"),
        Tag<CDUIRadioButton>("radio_button"),
        Tag<CDUICheckBox>("check_box"),
        Tag<CDUILabel>("label"),
        Tag<CDUIHyperLink>("hyperlink"),
        Tag<CDUIVerticalSB>("vert_scrollbar"),
        Tag<CDUIHorizontalSB>("horz_scrollbar"),
        Tag<CDUIVerticalProgressBar>("vert_progressbar"),
        Tag<CDUIHorizontalProgressBar>("horz_progressbar"),
        Tag<CDUIVerticalTrackBar>("vert_trackbar"),
        Tag<CDUIHorizontalTrackBar>("horz_trackbar"),
        Tag<CDUIListBox>("listbox"),
        Tag<CDUIListItem>("list_icontext_item"),
        Tag<CDUIRichEdit>("richedit"),
        Tag<CDUIComboBox>("combobox"),
        Tag<CDUITabLayout>("tab_layout"),
        Tag<CDUITabItem>("tab_item"),
        Tag<CDUITabBar<CDUIHorizontalLayout>>("horz_tabbar"),
        Tag<CDUITabBar<CDUIVerticalLayout>>("vert_tabbar"),
        Tag<CDUIToolBar<CDUIHorizontalLayout>>("horz_toolbar"),
        Tag<CDUIToolBar<CDUIVerticalLayout>>("vert_toolbar"),
        Tag<CDUITreeViewImpl>("treeview"),
        Tag<CDUITreeNode>("treeview_item"),
        Tag<CDUIPictureBox>("picturebox"),
        Tag<CDUIEdit>("edit"),
        Tag<CDUIToolBarSeparator>("toolbar_separator"),
        Tag<CDUIHyperLink>("hyper_link"),  // as its interface is called; skins write either
    };
    return controls;
}

}  // namespace DUI
