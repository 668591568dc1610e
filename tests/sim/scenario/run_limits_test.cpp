#include "scenario/run_limits.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

using std::chrono::milliseconds;

TEST(RunLimits, TimesHaveUnits) {
  EXPECT_EQ(parseRunLimits("30s")->time, milliseconds(30'000));
  EXPECT_EQ(parseRunLimits("500ms")->time, milliseconds(500));
  EXPECT_EQ(parseRunLimits("2m")->time, milliseconds(120'000));
  EXPECT_EQ(parseRunLimits("1440m")->time, milliseconds(86'400'000));
  EXPECT_FALSE(parseRunLimits("30s")->hasCounts());
}

TEST(RunLimits, CountsAreOfJobsAndRequests) {
  EXPECT_EQ(parseRunLimits("3jobs")->jobs, 3);
  EXPECT_EQ(parseRunLimits("1job")->jobs, 1);
  EXPECT_EQ(parseRunLimits("20requests")->requests, 20);
  EXPECT_EQ(parseRunLimits("1request")->requests, 1);
  EXPECT_TRUE(parseRunLimits("1request")->hasCounts());
}

TEST(RunLimits, SeveralStandTogether) {
  const auto limits = parseRunLimits("3jobs,20requests,1m");
  ASSERT_TRUE(limits);
  EXPECT_EQ(limits->jobs, 3);
  EXPECT_EQ(limits->requests, 20);
  EXPECT_EQ(limits->time, milliseconds(60'000));
}

TEST(RunLimits, NothingElseIsOne) {
  for (const char* text :
       {"", "30", "s", "0s", "-1s", "1.5s", "30 s", "3jobs,", ",3jobs", "3jobs,4jobs", "1s,500ms",
        "1441m", "2147483648s", "1000000001jobs", "3job s", "3Jobs", "99999999999999999999jobs"}) {
    EXPECT_FALSE(parseRunLimits(text)) << text;
  }
}

}  // namespace
}  // namespace tolvex::sim
