// Many clients: at once, and one after another.
#include <atomic>
#include <set>

#include "server_fixture.h"
#include "test_client.h"
#include "wire_samples.h"

namespace tolvex::sim {
namespace {

constexpr int kClients = 100;  // on each port
constexpr int kRounds = 10;
// A weight that no other client has in no other round: 0.001 to 1.000 kg.
std::string weightOf(int client, int round) {
  const std::string grams = std::to_string(1000 + (client * kRounds + round) % 1000);
  return "0." + grams.substr(1);
}

std::string lineOf(int client, int round) {
  return "client " + std::to_string(client) + " round " + std::to_string(round);
}

// Each client is refused in rounds of its own: the font is too small then.
bool isPrinted(int client, int round) { return (client + round) % 3 != 0; }

class Crowd : public ServerFixture {
 protected:
  /// Has all clients exchange at once, each on a thread of its own, and checks all replies.
  void exchangeAll() {
    std::vector<std::thread> threads;
    for (int client = 0; client < kClients; ++client) {
      threads.emplace_back([this, client] { run([&] { weigh(client); }); });
      threads.emplace_back([this, client] { run([&] { print(client); }); });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(wrongReplies_, 0);
  }

  // An exception of a client counts as a wrong reply.
  template <typename Function>
  void run(Function function) {
    try {
      function();
    } catch (const std::exception& error) {
      ++wrongReplies_;
      ADD_FAILURE() << error.what();
    }
  }

  void weigh(int number) {
    TestClient client(weighingPort_);
    for (int round = 0; round < kRounds; ++round) {
      const std::string weight = weightOf(number, round);
      expect(client, R"({"cmd":"setpretare","tareValue":")" + weight + R"("})",
             R"({"result":"0","tare":")" + weight + R"("})");
    }
  }

  void print(int number) {
    TestClient client(printingPort_);
    for (int round = 0; round < kRounds; ++round) {
      const bool printed = isPrinted(number, round);
      expect(client,
             std::string(R"({"cmd":"printtext","printerType":"1","fontsize":")") +
                 (printed ? "24" : "7") + R"(","text":")" + lineOf(number, round) + R"("})",
             printed ? R"({"result":"0"})" : R"({"result":"2"})");
    }
  }

  void expect(TestClient& client, const std::string& request, const std::string& reply) {
    client.send(request);
    const std::string received = client.receive(reply.size());
    if (received == reply) return;
    ++wrongReplies_;
    ADD_FAILURE() << request << " -> " << received;
  }

  /// The texts on the paper of the only job.
  std::multiset<std::string> printedLines() {
    std::multiset<std::string> lines;
    onServer([&] {
      for (const PaperItem& item : devices_.printers.jobs().jobs().at(0)->paper().items()) {
        if (const auto* text = std::get_if<TextItem>(&item)) lines.insert(text->text);
      }
    });
    return lines;
  }

  static std::multiset<std::string> expectedLines() {
    std::multiset<std::string> lines;
    for (int client = 0; client < kClients; ++client) {
      for (int round = 0; round < kRounds; ++round) {
        if (isPrinted(client, round)) lines.insert(lineOf(client, round));
      }
    }
    return lines;
  }

  std::size_t countOf(Outcome outcome) {
    return onServer([&] {
      std::size_t count = 0;
      for (const TrafficEntry& entry : traffic_.entries()) count += entry.outcome == outcome;
      return count;
    });
  }

  void breakWith(FaultKind kind, const char* command) {
    FaultRule rule = defaultRule(kind);
    rule.command = command;
    rule.time = std::chrono::milliseconds(3);
    rule.firstPiece = 5;
    onServer([&] { return faults_.add(rule); });
  }

  std::atomic<int> wrongReplies_{0};
};

TEST_F(Crowd, EveryClientGetsItsOwnReplies) {
  exchangeAll();
  EXPECT_EQ(printedLines(), expectedLines());
  awaitNoClients(Half::Weighing);
  awaitNoClients(Half::Printing);
  EXPECT_EQ(countOf(Outcome::Answered), 2U * kClients * kRounds);
}

TEST_F(Crowd, EveryClientGetsItsOwnRepliesLateAndInPiecesToo) {
  breakWith(FaultKind::TwoPieces, "setpretare");
  breakWith(FaultKind::Delay, "printtext");
  exchangeAll();
  EXPECT_EQ(printedLines(), expectedLines());
  awaitNoClients(Half::Weighing);
  awaitNoClients(Half::Printing);
  EXPECT_EQ(countOf(Outcome::Answered), 2U * kClients * kRounds);
}

// What a client sends before it leaves, one kind after another.
std::string partingBytes(int number) {
  const std::vector<std::string> kinds = {"", "{", R"({"cmd":"getwei)", "junk", kCheck, kLevel};
  return kinds[static_cast<std::size_t>(number) % kinds.size()];
}

// Under Wine each of them takes milliseconds, and a port at which hundreds of connections were reset
// before they were accepted takes no more.
#ifdef _WIN32
constexpr int kCrowd = 500;
constexpr bool kCrowdMayVanish = false;
#else
constexpr int kCrowd = 10'000;
constexpr bool kCrowdMayVanish = true;
#endif

TEST_F(Crowd, ThousandsOfConnectionsInTurnLeaveNothingBehind) {
  for (const std::uint16_t port : {weighingPort_, printingPort_}) {
    for (int i = 0; i < kCrowd; ++i) {
      TestClient client(port);
      client.send(partingBytes(i));
      if (kCrowdMayVanish && i % 2 == 0) client.vanish();
    }
  }
  EXPECT_EQ(TestClient(weighingPort_).ask(kCheck), R"({"result":"0"})");
  EXPECT_EQ(TestClient(printingPort_).ask(kLevel), R"({"result":"0","level":"5"})");
  awaitNoClients(Half::Weighing);
  awaitNoClients(Half::Printing);
  EXPECT_EQ(onServer([this] { return troubles_; }), 0);
}

}  // namespace
}  // namespace tolvex::sim
