#include "faults/fault_board.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

class FaultBoardTest : public ::testing::Test {
 protected:
  FaultBoardTest() {
    board_.listen([this] { ++changes_; });
  }

  std::uint64_t add(FaultKind kind, std::optional<Half> half = {}, std::string command = "",
                    std::optional<std::uint64_t> times = {}) {
    FaultRule rule = defaultRule(kind);
    rule.half = half;
    rule.command = std::move(command);
    rule.remaining = times;
    return board_.add(rule);
  }

  static std::vector<std::uint64_t> idsOf(const std::vector<FaultRule>& rules) {
    std::vector<std::uint64_t> ids;
    for (const FaultRule& rule : rules) ids.push_back(rule.id);
    return ids;
  }

  std::vector<std::uint64_t> take(Half half, std::string_view command) {
    return idsOf(board_.take(half, command));
  }

  using Ids = std::vector<std::uint64_t>;

  FaultBoard board_;
  int changes_ = 0;
};

TEST_F(FaultBoardTest, RulesActInTheOrderInWhichTheyWereAdded) {
  EXPECT_EQ(add(FaultKind::Garbage), 1U);
  EXPECT_EQ(add(FaultKind::Delay), 2U);
  EXPECT_EQ(add(FaultKind::Close), 3U);
  EXPECT_EQ(take(Half::Weighing, "getweight"), (Ids{1, 2, 3}));
}

TEST_F(FaultBoardTest, ARuleActsOnItsPortOnly) {
  add(FaultKind::Delay, Half::Weighing);
  add(FaultKind::Delay, Half::Printing);
  add(FaultKind::Delay);
  EXPECT_EQ(take(Half::Weighing, "getweight"), (Ids{1, 3}));
  EXPECT_EQ(take(Half::Printing, "printtext"), (Ids{2, 3}));
}

TEST_F(FaultBoardTest, ARuleActsOnItsCommandOnly) {
  add(FaultKind::Delay, {}, "getweight");
  add(FaultKind::Delay);
  EXPECT_EQ(take(Half::Weighing, "getweight"), (Ids{1, 2}));
  EXPECT_EQ(take(Half::Weighing, "getWeight"), (Ids{2}));
  EXPECT_EQ(take(Half::Weighing, ""), (Ids{2}));
}

TEST_F(FaultBoardTest, ARuleActsAsOftenAsItSaysAndIsGoneThen) {
  add(FaultKind::Delay, {}, "", 2);
  EXPECT_EQ(board_.take(Half::Weighing, "").at(0).remaining, 2U);
  EXPECT_EQ(board_.rules().at(0).remaining, 1U);
  EXPECT_EQ(board_.rules().at(0).acted, 1U);
  EXPECT_EQ(take(Half::Printing, ""), (Ids{1}));
  EXPECT_TRUE(board_.rules().empty());
  EXPECT_EQ(take(Half::Weighing, ""), Ids{});
}

TEST_F(FaultBoardTest, WhatIsNotActedOnIsNotCounted) {
  add(FaultKind::Delay, Half::Weighing, "getweight", 1);
  take(Half::Weighing, "setzero");
  take(Half::Printing, "getweight");
  EXPECT_EQ(board_.rules().at(0).remaining, 1U);
  EXPECT_EQ(board_.rules().at(0).acted, 0U);
}

TEST_F(FaultBoardTest, ARuleWithoutANumberActsUntilItIsSwitchedOff) {
  const std::uint64_t id = add(FaultKind::Delay);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(take(Half::Weighing, ""), (Ids{id}));
  EXPECT_EQ(board_.rules().at(0).acted, 5U);
  EXPECT_TRUE(board_.remove(id));
  EXPECT_FALSE(board_.remove(id));
  EXPECT_EQ(take(Half::Weighing, ""), Ids{});
}

TEST_F(FaultBoardTest, ARefusalStaysUntilItIsSwitchedOff) {
  const std::uint64_t id = add(FaultKind::Refuse, Half::Printing, "", 0);
  add(FaultKind::Delay, {}, "", 1);
  EXPECT_EQ(take(Half::Printing, ""), (Ids{2}));
  EXPECT_TRUE(board_.refuses(Half::Printing));
  EXPECT_FALSE(board_.refuses(Half::Weighing));
  EXPECT_TRUE(board_.drops(Half::Printing));
  EXPECT_FALSE(board_.drops(Half::Weighing));
  board_.remove(id);
  EXPECT_FALSE(board_.refuses(Half::Printing));
  EXPECT_FALSE(board_.drops(Half::Printing));
}

TEST_F(FaultBoardTest, ARefusalMayLeaveConnectionsAlone) {
  FaultRule rule = defaultRule(FaultKind::Refuse);
  rule.dropsConnections = false;
  board_.add(rule);
  EXPECT_TRUE(board_.refuses(Half::Weighing));
  EXPECT_TRUE(board_.refuses(Half::Printing));
  EXPECT_FALSE(board_.drops(Half::Weighing));
}

TEST_F(FaultBoardTest, TellsOfEveryChange) {
  add(FaultKind::Delay, Half::Weighing);
  EXPECT_EQ(changes_, 1);
  take(Half::Weighing, "");
  EXPECT_EQ(changes_, 2);
  take(Half::Printing, "");
  board_.remove(7);
  EXPECT_EQ(changes_, 2);
  board_.clear();
  EXPECT_EQ(changes_, 3);
  board_.clear();
  EXPECT_EQ(changes_, 3);
}

TEST_F(FaultBoardTest, TakesNoMoreThanItsBound) {
  for (std::size_t i = 0; i < FaultBoard::kMaxRules; ++i) EXPECT_EQ(add(FaultKind::Delay), i + 1);
  EXPECT_EQ(add(FaultKind::Delay), 0U);
  EXPECT_EQ(board_.rules().size(), FaultBoard::kMaxRules);
  board_.remove(1);
  EXPECT_EQ(add(FaultKind::Delay), FaultBoard::kMaxRules + 1);
}

}  // namespace
}  // namespace tolvex::sim
