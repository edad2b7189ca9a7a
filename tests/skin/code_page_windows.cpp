#include "skin/code_page.h"

std::vector<UINT> CodePages()
{
    return {GetACP()};
}

CodePage::CodePage(UINT)
{
}

CodePage::~CodePage() = default;
