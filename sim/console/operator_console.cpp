#include "console/operator_console.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "base/list.h"
#include "base/printable.h"
#include "console/console_command.h"
#include "console/fault_words.h"

namespace tolvex::sim {

namespace {

std::string usage(const ConsoleCommand& command) {
  return std::string(command.name) + (*command.usage == '\0' ? "" : " ") + command.usage;
}

std::string quit(const ConsoleContext& context, const ConsoleArguments&) {
  context.quit();
  return "ok stopping";
}

std::string help(const ConsoleContext& context, const ConsoleArguments& arguments);

ConsoleTable makeTable() {
  ConsoleTable table = scaleConsoleCommands();
  for (const ConsoleTable* more :
       {&printerConsoleCommands(), &paperConsoleCommands(), &wireConsoleCommands()}) {
    table.insert(table.end(), more->begin(), more->end());
  }
  table.push_back({"help", "", 0, 0, help});
  table.push_back({"quit", "", 0, 0, quit});
  return table;
}

const ConsoleTable& allCommands() {
  static const ConsoleTable table = makeTable();
  return table;
}

std::string listOfCommands() {
  std::string list;
  for (const ConsoleCommand& command : allCommands()) addToList(list, usage(command));
  return list;
}

std::string help(const ConsoleContext& context, const ConsoleArguments&) {
  return "ok commands: " + listOfCommands() + "; " + wordsForFaults(context.devices) + "; " +
         wordsForPrinters(context.devices) + "; " + wordsForKinds();
}

std::vector<std::string> splitWords(std::string_view line) {
  std::istringstream stream{std::string(line)};
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

}  // namespace

OperatorConsole::OperatorConsole(Devices& devices, FaultBoard& faults, std::function<void()> quit)
    : devices_(devices), faults_(faults), quit_(std::move(quit)) {}

std::string OperatorConsole::execute(std::string_view line, TimePoint now) {
  std::vector<std::string> words = splitWords(line);
  if (words.empty()) return "";
  const std::string name = words.front();
  words.erase(words.begin());
  const ConsoleTable& table = allCommands();
  const auto command =
      std::find_if(table.begin(), table.end(),
                   [&](const ConsoleCommand& candidate) { return candidate.name == name; });
  if (command == table.end()) {
    return "error: unknown command \"" + printable(name, kMaxEchoBytes) +
           "\"; the commands are: " + listOfCommands();
  }
  if (words.size() < command->fewestArguments || words.size() > command->mostArguments) {
    return "error: the command is: " + usage(*command) +
           (command->words == nullptr ? "" : "; " + command->words(devices_));
  }
  return command->handle({devices_, faults_, quit_, now}, words);
}

}  // namespace tolvex::sim
