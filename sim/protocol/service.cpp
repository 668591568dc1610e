#include "protocol/service.h"

#include <algorithm>

#include "protocol/command.h"

namespace tolvex::sim {

const Command* findCommand(Half half, std::string_view name) {
  const CommandTable& table = half == Half::Weighing ? weighingCommands() : printingCommands();
  const auto found = std::find_if(table.begin(), table.end(),
                                  [name](const Command& command) { return command.name == name; });
  return found == table.end() ? nullptr : &*found;
}

Reply Service::answer(Half half, std::string_view request, TimePoint now) {
  const bool weighing = half == Half::Weighing;
  const auto parsed = Request::parse(request);
  if (!parsed) return ResultCode::JsonErr;
  const std::string* name = parsed->find("cmd");
  if (name == nullptr) return ResultCode::MissParam;
  const Command* command = findCommand(half, *name);
  if (command == nullptr) {
    return weighing ? ResultCode::UnsupportWeightCmd : ResultCode::UnsupportPrintCmd;
  }
  for (const std::string_view member : command->required) {
    if (parsed->find(member) == nullptr) return ResultCode::MissParam;
  }
  return command->handle(
      {*parsed, devices_, weighing ? weighingLogLevel_ : printingLogLevel_, loadPicture_, now});
}

void Service::restore() {
  weighingLogLevel_ = kLogLevel;
  printingLogLevel_ = kLogLevel;
}

}  // namespace tolvex::sim
