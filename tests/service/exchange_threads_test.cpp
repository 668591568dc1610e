// Several threads with one client.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <mutex>
#include <new>
#include <string>
#include <thread>

#include "service/vco_client_api.h"
#include "support/log_watch.h"

namespace tolvex {
namespace {

// Answers each request with the code that its command names. Notices a second request that comes
// before the reply to the first; plain members, so that ThreadSanitizer notices as well.
class OneAtATime final : public CTcpClient {
 public:
  OneAtATime() : CTcpClient("127.0.0.1", 1) {}
  int Send(const char* data, unsigned length) override {
    if (busy) interleaved = true;
    busy = true;
    request.assign(data, length);
    for (int turn = 0; turn < 20; ++turn) std::this_thread::yield();
    return static_cast<int>(length);
  }
  int RecvTimeout(char* buffer, unsigned, unsigned) override {
    std::this_thread::yield();
    const std::string code = request.substr(std::strlen(R"({"cmd":")"));
    const std::string reply = R"({"result":")" + code;
    reply.copy(buffer, reply.size());
    busy = false;
    ++exchanges;
    return static_cast<int>(reply.size());
  }

  bool busy = false;
  bool interleaved = false;
  int exchanges = 0;
  std::string request;
};

// Both threads must be inside an exchange before either may go on.
class Meeting {
 public:
  bool meet() {
    std::unique_lock<std::mutex> lock(mutex_);
    ++arrived_;
    changed_.notify_all();
    return changed_.wait_for(lock, std::chrono::seconds(60), [this] { return arrived_ == 2; });
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  int arrived_ = 0;
};

class MeetingConnection final : public CTcpClient {
 public:
  explicit MeetingConnection(Meeting& meeting) : CTcpClient("127.0.0.1", 1), meeting_(meeting) {}
  int Send(const char*, unsigned length) override {
    return meeting_.meet() ? static_cast<int>(length) : -1;
  }
  int RecvTimeout(char* buffer, unsigned, unsigned) override {
    const std::string reply = R"({"result":"0"})";
    reply.copy(buffer, reply.size());
    return static_cast<int>(reply.size());
  }

 private:
  Meeting& meeting_;
};

class Threads : public ::testing::Test {
 protected:
  static constexpr int kRounds = 300;

  template <typename Call>
  static int wrongReplies(int code, Call call) {
    const std::string command = std::to_string(code);
    int wrong = 0;
    for (int round = 0; round < kRounds; ++round) {
      if (call(command.c_str()) != static_cast<unsigned>(code)) ++wrong;
    }
    return wrong;
  }

  template <typename Call>
  static void expectOneAtATime(const OneAtATime& connection, Call call) {
    int wrong[2] = {-1, -1};
    std::thread first([&] { wrong[0] = wrongReplies(1003, call); });
    std::thread second([&] { wrong[1] = wrongReplies(2006, call); });
    first.join();
    second.join();
    EXPECT_EQ(wrong[0], 0);
    EXPECT_EQ(wrong[1], 0);
    EXPECT_FALSE(connection.interleaved);
    EXPECT_EQ(connection.exchanges, 2 * kRounds);
  }

  LogWatch log;
};

TEST_F(Threads, DoNotInterleaveOnTheWeighingConnection) {
  OneAtATime connection;
  VcoClientApi client(&connection, nullptr);
  expectOneAtATime(connection, [&](const char* command) {
    return client.sendRawCmdToLC(command, nullptr, nullptr, 0, 1000);
  });
}

TEST_F(Threads, DoNotInterleaveOnThePrintingConnection) {
  OneAtATime connection;
  VcoClientApi client(nullptr, &connection);
  // The command is the last thing the stand-in reads of the request: it ends at the quote.
  expectOneAtATime(connection, [&](const char* command) {
    return client.sendRawCmdToPrt("P", command, 0, nullptr, nullptr, 0, 1000);
  });
}

TEST_F(Threads, ExchangeOnBothConnectionsAtTheSameTime) {
  Meeting meeting;
  MeetingConnection weighing(meeting);
  MeetingConnection printing(meeting);
  VcoClientApi client(&weighing, &printing);
  unsigned codes[2] = {99, 99};
  std::thread scale([&] { codes[0] = client.setZero(); });
  std::thread printer([&] { codes[1] = client.setOverloadAlarm(1); });
  scale.join();
  printer.join();
  EXPECT_EQ(codes[0], 0U);
  EXPECT_EQ(codes[1], 0U);
}

TEST_F(Threads, ReadTheLastErrorWhileCommandsChangeIt) {
  OneAtATime connection;
  VcoClientApi client(&connection, nullptr);
  std::atomic<bool> done{false};
  bool onlyKnownCodes = true;
  std::thread reader([&] {
    while (!done) {
      const std::int32_t code = client.getLastErrCode();
      if (code != 0 && code != 5) onlyKnownCodes = false;
    }
  });
  for (int round = 0; round < kRounds; ++round) client.sendRawCmdToLC(nullptr, "", nullptr, 0, 0);
  done = true;
  reader.join();
  EXPECT_TRUE(onlyKnownCodes);
  EXPECT_EQ(client.getLastErrCode(), 5);
}

}  // namespace
}  // namespace tolvex
