#include <cstring>

#include "log/nlog.h"
#include "service/reply.h"
#include "service/result_codes.h"
#include "weighing/record_text.h"
#include "weighing/records.h"

namespace tolvex {
namespace {

constexpr char kStable = 1;
constexpr char kAtZero = 2;
constexpr char kTareActive = 4;

constexpr std::size_t kStatusOffset = 0;
constexpr std::size_t kNetOffset = 1;
constexpr std::size_t kMarkOffset = 8;
constexpr std::size_t kTareOffset = 9;
constexpr char kMark = 'P';

constexpr int kTareDecimals = 4;

// A net weight of two digits before the point has room for four decimals, a wider one for three.
int netDecimals(double net) { return net < -9.99999 || net > 99.9999 ? 3 : 4; }

bool isText(const char* text, const char* wanted) { return std::strcmp(text, wanted) == 0; }

char statusOf(const Reply& reply, std::int32_t code) {
  int status = code == result::kOk ? kStable : 0;
  const char* const zero = reply.text("zero");
  if (zero != nullptr && isText(zero, "1")) status |= kAtZero;
  const char* const tareType = reply.text("tareType");
  if (tareType != nullptr && !isText(tareType, "N")) status |= kTareActive;
  return static_cast<char>(status);
}

void buildRecord(const Reply& reply, std::int32_t code, bool highResolution, char* record) {
  char made[kWeightSize] = {};
  made[kStatusOffset] = statusOf(reply, code);
  const char* const net = reply.text(highResolution ? "highResNet" : "net");
  if (net != nullptr) {
    const double value = textToDouble(net);
    printWeight(made, sizeof(made), kNetOffset, value, netDecimals(value));
  }
  const char* const tare = reply.text("tare");
  if (tare != nullptr) {
    printWeight(made, sizeof(made), kTareOffset, textToDouble(tare), kTareDecimals);
  }
  // Last, over the NUL of the net text: a net text wider than its field ends here.
  made[kMarkOffset] = kMark;
  std::memcpy(record, made, sizeof(made));
}

}  // namespace

int WeightInfo(const char* reply, bool highResolution, char* record) {
  return WeightInfo(Reply(reply), highResolution, record);
}

int WeightInfo(const Reply& reply, bool highResolution, char* record) {
  if (!reply.isJson()) {
    NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 88, "[WeightInfo] Json Parse fail:%s",
              reply.raw());
    return kExportFailed;
  }
  if (!reply.hasResult()) {
    NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 94, "[WeightInfo] no result:%s.",
              reply.raw());
    return kExportFailed;
  }
  const std::int32_t code = reply.result();
  switch (code) {
    case result::kUnderLoad:
      return kExportUnderLoad;
    case result::kOverLoad:
      return kExportOverLoad;
    case result::kInvalidWeight:
      std::memset(record, 0, kWeightSize);
      return kExportOk;
    case result::kOk:
    case result::kWeightNotStable:
      buildRecord(reply, code, highResolution, record);
      return kExportOk;
    default:
      NLog::Log(NLog::GetInstance(), kModuleDll, kLevelServiceError, 112,
                "[WeightInfo] varn ret err:%s.", reply.raw());
      return kExportFailed;
  }
}

}  // namespace tolvex
