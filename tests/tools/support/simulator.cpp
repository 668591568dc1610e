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

// "ok job 1 on Ticket, 2 lines", and then those.
std::vector<std::string> Simulator::paper(const std::string& printer) {
  const std::string answer = type("paper " + printer);
  const std::size_t comma = answer.find(", ");
  if (comma == std::string::npos) return {};
  std::vector<std::string> lines;
  for (int count = std::stoi(answer.substr(comma + 2)); count > 0; --count) {
    lines.push_back(child_.readLine().value_or("nothing"));
  }
  return lines;
}

}  // namespace tolvex::test
