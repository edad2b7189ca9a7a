#pragma once

#include <qvui/qvui.h>

/// The hello window: one control tree from the skin's template "hello", and two buttons that change language
/// and skin while it runs.
class HelloWindow : public DUI::CDUIWindowMgr, private DUI::IDUILanguageObserver {
public:
    HelloWindow();
    ~HelloWindow() override;

    /// Makes the hidden window; false when the skin has no usable template for it.
    bool Create();
    void Show();
    /// Whether the window has been closed.
    bool IsClosed() const { return !IsWindow(); }

private:
    static LRESULT CALLBACK WindowProcedure(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Handle(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
    void OnClosed();

    void OnDUINotify(const DUI::tagDUINotify& notify, BOOL& bHandled) override;
    void OnLanguageTypeChanged(const CString& oldType, const CString& newType) override;
    bool BuildControls();
    void SwitchSkin();
    void SwitchLanguage();

    HWND m_hWindow = nullptr;
};
