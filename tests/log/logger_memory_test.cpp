// The logger where memory runs out: records may be lost, calls neither fail nor throw, and it goes on
// as soon as there is memory again.
#include <gtest/gtest.h>

#include <string>

#include "log/nlog.h"
#include "support/heap_watch.h"
#include "support/log_lines.h"
#include "support/temporary_folder.h"

namespace tolvex {
namespace {

using test::Lines;
using test::Scarcity;

class ScarceMemory : public testing::Test {
 protected:
  ScarceMemory() { test::writeBytes(folder_.file("NLog.ini"), "DLL=6\nAModuleWithALongName=7\n"); }

  NLog* open() const { return NLog::GetInstance("till", path_.c_str()); }
  static void log(const char* text) { NLog::Log(NLog::GetInstance(), "DLL", 7, 1, "%s", text); }
  Lines records() const { return test::recordsOf(folder_.file("till_0.log")); }

  const test::TemporaryFolder folder_;
  const std::string path_ = folder_.path();
};

TEST_F(ScarceMemory, LeavesTheProcessWithoutALoggerUntilThereIsSome) {
  std::size_t failures = 0;
  for (NLog* logger = nullptr; logger == nullptr; ++failures) {
    const Scarcity scarcity(failures);
    logger = open();
  }
  EXPECT_GT(failures, 1U);
  log("a");
  EXPECT_EQ(records(), (Lines{"[E] L:001 M:DLL a"}));
}

TEST_F(ScarceMemory, DropsRecordsOfALoggerThatIsNotThereYet) {
  {
    const Scarcity scarcity(0);
    NLog::Log(nullptr, "DLL", 7, 1, "lost");
  }
  {
    const std::string text = "lost";
    const Scarcity scarcity(0);
    NLog::LogString(nullptr, "DLL", 7, 1, text);
  }
  open();
  log("kept");
  EXPECT_EQ(records(), (Lines{"[E] L:001 M:DLL kept"}));
}

TEST_F(ScarceMemory, LosesARecordWhoseFileHasNoNameAndOpensItForTheNext) {
  open();
  {
    const Scarcity scarcity(0);
    log("lost");
  }
  log("kept");
  EXPECT_EQ(records(), (Lines{"[E] L:001 M:DLL kept"}));
}

TEST_F(ScarceMemory, TakesAnUnknownModulesThresholdForTheDefault) {
  NLog* const logger = open();
  {
    const Scarcity scarcity(0);
    EXPECT_EQ(logger->GetModuleLevel("Another"), 5);
  }
  EXPECT_EQ(logger->GetModuleLevel("Another"), 5);
}

TEST_F(ScarceMemory, LeavesAModuleTheThresholdThatItHad) {
  NLog* const logger = open();
  {
    const Scarcity scarcity(0);
    logger->SetModuleLevel("Another", 3);
  }
  EXPECT_EQ(logger->GetModuleLevel("Another"), 5);
  EXPECT_EQ(logger->GetModuleLevel("DLL"), 6);
}

TEST_F(ScarceMemory, KeepsTheNameWhereANewOneDoesNotFit) {
  NLog* const logger = open();
  const std::string longer(100, 'x');
  {
    const Scarcity scarcity(0);
    EXPECT_EQ(NLog::GetInstance(longer.c_str(), nullptr), logger);
  }
  log("a");
  EXPECT_EQ(records(), (Lines{"[E] L:001 M:DLL a"}));
}

}  // namespace
}  // namespace tolvex
