#include "base/version.h"

namespace tolvex::ctl {

const char* version() { return TOLVEX_CTL_VERSION; }

}  // namespace tolvex::ctl
