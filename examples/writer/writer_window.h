#pragma once

#include <string>
#include <vector>

#include "common/host_window.h"
#include "writer/commands.h"
#include "writer/document_tabs.h"
#include "writer/find_bar.h"
#include "writer/format_bar.h"
#include "writer/prompt_bar.h"

namespace writer {

/// The editor's window: runs commands on the current document and asks before changes are lost.
class WriterWindow : public example::HostWindow {
public:
    WriterWindow();
    /// Makes the hidden window and opens the files; false when the skin has no usable templates for it.
    bool Create(const std::vector<std::string>& files);
    BOOL PreTranslateMessage(MSG* message) override;

private:
    bool BuildControls() override;
    std::vector<CString> ToldControls() override;
    LRESULT Handle(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnDUINotify(const DUI::tagDUINotify& notify, BOOL& bHandled) override;
    void OnLanguageTypeChanged(const CString& oldType, const CString& newType) override;

    void Run(Command command);
    void RunOnDocument(Document& document, Command command);
    void Open(const std::string& path);
    bool Save(Document& document, const std::string& path);
    void SaveOrAsk(Document& document);
    void AskForName(Document& document);
    void SaveAs(Document& document, Prompt answered);
    void CloseDocument(Document& document);
    void CloseWindow();
    void Accept();
    void Discard();
    void Dismiss();
    /// Goes on with the closing that a question interrupted.
    void GoOn();
    bool HasFocus(const char* control) const;
    void FocusEditor();
    void Refresh();

    enum class Closing { No, Document, Window };
    DocumentTabs m_documents;
    FindBar m_find;
    FormatBar m_formats;
    PromptBar m_prompt;
    std::string m_wantedPath;  // of a save that waits for an answer
    Closing m_closing = Closing::No;
};

}  // namespace writer
