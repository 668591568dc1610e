#include "traffic/traffic_log.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

constexpr std::size_t kMany = 100'000;

class TrafficLogTest : public ::testing::Test {
 protected:
  static TrafficEntry entry(std::string request = "{}") {
    TrafficEntry entry;
    entry.client = "127.0.0.1:4444";
    entry.requestBytes = request.size();
    entry.request = std::move(request);
    entry.known = true;
    entry.result = 0;
    return entry;
  }

  void add(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) log_.add(entry());
  }

  void complete(std::uint64_t number) {
    log_.complete(number, Outcome::Answered, std::chrono::microseconds(5));
  }

  std::vector<std::uint64_t> changedSince(std::uint64_t since, std::size_t most = kMany) const {
    std::vector<std::uint64_t> numbers;
    for (const TrafficEntry* changed : log_.changedSince(since, most)) {
      numbers.push_back(changed->number);
    }
    return numbers;
  }

  using Numbers = std::vector<std::uint64_t>;

  TrafficLog log_;
};

TEST_F(TrafficLogTest, NumbersEntriesFromOne) {
  EXPECT_EQ(log_.newest(), 0U);
  EXPECT_EQ(log_.oldest(), 1U);
  EXPECT_EQ(log_.add(entry("a")), 1U);
  EXPECT_EQ(log_.add(entry("b")), 2U);
  EXPECT_EQ(log_.newest(), 2U);
  EXPECT_EQ(log_.find(2)->request, "b");
  EXPECT_EQ(log_.find(0), nullptr);
  EXPECT_EQ(log_.find(3), nullptr);
}

TEST_F(TrafficLogTest, CompletesAnEntry) {
  log_.add(entry());
  EXPECT_EQ(log_.find(1)->outcome, Outcome::Pending);
  log_.complete(1, Outcome::Lost, std::chrono::microseconds(7));
  EXPECT_EQ(log_.find(1)->outcome, Outcome::Lost);
  EXPECT_EQ(log_.find(1)->duration, std::chrono::microseconds(7));
  complete(0);
  complete(2);
  EXPECT_EQ(log_.changes(), 2U);
}

TEST_F(TrafficLogTest, KeepsTheLatestEntries) {
  add(TrafficLog::kMaxEntries + 5);
  EXPECT_EQ(log_.entries().size(), TrafficLog::kMaxEntries);
  EXPECT_EQ(log_.oldest(), 6U);
  EXPECT_EQ(log_.find(5), nullptr);
  EXPECT_EQ(log_.find(6)->number, 6U);
  complete(5);
  EXPECT_EQ(log_.changes(), TrafficLog::kMaxEntries + 5);
}

TEST_F(TrafficLogTest, CutsLongTextsAndKeepsTheirLengths) {
  const std::string text(TrafficLog::kMaxTextBytes + 1, 'x');
  TrafficEntry longOne = entry(text);
  longOne.reply = text + text;
  longOne.replyBytes = longOne.reply.size();
  longOne.command = text;
  log_.add(longOne);
  const TrafficEntry& kept = log_.entries().back();
  EXPECT_EQ(kept.request, text.substr(1));
  EXPECT_EQ(kept.reply, text.substr(1));
  EXPECT_EQ(kept.command, text.substr(0, TrafficLog::kMaxCommandBytes));
  EXPECT_EQ(kept.requestBytes, text.size());
  EXPECT_EQ(kept.replyBytes, 2 * text.size());
}

TEST_F(TrafficLogTest, KeepsNoMoreBytesThanItsBound) {
  const std::string text(TrafficLog::kMaxTextBytes, 'x');
  constexpr std::size_t kFitting = TrafficLog::kMaxBytes / TrafficLog::kMaxTextBytes;
  for (std::size_t i = 0; i < kFitting; ++i) log_.add(entry(text));
  EXPECT_EQ(log_.oldest(), 1U);
  log_.add(entry("x"));
  EXPECT_EQ(log_.oldest(), 2U);
  EXPECT_EQ(log_.entries().size(), kFitting);
}

TEST_F(TrafficLogTest, ListsWhatHasChangedInOrder) {
  add(3);
  EXPECT_EQ(changedSince(0), (Numbers{1, 2, 3}));
  EXPECT_EQ(changedSince(1), (Numbers{2, 3}));
  complete(1);
  EXPECT_EQ(changedSince(0), (Numbers{2, 3, 1}));
  EXPECT_EQ(changedSince(3), (Numbers{1}));
  complete(3);
  complete(2);
  EXPECT_EQ(changedSince(0), (Numbers{1, 3, 2}));
  EXPECT_EQ(changedSince(log_.changes()), Numbers{});
}

TEST_F(TrafficLogTest, ListsNoMoreThanAskedForAndGoesOnThere) {
  add(5);
  complete(2);
  const auto first = log_.changedSince(0, 3);
  ASSERT_EQ(first.size(), 3U);
  EXPECT_EQ(changedSince(0, 3), (Numbers{1, 3, 4}));
  EXPECT_EQ(changedSince(first.back()->change), (Numbers{5, 2}));
}

TEST_F(TrafficLogTest, ListsOnlyWhatIsKept) {
  add(TrafficLog::kMaxEntries);
  complete(1);
  complete(2);
  add(1);
  EXPECT_EQ(changedSince(TrafficLog::kMaxEntries), (Numbers{2, TrafficLog::kMaxEntries + 1}));
}

// The oldest entry keeps the history of what came after it from being forgotten.
TEST_F(TrafficLogTest, ListsEachEntryOnceHoweverMuchHasHappened) {
  for (std::size_t i = 0; i < 5 * TrafficLog::kMaxEntries; ++i) {
    const std::uint64_t number = log_.add(entry());
    if (number % 100 != 0) complete(number);
  }
  const auto all = changedSince(0);
  EXPECT_EQ(all.size(), TrafficLog::kMaxEntries);
  EXPECT_EQ(all.front(), log_.oldest());
  EXPECT_EQ(all.back(), log_.newest());
}

TEST_F(TrafficLogTest, TellsOfEntriesWhenTheyComeAndWhenTheyAreComplete) {
  std::vector<std::string> told;
  log_.listen([&](const TrafficEntry& changed) {
    told.push_back(std::to_string(changed.number) + " " + name(changed.outcome));
  });
  add(1);
  complete(1);
  log_.add(entry());
  log_.complete(2, Outcome::Unanswered, {});
  EXPECT_EQ(told,
            (std::vector<std::string>{"1 pending", "1 answered", "2 pending", "2 unanswered"}));
}

TEST_F(TrafficLogTest, AListenerMayEmptyTheLog) {
  std::string told;
  log_.listen([this](const TrafficEntry&) { log_.restart(); });
  log_.listen([&told](const TrafficEntry& changed) { told = changed.request; });
  log_.add(entry("a"));
  EXPECT_EQ(told, "a");
  EXPECT_EQ(log_.newest(), 0U);
}

TEST_F(TrafficLogTest, CountsConnections) {
  EXPECT_EQ(log_.connected(Half::Weighing, "127.0.0.1:1"), 1U);
  EXPECT_EQ(log_.connected(Half::Printing, "127.0.0.1:2"), 2U);
  EXPECT_EQ(log_.connected(Half::Weighing, "127.0.0.1:3"), 3U);
  log_.disconnected(Half::Printing);
  EXPECT_EQ(log_.connections(Half::Weighing), 2U);
  EXPECT_EQ(log_.connections(Half::Printing), 0U);
  EXPECT_EQ(log_.changes(), 4U);
}

TEST_F(TrafficLogTest, RemembersTheLatestClientAndRequest) {
  EXPECT_EQ(log_.lastClient(), "");
  EXPECT_EQ(log_.lastRequest(), std::nullopt);
  log_.connected(Half::Weighing, "127.0.0.1:1");
  EXPECT_EQ(log_.lastClient(), "127.0.0.1:1");
  TrafficEntry request = entry();
  request.time = WallTime(std::chrono::hours(5));
  log_.add(request);
  EXPECT_EQ(log_.lastClient(), "127.0.0.1:4444");
  EXPECT_EQ(log_.lastRequest(), WallTime(std::chrono::hours(5)));
}

TEST_F(TrafficLogTest, RemembersTheLatestError) {
  TrafficEntry moving = entry();
  moving.result = 1005;
  TrafficEntry refused = entry();
  refused.result = 8;
  TrafficEntry unknown = entry();
  unknown.known = false;
  TrafficEntry faulty = entry();
  faulty.faults = {"delay"};
  log_.add(entry());
  log_.add(moving);
  EXPECT_EQ(log_.lastError(), 0U);
  for (const TrafficEntry& wrong : {refused, unknown, faulty}) {
    const std::uint64_t number = log_.add(wrong);
    log_.add(moving);
    EXPECT_EQ(log_.lastError(), number);
  }
}

TEST_F(TrafficLogTest, ClearForgetsEntriesAndNumbersGoOn) {
  log_.connected(Half::Weighing, "127.0.0.1:1");
  add(2);
  const std::uint64_t before = log_.changes();
  log_.clear();
  EXPECT_TRUE(log_.entries().empty());
  EXPECT_GT(log_.changes(), before);
  EXPECT_EQ(log_.lastClient(), "");
  EXPECT_EQ(log_.lastRequest(), std::nullopt);
  EXPECT_EQ(log_.connections(Half::Weighing), 1U);
  EXPECT_EQ(log_.oldest(), 3U);
  complete(2);
  EXPECT_EQ(log_.add(entry()), 3U);
  EXPECT_EQ(changedSince(0), (Numbers{3}));
}

TEST_F(TrafficLogTest, RestartBeginsAtOneAgain) {
  add(2);
  EXPECT_EQ(log_.restarts(), 0U);
  log_.restart();
  EXPECT_EQ(log_.restarts(), 1U);
  EXPECT_EQ(log_.newest(), 0U);
  EXPECT_EQ(log_.add(entry()), 1U);
}

TEST_F(TrafficLogTest, TellsWhoeverListensOfConnections) {
  std::vector<Half> told;
  log_.listenToConnections([&told](Half half) { told.push_back(half); });
  log_.connected(Half::Printing, "127.0.0.1:1");
  log_.disconnected(Half::Printing);
  log_.connected(Half::Weighing, "127.0.0.1:2");
  EXPECT_EQ(told, std::vector<Half>({Half::Printing, Half::Weighing}));
}

}  // namespace
}  // namespace tolvex::sim
