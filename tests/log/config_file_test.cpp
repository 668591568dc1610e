#include "log/logger_test.h"

namespace tolvex {
namespace {

using test::Lines;

class ConfigFile : public test::LoggerTest {
 protected:
  int levelOf(const char* module) const { return open()->GetModuleLevel(module); }
};

TEST_F(ConfigFile, StoresItsThresholds) {
  configure("; levels\n[section]\nDLL=2\n\n# more\nkey =  4 \nSocket=7\n");
  EXPECT_EQ(levelOf("DLL"), 2);
  EXPECT_EQ(levelOf("key"), 4);
  EXPECT_EQ(levelOf("Socket"), 7);
  EXPECT_EQ(levelOf("NLog"), 3);
  EXPECT_EQ(levelOf("section"), 5);
}

TEST_F(ConfigFile, MayHaveLinesThatEndInCrLf) {
  configure("DLL=2\r\nSocket=7\r\n");
  EXPECT_EQ(levelOf("DLL"), 2);
  EXPECT_EQ(levelOf("Socket"), 7);
}

TEST_F(ConfigFile, NeedsNoLineEndAfterItsLastLine) {
  configure("DLL=2\nSocket=7");
  EXPECT_EQ(levelOf("Socket"), 7);
}

TEST_F(ConfigFile, MayBeginWithAByteOrderMark) {
  configure(
      "\xEF\xBB\xBF"
      "DLL=2\n");
  EXPECT_EQ(levelOf("DLL"), 2);
}

TEST_F(ConfigFile, MayHoldAByteOrderMarkOnALaterLine) {
  configure("DLL=2\n\xEF\xBB\xBFSocket=7\n");
  EXPECT_EQ(levelOf("Socket"), 7);
}

TEST_F(ConfigFile, LaterLineOverridesAnEarlierOne) {
  configure("DLL=2\nDLL=7\n");
  EXPECT_EQ(levelOf("DLL"), 7);
}

TEST_F(ConfigFile, SectionsShareOneNameSpace) {
  configure("[a]\nDLL=2\n[b]\nDLL=4\n");
  EXPECT_EQ(levelOf("DLL"), 4);
}

TEST_F(ConfigFile, ZeroIsIgnored) {
  configure("DLL=0\n");
  EXPECT_EQ(levelOf("DLL"), 5);
}

TEST_F(ConfigFile, ZeroLeavesAnEarlierLevel) {
  configure("DLL=2\nDLL=0\n");
  EXPECT_EQ(levelOf("DLL"), 2);
}

TEST_F(ConfigFile, FiveLeavesTheLoggersOwnThresholdAt3) {
  configure("NLog=5\n");
  EXPECT_EQ(levelOf("NLog"), 3);
}

TEST_F(ConfigFile, FiveLeavesAnEarlierLevel) {
  configure("DLL=2\nDLL=5\n");
  EXPECT_EQ(levelOf("DLL"), 2);
}

TEST_F(ConfigFile, SetsTheLoggersOwnThreshold) {
  configure("NLog=6\n");
  EXPECT_EQ(levelOf("NLog"), 6);
}

TEST_F(ConfigFile, NegativeLevelLetsEveryRecordThrough) {
  configure("DLL=-1\n");
  NLog::Log(open(), "DLL", 1, 7, "least of all");
  EXPECT_EQ(lines(), (Lines{test::kClockStamp + std::string("[V] L:007 M:DLL least of all")}));
}

TEST_F(ConfigFile, TurnsTheTrafficRecordsOn) {
  configure("DLL=2\n");
  NLog::Log(open(), "DLL", 2, 7, "traffic");
  EXPECT_EQ(lines(), (Lines{test::kClockStamp + std::string("[D] L:007 M:DLL traffic")}));
}

TEST_F(ConfigFile, LinesThatSayNothingArePassedOverSilently) {
  configure("nonsense\n=\nDLL\nDLL=\n=4\nDLL=9\n\n[x\n");
  open();
  log("first");
  EXPECT_EQ(lines(), (Lines{record("first")}));
}

TEST_F(ConfigFile, LargerThanOneBlockIsReadWhole) {
  configure(std::string(10000, ';') + "\nDLL=2\n");
  EXPECT_EQ(levelOf("DLL"), 2);
}

TEST_F(ConfigFile, IsReadOnce) {
  configure("DLL=2\n");
  open();
  configure("DLL=7\n");
  NLog::GetInstance("other", folder_.path().c_str());
  EXPECT_EQ(levelOf("DLL"), 2);
}

TEST_F(ConfigFile, ThatIsMissingIsLogged) {
  configureNothing();
  open();
  EXPECT_EQ(lines(),
            (Lines{test::kClockStamp +
                   ("[I] L:088 M:NLog [NLog] No config file in: " + folder_.path() + "NLog.ini")}));
}

TEST_F(ConfigFile, ThatIsMissingIsLoggedOnce) {
  configureNothing();
  open();
  open();
  log("later");
  EXPECT_EQ(lines().size(), 2u);
  EXPECT_EQ(lines().back(), record("later"));
}

TEST_F(ConfigFile, ThatIsMissingLeavesTheDefaults) {
  configureNothing();
  EXPECT_EQ(levelOf("NLog"), 3);
  EXPECT_EQ(levelOf("DLL"), 5);
}

TEST_F(ConfigFile, FolderInItsPlaceCountsAsMissing) {
  configureNothing();
  test::makeFolder(folder_.file("NLog.ini"));
  open();
  EXPECT_EQ(lines(),
            (Lines{test::kClockStamp +
                   ("[I] L:088 M:NLog [NLog] No config file in: " + folder_.path() + "NLog.ini")}));
}

}  // namespace
}  // namespace tolvex
