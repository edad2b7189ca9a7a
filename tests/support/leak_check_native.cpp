#include "native/core/live_counts.h"
#include "support/leak_check.h"

namespace qvui::test {

LiveObjects LiveObjects::Count()
{
    const native::LiveCounts counts = native::CountLiveObjects();
    LiveObjects objects;
    objects.m_counts = {{"windows", counts.windows},        {"device contexts", counts.deviceContexts},
                        {"GDI objects", counts.gdiObjects}, {"icons", counts.icons},
                        {"modules", counts.modules},        {"memory blocks", counts.globalBlocks}};
    return objects;
}

}  // namespace qvui::test
