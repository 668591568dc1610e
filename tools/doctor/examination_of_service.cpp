#include <algorithm>
#include <cstdio>
#include <utility>

#include "base/duration.h"
#include "base/printable.h"
#include "base/reply_size.h"
#include "doctor/examination.h"
#include "doctor/probe.h"

namespace tolvex::ctl {
namespace {

constexpr unsigned short kWeighingPort = 53264;
constexpr unsigned short kPrintingPort = 53265;
constexpr double kConnectLimit = 1000;  // milliseconds that the library waits for a connection
constexpr std::size_t kShownOfReply = 60;
constexpr char kThisMachine[] = "127.0.0.1";

std::string shortened(const std::string& reply) {
  if (reply.size() <= kShownOfReply) return '"' + printable(reply) + '"';
  return '"' + printable(reply.substr(0, kShownOfReply)) + "\"... (" +
         std::to_string(reply.size()) + " bytes)";
}

std::string inMilliseconds(double value) {
  char text[32];
  std::snprintf(text, sizeof(text), "%.1f ms", value);
  return text;
}

bool answersHere(std::chrono::milliseconds limit) {
  return probePort(kThisMachine, kWeighingPort, limit).state == PortState::Open &&
         probePort(kThisMachine, kPrintingPort, limit).state == PortState::Open;
}

std::string versionIn(const std::string& reply) {
  const auto value = ordered_json::parse(reply, nullptr, false);
  if (!value.is_object()) return "";
  const auto found = value.find("version");
  return found != value.end() && found->is_string() ? printable(found->get<std::string>()) : "";
}

}  // namespace

std::string Examination::place(const char* use, unsigned short number) const {
  return std::string(use) + " (" + address_ + ":" + std::to_string(number) + ")";
}

// What else may be wrong than the service.
std::string Examination::whereToCorrect() const {
  if (fromIni_) return "correct ip_addr in " + source_;
  if (!globals_.host.empty()) return "give the right address to --host";
  return "name its address in " + iniPath_ + " (lines \"[zelkad]\" and \"ip_addr=192.168.1.20\")";
}

Examination::Findings Examination::ports() {
  const PortProbe weighing = probePort(address_, kWeighingPort, *globals_.timeout);
  const PortProbe printing = probePort(address_, kPrintingPort, *globals_.timeout);
  const bool none = weighing.state == PortState::Refused && printing.state == PortState::Refused;
  Findings findings = {port("weighing", kWeighingPort, weighing, none),
                       port("printing", kPrintingPort, printing, none)};
  const bool open = weighing.state == PortState::Open || printing.state == PortState::Open;
  if (!open && address_ != kThisMachine && answersHere(*globals_.timeout)) {
    findings.push_back(info("a service does listen on this machine, at 127.0.0.1",
                            "If that is the one, " + whereToCorrect() + "."));
  }
  return findings;
}

Finding Examination::port(const char* use, unsigned short number, const PortProbe& probe,
                          bool none) const {
  const std::string where = "the port for " + place(use, number);
  Finding finding = probe.state == PortState::Open ? openPort(where, probe.milliseconds)
                                                   : closedPort(where, probe, none);
  finding.facts["port"] = number;
  finding.facts["connect_ms"] = probe.milliseconds;
  return finding;
}

Finding Examination::openPort(const std::string& where, double taken) const {
  if (taken <= kConnectLimit) return fine(where + " can be reached in " + inMilliseconds(taken));
  return failedWith(
      TOLVEX_RESULT_SOCKET_INTERRUPT,
      where + " is reached only after " + inMilliseconds(taken) + ", the library waits for 1 s",
      "Look for what slows the network down on the way to " + address_ + ".");
}

Finding Examination::closedPort(const std::string& where, const PortProbe& probe, bool none) const {
  const std::string address = address_ + " (" + source_ + ")";
  const std::string right =
      "Look whether the address " + address + " is right (if not, " + whereToCorrect() + ")";
  std::string text;
  std::string fix;
  switch (probe.state) {
    case PortState::Refused:
      text = (none ? "the service is not running: nothing listens on " : "nothing listens on ") +
             where;
      fix = (none ? "Start the service (zelkad) at " : "Restart the service (zelkad) at ") +
            address + ". If it runs elsewhere, " + whereToCorrect() + ".";
      break;
    case PortState::TimedOut:
      text = "no answer from " + where + " within " + toText(*globals_.timeout);
      fix = right +
            ", whether that machine is on, and whether a firewall keeps ports 53264 and "
            "53265 closed.";
      break;
    case PortState::Unreachable:
      text = "no way through the network to " + where;
      fix = right + ", and whether this machine is connected to that network.";
      break;
    default:
      text = where + " can not be tried (socket error " + std::to_string(probe.error) + ")";
      fix = right + '.';
      break;
  }
  return failedWith(TOLVEX_RESULT_SOCKET_INTERRUPT, text, fix);
}

Examination::Findings Examination::service() {
  Findings findings = {answer("weighing", kWeighingPort, R"({"cmd":"checkConnection"})"),
                       answer("printing", kPrintingPort, R"({"cmd":"getPrinterList"})")};
  for (const Finding& finding : findings) {
    if (finding.mark == Mark::Failed) return findings;
  }
  try {
    findings.push_back(answerOfLibrary());
    if (findings.back().mark != Mark::Failed) findings.push_back(serviceVersion());
  } catch (const Failure& failure) {
    findings.push_back(outcomeOf("the service", failure));
  }
  return findings;
}

Finding Examination::answer(const char* use, unsigned short number, const char* request) {
  const ReplyProbe probe = probeReply(address_, number, request, *globals_.timeout);
  const std::string who = "the service for " + place(use, number);
  switch (probe.state) {
    case ReplyState::Readable:
      return fine(who + " answers");
    case ReplyState::Unreadable:
      return failedWith(TOLVEX_UNREADABLE_REPLY,
                        who + " answers with what is no reply: " + shortened(probe.reply));
    case ReplyState::InPieces:
      if (probe.reply.size() > kLongestReply) {
        return failedWith(TOLVEX_UNREADABLE_REPLY,
                          who + " answers with " + std::to_string(probe.reply.size()) +
                              " bytes, of which the library reads 2048",
                          "Bring the service up to date, or have it send shorter replies.");
      }
      return failedWith(
          TOLVEX_UNREADABLE_REPLY,
          who + " sends its reply in pieces, of which the library reads the first",
          "Look for what takes replies apart on the way (a proxy, a tunnel), and bring "
          "the service up to date.");
    case ReplyState::Closed:
      return failedWith(TOLVEX_RESULT_SOCKET_INTERRUPT,
                        who + " closes the connection instead of answering",
                        "Restart the service, and read its own log. Look whether the program at "
                        "this port is the service.");
    case ReplyState::Silent:
      return failedWith(
          TOLVEX_RESULT_SOCKET_INTERRUPT,
          who + " takes the connection but does not answer within " + toText(*globals_.timeout),
          "Restart the service, and read its own log. Until then each command of an "
          "application takes 40 s.");
    case ReplyState::NotConnected:
      break;
  }
  return failedWith(TOLVEX_RESULT_SOCKET_INTERRUPT, who + " can not be reached any more",
                    "Look whether the service has just ended, and start it.");
}

Finding Examination::answerOfLibrary() {
  const Answer answer = serviceOfLibrary().call(TOLVEX_EXPORT(checkConnection));
  if (answer.value == 1) return fine("the library gets its answers");
  return failedWith(answer.lastError, "the library gets no answer from " + address_);
}

Finding Examination::serviceVersion() {
  const Answer answer = serviceOfLibrary().read(TOLVEX_EXPORT(getLCVersion), kLongestReply);
  if (answer.value == TOLVEX_RESULT_VERSION_INCOMPATIBLE) {
    return failedWith(answer.value, "the service does not work with this library");
  }
  const std::string serviceVersion = versionIn(textIn(answer.bytes));
  if (answer.value != TOLVEX_RESULT_OK || serviceVersion.empty()) {
    Finding finding = warning("the service does not tell its version", "");
    if (answer.value != TOLVEX_RESULT_OK) finding.code = answer.value;
    return finding;
  }
  Finding finding = fine("the service is version " + serviceVersion);
  finding.facts = {{"version", serviceVersion}};
  return finding;
}

}  // namespace tolvex::ctl
