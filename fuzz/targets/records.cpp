// The first line is "h" for a weight of high resolution; what follows is the reply.
#include "weighing/records.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "support/guarded_buffer.h"
#include "support/json_model.h"
#include "support/lines.h"
#include "support/log.h"
#include "support/target.h"

namespace tolvex::fuzz {
namespace {

// Of a text without a number some systems give -0.
double numberOf(const std::string& text) {
  char* end = nullptr;
  const double number = std::strtod(text.c_str(), &end);
  return end == text.c_str() ? 0 : number;
}

int wholePart(double number) {
  if (std::isnan(number)) return 0;
  if (number >= 2147483647.0) return 2147483647;
  if (number <= -2147483648.0) return -2147483647 - 1;
  return static_cast<int>(number);
}

// Puts the text into the record, as far as the record goes.
void put(std::string& record, std::size_t offset, const std::string& text) {
  for (const char c : text) {
    if (offset < record.size()) record[offset++] = c;
  }
}

void putPrinted(std::string& record, std::size_t offset, double number, int decimals) {
  char text[400];
  std::snprintf(text, sizeof(text), "%07.*f", decimals, number);
  put(record, offset, std::string(text) + '\0');
}

std::string weightRecord(const JsonModel& reply, int code, bool highResolution) {
  std::string record(24, '\0');
  if (code == 1006) return record;
  record[0] = static_cast<char>((code == 0 ? 1 : 0) + (reply.text("zero") == "1" ? 2 : 0) +
                                (reply.text("tareType").value_or("N") != "N" ? 4 : 0));
  if (const auto net = reply.text(highResolution ? "highResNet" : "net")) {
    const double weight = numberOf(*net);
    putPrinted(record, 1, weight, weight < -9.99999 || weight > 99.9999 ? 3 : 4);
  }
  if (const auto tare = reply.text("tare")) putPrinted(record, 9, numberOf(*tare), 4);
  record[8] = 'P';
  return record;
}

std::string baseInfoRecord(const JsonModel& reply) {
  std::string record(64, '\0');
  std::size_t offset = 0;
  const auto putNumber = [&](const char* name, double factor) {
    std::string text = reply.text(name).value_or("0");
    if (std::string(name) == "minRange" && text[0] == ':') text.erase(0, 1);
    const auto bits = static_cast<unsigned>(wholePart(numberOf(text) * factor));
    for (unsigned byte = 0; byte < 4; ++byte)
      record[offset++] = static_cast<char>(bits >> (8 * byte));
  };
  for (const char* const name : {"maxRange1", "maxRange2", "maxRange3"}) putNumber(name, 1);
  for (const char* const name : {"minRange", "maxTare", "maxPreTare"}) putNumber(name, 1000);
  for (const char* const name : {"resolution1", "resolution2", "resolution3"})
    putNumber(name, 1000);
  put(record, 36, reply.text("weightUnit").value_or("").substr(0, 4));
  put(record, 44, reply.text("systemVersion").value_or("").substr(0, 20));
  return record;
}

void weigh(const std::string& text, const JsonModel& reply, bool highResolution) {
  GuardedBuffer record(kWeightSize);
  const int verdict = WeightInfo(text.c_str(), highResolution, record.data());
  const auto result = reply.text("result");
  const int code = resultOf(reply);
  int expected = 255;
  if (result && (code == 0 || code == 1005 || code == 1006)) expected = 240;
  if (result && code == 1003) expected = -1;
  if (result && code == 1004) expected = -2;
  require(verdict == expected, "a weight's verdict is that of its result");
  require(verdict == 240 ? record.holdsExactly(weightRecord(reply, code, highResolution))
                         : record.isUntouched(),
          "a weight's record holds what the reply says, and no other is touched");
}

void readBaseInfo(const std::string& text, const JsonModel& reply) {
  GuardedBuffer record(kBaseInfoSize);
  const int verdict = FormatBaseInfo(text.c_str(), record.data());
  require(verdict == (reply.text("result") == "0" ? 240 : 255),
          "base information needs a result of 0");
  require(verdict == 240 ? record.holdsExactly(baseInfoRecord(reply)) : record.isUntouched(),
          "the record of the base information holds what the reply says");
}

}  // namespace

void targets::records(std::string_view input) {
  startLog();
  std::string_view first = input.substr(0, input.find('\n'));
  const bool highResolution = first == "h";
  if (highResolution) input.remove_prefix(std::min(first.size() + 1, input.size()));
  const std::string text(input);
  const std::string seen(text.c_str(), strnlen(text.c_str(), 2048));
  const JsonModel reply = readJson(seen);
  if (reply.verdict == JsonModel::Verdict::kEither) return;
  weigh(text, reply, highResolution);
  readBaseInfo(text, reply);
}

}  // namespace tolvex::fuzz
