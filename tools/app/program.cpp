#include "app/program.h"

#include <algorithm>
#include <exception>
#include <new>
#include <sstream>

#include "app/command_line.h"
#include "app/output.h"
#include "app/shield.h"
#include "app/time_limit.h"
#include "base/printable.h"
#include "base/version.h"
#include "platform/process.h"

namespace tolvex::ctl {
namespace {

// Before the command line is understood, for the errors in it.
bool asksForJson(const std::vector<std::string>& arguments) {
  const auto end = std::find(arguments.begin(), arguments.end(), "--");
  return std::find(arguments.begin(), end, "--json") != end;
}

std::string kindOf(const std::string& word) {
  return word.rfind('-', 0) == 0 ? "option" : "command";
}

// --help, --version, or a command line that is wrong.
ExitCode explain(const CLI::App& app, const CLI::ParseError& error, Output& out) {
  if (dynamic_cast<const CLI::CallForVersion*>(&error) != nullptr) {
    out.result({{"version", version()}}, std::string("tolvexctl ") + version() + '\n');
    return ExitCode::Fine;
  }
  std::ostringstream help;
  std::ostringstream ignored;
  if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
    app.exit(error, help, ignored);
    out.result({{"help", help.str()}}, help.str());
    return ExitCode::Fine;
  }
  const bool isUnknown = dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr &&
                         app.get_subcommands().empty() && !app.remaining().empty();
  const std::string message = isUnknown ? "there is no " + kindOf(app.remaining().front()) + " \"" +
                                              printable(app.remaining().front()) + "\""
                                        : error.what();
  out.failure(Failure(ExitCode::Usage, message,
                      "tolvexctl --help lists commands and options, tolvexctl COMMAND --help those "
                      "of a command."));
  return ExitCode::Usage;
}

// A command that has commands of its own needs one of them.
Failure withoutCommand(const CLI::App& app) {
  const auto given = app.get_subcommands();
  const std::string word = given.empty() ? "" : given.front()->get_name() + " ";
  return Failure(ExitCode::Usage, given.empty() ? "there is no command" : word + "needs a command",
                 "tolvexctl " + word + "--help lists the commands.");
}

ExitCode run(std::vector<std::string> arguments, Output& out) {
  Globals globals;
  Registry registry;
  const auto app = makeCommandLine(globals, registry);
  arguments = shielded(std::move(arguments));
  std::reverse(arguments.begin(), arguments.end());
  try {
    app->parse(std::move(arguments));
  } catch (const CLI::ParseError& error) {
    return explain(*app, error, out);
  }
  const Action* const action = registry.chosen();
  if (action == nullptr) throw withoutCommand(*app);
  Context context(globals, out);
  try {
    const ExitCode exit = (*action)(context);
    if (globals.verbose) out.passOnLibraryMessages();
    return exit;
  } catch (...) {
    if (globals.verbose) out.passOnLibraryMessages();
    throw;
  }
}

}  // namespace

ExitCode runProgram(std::vector<std::string> arguments) {
  Streams& streams = platform::standardStreams();
  const bool json = asksForJson(arguments);
  Output out(streams, json, wantsColour(streams, json));
  ExitCode exit = ExitCode::Failed;
  try {
    exit = run(std::move(arguments), out);
  } catch (const Failure& failure) {
    out.failure(failure);
    exit = failure.exit;
  } catch (const std::bad_alloc&) {
    out.failure(Failure(ExitCode::Failed, "memory ran out"));
  } catch (const std::exception& error) {
    out.failure(Failure(ExitCode::Failed, error.what()));
  }
  if (leftCallBehind()) platform::endNow(static_cast<int>(exit));
  return exit;
}

}  // namespace tolvex::ctl
