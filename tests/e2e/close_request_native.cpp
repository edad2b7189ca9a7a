// Asks a window of an X server to close, as the button that a window manager draws does.

#include <cstdlib>

#include <X11/Xlib.h>

int main(int argc, char** argv)
{
    Display* display = argc == 2 ? XOpenDisplay(nullptr) : nullptr;
    if (!display)
        return 1;
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = std::strtoul(argv[1], nullptr, 0);
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
    XSendEvent(display, event.xclient.window, False, NoEventMask, &event);
    XCloseDisplay(display);
    return 0;
}
