#include <algorithm>
#include <functional>
#include <thread>
#include <vector>

#include "log/logger_test.h"

namespace tolvex {
namespace {

using test::Lines;

constexpr int kThreads = 4;
constexpr int kRounds = 200;

class LoggingThreads : public test::LoggerTest {
 protected:
  LoggingThreads() { open(); }

  static void run(const std::function<void(int)>& work) {
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) threads.emplace_back(work, i);
    for (std::thread& thread : threads) thread.join();
  }
  static std::string message(int thread, int round) {
    return std::to_string(thread) + "." + std::to_string(round) +
           std::string(static_cast<std::size_t>(round), 'x');
  }
};

TEST_F(LoggingThreads, WriteWholeLines) {
  run([](int thread) {
    for (int round = 0; round < kRounds; ++round) log(message(thread, round));
  });
  Lines expected;
  for (int thread = 0; thread < kThreads; ++thread) {
    for (int round = 0; round < kRounds; ++round)
      expected.push_back(record(message(thread, round)));
  }
  Lines found = lines();
  std::sort(expected.begin(), expected.end());
  std::sort(found.begin(), found.end());
  EXPECT_EQ(found, expected);
}

TEST_F(LoggingThreads, KeepTheOrderOfEachThread) {
  run([](int thread) {
    for (int round = 0; round < kRounds; ++round) log(message(thread, round));
  });
  const Lines found = lines();
  for (int thread = 0; thread < kThreads; ++thread) {
    auto from = found.begin();
    for (int round = 0; round < kRounds; ++round) {
      from = std::find(from, found.end(), record(message(thread, round)));
      ASSERT_NE(from, found.end()) << thread << " " << round;
    }
  }
}

TEST_F(LoggingThreads, PutNothingBetweenALongTextAndItsHeader) {
  constexpr int kManyRounds = 3000;  // a gap is hit by chance only
  run([](int thread) {
    for (int round = 0; round < kManyRounds; ++round) {
      if (thread % 2 == 0) {
        NLog::LogString(NLog::GetInstance(), "DLL", 6, 77, "text");
      } else {
        log("record");
      }
    }
  });
  const Lines found = lines();
  const std::string header = "2024-03-05 14:07:09 Ms:042 [T] L:077 M:DLL ";
  EXPECT_EQ(std::count(found.begin(), found.end(), header), kThreads / 2 * kManyRounds);
  for (std::size_t i = 0; i < found.size(); ++i) {
    const bool follows = i > 0 && found[i - 1] == header;
    EXPECT_EQ(found[i] == "text", follows) << i;
  }
}

TEST_F(LoggingThreads, MayRenameTheLoggerMeanwhile) {
  run([](int thread) {
    for (int round = 0; round < kRounds; ++round) {
      log("record");
      NLog::GetInstance(("name" + std::to_string(thread)).c_str(), nullptr);
    }
  });
  std::size_t records = 0;
  for (const char* name : {"DLL", "name0", "name1", "name2", "name3"}) {
    const std::string path = folder_.file(std::string(name) + "_0.log");
    if (test::exists(path)) records += test::linesOf(path).size();
  }
  EXPECT_EQ(records, static_cast<std::size_t>(kThreads * kRounds));
}

TEST_F(LoggingThreads, MayAskForNewModulesTogether) {
  std::vector<int> levels(kThreads);
  run([&](int thread) {
    for (int round = 0; round < kRounds; ++round) {
      levels[static_cast<std::size_t>(thread)] +=
          NLog::GetInstance()->GetModuleLevel(("module" + std::to_string(round)).c_str());
    }
  });
  EXPECT_EQ(levels, std::vector<int>(kThreads, 5 * kRounds));
}

}  // namespace
}  // namespace tolvex
