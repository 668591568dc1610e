// What the operator can do to the wire between the service and its clients.
#include "base/integer.h"
#include "base/list.h"
#include "base/printable.h"
#include "console/console_command.h"
#include "console/fault_words.h"
#include "protocol/command.h"

namespace tolvex::sim {

namespace {

std::string list(const FaultBoard& faults) {
  const auto& rules = faults.rules();
  if (rules.empty()) return "ok no faults on the wire";
  std::string answer = "ok faults on the wire, " + std::to_string(rules.size()) +
                       (rules.size() == 1 ? " line" : " lines");
  for (const FaultRule& rule : rules) {
    answer += "\n" + std::to_string(rule.id) + " " + printable(wordsOf(rule), kMaxEchoBytes * 8);
    if (rule.kind != FaultKind::Refuse) answer += ", acted " + std::to_string(rule.acted);
  }
  return answer;
}

std::string wordsForIds(const FaultBoard& faults) {
  std::string ids;
  for (const FaultRule& rule : faults.rules()) addToList(ids, std::to_string(rule.id));
  return ids.empty() ? "there is none" : "there are: " + ids;
}

std::string switchOff(FaultBoard& faults, const ConsoleArguments& arguments) {
  if (arguments.size() == 1) {
    faults.clear();
    return "ok no faults on the wire";
  }
  const auto id = parseInteger(arguments[1]);
  if (arguments.size() > 2 || !id) return "error: off needs a fault's number, as in: wire off 1";
  if (*id > 0 && faults.remove(static_cast<std::uint64_t>(*id))) {
    return "ok fault " + std::to_string(*id) + " is off";
  }
  return "error: there is no fault " + std::to_string(*id) + "; " + wordsForIds(faults);
}

// A command that is spelt otherwise would never be met.
std::string remarkOn(const FaultRule& rule) {
  const bool isKnown =
      rule.command.empty() ||
      (rule.half != Half::Printing && findCommand(Half::Weighing, rule.command) != nullptr) ||
      (rule.half != Half::Weighing && findCommand(Half::Printing, rule.command) != nullptr);
  return isKnown ? "" : "; mind that no such port has this command";
}

std::string wire(const ConsoleContext& context, const ConsoleArguments& arguments) {
  FaultBoard& faults = context.faults;
  if (arguments.empty()) return list(faults);
  if (arguments[0] == "off") return switchOff(faults, arguments);
  const ParsedFault parsed = parseFault(arguments);
  if (!parsed.error.empty()) return "error: " + parsed.error;
  const std::uint64_t id = faults.add(parsed.rule);
  if (id == 0) {
    return "error: there are " + std::to_string(FaultBoard::kMaxRules) +
           " faults on the wire, and no more are taken; switch one off, as in: wire off 1";
  }
  return "ok fault " + std::to_string(id) + ": " +
         printable(wordsOf(parsed.rule), kMaxEchoBytes * 8) + remarkOn(parsed.rule);
}

std::string wordsForWire(const Devices& /*devices*/) { return wordsForKinds(); }

}  // namespace

const ConsoleTable& wireConsoleCommands() {
  constexpr std::size_t kMostWords = 10;
  static const ConsoleTable table = {
      {"wire", "[KIND [KEY=VALUE ...] | off [NUMBER]]", 0, kMostWords, wire, wordsForWire},
  };
  return table;
}

}  // namespace tolvex::sim
