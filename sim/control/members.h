// Tables of members that can be set.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "control/control_error.h"
#include "control/field.h"
#include "control/patches.h"

namespace tolvex::sim {

/// One member of an object that describes a Target, and what sets it.
template <typename Target>
struct Member {
  Field field;
  void (*set)(Target& target, const Json& value);
};

template <typename Row>
std::vector<std::string> namesOf(const std::vector<Row>& rows) {
  std::vector<std::string> names;
  names.reserve(rows.size());
  for (const Row& row : rows) names.push_back(row.field.name);
  return names;
}

/// Checks an object, `what` it is ("a scale"), against a table, and plans to set what is in it, in
/// the table's order. The target has to be there when the plan is carried out.
template <typename Target>
void planMembers(const std::vector<Member<Target>>& table, std::string_view what, Target target,
                 const Json& patch, Plan& plan) {
  checkObject(patch, what, namesOf(table));
  for (const Member<Target>& member : table) {
    const auto found = patch.find(member.field.name);
    if (found == patch.end()) continue;
    check(member.field, *found);
    plan.add([target, &member, value = *found]() mutable { member.set(target, value); });
  }
}

}  // namespace tolvex::sim
