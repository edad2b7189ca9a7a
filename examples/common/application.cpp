#include "common/application.h"

#include "common/screenshot.h"

namespace example {

int Main(int argc, char** argv, int (*run)(const Options& options))
{
    Options options;
    if (!ReadOptions(argc, argv, options))
        return 2;
    const int status = run(options);
    DUIGetAppInstance()->Term();
    return status;
}

int Run(HostWindow& window, const Options& options)
{
    window.Show();
    if (!options.screenshot.empty())
        return SaveScreenshot(window.GetHWND(), options.screenshot.c_str()) ? 0 : 1;
    return DUIGetAppInstance()->GetMessageLoop()->Run();
}

}  // namespace example
