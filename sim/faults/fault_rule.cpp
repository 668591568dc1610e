#include "faults/fault_rule.h"

#include <algorithm>

namespace tolvex::sim {

namespace {

constexpr std::chrono::milliseconds kPauseBetweenPieces{200};
// Twice what a client of this protocol reads at once.
constexpr std::size_t kOversizedBytes = 4096;
constexpr std::size_t kGarbageBytes = 64;

}  // namespace

const char* name(FaultKind kind) {
  switch (kind) {
    case FaultKind::Delay:
      return "delay";
    case FaultKind::NoAnswer:
      return "no-answer";
    case FaultKind::Close:
      return "close";
    case FaultKind::Reset:
      return "reset";
    case FaultKind::TwoPieces:
      return "two-pieces";
    case FaultKind::Garbage:
      return "garbage";
    case FaultKind::Oversized:
      return "oversized";
    case FaultKind::WrongType:
      return "wrong-type";
    case FaultKind::Result:
      return "result";
    case FaultKind::Refuse:
      break;
  }
  return "refuse";
}

const std::vector<FaultKind>& faultKinds() {
  static const std::vector<FaultKind> kinds = {
      FaultKind::Delay,     FaultKind::NoAnswer, FaultKind::Close,     FaultKind::Reset,
      FaultKind::TwoPieces, FaultKind::Garbage,  FaultKind::Oversized, FaultKind::WrongType,
      FaultKind::Result,    FaultKind::Refuse};
  return kinds;
}

std::optional<FaultKind> findFaultKind(std::string_view text) {
  const auto& kinds = faultKinds();
  const auto found = std::find_if(kinds.begin(), kinds.end(),
                                  [text](FaultKind kind) { return name(kind) == text; });
  if (found == kinds.end()) return std::nullopt;
  return *found;
}

FaultRule defaultRule(FaultKind kind) {
  FaultRule rule;
  rule.kind = kind;
  rule.carriedOut = kind != FaultKind::Result;
  if (kind == FaultKind::TwoPieces) rule.time = kPauseBetweenPieces;
  if (kind == FaultKind::Oversized) rule.bytes = kOversizedBytes;
  if (kind == FaultKind::Garbage) rule.bytes = kGarbageBytes;
  return rule;
}

}  // namespace tolvex::sim
