// Hostile arguments for every export, one at a time and in pairs.
//   hostile_arguments [--alone N] [--pairs N] [--seed N]
// These are the most values for an argument and the most pairs for an export; where there are more, the
// seed chooses.
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>

#include "../long_run/run.h"
#include "support/guarded_memory.h"
#include "support/host.h"
#include "support/log_lines.h"
#include "support/os_support.h"
#include "support/scripted_service.h"
#include "support/temporary_folder.h"
#include "values.h"

namespace tolvex::test {
namespace {

constexpr std::size_t kMegabyte = 1 << 20;
constexpr unsigned kAll = 1000000;
constexpr char kFilled = '#';

char now[600] = "";  // the call that is made, for a program that ends in it

void sayWhere(int) {
  std::printf("\nBROKEN: memory was touched that is not the library's, in %s\n", now);
  std::fflush(stdout);
  std::_Exit(1);
}

// ---- The calls ----

class Calls {
 public:
  explicit Calls(std::uint64_t seed) : dice_(seed) {
    host_.withLogConfig("DLL=2\n");  // the requests, too
    for (ServicePort* port : {&service_.weighing(), &service_.printing()}) {
      port->keepsNoRequests();
      port->alwaysAnswers([this](const std::string& request) {
        const std::lock_guard<std::mutex> lock(mutex_);
        requests_.push_back(request);
        return kReplyToAll;
      });
    }
    for (int i = 0; i < 7; ++i) memory_.push_back(std::make_unique<GuardedMemory>(kMegabyte + 2));
    std::signal(SIGSEGV, sayWhere);
  }

  std::string run(unsigned mostAlone, unsigned mostPairs) {
    for (const ExportUnderTest& one : everyExport()) {  // while the log is in its first file
      check(one, ordinaryValues(one));
      keepsFormats(one);
    }
    for (const ExportUnderTest& one : everyExport()) {
      alone(one, mostAlone);
      megabytes(one);
      inPairs(one, mostPairs);
    }
    return std::to_string(everyExport().size()) + " exports, " + std::to_string(calls_) +
           " calls with hostile arguments, " + std::to_string(checked_) +
           " requests as they have to be, " + std::to_string(formats_) +
           " log lines with the text as it is";
  }

 private:
  void alone(const ExportUnderTest& one, unsigned most) {
    for (std::size_t at = 0; at < one.parameters.size(); ++at) {
      std::vector<Values> all;
      for (const Value& value : choices(one, at)) {
        all.push_back(ordinaryValues(one));
        all.back()[at] = value;
      }
      checkSome(one, all, most);
    }
  }

  void checkSome(const ExportUnderTest& one, std::vector<Values>& all, unsigned most) {
    for (; most > 0 && !all.empty(); --most) {
      const std::size_t at = dice_.below(static_cast<unsigned>(all.size()));
      check(one, all[at]);
      all[at].swap(all.back());
      all.pop_back();
    }
  }

  // Every text that goes into the log goes there as it is.
  void keepsFormats(const ExportUnderTest& one) {
    for (std::size_t at = 0; at < one.parameters.size(); ++at) {
      const Parameter& parameter = one.parameters[at];
      const bool isText = parameter.kind == Kind::kText ||
                          (parameter.kind == Kind::kBuffer && parameter.name == "text");
      if (!isText) continue;
      Values values = ordinaryValues(one);
      values[at] = text(kFormat);
      const std::size_t before = logSize();
      check(one, values);
      // Names of modules that are not known are refused before anything is logged.
      if (parameter.name == "module") continue;
      mustHold(logSince(before).find(kFormat) != std::string::npos,
               std::string("the log has not \"") + kFormat + "\" after " + now);
      ++formats_;
    }
  }

  void megabytes(const ExportUnderTest& one) {
    for (std::size_t at = 0; at < one.parameters.size(); ++at) {
      if (one.parameters[at].kind != Kind::kText) continue;
      Values values = ordinaryValues(one);
      values[at] = text(std::string(kMegabyte, 'm'));
      settle(one, values);
      checkAt(one, values, true);
    }
  }

  void inPairs(const ExportUnderTest& one, unsigned most) {
    const std::size_t count = one.parameters.size();
    std::vector<Values> all;
    for (std::size_t first = 0; first < count; ++first) {
      for (std::size_t second = first + 1; second < count; ++second) {
        for (const Value& a : choices(one, first)) {
          for (const Value& b : choices(one, second)) {
            Values values = ordinaryValues(one);
            values[first] = a;
            values[second] = b;
            all.push_back(values);
          }
        }
      }
    }
    checkSome(one, all, most);
  }

  // ---- One call ----

  // With each text and each buffer at the end of its memory, and with each at the begin.
  void check(const ExportUnderTest& one, Values values) {
    settle(one, values);
    checkAt(one, values, true);
    const bool hasMemory = std::any_of(values.begin(), values.end(), [](const Value& value) {
      return value.kind == Kind::kText || value.kind == Kind::kBuffer;
    });
    if (hasMemory) checkAt(one, values, false);
  }

  void checkAt(const ExportUnderTest& one, const Values& values, bool atEnd) {
    describe(one, values);
    std::vector<Argument> arguments;
    for (std::size_t at = 0; at < values.size(); ++at) {
      arguments.push_back(put(values[at], *memory_[at], atEnd));
    }
    const int result = one.call(arguments.data());
    ++calls_;
    compare(expectedOf(one.name, values), result);
    for (std::size_t at = 0; at < values.size(); ++at) {
      if (values[at].kind == Kind::kBuffer) {
        checkBuffer(values[at], arguments[at].address, *memory_[at], lastExpected_);
      }
    }
    if (one.name.find("Print") == 0 && one.name != "PrintLabelImage") checkJob();
  }

  void checkJob() {
    static const ExportUnderTest* const begin = [] {
      for (const ExportUnderTest& one : everyExport()) {
        if (one.name == "BeginPrint") return &one;
      }
      throw Broken("there is no BeginPrint");
    }();
    const Argument ticket;
    compare(expectedJob(), begin->call(&ticket));
  }

  static Argument put(const Value& value, const GuardedMemory& memory, bool atEnd) {
    if (value.kind == Kind::kInt || value.kind == Kind::kUnsigned) return {nullptr, value.number};
    if (value.isNull) return {};
    if (value.kind == Kind::kText) {
      const std::size_t size = value.text.size() + (value.terminated ? 1 : 0);
      // One that has no end ends at the guard, whatever was asked for.
      char* const at = atEnd || !value.terminated ? memory.end() - size : memory.begin();
      std::memcpy(at, value.text.c_str(), size);
      return {at, 0};
    }
    std::memset(memory.begin(), kFilled, kSurroundings);
    std::memset(memory.end() - kSurroundings, kFilled, kSurroundings);
    char* const at = atEnd ? memory.end() - value.room : memory.begin();
    std::memcpy(at, value.text.c_str(), std::min(value.text.size() + 1, value.room));
    return {at, 0};
  }

  static void checkBuffer(const Value& value, const char* at, const GuardedMemory& memory,
                          const Expected& expected) {
    if (value.isNull) return;
    std::string wanted(value.room, kFilled);
    if (value.room > 0) {
      wanted.replace(0, value.text.size() + 1, value.text.c_str(), value.text.size() + 1);
    }
    if (expected.writes) wanted.replace(0, expected.written.size(), expected.written);
    mustHold(std::string(at, value.room) == wanted, std::string("another buffer from ") + now);
    const bool atEnd = at != memory.begin();
    const std::string rest(kSurroundings - value.room, kFilled);
    const char* const around = atEnd ? memory.end() - kSurroundings : memory.begin() + value.room;
    mustHold(std::string(around, rest.size()) == rest, std::string("written beyond by ") + now);
  }

  void compare(const Expected& expected, int result) {
    lastExpected_ = expected;
    std::vector<std::string> sent;
    {
      const std::lock_guard<std::mutex> lock(mutex_);
      sent.swap(requests_);
    }
    mustHold(expected.anyResult || result == expected.result,
             "result " + std::to_string(result) + " and not " + std::to_string(expected.result) +
                 " from " + now);
    mustHold(sent == expected.requests, "other requests from " + std::string(now) + ": sent " +
                                            shown(sent) + ", expected " + shown(expected.requests));
    checked_ += sent.size();
  }

  static std::string shown(const std::vector<std::string>& requests) {
    std::string all = std::to_string(requests.size());
    for (const std::string& one : requests) all += " " + one.substr(0, 300);
    return all;
  }

  static void describe(const ExportUnderTest& one, const Values& values) {
    std::string call = one.name + "(";
    for (const Value& value : values) {
      if (call.back() != '(') call += ", ";
      if (value.isNull) {
        call += "null";
      } else if (value.kind == Kind::kText) {
        call += "\"" + value.text.substr(0, 40) + "\" of " + std::to_string(value.text.size());
      } else {
        call += value.kind == Kind::kBuffer ? "buffer of " + std::to_string(value.room)
                                            : std::to_string(value.number);
      }
    }
    std::snprintf(now, sizeof(now), "%s)", call.c_str());
  }

  // ---- The log ----

  std::size_t logSize() const { return exists(host_.logFile()) ? sizeOf(host_.logFile()) : 0; }
  std::string logSince(std::size_t before) const {
    return readBytes(host_.logFile()).substr(before);
  }

  static constexpr std::size_t kSurroundings = 1 << 17;

  Dice dice_;
  Host host_;
  ScriptedService service_{host_.address()};
  std::mutex mutex_;
  std::vector<std::string> requests_;
  std::vector<std::unique_ptr<GuardedMemory>> memory_;
  Expected lastExpected_;
  std::uint64_t calls_ = 0;
  std::uint64_t checked_ = 0;
  std::uint64_t formats_ = 0;
};

}  // namespace
}  // namespace tolvex::test

int main(int count, char** arguments) {
  using namespace tolvex::test;
  return runProof(count, arguments, [](const Options& options, std::uint64_t seed) {
    return Calls(seed).run(static_cast<unsigned>(options.number("--alone", kAll)),
                           static_cast<unsigned>(options.number("--pairs", kAll)));
  });
}
