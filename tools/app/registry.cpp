#include "app/registry.h"

namespace tolvex::ctl {

CLI::App* Registry::addCommand(CLI::App& parent, const std::string& word,
                               const std::string& description, const std::string& examples) {
  CLI::App* const command = parent.add_subcommand(word, description);
  command->footer("Examples:\n" + examples);
  return command;
}

void Registry::does(const CLI::App* command, Action action) {
  actions_.emplace_back(command, std::move(action));
}

const Action* Registry::chosen() const {
  for (const auto& [command, action] : actions_) {
    if (command->parsed()) return &action;
  }
  return nullptr;
}

}  // namespace tolvex::ctl
