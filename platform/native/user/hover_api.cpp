// Exported functions for leave and hover tracking.

#include "native/user/desktop.h"
#include "native/user/hover.h"

using namespace qvui::native;

BOOL TrackMouseEvent(TRACKMOUSEEVENT* track)
{
    if (!track || !LookUpWindow(track->hwndTrack))
        return FALSE;
    TrackPointer(*track);
    return TRUE;
}

BOOL _TrackMouseEvent(TRACKMOUSEEVENT* track)
{
    return TrackMouseEvent(track);
}
