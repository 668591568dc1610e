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

void Registry::offers(const CLI::Option* option, std::vector<std::string> words) {
  offered_[option] = std::move(words);
}

const std::vector<std::string>& Registry::offered(const CLI::Option* option) const {
  static const std::vector<std::string> none;
  const auto found = offered_.find(option);
  return found != offered_.end() ? found->second : none;
}

const Action* Registry::chosen() const {
  for (const auto& [command, action] : actions_) {
    if (command->parsed()) return &action;
  }
  return nullptr;
}

}  // namespace tolvex::ctl
