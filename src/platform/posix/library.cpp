#include "platform/library.h"

namespace tolvex::platform {

void keepLoaded() {}  // -z nodelete

}  // namespace tolvex::platform
