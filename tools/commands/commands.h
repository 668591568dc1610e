// The commands: functions that add them to the command line.
#pragma once

#include "app/registry.h"

namespace tolvex::ctl {

void addCall(CLI::App& app, Registry& registry);
void addCompletion(CLI::App& app, Registry& registry);
void addImage(CLI::App& app, Registry& registry);
void addInfo(CLI::App& app, Registry& registry);
void addPaperCommands(CLI::App& app, Registry& registry);  // feed, cut, calibrate, drawer
void addPrint(CLI::App& app, Registry& registry);
void addPrinters(CLI::App& app, Registry& registry);
void addRaw(CLI::App& app, Registry& registry);
void addScaleCommands(CLI::App& app, Registry& registry);  // zero, tare, clear-tare
void addSettings(CLI::App& app, Registry& registry);
void addStatus(CLI::App& app, Registry& registry);
void addWeigh(CLI::App& app, Registry& registry);

/// All of them, in the order of the help.
void addCommands(CLI::App& app, Registry& registry);

}  // namespace tolvex::ctl
