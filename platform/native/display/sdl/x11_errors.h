#pragma once

namespace qvui::native {

/// Keeps one error of the X server from ending the process: while it waits for events, SDL wakes itself up by
/// sending one to a window over a second connection, and the server may see that after the window has closed.
/// Every other error goes where it went before. Does nothing when SDL shows its windows by other means.
void ForgiveLateWakeUps();

}  // namespace qvui::native
