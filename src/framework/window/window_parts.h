#pragma once

#include "framework/window/back_buffer.h"
#include "framework/window/control_focus.h"
#include "framework/window/control_lookup.h"
#include "framework/window/control_timers.h"
#include "framework/window/dialog_keys.h"
#include "framework/window/host_window.h"
#include "framework/window/notify_handlers.h"
#include "framework/window/pointer_router.h"
#include "framework/window/tree_moves.h"
#include "framework/window/window_tooltip.h"

namespace DUI {

/// What a window manager is made of. Its end ends every call into a control that is in progress.
struct WindowParts {
    explicit WindowParts(CDUIWindowMgr& manager) : keys(manager, host, focus) {}

    HostWindow host;
    ControlFocus focus{host};
    PointerRouter pointer{host, focus};
    DialogKeys keys;
    ControlTimers timers{host};
    ControlLookup lookup{host};
    NotifyHandlers handlers{host};
    TreeMoves moves;
    WindowTooltip toolTip{host};
    BackBuffer backBuffer;
};

}  // namespace DUI
