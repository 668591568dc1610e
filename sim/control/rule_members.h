// What a rule consists of when people and programs write and read it.
#pragma once

#include <vector>

#include "control/field.h"
#include "faults/fault_rule.h"

namespace tolvex::sim {

/// One member of a rule, beside "kind".
struct RuleMember {
  Field field;
  /// The kinds that have it; empty: all.
  std::vector<FaultKind> kinds;
  /// The kinds that need it.
  std::vector<FaultKind> requiredBy;
  /// Takes over a checked value.
  void (*set)(FaultRule& rule, const Json& value);
  Json (*show)(const FaultRule& rule);
};

/// In the order in which they are shown. The table is static.
const std::vector<RuleMember>& ruleMembers();

bool isMemberOf(const RuleMember& member, FaultKind kind);

/// Reads a rule. Throws ControlError unless it is one with all members right.
FaultRule readRule(const Json& json);

/// Reads a list of rules, as many as the board takes at most.
std::vector<FaultRule> readRules(const Json& json);

}  // namespace tolvex::sim
