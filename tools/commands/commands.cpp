#include "commands/commands.h"

namespace tolvex::ctl {

void addCommands(CLI::App& app, Registry& registry) {
  addWeigh(app, registry);
  addCall(app, registry);
}

}  // namespace tolvex::ctl
