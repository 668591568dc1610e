#include "api/call_frame.h"
#include "api/context.h"
#include "api/exports.h"
#include "service/vco_client_api.h"

using namespace tolvex;

int checkConnection(void) {
  constexpr int kNoAnswer = 0;
  return guarded(kNoAnswer, [] { return libraryClient()->checkConnection() ? 1 : kNoAnswer; });
}

int getLastErrCode(void) {
  return guarded(kCodeOfException, [] { return libraryClient()->getLastErrCode(); });
}
