// The commands and what they do.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "app/context.h"
#include "base/exit_code.h"

namespace tolvex::ctl {

using Action = std::function<ExitCode(Context&)>;

/// Each command is a subcommand of the command line and an action. A command's options live in an
/// object that its action holds.
class Registry {
 public:
  /// Adds a command: its word, what it does in one line, and its examples, which end its help.
  static CLI::App* addCommand(CLI::App& parent, const std::string& word,
                              const std::string& description, const std::string& examples);

  /// What the command does once the command line is understood.
  void does(const CLI::App* command, Action action);

  /// Words that the shell offers for an option or an argument, beside which others may be right.
  void offers(const CLI::Option* option, std::vector<std::string> words);
  const std::vector<std::string>& offered(const CLI::Option* option) const;

  /// The action of the command that was given, null when there is none.
  const Action* chosen() const;

 private:
  std::vector<std::pair<const CLI::App*, Action>> actions_;
  std::map<const CLI::Option*, std::vector<std::string>> offered_;
};

}  // namespace tolvex::ctl
