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

// Where the other ports are, counted from the weighing port.
constexpr int kPrintingOffset = 1;
constexpr int kWebOffset = 16;

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
    "  zelkad-sim --scenario sale.json --exit-after 2jobs,60s   a test that ends by itself\n"
    "  zelkad-sim --address 127.0.0.2        a second one beside the first\n"
    "  zelkad-sim --port 0                   any free ports, printed at the start\n"
    "  zelkad-sim --no-web                   without the page\n";

// Texts as they were given, before they are understood.
struct Raw {
  std::optional<int> port;
  std::string webAddress;
  bool noWeb = false;
  std::string load;
  std::string settling;
  std::string exitAfter;
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

// The checks explain themselves in their messages, and need no name of their own in the help.
CLI::Validator anyPort() { return CLI::Range(0, 65535).description(""); }

void addWebOptions(CLI::App& app, Options& options, Raw& raw) {
  app.add_option("--web-port", options.webPort, "Port of the page; 0 takes a free one")
      ->type_name("PORT")
      ->check(anyPort())
      ->capture_default_str();
  app.add_option("--web-address", raw.webAddress,
                 "IPv4 address of the page, default --address if that is of this machine alone "
                 "(127...), else 127.0.0.1; whoever reaches it can operate the simulator")
      ->type_name("ADDRESS")
      ->check(CLI::Validator(checkAddress, ""));
  app.add_flag("--no-web", raw.noWeb, "Without the page");
}

std::string checkFile(const std::string& text) {
  return text.empty() ? "the name of the file is empty" : "";
}

std::string checkLimits(const std::string& text) {
  if (parseRunLimits(text)) return "";
  return "\"" + text +
         "\" is no end of a run such as 30s, 500ms, 2m, 3jobs, 20requests, or several of them with "
         "commas, each kind once";
}

void addTestOptions(CLI::App& app, Options& options, Raw& raw) {
  app.add_option("--scenario", options.scenario,
                 "File (JSON) with what happens to the devices, and what is expected of the run")
      ->type_name("FILE")
      ->check(CLI::Validator(checkFile, ""));
  app.add_option("--exit-after", raw.exitAfter,
                 "When to stop: 30s, 500ms, 2m, 3jobs, 20requests, or several with commas, "
                 "whichever comes first")
      ->type_name("WHAT")
      ->check(CLI::Validator(checkLimits, ""));
  app.add_option("--record", options.record, "File to write each exchange to, a line each")
      ->type_name("FILE")
      ->check(CLI::Validator(checkFile, ""));
  app.add_option(
         "--replay", options.replay,
         "Recorded file to answer from instead of the devices, and to compare requests with")
      ->type_name("FILE")
      ->check(CLI::Validator(checkFile, ""));
}

void addOptions(CLI::App& app, Options& options, Raw& raw) {
  app.add_option("--address", options.address, "IPv4 address to listen on")
      ->type_name("ADDRESS")
      ->check(CLI::Validator(checkAddress, ""))
      ->capture_default_str();
  app.add_option("--weighing-port", options.weighingPort, "Port for weighing; 0 takes a free one")
      ->type_name("PORT")
      ->check(anyPort())
      ->capture_default_str();
  app.add_option("--printing-port", options.printingPort, "Port for printing; 0 takes a free one")
      ->type_name("PORT")
      ->check(anyPort())
      ->capture_default_str();
  app.add_option("--port", raw.port,
                 "Ports all at once: PORT for weighing, PORT + 1 for printing, PORT + 16 for the "
                 "page; 0 takes free ones")
      ->type_name("PORT")
      ->check(CLI::Range(0, 65535 - kWebOffset).description(""));
  addWebOptions(app, options, raw);
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
  addTestOptions(app, options, raw);
  app.add_flag("--console", options.console, "Read operator commands from standard input");
  app.add_flag("--quiet", options.quiet, "Do not log exchanges and jobs");
  app.set_version_flag("--version", std::string("zelkad-sim ") + version());
  app.footer(kExamples);
}

// What is given for one port alone counts more than what --port says.
void placePorts(const CLI::App& app, Options& options, const Raw& raw) {
  if (!raw.port) return;
  const auto place = [&](const char* name, std::uint16_t& port, int offset) {
    if (app.count(name) > 0) return;
    port = static_cast<std::uint16_t>(*raw.port == 0 ? 0 : *raw.port + offset);
  };
  place("--weighing-port", options.weighingPort, 0);
  place("--printing-port", options.printingPort, kPrintingOffset);
  place("--web-port", options.webPort, kWebOffset);
}

void checkPorts(const Options& options) {
  const auto differ = [](std::uint16_t a, std::uint16_t b, const char* names) {
    if (a == b && a != 0) throw CLI::ValidationError(names, "must differ");
  };
  differ(options.weighingPort, options.printingPort, "--weighing-port and --printing-port");
  if (!options.web) return;
  differ(options.weighingPort, options.webPort, "--weighing-port and --web-port");
  differ(options.printingPort, options.webPort, "--printing-port and --web-port");
}

void checkNoWeb(const CLI::App& app, const Raw& raw) {
  for (const std::string name : {"--web-port", "--web-address"}) {
    if (!raw.noWeb || app.count(name) == 0) continue;
    throw CLI::ValidationError("--no-web and " + name, "exclude each other");
  }
}

// The page is for this machine, unless an address is asked for.
std::string webAddress(const Options& options, const Raw& raw) {
  if (!raw.webAddress.empty()) return raw.webAddress;
  return options.address.rfind("127.", 0) == 0 ? options.address : "127.0.0.1";
}

// No device does anything while a recording answers.
void checkReplay(const Options& options) {
  if (options.replay.empty()) return;
  if (!options.scenario.empty()) {
    throw CLI::ValidationError("--replay and --scenario", "exclude each other");
  }
  if (!options.record.empty()) {
    throw CLI::ValidationError("--replay and --record", "exclude each other");
  }
  if (options.limits.jobs) {
    throw CLI::ValidationError("--replay", "prints nothing; give --exit-after requests or a time");
  }
}

void interpret(const CLI::App& app, Options& options, const Raw& raw) {
  if (!raw.load.empty()) options.load = parseKilograms(raw.load).value();
  if (!raw.settling.empty()) options.settling = Seconds(parseDecimal(raw.settling).value());
  options.web = !raw.noWeb;
  checkNoWeb(app, raw);
  placePorts(app, options, raw);
  checkPorts(options);
  options.webAddress = webAddress(options, raw);
  if (!raw.exitAfter.empty()) options.limits = parseRunLimits(raw.exitAfter).value();
  checkReplay(options);
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
    interpret(app, options, raw);
  } catch (const CLI::ParseError& error) {
    exitCode = app.exit(error) == 0 ? 0 : kUsageError;
    return std::nullopt;
  }
  return options;
}

}  // namespace tolvex::sim
