#include <qvui/platform/kept_objects.h>

// Does nothing: live objects are not counted on windows.
void CountAsKept(std::size_t, std::size_t)
{
}
