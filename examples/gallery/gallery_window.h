#pragma once

#include <memory>

#include <qvui/qvui.h>

#include "gallery/custom_frame.h"
#include "gallery/page_behaviour.h"

/// The gallery's window: a frame of its own, a list of pages at the left and the chosen page beside it.
class GalleryWindow : public DUI::CDUIWindowMgr, private DUI::IDUILanguageObserver {
public:
    GalleryWindow();
    ~GalleryWindow() override;

    /// Makes the hidden window; false when the skin has no usable templates for it.
    bool Create(bool isLayered);
    void Show();
    /// Shows a page by its name, as in its file's; false when there is none.
    bool ShowPage(const CString& name);

    void OnSkinUIDataChanged() override;

private:
    static LRESULT CALLBACK WindowProcedure(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Handle(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
    void OnClosed();

    void OnDUINotify(const DUI::tagDUINotify& notify, BOOL& bHandled) override;
    void OnLanguageTypeChanged(const CString& oldType, const CString& newType) override;
    bool BuildControls();
    bool BuildPage(const char* name);
    bool PressCaptionButton(const CString& name);

    HWND m_hWindow = nullptr;
    CustomFrame m_frame;
    std::unique_ptr<PageBehaviour> m_behaviour;
};
