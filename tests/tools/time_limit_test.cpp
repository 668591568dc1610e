#include "app/time_limit.h"

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <stdexcept>

namespace tolvex::ctl {
namespace {

using std::chrono::seconds;

TEST(TimeLimit, GivesWhatTheWorkGives) {
  EXPECT_EQ(within(seconds(30), [] { return 17; }), 17);
  EXPECT_EQ(within(std::nullopt, [] { return 17; }), 17);
}

TEST(TimeLimit, PassesOnWhatTheWorkThrows) {
  EXPECT_THROW(within(seconds(30), []() -> int { throw std::out_of_range("far"); }),
               std::out_of_range);
}

// Each call is a thread that may end before it is waited for, or after.
TEST(TimeLimit, LosesNoneOfManyShortCalls) {
  for (int i = 0; i < 1000; ++i) {
    const auto work = [i] {
      for (volatile int rest = i * 37 % 20000; rest > 0; rest = rest - 1) continue;
      return i;
    };
    ASSERT_EQ(within(seconds(30), work), i);
  }
}

}  // namespace
}  // namespace tolvex::ctl
