#include "api/call_frame.h"
#include "api/context.h"
#include "api/exports.h"

using namespace tolvex;

int SetServerIpForRemoteAccess(const char* ip) {
  return guarded(kVerdictOfException,
                 [&] { return chooseServerAddress(ip) ? TOLVEX_OK : TOLVEX_FAILED; });
}
