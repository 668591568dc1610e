#include "app/simulator.h"

#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/api_call.h"
#include "app/automation.h"
#include "app/exchange_line.h"
#include "app/job_keeper.h"
#include "app/listen_advice.h"
#include "app/picture_files.h"
#include "app/start_state.h"
#include "base/embedded_file.h"
#include "console/input_reader.h"
#include "console/operator_console.h"
#include "control/api.h"
#include "control/simulation.h"
#include "exchange/exchanger.h"
#include "exchange/service_answerer.h"
#include "net/http_access.h"
#include "net/page_site.h"
#include "net/server.h"
#include "protocol/service.h"

namespace tolvex::sim {

namespace {

// Flushed line by line: whoever started the program waits for "ready" and reads along.
void printLine(const std::string& line) { std::cout << line << std::endl; }

void say(const std::string& text) { printLine("zelkad-sim: " + text); }

void warn(const std::string& text) { std::cerr << "zelkad-sim: " << text << std::endl; }

std::vector<std::string> namesOf(const Printers& printers) {
  std::vector<std::string> names;
  for (const Printer& printer : printers.all()) names.push_back(printer.name());
  return names;
}

// One run, with all its parts. Each part refers to those above it only; what reaches the server
// from above is called while it runs.
class Run {
 public:
  explicit Run(const Options& options);

  /// Serves until it is to end, and returns the exit status.
  int serve();

 private:
  Api::World apiWorld();
  Automation::World automationWorld();
  void restore(TimePoint now);
  void listenToChanges();
  void openPorts();
  void keepJobs();
  std::uint16_t open(Half half, std::uint16_t port);
  void readConsole();

  const Options& options_;
  StartState start_;
  Simulation simulation_;
  Service service_;
  ServiceAnswerer devicesAnswer_;
  Api api_;
  Automation automation_;
  Exchanger exchanger_;
  PageSite site_;
  std::optional<JobKeeper> keeper_;
  Server server_;
  OperatorConsole console_;
  std::unique_ptr<InputReader> reader_;
};

Run::Run(const Options& options)
    : options_(options),
      start_(options),
      simulation_(start_.scale(), options.load),
      service_(simulation_.devices,
               [](const std::string& path) { return loadPicture(path, warn); }),
      devicesAnswer_(service_),
      api_(simulation_, apiWorld()),
      automation_(options, start_, automationWorld()),
      exchanger_(automation_.answerer() ? *automation_.answerer() : devicesAnswer_,
                 simulation_.faults, simulation_.traffic, simulation_.devices.printers.jobs()),
      site_(embeddedFiles(), api_),
      server_(exchanger_, {warn}),
      console_(simulation_.devices, simulation_.faults, [this] { server_.stop(); }) {
  simulation_.restore = [this](TimePoint now) { restore(now); };
  simulation_.restoreOther = [this](Simulation& other, TimePoint now) {
    start_.restore(other, now);
  };
}

Api::World Run::apiWorld() {
  Api::World world;
  world.after = [this](std::chrono::milliseconds delay, std::function<void()> function) {
    server_.after(delay, std::move(function));
  };
  const EmbeddedFile* openApi = findEmbeddedFile("control/openapi.json");
  if (openApi != nullptr) world.openApi = openApi->bytes;
  return world;
}

Automation::World Run::automationWorld() {
  Automation::World world;
  world.call = [this](const ApiCall& call) { return callApi(api_, call); };
  world.post = [this](std::function<void()> function) { server_.post(std::move(function)); };
  world.after = [this](std::chrono::milliseconds time, std::function<void()> function) {
    server_.after(time, std::move(function));
  };
  world.stop = [this] { server_.stop(); };
  world.say = say;
  world.warn = warn;
  return world;
}

// What was printed is gone, on disk as well, and what is being printed with it.
void Run::restore(TimePoint now) {
  if (keeper_) keeper_->restart();
  start_.restore(simulation_, now);
  server_.dropWaiting();
  service_.restore();
  automation_.restored();
}

// Viewers learn at once of what clients and the operator do.
void Run::listenToChanges() {
  if (!options_.quiet) {
    exchanger_.observe([](const Exchange& exchange) { printLine(exchangeLine(exchange)); });
  }
  simulation_.devices.printers.jobs().listen([this](const Job&) { server_.wakeFeeds(); });
  simulation_.traffic.listen([this](const TrafficEntry&) { server_.wakeFeeds(); });
  simulation_.faults.listen([this] { server_.wakeFeeds(); });
}

std::uint16_t Run::open(Half half, std::uint16_t port) {
  const std::uint16_t opened = server_.listen(half, options_.address, port);
  say(std::string(name(half)) + " on " + options_.address + ":" + std::to_string(opened));
  return opened;
}

void Run::openPorts() {
  Ports& ports = simulation_.ports;
  ports.address = options_.address;
  ports.weighing = open(Half::Weighing, options_.weighingPort);
  ports.printing = open(Half::Printing, options_.printingPort);
  if (!options_.web) return;
  ports.webAddress = options_.webAddress;
  ports.web = server_.serveWeb(options_.webAddress, options_.webPort, site_);
  say("page on " + pageAddress({ports.webAddress, ports.web}));
}

// The files of an earlier run make way only now: while the ports were not open, they may have been
// those of a simulator that has them and is still running.
void Run::keepJobs() {
  keeper_.emplace(options_.paperDir, namesOf(simulation_.devices.printers),
                  options_.quiet ? JobKeeper::Tell() : say, warn);
  simulation_.devices.printers.jobs().listen([this](const Job& job) { keeper_->changed(job); });
}

void Run::readConsole() {
  reader_ = std::make_unique<InputReader>([this](std::string line) {
    server_.post([this, line = std::move(line)] {
      const std::string answer = console_.execute(line, Clock::now());
      if (!answer.empty()) printLine(answer);
    });
  });
}

int Run::serve() {
  server_.stopOnSignals();
  listenToChanges();
  automation_.attach(simulation_, exchanger_);
  openPorts();
  keepJobs();
  if (options_.console) readConsole();
  automation_.start();
  say("ready");
  server_.run();
  const int status = automation_.finish();
  simulation_.devices.printers.endJobs();
  return status;
}

}  // namespace

int runSimulator(const Options& options) {
  try {
    const int status = Run(options).serve();
    say("stopped");
    return status;
  } catch (const ListenError& error) {
    warn(error.what() + adviceOn(error));
    return 1;
  } catch (const UnusableFile& error) {
    warn(error.what());
    return kUsageError;
  }
}

}  // namespace tolvex::sim
