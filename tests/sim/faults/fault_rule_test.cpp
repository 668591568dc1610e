#include "faults/fault_rule.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

TEST(FaultKindTest, EachKindIsFoundByItsName) {
  std::vector<std::string> names;
  for (const FaultKind kind : faultKinds()) {
    names.emplace_back(name(kind));
    EXPECT_EQ(findFaultKind(names.back()), kind) << names.back();
  }
  EXPECT_EQ(names,
            (std::vector<std::string>{"delay", "no-answer", "close", "reset", "two-pieces",
                                      "garbage", "oversized", "wrong-type", "result", "refuse"}));
}

TEST(FaultKindTest, OtherNamesAreNone) {
  for (const char* text : {"", "Delay", "delays", "no answer"}) {
    EXPECT_EQ(findFaultKind(text), std::nullopt) << text;
  }
}

TEST(FaultRuleTest, OnlyARefusalIsNotCarriedOutByDefault) {
  for (const FaultKind kind : faultKinds()) {
    const FaultRule rule = defaultRule(kind);
    EXPECT_EQ(rule.kind, kind);
    EXPECT_EQ(rule.carriedOut, kind != FaultKind::Result) << name(kind);
    EXPECT_EQ(rule.half, std::nullopt);
    EXPECT_EQ(rule.command, "");
    EXPECT_EQ(rule.remaining, std::nullopt);
  }
}

TEST(FaultRuleTest, DefaultsGiveEachKindItsMeasures) {
  EXPECT_EQ(defaultRule(FaultKind::TwoPieces).time, std::chrono::milliseconds(200));
  EXPECT_EQ(defaultRule(FaultKind::TwoPieces).firstPiece, 0U);
  EXPECT_EQ(defaultRule(FaultKind::Oversized).bytes, 4096U);
  EXPECT_EQ(defaultRule(FaultKind::Garbage).bytes, 64U);
  EXPECT_TRUE(defaultRule(FaultKind::Refuse).dropsConnections);
}

}  // namespace
}  // namespace tolvex::sim
