#include "common/application.h"
#include "writer/writer_window.h"

namespace {

int Run(const example::Options& options)
{
    if (!example::StartWithSkin("writer-skin\\entry.xml", options))
        return 1;
    writer::WriterWindow window;
    return window.Create(options.files) ? example::Run(window, options) : 1;
}

}  // namespace

// Edits the files of the command line, or writes a picture of the window to a file.
int main(int argc, char** argv)
{
    return example::Main(argc, argv, &Run);
}
