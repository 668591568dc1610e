#include "tools/support/simulator.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "support/os_support.h"

namespace tolvex::test {
namespace {

// A program under Wine may have the number that a native one has.
#ifdef _WIN32
constexpr int kAddressBlock = 76;
#else
constexpr int kAddressBlock = 71;
#endif

std::vector<std::string> commandLine(const std::string& address,
                                     const std::vector<std::string>& options) {
  std::vector<std::string> words = {ZELKAD_SIM, "--address", address,      "--no-web",
                                    "--quiet",  "--console", "--settling", "0"};
  words.insert(words.end(), options.begin(), options.end());
  return words;
}

}  // namespace

std::string ownAddress() {
  const unsigned long id = processId();
  return "127." + std::to_string(kAddressBlock) + "." + std::to_string(1 + id / 250 % 250) + "." +
         std::to_string(1 + id % 250);
}

Simulator::Simulator(const std::vector<std::string>& options)
    : address_(ownAddress()), child_(commandLine(address_, options)) {
  for (;;) {
    const auto line = child_.readLine();
    if (!line) throw std::runtime_error("zelkad-sim does not come up: " + child_.finish().err);
    if (*line == "zelkad-sim: ready") return;
  }
}

Simulator::~Simulator() { child_.kill(); }

std::string Simulator::type(const std::string& line) {
  child_.write(line + "\n");
  const std::string answer = child_.readLine().value_or("nothing");
  EXPECT_EQ(answer.substr(0, 2), "ok") << line << ": " << answer;
  return answer;
}

}  // namespace tolvex::test
