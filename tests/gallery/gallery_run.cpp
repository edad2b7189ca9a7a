#include "gallery/gallery_run.h"

namespace qvui::test {

GalleryRun::GalleryRun()
{
    CString entry;
    EXPECT_TRUE(DUI::CResLoader().LoadXMLFromFile("gallery-skin\\entry.xml", entry));
    EXPECT_TRUE(DUIGetAppInstance()->Init(entry, TRUE));
    GalleryWindow::RegisterControls();
    Open();
    const std::string prefix = "host_";
    DUI::IDUIControl* const content = m_window->GetControlByName("content", TRUE);
    for (int i = 0; content && i < content->GetControlCount(); ++i) {
        const std::string name = content->GetControlByIndex(i)->GetName().GetString();
        if (name.rfind(prefix, 0) == 0)
            m_pages.push_back(name.substr(prefix.size()));
    }
    EXPECT_FALSE(m_pages.empty()) << "the window has no pages";
}

GalleryRun::~GalleryRun()
{
    m_window.reset();
    Pump();
    DUIGetAppInstance()->Term();
}

void GalleryRun::Open()
{
    // A pointer that lies over the window would make a control hot.
    SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1);
    m_window.reset();
    m_window = std::make_unique<GalleryWindow>();
    ASSERT_TRUE(m_window->Create(false));
    m_window->Show();
    Pump();
}

GalleryTest::~GalleryTest()
{
    EXPECT_EQ(DUI::CRefCountBase::GetLiveCount(), m_liveBefore) << "counted objects are left";
}

}  // namespace qvui::test
