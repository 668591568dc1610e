#include "scenario/trigger.h"

#include "base/printable.h"

namespace tolvex::sim {

namespace {

constexpr std::size_t kMaxCommandBytes = 80;

std::string describeEvent(const Trigger& trigger) {
  const std::string plural = trigger.count == 1 ? "" : "s";
  switch (*trigger.event) {
    case Event::Kind::Request:
      return "request" + plural +
             (trigger.command.empty() ? "" : " " + printable(trigger.command, kMaxCommandBytes)) +
             (trigger.result ? " with result " + std::to_string(*trigger.result) : "");
    case Event::Kind::Job:
      return "finished job" + plural + (trigger.printer.empty() ? "" : " on " + trigger.printer);
    case Event::Kind::Connection:
      break;
  }
  return "connection" + plural;
}

}  // namespace

bool Trigger::counts(const Event& happened) const {
  if (event != happened.kind) return false;
  if (happened.kind == Event::Kind::Job) return printer.empty() || printer == happened.printer;
  if (half && *half != happened.half) return false;
  if (happened.kind == Event::Kind::Connection) return true;
  return (command.empty() || command == happened.command) && (!result || result == happened.result);
}

std::string describe(const Trigger& trigger) {
  if (!trigger.event) {
    return trigger.after.count() == 0 ? "nothing"
                                      : std::to_string(trigger.after.count()) + " ms to pass";
  }
  std::string text = std::to_string(trigger.count) + " " + describeEvent(trigger);
  if (trigger.half) text += std::string(" on the ") + name(*trigger.half) + " port";
  if (trigger.after.count() > 0) text += " and " + std::to_string(trigger.after.count()) + " ms";
  return text;
}

}  // namespace tolvex::sim
