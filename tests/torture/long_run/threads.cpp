// Eight threads of one application, each of which must get the replies to its own requests.
//   threads [--exchanges N] [--first-call-alone 0|1] [--seed N]
#include <algorithm>
#include <atomic>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "api/exports.h"
#include "run.h"
#include "support/host.h"
#include "support/scripted_service.h"

namespace tolvex::test {
namespace {

constexpr unsigned kThreads = 8;
constexpr unsigned kQueueingThread = 0;  // the one that queues and prints
constexpr char kPrinter[] = "printer";
constexpr int kFirstCode = 10000;  // above those of the library
constexpr unsigned kWait = 60000;

// What follows the key, up to the quotation mark behind it; empty where it is missing.
std::string valueOf(const std::string& request, const std::string& key) {
  const std::string head = "\"" + key + "\":\"";
  const std::size_t at = request.find(head);
  if (at == std::string::npos) return "";
  const std::size_t begin = at + head.size();
  return request.substr(begin, request.find('"', begin) - begin);
}

// Echoes the number of each request that carries one, and numbers the weights.
class Echo {
 public:
  std::string weighing(const std::string& request) {
    const std::string command = valueOf(request, "cmd");
    if (command == "getweight") return weight();
    if (command == "probe") return reply("0", valueOf(request, "paramList"));
    if (command == "getloglevel") return reply("0", "weighing");
    if (command == "setloglevel") return reply(valueOf(request, "level"), "");
    return reply("0", command);  // checkConnection
  }

  std::string printing(const std::string& request) {
    const std::string command = valueOf(request, "cmd");
    if (command == "probe") return reply("0", valueOf(request, "paramList"));
    if (command == "getloglevel") return reply("0", "printing");
    if (command == "setLeftMargin") return reply(valueOf(request, "leftMargin"), "");
    if (command == "print_text_width") return reply(valueOf(request, "text"), "");
    if (command == "printerStatus") return reply(valueOf(request, "printerType"), "");
    if (command == "printtext") printed_.push_back(valueOf(request, "text"));
    return reply("0", "");  // the job, the cut, the drawer
  }

  // In the loop of the service: read when the threads are over.
  const std::vector<std::string>& printed() const { return printed_; }
  unsigned weights() const { return weights_; }

 private:
  static std::string reply(const std::string& result, const std::string& text) {
    return R"({"result":")" + result + R"(","level":")" + text + "\"}";
  }

  std::string weight() {
    const unsigned number = weights_++;
    char net[16];
    std::snprintf(net, sizeof(net), "%02u.%04u", number / 10000 % 100, number % 10000);
    return R"({"result":"0","net":")" + std::string(net) + R"(","highResNet":")" + net +
           R"(","tare":"0"})";
  }

  unsigned weights_ = 0;
  std::vector<std::string> printed_;
};

class Thread {
 public:
  Thread(unsigned index, unsigned calls, std::uint64_t seed)
      : index_(index), calls_(calls), dice_(seed + index) {}

  void run() {
    try {
      for (unsigned i = 0; i < calls_; ++i) step(i);
    } catch (const Broken& broken) {
      failure_ = "thread " + std::to_string(index_) + ": " + broken.what();
    }
  }

  const std::string& failure() const { return failure_; }
  const std::vector<std::string>& weights() const { return weights_; }
  const std::vector<std::string>& lines() const { return lines_; }
  unsigned exchanges() const { return exchanges_; }

 private:
  // A number that no other call of the run has.
  unsigned unique(unsigned call) const { return kFirstCode + call * kThreads + index_; }

  void step(unsigned call) {
    const unsigned number = unique(call);
    if (index_ == kQueueingThread && dice_.onceIn(3)) return job(number);
    switch (dice_.below(11)) {
      case 0:
      case 1:
        return weigh();
      case 2:
        return raw(true, number);
      case 3:
        return raw(false, number);
      case 4:
        return code("setLeftMargin", setLeftMargin(number, kPrinter), number);
      case 5:
        return code("printTextByPaperWidthById",
                    printTextByPaperWidthById(std::to_string(number).c_str(), 24, 80, 1), number);
      case 6:
        return code("GetPrinterStatus", GetPrinterStatus(number), number);
      case 7:
        return code("setLogLevel", setLogLevel("loadcell", std::to_string(number).c_str()), number);
      case 8:
        return levels();
      case 9:
        ++exchanges_;
        return mustHold(checkConnection() == 1, "checkConnection found nobody");
      default:
        return withoutService();
    }
  }

  void weigh() {
    char record[24] = {};
    ++exchanges_;
    mustHold(read_standard(record) == TOLVEX_OK, "read_standard failed");
    weights_.emplace_back(record + 1, 7);
  }

  void raw(bool weighing, unsigned number) {
    char reply[256] = {};
    const std::string text = std::to_string(number);
    const int code =
        weighing
            ? sendRawCmdToLC("probe", text.c_str(), reply, sizeof(reply) - 1, kWait)
            : sendRawCmdToPrt(kPrinter, "probe", 1, text.c_str(), reply, sizeof(reply) - 1, kWait);
    ++exchanges_;
    mustHold(code == 0 && reply == R"({"result":"0","level":")" + text + "\"}",
             "a raw command with " + text + " got " + std::to_string(code) + " and " + reply);
  }

  void code(const std::string& name, int got, unsigned number) {
    ++exchanges_;
    mustHold(got == static_cast<int>(number),
             name + " with " + std::to_string(number) + " got " + std::to_string(got));
  }

  void levels() {
    for (const auto& [module, own] : {std::pair("loadcell", "weighing"), {"print", "printing"}}) {
      char level[32] = {};
      ++exchanges_;
      mustHold(getLogLevel(module, level, sizeof(level) - 1) == 0 && std::string(level) == own,
               std::string("getLogLevel of ") + module + " got " + level);
    }
  }

  void withoutService() {
    setHighResWeightMode(static_cast<int>(index_ % 2));
    const int mode = getHighResWeightMode();
    mustHold(mode == 0 || mode == 1, "a mode of " + std::to_string(mode));
    getLastErrCode();  // of whoever was last
    mustHold(OpenDisplay() == TOLVEX_OK && PrintLabelImage() == TOLVEX_FAILED, "a stub answered");
    mustHold(SetServerIpForRemoteAccess("no address") == TOLVEX_FAILED, "\"no address\" was taken");
  }

  void job(unsigned number) {
    lines_.push_back(std::to_string(number));
    mustHold(PrintText(lines_.back().c_str(), 24) == TOLVEX_OK, "PrintText failed");
    exchanges_ += 3;
    mustHold(BeginPrint(8) == TOLVEX_OK, "BeginPrint failed");
  }

  const unsigned index_;
  const unsigned calls_;
  Dice dice_;
  std::string failure_;
  std::vector<std::string> weights_;
  std::vector<std::string> lines_;
  unsigned exchanges_ = 0;
};

void inThreads(std::vector<Thread>& work) {
  std::atomic<bool> go{false};
  std::vector<std::thread> threads;
  threads.reserve(work.size());
  for (Thread& one : work) {
    threads.emplace_back([&go, &one] {
      while (!go) std::this_thread::yield();
      one.run();
    });
  }
  go = true;
  for (std::thread& thread : threads) thread.join();
}

void checkWeights(const std::vector<Thread>& work, unsigned sent) {
  std::vector<std::string> weights;
  for (const Thread& one : work) {
    weights.insert(weights.end(), one.weights().begin(), one.weights().end());
  }
  mustHold(weights.size() == sent, std::to_string(sent) + " weights were sent, " +
                                       std::to_string(weights.size()) + " read");
  std::sort(weights.begin(), weights.end());
  mustHold(std::adjacent_find(weights.begin(), weights.end()) == weights.end(),
           "a weight was read twice");
}

std::string eightThreads(const Options& options, std::uint64_t seed) {
  const auto wanted = static_cast<unsigned>(options.number("--exchanges", 5000));
  const Host host;
  Echo echo;
  std::vector<Thread> work;
  // A call in eleven has no exchange, and one has two; a job has three.
  for (unsigned i = 0; i < kThreads; ++i) work.emplace_back(i, wanted / kThreads, seed);
  unsigned exchanges = 0;
  {
    ScriptedService service(host.address());
    service.weighing().keepsNoRequests();
    service.printing().keepsNoRequests();
    service.weighing().alwaysAnswers([&](const std::string& r) { return echo.weighing(r); });
    service.printing().alwaysAnswers([&](const std::string& r) { return echo.printing(r); });
    // Once the context is there, threads that begin later see it without any atomic variable.
    if (options.number("--first-call-alone", 0) != 0) {
      mustHold(checkConnection() == 1, "checkConnection found nobody");
    }
    inThreads(work);
    mustHold(service.weighing().connections() == 1 && service.printing().connections() == 1,
             "more than one connection to a port");
  }
  for (const Thread& one : work) {
    mustHold(one.failure().empty(), one.failure());
    exchanges += one.exchanges();
  }
  checkWeights(work, echo.weights());
  mustHold(echo.printed() == work[kQueueingThread].lines(), "other lines were printed than queued");
  return std::to_string(exchanges) + " exchanges of " + std::to_string(kThreads) +
         " threads, each with the reply to its own request; " + std::to_string(echo.weights()) +
         " weights, none read twice; " + std::to_string(echo.printed().size()) + " lines in order";
}

}  // namespace
}  // namespace tolvex::test

int main(int count, char** arguments) {
  return tolvex::test::runProof(count, arguments, tolvex::test::eightThreads);
}
