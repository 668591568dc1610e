#include "app/simulator.h"

#include <functional>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/api_call.h"
#include "app/automation.h"
#include "app/exchange_line.h"
#include "app/job_announcer.h"
#include "app/paper_files.h"
#include "app/picture_files.h"
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

void logExchange(const Exchange& exchange) { printLine(exchangeLine(exchange)); }

std::string webAdvice(const ListenError& error) {
  const std::string without = ", or do without the page with --no-web.";
  if (error.failure() == ListenFailure::NoSuchAddress) {
    return ". Choose an address of this machine with --web-address" + without;
  }
  return ". Is another zelkad-sim running? Stop it, choose another port with --web-port" + without;
}

std::string advice(const ListenError& error) {
  if (error.portName() == "web") return webAdvice(error);
  const std::string otherPort =
      "choose another port with --" + error.portName() + "-port or another address with --address";
  switch (error.failure()) {
    case ListenFailure::InUse:
      return ". Is another zelkad or zelkad-sim running? Stop it, or " + otherPort + ".";
    case ListenFailure::NoSuchAddress:
      return ". Choose an address of this machine with --address.";
    case ListenFailure::Denied:
    case ListenFailure::Other:
      break;
  }
  return ". Is another zelkad or zelkad-sim running, or is the port reserved? Stop it, or " +
         otherPort + ".";
}

ScaleConfig scaleConfig(const Options& options) {
  ScaleConfig config;
  setSettling(config, options.settling);
  return config;
}

std::uint16_t openPort(Server& server, Half half, const std::string& address, std::uint16_t port) {
  const std::uint16_t opened = server.listen(half, address, port);
  say(std::string(name(half)) + " on " + address + ":" + std::to_string(opened));
  return opened;
}

std::vector<std::string> namesOf(const Printers& printers) {
  std::vector<std::string> names;
  for (const Printer& printer : printers.all()) names.push_back(printer.name());
  return names;
}

// Finished jobs are kept and announced, and again when the paper is fed or cut after that.
class JobKeeper {
 public:
  JobKeeper(const Options& options, const Printers& printers) : quiet_(options.quiet) {
    if (!options.paperDir.empty()) files_.emplace(options.paperDir, namesOf(printers), warn);
  }

  void keep(const Job& job) {
    if (!job.isFinished()) return;
    const std::string file = files_ ? files_->save(job) : "";
    const std::string announcement = announcer_.announce(job);
    if (!quiet_) say(announcement + (file.empty() ? "" : ": " + file));
  }

 private:
  std::optional<PaperFiles> files_;
  JobAnnouncer announcer_;
  bool quiet_;
};

// What a reset brings back.
void restore(Simulation& simulation, const Options& options) {
  simulation.devices.restore(scaleConfig(options), options.load);
  simulation.faults.clear();
  simulation.traffic.restart();
}

// What the API needs of the world. The server may be made later, before it serves.
Api::World worldOf(Server*& server) {
  Api::World world;
  world.after = [&server](std::chrono::milliseconds delay, std::function<void()> function) {
    server->after(delay, std::move(function));
  };
  const EmbeddedFile* openApi = findEmbeddedFile("control/openapi.json");
  if (openApi != nullptr) world.openApi = openApi->bytes;
  return world;
}

void openPage(Server& server, const Options& options, WebSite& site, Ports& ports) {
  if (!options.web) return;
  ports.webAddress = options.webAddress;
  ports.web = server.serveWeb(options.webAddress, options.webPort, site);
  say("page on " + pageAddress({ports.webAddress, ports.web}));
}

// Viewers learn at once of what clients and the operator do.
void wakeFeedsOnChange(Server& server, Simulation& simulation) {
  simulation.devices.printers.jobs().listen([&server](const Job&) { server.wakeFeeds(); });
  simulation.traffic.listen([&server](const TrafficEntry&) { server.wakeFeeds(); });
  simulation.faults.listen([&server] { server.wakeFeeds(); });
}

// What scenario, limits and replay need of the world; the server as above.
Automation::World automationWorldOf(Server*& server, CallApi call) {
  Automation::World world;
  world.call = std::move(call);
  world.post = [&server](std::function<void()> function) { server->post(std::move(function)); };
  world.after = [&server](std::chrono::milliseconds time, std::function<void()> function) {
    server->after(time, std::move(function));
  };
  world.stop = [&server] { server->stop(); };
  world.say = [](const std::string& text) { say(text); };
  world.warn = warn;
  return world;
}

// Calls on devices that nobody uses, as they are at the start.
CallApi trialCalls(const Options& options) {
  struct Trial {
    explicit Trial(const Options& options)
        : simulation(scaleConfig(options), options.load), api(simulation, {}) {}
    Simulation simulation;
    Api api;
  };
  return [trial = std::make_shared<Trial>(options)](const ApiCall& call) {
    return callApi(trial->api, call);
  };
}

int serve(const Options& options) {
  Simulation simulation(scaleConfig(options), options.load);
  simulation.restore = [&](TimePoint) { restore(simulation, options); };
  Devices& devices = simulation.devices;
  Service service(devices, [](const std::string& path) { return loadPicture(path, warn); });
  ServiceAnswerer devicesAnswerer(service);
  Server* served = nullptr;
  Api api(simulation, worldOf(served));
  const auto call = [&api](const ApiCall& wanted) { return callApi(api, wanted); };
  Automation automation(options, trialCalls(options), automationWorldOf(served, call));
  Answerer& answerer = automation.answerer() ? *automation.answerer() : devicesAnswerer;
  Exchanger exchanger(answerer, simulation.faults, simulation.traffic, devices.printers.jobs());
  if (!options.quiet) exchanger.observe(logExchange);
  PageSite site(embeddedFiles(), api);
  Server server(exchanger, {warn});
  served = &server;
  server.stopOnSignals();
  automation.attach(simulation, exchanger);
  Ports& ports = simulation.ports;
  ports.address = options.address;
  ports.weighing = openPort(server, Half::Weighing, options.address, options.weighingPort);
  ports.printing = openPort(server, Half::Printing, options.address, options.printingPort);
  openPage(server, options, site, ports);

  JobKeeper keeper(options, devices.printers);
  devices.printers.jobs().listen([&keeper](const Job& job) { keeper.keep(job); });
  wakeFeedsOnChange(server, simulation);
  OperatorConsole console(devices, simulation.faults, [&server] { server.stop(); });
  std::unique_ptr<InputReader> reader;
  if (options.console) {
    reader = std::make_unique<InputReader>([&](std::string line) {
      server.post([&console, line = std::move(line)] {
        const std::string answer = console.execute(line, Clock::now());
        if (!answer.empty()) printLine(answer);
      });
    });
  }
  automation.start();
  say("ready");
  server.run();
  const int status = automation.finish();
  devices.printers.endJobs();
  return status;
}

}  // namespace

int runSimulator(const Options& options) {
  try {
    const int status = serve(options);
    say("stopped");
    return status;
  } catch (const ListenError& error) {
    warn(error.what() + advice(error));
    return 1;
  } catch (const UnusableFile& error) {
    warn(error.what());
    return kUsageError;
  }
}

}  // namespace tolvex::sim
