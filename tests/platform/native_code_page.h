#pragma once

#include "native/kernel/code_pages.h"

/// A script with a line "code-page N" that makes a code page the system's. Only native can.
template <class Kind>
class InCodePages : public Kind {
public:
    InCodePages() { this->Call("code-page", qvui::native::OverrideSystemCodePage); }
    ~InCodePages() override { qvui::native::OverrideSystemCodePage(0); }
};
