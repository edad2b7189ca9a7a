#include <cstdio>

#include "common/application.h"
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
    return example::Run(window, options);
}

}  // namespace

// Shows the window, or writes its picture to a file.
int main(int argc, char** argv)
{
    return example::Main(argc, argv, &Run);
}
