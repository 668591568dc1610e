#include "library/service.h"

#include "library/application.h"

namespace tolvex::ctl {
namespace {

bool isOfUnreadableReply(int code) {
  return code == TOLVEX_RESULT_BUFFER_NOT_ENOUGH || code == TOLVEX_RESULT_JSON_ERR;
}

Failure unreadable(const std::string& purpose, int code) {
  Failure failure("cannot " + purpose + ": the library can not read the service's reply", code);
  failure.exit = ExitCode::Unreachable;
  failure.remedy = "Run tolvexctl doctor, which shows what is wrong with the replies.";
  return failure;
}

}  // namespace

Service::Service(const Library& library, const Globals& globals, Output& output)
    : library_(library),
      globals_(globals),
      output_(output),
      limit_(globals.timeout),
      lastError_(library.get(TOLVEX_EXPORT(getLastErrCode))) {
  const std::string address = addressToSet(globals);
  if (address.empty()) return;
  if (library.get(TOLVEX_EXPORT(SetServerIpForRemoteAccess))(address.c_str()) == TOLVEX_OK) return;
  throw Failure(ExitCode::Failed, "the library does not take the address " + address,
                "Give a dotted IPv4 address such as 192.168.1.20 with --host.");
}

Answer Service::finished(Answer answer) {
  if (globals_.verbose) output_.passOnLibraryMessages();
  return answer;
}

void Service::checkVerdict(const std::string& purpose, const Answer& answer) {
  if (answer.value == TOLVEX_OK) return;
  const bool failed = answer.value == TOLVEX_FAILED && answer.lastError != TOLVEX_RESULT_OK;
  throw Failure("cannot " + purpose, failed ? answer.lastError : answer.value);
}

void Service::checkReading(const std::string& purpose, const Answer& answer) {
  if (answer.value != TOLVEX_FAILED) return checkVerdict(purpose, answer);
  if (isOfUnreadableReply(answer.lastError)) throw unreadable(purpose, answer.lastError);
  checkVerdict(purpose, answer);
}

void Service::checkReadingCode(const std::string& purpose, int code) {
  if (isOfUnreadableReply(code)) throw unreadable(purpose, code);
  checkCode(purpose, code);
}

void Service::checkCode(const std::string& purpose, int code) {
  if (code != TOLVEX_RESULT_OK) throw Failure("cannot " + purpose, code);
}

std::string textIn(const std::string& buffer) { return buffer.substr(0, buffer.find('\0')); }

}  // namespace tolvex::ctl
