// Faults on the wire in an operator's words, as in "delay command=getweight ms=1500 times=3".
#pragma once

#include <string>
#include <vector>

#include "faults/fault_rule.h"

namespace tolvex::sim {

/// A rule, or what is wrong with the words and what would be right.
struct ParsedFault {
  FaultRule rule;
  /// Empty if the words are right.
  std::string error;
};

/// Reads the name of a kind and its settings, KEY=VALUE each. What is not set is as in
/// defaultRule(). `words` is not empty.
ParsedFault parseFault(const std::vector<std::string>& words);

/// The words that make this rule as it is now. What goes without saying is left out.
std::string wordsOf(const FaultRule& rule);

/// "the faults on the wire are: delay, no-answer" and so on.
std::string wordsForKinds();

}  // namespace tolvex::sim
