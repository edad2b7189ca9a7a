#include "writer/writer_window.h"

#include "writer/file_store.h"
#include "writer/strings.h"

namespace writer {
namespace {

constexpr SIZE kSize{980, 680};

bool IsEditorName(const CString& name)
{
    return name == "editor";
}

// Takes texts and tooltips over from a tree that was built in another language.
void Relabel(DUI::IDUIControl& shown, DUI::IDUIControl& fresh)
{
    if (!shown.GetInterface("richedit") && !shown.GetInterface("combobox") && !fresh.GetText().IsEmpty())
        shown.SetText(fresh.GetText());
    shown.SetTooltip(fresh.GetTooltip());
    for (int i = 0; i < fresh.GetControlCount() && i < shown.GetControlCount(); ++i)
        Relabel(*shown.GetControlByIndex(i), *fresh.GetControlByIndex(i));
}

}  // namespace

WriterWindow::WriterWindow() : m_documents(*this), m_find(*this), m_formats(*this), m_prompt(*this)
{
}

bool WriterWindow::Create(const std::vector<std::string>& files)
{
    constexpr DWORD kStyle = WS_OVERLAPPEDWINDOW;
    if (!CreateHost({"qvui writer", kStyle, 0, kSize, {120, 80}}))
        return false;
    for (const std::string& file : files)
        Open(file);
    FocusEditor();
    return true;
}

bool WriterWindow::BuildControls()
{
    RECT client{};
    GetClientRect(m_hWindow, &client);
    if (!CreateFromResource("writer", m_hWindow, client))
        return false;
    StartControls();
    GetControlByName("tabs", TRUE);
    m_find.Hide();
    m_prompt.Hide();
    const bool hasDocument = m_documents.Add() != nullptr;
    Refresh();
    return hasDocument;
}

std::vector<CString> WriterWindow::ToldControls()
{
    return {"new", "open", "save", "bold", "find", "close_tab", "pages"};
}

LRESULT WriterWindow::Handle(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CLOSE && m_documents.FindModified()) {
        CloseWindow();
        return 0;
    }
    const Document* const document = message == WM_SETFOCUS ? m_documents.Current() : nullptr;
    CHARRANGE selection{};
    if (document)
        document->Editor().GetSel(selection);
    const LRESULT result = HostWindow::Handle(hWnd, message, wParam, lParam);
    // The text has the focus again, with the selection that it had: what is typed next must not replace all.
    if (document && (!GetFocusControl() || HasFocus("editor"))) {
        document->Editor().SetSel(selection);
        FocusEditor();
    }
    return result;
}

BOOL WriterWindow::PreTranslateMessage(MSG* message)
{
    if (message->message == WM_KEYDOWN) {
        const auto isDown = [](int key) { return GetKeyState(key) < 0; };
        if (message->wParam == VK_RETURN && HasFocus("prompt_path")) {
            Accept();
            return TRUE;
        }
        if (message->wParam == VK_RETURN && HasFocus("find_text")) {
            Run(isDown(VK_SHIFT) ? Command::FindPrevious : Command::FindNext);
            return TRUE;
        }
        if (const CommandEntry* const entry =
                FindCommand(message->wParam, isDown(VK_CONTROL), isDown(VK_SHIFT))) {
            Run(entry->command);
            return TRUE;
        }
    }
    return HostWindow::PreTranslateMessage(message);
}

void WriterWindow::OnDUINotify(const DUI::tagDUINotify& notify, BOOL& bHandled)
{
    constexpr WPARAM kPicked = 3;
    const CString name = notify.pSender ? notify.pSender->GetName() : CString();
    const bool isClick = notify.nCode == DUI::DUINOTIFY_CLICK;
    if (const CommandEntry* const entry = isClick ? FindCommand(name.GetString()) : nullptr) {
        bHandled = TRUE;
        Run(entry->command);
    } else if (notify.nCode == DUI::DUINOTIFY_TABACTIVATE) {
        Refresh();
        FocusEditor();
    } else if (notify.nCode == DUI::DUINOTIFY_COMBOBOX && notify.wParam == kPicked && name == "size") {
        if (Document* const document = m_documents.Current())
            m_formats.ApplySize(*document);
        FocusEditor();
    } else if (notify.nCode == DUI::DUINOTIFY_EDITNOTIFY && notify.wParam == EN_KILLFOCUS && name == "size") {
        // A size that was typed counts when the field is left.
        if (Document* const document = m_documents.Current())
            m_formats.ApplySize(*document);
    } else if (notify.nCode == DUI::DUINOTIFY_EDITNOTIFY && IsEditorName(name)) {
        Refresh();
    }
    HostWindow::OnDUINotify(notify, bHandled);
}

void WriterWindow::OnLanguageTypeChanged(const CString&, const CString&)
{
    // The documents stay: only the texts are read anew.
    const DUI::CRefPtr<DUI::IDUIControl> fresh =
        DUI::CDUIControlBuilder(nullptr).CreateFromResource("writer");
    if (!fresh.IsNull() && GetRootControl())
        Relabel(*GetRootControl(), *fresh.GetPtr());
    Refresh();
}

void WriterWindow::Run(Command command)
{
    switch (command) {
        case Command::New:
            m_documents.Add();
            break;
        case Command::Open:
            m_prompt.Show(Prompt::Open, Text("path_open"));
            return;
        case Command::Find:
            m_find.Show();
            LayoutRootControl();
            Invalidate(TRUE);
            return;
        case Command::Dismiss:
            Dismiss();
            break;
        case Command::Accept:
            Accept();
            return;
        case Command::Discard:
            Discard();
            return;
        case Command::Language:
            Skin().SetLanguageType(Skin().GetLanguageType() == "English" ? "Chinese" : "English");
            break;
        default:
            if (Document* const document = m_documents.Current())
                RunOnDocument(*document, command);
            return;
    }
    Refresh();
    FocusEditor();
}

void WriterWindow::RunOnDocument(Document& document, Command command)
{
    switch (command) {
        case Command::Save:
            SaveOrAsk(document);
            return;
        case Command::SaveAs:
            AskForName(document);
            return;
        case Command::Close:
            CloseDocument(document);
            return;
        case Command::Undo:
            document.Editor().Undo();
            break;
        case Command::Redo:
            document.Editor().Redo();
            break;
        case Command::FindNext:
        case Command::FindPrevious:
            m_find.Find(document.Editor(), command == Command::FindNext);
            Refresh();
            return;
        default:
            m_formats.Apply(document, command);
            break;
    }
    Refresh();
    FocusEditor();
}

void WriterWindow::Open(const std::string& path)
{
    Document* document = m_documents.Find(path);
    if (document) {
        m_documents.Select(*document);
    } else {
        // An untouched new document makes room for the file.
        document = m_documents.Current();
        const bool isUnused = document && document->Path().empty() && !document->IsModified();
        if (!isUnused)
            document = m_documents.Add();
        if (document && !document->Load(path)) {
            if (!isUnused)
                m_documents.Close(*document);
            m_prompt.Show(Prompt::Notice, Text("open_failed") + " " + path.c_str());
            Tell("failed", path.c_str());
            Refresh();
            FocusEditor();
            return;
        }
        Tell("opened", path.c_str());
    }
    m_prompt.Hide();
    if (document && document->HasMixedLineEnds())
        m_prompt.Show(Prompt::Notice, Text("mixed_line_ends"));
    Refresh();
    FocusEditor();
}

bool WriterWindow::Save(Document& document, const std::string& path)
{
    const SaveResult result = document.Save(path);
    Refresh();
    if (result == SaveResult::Failed) {
        m_closing = Closing::No;
        m_prompt.Show(Prompt::Notice, Text("save_failed") + " " + path.c_str());
        Tell("failed", path.c_str());
        FocusEditor();
        return false;
    }
    m_prompt.Hide();
    if (result == SaveResult::SavedAsUtf8)
        m_prompt.Show(Prompt::Notice, Text("saved_as_utf8"));
    Tell("saved", path.c_str());
    FocusEditor();
    return true;
}

void WriterWindow::SaveOrAsk(Document& document)
{
    if (document.Path().empty())
        AskForName(document);
    else if (Save(document, document.Path()))
        GoOn();
}

void WriterWindow::AskForName(Document& document)
{
    m_prompt.Show(Prompt::SaveAs, Text("path_save"), document.Path());
}

void WriterWindow::CloseDocument(Document& document)
{
    if (document.IsModified()) {
        if (m_closing == Closing::No)
            m_closing = Closing::Document;
        m_documents.Select(document);
        Refresh();
        m_prompt.Show(Prompt::SaveChanges, Text("ask_save"));
        Tell("asked", "save");
        return;
    }
    m_documents.Close(document);
    Refresh();
    FocusEditor();
}

void WriterWindow::CloseWindow()
{
    m_closing = Closing::Window;
    if (Document* const modified = m_documents.FindModified())
        CloseDocument(*modified);
    else
        DestroyWindow(m_hWindow);
}

void WriterWindow::Accept()
{
    Document* const document = m_documents.Current();
    const std::string path = m_prompt.Path();
    const Prompt prompt = m_prompt.Current();
    if (!document || prompt == Prompt::None)
        return;
    if (prompt == Prompt::Open && !path.empty()) {
        Open(path);
    } else if (prompt == Prompt::SaveAs && !path.empty()) {
        m_wantedPath = path;
        SaveAs(*document, prompt);
    } else if (prompt == Prompt::DropFormats || prompt == Prompt::Overwrite) {
        SaveAs(*document, prompt);
    } else if (prompt == Prompt::SaveChanges) {
        SaveOrAsk(*document);
    }
}

// Asks what has not been answered yet, and saves after the last answer.
void WriterWindow::SaveAs(Document& document, Prompt answered)
{
    const bool isOther = m_wantedPath != document.Path() && FileExists(m_wantedPath);
    if (answered == Prompt::SaveAs && document.LosesFormats(m_wantedPath))
        m_prompt.Show(Prompt::DropFormats, Text("ask_formats"));
    else if (answered != Prompt::Overwrite && isOther)
        m_prompt.Show(Prompt::Overwrite, Text("ask_overwrite"));
    else if (Save(document, m_wantedPath))
        GoOn();
}

void WriterWindow::Discard()
{
    Document* const document = m_documents.Current();
    if (m_prompt.Current() != Prompt::SaveChanges || !document)
        return;
    m_prompt.Hide();
    document->Editor().SetModify(FALSE);
    GoOn();
}

void WriterWindow::Dismiss()
{
    m_closing = Closing::No;
    if (m_prompt.Current() != Prompt::None)
        m_prompt.Hide();
    else
        m_find.Hide();
    LayoutRootControl();
    Invalidate(TRUE);
}

void WriterWindow::GoOn()
{
    const Closing closing = m_closing;
    m_closing = Closing::No;
    if (closing == Closing::Window)
        CloseWindow();
    else if (Document* const document = m_documents.Current(); document && closing == Closing::Document)
        CloseDocument(*document);
}

bool WriterWindow::HasFocus(const char* control) const
{
    const DUI::IDUIControl* const focus = GetFocusControl();
    return focus && focus->GetName() == control;
}

void WriterWindow::FocusEditor()
{
    Document* const document = m_documents.Current();
    const bool isTyping = m_prompt.Current() == Prompt::Open || m_prompt.Current() == Prompt::SaveAs;
    if (!document || isTyping)
        return;
    // The focus alone selects all of a text.
    CHARRANGE selection{};
    document->Editor().GetSel(selection);
    document->Editor().SetFocus(TRUE);
    document->Editor().SetSel(selection);
}

void WriterWindow::Refresh()
{
    Document* const document = m_documents.Current();
    if (!document)
        return;
    DUI::CDUIRichEdit& editor = document->Editor();
    const LineCounter::Place caret = document->CaretPlace();
    CString text;
    text.Format("%s %d   %s %d   %s %d", Text("line").GetString(), caret.line + 1, Text("column").GetString(),
                caret.column + 1, Text("length").GetString(),
                editor.GetTextLength(GTL_PRECISE | GTL_NUMCHARS));
    SetContrlText("status", text);
    SetContrlText("status_encoding", document->Description().c_str());
    EnableControl("undo", editor.CanUndo());
    EnableControl("redo", editor.CanRedo());
    m_formats.Show(*document);
    m_documents.UpdateNames();
    const CString name = document->Path().empty() ? Text("untitled") : CString(document->Name().c_str());
    SetWindowTextA(m_hWindow, name + " - " + Text("window_title"));
}

}  // namespace writer
