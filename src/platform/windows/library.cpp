#include "platform/library.h"

#include <windows.h>

namespace tolvex::platform {

void keepLoaded() {
  static const char addressInside = 0;
  HMODULE module = nullptr;
  GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                     &addressInside, &module);
}

}  // namespace tolvex::platform
