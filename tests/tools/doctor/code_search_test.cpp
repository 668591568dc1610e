#include "explain/code_search.h"

#include <gtest/gtest.h>

namespace tolvex::ctl {
namespace {

std::vector<std::string> names(const std::vector<const CodeText*>& rows) {
  std::vector<std::string> result;
  for (const CodeText* row : rows) result.emplace_back(row->name);
  return result;
}

using Names = std::vector<std::string>;

TEST(NumberIn, ReadsNumbersAsLogsAndDebuggersShowThem) {
  EXPECT_EQ(numberIn("2006"), 2006);
  EXPECT_EQ(numberIn("-1"), -1);
  EXPECT_EQ(numberIn("0xff"), 255);
  EXPECT_EQ(numberIn("0xFFFFFFFF"), -1);
  EXPECT_EQ(numberIn("4294967295"), -1);
}

TEST(NumberIn, RefusesOtherTexts) {
  for (const char* text : {"", "-", "0x", "20O6", "2006 ", "99999999999", "4294967294", "paper"}) {
    EXPECT_EQ(numberIn(text), std::nullopt) << text;
  }
}

TEST(FindByNumber, FindsCodesAndAnswers) {
  EXPECT_EQ(names(findByNumber(2006)), Names{"OUT_OF_PAPER"});
  EXPECT_EQ(names(findByNumber(255)), Names{"TOLVEX_FAILED"});
  EXPECT_EQ(names(findByNumber(-1)), (Names{"TOLVEX_UNREADABLE_REPLY", "TOLVEX_UNDER_LOAD"}));
  EXPECT_EQ(names(findByNumber(2004)), Names{});
}

TEST(FindByName, TakesAnySpelling) {
  for (const char* name : {"OUT_OF_PAPER", "OutOfPaper", "out of paper",
                           "TOLVEX_RESULT_OUT_OF_PAPER", "out-of-paper"}) {
    EXPECT_EQ(names(findByName(name)), Names{"OUT_OF_PAPER"}) << name;
  }
  EXPECT_EQ(names(findByName("TOLVEX_FONT_TOO_BIG")), Names{"TOLVEX_FONT_TOO_BIG"});
  EXPECT_EQ(names(findByName("")), Names{});
  EXPECT_EQ(names(findByName("paper")), Names{});
}

TEST(FindByName, FindsEachRowOfTheTableByItsConstant) {
  for (const CodeText* row : allRows()) {
    const std::vector<const CodeText*> found = findByName(constantOf(*row));
    EXPECT_NE(std::find(found.begin(), found.end(), row), found.end()) << constantOf(*row);
  }
}

TEST(SimilarNames, FindsWhatIsClose) {
  EXPECT_EQ(similarNames("paper"), Names{"OUT_OF_PAPER"});
  EXPECT_EQ(similarNames("OutOfPapper"), Names{"OUT_OF_PAPER"});
  EXPECT_EQ(similarNames("xylophone"), Names{});
}

}  // namespace
}  // namespace tolvex::ctl
