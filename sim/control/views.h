// The simulator's state as JSON. The members stand in openapi.json, where each is described.
#pragma once

#include <optional>
#include <vector>

#include "control/job_diary.h"
#include "control/json.h"
#include "control/simulation.h"

namespace tolvex::sim {

Json scaleView(const Scale& scale, TimePoint now);
Json printerView(const Printer& printer);
Json printersView(const Printers& printers);
Json drawerView(const CashDrawer& drawer);

/// One rule; members that its kind does not have are null.
Json ruleView(const FaultRule& rule);
/// All rules, a list.
Json rulesView(const FaultBoard& faults);

/// What is kept: the numbers of the oldest and the newest, and how many. Without any, the oldest
/// is the next one that there will be.
Json jobsView(const JobLog& jobs);
Json trafficView(const TrafficLog& traffic);

Json jobView(const Job& job, const JobDiary& diary);
Json exchangeView(const TrafficEntry& entry);

/// Everything but the jobs and the exchanges themselves.
Json stateView(const Simulation& simulation, TimePoint now);

}  // namespace tolvex::sim
