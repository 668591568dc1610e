// What becomes of the library when memory or another resource of the system runs out.
// usage: scarce memory|system-calls LIBRARY [--share]
#include <cstdio>
#include <exception>
#include <string>

#include "torture/scarce/report.h"
#include "torture/scarce/runs.h"

int main(int count, char** arguments) {
  using namespace tolvex::test;
  const std::string command = count > 2 ? arguments[1] : "";
  const bool full = count == 3;
  if ((command != "memory" && command != "system-calls") ||
      (!full && (count != 4 || std::string(arguments[3]) != "--share"))) {
    std::fprintf(stderr, "usage: scarce memory|system-calls LIBRARY [--share]\n");
    return 2;
  }
  try {
    report().keepOutput("library-output.txt");
    return command == "memory" ? runMemory(arguments[2], full) : runSystemCalls(arguments[2], full);
  } catch (const std::exception& failure) {
    report().say(std::string("scarce: ") + failure.what());
    return 1;
  }
}
