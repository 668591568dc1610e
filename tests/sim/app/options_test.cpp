#include "app/options.h"

#include <gtest/gtest.h>

#include <vector>

namespace tolvex::sim {
namespace {

struct Parsed {
  std::optional<Options> options;
  int exitCode = -1;
  std::string out;
  std::string err;
};

Parsed parse(std::vector<std::string> arguments) {
  Parsed parsed;
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  parsed.options = parseOptions(std::move(arguments), parsed.exitCode);
  parsed.out = testing::internal::GetCapturedStdout();
  parsed.err = testing::internal::GetCapturedStderr();
  return parsed;
}

// The message that refuses the arguments, without the pointer to the help that follows it.
std::string refusalOf(std::vector<std::string> arguments) {
  const Parsed parsed = parse(std::move(arguments));
  EXPECT_FALSE(parsed.options);
  EXPECT_EQ(parsed.exitCode, kUsageError);
  return parsed.err.substr(0, parsed.err.find_first_of("\r\n"));
}

TEST(SimOptions, HaveDefaults) {
  const auto options = parse({}).options;
  ASSERT_TRUE(options);
  EXPECT_EQ(options->address, "127.0.0.1");
  EXPECT_EQ(options->weighingPort, 53264);
  EXPECT_EQ(options->printingPort, 53265);
  EXPECT_TRUE(options->web);
  EXPECT_EQ(options->webAddress, "127.0.0.1");
  EXPECT_EQ(options->webPort, 53280);
  EXPECT_EQ(options->load, 0);
  EXPECT_EQ(options->settling, Seconds(1));
  EXPECT_FALSE(options->console);
  EXPECT_FALSE(options->quiet);
  EXPECT_EQ(options->paperDir, "");
  EXPECT_EQ(options->scenario, "");
  EXPECT_EQ(options->record, "");
  EXPECT_EQ(options->replay, "");
  EXPECT_FALSE(options->limits.time);
  EXPECT_FALSE(options->limits.hasCounts());
}

TEST(SimOptions, AreTakenOver) {
  const auto options =
      parse({"--address", "127.0.0.9", "--weighing-port", "0", "--printing-port", "65535", "--load",
             "-0.482", "--settling", "0.5", "--console", "--quiet", "--paper-dir", "Bons/Käse"})
          .options;
  ASSERT_TRUE(options);
  EXPECT_EQ(options->address, "127.0.0.9");
  EXPECT_EQ(options->weighingPort, 0);
  EXPECT_EQ(options->printingPort, 65535);
  EXPECT_EQ(options->load, kilograms(-0.482));
  EXPECT_EQ(options->settling, Seconds(0.5));
  EXPECT_TRUE(options->console);
  EXPECT_TRUE(options->quiet);
  EXPECT_EQ(options->paperDir, "Bons/Käse");
}

TEST(SimOptions, ForTestsAreTakenOver) {
  const auto options =
      parse({"--scenario", "Käse.json", "--record", "sale.jsonl", "--exit-after", "2jobs,1m"})
          .options;
  ASSERT_TRUE(options);
  EXPECT_EQ(options->scenario, "Käse.json");
  EXPECT_EQ(options->record, "sale.jsonl");
  EXPECT_EQ(options->limits.jobs, 2);
  EXPECT_EQ(options->limits.time, std::chrono::minutes(1));
  EXPECT_EQ(parse({"--replay", "sale.jsonl"}).options->replay, "sale.jsonl");
}

TEST(SimOptions, AReplayHasNoDevices) {
  EXPECT_EQ(refusalOf({"--replay", "a", "--scenario", "b"}),
            "zelkad-sim: --replay and --scenario: exclude each other");
  EXPECT_EQ(refusalOf({"--replay", "a", "--exit-after", "3jobs"}),
            "zelkad-sim: --replay: prints nothing; give --exit-after requests or a time");
  EXPECT_EQ(refusalOf({"--replay", "a", "--record", "b"}),
            "zelkad-sim: --replay and --record: exclude each other");
  EXPECT_TRUE(parse({"--replay", "a", "--exit-after", "3requests,1s"}).options);
}

// "WEIGHING PRINTING WEB", the latter "ADDRESS:PORT" or "no".
std::string portsOf(std::vector<std::string> arguments) {
  const auto options = parse(std::move(arguments)).options;
  if (!options) return "refused";
  const std::string web =
      options->web ? options->webAddress + ":" + std::to_string(options->webPort) : "no";
  return std::to_string(options->weighingPort) + " " + std::to_string(options->printingPort) + " " +
         web;
}

TEST(SimOptions, AllPortsMayBeAnyFreeOne) {
  EXPECT_EQ(portsOf({"--weighing-port", "0", "--printing-port", "0", "--web-port", "0"}),
            "0 0 127.0.0.1:0");
}

TEST(SimOptions, OnePortPlacesAll) {
  EXPECT_EQ(portsOf({"--port", "0"}), "0 0 127.0.0.1:0");
  EXPECT_EQ(portsOf({"--port", "6000"}), "6000 6001 127.0.0.1:6016");
  EXPECT_EQ(portsOf({"--port", "65519"}), "65519 65520 127.0.0.1:65535");
  EXPECT_EQ(portsOf({"--web-port", "0", "--port", "6000", "--printing-port", "7"}),
            "6000 7 127.0.0.1:0");
  EXPECT_EQ(portsOf({"--port", "6000", "--no-web"}), "6000 6001 no");
}

TEST(SimOptions, ThePageIsForThisMachineUnlessAskedOtherwise) {
  EXPECT_EQ(portsOf({"--address", "127.0.0.9"}), "53264 53265 127.0.0.9:53280");
  EXPECT_EQ(portsOf({"--address", "0.0.0.0"}), "53264 53265 127.0.0.1:53280");
  EXPECT_EQ(portsOf({"--address", "12.7.0.1"}), "53264 53265 127.0.0.1:53280");
  EXPECT_EQ(portsOf({"--address", "127.0.0.9", "--web-address", "0.0.0.0", "--web-port", "80"}),
            "53264 53265 0.0.0.0:80");
  EXPECT_EQ(portsOf({"--no-web"}), "53264 53265 no");
}

TEST(SimOptions, WrongValuesAreRefusedByName) {
  EXPECT_EQ(refusalOf({"--address", "localhost"}),
            "zelkad-sim: --address: \"localhost\" is no IPv4 address such as 127.0.0.1");
  EXPECT_EQ(refusalOf({"--address", "1.2.3"}),
            "zelkad-sim: --address: \"1.2.3\" is no IPv4 address such as 127.0.0.1");
  EXPECT_EQ(refusalOf({"--weighing-port", "65536"}),
            "zelkad-sim: --weighing-port: Value 65536 not in range 0 to 65535");
  EXPECT_EQ(refusalOf({"--load", "nan"}),
            "zelkad-sim: --load: \"nan\" is no number of kilograms from -1000 to 1000");
  EXPECT_EQ(refusalOf({"--load", "1001"}),
            "zelkad-sim: --load: \"1001\" is no number of kilograms from -1000 to 1000");
  EXPECT_EQ(refusalOf({"--settling", "-1"}),
            "zelkad-sim: --settling: \"-1\" is no number of seconds from 0 to 60");
  EXPECT_EQ(refusalOf({"--paper-dir", ""}),
            "zelkad-sim: --paper-dir: the name of the folder is empty");
  EXPECT_EQ(refusalOf({"--scenario", ""}), "zelkad-sim: --scenario: the name of the file is empty");
  EXPECT_EQ(refusalOf({"--exit-after", "soon"}),
            "zelkad-sim: --exit-after: \"soon\" is no end of a run such as 30s, 500ms, 2m, 3jobs, "
            "20requests, or several of them with commas, each kind once");
  EXPECT_EQ(refusalOf({"--weighing-port", "7", "--printing-port", "7"}),
            "zelkad-sim: --weighing-port and --printing-port: must differ");
}

TEST(SimOptions, WrongOnesForThePageAreRefusedByName) {
  EXPECT_EQ(refusalOf({"--web-address", "::1"}),
            "zelkad-sim: --web-address: \"::1\" is no IPv4 address such as 127.0.0.1");
  EXPECT_EQ(refusalOf({"--web-port", "-1"}),
            "zelkad-sim: --web-port: Value -1 not in range 0 to 65535");
  EXPECT_EQ(refusalOf({"--port", "65520"}),
            "zelkad-sim: --port: Value 65520 not in range 0 to 65519");
  EXPECT_EQ(refusalOf({"--web-port", "53264"}),
            "zelkad-sim: --weighing-port and --web-port: must differ");
  EXPECT_EQ(refusalOf({"--port", "6000", "--printing-port", "6016"}),
            "zelkad-sim: --printing-port and --web-port: must differ");
  EXPECT_EQ(refusalOf({"--no-web", "--web-port", "0"}),
            "zelkad-sim: --no-web and --web-port: exclude each other");
  EXPECT_EQ(refusalOf({"--no-web", "--web-address", "127.0.0.1"}),
            "zelkad-sim: --no-web and --web-address: exclude each other");
}

TEST(SimOptions, UnknownOnesAreRefused) {
  EXPECT_EQ(refusalOf({"--bogus"}), "zelkad-sim: The following argument was not expected: --bogus");
}

TEST(SimOptions, HelpShowsEveryOptionAndExamples) {
  const Parsed parsed = parse({"--help"});
  EXPECT_FALSE(parsed.options);
  EXPECT_EQ(parsed.exitCode, 0);
  for (const char* text :
       {"--address", "--weighing-port", "--printing-port", "--port", "--web-port", "--web-address",
        "--no-web", "--load", "--settling", "--paper-dir", "--scenario", "--exit-after", "--record",
        "--replay", "--console", "--quiet", "--version", "Examples:"}) {
    EXPECT_NE(parsed.out.find(text), std::string::npos) << text;
  }
}

TEST(SimOptions, VersionNamesTheProgram) {
  const Parsed parsed = parse({"--version"});
  EXPECT_FALSE(parsed.options);
  EXPECT_EQ(parsed.exitCode, 0);
  EXPECT_EQ(parsed.out.find("zelkad-sim "), 0U);
}

}  // namespace
}  // namespace tolvex::sim
