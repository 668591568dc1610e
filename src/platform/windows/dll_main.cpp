#include <windows.h>

// Loading does nothing but switch off the notices about threads that come and go; everything else
// waits for the first call.
extern "C" BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) DisableThreadLibraryCalls(library);
  return TRUE;
}
