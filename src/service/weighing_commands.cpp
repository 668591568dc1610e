// The commands of the scale, and those of the service itself. Each reads: checks, request, what
// becomes of the reply.
#include <cstring>

#include "log/nlog.h"
#include "service/envelope.h"
#include "service/reply.h"
#include "service/reply_copy.h"
#include "service/result_codes.h"
#include "service/route.h"

namespace tolvex {
namespace {

// "0", "0.000", ".", and the empty text.
bool isZeroTare(const char* text) { return text[std::strspn(text, "0.")] == '\0'; }

bool is(const char* module, const char* name) {
  return module != nullptr && std::strcmp(module, name) == 0;
}

constexpr char kBaseInfo[] = "getbaseinfo";
constexpr char kVersion[] = "VcoVersion";
constexpr char kWeight[] = "getweight";

constexpr char kPrinterModule[] = "print";
constexpr char kScaleModule[] = "loadcell";

}  // namespace

unsigned VcoClientApi::getBaseInfo(char* out, unsigned outLen) {
  if (out == nullptr || outLen < kLeastReadBuffer) return result::kBufferNotEnough;
  Envelope request(kBaseInfo);
  request.add(kVersion, kLibraryVersion);
  return kept(wholeReplyCommand(weighingRoute(), request, out, outLen));
}

unsigned VcoClientApi::readBaseInfo(Reply& reply, unsigned most) {
  Envelope request(kBaseInfo);
  request.add(kVersion, kLibraryVersion);
  return kept(readCommand(request, reply, most));
}

unsigned VcoClientApi::setZero() {
  Envelope request("setzero");
  return plainCommand(weighingRoute(), request);
}

template <typename LogMissing>
unsigned VcoClientApi::tareCommand(Envelope& request, char* out, LogMissing logMissing) {
  Reply reply;
  const Outcome outcome = command(weighingRoute(), request, reply);
  if (outcome.code != result::kOk) return kept(outcome.code);
  const char* const tare = reply.text("tare");
  if (tare == nullptr) {
    logMissing(reply.raw());
    return kept(result::kJsonErr);
  }
  boundedCopy(out, tare, kTareTextSize);
  return kept(result::kOk);
}

unsigned VcoClientApi::setPresetTare(char* tareText, unsigned len) {
  if (tareText == nullptr || len < kTareTextSize) return kept(result::kBufferNotEnough);
  if (isZeroTare(tareText)) {
    char cleared[kTareTextSize + 1] = {};
    const unsigned code = clearTare(cleared, len);
    boundedCopy(tareText, cleared, len);
    return code;
  }
  Envelope request("setpretare");
  request.add("tareValue", tareText);
  return tareCommand(request, tareText, [](const char* reply) {
    NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 236,
              "[setPresetTare] json parse fail:%s", reply);
  });
}

unsigned VcoClientApi::setTare(char* out, unsigned outLen) {
  if (out == nullptr || outLen < kTareTextSize) return kept(result::kBufferNotEnough);
  Envelope request("settarebykey");
  return tareCommand(request, out, [this](const char* reply) {
    NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 270,
              "[%s][setTare] json parse fail:%s", getClientName().c_str(), reply);
  });
}

unsigned VcoClientApi::clearTare(char* out, unsigned outLen) {
  if (out == nullptr || outLen < kTareTextSize) return kept(result::kBufferNotEnough);
  Envelope request("clear_tare");
  return tareCommand(request, out, [](const char* reply) {
    NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 304, "[clearTare] json parse fail:%s",
              reply);
  });
}

void VcoClientApi::logGetWeight() const {
  NLog::Log(NLog::GetInstance(), kModuleDll, kLevelTrace, 318, "[%s][getWeight] Oh Ye~",
            getClientName().c_str());
}

unsigned VcoClientApi::getWeight(char* out, unsigned outLen) {
  logGetWeight();
  if (out == nullptr || outLen < kLeastReadBuffer) return kept(result::kBufferNotEnough);
  Envelope request(kWeight);
  return kept(wholeReplyCommand(weighingRoute(), request, out, outLen));
}

unsigned VcoClientApi::readWeight(Reply& reply, unsigned most) {
  logGetWeight();
  Envelope request(kWeight);
  return kept(readCommand(request, reply, most));
}

unsigned VcoClientApi::getLCVersion(char* out, unsigned outLen) {
  Envelope request("getLCVersion");
  return kept(wholeReplyCommand(weighingRoute(), request, out, outLen));
}

bool VcoClientApi::checkConnection() {
  Envelope request("checkConnection");
  Reply reply;
  const Outcome outcome = command(weighingRoute(), request, reply);
  kept(outcome.code);
  return outcome.answered;
}

unsigned VcoClientApi::sendRawCmdToLC(const char* cmd, const char* paramList, char* out,
                                      unsigned outLen, unsigned timeoutMs) {
  if (cmd == nullptr) return kept(result::kBufferNotEnough);
  Envelope request(cmd);
  if (paramList != nullptr && paramList[0] != '\0') request.add("paramList", paramList);
  return rawCommand(weighingRoute(), request, out, outLen, timeoutMs);
}

unsigned VcoClientApi::getLogLevel(const char* module, char* out, unsigned outLen) {
  const bool ofPrinter = is(module, kPrinterModule);
  if (!ofPrinter && !is(module, kScaleModule)) return kept(result::kUnknown);
  Envelope request("getloglevel");
  request.add("module", module);
  Reply reply;
  const Outcome outcome = command(ofPrinter ? printingRoute() : weighingRoute(), request, reply);
  if (outcome.code != result::kOk) return kept(outcome.code);
  const char* const level = reply.text("level");
  if (level == nullptr) {
    NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 421,
              "[%s][getLogLevel] json parse fail:%s", getClientName().c_str(), reply.raw());
    return kept(result::kJsonErr);
  }
  return kept(copyExactText(out, outLen, level));
}

unsigned VcoClientApi::setLogLevel(const char* module, const char* level) {
  if (module == nullptr || level == nullptr) return result::kInvalidParam;
  const bool ofPrinter = is(module, kPrinterModule);
  if (!ofPrinter && !is(module, kScaleModule)) return kept(result::kUnknown);
  Envelope request("setloglevel");
  request.add("module", module).add("level", level);
  return plainCommand(ofPrinter ? printingRoute() : weighingRoute(), request);
}

}  // namespace tolvex
