#include <cstdlib>

#include "support/target.h"

namespace qvui::test {

const char* TargetName()
{
    return "native";
}

void PrepareTarget()
{
    setenv("QVUI_DISPLAY", "headless", 0);
}

}  // namespace qvui::test
