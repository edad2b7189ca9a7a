#pragma once

#include <qvui/qvui.h>

/// What the controls of the gallery's pages do when they are used: each named control has a handler here.
class PageBehaviour : public DUI::CDUINotifyTarget {
public:
    /// The window outlives this.
    explicit PageBehaviour(DUI::CDUIWindowMgr& window);

    /// Brings a page to life whose controls have come into the window.
    void Start(const CString& page);
    /// Puts the controls of the dialog layout, which stay where they are told, where the layout is now.
    void PlaceDialog();

private:
    using Notify = const DUI::tagDUINotify&;

    void OnPress(Notify notify);
    void OnRadio(Notify notify);
    void OnLink(Notify notify);
    void OnEdit(Notify notify);
    void OnCombo(Notify notify);
    void OnNextFrame(Notify notify);
    void OnLess(Notify notify);
    void OnMore(Notify notify);
    void OnTrack(Notify notify);
    void OnList(Notify notify);
    void OnTree(Notify notify);
    void OnTool(Notify notify);
    void OnAnimationStart(Notify notify);
    void OnAnimationStop(Notify notify);
    void OnAnimationOnce(Notify notify);

    void CheckButtons();
    void FillTexts();
    void FillCombos();
    void FillLists();
    void FillTrees();
    void StartSpinner();
    void MoveProgress(int by);
    /// Shows what happened in a page's line of text.
    void Tell(const char* label, const CString& text);
    template <class Control>
    Control* Find(const char* name) const;

    DUI::CDUIWindowMgr& m_window;
};
