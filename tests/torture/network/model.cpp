#include "torture/network/model.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace tolvex::test {
namespace {

constexpr int kOkVerdict = 240;
constexpr int kFailedVerdict = 255;
constexpr int kNoAnswer = 4;
constexpr int kTooSmall = 5;
constexpr int kJsonError = 7;
constexpr int kUnreadable = -1;
constexpr std::size_t kLongestRecordReply = 1024;

constexpr int kUnderLoad = 1003;
constexpr int kOverLoad = 1004;
constexpr int kNotStable = 1005;
constexpr int kInvalidWeight = 1006;

using Limits = std::numeric_limits<std::int32_t>;

// A member's text: that of the first one of this name.
std::optional<std::string> textOf(const Heard& heard, const std::string& name) {
  if (!heard.meaning.isObject) return std::nullopt;
  for (const Member& member : heard.meaning.members) {
    if (member.name == name) return member.text;
  }
  return std::nullopt;
}

int verdictOf(int code) { return code == 0 ? kOkVerdict : kFailedVerdict; }

// A decimal number at the beginning of a text; one that does not fit is the nearest that does.
int numberOf(const std::string& text) {
  const long long number = std::strtoll(text.c_str(), nullptr, 10);
  return static_cast<int>(std::clamp<long long>(number, Limits::min(), Limits::max()));
}

double decimalOf(const std::string& text) { return std::strtod(text.c_str(), nullptr); }

void put(std::string& buffer, std::size_t at, const std::string& bytes) {
  buffer.replace(at, bytes.size(), bytes);
}

void putNumber(std::string& record, std::size_t at, double value) {
  const double bounded = std::clamp<double>(std::trunc(value), Limits::min(), Limits::max());
  const auto bits = static_cast<std::uint32_t>(static_cast<std::int32_t>(bounded));
  for (unsigned byte = 0; byte < 4; ++byte) record[at + byte] = static_cast<char>(bits >> 8 * byte);
}

std::string baseInfoOf(const Heard& heard) {
  const struct {
    const char* member;
    std::size_t at;
    double factor;
  } numbers[] = {{"maxRange1", 0, 1},       {"maxRange2", 4, 1},       {"maxRange3", 8, 1},
                 {"minRange", 12, 1000},    {"maxTare", 16, 1000},     {"maxPreTare", 20, 1000},
                 {"resolution1", 24, 1000}, {"resolution2", 28, 1000}, {"resolution3", 32, 1000}};
  std::string record(64, '\0');
  for (const auto& row : numbers) {
    std::string text = textOf(heard, row.member).value_or("");
    if (row.at == 12 && text.rfind(':', 0) == 0) text.erase(0, 1);
    putNumber(record, row.at, decimalOf(text) * row.factor);
  }
  put(record, 36, textOf(heard, "weightUnit").value_or("").substr(0, 4));
  put(record, 44, textOf(heard, "systemVersion").value_or("").substr(0, 20));
  return record;
}

// Writes a weight at its place, and what does not fit there over what follows.
void putWeight(std::string& record, std::size_t at, const std::optional<std::string>& text,
               bool isNet) {
  if (!text) return;
  const double value = decimalOf(*text);
  const int decimals = isNet && (value > 99.9999 || value < -9.99999) ? 3 : 4;
  char shown[512];
  const int length = std::snprintf(shown, sizeof(shown), "%07.*f", decimals, value);
  put(record, at,
      std::string(shown,
                  std::min<std::size_t>(static_cast<std::size_t>(length) + 1, record.size() - at)));
}

std::string weightOf(const Heard& heard, int code) {
  std::string record(24, '\0');
  if (code == kInvalidWeight) return record;
  int status = code == 0 ? 1 : 0;
  if (textOf(heard, "zero") == "1") status |= 2;
  if (textOf(heard, "tareType").value_or("N") != "N") status |= 4;
  putWeight(record, 1, textOf(heard, "net"), true);
  putWeight(record, 9, textOf(heard, "tare"), false);
  record[0] = static_cast<char>(status);
  record[8] = 'P';
  return record;
}

void expectRecord(Expected& expected, const Call& call, const Heard& heard) {
  int code = codeOf(heard);
  if (heard.came && heard.text.size() > kLongestRecordReply) code = kTooSmall;
  expected.lastError = code;
  expected.result = kFailedVerdict;
  if (call.kind == Kind::kBaseInfo) {
    if (code != 0 || textOf(heard, "result") != "0") return;
    expected.result = kOkVerdict;
    put(expected.buffer, 0, baseInfoOf(heard));
  } else if (code == kUnderLoad || code == kOverLoad) {
    expected.result = code == kUnderLoad ? -1 : -2;
  } else if (code == 0 || code == kNotStable || code == kInvalidWeight) {
    expected.result = kOkVerdict;
    put(expected.buffer, 0, weightOf(heard, code));
  }
}

// The code of a call that needs one more member, and what it writes of that.
int expectMember(Expected& expected, const Call& call, const Heard& heard) {
  const bool listed = call.kind == Kind::kPrinterList;  // its result does not count
  const int code = codeOf(heard);
  if (!heard.came || (code != 0 && !listed)) return code;
  const std::optional<std::string> text = textOf(heard, call.member);
  if (!text) return kJsonError;
  if (call.kind == Kind::kTare) {
    std::string shown = *text;
    shown.resize(call.size, '\0');
    put(expected.buffer, 0, shown);
    return 0;
  }
  if (text->size() > call.size) return kTooSmall;
  put(expected.buffer, 0, *text);
  return 0;
}

int expectReply(Expected& expected, const Call& call, const Heard& heard) {
  if (!heard.came) return kNoAnswer;
  std::string shown = heard.text;
  shown.resize(call.size, '\0');
  put(expected.buffer, 0, shown);
  return heard.text.size() > call.size ? kTooSmall : codeOf(heard);
}

// What the command behind the faulty one hears, where the call goes on.
int codeOfNext(const Course& course) {
  if (course.after == After::kMute || course.after == After::kAnewAfterLoss) return kNoAnswer;
  return course.rest.empty() ? 0 : kUnreadable;
}

void expectJob(Expected& expected, const Call& call, const Course& course) {
  const int code = codeOf(course.heard);
  expected.sent = call.at + 1;
  expected.lost = course.arrives ? 0 : 1;
  expected.lastError = code;
  if (call.goesOn()) {  // a confirmation that fails is told in the log only
    expected.lastError = codeOfNext(course);
    expected.sent = call.requests.size();
    expected.lost = course.after == After::kAnewAfterLoss ? 1 : 0;
  } else if (code == 0 && call.at + 1 < call.requests.size()) {
    expected.lastError = 0;
    expected.sent = call.requests.size();
  }
  expected.result = verdictOf(expected.lastError);
}

}  // namespace

std::string freshBuffer(unsigned size) { return std::string(size + kGuard, kFilling); }

int codeOf(const Heard& heard) {
  if (!heard.came) return kNoAnswer;
  const std::optional<std::string> result = textOf(heard, "result");
  return result ? numberOf(*result) : kUnreadable;
}

Expected expectedOf(const Call& call, const Course& course) {
  const Heard& heard = course.heard;
  Expected expected;
  expected.sent = 1;
  expected.lost = course.arrives ? 0 : 1;
  expected.buffer = freshBuffer(call.size);
  if (call.isJob()) {
    expectJob(expected, call, course);
    return expected;
  }
  if (call.kind == Kind::kBaseInfo || call.kind == Kind::kWeight) {
    expectRecord(expected, call, heard);
    return expected;
  }
  int code = codeOf(heard);
  if (call.kind == Kind::kReply || call.kind == Kind::kReplyVerdict) {
    code = expectReply(expected, call, heard);
  } else if (!call.member.empty() && call.kind != Kind::kCode) {
    code = expectMember(expected, call, heard);
  }
  const bool isVerdict =
      call.kind != Kind::kCode && call.kind != Kind::kReply && call.kind != Kind::kLevel;
  expected.result = isVerdict ? verdictOf(code) : code;
  if (call.kind == Kind::kReached) expected.result = heard.came ? 1 : 0;
  expected.lastError = call.keepsLastError ? kLastErrorBefore : code;
  return expected;
}

}  // namespace tolvex::test
