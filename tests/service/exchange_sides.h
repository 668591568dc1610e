// The two sides of the exchange, for the tests that hold for both.
#pragma once

#include <ostream>
#include <string>

#include "log/nlog.h"
#include "service/service_test.h"

namespace tolvex {

struct Side {
  const char* testName;
  bool weighing;
  unsigned missingCode;
  // Log records as they stand in the file, but for what depends on the exchange.
  const char* nullArgument;
  const char* noConnection;
  const char* sending;     // request and "." follow
  const char* sendFailed;  // count and "." follow
  const char* receiveFailed;
  const char* received;  // reply follows
};

inline void PrintTo(const Side& side, std::ostream* out) { *out << side.testName; }

class BothSides : public ServiceTest, public ::testing::WithParamInterface<Side> {
 protected:
  // What the callers of the client hand over: a zeroed buffer of one byte more than the capacity.
  static constexpr unsigned kCapacity = 64;

  ScriptedConnection& connection() { return GetParam().weighing ? weighing : printing; }

  unsigned send(VcoClientApi& through, const char* request, unsigned length, char* into,
                unsigned capacity = kCapacity, unsigned timeoutMs = 1500) {
    return GetParam().weighing
               ? through.SndCmdToLC(request, length, into, capacity, timeoutMs)
               : through.SndCmdToPrinter(request, length, into, capacity, timeoutMs);
  }

  unsigned send() { return send(client, "request", 7, reply); }

  void logTraffic() { NLog::GetInstance()->SetModuleLevel(kModuleDll, kLevelTraffic); }

  char reply[kCapacity + 1] = {};
};

const Side kSides[] = {
    {"Weighing", true, 1001, "[W] L:071 M:DLL [service_test][SndCmdToLC] Input Param is NULL",
     "[W] L:076 M:DLL [SndCmdToLC] LC Conn is NULL",
     "[D] L:082 M:DLL [service_test]==>[Zelkad][SndCmdToLC] Snd: ",
     "[W] L:086 M:DLL [SndCmdToLC] Snd failed, ret:", "[W] L:093 M:DLL [SndCmdToLC] Rcv failed:",
     "[D] L:098 M:DLL [service_test]<==[Zelkad][SndCmdToLC] Rcv: "},
    {"Printing", false, 2001, "[W] L:107 M:DLL [service_test][SndCmdToPrinter] Input Param is NULL",
     "[W] L:112 M:DLL [SndCmdToPrinter] Print Conn is NULL",
     "[D] L:118 M:DLL [service_test]==>[Zelkad][SndCmdToPrinter] Snd: ",
     "[W] L:122 M:DLL [SndCmdToPrinter] Snd failed, ret:",
     "[W] L:129 M:DLL [SndCmdToPrinter] Rcv failed: ",
     "[D] L:134 M:DLL [service_test]<==[Zelkad][SndCmdToPrinter] Rcv: "},
};

inline std::string sideName(const ::testing::TestParamInfo<Side>& side) {
  return side.param.testName;
}

}  // namespace tolvex
