// A till that runs for months, in minutes: calls of all kinds to a service that fails now and then.
//   soak [--exchanges N] [--resync 0|1] [--seed N]
#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>

#include "numbered_calls.h"
#include "run.h"
#include "support/host.h"
#include "support/os_support.h"
#include "support/scripted_service.h"

namespace tolvex::test {
namespace {

constexpr unsigned kMostPoints = 50;
constexpr unsigned kExchangesForAPoint = 2000;
constexpr unsigned kFaultOnceIn = 100;
constexpr auto kPatience = std::chrono::seconds(20);

class Soak {
 public:
  Soak(bool resync, std::uint64_t seed) : resync_(resync), dice_(seed) {
    host_.withIni("[zelkad]\nip_addr=" + host_.address() +
                  (resync ? "\nresync=1\n" : "\nresync=0\n"));
    for (ServicePort* port : {&service_.weighing(), &service_.printing()}) {
      port->keepsNoRequests();
      port->alwaysAnswers(
          [this](const std::string& request) { return numberedReply(request, number_); });
    }
  }

  std::string run(std::uint64_t exchanges) {
    untilOwn(service_.weighing());
    untilOwn(service_.printing());
    const std::uint64_t points =
        std::min<std::uint64_t>(kMostPoints, exchanges / kExchangesForAPoint);
    for (unsigned point = 0; point <= points; ++point) {
      while (number_ * points < exchanges * point) {
        dice_.onceIn(kFaultOnceIn) ? fault() : good();
      }
      settle();
      growth_.note(number_);
    }
    return std::to_string(number_) + " exchanges, " + std::to_string(faults_) + " faults, " +
           std::to_string(others_) + " replies taken for another's behind a late or split one; " +
           growth_.check();
  }

 private:
  ServicePort& port(bool weighing) { return weighing ? service_.weighing() : service_.printing(); }

  std::string at() const {
    return " (exchange " + std::to_string(number_) + ", after \"" + lastFault_ + "\")";
  }

  Outcome call(const NumberedCall& what) {
    ++number_;
    return what.run(number_);
  }

  Outcome raw(bool weighing, unsigned wait) {
    ++number_;
    return rawCall(weighing, number_, wait);
  }

  void good() {
    const NumberedCall& what = numberedCall(dice_.below(kNumberedCalls));
    const Outcome outcome = call(what);
    mustHold(outcome == Outcome::kOwn, std::string(what.name) + ": " + textOf(outcome) + at());
  }

  // As an application does: again until it works.
  void untilOwn(ServicePort& which) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    for (;;) {
      const Outcome outcome = raw(&which == &service_.weighing(), kLongWait);
      if (outcome == Outcome::kOwn) return;
      mustHold(outcome == Outcome::kFailed, "a reply was taken for another's" + at());
      mustHold(std::chrono::steady_clock::now() < end,
               "waited 20 s for the service to be reached again" + at());
    }
  }

  void settle() {
    for (ServicePort* which : {&service_.weighing(), &service_.printing()}) {
      untilOwn(*which);
      mustHold(which->hasOpen(1), "waited 10 s for one open connection at each port" + at());
    }
  }

  // What the next call meets, and the call, which has to fail.
  void meet(bool weighing) {
    const NumberedCall& what = anyOf(weighing);
    const Outcome outcome = call(what);
    mustHold(outcome == Outcome::kFailed, std::string(what.name) + ": " + textOf(outcome) + at());
  }

  const NumberedCall& anyOf(bool weighing) {
    for (;;) {
      const NumberedCall& what = numberedCall(dice_.below(kNumberedCalls));
      if (what.weighing == weighing) return what;
    }
  }

  std::string garbage() {
    static const std::array<std::string, 6> kinds = {"{",
                                                     "null",
                                                     R"({"result":0})",
                                                     R"(["result"])",
                                                     std::string(3, '\0'),
                                                     R"({"result":"0"}{"result":"0"})"};
    const unsigned kind = dice_.below(kinds.size() + 1);
    if (kind < kinds.size()) return kinds[kind];
    std::string bytes(1 + dice_.below(2048), ' ');
    for (char& byte : bytes) byte = static_cast<char>(dice_.below(256));
    bytes[0] = '#';  // so that it is no JSON, whatever follows
    return bytes;
  }

  void fault() {
    ++faults_;
    const bool weighing = dice_.onceIn(2);
    ServicePort& which = port(weighing);
    switch (dice_.below(7)) {
      case 0:
        lastFault_ = "close";
        which.closes();
        meet(weighing);
        break;
      case 1:
        lastFault_ = "reset";
        which.resets();
        meet(weighing);
        break;
      case 2:
        lastFault_ = "silence";
        silent(weighing, "");
        break;
      case 3:
        lastFault_ = "garbage";
        which.answers(garbage());
        meet(weighing);
        break;
      case 4:
        late(weighing);
        break;
      case 5:
        split(weighing);
        break;
      default:
        restart(weighing);
        break;
    }
    untilOwn(which);
  }

  unsigned shortWait() { return 1 + dice_.below(5); }

  // The reply comes when the wait for it is over, or never.
  void silent(bool weighing, const std::string& late) {
    port(weighing).holdsBack("", late);
    mustHold(raw(weighing, shortWait()) == Outcome::kFailed, "an answer from nowhere" + at());
    mustHold(port(weighing).holdsSomethingBack(), "waited 10 s for the request to come" + at());
    port(weighing).sendsWhatItHeldBack();
  }

  void late(bool weighing) {
    lastFault_ = "late reply";
    silent(weighing, rawReply(number_ + 1));
    outOfStep(weighing);
  }

  void split(bool weighing) {
    lastFault_ = "reply in two pieces";
    const std::string whole = rawReply(number_ + 1);
    const std::size_t first = 1 + dice_.below(static_cast<unsigned>(whole.size()) - 1);
    port(weighing).holdsBack(whole.substr(0, first), whole.substr(first));
    mustHold(raw(weighing, kLongWait) == Outcome::kFailed, "half a reply was taken" + at());
    port(weighing).sendsWhatItHeldBack();
    outOfStep(weighing);
  }

  // With resync the next call has its own reply. Without, the connection is one reply behind until
  // the service closes it; what it sent before that is read by one more call.
  void outOfStep(bool weighing) {
    if (resync_) return;
    for (unsigned i = 0; i < 3; ++i) countOthers(raw(weighing, kLongWait));
    port(weighing).closesConnections();
    countOthers(raw(weighing, kLongWait));
  }

  void countOthers(Outcome outcome) {
    if (outcome == Outcome::kAnothers) ++others_;
  }

  void restart(bool weighing) {
    lastFault_ = "restart";
    port(weighing).goesAway();
    for (unsigned calls = dice_.below(3); calls > 0; --calls) meet(weighing);
    port(weighing).comesBack();
  }

  const bool resync_;
  Dice dice_;
  Host host_;
  std::atomic<std::uint64_t> number_{0};
  ScriptedService service_{host_.address()};
  std::uint64_t faults_ = 0;
  std::uint64_t others_ = 0;
  std::string lastFault_ = "the start";
  Growth growth_;
};

std::string soak(const Options& options, std::uint64_t seed) {
  Soak run(options.number("--resync", 0) != 0, seed);
  return run.run(options.number("--exchanges", 20000));
}

}  // namespace
}  // namespace tolvex::test

int main(int count, char** arguments) {
  tolvex::test::countMemoryExactly(arguments);
  return tolvex::test::runProof(count, arguments, tolvex::test::soak);
}
