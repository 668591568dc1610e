#include "torture/network/stage.h"

#include <algorithm>

#include "api/exports.h"

namespace tolvex::test {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr char kOk[] = R"({"result":"0"})";
constexpr unsigned kLongWait = 15000;
constexpr unsigned kShortWait = 60;
// A reply that comes in time leaves a busy machine half a second.
constexpr unsigned kWaitForOneInTime = 2000;
constexpr milliseconds kInTime{1500};
constexpr milliseconds kLongestCall{20000};

}  // namespace

std::string shown(const std::string& bytes) {
  constexpr std::size_t kMost = 300;
  std::string text = "\"";
  for (const char c : bytes.substr(0, kMost)) {
    const auto byte = static_cast<unsigned char>(c);
    char code[8];
    std::snprintf(code, sizeof(code), byte >= ' ' && byte < 127 ? "%c" : "\\%02x", byte);
    text += code;
  }
  return text + "\" of " + std::to_string(bytes.size()) + " bytes";
}

std::string shown(long long number) { return std::to_string(number); }

std::string wellAnswer(const std::string& request) {
  const std::string key = R"("cmd":"probe")";
  if (request.find(key) == std::string::npos) return kOk;
  const std::string list = R"("paramList":")";
  const std::size_t at = request.find(list) + list.size();
  return R"({"result":"0","probe":")" + request.substr(at, request.find('"', at) - at) + "\"}";
}

void Stage::expect(bool good, const std::string& what) {
  if (!good) problems_.push_back(what);
}

void Stage::begin() {
  for (ServicePort* port : {&service_.weighing(), &service_.printing()}) {
    port->alwaysAnswers(wellAnswer);
  }
  problems_.clear();
  for (const bool weighs : {true, false})
    expect(answersItself(weighs), "the service is not reached");
  service_.weighing().takeRequests(1);
  service_.printing().takeRequests(1);
}

std::vector<std::string> Stage::play(const Call& call, const Fault& fault) {
  problems_.clear();
  ServicePort& port = call.weighs ? service_.weighing() : service_.printing();
  const Answer answer = fault.answer(call);
  const Course course = courseOf(fault, answer);
  Case now{call, fault, answer, course, expectedOf(call, course), port, port.connections(),
           0,    0,     {}};
  setLastError(now);
  if (call.prepare) call.prepare();
  arrange(now);
  script(now);
  this->call(now);
  cleanUp(now);
  takeTheRest(now);
  endTheMute(now);
  findTheConnection(now);
  compareTheQueue(now);
  same<long long>("connections", port.connections() - now.connectionsBefore, course.connections);
  tally_.connections += port.connections() - now.connectionsBefore;
  ++tally_.cases;
  if (!problems_.empty()) settle(port, call.weighs);
  return problems_;
}

// By a command on the other connection, which goes on as if nothing happened.
void Stage::setLastError(const Case& now) {
  ServicePort& other = now.call.weighs ? service_.printing() : service_.weighing();
  other.answers(R"({"result":")" + std::to_string(kLastErrorBefore) + "\"}");
  now.call.weighs ? setOverloadAlarm(1) : send_zero();
  same<long long>("the last error before", getLastErrCode(), kLastErrorBefore);
  other.takeRequests(1);
}

void Stage::arrange(const Case& now) {
  switch (now.fault.act) {
    case Act::kRefusesConnects:
      return now.port.goesAway();
    case Act::kIgnoresConnects:
      return now.port.goesSilentlyAway();
    case Act::kClosesAccepted:
    case Act::kResetsAccepted:
      now.port.welcomes(now.fault.act == Act::kClosesAccepted ? ServicePort::Welcome::kCloses
                                                              : ServicePort::Welcome::kResets);
      return now.port.resetsConnections();
    case Act::kRestartsTwice:
      now.port.goesAway();
      now.port.comesBack();
      [[fallthrough]];
    case Act::kRestartsBefore:
      now.port.goesAway();
      return now.port.comesBack();
    case Act::kClosesBefore:
      return now.port.closesConnections();
    default:
      if (now.answer.unasked) now.port.sends(now.answer.bytes);
  }
}

// What the requests get, one after the other.
void Stage::script(const Case& now) {
  for (std::size_t i = 0; i < now.call.at; ++i) now.port.answers(kOk);
  if (!now.course.arrives) return;
  switch (now.fault.act) {
    case Act::kClosesAfterRequest:
      return now.port.closes();
    case Act::kResetsAfterRequest:
      return now.port.resets();
    case Act::kShutsSending:
      return now.port.shutsSending();
    case Act::kShutsReceiving:
      return now.port.answersAndShutsReceiving(now.answer.bytes);
    case Act::kSilent:
    case Act::kAnswersLate:
      return now.port.staysSilent();
    case Act::kAnswersInTime:
      return now.port.answersAfter(kInTime, now.answer.bytes);
    default:
      break;
  }
  now.answer.unasked ? now.port.staysSilent() : now.port.answers(now.answer.bytes);
  if (!now.call.goesOn() || now.course.rest.empty()) return;
  // The next command of the job is given what is left. What the service still has of that comes then.
  std::string later;
  for (const std::string& piece : now.answer.later) later += piece;
  later.empty() ? now.port.staysSilent() : now.port.answers(later);
}

void Stage::call(Case& now) {
  unsigned wait = kLongWait;
  if (now.fault.act == Act::kSilent || now.fault.act == Act::kAnswersLate) wait = kShortWait;
  if (now.fault.act == Act::kAnswersInTime) wait = kWaitForOneInTime;
  std::string buffer = freshBuffer(now.call.size);
  const auto begin = Clock::now();
  now.result = now.call.run(buffer.data(), wait);
  const auto took = std::chrono::duration_cast<milliseconds>(Clock::now() - begin);
  now.lastError = getLastErrCode();
  ++tally_.calls;
  tally_.longest = std::max(tally_.longest, took);
  now.buffer = buffer;
  expect(took < kLongestCall, "the call took " + std::to_string(took.count()) + " ms");
  same<long long>("result", now.result, now.expected.result);
  same<long long>("last error", now.lastError, now.expected.lastError);
  same("buffer", now.buffer, now.expected.buffer);
}

void Stage::cleanUp(const Case& now) {
  const Expected& expected = now.expected;
  const std::size_t arrived = expected.sent - expected.lost;
  const std::vector<std::string> requests = now.port.takeRequests(arrived);
  same<long long>("requests", static_cast<long long>(requests.size()),
                  static_cast<long long>(arrived));
  for (std::size_t i = 0; i < std::min(requests.size(), arrived); ++i) {
    same("request " + std::to_string(i + 1), requests[i], now.call.requests[i]);
  }
  now.port.forgetsItsScript();
  now.port.welcomes(ServicePort::Welcome::kReads);
  if (now.fault.act == Act::kRefusesConnects || now.fault.act == Act::kIgnoresConnects) {
    now.port.comesBack();
  }
}

}  // namespace tolvex::test
