#include <limits>

#include "log/logger_test.h"

namespace tolvex {
namespace {

class ModuleThreshold : public test::LoggerTest {
 protected:
  // Whether a record of the module and level reaches the file. Another one is always written, so
  // that there is a file.
  bool passes(const char* module, int level) const {
    NLog::Log(open(), module, level, 1, "wanted");
    NLog::Log(open(), "NLog", 7, 1, "always");
    const test::Lines found = lines();
    EXPECT_EQ(found.back(), test::kClockStamp + std::string("[E] L:001 M:NLog always"));
    return found.size() == 2;
  }
};

TEST_F(ModuleThreshold, OfTheLoggerItselfIs3) { EXPECT_EQ(open()->GetModuleLevel("NLog"), 3); }

TEST_F(ModuleThreshold, OfAnUnknownModuleIs5) {
  EXPECT_EQ(open()->GetModuleLevel("DLL"), 5);
  EXPECT_EQ(open()->GetModuleLevel("Socket"), 5);
}

TEST_F(ModuleThreshold, OfAnUnknownModuleStaysOnceAsked) {
  EXPECT_EQ(open()->GetModuleLevel("till"), 5);
  EXPECT_EQ(open()->GetModuleLevel("till"), 5);
  open()->SetModuleLevel("till", 2);
  EXPECT_EQ(open()->GetModuleLevel("till"), 2);
}

TEST_F(ModuleThreshold, OfNoModuleIs5) { EXPECT_EQ(open()->GetModuleLevel(nullptr), 5); }

TEST_F(ModuleThreshold, OfAnEmptyModuleIs5) {
  EXPECT_EQ(open()->GetModuleLevel(""), 5);
  open()->SetModuleLevel("", 2);
  EXPECT_EQ(open()->GetModuleLevel(""), 5);
}

TEST_F(ModuleThreshold, BelongsToTheExactTag) {
  open()->SetModuleLevel("DLL", 2);
  EXPECT_EQ(open()->GetModuleLevel("dll"), 5);
  EXPECT_EQ(open()->GetModuleLevel("DLL "), 5);
  EXPECT_EQ(open()->GetModuleLevel("DL"), 5);
  EXPECT_EQ(open()->GetModuleLevel("DLL"), 2);
}

TEST_F(ModuleThreshold, CanBeSetToAnyNumber) {
  for (const int level : {0, 5, 8, -1, std::numeric_limits<int>::min()}) {
    open()->SetModuleLevel("DLL", level);
    EXPECT_EQ(open()->GetModuleLevel("DLL"), level);
  }
}

TEST_F(ModuleThreshold, OfTheLoggerItselfCanBeSet) {
  open()->SetModuleLevel("NLog", 6);
  EXPECT_EQ(open()->GetModuleLevel("NLog"), 6);
}

TEST_F(ModuleThreshold, HoldsLevel2BackByDefault) { EXPECT_FALSE(passes("DLL", 2)); }

TEST_F(ModuleThreshold, HoldsLevel4BackByDefault) { EXPECT_FALSE(passes("DLL", 4)); }

TEST_F(ModuleThreshold, LetsLevel5ThroughByDefault) { EXPECT_TRUE(passes("DLL", 5)); }

TEST_F(ModuleThreshold, LetsLevel6ThroughByDefault) { EXPECT_TRUE(passes("DLL", 6)); }

TEST_F(ModuleThreshold, LetsLevel7ThroughByDefault) { EXPECT_TRUE(passes("DLL", 7)); }

TEST_F(ModuleThreshold, LetsLevelsAbove7Through) { EXPECT_TRUE(passes("DLL", 9)); }

TEST_F(ModuleThreshold, LetsItsOwnLevelThrough) {
  open()->SetModuleLevel("DLL", 2);
  EXPECT_TRUE(passes("DLL", 2));
}

TEST_F(ModuleThreshold, HoldsTheLevelBelowItBack) {
  open()->SetModuleLevel("DLL", 7);
  EXPECT_FALSE(passes("DLL", 6));
}

TEST_F(ModuleThreshold, OfZeroSilencesAModule) {
  open()->SetModuleLevel("DLL", 0);
  EXPECT_FALSE(passes("DLL", 7));
}

TEST_F(ModuleThreshold, OfZeroSilencesEveryLevel) {
  open()->SetModuleLevel("DLL", 0);
  EXPECT_FALSE(passes("DLL", std::numeric_limits<int>::max()));
}

TEST_F(ModuleThreshold, OfZeroLeavesOtherModulesAlone) {
  open()->SetModuleLevel("DLL", 0);
  EXPECT_TRUE(passes("Socket", 5));
}

TEST_F(ModuleThreshold, BelowZeroLetsLevel1Through) {
  open()->SetModuleLevel("DLL", -1);
  EXPECT_TRUE(passes("DLL", 1));
}

TEST_F(ModuleThreshold, BelowZeroLetsLevel0Through) {
  open()->SetModuleLevel("DLL", -1);
  EXPECT_TRUE(passes("DLL", 0));
}

TEST_F(ModuleThreshold, BelowZeroIsComparedWithItsSign) {
  open()->SetModuleLevel("DLL", -1);
  EXPECT_FALSE(passes("DLL", -2));
}

TEST_F(ModuleThreshold, Of5HoldsForRecordsWithoutAModule) { EXPECT_FALSE(passes(nullptr, 4)); }

TEST_F(ModuleThreshold, Of5LetsFailuresWithoutAModuleThrough) { EXPECT_TRUE(passes(nullptr, 5)); }

}  // namespace
}  // namespace tolvex
