// zelkad-sim: a stand-in for the local service that drives the scale and the printers.
#include <exception>
#include <iostream>

#include "app/options.h"
#include "app/simulator.h"
#include "platform/platform.h"

int main(int argc, char** argv) {
  try {
    tolvex::sim::platform::surviveClosedOutput();
    int exitCode = 0;
    const auto options =
        tolvex::sim::parseOptions(tolvex::sim::platform::arguments(argc, argv), exitCode);
    return options ? tolvex::sim::runSimulator(*options) : exitCode;
  } catch (const std::exception& error) {
    std::cerr << "zelkad-sim: " << error.what() << std::endl;
    return 1;
  }
}
