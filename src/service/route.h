// The two connections side by side, for the files of this folder only.
#pragma once

#include "service/vco_client_api.h"

namespace tolvex {

// What an exchange is called in the log, and its result without a connection.
struct VcoClientApi::RouteWords {
  std::int32_t missingCode;
  const char* name;               // of the exchange routine, as the log shows it
  const char* connectionName;     // likewise
  const char* beforeFailedCount;  // what stands between "failed:" and the count of a failed receive
  struct {
    unsigned nullArgument, noConnection, sending, sendFailed, receiveFailed, received;
    // with resync only
    unsigned unasked, ended, noReply, unreadable, full;
  } line;
};

struct VcoClientApi::Route {
  CTcpClient* connection;
  RecursiveLock& lock;
  const RouteWords& words;
};

}  // namespace tolvex
