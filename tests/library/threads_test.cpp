// Many threads of one application.
#include <atomic>
#include <cstring>
#include <thread>

#include "support/library_test.h"

namespace tolvex::test {
namespace {

constexpr unsigned kThreads = 8;

template <typename Work>
void inThreads(Work work) {
  std::atomic<bool> go{false};
  std::vector<std::thread> threads;
  for (unsigned i = 0; i < kThreads; ++i) {
    threads.emplace_back([&, i] {
      while (!go) std::this_thread::yield();
      work(i);
    });
  }
  go = true;
  for (std::thread& thread : threads) thread.join();
}

// Answers each command with something that tells it from the others.
std::string answerTo(const std::string& request) {
  if (request == R"({"cmd":"getweight"})") {
    return R"({"result":"0","net":"1.234","tare":"0.1","zero":"0","tareType":"T"})";
  }
  if (request == R"({"cmd":"settarebykey"})") return R"({"result":"0","tare":"0.555"})";
  if (request == R"({"cmd":"clear_tare"})") return R"({"result":"0","tare":"0.000"})";
  if (request == R"({"cmd":"setzero"})") return R"({"result":"1005"})";
  if (request == R"({"cmd":"getLCVersion"})") return R"({"result":"0","version":"9"})";
  if (request == R"({"cmd":"setOverloadAlarm","enable":"1"})") return R"({"result":"2010"})";
  return R"({"result":"8"})";  // a request that was mixed up
}

using Threads = ServiceTest;

TEST_F(Threads, TenThousandMixedCallsGetTheRightAnswers) {
  constexpr unsigned kCalls = 10000 / kThreads;
  service.weighing().alwaysAnswers(answerTo);
  service.printing().alwaysAnswers(answerTo);
  std::atomic<unsigned> right{0};
  inThreads([&](unsigned thread) {
    for (unsigned i = 0; i < kCalls; ++i) {
      char buffer[64] = {};
      bool good = false;
      switch ((thread + i) % 6) {
        case 0:
          good = read_standard(buffer) == 240 && std::memcmp(buffer,
                                                             "\x05"
                                                             "01.2340P00.1000",
                                                             16) == 0;
          break;
        case 1:
          good = send_tare(buffer) == 240 && std::strcmp(buffer, "0.555") == 0;
          break;
        case 2:
          good = clear_tare(buffer) == 240 && std::strcmp(buffer, "0.000") == 0;
          break;
        case 3:
          good = send_zero() == 255;
          break;
        case 4:
          good = getLCVersion(buffer, sizeof(buffer)) == 0 &&
                 std::strcmp(buffer, R"({"result":"0","version":"9"})") == 0;
          break;
        default:
          good = setOverloadAlarm(1) == 2010;
          break;
      }
      if (good) ++right;
    }
  });
  EXPECT_EQ(right, kCalls * kThreads);
  EXPECT_EQ(service.requests().size() + service.printing().requests().size(), kCalls * kThreads);
  EXPECT_EQ(service.weighing().connections(), 1U);
  EXPECT_EQ(service.printing().connections(), 1U);
}

TEST_F(Threads, SimultaneousFirstCallsBuildOneContext) {
  service.weighing().alwaysAnswers(R"({"result":"0"})");
  std::atomic<unsigned> right{0};
  inThreads([&](unsigned) {
    if (send_zero() == 240) ++right;
  });
  EXPECT_EQ(right, kThreads);
  EXPECT_EQ(service.weighing().connections(), 1U);
  EXPECT_TRUE(service.printing().hasAccepted(1));
  EXPECT_EQ(service.printing().connections(), 1U);
  EXPECT_EQ(log.count("[T] L:181 M:DLL ======= tolvex_dll V3.0.3.2  ================"), 1U);
  EXPECT_EQ(log.sinceBanner().size(), 2U * kThreads) << "every line whole and behind the banner";
}

TEST_F(Threads, AddressModeAndLastErrorMayBeUsedFromAnyThread) {
  service.weighing().alwaysAnswers(R"({"result":"0","net":"1","highResNet":"2","tare":"0"})");
  std::atomic<unsigned> right{0};
  inThreads([&](unsigned thread) {
    for (unsigned i = 0; i < 20; ++i) {
      char record[24];
      setHighResWeightMode(static_cast<int>(thread % 2));
      const bool read = read_standard(record) == 240;
      const bool either = record[2] == '1' || record[2] == '2';
      const bool set = SetServerIpForRemoteAccess("127.99.1.2") == 240;
      if (read && either && set && getLastErrCode() == 0) ++right;
    }
  });
  EXPECT_EQ(right, 20U * kThreads);
}

}  // namespace
}  // namespace tolvex::test
