#include "commands/commands.h"

#include "doctor/doctor_command.h"
#include "explain/explain_command.h"
#include "logs/log_command.h"

namespace tolvex::ctl {

void addCommands(CLI::App& app, Registry& registry) {
  addDoctor(app, registry);
  addLog(app, registry);
  addExplain(app, registry);
  addWeigh(app, registry);
  addCall(app, registry);
}

}  // namespace tolvex::ctl
