// What the tests of tolvexctl as a program have in common.
#pragma once

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "support/child.h"
#include "support/temporary_folder.h"
#include "tools/support/simulator.h"

namespace tolvex::test {

using nlohmann::ordered_json;

/// Runs the program as a user does, with a home of its own.
class ToolTest : public ::testing::Test {
 protected:
  using Words = std::vector<std::string>;

  /// Runs tolvexctl with these words.
  Finished tolvexctl(const Words& words, const std::string& input = "",
                     const Environment& environment = {}) {
    return run(command(words), input, with(environment));
  }

  /// The same with --json. Output that is no JSON object in one piece fails the test; so does
  /// anything on standard error.
  ordered_json json(Words words, int exitCode, const std::string& input = "",
                    const Environment& environment = {}) {
    words.insert(words.begin(), "--json");
    const Finished finished = tolvexctl(words, input, environment);
    EXPECT_EQ(finished.exitCode, exitCode) << finished.out << finished.err;
    EXPECT_EQ(finished.err, "");
    ordered_json value = ordered_json::parse(finished.out, nullptr, false);
    EXPECT_TRUE(value.is_object()) << finished.out;
    return value;
  }

  static Words command(const Words& words) {
    Words all = {TOLVEXCTL};
    all.insert(all.end(), words.begin(), words.end());
    return all;
  }

  Environment with(const Environment& environment) const {
    Environment all = {{"XDG_STATE_HOME", home.path()},
                       {"LC_ALL", "C.UTF-8"},
                       {"NO_COLOR", std::nullopt},
                       {"TERM", "xterm"}};
    for (const auto& [name, value] : environment) all[name] = value;
    return all;
  }

  TemporaryFolder home;
};

/// With a simulator, whose address goes with every call.
class DeviceTest : public ToolTest {
 protected:
  Finished tolvexctl(Words words, const std::string& input = "",
                     const Environment& environment = {}) {
    return ToolTest::tolvexctl(withHost(std::move(words)), input, environment);
  }
  ordered_json json(Words words, int exitCode, const std::string& input = "",
                    const Environment& environment = {}) {
    return ToolTest::json(withHost(std::move(words)), exitCode, input, environment);
  }
  Words withHost(Words words) const {
    words.insert(words.begin(), {"--host", simulator.address()});
    return words;
  }

  Simulator simulator;
};

}  // namespace tolvex::test
