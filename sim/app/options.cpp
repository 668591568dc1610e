#include "app/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <utility>

#include "base/decimal.h"
#include "base/ipv4.h"
#include "base/version.h"
#include "devices/scale.h"

namespace tolvex::sim {

namespace {

constexpr double kLongestSettlingSeconds = 60;

constexpr char kDescription[] =
    "A stand-in for the local service zelkad: a scale that programs weigh on and that you load, "
    "and "
    "printers whose paper you can look at.";

constexpr char kExamples[] =
    "Examples:\n"
    "  zelkad-sim                            an empty scale on the usual ports\n"
    "  zelkad-sim --load 0.482               482 g lie on the scale\n"
    "  zelkad-sim --console                  then type: load 1.250, status, help, quit\n"
    "  zelkad-sim --paper-dir paper          each printed job becomes a picture and a text there\n"
    "  zelkad-sim --settling 0 --quiet       for automatic tests: every weight is stable at once\n"
    "  zelkad-sim --address 127.0.0.2        a second one beside the first\n"
    "  zelkad-sim --weighing-port 0 --printing-port 0   any free ports, printed at the start\n";

// Texts as they were given, before they are understood.
struct Raw {
  std::string load;
  std::string settling;
};

std::string checkAddress(const std::string& text) {
  return isIpv4Address(text) ? "" : "\"" + text + "\" is no IPv4 address such as 127.0.0.1";
}

std::string checkLoad(const std::string& text) {
  const auto load = parseKilograms(text);
  if (load && std::abs(*load) <= Scale::kMaxLoad) return "";
  return "\"" + text + "\" is no number of kilograms from -1000 to 1000";
}

std::string checkSettling(const std::string& text) {
  const auto seconds = parseDecimal(text);
  if (seconds && *seconds >= 0 && *seconds <= kLongestSettlingSeconds) return "";
  return "\"" + text + "\" is no number of seconds from 0 to 60";
}

std::string checkPaperDir(const std::string& text) {
  return text.empty() ? "the name of the folder is empty" : "";
}

void addOptions(CLI::App& app, Options& options, Raw& raw) {
  // The checks explain themselves in their messages, and need no name of their own in the help.
  const CLI::Validator anyPort = CLI::Range(0, 65535).description("");
  app.add_option("--address", options.address, "IPv4 address to listen on")
      ->type_name("ADDRESS")
      ->check(CLI::Validator(checkAddress, ""))
      ->capture_default_str();
  app.add_option("--weighing-port", options.weighingPort, "Port for weighing; 0 takes a free one")
      ->type_name("PORT")
      ->check(anyPort)
      ->capture_default_str();
  app.add_option("--printing-port", options.printingPort, "Port for printing; 0 takes a free one")
      ->type_name("PORT")
      ->check(anyPort)
      ->capture_default_str();
  app.add_option("--load", raw.load, "What lies on the scale at the start, default 0")
      ->type_name("KG")
      ->check(CLI::Validator(checkLoad, ""));
  app.add_option("--settling", raw.settling,
                 "How long a load of 1 kg takes to become stable, default 1; 0 is at once")
      ->type_name("SECONDS")
      ->check(CLI::Validator(checkSettling, ""));
  app.add_option("--paper-dir", options.paperDir,
                 "Folder for the paper of finished jobs, as SVG pictures and as text; what earlier "
                 "runs left there is removed")
      ->type_name("DIR")
      ->check(CLI::Validator(checkPaperDir, ""));
  app.add_flag("--console", options.console, "Read operator commands from standard input");
  app.add_flag("--quiet", options.quiet, "Do not log exchanges and jobs");
  app.set_version_flag("--version", std::string("zelkad-sim ") + version());
  app.footer(kExamples);
}

void interpret(Options& options, const Raw& raw) {
  if (!raw.load.empty()) options.load = parseKilograms(raw.load).value();
  if (!raw.settling.empty()) options.settling = Seconds(parseDecimal(raw.settling).value());
  if (options.weighingPort == options.printingPort && options.weighingPort != 0) {
    throw CLI::ValidationError("--weighing-port and --printing-port", "must differ");
  }
}

// In the form of all the program's messages.
std::string explainFailure(const CLI::App*, const CLI::Error& error) {
  return std::string("zelkad-sim: ") + error.what() + "\nRun zelkad-sim --help for the options.\n";
}

}  // namespace

std::optional<Options> parseOptions(std::vector<std::string> arguments, int& exitCode) {
  CLI::App app(kDescription, "zelkad-sim");
  Options options;
  Raw raw;
  addOptions(app, options, raw);
  app.failure_message(explainFailure);
  try {
    std::reverse(arguments.begin(), arguments.end());  // the parser takes them from the back
    app.parse(std::move(arguments));
    interpret(options, raw);
  } catch (const CLI::ParseError& error) {
    exitCode = app.exit(error) == 0 ? 0 : kUsageError;
    return std::nullopt;
  }
  return options;
}

}  // namespace tolvex::sim
