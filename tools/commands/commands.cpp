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
  addInfo(app, registry);
  addScaleCommands(app, registry);
  addPrint(app, registry);
  addImage(app, registry);
  addPaperCommands(app, registry);
  addPrinters(app, registry);
  addStatus(app, registry);
  addSettings(app, registry);
  addRaw(app, registry);
  addCall(app, registry);
  addCompletion(app, registry);
}

}  // namespace tolvex::ctl
