// What can go wrong between the library and the service, by name.
#pragma once

#include "torture/network/calls.h"

namespace tolvex::test {

// What the service's end of the connection does.
enum class Act {
  kAnswers,
  kRefusesConnects,
  kIgnoresConnects,
  kClosesAccepted,
  kResetsAccepted,
  kClosesAfterRequest,
  kResetsAfterRequest,
  kShutsSending,
  kShutsReceiving,  // and answers
  kRestartsBefore,
  kRestartsTwice,
  kClosesBefore,
  kSilent,
  kAnswersLate,   // when the wait is over
  kAnswersInTime  // shortly before that
};

// What the service sends, and what it means to a reader of JSON.
struct Answer {
  std::string bytes;
  bool isObject = true;            // otherwise it cannot be read, or has no members
  Members members;                 // of the object
  bool unasked = false;            // sent before the request, which gets no other answer
  std::vector<std::string> later;  // sent one after the other when the call is over
  int codeOfTheRest = -1;          // what a command answers that is given what was left of this
};

struct Fault {
  std::string name;
  Act act = Act::kAnswers;
  std::function<Answer(const Call&)> answer;
  // Whether it can be played with the call at all.
  std::function<bool(const Call&)> fits;
};

// Faults of the connection, and of the reply as a whole.
std::vector<Fault> wireFaults();
// Faults of the members that the call reads.
std::vector<Fault> memberFaults(const Call& call);

Answer objectAnswer(const Members& members);

}  // namespace tolvex::test
