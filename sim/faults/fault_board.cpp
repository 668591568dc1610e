#include "faults/fault_board.h"

#include <algorithm>
#include <utility>

namespace tolvex::sim {

namespace {

bool concerns(const FaultRule& rule, Half half) { return !rule.half || *rule.half == half; }

}  // namespace

void FaultBoard::listen(std::function<void()> listener) {
  listeners_.push_back(std::move(listener));
}

std::uint64_t FaultBoard::add(FaultRule rule) {
  if (rules_.size() >= kMaxRules) return 0;
  const std::uint64_t id = ++lastId_;
  rule.id = id;
  rules_.push_back(std::move(rule));
  changed();
  return id;
}

bool FaultBoard::remove(std::uint64_t id) {
  const auto rule = std::find_if(rules_.begin(), rules_.end(),
                                 [id](const FaultRule& candidate) { return candidate.id == id; });
  if (rule == rules_.end()) return false;
  rules_.erase(rule);
  changed();
  return true;
}

void FaultBoard::clear() {
  if (rules_.empty()) return;
  rules_.clear();
  changed();
}

std::vector<FaultRule> FaultBoard::take(Half half, std::string_view command) {
  std::vector<FaultRule> taken;
  for (FaultRule& rule : rules_) {
    if (rule.kind == FaultKind::Refuse || !concerns(rule, half)) continue;
    if (!rule.command.empty() && rule.command != command) continue;
    taken.push_back(rule);
    ++rule.acted;
    if (rule.remaining) --*rule.remaining;
  }
  if (taken.empty()) return taken;
  const auto isUsedUp = [](const FaultRule& rule) {
    return rule.kind != FaultKind::Refuse && rule.remaining == 0;
  };
  rules_.erase(std::remove_if(rules_.begin(), rules_.end(), isUsedUp), rules_.end());
  changed();
  return taken;
}

bool FaultBoard::refuses(Half half) const {
  return std::any_of(rules_.begin(), rules_.end(), [half](const FaultRule& rule) {
    return rule.kind == FaultKind::Refuse && concerns(rule, half);
  });
}

bool FaultBoard::drops(Half half) const {
  return std::any_of(rules_.begin(), rules_.end(), [half](const FaultRule& rule) {
    return rule.kind == FaultKind::Refuse && concerns(rule, half) && rule.dropsConnections;
  });
}

void FaultBoard::changed() {
  for (const auto& listener : listeners_) listener();
}

}  // namespace tolvex::sim
