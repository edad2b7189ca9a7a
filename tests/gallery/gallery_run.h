#pragma once

#include <memory>
#include <string>
#include <vector>

#include "gallery/gallery_window.h"
#include "support/controls/control_test.h"

namespace qvui::test {

/// The gallery with its skin package, without its main function and its message loop: its window is shown and
/// receives the messages that a test sends. At the end window and application are gone.
class GalleryRun {
public:
    /// Fails the current test when the skin package beside the program is of no use.
    GalleryRun();
    GalleryRun(const GalleryRun&) = delete;
    GalleryRun& operator=(const GalleryRun&) = delete;
    ~GalleryRun();

    /// Makes and shows a window in place of the present one, if any.
    void Open();
    bool IsOpen() const { return m_window && m_window->GetHWND() && ::IsWindow(m_window->GetHWND()); }
    GalleryWindow& Window() { return *m_window; }
    HWND Handle() const { return m_window->GetHWND(); }
    /// The names of the pages in their order.
    const std::vector<std::string>& Pages() const { return m_pages; }
    static DUI::IDUISkinMgr& Skins() { return *DUIGetAppInstance()->GetSkinMgr(); }

private:
    std::unique_ptr<GalleryWindow> m_window;
    std::vector<std::string> m_pages;
};

/// The base of the gallery's tests: nothing may be left when one ends, and no failure be traced.
class GalleryTest : public testing::Test {
public:
    GalleryTest() : m_liveBefore(DUI::CRefCountBase::GetLiveCount()) {}
    ~GalleryTest() override;

protected:
    TraceLog traces;

private:
    LeakCheck m_leaks;
    std::size_t m_liveBefore;
};

}  // namespace qvui::test
