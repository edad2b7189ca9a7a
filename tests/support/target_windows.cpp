#include <qvui/platform/platform.h>

#include "support/target.h"

namespace qvui::test {

const char* TargetName()
{
    return "windows";
}

void PrepareTarget()
{
    // A program that dies ends with a status, not with a dialog that nobody sees.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
}

}  // namespace qvui::test
