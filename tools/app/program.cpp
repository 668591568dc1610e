#include "app/program.h"

#include <algorithm>
#include <exception>
#include <new>
#include <sstream>

#include "app/command_line.h"
#include "app/output.h"
#include "app/time_limit.h"
#include "base/version.h"
#include "platform/process.h"

namespace tolvex::ctl {
namespace {

// Before the command line is understood, for the errors in it.
bool asksForJson(const std::vector<std::string>& arguments) {
  const auto end = std::find(arguments.begin(), arguments.end(), "--");
  return std::find(arguments.begin(), end, "--json") != end;
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
  out.failure(
      Failure(ExitCode::Usage, error.what(), "Run tolvexctl --help, or tolvexctl COMMAND --help."));
  return ExitCode::Usage;
}

ExitCode run(std::vector<std::string> arguments, Output& out) {
  Globals globals;
  Registry registry;
  const auto app = makeCommandLine(globals, registry);
  std::reverse(arguments.begin(), arguments.end());
  try {
    app->parse(std::move(arguments));
  } catch (const CLI::ParseError& error) {
    return explain(*app, error, out);
  }
  Context context(globals, out);
  try {
    const ExitCode exit = (*registry.chosen())(context);
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
