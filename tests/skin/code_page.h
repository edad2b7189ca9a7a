#pragma once

#include <vector>

#include <qvui/platform/platform.h>

/// The system code pages that a test can run under: on native UTF-8 and two others, on windows the system's
/// alone.
std::vector<UINT> CodePages();

/// Makes one of CodePages() the system's for one scope.
class CodePage {
public:
    explicit CodePage(UINT codePage);
    CodePage(const CodePage&) = delete;
    CodePage& operator=(const CodePage&) = delete;
    ~CodePage();
};
