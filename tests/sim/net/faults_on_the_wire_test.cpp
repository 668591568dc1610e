// What a client sees of each fault, on both ports.
#include <ostream>

#include "exchange/faulty_reply.h"
#include "server_fixture.h"
#include "test_client.h"

namespace tolvex::sim {
namespace {

using std::chrono::microseconds;
using std::chrono::milliseconds;

constexpr milliseconds kLate{50};
constexpr milliseconds kNever{FaultRule::kMaxTime};

// A request with an effect, its reply, and one that the faults of the tests leave alone.
struct Sample {
  Half half;
  const char* command;
  std::string request;
  std::string reply;

  friend std::ostream& operator<<(std::ostream& stream, const Sample& sample) {
    return stream << sample.command;
  }
};

const Sample kSamples[] = {
    {Half::Weighing, "setpretare", R"({"cmd":"setpretare","tareValue":"0.12"})",
     R"({"result":"0","tare":"0.120"})"},
    {Half::Printing, "opencashbox", R"({"cmd":"opencashbox"})", R"({"result":"0"})"},
};
constexpr char kOther[] = R"({"cmd":"brew"})";

class FaultsOnTheWire : public ServerFixture, public ::testing::WithParamInterface<Sample> {
 protected:
  std::uint16_t port() const {
    return GetParam().half == Half::Weighing ? weighingPort_ : printingPort_;
  }
  const std::string& request() const { return GetParam().request; }
  const std::string& reply() const { return GetParam().reply; }
  std::string otherReply() const {
    return GetParam().half == Half::Weighing ? R"({"result":"1002"})" : R"({"result":"2002"})";
  }

  /// Switches a fault on for the command of the sample.
  void breakWith(FaultKind kind, const std::function<void(FaultRule&)>& set = {}) {
    FaultRule rule = defaultRule(kind);
    rule.half = GetParam().half;
    rule.command = GetParam().command;
    if (set) set(rule);
    onServer([&] { return faults_.add(rule); });
  }

  void mend() {
    onServer([this] { faults_.clear(); });
  }

  bool isCarriedOut() {
    return onServer([this] {
      return devices_.scale.weigh(Clock::now()).tare != 0 || devices_.drawer.openings() != 0;
    });
  }

  Outcome outcomeOf(std::uint64_t number) {
    return onServer([&] { return traffic_.find(number)->outcome; });
  }

  /// How long the first exchange took, when it is complete.
  microseconds finalDuration() {
    await([this] { return traffic_.find(1)->outcome != Outcome::Pending; });
    return onServer([this] { return traffic_.find(1)->duration; });
  }

  /// The connection serves further requests, and nothing else is on its way.
  void expectConnected(TestClient& client) {
    mend();
    EXPECT_EQ(client.ask(kOther), otherReply());
    EXPECT_EQ(client.ask(request()), reply());
  }

  /// It does not, and a new one does.
  void expectEnd(TestClient& client, TestClient::End end) {
    EXPECT_TRUE(client.endsWith(end));
    mend();
    TestClient next(port());
    EXPECT_EQ(next.ask(request()), reply());
  }
};

TEST_P(FaultsOnTheWire, ALateReplyIsWhole) {
  breakWith(FaultKind::Delay, [](FaultRule& rule) { rule.time = kLate; });
  TestClient client(port());
  EXPECT_EQ(client.ask(request()), reply());
  EXPECT_GE(finalDuration().count(), microseconds(kLate).count());
  EXPECT_EQ(outcomeOf(1), Outcome::Answered);
  expectConnected(client);
}

TEST_P(FaultsOnTheWire, ALateReplyHoldsUpItsOwnConnectionOnly) {
  breakWith(FaultKind::Delay, [](FaultRule& rule) { rule.time = kNever; });
  TestClient late(port());
  late.send(request() + kOther);
  TestClient other(port());
  for (int i = 0; i < 20; ++i) EXPECT_EQ(other.ask(kOther), otherReply());
  EXPECT_TRUE(isCarriedOut());
  EXPECT_EQ(onServer([this] { return traffic_.entries().size(); }), 21U);
}

TEST_P(FaultsOnTheWire, RepliesStayInOrderBehindALateOne) {
  breakWith(FaultKind::Delay, [](FaultRule& rule) { rule.time = kLate; });
  TestClient client(port());
  client.send(kOther + request() + kOther);
  const std::string all = otherReply() + reply() + otherReply();
  EXPECT_EQ(client.receive(all.size()), all);
}

TEST_P(FaultsOnTheWire, AClientThatLeavesBeforeALateReplyLosesIt) {
  breakWith(FaultKind::Delay, [](FaultRule& rule) { rule.time = kLate; });
  TestClient client(port());
  client.send(request());
  await([this] { return !traffic_.entries().empty(); });
  client.vanish();
  await([this] { return traffic_.find(1)->outcome != Outcome::Pending; });
  EXPECT_EQ(outcomeOf(1), Outcome::Lost);
}

TEST_P(FaultsOnTheWire, WhoWaitsForAReplyCanBeDropped) {
  breakWith(FaultKind::Delay, [](FaultRule& rule) { rule.time = kNever; });
  TestClient client(port());
  client.send(request());
  await([this] { return !traffic_.entries().empty(); });
  onServer([this] { server_.dropWaiting(); });
  EXPECT_TRUE(client.endsWith(TestClient::End::Reset));
  await([this] { return traffic_.connections(GetParam().half) == 0; });
  EXPECT_EQ(outcomeOf(1), Outcome::Lost);
}

#ifndef _WIN32  // which tells of it only where something is read or written
TEST_P(FaultsOnTheWire, AReplyDoesNotWaitForAClientThatHasReset) {
  breakWith(FaultKind::Delay, [](FaultRule& rule) { rule.time = kNever; });
  TestClient client(port());
  client.send(request() + kOther);
  await([this] { return !traffic_.entries().empty(); });
  client.vanish();
  awaitNoClients(GetParam().half);
  EXPECT_EQ(outcomeOf(1), Outcome::Lost);
}
#endif

TEST_P(FaultsOnTheWire, AHalfClosedClientStillGetsItsLateReply) {
  breakWith(FaultKind::Delay, [](FaultRule& rule) { rule.time = kLate; });
  TestClient client(port());
  client.send(request());
  client.endSending();
  EXPECT_EQ(client.receiveAll(), reply());
}

TEST_P(FaultsOnTheWire, AConnectionWithoutAnAnswerGoesOn) {
  breakWith(FaultKind::NoAnswer);
  TestClient client(port());
  client.send(request());
  EXPECT_EQ(client.ask(kOther), otherReply());
  EXPECT_TRUE(isCarriedOut());
  EXPECT_EQ(outcomeOf(1), Outcome::Unanswered);
  expectConnected(client);
}

TEST_P(FaultsOnTheWire, ManyRequestsInARowMayStayUnanswered) {
  breakWith(FaultKind::NoAnswer, [](FaultRule& rule) { rule.command.clear(); });
  std::string many;
  for (int i = 0; i < 5000; ++i) many += "{}";
  TestClient client(port());
  client.send(many);
  await([this] { return traffic_.newest() == 5000; });
  expectConnected(client);
}

TEST_P(FaultsOnTheWire, WhatARequestBringsAboutComesBeforeTheNextOneAlsoWithoutAnAnswer) {
  breakWith(FaultKind::NoAnswer);
  onServer([this] {
    exchanger_.observe([this](const Exchange& exchange) {
      if (exchange.request != request()) return;
      server_.post([this] {
        FaultRule rule = defaultRule(FaultKind::Result);
        rule.code = static_cast<std::int64_t>(traffic_.newest());
        faults_.clear();
        faults_.add(rule);
      });
    });
  });
  TestClient client(port());
  client.send(request() + kOther);
  EXPECT_EQ(client.receive(), R"({"result":"1"})");
}

TEST_P(FaultsOnTheWire, AClosedConnectionEndsWithoutAReply) {
  breakWith(FaultKind::Close);
  TestClient client(port());
  client.send(request() + kOther);
  expectEnd(client, TestClient::End::Closed);
  EXPECT_EQ(outcomeOf(1), Outcome::Closed);
  EXPECT_EQ(onServer([this] { return traffic_.newest(); }), 2U);
}

TEST_P(FaultsOnTheWire, WhoSendsOnAClosedConnectionLearnsItAtOnce) {
  breakWith(FaultKind::Close);
  TestClient client(port());
  client.send(request());
  EXPECT_TRUE(client.endsWith(TestClient::End::Closed));
  const auto sendOn = [&] {
    for (int i = 0; i < 1000; ++i) client.send(kOther);
  };
  EXPECT_THROW(sendOn(), std::runtime_error);
}

TEST_P(FaultsOnTheWire, AResetConnectionEndsWithAnError) {
  breakWith(FaultKind::Reset);
  TestClient client(port());
  client.send(request());
  expectEnd(client, TestClient::End::Reset);
  EXPECT_EQ(outcomeOf(1), Outcome::Reset);
}

TEST_P(FaultsOnTheWire, RepliesBeforeTheEndStillArrive) {
  for (const FaultKind kind : {FaultKind::Close, FaultKind::Reset}) {
    breakWith(kind);
    TestClient client(port());
    EXPECT_EQ(client.ask(kOther), otherReply());
    client.send(request());
    expectEnd(client, kind == FaultKind::Close ? TestClient::End::Closed : TestClient::End::Reset);
  }
}

TEST_P(FaultsOnTheWire, TheFirstOfTwoPiecesComesAlone) {
  breakWith(FaultKind::TwoPieces, [](FaultRule& rule) {
    rule.firstPiece = 7;
    rule.time = kNever;
  });
  TestClient client(port());
  EXPECT_EQ(client.ask(request()), reply().substr(0, 7));
  EXPECT_EQ(outcomeOf(1), Outcome::Pending);
}

TEST_P(FaultsOnTheWire, TwoPiecesAreTheWholeReply) {
  breakWith(FaultKind::TwoPieces, [](FaultRule& rule) { rule.time = kLate; });
  TestClient client(port());
  client.send(request());
  EXPECT_EQ(client.receive(reply().size()), reply());
  await([this] { return traffic_.find(1)->outcome != Outcome::Pending; });
  EXPECT_EQ(outcomeOf(1), Outcome::Answered);
  expectConnected(client);
}

TEST_P(FaultsOnTheWire, GarbageIsAsLongAsTheRuleSays) {
  breakWith(FaultKind::Garbage, [](FaultRule& rule) { rule.bytes = 100; });
  TestClient client(port());
  client.send(request());
  EXPECT_EQ(client.receive(100), garbage(100));
  EXPECT_TRUE(isCarriedOut());
  expectConnected(client);
}

TEST_P(FaultsOnTheWire, AnOversizedReplyIsMoreThanAClientReadsAtOnce) {
  breakWith(FaultKind::Oversized, [](FaultRule& rule) { rule.bytes = 3000; });
  TestClient client(port());
  client.send(request());
  EXPECT_EQ(client.receive(3000), padded(reply(), 3000));
  expectConnected(client);
}

TEST_P(FaultsOnTheWire, AnOversizedReplyMayBeOfManyMegabytes) {
  breakWith(FaultKind::Oversized, [](FaultRule& rule) { rule.bytes = FaultRule::kMaxBytes; });
  TestClient client(port());
  client.send(request());
  EXPECT_TRUE(client.receive(FaultRule::kMaxBytes) == padded(reply(), FaultRule::kMaxBytes));
  expectConnected(client);
}

TEST_P(FaultsOnTheWire, AWrongTypeIsANumberAsResult) {
  breakWith(FaultKind::WrongType);
  TestClient client(port());
  EXPECT_EQ(client.ask(request()), withNumberAsResult(reply()));
  expectConnected(client);
}

TEST_P(FaultsOnTheWire, ARefusedRequestIsAnsweredWithItsCodeAndNotCarriedOut) {
  breakWith(FaultKind::Result, [](FaultRule& rule) { rule.code = 2006; });
  TestClient client(port());
  EXPECT_EQ(client.ask(request()), R"({"result":"2006"})");
  EXPECT_FALSE(isCarriedOut());
  expectConnected(client);
}

TEST_P(FaultsOnTheWire, SeveralFaultsActTogether) {
  breakWith(FaultKind::TwoPieces, [](FaultRule& rule) { rule.time = kLate; });
  breakWith(FaultKind::Delay, [](FaultRule& rule) { rule.time = kLate; });
  breakWith(FaultKind::Oversized);
  breakWith(FaultKind::WrongType);
  breakWith(FaultKind::Result, [](FaultRule& rule) { rule.code = -1; });
  TestClient client(port());
  client.send(request());
  EXPECT_EQ(client.receive(4096), padded(R"({"result":-1})", 4096));
  EXPECT_GE(finalDuration().count(), microseconds(2 * kLate).count());
  expectConnected(client);
}

TEST_P(FaultsOnTheWire, AnEndMayComeLate) {
  breakWith(FaultKind::Delay, [](FaultRule& rule) { rule.time = kLate; });
  breakWith(FaultKind::Reset);
  TestClient client(port());
  client.send(request());
  expectEnd(client, TestClient::End::Reset);
  EXPECT_GE(finalDuration().count(), microseconds(kLate).count());
}

TEST_P(FaultsOnTheWire, AFaultActsAsOftenAsItSays) {
  breakWith(FaultKind::Result, [](FaultRule& rule) {
    rule.code = 5;
    rule.remaining = 3;
  });
  TestClient client(port());
  EXPECT_EQ(client.ask(kOther), otherReply());
  for (int i = 0; i < 3; ++i) EXPECT_EQ(client.ask(request()), R"({"result":"5"})");
  EXPECT_EQ(client.ask(request()), reply());
  EXPECT_TRUE(onServer([this] { return faults_.rules().empty(); }));
}

TEST_P(FaultsOnTheWire, AFaultOfThisPortIsNoneOfTheOther) {
  breakWith(FaultKind::Reset, [](FaultRule& rule) { rule.command.clear(); });
  const Sample& other = kSamples[GetParam().half == Half::Weighing ? 1 : 0];
  TestClient client(other.half == Half::Weighing ? weighingPort_ : printingPort_);
  EXPECT_EQ(client.ask(other.request), other.reply);
}

TEST_P(FaultsOnTheWire, ATooLongRequestWithoutAnAnswerLeavesOthersAlone) {
  breakWith(FaultKind::NoAnswer, [](FaultRule& rule) { rule.command.clear(); });
  TestClient client(port());
  client.send("{" + std::string(JsonSplitter::kMaxObjectBytes + 1, 'x'));
  await([this] { return traffic_.newest() == 1; });
  mend();
  client.send(request());
  TestClient next(port());
  EXPECT_EQ(next.ask(request()), reply());
}

INSTANTIATE_TEST_SUITE_P(OnEachPort, FaultsOnTheWire, ::testing::ValuesIn(kSamples),
                         [](const ::testing::TestParamInfo<Sample>& tested) {
                           return std::string(tested.param.half == Half::Weighing ? "Weighing"
                                                                                  : "Printing");
                         });

}  // namespace
}  // namespace tolvex::sim
