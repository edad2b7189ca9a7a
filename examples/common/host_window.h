#pragma once

#include <qvui/qvui.h>

namespace example {

/// A native window and the manager of its controls in one: creates the window, takes its messages to the
/// manager, rebuilds the controls when the language changes, and tells on standard output what happens, line
/// by line, for whoever drives the program from outside ("ready", "control NAME LEFT TOP RIGHT BOTTOM",
/// "client X Y" at the start and wherever the window moves, "lifted X Y" and "dropped X Y" before and after a
/// drag of it, "closed").
class HostWindow : public DUI::CDUIWindowMgr, private DUI::IDUILanguageObserver {
public:
    HostWindow();
    ~HostWindow() override;

    /// Shows the window and lets it take part in the application's message loop.
    void Show();

protected:
    struct Shape {
        const char* className;
        DWORD style;
        DWORD exStyle;
        SIZE client;  // in pixels
        POINT place;  // on the screen
    };
    /// Makes the hidden window and its controls; false when either fails.
    bool CreateHost(const Shape& shape);

    /// Builds the controls from the skin; false, with a word on standard error, when the skin is of no use.
    virtual bool BuildControls() = 0;
    /// Controls whose places are told when the window shows.
    virtual std::vector<CString> ToldControls() = 0;
    virtual LRESULT Handle(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);

    /// What BuildControls of every window ends with: the tree is attached and the title set.
    void StartControls();
    void TellOrigin(const char* what);
    static void Tell(const char* what, const char* which);
    static DUI::IDUISkinMgr& Skin() { return *DUIGetAppInstance()->GetSkinMgr(); }

    HWND m_hWindow = nullptr;

private:
    static LRESULT CALLBACK Procedure(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
    void OnClosed();
    // Texts are read when controls are built, so a new language gets new controls.
    void OnLanguageTypeChanged(const CString& oldType, const CString& newType) override;
};

}  // namespace example
