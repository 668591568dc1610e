// Plays a fault with a call and compares all that can be seen with what the model expects.
#pragma once

#include <chrono>

#include "support/host.h"
#include "torture/network/model.h"

namespace tolvex::test {

struct Tally {
  unsigned cases = 0;
  unsigned calls = 0;
  unsigned connections = 0;
  std::chrono::milliseconds longest{0};
};

class Stage {
 public:
  Stage(ScriptedService& service, Tally& tally) : service_(service), tally_(tally) {}

  // The library's context, and a service that answers.
  void begin();
  // Returns what differs, a line each; empty when all is as expected.
  std::vector<std::string> play(const Call& call, const Fault& fault);

 private:
  // One that is being played.
  struct Case {
    const Call& call;
    const Fault& fault;
    Answer answer;
    Course course;
    Expected expected;
    ServicePort& port;
    unsigned connectionsBefore;
    int result = 0;
    int lastError = 0;
    std::string buffer;
  };

  void arrange(const Case& now);
  void script(const Case& now);
  void call(Case& now);
  void cleanUp(const Case& now);
  void compare(const Case& now, std::size_t requestsSeen);
  void takeTheRest(const Case& now);
  void endTheMute(const Case& now);
  void findTheConnection(const Case& now);
  void compareTheQueue(const Case& now);
  void setLastError(const Case& now);
  void settle(ServicePort& port, bool weighs);

  struct Probe {
    int code = 0;
    std::string buffer;
  };
  Probe probe(bool weighs, unsigned wait, const std::string& number);
  bool answersItself(bool weighs);
  void expect(bool good, const std::string& what);
  template <typename Value>
  void same(const std::string& what, const Value& got, const Value& wanted);

  ScriptedService& service_;
  Tally& tally_;
  std::vector<std::string> problems_;
  unsigned probes_ = 0;
};

// A text as a message shows it.
std::string shown(const std::string& bytes);
std::string shown(long long number);

// What a service that is well answers: a probe gets its own number back.
std::string wellAnswer(const std::string& request);

template <typename Value>
void Stage::same(const std::string& what, const Value& got, const Value& wanted) {
  if (got == wanted) return;
  problems_.push_back(what + ": " + shown(got) + " instead of " + shown(wanted));
}

}  // namespace tolvex::test
