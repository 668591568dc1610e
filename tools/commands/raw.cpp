// Commands of the service itself, with its reply as it came.
#include <chrono>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>

#include "base/printable.h"
#include "base/reply_size.h"
#include "commands/checks.h"
#include "commands/commands.h"

namespace tolvex::ctl {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kOrdinaryWait{40000};
constexpr milliseconds kTimeToConnect{3000};  // both connections, and some more

constexpr char kRawExamples[] =
    "  tolvexctl raw lc getweight\n"
    "  tolvexctl raw prt getprinterversion --printer Label\n"
    "  tolvexctl raw prt setdirection --param '1' --int 0 --timeout 2s\n";

struct RawOptions {
  std::string side;
  std::string command;
  std::string parameters;
  std::int32_t number = 0;
  std::string printer;
};

// What was sent back, which may be something whatever the code.
struct RawReply {
  int code;
  std::string text;
};

RawReply exchange(Context& context, const RawOptions& options) {
  Service& service = context.service();
  const milliseconds wait = context.globals.timeout.value_or(kOrdinaryWait);
  // The library waits for the reply itself, and says more than that the time is up.
  service.waitAtMost(wait + kTimeToConnect);
  auto buffer = std::make_shared<std::string>(kReplySize, '\0');
  const auto waitMs = static_cast<unsigned>(wait.count());
  auto* const toScale = context.library().get(TOLVEX_EXPORT(sendRawCmdToLC));
  auto* const toPrinter = context.library().get(TOLVEX_EXPORT(sendRawCmdToPrt));
  const Answer answer = service.perform([=] {
    if (options.side == "lc") {
      return toScale(options.command.c_str(), options.parameters.c_str(), buffer->data(),
                     kReplySize, waitMs);
    }
    return toPrinter(options.printer.c_str(), options.command.c_str(), options.number,
                     options.parameters.c_str(), buffer->data(), kReplySize, waitMs);
  });
  return {answer.value, textIn(*buffer)};
}

// An answer with a code that is not 0 is a result all the same: the reply says more.
ExitCode raw(Context& context, const RawOptions& options) {
  const RawReply reply = exchange(context, options);
  if (reply.text.empty()) Service::checkCode("send " + options.command, reply.code);
  const ExitCode exit = exitOf(reply.code);
  const ordered_json parsed = ordered_json::parse(reply.text, nullptr, false);
  ordered_json value = {{"ok", exit == ExitCode::Fine}};
  value.update(toJson(reply.code));
  value["reply"] = parsed.is_discarded() ? ordered_json(nullptr) : parsed;
  value["reply_text"] = reply.text;
  value["exit"] = exit;
  context.out.result(value, printable(reply.text) + '\n');
  if (exit != ExitCode::Fine && !context.out.json()) {
    context.out.failure(Failure("cannot carry out " + options.command, reply.code));
  }
  return exit;
}

}  // namespace

void addRaw(CLI::App& app, Registry& registry) {
  CLI::App* const command = Registry::addCommand(
      app, "raw", "Send any command of the service's protocol and show the reply", kRawExamples);
  auto options = std::make_shared<RawOptions>();
  CLI::Option* const side =
      command->add_option("SIDE", options->side, "lc: the scale's side, prt: the printers'");
  side->option_text(" ")->required()->check(CLI::IsMember({"lc", "prt"}).description(""));
  registry.offers(side, {"lc", "prt"});
  command->add_option("COMMAND", options->command, "The command's name")
      ->option_text(" ")
      ->required();
  command->add_option("--param", options->parameters, "Text that is sent as \"paramList\"")
      ->type_name("TEXT");
  command->add_option("--int", options->number, "Number that prt sends as \"intParam\", default 0")
      ->type_name("N")
      ->check(numberCheck(std::numeric_limits<std::int32_t>::min(),
                          std::numeric_limits<std::int32_t>::max()));
  command->add_option("--printer", options->printer, "Name of the printer, for prt")
      ->type_name("NAME");
  registry.does(command, [options](Context& context) { return raw(context, *options); });
}

}  // namespace tolvex::ctl
