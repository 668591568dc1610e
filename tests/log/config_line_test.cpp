#include <gtest/gtest.h>

#include <string>

#include "log/log_config.h"

namespace tolvex {
namespace {

// The entry of a line as "module=level", or "none".
std::string entryOf(std::string_view line) {
  Threshold threshold;
  if (!readThreshold(line, threshold)) return "none";
  return std::string(threshold.module) + "=" + std::to_string(threshold.level);
}

TEST(ConfigLine, HoldsAModuleAndItsThreshold) {
  EXPECT_EQ(entryOf("DLL=2"), "DLL=2");
  EXPECT_EQ(entryOf("Socket=7"), "Socket=7");
}

TEST(ConfigLine, MayHoldBlanksAroundKeyAndValue) {
  EXPECT_EQ(entryOf("key =  4 "), "key=4");
  EXPECT_EQ(entryOf(" \t key\t=\t4\t"), "key=4");
}

TEST(ConfigLine, MayEndInCr) {
  EXPECT_EQ(entryOf("DLL=2\r"), "DLL=2");
  EXPECT_EQ(entryOf("\r\r\rDLL=2\r\r"), "DLL=2");
}

TEST(ConfigLine, MayHoldLfAtItsEnds) { EXPECT_EQ(entryOf("\nDLL=2\n"), "DLL=2"); }

TEST(ConfigLine, KeepsBlanksInsideAKey) { EXPECT_EQ(entryOf("a b=2"), "a b=2"); }

TEST(ConfigLine, OtherWhiteSpaceBelongsToTheKey) { EXPECT_EQ(entryOf("\vDLL\f=2"), "\vDLL\f=2"); }

TEST(ConfigLine, DropsAByteOrderMark) {
  EXPECT_EQ(entryOf("\xEF\xBB\xBF"
                    "DLL=2"),
            "DLL=2");
}

TEST(ConfigLine, DropsAByteOrderMarkBeforeBlanks) {
  EXPECT_EQ(entryOf("\xEF\xBB\xBF  DLL=2"), "DLL=2");
}

TEST(ConfigLine, DropsOneByteOrderMarkOnly) {
  EXPECT_EQ(entryOf("\xEF\xBB\xBF\xEF\xBB\xBF"
                    "DLL=2"),
            "\xEF\xBB\xBF"
            "DLL=2");
}

TEST(ConfigLine, KeepsAByteOrderMarkAfterABlank) {
  EXPECT_EQ(entryOf(" \xEF\xBB\xBF"
                    "DLL=2"),
            "\xEF\xBB\xBF"
            "DLL=2");
}

TEST(ConfigLine, OfAByteOrderMarkAloneHoldsNothing) { EXPECT_EQ(entryOf("\xEF\xBB\xBF"), "none"); }

TEST(ConfigLine, KeepsPartOfAByteOrderMark) {
  EXPECT_EQ(entryOf("\xEF\xBB"), "none");
  EXPECT_EQ(entryOf("\xEF\xBB"
                    "DLL=2"),
            "\xEF\xBB"
            "DLL=2");
}

TEST(ConfigLine, EmptyLineHoldsNothing) { EXPECT_EQ(entryOf(""), "none"); }

TEST(ConfigLine, LineOfBlanksHoldsNothing) { EXPECT_EQ(entryOf(" \t\r"), "none"); }

TEST(ConfigLine, SemicolonBeginsAComment) {
  EXPECT_EQ(entryOf("; comment"), "none");
  EXPECT_EQ(entryOf(";DLL=2"), "none");
}

TEST(ConfigLine, HashBeginsAComment) { EXPECT_EQ(entryOf("#DLL=2"), "none"); }

TEST(ConfigLine, CommentMayFollowBlanks) {
  EXPECT_EQ(entryOf("  ;DLL=2"), "none");
  EXPECT_EQ(entryOf("\t#DLL=2"), "none");
}

TEST(ConfigLine, CommentMayFollowAByteOrderMark) {
  EXPECT_EQ(entryOf("\xEF\xBB\xBF;DLL=2"), "none");
}

TEST(ConfigLine, SectionHoldsNothing) {
  EXPECT_EQ(entryOf("[section]"), "none");
  EXPECT_EQ(entryOf(" [section] \r"), "none");
  EXPECT_EQ(entryOf("[DLL=2]"), "none");
}

TEST(ConfigLine, BracketThatDoesNotCloseBelongsToTheKey) {
  EXPECT_EQ(entryOf("[DLL=2"), "[DLL=2");
  EXPECT_EQ(entryOf("[a]=2"), "[a]=2");
}

TEST(ConfigLine, WithoutAnEqualsSignHoldsNothing) { EXPECT_EQ(entryOf("DLL 2"), "none"); }

TEST(ConfigLine, WithoutAKeyHoldsNothing) {
  EXPECT_EQ(entryOf("=2"), "none");
  EXPECT_EQ(entryOf("  =2"), "none");
}

TEST(ConfigLine, WithoutAValueHoldsNothing) {
  EXPECT_EQ(entryOf("DLL="), "none");
  EXPECT_EQ(entryOf("DLL=  \r"), "none");
}

TEST(ConfigLine, IsSplitAtItsFirstEqualsSign) {
  EXPECT_EQ(entryOf("DLL=2=3"), "DLL=2");
  EXPECT_EQ(entryOf("DLL==2"), "none");  // "=2" is no number
}

TEST(ConfigLine, ZeroIsNotStored) {
  EXPECT_EQ(entryOf("DLL=0"), "none");
  EXPECT_EQ(entryOf("DLL=-0"), "none");
}

TEST(ConfigLine, TextThatIsNoNumberIsNotStored) { EXPECT_EQ(entryOf("DLL=high"), "none"); }

TEST(ConfigLine, FiveIsNotStored) {
  EXPECT_EQ(entryOf("DLL=5"), "none");
  EXPECT_EQ(entryOf("NLog=5"), "none");
  EXPECT_EQ(entryOf("DLL=+005 "), "none");
}

TEST(ConfigLine, EveryOtherLevelIsStored) {
  for (const int level : {1, 2, 3, 4, 6, 7}) {
    const std::string line = "DLL=" + std::to_string(level);
    EXPECT_EQ(entryOf(line), line);
  }
}

TEST(ConfigLine, LevelAbove7IsNotStored) {
  EXPECT_EQ(entryOf("DLL=8"), "none");
  EXPECT_EQ(entryOf("DLL=2147483647"), "none");
  EXPECT_EQ(entryOf("DLL=99999999999999999999"), "none");
}

TEST(ConfigLine, NegativeLevelIsStored) {
  EXPECT_EQ(entryOf("DLL=-1"), "DLL=-1");
  EXPECT_EQ(entryOf("DLL=-5"), "DLL=-5");
  EXPECT_EQ(entryOf("DLL=-2147483648"), "DLL=-2147483648");
}

TEST(ConfigLine, NumberEndsAtTheFirstOtherCharacter) {
  EXPECT_EQ(entryOf("DLL=2 ; traffic"), "DLL=2");
  EXPECT_EQ(entryOf("DLL=2x"), "DLL=2");
  EXPECT_EQ(entryOf("DLL=2.9"), "DLL=2");
  EXPECT_EQ(entryOf("DLL=0x2"), "none");
}

TEST(ConfigLine, NumberMayHaveLeadingZerosAndASign) {
  EXPECT_EQ(entryOf("DLL=002"), "DLL=2");
  EXPECT_EQ(entryOf("DLL=+2"), "DLL=2");
}

}  // namespace
}  // namespace tolvex
