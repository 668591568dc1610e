#include "net/server.h"

#include <chrono>
#include <future>
#include <memory>

#include "server_fixture.h"
#include "test_client.h"
#include "wire_samples.h"

namespace tolvex::sim {
namespace {

constexpr char kLevelReply[] = R"({"result":"0","level":"5"})";

class ServerTest : public ServerFixture {};

TEST_F(ServerTest, EachPortServesItsHalf) {
  TestClient weighing(weighingPort_);
  TestClient printing(printingPort_);
  EXPECT_EQ(weighing.ask(kCheck), kOk);
  EXPECT_EQ(printing.ask(kLevel), kLevelReply);
  EXPECT_EQ(weighing.ask(R"({"cmd":"setOverloadAlarm","enable":"1"})"), R"({"result":"1002"})");
  EXPECT_EQ(printing.ask(R"({"cmd":"setOverloadAlarm","enable":"1"})"), kOk);
  EXPECT_TRUE(onServer([this] { return devices_.scale.overloadAlarm(); }));
}

TEST_F(ServerTest, APostedChangeIsSeenByTheNextRequest) {
  TestClient client(weighingPort_);
  EXPECT_EQ(client.ask(kCheck), kOk);
  onServer([this] { devices_.scale.unplug(); });
  EXPECT_EQ(client.ask(kCheck), R"({"result":"1007"})");
}

TEST_F(ServerTest, AReplyArrivesAsOneSegment) {
  TestClient client(weighingPort_);
  for (int i = 0; i < 50; ++i) {
    EXPECT_EQ(client.ask(R"({"cmd":"getweight"})"),
              R"({"result":"0","net":"0.000","tare":"0.000","zero":"1","tareType":"N",)"
              R"("highResNet":"0.0000","weightUnit":"kg"})");
  }
}

TEST_F(ServerTest, AnswersPipelinedRequestsInOrder) {
  TestClient client(weighingPort_);
  client.send(R"({"cmd":"setpretare","tareValue":"1"}{"cmd":"brew"})"
              "\r\n"
              R"({"cmd":"clear_tare"})");
  const std::string expected =
      R"({"result":"0","tare":"1.000"}{"result":"1002"}{"result":"0","tare":"0.000"})";
  EXPECT_EQ(client.receive(expected.size()), expected);
}

TEST_F(ServerTest, AnswersARequestThatArrivesByteByByte) {
  TestClient client(weighingPort_);
  for (const char c : std::string(kCheck)) client.send(std::string(1, c));
  EXPECT_EQ(client.receive(), kOk);
}

TEST_F(ServerTest, ServesManyClientsAtOnce) {
  std::vector<TestClient> clients;
  for (int i = 0; i < 50; ++i) {
    clients.emplace_back(weighingPort_);
    clients.emplace_back(printingPort_);
  }
  for (std::size_t i = 0; i < clients.size(); ++i) clients[i].send(i % 2 == 0 ? kCheck : kLevel);
  for (std::size_t i = clients.size(); i-- > 0;) {
    EXPECT_EQ(clients[i].receive(), i % 2 == 0 ? kOk : kLevelReply) << i;
  }
}

TEST_F(ServerTest, ClientsThatVanishDoNotHarmOthers) {
  TestClient other(weighingPort_);
  TestClient inTheMiddle(weighingPort_);
  inTheMiddle.send(R"({"cmd":)");
  inTheMiddle.vanish();
  TestClient beforeTheReply(weighingPort_);
  beforeTheReply.send(repeat(kCheck, 1000));
  beforeTheReply.vanish();
  EXPECT_EQ(other.ask(kCheck), kOk);
  EXPECT_EQ(TestClient(weighingPort_).ask(kCheck), kOk);
}

TEST_F(ServerTest, AClientThatHasFinishedSendingGetsAllItsReplies) {
  TestClient client(weighingPort_);
  client.send(repeat(kCheck, 300));
  client.endSending();
  EXPECT_EQ(client.receiveAll(), repeat(kOk, 300));
}

TEST_F(ServerTest, AFloodThatIsNotReadHoldsUpOnlyItself) {
  // Far more than the system buffers on the way.
  constexpr int kRequests = 5000;
  TestClient flooding(weighingPort_);
  flooding.sendInBackground(repeat(R"({"cmd":"getbaseinfo","VcoVersion":"3"})", kRequests));
  TestClient other(weighingPort_);
  EXPECT_EQ(other.ask(kCheck), kOk);
  const std::string reply =
      TestClient(weighingPort_).ask(R"({"cmd":"getbaseinfo","VcoVersion":"3"})");
  EXPECT_TRUE(flooding.receive(reply.size() * kRequests) == repeat(reply, kRequests));
}

TEST_F(ServerTest, AnswersGarbageAndGoesOn) {
  TestClient client(printingPort_);
  EXPECT_EQ(client.ask("hello"), kUnreadable);
  EXPECT_EQ(client.ask(std::string(" world ") + kLevel), kLevelReply);
  EXPECT_EQ(client.ask("{broken}"), kUnreadable);
  EXPECT_EQ(client.ask(kLevel), kLevelReply);
}

TEST_F(ServerTest, ClosesAfterAnOversizedRequest) {
  TestClient client(weighingPort_);
  client.send(kCheck + (R"({"text":")" + std::string(JsonSplitter::kMaxObjectBytes, 'x')));
  EXPECT_EQ(client.receiveAll(), std::string(kOk) + kUnreadable);
}

// Otherwise the reset of a connection with unread bytes could overtake the reply.
TEST_F(ServerTest, TheLastReplyArrivesEvenIfMuchMoreIsSent) {
  TestClient client(weighingPort_);
  client.sendInBackground("{" + std::string(5 * JsonSplitter::kMaxObjectBytes, 'x'));
  EXPECT_EQ(client.receiveAll(), kUnreadable);
}

TEST_F(ServerTest, ReportsEveryExchange) {
  TestClient weighing(weighingPort_);
  TestClient printing(printingPort_);
  weighing.ask(kCheck);
  printing.ask("junk");
  const auto exchanges = [this] {
    std::vector<std::string> texts;
    for (const TrafficEntry& entry : traffic_.entries()) {
      texts.push_back(std::string(name(entry.half)) + " " +
                      entry.client.substr(0, entry.client.find(':')) + " " + entry.request +
                      " -> " + entry.reply);
    }
    return texts;
  };
  EXPECT_EQ(
      onServer(exchanges),
      (std::vector<std::string>{R"(weighing 127.0.0.1 {"cmd":"checkConnection"} -> {"result":"0"})",
                                R"(printing 127.0.0.1 junk -> {"result":"7"})"}));
}

TEST_F(ServerTest, ClosesItsConnectionsWhenItGoes) {
  auto second = std::make_unique<Server>(exchanger_, ServerEvents());
  const std::uint16_t port = second->listen(Half::Weighing, "127.0.0.1", 0);
  std::thread thread([&second] { second->run(); });
  TestClient client(port);
  EXPECT_EQ(client.ask(kCheck), kOk);
  second->stop();
  thread.join();
  second.reset();
  EXPECT_EQ(client.receiveAll(), "");
}

TEST_F(ServerTest, CallsAFunctionLater) {
  std::vector<int> calls;
  std::promise<void> done;
  onServer([&] {
    server_.after(std::chrono::milliseconds(20), [&] {
      calls.push_back(2);
      done.set_value();
    });
    server_.after(std::chrono::milliseconds(0), [&] { calls.push_back(1); });
    calls.push_back(0);
  });
  done.get_future().wait();
  EXPECT_EQ(calls, (std::vector<int>{0, 1, 2}));
}

TEST_F(ServerTest, DropsWhatIsStillToBeCalledWhenItGoes) {
  const auto witness = std::make_shared<int>(0);
  auto second = std::make_unique<Server>(exchanger_, ServerEvents());
  second->after(std::chrono::hours(1), [witness] { ++*witness; });
  EXPECT_EQ(witness.use_count(), 2);
  second.reset();
  EXPECT_EQ(witness.use_count(), 1);
  EXPECT_EQ(*witness, 0);
}

}  // namespace
}  // namespace tolvex::sim
