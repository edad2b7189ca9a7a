#pragma once

#include <memory>

#include "common/host_window.h"
#include "gallery/custom_frame.h"
#include "gallery/page_behaviour.h"

/// The gallery's window: a frame of its own, a list of pages at the left and the chosen page beside it.
class GalleryWindow : public example::HostWindow {
public:
    GalleryWindow();
    /// Makes the tags of the gallery's own controls known to the application.
    static void RegisterControls();

    /// Makes the hidden window; false when the skin has no usable templates for it.
    bool Create(bool isLayered);
    /// Shows a page by its name, as in its file's; false when there is none.
    bool ShowPage(const CString& name);

    void OnSkinUIDataChanged() override;

private:
    bool BuildControls() override;
    std::vector<CString> ToldControls() override;
    LRESULT Handle(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnDUINotify(const DUI::tagDUINotify& notify, BOOL& bHandled) override;
    bool BuildPage(const CString& name);
    /// The caption's middle button restores a maximised window, and shows it.
    void MarkMaximised();
    bool PressCaptionButton(const CString& name);

    CustomFrame m_frame;
    std::unique_ptr<PageBehaviour> m_behaviour;
    int m_nPage = 0;  // the page that shows, kept when the controls are built anew
};
