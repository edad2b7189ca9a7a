#include <qvui/foundation/ref_ptr.h>

namespace DUI {

std::size_t CRefCountBase::s_live = 0;

}  // namespace DUI
