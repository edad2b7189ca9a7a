#pragma once

#include "native/kernel/code_pages.h"

/// Makes a code page the system's for one scope. Only native can.
class NativeCodePage {
public:
    explicit NativeCodePage(UINT codePage) { qvui::native::OverrideSystemCodePage(codePage); }
    NativeCodePage(const NativeCodePage&) = delete;
    NativeCodePage& operator=(const NativeCodePage&) = delete;
    ~NativeCodePage() { qvui::native::OverrideSystemCodePage(0); }
};
