#pragma once

namespace qvui::native {

/// Keeps one error of the X server from ending the process: while it waits for events, SDL wakes itself up by
/// sending one to a window over a second connection, and the server may see that after the window has closed.
/// Every other error goes where it went before. Does nothing where there is no X library.
///
/// Xlib has one error handler. SDL puts its own in the place of the one that it finds, and gives that one its
/// place back before it closes its connections, which is when late errors arrive. So the guard stands under
/// SDL's handler, and over it while SDL runs. There is one guard, made before SDL's video starts and
/// destroyed after it has ended.
class LateWakeUpGuard {
public:
    LateWakeUpGuard();
    LateWakeUpGuard(const LateWakeUpGuard&) = delete;
    LateWakeUpGuard& operator=(const LateWakeUpGuard&) = delete;
    ~LateWakeUpGuard();

    /// To be called once SDL's video has started.
    void CoverSdl();
};

}  // namespace qvui::native
