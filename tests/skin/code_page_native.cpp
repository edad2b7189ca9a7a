#include "native/kernel/code_pages.h"
#include "skin/code_page.h"

std::vector<UINT> CodePages()
{
    return {65001, 936, 1252};
}

CodePage::CodePage(UINT codePage)
{
    qvui::native::OverrideSystemCodePage(codePage);
}

CodePage::~CodePage()
{
    qvui::native::OverrideSystemCodePage(0);
}
