// How an exchange goes that meets a fault.
#include "torture/network/model.h"

namespace tolvex::test {
namespace {

// The library receives once, with room for so many bytes. What is left stays in the connection.
Heard firstOf(const Answer& answer) {
  Heard heard;
  heard.came = true;
  heard.meaning = answer;
  heard.text = answer.bytes.substr(0, kMostOfAReply);
  if (answer.bytes.size() > kMostOfAReply) heard.meaning.isObject = false;
  heard.text = heard.text.substr(0, heard.text.find('\0'));
  return heard;
}

std::vector<std::string> restOf(const Answer& answer) {
  if (answer.bytes.size() > kMostOfAReply) return {answer.bytes.substr(kMostOfAReply)};
  return answer.later;
}

Course answered(const Answer& answer) {
  Course course;
  course.heard = firstOf(answer);
  course.rest = restOf(answer);
  return course;
}

Course unanswered(After after, unsigned connections, bool arrives) {
  Course course;
  course.after = after;
  course.connections = connections;
  course.arrives = arrives;
  return course;
}

}  // namespace

Course courseOf(const Fault& fault, const Answer& answer) {
  Course course;
  switch (fault.act) {
    case Act::kAnswers:
    case Act::kAnswersInTime:
      return answered(answer);
    case Act::kRefusesConnects:
    case Act::kIgnoresConnects:
      return unanswered(After::kAnew, 1, false);
    case Act::kClosesAccepted:
    case Act::kResetsAccepted:
      return unanswered(After::kAnewPerhapsAfterLoss, 2, false);
    case Act::kClosesAfterRequest:
      return unanswered(After::kAnewAfterLoss, 1, true);
    case Act::kResetsAfterRequest:
      return unanswered(After::kAnew, 1, true);
    case Act::kShutsSending:
      return unanswered(After::kMute, 1, true);
    case Act::kClosesBefore:
      return unanswered(After::kAnewPerhapsAfterLoss, 1, false);
    case Act::kShutsReceiving:
      course = answered(answer);
      course.after = After::kMute;
      course.connections = 1;
      return course;
    case Act::kRestartsBefore:
    case Act::kRestartsTwice:
      course = answered(answer);
      course.connections = 1;
      return course;
    case Act::kSilent:
      return unanswered(After::kStays, 0, true);
    case Act::kAnswersLate:
      course = unanswered(After::kStays, 0, true);
      course.rest = restOf(answer);
      return course;
  }
  return course;
}

}  // namespace tolvex::test
