// What is done to the scale: zero and tare.
#include <string>

#include "base/printable.h"
#include "commands/commands.h"

namespace tolvex::ctl {
namespace {

constexpr unsigned kTareSize = 64;  // the exports write at most ten bytes

ExitCode zero(Context& context) {
  context.service().verdict("zero the scale", TOLVEX_EXPORT(send_zero));
  context.out.result({{"zeroed", true}}, "The scale is zeroed.\n");
  return ExitCode::Fine;
}

template <typename Function>
ExitCode changeTare(Context& context, const std::string& purpose, Export<Function> function) {
  const Answer answer = context.service().read(function, kTareSize);
  Service::checkReading(purpose, answer);
  const std::string tare = textIn(answer.bytes);
  context.out.result({{"tare", tare}}, "tare " + printable(tare) + '\n');
  return ExitCode::Fine;
}

}  // namespace

void addScaleCommands(CLI::App& app, Registry& registry) {
  registry.does(
      Registry::addCommand(app, "zero", "Set the empty scale to zero", "  tolvexctl zero\n"), zero);
  registry.does(Registry::addCommand(app, "tare", "Take what lies on the scale as the tare",
                                     "  tolvexctl tare\n"),
                [](Context& context) {
                  return changeTare(context, "take the tare", TOLVEX_EXPORT(send_tare));
                });
  registry.does(
      Registry::addCommand(app, "clear-tare", "Clear the tare", "  tolvexctl clear-tare\n"),
      [](Context& context) {
        return changeTare(context, "clear the tare", TOLVEX_EXPORT(clear_tare));
      });
}

}  // namespace tolvex::ctl
