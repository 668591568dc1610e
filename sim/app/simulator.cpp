#include "app/simulator.h"

#include <iostream>
#include <memory>
#include <string>
#include <utility>

#include "base/printable.h"
#include "console/input_reader.h"
#include "console/operator_console.h"
#include "devices/scale.h"
#include "net/server.h"
#include "protocol/service.h"

namespace tolvex::sim {

namespace {

constexpr std::size_t kMaxLoggedBytes = 400;

// Flushed line by line: whoever started the program waits for "ready" and reads along.
void printLine(const std::string& line) { std::cout << line << std::endl; }

void say(const std::string& text) { printLine("zelkad-sim: " + text); }

void warn(const std::string& text) { std::cerr << "zelkad-sim: " << text << std::endl; }

void logExchange(Half half, const std::string& client, const Exchange& exchange) {
  printLine(std::string(name(half)) + " " + client + " " +
            printable(exchange.request, kMaxLoggedBytes) + " -> " +
            printable(exchange.reply, kMaxLoggedBytes));
}

std::string advice(const ListenError& error) {
  const std::string otherPort = std::string("choose another port with --") + name(error.half()) +
                                "-port or another address with --address";
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

Scale makeScale(const Options& options) {
  ScaleConfig config;
  setSettling(config, options.settling);
  return Scale(config, options.load);
}

ServerEvents makeEvents(bool quiet) {
  ServerEvents events;
  if (!quiet) events.exchanged = logExchange;
  events.troubled = warn;
  return events;
}

void openPort(Server& server, Half half, const std::string& address, std::uint16_t port) {
  const std::uint16_t opened = server.listen(half, address, port);
  say(std::string(name(half)) + " on " + address + ":" + std::to_string(opened));
}

void serve(const Options& options) {
  Scale scale = makeScale(options);
  Service service(scale);
  Server server(service, makeEvents(options.quiet));
  server.stopOnSignals();
  openPort(server, Half::Weighing, options.address, options.weighingPort);
  openPort(server, Half::Printing, options.address, options.printingPort);

  OperatorConsole console(scale, [&server] { server.stop(); });
  std::unique_ptr<InputReader> reader;
  if (options.console) {
    reader = std::make_unique<InputReader>([&](std::string line) {
      server.post([&console, line = std::move(line)] {
        const std::string answer = console.execute(line, Clock::now());
        if (!answer.empty()) printLine(answer);
      });
    });
  }
  say("ready");
  server.run();
}

}  // namespace

int runSimulator(const Options& options) {
  try {
    serve(options);
  } catch (const ListenError& error) {
    warn(error.what() + advice(error));
    return 1;
  }
  say("stopped");
  return 0;
}

}  // namespace tolvex::sim
