#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "log/nlog.h"
#include "service/reply.h"
#include "weighing/record_text.h"
#include "weighing/records.h"

namespace tolvex {
namespace {

constexpr double kWhole = 1;  // the three capacities stay in the service's unit
constexpr double kThousandths = 1000;

struct NumberField {
  std::string_view member;
  std::size_t offset;  // of a little-endian signed 32-bit number
  double factor;
};

constexpr NumberField kNumbers[] = {
    {"maxRange1", 0, kWhole},          {"maxRange2", 4, kWhole},
    {"maxRange3", 8, kWhole},          {"resolution1", 24, kThousandths},
    {"resolution2", 28, kThousandths}, {"resolution3", 32, kThousandths},
    {"minRange", 12, kThousandths},    {"maxTare", 16, kThousandths},
    {"maxPreTare", 20, kThousandths},
};

struct TextField {
  std::string_view member;
  std::size_t offset;
  std::size_t width;
};

constexpr TextField kTexts[] = {{"weightUnit", 36, 4}, {"systemVersion", 44, 20}};

void putNumber(char* at, std::int32_t number) {
  const auto bits = static_cast<std::uint32_t>(number);
  for (unsigned byte = 0; byte < 4; ++byte) at[byte] = static_cast<char>(bits >> (8 * byte));
}

bool isResult(const char* text, const char* wanted) { return std::strcmp(text, wanted) == 0; }

}  // namespace

int FormatBaseInfo(const char* reply, char* record) { return FormatBaseInfo(Reply(reply), record); }

int FormatBaseInfo(const Reply& reply, char* record) {
  if (!reply.isJson()) {
    NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 28,
              "[FormatBaseInfo] Json Parse fail, err:%d, [%s].", reply.parseError(), reply.raw());
    return kExportFailed;
  }
  const char* const result = reply.text("result");
  if (result == nullptr) {
    NLog::Log(NLog::GetInstance(), kModuleDll, kLevelServiceError, 34,
              "[FormatBaseInfo] no result:%s.", reply.raw());
    return kExportFailed;
  }
  if (!isResult(result, "0")) {
    NLog::Log(NLog::GetInstance(), kModuleDll, kLevelServiceError, 39,
              "[FormatBaseInfo] varn ret err:%s.", reply.raw());
    return kExportFailed;
  }
  char made[kBaseInfoSize] = {};
  for (const NumberField& field : kNumbers) {
    const char* text = reply.text(field.member);
    if (text == nullptr) continue;
    // Some services mark the least weight with a colon.
    if (field.member == "minRange" && text[0] == ':') ++text;
    putNumber(made + field.offset, truncated(textToDouble(text) * field.factor));
  }
  for (const TextField& field : kTexts) {
    const char* const text = reply.text(field.member);
    if (text == nullptr) continue;
    std::memcpy(made + field.offset, text, std::min(std::strlen(text), field.width));
  }
  std::memcpy(record, made, sizeof(made));
  return kExportOk;
}

}  // namespace tolvex
