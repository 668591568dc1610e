#include "app/command_line.h"

#include <string>

#include "app/shield.h"
#include "base/duration.h"
#include "base/version.h"
#include "commands/checks.h"
#include "commands/commands.h"

namespace tolvex::ctl {
namespace {

constexpr char kDescription[] =
    "Works the shop's devices by hand through the tolvex library: scale, printers, cash drawer; "
    "and "
    "finds out why they do not work.";

constexpr char kFooter[] =
    "Exit status: 0 fine, 1 a check or command failed, 2 the command line is wrong, 3 the service "
    "can not be reached or does not answer, 4 a device refused.\n"
    "tolvexctl COMMAND --help describes a command, with examples.";

void addGlobals(CLI::App& app, Globals& globals) {
  app.add_flag("--json", globals.json, "Results as JSON, errors too")->disable_flag_override();
  app.add_flag("-v,--verbose", globals.verbose, "Tell on standard error what the library says");
  app.add_option("--host", globals.host, "IPv4 address of the service, instead of the INI file's")
      ->type_name("ADDRESS")
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast)
      ->check(addressCheck());
  app.add_option_function<std::string>(
         "--timeout",
         [&globals](const std::string& text) { globals.timeout = parseDuration(text); },
         "How long to wait for each answer: 500ms, 5s; the library waits up to 40 s")
      ->type_name("TIME")
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast)
      ->check(durationCheck());
  app.add_option("--library", globals.library,
                 "The library to use, instead of the one beside tolvexctl")
      ->type_name("FILE");
  app.add_option("--app", globals.app,
                 "POS application, by its executable or folder: its library and its INI file are "
                 "used")
      ->type_name("PATH");
}

}  // namespace

std::unique_ptr<CLI::App> makeCommandLine(Globals& globals, Registry& registry) {
  auto app = std::make_unique<CLI::App>(kDescription, "tolvexctl");
  app->fallthrough();                       // global options stand anywhere
  app->allow_windows_style_options(false);  // a word that begins with / is a path or a text
  app->require_subcommand(0, 1);            // none at all is told in our own words
  app->set_version_flag("--version", std::string("tolvexctl ") + version());
  app->footer(kFooter);
  addGlobals(*app, globals);
  addCommands(*app, registry);
  takeShieldsOff(*app);
  return app;
}

}  // namespace tolvex::ctl
