#pragma once

namespace qvui::native {

/// Prevents one X server error from ending the process: while SDL waits for events, it wakes itself by
/// sending an event to a window over a second connection, and the server may process that after the window
/// has closed. All other errors are passed on to the previous handler. Does nothing if there is no X library.
///
/// Xlib has one error handler. SDL replaces the handler that it finds and restores it before closing its
/// connections, which is when late errors arrive. The guard is therefore installed both below SDL's handler
/// and, while SDL runs, above it. Create one guard before SDL's video starts and destroy it after the video
/// has ended.
class LateWakeUpGuard {
public:
    LateWakeUpGuard();
    LateWakeUpGuard(const LateWakeUpGuard&) = delete;
    LateWakeUpGuard& operator=(const LateWakeUpGuard&) = delete;
    ~LateWakeUpGuard();

    /// Call once after SDL's video has started.
    void CoverSdl();
};

}  // namespace qvui::native
