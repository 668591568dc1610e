#include <thread>
#include <vector>

#include "log/logger_test.h"

namespace tolvex {
namespace {

using test::Lines;

class Instance : public test::LoggerTest {
 protected:
  // Makes the logger close its file with the next record.
  void fillFile(unsigned index) const { test::makeFileOfSize(file(index), 5242880); }
};

TEST_F(Instance, IsOneForTheProcess) {
  NLog* const instance = open();
  EXPECT_EQ(NLog::GetInstance(), instance);
  EXPECT_EQ(NLog::GetInstance("other", "elsewhere/"), instance);
  EXPECT_EQ(NLog::GetInstance(nullptr, nullptr), instance);
}

TEST_F(Instance, WritesToTheFolderAndNameItWasMadeWith) {
  NLog::GetInstance("till", folder_.path().c_str());
  log("a");
  EXPECT_EQ(test::linesOf(folder_.file("till_0.log")), (Lines{record("a")}));
}

TEST_F(Instance, NamesItsFilesNLogWithoutAName) {
  NLog::GetInstance(nullptr, folder_.path().c_str());
  log("a");
  EXPECT_EQ(test::linesOf(folder_.file("NLog_0.log")), (Lines{record("a")}));
}

TEST_F(Instance, NamesItsFilesNLogForAnEmptyName) {
  NLog::GetInstance("", folder_.path().c_str());
  log("a");
  EXPECT_EQ(test::linesOf(folder_.file("NLog_0.log")), (Lines{record("a")}));
}

TEST_F(Instance, TakesANewName) {
  open();
  NLog::GetInstance("other", nullptr);
  log("a");
  EXPECT_EQ(test::linesOf(folder_.file("other_0.log")), (Lines{record("a")}));
  EXPECT_FALSE(test::exists(file(0)));
}

TEST_F(Instance, TakesAnEmptyNameAsNLog) {
  open();
  NLog::GetInstance("", nullptr);
  log("a");
  EXPECT_EQ(test::linesOf(folder_.file("NLog_0.log")), (Lines{record("a")}));
}

TEST_F(Instance, KeepsItsNameWhenNoneIsGiven) {
  open();
  NLog::GetInstance(nullptr, nullptr);
  log("a");
  EXPECT_EQ(lines(), (Lines{record("a")}));
}

TEST_F(Instance, KeepsItsFolder) {
  open();
  const test::TemporaryFolder other;
  NLog::GetInstance("DLL", other.path().c_str());
  log("a");
  EXPECT_EQ(lines(), (Lines{record("a")}));
  EXPECT_FALSE(test::exists(other.file("DLL_0.log")));
}

TEST_F(Instance, KeepsItsOpenFileUnderANewName) {
  open();
  log("a");
  NLog::GetInstance("other", nullptr);
  log("b");
  EXPECT_EQ(lines(), (Lines{record("a"), record("b")}));
  EXPECT_FALSE(test::exists(folder_.file("other_0.log")));
}

TEST_F(Instance, UsesANewNameForTheNextFileItOpens) {
  fillFile(0);
  open();
  test::writeBytes(folder_.file("other_0.log"), "");
  NLog::GetInstance("DLL", nullptr);
  log("takes DLL_0 past its size");
  NLog::GetInstance("other", nullptr);
  log("b");
  EXPECT_EQ(test::linesOf(folder_.file("other_0.log")), (Lines{record("b")}));
}

TEST_F(Instance, KeepsItsThresholdsUnderANewName) {
  open()->SetModuleLevel("DLL", 2);
  EXPECT_EQ(NLog::GetInstance("other", nullptr)->GetModuleLevel("DLL"), 2);
}

TEST_F(Instance, AddsASlashToAFolderWithoutSeparator) {
  const std::string path = folder_.path().substr(0, folder_.path().size() - 1);
  NLog::GetInstance("DLL", path.c_str());
  log("a");
  EXPECT_EQ(lines(), (Lines{record("a")}));
}

TEST_F(Instance, SaysTheFolderWithOneSlash) {
  const std::string path = folder_.path().substr(0, folder_.path().size() - 1);
  NLog::GetInstance("DLL", path.c_str());
  EXPECT_EQ(printedBy([] { log("a"); }), "NLog::OpenFile: " + path + "/DLL_0.log Succ\n");
}

TEST_F(Instance, AddsNothingToAFolderThatEndsInABackslash) {
  const std::string path = folder_.path() + "sub\\";
  test::makeFolder(folder_.file("sub"));
  test::writeBytes(path + "NLog.ini", "");
  NLog::GetInstance("DLL", path.c_str());
  EXPECT_EQ(printedBy([] { log("a"); }), "NLog::OpenFile: " + path + "DLL_0.log Succ\n");
  EXPECT_EQ(test::linesOf(path + "DLL_0.log"), (Lines{record("a")}));
}

TEST_F(Instance, AddsASlashToAFolderThatEndsInADot) {
  const std::string path = folder_.path() + ".";
  NLog::GetInstance("DLL", path.c_str());
  EXPECT_EQ(printedBy([] { log("a"); }), "NLog::OpenFile: " + path + "/DLL_0.log Succ\n");
}

TEST_F(Instance, IsOneForThreadsThatAskTogether) {
  std::vector<NLog*> found(8);
  std::vector<std::thread> threads;
  for (NLog*& instance : found) {
    threads.emplace_back([this, &instance] { instance = open(); });
  }
  for (std::thread& thread : threads) thread.join();
  for (NLog* const instance : found) EXPECT_EQ(instance, NLog::GetInstance());
}

}  // namespace
}  // namespace tolvex
