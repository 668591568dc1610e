// The commands that travel on the printing connection.
#include <cstring>

#include "log/nlog.h"
#include "service/envelope.h"
#include "service/result_codes.h"
#include "service/route.h"

namespace tolvex {
namespace {

bool isPrinterName(const char* name) {
  return name != nullptr && strnlen(name, kLongestPrinterName + 1) <= kLongestPrinterName;
}

}  // namespace

unsigned VcoClientApi::setOverloadAlarm(int enable) {
  Envelope request("setOverloadAlarm");
  request.add("enable", enable);
  return plainCommand(printingRoute(), request);
}

unsigned VcoClientApi::sendRawCmdToPrt(const char* printerName, const char* cmd, int intParam,
                                       const char* paramList, char* out, unsigned outLen,
                                       unsigned timeoutMs) {
  if (cmd == nullptr) return kept(result::kInvalidParam);
  if (!isPrinterName(printerName)) return result::kInvalidParam;
  Envelope request(cmd);
  request.add("printerName", printerName).add("intParam", intParam);
  if (paramList != nullptr && paramList[0] != '\0') request.add("paramList", paramList);
  NLog::Log(NLog::GetInstance(), kModuleDll, kLevelTrace, 1012, "[sendRawCmdToPrt] Req: %s",
            request.text());
  return rawCommand(printingRoute(), request, out, outLen, timeoutMs);
}

}  // namespace tolvex
