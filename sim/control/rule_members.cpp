#include "control/rule_members.h"

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>

#include "base/list.h"
#include "control/control_error.h"
#include "faults/fault_board.h"
#include "protocol/command.h"

namespace tolvex::sim {

namespace {

using Kind = FaultKind;

constexpr double kMostTimes = 1e9;
constexpr double kLongestCommand = 64;
constexpr const char* kEveryCommand = "*";

// Refuse concerns connections and no requests.
const std::vector<Kind>& kindsOnRequests() {
  static const std::vector<Kind> kinds = {Kind::Delay,     Kind::NoAnswer,  Kind::Close,
                                          Kind::Reset,     Kind::TwoPieces, Kind::Garbage,
                                          Kind::Oversized, Kind::WrongType, Kind::Result};
  return kinds;
}

bool contains(const std::vector<Kind>& kinds, Kind kind) {
  return std::count(kinds.begin(), kinds.end(), kind) > 0;
}

Field portField() {
  return {"port", FieldType::Choice, "\"printing\"", 0, 0, {"weighing", "printing", "both"}};
}

void setPort(FaultRule& rule, const Json& value) {
  if (value == "both") {
    rule.half.reset();
  } else {
    rule.half = value == "weighing" ? Half::Weighing : Half::Printing;
  }
}

Json showPort(const FaultRule& rule) { return rule.half ? name(*rule.half) : "both"; }

void setCommand(FaultRule& rule, const Json& value) {
  rule.command = value == kEveryCommand ? "" : value.get<std::string>();
}

Json showCommand(const FaultRule& rule) {
  return rule.command.empty() ? kEveryCommand : rule.command;
}

void setTimes(FaultRule& rule, const Json& value) {
  rule.remaining.reset();
  if (!value.is_null()) rule.remaining = value.get<std::uint64_t>();
}

Json showTimes(const FaultRule& rule) {
  return rule.remaining ? Json(*rule.remaining + rule.acted) : Json();
}

void setTime(FaultRule& rule, const Json& value) {
  rule.time = std::chrono::milliseconds(value.get<std::int64_t>());
}

Json showTime(const FaultRule& rule) { return rule.time.count(); }

void setFirstPiece(FaultRule& rule, const Json& value) {
  rule.firstPiece = value.is_null() ? 0 : value.get<std::size_t>();
}

Json showFirstPiece(const FaultRule& rule) {
  return rule.firstPiece == 0 ? Json() : Json(rule.firstPiece);
}

void setBytes(FaultRule& rule, const Json& value) { rule.bytes = value.get<std::size_t>(); }
Json showBytes(const FaultRule& rule) { return rule.bytes; }

void setCode(FaultRule& rule, const Json& value) { rule.code = value.get<std::int64_t>(); }
Json showCode(const FaultRule& rule) { return rule.code; }

void setCarriedOut(FaultRule& rule, const Json& value) { rule.carriedOut = value.get<bool>(); }
Json showCarriedOut(const FaultRule& rule) { return rule.carriedOut; }

void setDrop(FaultRule& rule, const Json& value) { rule.dropsConnections = value.get<bool>(); }
Json showDrop(const FaultRule& rule) { return rule.dropsConnections; }

Field timesField() {
  Field field{"times", FieldType::Whole, "3", 1, kMostTimes};
  field.nullable = true;
  return field;
}

Field firstPieceField() {
  Field field{"first_piece", FieldType::Whole, "12", 1, static_cast<double>(FaultRule::kMaxBytes)};
  field.nullable = true;
  return field;
}

Field delayField() {
  return {"delay_ms", FieldType::Whole, "1500", 0,
          static_cast<double>(FaultRule::kMaxTime.count())};
}

Field bytesField() {
  return {"bytes", FieldType::Whole, "5000", 1, static_cast<double>(FaultRule::kMaxBytes)};
}

Field codeField() {
  constexpr double kLeast = std::numeric_limits<std::int32_t>::min();
  constexpr double kMost = std::numeric_limits<std::int32_t>::max();
  return {"code", FieldType::Whole, "2006", kLeast, kMost};
}

Field kindField() {
  Field field{"kind", FieldType::Choice, "\"delay\""};
  for (const Kind kind : faultKinds()) field.choices.emplace_back(name(kind));
  return field;
}

std::vector<std::string> namesFor(Kind kind) {
  std::vector<std::string> names = {"kind"};
  for (const RuleMember& member : ruleMembers()) {
    if (isMemberOf(member, kind)) names.push_back(member.field.name);
  }
  return names;
}

std::string anyRule() {
  return "Send a rule, as in {\"kind\": \"delay\", \"delay_ms\": 1500, \"port\": \"weighing\"}.";
}

Kind readKind(const Json& json) {
  if (!json.is_object()) {
    throw badRequest("there is " + shown(json) + " where a rule has to be", anyRule());
  }
  if (!json.contains("kind")) throw badRequest("the rule has no kind", anyRule());
  check(kindField(), json.at("kind"));
  return findFaultKind(json.at("kind").get<std::string>()).value_or(Kind::Delay);
}

void readMember(FaultRule& rule, const RuleMember& member, const Json& json) {
  const auto found = json.find(member.field.name);
  if (found != json.end()) {
    check(member.field, *found);
    member.set(rule, *found);
  } else if (contains(member.requiredBy, rule.kind)) {
    throw badRequest(
        std::string("a rule of the kind ") + name(rule.kind) + " needs " + member.field.name,
        std::string("Send it as in {\"kind\": \"") + name(rule.kind) + "\", \"" +
            member.field.name + "\": " + member.field.example + "}.");
  }
}

// A rule for a command that only the other port has would never act. Commands that nobody knows are
// let through: clients may send them all the same.
void checkCommand(const FaultRule& rule) {
  if (!rule.half || findCommand(*rule.half, rule.command) != nullptr) return;
  const Half other = *rule.half == Half::Weighing ? Half::Printing : Half::Weighing;
  if (findCommand(other, rule.command) == nullptr) return;
  throw badRequest(shown(rule.command) + " is no command of the " + name(*rule.half) + " port",
                   std::string("Send the port that has it: {\"port\": \"") + name(other) + "\"}.")
      .in("command");
}

}  // namespace

const std::vector<RuleMember>& ruleMembers() {
  static const std::vector<RuleMember> table = {
      {portField(), {}, {}, setPort, showPort},
      {{"command", FieldType::Text, "\"getweight\"", 1, kLongestCommand},
       kindsOnRequests(),
       {},
       setCommand,
       showCommand},
      {timesField(), kindsOnRequests(), {}, setTimes, showTimes},
      {delayField(), {Kind::Delay, Kind::TwoPieces}, {Kind::Delay}, setTime, showTime},
      {firstPieceField(), {Kind::TwoPieces}, {}, setFirstPiece, showFirstPiece},
      {bytesField(), {Kind::Garbage, Kind::Oversized}, {}, setBytes, showBytes},
      {codeField(), {Kind::Result}, {Kind::Result}, setCode, showCode},
      {{"carried_out", FieldType::Flag, "true"},
       kindsOnRequests(),
       {},
       setCarriedOut,
       showCarriedOut},
      {{"drop", FieldType::Flag, "true"}, {Kind::Refuse}, {}, setDrop, showDrop},
  };
  return table;
}

bool isMemberOf(const RuleMember& member, FaultKind kind) {
  return member.kinds.empty() || contains(member.kinds, kind);
}

FaultRule readRule(const Json& json) {
  const Kind kind = readKind(json);
  checkObject(json, std::string("a rule of the kind ") + name(kind), namesFor(kind));
  FaultRule rule = defaultRule(kind);
  for (const RuleMember& member : ruleMembers()) {
    if (isMemberOf(member, kind)) readMember(rule, member, json);
  }
  checkCommand(rule);
  return rule;
}

std::vector<FaultRule> readRules(const Json& json) {
  if (!json.is_array()) {
    throw badRequest("there is " + shown(json) + " where a list of rules has to be",
                     "Send a list, [] for none; " + anyRule());
  }
  if (json.size() > FaultBoard::kMaxRules) {
    throw badRequest("there are " + std::to_string(json.size()) + " rules",
                     "Send " + std::to_string(FaultBoard::kMaxRules) + " at most.");
  }
  std::vector<FaultRule> rules;
  for (std::size_t i = 0; i < json.size(); ++i) {
    within(std::to_string(i), [&] { rules.push_back(readRule(json.at(i))); });
  }
  return rules;
}

}  // namespace tolvex::sim
