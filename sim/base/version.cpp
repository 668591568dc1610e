#include "base/version.h"

namespace tolvex::sim {

const char* version() { return TOLVEX_SIM_VERSION; }

}  // namespace tolvex::sim
