#include <cstdio>
#include <string_view>

#include "common/screenshot.h"
#include "hello/hello_window.h"

namespace {

constexpr const char* kEntryDocument = "hello-skin\\entry.xml";

// Why the library refused something is in its trace.
void ShowTrace(void*, const char* line)
{
    const std::string_view text(line);
    if (text.find("failed") != text.npos || text.find("can not open") != text.npos)
        std::fprintf(stderr, "hello: %s\n", line);
}

int Run(const char* screenshot)
{
    CString entry;
    DUI::SetTraceSink(&ShowTrace, nullptr);
    if (!DUI::CResLoader().LoadXMLFromFile(kEntryDocument, entry) || !DUIGetAppInstance()->Init(entry, TRUE)) {
        std::fprintf(stderr, "hello: the skin package (%s) cannot be used\n", kEntryDocument);
        return 1;
    }
    HelloWindow window;
    if (!window.Create()) {
        std::fprintf(stderr, "hello: the skin package has no usable window \"hello\"\n");
        return 1;
    }
    window.Show();
    if (screenshot)
        return example::SaveScreenshot(window.GetHWND(), screenshot) ? 0 : 1;
    return DUIGetAppInstance()->GetMessageLoop()->Run();
}

}  // namespace

// hello [--screenshot FILE] : shows the window, or writes its picture to a file.
int main(int argc, char** argv)
{
    const bool wantsPicture = argc == 3 && std::string_view(argv[1]) == "--screenshot";
    if (argc != 1 && !wantsPicture) {
        std::fprintf(stderr, "usage: hello [--screenshot FILE]\n");
        return 2;
    }
    const int status = Run(wantsPicture ? argv[2] : nullptr);
    DUIGetAppInstance()->Term();
    return status;
}
