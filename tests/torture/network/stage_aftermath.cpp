// What comes after the call that met the fault: what is left answers the next calls, then all is well.
#include <algorithm>

#include "api/exports.h"
#include "torture/network/stage.h"

namespace tolvex::test {
namespace {

constexpr unsigned kProbeSize = 4096;
constexpr unsigned kProbeWait = 15000;
constexpr unsigned kMuteWait = 60;
constexpr std::chrono::seconds kUntilAllIsWell{10};

}  // namespace

Stage::Probe Stage::probe(bool weighs, unsigned wait, const std::string& number) {
  Probe probe;
  probe.buffer = freshBuffer(kProbeSize);
  char* const buffer = probe.buffer.data();
  probe.code =
      weighs ? sendRawCmdToLC("probe", number.c_str(), buffer, kProbeSize, wait)
             : sendRawCmdToPrt("Ticket", "probe", 0, number.c_str(), buffer, kProbeSize, wait);
  ++tally_.calls;
  return probe;
}

// What is left in the connection answers the next calls, which get no answer of their own.
void Stage::takeTheRest(const Case& now) {
  std::size_t taken = now.call.goesOn() ? kMostOfAReply : 0;
  for (std::string rest : now.course.rest) {
    if (!now.call.goesOn() && !now.answer.later.empty()) now.port.sends(rest);
    if (now.call.goesOn() && !now.answer.later.empty()) return;
    rest.erase(0, taken);
    while (!rest.empty()) {
      now.port.staysSilent();
      const Probe next = probe(now.call.weighs, kProbeWait, "rest");
      now.port.takeRequests(1);
      same<long long>("the code of the next call", next.code, now.answer.codeOfTheRest);
      const std::size_t length = std::min(next.buffer.find('\0'), rest.size());
      std::string wanted = rest.substr(0, length);
      wanted.resize(kProbeSize, '\0');
      wanted += std::string(kGuard, kFilling);
      same("the reply to the next call", next.buffer, wanted);
      if (length == 0 || !problems_.empty()) return;
      rest.erase(0, length);
    }
  }
}

void Stage::endTheMute(const Case& now) {
  if (now.course.after != After::kMute) return;
  const Probe next = probe(now.call.weighs, kMuteWait, "mute");
  same<long long>("the code of the next call", next.code, 4);
  same("the buffer of the next call", next.buffer, freshBuffer(kProbeSize));
  now.port.takeRequests(now.fault.act == Act::kShutsSending ? 1 : 0);
  now.port.closesConnections();
}

bool Stage::answersItself(bool weighs) {
  const std::string number = std::to_string(++probes_);
  const Probe next = probe(weighs, kProbeWait, number);
  if (next.code == 4) {
    same("the buffer of a call that failed", next.buffer, freshBuffer(kProbeSize));
    return false;
  }
  std::string wanted = R"({"result":"0","probe":")" + number + "\"}";
  wanted.resize(kProbeSize, '\0');
  wanted += std::string(kGuard, kFilling);
  same("the reply to a call when all is well", next.buffer, wanted);
  same<long long>("the code of a call when all is well", next.code, 0);
  return true;
}

void Stage::findTheConnection(const Case& now) {
  if (now.course.after == After::kAnewAfterLoss && !now.call.goesOn()) {
    expect(!answersItself(now.call.weighs), "the next call was not lost");
  }
  const bool mayLose = now.course.after != After::kStays && now.course.after != After::kAnew;
  const auto limit = std::chrono::steady_clock::now() + kUntilAllIsWell;
  bool well = answersItself(now.call.weighs);
  while (!well && mayLose && std::chrono::steady_clock::now() < limit)
    well = answersItself(now.call.weighs);
  expect(well, "the next call got no answer");
  const std::size_t seen = now.port.takeRequests(1).size();
  same<long long>("requests of the next calls", static_cast<long long>(seen), 1);
}

// Whatever became of a job, its queue is empty.
void Stage::compareTheQueue(const Case& now) {
  if (!now.call.isJob()) return;
  same<long long>("the verdict on an empty queue", BeginPrint(0), TOLVEX_FAILED);
  same<long long>("the code of an empty queue", getLastErrCode(), 1);
}

void Stage::settle(ServicePort& port, bool weighs) {
  const std::vector<std::string> problems = problems_;
  port.forgetsItsScript();
  port.resetsConnections();
  for (int i = 0; i < 3 && !answersItself(weighs); ++i) continue;
  port.takeRequests(0);
  problems_ = problems;
}

}  // namespace tolvex::test
