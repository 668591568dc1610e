// Orders, one a line:  LEVEL MODULE TEXT, as in "5DText", writes a record of DLL, Socket, NLog or none
//   sTEXT writes a text of any length  tNUMBER makes it the threshold of DLL  rNUMBER is the room on the disk
//   hNUMBER TEXT formats a header of that module into so many bytes.  "|" is a line feed.
#include "support/log.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "log/fake_disk.h"
#include "log/fakes.h"
#include "log/nlog.h"
#include "support/guarded_buffer.h"
#include "support/lines.h"
#include "support/target.h"

namespace tolvex::fuzz {
namespace {

constexpr std::size_t kLongestRecord = 510;

// What lies on the disk and what the debugger has seen, byte by byte.
struct LogModel {
  std::string disk;
  std::vector<std::string> debugger;
  std::size_t room = 1000000000;
  int threshold = 2;
  bool torn = false;

  void write(const std::string& record) {
    debugger.push_back(record);
    std::string bytes = torn ? "\r\n" : "";
    for (const char c : record + '\n') {
      if (c == '\n') bytes += '\r';
      bytes += c;
    }
    bytes.resize(std::min(bytes.size(), room));
    room -= bytes.size();
    disk += bytes;
    if (!bytes.empty()) torn = bytes.back() != '\n';
  }
};

std::string header(const std::string& module, int level, unsigned line) {
  const char letter = level >= 1 && level <= 7 ? "VDINWTE"[level - 1] : '*';
  std::string number = std::to_string(line);
  number.insert(0, number.size() < 3 ? 3 - number.size() : 0, '0');
  return std::string(test::kClockStamp) + "[" + letter + "] L:" + number + " " +
         (module.empty() ? "" : "M:" + module + " ");
}

std::string withLineFeeds(std::string_view text) {
  std::string made(std::string(text).c_str());
  std::replace(made.begin(), made.end(), '|', '\n');
  return made;
}

const char* moduleOf(char letter) {
  switch (letter) {
    case 'S':
      return kModuleSocket;
    case 'N':
      return kModuleNLog;
    case '-':
      return nullptr;
    default:
      return kModuleDll;
  }
}

class LogOrders {
 public:
  LogOrders() {
    startLog();
    NLog::Log(log_, kModuleDll, kLevelServiceError, 1, "whole");  // ends what was torn before
    startLog();
  }

  void obey(std::string_view line) {
    const char order = takeLetter(line);
    switch (order) {
      case 's':
        writeText(withLineFeeds(line));
        break;
      case 't':
        setThreshold(static_cast<int>(takeNumber(line)));
        break;
      case 'r':
        test::disk.room = model_.room = takeNumber(line);
        break;
      case 'h':
        formatHeader(line);
        break;
      default:
        if (order >= '0' && order <= '9') writeRecord(order - '0', line);
    }
  }

  void compare() const {
    require(logged() == model_.disk,
            "the disk holds the records, and of the last one as much as fitted");
    require(test::debuggerTexts == model_.debugger, "the debugger sees each record once");
    for (const std::string& text : test::debuggerTexts) {
      require(text.size() <= kLongestRecord || isTextAlone(text),
              "a record has its longest length");
    }
  }

 private:
  void writeRecord(int level, std::string_view line) {
    const char* const module = moduleOf(takeLetter(line));
    const std::string text = withLineFeeds(line);
    const auto number = static_cast<unsigned>(text.size());
    NLog::Log(log_, module, level, number, "%s", text.c_str());
    if (level < thresholdOf(module)) return;
    const std::string name = module != nullptr ? module : "";
    model_.write((header(name, level, number) + text).substr(0, kLongestRecord));
  }

  void writeText(const std::string& text) {
    NLog::LogString(log_, kModuleDll, kLevelTrace, 555, text);
    if (kLevelTrace < model_.threshold) return;
    model_.write(header(kModuleDll, kLevelTrace, 555));
    model_.write(text);
    alone_.push_back(text);
  }

  void setThreshold(int level) {
    if (level == 0) return;  // NLog.ini has no 0
    log_->SetModuleLevel(kModuleDll, level);
    require(log_->GetModuleLevel(kModuleDll) == level, "a threshold is kept");
    model_.threshold = level;
  }

  void formatHeader(std::string_view line) {
    const unsigned size = takeNumber(line) % 1024;
    const std::string module = std::string(line).c_str();
    GuardedBuffer buffer(size);
    const int length =
        NLog::FormatHeader(module.c_str(), 6, size, buffer.data(), static_cast<int>(size));
    std::string expected = header(module.empty() ? "\x01" : module, 6, size);
    expected.erase(std::remove(expected.begin(), expected.end(), '\x01'), expected.end());
    if (!module.empty()) expected = header(module, 6, size);
    if (size > 0) expected.resize(std::min<std::size_t>(expected.size(), size - 1));
    require(length == (size > 0 ? static_cast<int>(expected.size()) : 0),
            "a header's length is told");
    require(size > 0 ? buffer.holdsExactly(expected + '\0') : buffer.isUntouched(),
            "a header ends where its buffer does");
  }

  // 5 of what nobody has named.
  int thresholdOf(const char* module) const {
    if (module == nullptr) return 5;
    if (std::string(module) == kModuleNLog) return 3;
    return std::string(module) == kModuleDll ? model_.threshold : kLevelTraffic;
  }

  bool isTextAlone(const std::string& text) const {
    return std::find(alone_.begin(), alone_.end(), text) != alone_.end();
  }

  NLog* log_ = NLog::GetInstance("DLL", "log");
  LogModel model_;
  std::vector<std::string> alone_;  // texts of any length
};

}  // namespace

void targets::log(std::string_view input) {
  LogOrders orders;
  Lines lines(input);
  for (std::string_view line; lines.next(line);) orders.obey(line);
  orders.compare();
}

}  // namespace tolvex::fuzz
