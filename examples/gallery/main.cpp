#include <cstdio>

#include "common/application.h"
#include "gallery/gallery_window.h"

namespace {

int Run(const example::Options& options)
{
    if (!example::StartWithSkin("gallery-skin\\entry.xml", options))
        return 1;
    GalleryWindow::RegisterControls();
    GalleryWindow window;
    if (!window.Create(options.isLayered))
        return 1;
    if (!options.page.empty() && !window.ShowPage(options.page.c_str())) {
        std::fprintf(stderr, "There is no page \"%s\".\n", options.page.c_str());
        return 1;
    }
    return example::Run(window, options);
}

}  // namespace

// Shows the gallery, or writes a picture of one of its pages to a file.
int main(int argc, char** argv)
{
    return example::Main(argc, argv, &Run);
}
