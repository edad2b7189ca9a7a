#include "gallery/page_behaviour.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "gallery/spinner.h"

namespace {

constexpr int kMany = 100000;

struct DialogControl {
    const char* tag;
    const char* style;
    const char* text;
    RECT place;  // in the dialog layout
};
constexpr DialogControl kDialog[] = {{"label", "", "y_name", {0, 6, 60, 26}},
                                     {"button", "cell", "#Ada Lovelace", {66, 0, 236, 32}},
                                     {"label", "", "y_mail", {0, 46, 60, 66}},
                                     {"button", "cell", "#ada@example.org", {66, 40, 236, 72}},
                                     {"check_box", "check", "y_remember", {66, 82, 236, 106}}};

// A progress bar that is moved by the frames of an animation.
class ProgressAnimation : public DUI::CDUIAnimationControl {
public:
    void Run(DUI::CDUIProgressBar* bar)
    {
        m_pBar = bar;
        StopAnimation(1);
        StartAnimation(25, 40, 1, FALSE);
    }
    void OnAnimationStep(int, int nCurFrame, int) override { m_pBar->SetPos(nCurFrame); }

private:
    DUI::CDUIProgressBar* m_pBar = nullptr;  // a control of the same page, which lives as long as this one
};

// Words of many scripts, in ASCII so that any code page can hold them.
constexpr std::string_view kScripts =
    R"({\rtf1\ansi{\colortbl;\red76\green117\blue242;}{\b Latin} na\u239?ve caf\u233? \u917)"
    R"(?\u955?\u955?\u951?\u957?\u953?\u954?\u940? \u1050?\u1080?\u1088?\u1080?\u1083?\u108)"
    R"(3?\u1080?\u1094?\u1072?\par {\i \u20013?\u25991?} \u25935?\u25463?\u30340?\u26837?\u)"
    R"(-32142?\u29392?\u29432?\u-29197?\u-28729?\u25042?\u29399?\u12290?\par \u1513?\u1500?)"
    R"(\u1493?\u1501? \u1506?\u1493?\u1500?\u1501? {\cf1 abc} \u1605?\u1585?\u1581?\u1576?\)"
    R"(u1575? \u1576?\u1575?\u1604?\u1593?\u1575?\u1604?\u1605?\par \u2342?\u2375?\u2357?\u)"
    R"(2344?\u2366?\u2327?\u2352?\u2368? \u2354?\u2367?\u2346?\u2367? {\ul \u3616?\u3634?\u)"
    R"(3625?\u3634?\u3652?\u3607?\u3618?} \u-10179?\u-8704?})";

}  // namespace

PageBehaviour::PageBehaviour(DUI::CDUIWindowMgr& window) : m_window(window)
{
    using Handler = void (PageBehaviour::*)(const DUI::tagDUINotify&);
    constexpr struct {
        const char* names;
        Handler handler;
    } kHandlers[] = {
        {"b_plain b_main b_flat b_checked b_tooltip b_shortcut "
         "b_left b_right b_gear b_top b_bottom b_vertical check_1 check_2",
         &PageBehaviour::OnPress},
        {"radio_1 radio_2 radio_3", &PageBehaviour::OnRadio},
        {"link_docs link_project", &PageBehaviour::OnLink},
        {"text_plain text_lines", &PageBehaviour::OnEdit},
        {"combo_list combo_edit combo_many", &PageBehaviour::OnCombo},
        {"next_frame", &PageBehaviour::OnNextFrame},
        {"progress_less", &PageBehaviour::OnLess},
        {"progress_more", &PageBehaviour::OnMore},
        {"track_1 track_2 track_v track_v2", &PageBehaviour::OnTrack},
        {"list_simple list_groups list_many", &PageBehaviour::OnList},
        {"tree_files tree_many", &PageBehaviour::OnTree},
        {"tool_new tool_open tool_save tool_bold tool_italic tool_underline tool_find tool_delete",
         &PageBehaviour::OnTool},
        {"animation_start", &PageBehaviour::OnAnimationStart},
        {"animation_stop", &PageBehaviour::OnAnimationStop},
        {"animation_once", &PageBehaviour::OnAnimationOnce}};
    for (const auto& entry : kHandlers) {
        const CString names(entry.names);
        for (int at = 0; at >= 0;) {
            const CString name = names.Tokenize(" ", at);
            if (!name.IsEmpty())
                m_window.AddNotifyHandler(name, this, entry.handler);
        }
    }
}

template <class Control>
Control* PageBehaviour::Find(const char* name) const
{
    return dynamic_cast<Control*>(m_window.GetControlByName(name, FALSE));
}

void PageBehaviour::Tell(const char* label, const CString& text)
{
    m_window.SetContrlText(label, text);
}

void PageBehaviour::Start(const CString& page)
{
    constexpr struct {
        const char* page;
        void (PageBehaviour::*start)();
    } kStarts[] = {{"buttons", &PageBehaviour::CheckButtons},  {"text_fields", &PageBehaviour::FillTexts},
                   {"combos", &PageBehaviour::FillCombos},     {"lists", &PageBehaviour::FillLists},
                   {"trees", &PageBehaviour::FillTrees},       {"layouts", &PageBehaviour::PlaceDialog},
                   {"animation", &PageBehaviour::StartSpinner}};
    m_window.GetControlByName(page, TRUE);  // the page has come since the names were read last
    for (const auto& entry : kStarts)
        if (page == entry.page)
            (this->*entry.start)();
}

void PageBehaviour::CheckButtons()
{
    for (const char* const name : {"b_checked", "check_1", "radio_2"})
        m_window.SetButtonChecked(name, TRUE);
}

void PageBehaviour::FillTexts()
{
    for (const char* const name : {"text_plain", "text_lines", "text_scripts"})
        if (auto* const edit = Find<DUI::CDUIRichEdit>(name))
            edit->SetEventMask(ENM_CHANGE);
    auto* const scripts = Find<DUI::CDUIRichEdit>("text_scripts");
    if (!scripts)
        return;
    std::string_view rest = kScripts;
    EDITSTREAM stream{};
    stream.dwCookie = reinterpret_cast<DWORD_PTR>(&rest);
    stream.pfnCallback = [](DWORD_PTR cookie, LPBYTE buffer, LONG size, LONG* read) {
        auto& left = *reinterpret_cast<std::string_view*>(cookie);
        const std::size_t count = std::min(left.size(), static_cast<std::size_t>(size));
        std::copy_n(left.begin(), count, buffer);
        left.remove_prefix(count);
        *read = static_cast<LONG>(count);
        return DWORD{0};
    };
    scripts->StreamIn(SF_RTF, stream);
}

void PageBehaviour::FillCombos()
{
    auto* const many = Find<DUI::CDUIComboBox>("combo_many");
    for (int i = 1; many && i <= 1000; ++i) {
        char text[16];
        std::snprintf(text, sizeof text, "%d", i);
        many->AddString(text);
    }
}

void PageBehaviour::OnCombo(Notify notify)
{
    constexpr WPARAM kPicked = 3;
    if (notify.nCode == DUI::DUINOTIFY_COMBOBOX && notify.wParam == kPicked && notify.pSender)
        Tell("combo_log", notify.pSender->GetText());
}

void PageBehaviour::OnEdit(Notify notify)
{
    if (notify.wParam == EN_CHANGE && notify.pSender)
        Tell("text_log", notify.pSender->GetText());
}

void PageBehaviour::StartSpinner()
{
    if (auto* const spinner = Find<Spinner>("spinner_1"))
        spinner->Start();
}

void PageBehaviour::FillLists()
{
    auto* const list = Find<DUI::CDUIListBox>("list_many");
    if (!list)
        return;
    CString text;
    for (int i = 1; i <= kMany; ++i) {
        text.Format("%d", i);
        list->AddString(text, "list_item");
    }
}

void PageBehaviour::FillTrees()
{
    if (auto* const files = Find<DUI::CDUITreeViewImpl>("tree_files")) {
        const char* const folders[] = {"include", "src", "tests"};
        const char* const rooms[] = {"foundation", "render", "skin", "framework", "controls", "layout"};
        for (const char* const folder : folders) {
            DUI::CDUITreeNode* const top = files->AddNode(nullptr, folder);
            top->SetAttribute("icon", "icon_folder");
            for (const char* const room : rooms) {
                DUI::CDUITreeNode* const node = files->AddNode(top, room);
                node->SetAttribute("icon", "icon_folder");
                files->AddNode(node, "CMakeLists.txt")->SetAttribute("icon", "icon_file");
            }
        }
        files->ExpandNode(files->GetNodeAtRow(0), TRUE);
        files->SelectNode(files->GetNodeAtRow(1));
    }
    if (auto* const many = Find<DUI::CDUITreeViewImpl>("tree_many")) {
        constexpr int kBranches = 100;
        CString text;
        for (int branch = 1; branch <= kBranches; ++branch) {
            text.Format("%d", branch);
            DUI::CDUITreeNode* const node = many->AddNode(nullptr, text);
            for (int leaf = 1; leaf < kMany / kBranches; ++leaf) {
                text.Format("%d.%d", branch, leaf);
                many->AddNode(node, text);
            }
        }
    }
}

void PageBehaviour::PlaceDialog()
{
    auto* const dialog = Find<DUI::CDUIControlBase>("dialog_demo");
    if (!dialog)
        return;
    if (dialog->GetControlCount() == 0)
        for (const DialogControl& entry : kDialog) {
            const DUI::CRefPtr<DUI::IDUIControl> control =
                DUIGetAppInstance()->GetControlFactory()->NewControl(entry.tag);
            control->SetAttribute("control_style", entry.style);
            control->SetAttribute("text", entry.text);
            dialog->AddControl(control);
        }
    const RECT origin = dialog->GetContentRect();
    for (int i = 0; i < dialog->GetControlCount(); ++i) {
        RECT place = kDialog[i].place;
        OffsetRect(&place, origin.left, origin.top);
        dialog->GetControlByIndex(i)->SetControlRect(place);
    }
}

void PageBehaviour::OnPress(Notify notify)
{
    if (notify.nCode == DUI::DUINOTIFY_CLICK)
        Tell("press_log", notify.pSender->GetText());
}

// One of a group is on: the library leaves it to the application which buttons are a group.
void PageBehaviour::OnRadio(Notify notify)
{
    if (notify.nCode != DUI::DUINOTIFY_CLICK)
        return;
    for (const char* const name : {"radio_1", "radio_2", "radio_3"})
        m_window.SetButtonChecked(name, FALSE);
    OnPress(notify);
}

void PageBehaviour::OnLink(Notify notify)
{
    if (notify.nCode == DUI::DUINOTIFY_LINKCLICK)
        Tell("link_log", notify.pSender->GetTooltip());
}

void PageBehaviour::OnNextFrame(Notify notify)
{
    auto* const picture = Find<DUI::CDUIPictureBox>("frames");
    if (notify.nCode != DUI::DUINOTIFY_CLICK || !picture || picture->GetIconCount() == 0)
        return;
    picture->SetCurrentIconIndex((picture->GetCurrentIconIndex() + 1) % picture->GetIconCount());
    picture->UpdateLayout(FALSE, nullptr);
}

void PageBehaviour::MoveProgress(int by)
{
    for (const char* const name : {"progress_1", "progress_2"})
        if (auto* const bar = Find<DUI::CDUIProgressBar>(name))
            bar->OffsetPos(by);
}

void PageBehaviour::OnLess(Notify notify)
{
    if (notify.nCode == DUI::DUINOTIFY_CLICK)
        MoveProgress(-10);
}

void PageBehaviour::OnMore(Notify notify)
{
    if (notify.nCode == DUI::DUINOTIFY_CLICK)
        MoveProgress(10);
}

void PageBehaviour::OnTrack(Notify notify)
{
    if (notify.nCode != DUI::DUINOTIFY_TRACKPOS)
        return;
    CString text;
    text.Format("%d", static_cast<int>(notify.wParam));
    Tell("track_log", text);
}

void PageBehaviour::OnList(Notify notify)
{
    constexpr WPARAM kSelected = 3;
    if (notify.nCode == DUI::DUINOTIFY_LISTBOX && notify.wParam == kSelected)
        Tell("list_log", reinterpret_cast<DUI::IDUIControl*>(notify.lParam)->GetText());
}

void PageBehaviour::OnTree(Notify notify)
{
    if (notify.nCode == DUI::DUINOTIFY_TREEEXPAND)
        Tell("tree_log", reinterpret_cast<DUI::IDUIControl*>(notify.lParam)->GetText());
}

void PageBehaviour::OnTool(Notify notify)
{
    if (notify.nCode == DUI::DUINOTIFY_CLICK)
        Tell("tool_log", notify.pSender->GetTooltip());
}

void PageBehaviour::OnAnimationStart(Notify notify)
{
    if (notify.nCode == DUI::DUINOTIFY_CLICK)
        StartSpinner();
}

void PageBehaviour::OnAnimationStop(Notify notify)
{
    auto* const spinner = Find<Spinner>("spinner_1");
    if (notify.nCode == DUI::DUINOTIFY_CLICK && spinner)
        spinner->Stop();
}

void PageBehaviour::OnAnimationOnce(Notify notify)
{
    auto* const bar = Find<DUI::CDUIProgressBar>("animation_progress");
    if (notify.nCode != DUI::DUINOTIFY_CLICK || !bar)
        return;
    auto* animation = Find<ProgressAnimation>("progress_animation");
    if (!animation) {
        const DUI::CRefPtr<DUI::IDUIControl> made(new ProgressAnimation);
        made->SetName("progress_animation");
        made->SetVisible(FALSE);
        bar->AddControl(made);
        m_window.GetControlByName("progress_animation", TRUE);
        animation = static_cast<ProgressAnimation*>(made.GetPtr());
    }
    animation->Run(bar);
}
