#pragma once

#include "common/host_window.h"

/// The hello window: one control tree from the skin's template "hello", and two buttons that change language
/// and skin while it runs.
class HelloWindow : public example::HostWindow {
public:
    /// Makes the hidden window; false when the skin has no usable template for it.
    bool Create();

private:
    bool BuildControls() override;
    std::vector<CString> ToldControls() override { return {"language", "skin"}; }
    void OnDUINotify(const DUI::tagDUINotify& notify, BOOL& bHandled) override;
    void SwitchSkin();
    void SwitchLanguage();
};
