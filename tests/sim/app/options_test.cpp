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
  EXPECT_EQ(options->load, 0);
  EXPECT_EQ(options->settling, Seconds(1));
  EXPECT_FALSE(options->console);
  EXPECT_FALSE(options->quiet);
  EXPECT_EQ(options->paperDir, "");
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

TEST(SimOptions, BothPortsMayBeAnyFreeOne) {
  EXPECT_TRUE(parse({"--weighing-port", "0", "--printing-port", "0"}).options);
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
  EXPECT_EQ(refusalOf({"--weighing-port", "7", "--printing-port", "7"}),
            "zelkad-sim: --weighing-port and --printing-port: must differ");
}

TEST(SimOptions, UnknownOnesAreRefused) {
  EXPECT_EQ(refusalOf({"--bogus"}), "zelkad-sim: The following argument was not expected: --bogus");
}

TEST(SimOptions, HelpShowsEveryOptionAndExamples) {
  const Parsed parsed = parse({"--help"});
  EXPECT_FALSE(parsed.options);
  EXPECT_EQ(parsed.exitCode, 0);
  for (const char* text :
       {"--address", "--weighing-port", "--printing-port", "--load", "--settling", "--paper-dir",
        "--console", "--quiet", "--version", "Examples:"}) {
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
