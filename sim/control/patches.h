// What can be set by people and programs.
#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "control/json.h"
#include "control/simulation.h"

namespace tolvex::sim {

/// Changes that have been checked and can not fail any more, to be made together. What they change
/// must not change in between.
class Plan {
 public:
  void add(std::function<void()> change) { changes_.push_back(std::move(change)); }
  void carryOut() {
    for (const auto& change : changes_) change();
  }

 private:
  std::vector<std::function<void()>> changes_;
};

/// Each checks an object with any of the members that can be set, as openapi.json describes them,
/// and puts what it says into the plan. They throw ControlError for the first thing that is wrong.
void planScale(Scale& scale, const Json& patch, TimePoint now, Plan& plan);
void planPrinter(Printer& printer, const Json& patch, Plan& plan);
void planDrawer(CashDrawer& drawer, const Json& patch, Plan& plan);
/// {"left_mm": 50000, "stock": {...}}: a new roll or new labels.
void planPaper(Printer& printer, const Json& roll, Plan& plan);
/// {"scale": {...}, "printers": {"Ticket": {...}}, "drawer": {...}, "faults": [...]}; rules replace
/// all that there are.
void planState(Simulation& simulation, const Json& patch, TimePoint now, Plan& plan);

}  // namespace tolvex::sim
