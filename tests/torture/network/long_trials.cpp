#include "torture/network/long_trials.h"

#include <chrono>
#include <cstdio>

#include "api/exports.h"
#include "torture/network/stage.h"

namespace tolvex::test {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;
using std::chrono::seconds;

constexpr unsigned kOwnWait = 40000;
constexpr milliseconds kWholeWait{39900};  // the clock of the wait may be another one
constexpr milliseconds kFarTooLong{60000};
constexpr milliseconds kShortlyBefore{37000};
constexpr std::size_t kLarge = 64 * 1024 * 1024;
// Sending 40 s, the connect, the wait.
constexpr milliseconds kLongestWithoutReader{100000};

class Trial {
 public:
  Trial(const std::string& name, const std::string& address) : name_(name), service_(address) {
    SetServerIpForRemoteAccess(address.c_str());
    for (ServicePort* port : {&service_.weighing(), &service_.printing()}) {
      port->alwaysAnswers(wellAnswer);
    }
  }

  ServicePort& portOf(const Call& call) {
    return call.weighs ? service_.weighing() : service_.printing();
  }
  ScriptedService& service() { return service_; }

  // Calls, and compares with what the model expects of the course.
  milliseconds run(const Call& call, const Course& course) {
    const Expected expected = expectedOf(call, course);
    if (call.prepare) call.prepare();
    std::string buffer = freshBuffer(call.size);
    const auto begin = Clock::now();
    same("result", call.run(buffer.data(), kOwnWait), expected.result);
    const auto took = std::chrono::duration_cast<milliseconds>(Clock::now() - begin);
    if (!call.keepsLastError) same("last error", getLastErrCode(), expected.lastError);
    if (buffer != expected.buffer) {
      fail("buffer: " + shown(buffer) + " instead of " + shown(expected.buffer));
    }
    return took;
  }

  void same(const std::string& what, int got, int wanted) {
    if (got != wanted) fail(what + ": " + shown(got) + " instead of " + shown(wanted));
  }
  void within(milliseconds took, milliseconds least, milliseconds most) {
    if (took < least || took > most) fail("the call took " + std::to_string(took.count()) + " ms");
  }
  bool isGood() const { return good_; }

 private:
  void fail(const std::string& what) {
    std::printf("%s: %s\n", name_.c_str(), what.c_str());
    std::fflush(stdout);
    good_ = false;
  }

  std::string name_;
  ScriptedService service_;
  bool good_ = true;
};

Fault faultOf(Act act) {
  for (Fault& fault : wireFaults()) {
    if (fault.act == act) return fault;
  }
  return {};
}

void answerWhatComesBefore(Trial& trial, const Call& call) {
  for (std::size_t i = 0; i < call.at; ++i) trial.portOf(call).answers(R"({"result":"0"})");
}

// The service keeps silent; its reply comes later and is taken for that of the next call.
void playSilence(Trial& trial, const Call& call) {
  const Fault late = faultOf(Act::kAnswersLate);
  const Answer answer = late.answer(call);
  answerWhatComesBefore(trial, call);
  trial.portOf(call).staysSilent();
  trial.within(trial.run(call, courseOf(faultOf(Act::kSilent), answer)), kWholeWait, kFarTooLong);
  trial.portOf(call).sends(answer.bytes);
  if (call.requests.size() > 1) return;
  trial.portOf(call).staysSilent();
  trial.within(trial.run(call, courseOf(faultOf(Act::kAnswers), answer)), milliseconds(0),
               kWholeWait / 2);
}

void playInTime(Trial& trial, const Call& call) {
  const Answer answer = objectAnswer(call.goodReply());
  trial.portOf(call).answersAfter(kShortlyBefore, answer.bytes);
  trial.within(trial.run(call, courseOf(faultOf(Act::kAnswers), answer)), kShortlyBefore,
               kWholeWait);
}

// Each call is given the byte that has come.
void playDrips(Trial& trial, const Call& call) {
  const Answer whole = objectAnswer(call.goodReply());
  trial.portOf(call).drips(seconds(1), whole.bytes);
  for (const char byte : whole.bytes) {
    Answer answer;
    answer.bytes = std::string(1, byte);
    answer.isObject = false;
    trial.within(trial.run(call, courseOf(faultOf(Act::kAnswers), answer)), milliseconds(0),
                 kWholeWait / 2);
    trial.portOf(call).staysSilent();
  }
  trial.portOf(call).forgetsItsScript();
}

struct LargeCall {
  const char* name;
  bool isVerdict;
  std::function<int(const std::string& text)> run;
};

std::vector<LargeCall> largeCalls() {
  return {
      {"sendRawCmdToLC", false,
       [](const std::string& text) {
         return sendRawCmdToLC("store", text.c_str(), nullptr, 0, 1000);
       }},
      {"sendRawCmdToPrt", false,
       [](const std::string& text) {
         return sendRawCmdToPrt("Ticket", "store", 1, text.c_str(), nullptr, 0, 1000);
       }},
      {"setLogLevel", false,
       [](const std::string& text) { return setLogLevel("loadcell", text.c_str()); }},
      {"printTextByPaperWidthById", false,
       [](const std::string& text) { return printTextByPaperWidthById(text.c_str(), 24, 72, 1); }},
      {"printBitmapFileById", false,
       [](const std::string& text) { return printBitmapFileById(text.c_str(), 0, 1); }},
      {"BeginPrint", true,
       [](const std::string& text) {
         PrintTextByPaperWidth(text.c_str(), 24, 72);
         return BeginPrint(0);
       }},
  };
}

// A request that does not fit what the system keeps for a service that reads nothing.
void playUnread(Trial& trial, const LargeCall& call) {
  for (ServicePort* port : {&trial.service().weighing(), &trial.service().printing()}) {
    port->welcomes(ServicePort::Welcome::kLeavesUnread);
  }
  const std::string text(kLarge, 'x');
  const auto begin = Clock::now();
  trial.same("result", call.run(text), call.isVerdict ? 255 : 4);
  trial.within(std::chrono::duration_cast<milliseconds>(Clock::now() - begin), milliseconds(0),
               kLongestWithoutReader);
  // Once the service was restarted, all is well with the next call or the one behind it.
  for (ServicePort* port : {&trial.service().weighing(), &trial.service().printing()}) {
    port->goesAway();
    port->welcomes(ServicePort::Welcome::kReads);
    port->comesBack();
  }
  const bool weighs = checkConnection() == 1 || checkConnection() == 1;
  const bool prints = GetPrinterStatus(1) == 0 || GetPrinterStatus(1) == 0;
  trial.same("connections that work again", weighs + prints, 2);
}

const Call* callNamed(const std::string& name) {
  for (const Call& call : allCalls()) {
    if (call.fullName() == name) return &call;
  }
  return nullptr;
}

// The number of a call or its name is no argument of a command line: it may have blanks.
std::string numbered(const char* kind, std::size_t number) {
  return std::string(kind) + ":" + std::to_string(number);
}

std::size_t indexOf(const char* name) {
  return static_cast<std::size_t>(callNamed(name) - allCalls().data());
}

}  // namespace

std::vector<std::string> longTrials(bool all) {
  const std::vector<std::string> few = {numbered("silence", indexOf("read_standard"))};
  if (!all) return few;
  std::vector<std::string> names;
  for (std::size_t i = 0; i < allCalls().size(); ++i) names.push_back(numbered("silence", i));
  for (const char* name : {"read_standard", "GetPrinterList"}) {
    names.push_back(numbered("in-time", indexOf(name)));
    names.push_back(numbered("drips", indexOf(name)));
  }
  for (std::size_t i = 0; i < largeCalls().size(); ++i) names.push_back(numbered("unread", i));
  return names;
}

bool runLongTrial(const std::string& name, const std::string& address) {
  const std::size_t colon = name.find(':');
  const std::string kind = name.substr(0, colon);
  const std::size_t number = std::stoul(name.substr(colon + 1));
  const bool isLarge = kind == "unread";
  const std::string about =
      isLarge ? largeCalls().at(number).name : allCalls().at(number).fullName();
  Trial trial(about + " / " + kind, address);
  if (isLarge) {
    playUnread(trial, largeCalls()[number]);
  } else if (kind == "silence") {
    playSilence(trial, allCalls()[number]);
  } else if (kind == "in-time") {
    playInTime(trial, allCalls()[number]);
  } else {
    playDrips(trial, allCalls()[number]);
  }
  return trial.isGood();
}

}  // namespace tolvex::test
