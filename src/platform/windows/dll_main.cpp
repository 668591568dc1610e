#include <windows.h>

// Of the C++ library that is linked in: gives back what it keeps for exceptions when memory is out,
// 72 KB that would stay behind otherwise, once for each time the library is loaded and freed.
namespace __gnu_cxx {
void __freeres();
}

// Loading does nothing but switch off the notices about threads that come and go; everything else
// waits for the first call. It is freed only if there was none.
extern "C" BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, LPVOID processEnds) {
  if (reason == DLL_PROCESS_ATTACH) DisableThreadLibraryCalls(library);
  if (reason == DLL_PROCESS_DETACH && processEnds == nullptr) __gnu_cxx::__freeres();
  return TRUE;
}
