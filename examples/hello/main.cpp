#include <cstdio>

#include "common/options.h"
#include "common/screenshot.h"
#include "hello/hello_window.h"

namespace {

int Run(const example::Options& options)
{
    if (!example::StartWithSkin("hello-skin\\entry.xml", options))
        return 1;
    HelloWindow window;
    if (!window.Create()) {
        std::fprintf(stderr, "The skin package has no usable window \"hello\".\n");
        return 1;
    }
    window.Show();
    if (!options.screenshot.empty())
        return example::SaveScreenshot(window.GetHWND(), options.screenshot.c_str()) ? 0 : 1;
    return DUIGetAppInstance()->GetMessageLoop()->Run();
}

}  // namespace

// Shows the window, or writes its picture to a file.
int main(int argc, char** argv)
{
    example::Options options;
    if (!example::ReadOptions(argc, argv, options))
        return 2;
    const int status = Run(options);
    DUIGetAppInstance()->Term();
    return status;
}
