#include "scenario/run_end.h"

#include "scenario_fixture.h"

namespace tolvex::sim {
namespace {

using std::chrono::milliseconds;

class RunEndTest : public ::testing::Test {
 protected:
  void limit(const char* limits) {
    end_ = std::make_unique<RunEnd>(
        parseRunLimits(limits).value(),
        RunEnd::Surroundings{[this](milliseconds time, std::function<void()> function) {
                               waits_.emplace_back(time, std::move(function));
                             },
                             [this] { return answering_; }, [this] { stopped_ = true; }});
    end_->start();
  }

  /// The time that was asked for first is over.
  void passTime() {
    const auto function = waits_.front().second;
    waits_.erase(waits_.begin());
    function();
  }

  /// Time passes until the run is stopped; gives how long it took.
  milliseconds passTimeToTheEnd() {
    milliseconds passed{0};
    while (!stopped_ && passed < milliseconds(60'000)) {
      passed += waits_.front().first;
      passTime();
    }
    return passed;
  }

  std::vector<std::pair<milliseconds, std::function<void()>>> waits_;
  bool answering_ = false;
  bool stopped_ = false;
  std::unique_ptr<RunEnd> end_;
};

TEST_F(RunEndTest, TimeEndsARunAtOnce) {
  limit("30s");
  ASSERT_EQ(waits_.size(), 1U);
  EXPECT_EQ(waits_[0].first, milliseconds(30'000));
  passTime();
  EXPECT_TRUE(stopped_);
  EXPECT_EQ(end_->unmet(), "");
}

TEST_F(RunEndTest, ACountEndsARunWhenTheClientIsQuiet) {
  limit("2jobs");
  end_->happened(job("Ticket"));
  EXPECT_TRUE(waits_.empty());
  end_->happened(job("Label"));
  ASSERT_EQ(waits_.size(), 1U);
  EXPECT_EQ(waits_[0].first, RunEnd::kStep);
  end_->happened(request("cutPaper"));
  passTime();
  EXPECT_EQ(passTimeToTheEnd(), RunEnd::kQuiet);
  EXPECT_EQ(end_->unmet(), "");
}

TEST_F(RunEndTest, AClientThatWaitsForItsReplyGetsItAndTimeToGoOn) {
  limit("1request");
  answering_ = true;
  end_->happened(request("getweight"));
  for (int i = 0; i < 15; ++i) passTime();
  EXPECT_FALSE(stopped_);
  answering_ = false;
  EXPECT_EQ(passTimeToTheEnd(), RunEnd::kQuiet);
}

TEST_F(RunEndTest, AReplyThatTakesTooLongDoesNotKeepItForEver) {
  limit("1request");
  answering_ = true;
  end_->happened(request("getweight"));
  EXPECT_EQ(passTimeToTheEnd(), RunEnd::kLongest);
}

TEST_F(RunEndTest, AClientThatIsNeverQuietDoesNotKeepItForEver) {
  limit("1request");
  end_->happened(request("getweight"));
  int rounds = 0;
  for (; !stopped_ && rounds < 100; ++rounds) {
    end_->happened(request("getweight"));
    passTime();
  }
  EXPECT_EQ(rounds, RunEnd::kLongest / RunEnd::kStep);
}

TEST_F(RunEndTest, OtherEventsDoNotCount) {
  limit("1job");
  end_->happened(request("beginPrint"));
  end_->happened(connection(Half::Printing));
  EXPECT_TRUE(waits_.empty());
}

TEST_F(RunEndTest, WhateverComesFirstEndsIt) {
  limit("5jobs,2requests,1m");
  end_->happened(request("a"));
  end_->happened(request("b"));
  ASSERT_EQ(waits_.size(), 2U);
  EXPECT_EQ(waits_[1].first, RunEnd::kStep);
  EXPECT_EQ(end_->unmet(), "");
}

TEST_F(RunEndTest, CountsThatWereNotReachedAreTold) {
  limit("3jobs,20requests,1m");
  end_->happened(request("beginPrint"));
  end_->happened(job("Ticket"));
  EXPECT_EQ(end_->unmet(), "1 job instead of 3 and 1 request instead of 20 when it was stopped");
  passTime();
  EXPECT_TRUE(stopped_);
  EXPECT_EQ(end_->unmet(), "1 job instead of 3 and 1 request instead of 20 when the time was up");
}

TEST_F(RunEndTest, WhoeverAsksEndsItAsSoonAsItIsQuiet) {
  limit("1m");
  end_->endSoon();
  end_->endSoon();
  ASSERT_EQ(waits_.size(), 2U);
  EXPECT_EQ(waits_[1].first, RunEnd::kStep);
}

}  // namespace
}  // namespace tolvex::sim
