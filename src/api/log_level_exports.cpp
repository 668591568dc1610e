// The log levels of the service, not of this library.
#include "api/call_frame.h"
#include "api/context.h"
#include "api/exports.h"
#include "service/vco_client_api.h"

using namespace tolvex;

int getLogLevel(const char* module, char* buffer, unsigned int size) {
  return guarded(kCodeOfException, [&] {
    VcoClientApi* const client = libraryClient();
    return static_cast<int>(client->getLogLevel(module, buffer, size));
  });
}

int setLogLevel(const char* module, const char* level) {
  return guarded(kCodeOfException, [&] {
    VcoClientApi* const client = libraryClient();
    return static_cast<int>(client->setLogLevel(module, level));
  });
}
