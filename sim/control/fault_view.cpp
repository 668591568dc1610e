// Faults of the wire as JSON.
#include <nlohmann/json.hpp>

#include "control/rule_members.h"
#include "control/views.h"

namespace tolvex::sim {

Json ruleView(const FaultRule& rule) {
  Json view = {{"id", rule.id}, {"kind", name(rule.kind)}};
  for (const RuleMember& member : ruleMembers()) {
    view[member.field.name] = isMemberOf(member, rule.kind) ? member.show(rule) : Json();
  }
  view["acted"] = rule.acted;
  view["remaining"] = rule.remaining ? Json(*rule.remaining) : Json();
  return view;
}

Json rulesView(const FaultBoard& faults) {
  Json views = Json::array();
  for (const FaultRule& rule : faults.rules()) views.push_back(ruleView(rule));
  return views;
}

}  // namespace tolvex::sim
