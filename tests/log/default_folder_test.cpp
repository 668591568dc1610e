#include <gtest/gtest.h>

#include "log/nlog.h"
#include "support/log_lines.h"
#include "support/os_support.h"
#include "support/temporary_folder.h"

namespace tolvex {
namespace {

using test::Lines;

// What the logger does before anybody has told it a folder. The folder is one for the whole machine
// on some systems, so these tests do not run side by side.
class DefaultFolder : public testing::Test {
 protected:
  DefaultFolder() : path_(test::emptyDefaultLogFolder(parent_.path())) {
    test::writeBytes(path_ + "NLog.ini", "DLL=6\n");
  }

  Lines records(const char* file) const { return test::recordsOf(path_ + file); }

  const test::TemporaryFolder parent_;
  const std::string path_;
};

TEST_F(DefaultFolder, HoldsTheLogOfALoggerNobodyNamed) {
  NLog::Log(NLog::GetInstance(), "DLL", 7, 1, "early");
  EXPECT_EQ(records("NLog_0.log"), (Lines{"[E] L:001 M:DLL early"}));
}

TEST_F(DefaultFolder, HoldsItsConfiguration) {
  EXPECT_EQ(NLog::GetInstance()->GetModuleLevel("DLL"), 6);
}

TEST_F(DefaultFolder, IsUsedByARecordWithoutALogger) {
  NLog::Log(nullptr, "DLL", 7, 1, "early");
  EXPECT_EQ(records("NLog_0.log"), (Lines{"[E] L:001 M:DLL early"}));
}

TEST_F(DefaultFolder, IsUsedByALongTextWithoutALogger) {
  NLog::LogString(nullptr, "DLL", 7, 1, "early");
  const Lines found = records("NLog_0.log");
  EXPECT_EQ(found, (Lines{"[E] L:001 M:DLL ", "early"}));
}

TEST_F(DefaultFolder, IsUsedWhenOnlyANameIsGiven) {
  NLog::GetInstance("till", nullptr);
  NLog::Log(NLog::GetInstance(), "DLL", 7, 1, "a");
  EXPECT_EQ(records("till_0.log"), (Lines{"[E] L:001 M:DLL a"}));
}

TEST_F(DefaultFolder, StaysWhenTheLibraryNamesAnother) {
  NLog::GetInstance();
  NLog::GetInstance("DLL", parent_.path().c_str());
  NLog::Log(NLog::GetInstance(), "DLL", 7, 1, "a");
  EXPECT_EQ(records("DLL_0.log"), (Lines{"[E] L:001 M:DLL a"}));
  EXPECT_FALSE(test::exists(parent_.file("DLL_0.log")));
}

TEST_F(DefaultFolder, KeepsTheOpenFileWhenTheLibraryNamesAnother) {
  NLog::Log(NLog::GetInstance(), "DLL", 7, 1, "a");
  NLog::GetInstance("DLL", parent_.path().c_str());
  NLog::Log(NLog::GetInstance(), "DLL", 7, 1, "b");
  EXPECT_EQ(records("NLog_0.log"), (Lines{"[E] L:001 M:DLL a", "[E] L:001 M:DLL b"}));
  EXPECT_FALSE(test::exists(path_ + "DLL_0.log"));
}

}  // namespace
}  // namespace tolvex
