#include "exchange/exchanger.h"

#include <gtest/gtest.h>

#include "devices/devices.h"
#include "exchange/service_answerer.h"

namespace tolvex::sim {
namespace {

using std::chrono::milliseconds;

constexpr char kWeigh[] = R"({"cmd":"setpretare","tareValue":"1"})";
constexpr char kWeighReply[] = R"({"result":"0","tare":"1.000"})";
constexpr char kPrint[] = R"({"cmd":"printtext","printerType":"1","fontsize":"24","text":"Tea"})";
constexpr char kOk[] = R"({"result":"0"})";

class ExchangerTest : public ::testing::Test {
 protected:
  Delivery ask(Half half, const std::string& request,
               JsonSplitter::Kind kind = JsonSplitter::Kind::Object) {
    const Caller caller{half, half == Half::Weighing ? 1U : 2U, "127.0.0.1:4444"};
    return exchanger_.exchange(caller, {kind, request}, now_, WallTime(std::chrono::hours(3)));
  }
  Delivery weigh() { return ask(Half::Weighing, kWeigh); }

  FaultRule rule(FaultKind kind) {
    FaultRule rule = defaultRule(kind);
    if (kind == FaultKind::Delay) rule.time = milliseconds(1500);
    if (kind == FaultKind::Result) rule.code = 2006;
    return rule;
  }
  void breakWith(FaultKind kind) { faults_.add(rule(kind)); }
  void breakWithoutEffect(FaultKind kind) {
    FaultRule without = rule(kind);
    without.carriedOut = false;
    faults_.add(without);
  }

  bool isCarriedOut() const { return devices_.scale.weigh(now_).tare != 0; }
  const TrafficEntry& newest() const { return traffic_.entries().back(); }

  TimePoint now_{std::chrono::hours(1)};
  Devices devices_;
  Service service_{devices_};
  ServiceAnswerer answerer_{service_};
  FaultBoard faults_;
  TrafficLog traffic_;
  Exchanger exchanger_{answerer_, faults_, traffic_, devices_.printers.jobs()};
};

TEST_F(ExchangerTest, WithoutFaultsTheReplyOfTheServiceGoesOutAtOnce) {
  const Delivery delivery = weigh();
  EXPECT_EQ(delivery.reply, kWeighReply);
  EXPECT_EQ(delivery.delay, milliseconds(0));
  EXPECT_EQ(delivery.firstPiece, 0U);
  EXPECT_EQ(delivery.after, After::Keep);
  EXPECT_TRUE(isCarriedOut());
}

TEST_F(ExchangerTest, WhatIsNoRequestIsAnsweredAsUnreadable) {
  EXPECT_EQ(ask(Half::Weighing, "junk", JsonSplitter::Kind::Garbage).reply, R"({"result":"7"})");
  EXPECT_EQ(newest().command, "");
  EXPECT_FALSE(newest().known);
  EXPECT_EQ(newest().result, 7);
}

TEST_F(ExchangerTest, TheConnectionIsClosedAfterAnOversizedRequest) {
  const Delivery delivery = ask(Half::Weighing, R"({"text":")", JsonSplitter::Kind::TooLong);
  EXPECT_EQ(delivery.reply, R"({"result":"7"})");
  EXPECT_EQ(delivery.after, After::Close);
}

TEST_F(ExchangerTest, RecordsTheExchange) {
  const Delivery delivery = ask(Half::Printing, kPrint);
  const TrafficEntry& entry = newest();
  EXPECT_EQ(entry.number, delivery.number);
  EXPECT_EQ(entry.half, Half::Printing);
  EXPECT_EQ(entry.connection, 2U);
  EXPECT_EQ(entry.client, "127.0.0.1:4444");
  EXPECT_EQ(entry.time, WallTime(std::chrono::hours(3)));
  EXPECT_EQ(entry.request, kPrint);
  EXPECT_EQ(entry.reply, kOk);
  EXPECT_EQ(entry.requestBytes, entry.request.size());
  EXPECT_EQ(entry.replyBytes, entry.reply.size());
  EXPECT_EQ(entry.command, "printtext");
  EXPECT_TRUE(entry.known);
  EXPECT_EQ(entry.result, 0);
  EXPECT_EQ(entry.job, 1);
  EXPECT_EQ(entry.outcome, Outcome::Pending);
  EXPECT_EQ(entry.faults, std::vector<std::string>{});
}

TEST_F(ExchangerTest, OnlyWhatChangesAJobBelongsToIt) {
  ask(Half::Printing, kPrint);
  ask(Half::Printing, R"({"cmd":"printerStatus","printerType":"1"})");
  EXPECT_EQ(newest().job, 0);
  ask(Half::Printing, R"({"cmd":"beginPrint","printerType":"1"})");
  EXPECT_EQ(newest().job, 1);
  ask(Half::Printing, kPrint);
  EXPECT_EQ(newest().job, 2);
}

TEST_F(ExchangerTest, ACommandOfTheOtherPortIsUnknown) {
  ask(Half::Weighing, kPrint);
  EXPECT_EQ(newest().command, "printtext");
  EXPECT_FALSE(newest().known);
  EXPECT_EQ(newest().result, 1002);
}

TEST_F(ExchangerTest, CompletesTheRecordWhenTheReplyIsDelivered) {
  const Delivery delivery = weigh();
  now_ += milliseconds(3);
  exchanger_.delivered(delivery, now_);
  EXPECT_EQ(newest().outcome, Outcome::Answered);
  EXPECT_EQ(newest().duration, milliseconds(3));
  exchanger_.lost(weigh(), now_);
  EXPECT_EQ(newest().outcome, Outcome::Lost);
}

TEST_F(ExchangerTest, ADeliveryFromBeforeARestartCompletesNothing) {
  const Delivery delivery = weigh();
  traffic_.restart();
  weigh();
  exchanger_.delivered(delivery, now_);
  EXPECT_EQ(newest().number, delivery.number);
  EXPECT_EQ(newest().outcome, Outcome::Pending);
}

TEST_F(ExchangerTest, RecordsTheBeginningOfLongTexts) {
  FaultRule oversized = rule(FaultKind::Oversized);
  oversized.bytes = FaultRule::kMaxBytes;
  faults_.add(oversized);
  const Delivery delivery = ask(Half::Weighing, "{" + std::string(1'000'000, ' ') + "}");
  EXPECT_EQ(delivery.reply.size(), FaultRule::kMaxBytes);
  EXPECT_EQ(newest().request.size(), TrafficLog::kMaxTextBytes);
  EXPECT_EQ(newest().requestBytes, 1'000'002U);
  EXPECT_EQ(newest().reply.size(), TrafficLog::kMaxTextBytes);
  EXPECT_EQ(newest().replyBytes, FaultRule::kMaxBytes);
}

TEST_F(ExchangerTest, ObserversSeeEachExchangeBeforeItIsDelivered) {
  std::vector<std::string> seen;
  exchanger_.observe([&](const Exchange& exchange) {
    seen.push_back(exchange.caller.client + " " + std::string(exchange.request) + " " +
                   std::string(exchange.answer) + " " + exchange.delivery.reply);
    EXPECT_EQ(traffic_.find(exchange.delivery.number)->outcome, Outcome::Pending);
  });
  breakWith(FaultKind::WrongType);
  weigh();
  breakWithoutEffect(FaultKind::NoAnswer);
  weigh();
  const std::string begin = std::string("127.0.0.1:4444 ") + kWeigh + " ";
  EXPECT_EQ(seen, (std::vector<std::string>{begin + kWeighReply + R"( {"result":0,"tare":"1.000"})",
                                            begin + " "}));
}

// An answerer that gives no reply.

class Withholder : public Answerer {
 public:
  Answer answer(Half, std::string_view, TimePoint) override { return {"", instead}; }

  After instead = After::Keep;
};

class WithheldTest : public ExchangerTest {
 protected:
  Delivery withheld() {
    const Caller caller{Half::Weighing, 1, "127.0.0.1:4444"};
    return withholding_.exchange(caller, {JsonSplitter::Kind::Object, kWeigh}, now_,
                                 WallTime(std::chrono::hours(3)));
  }

  Outcome outcome() {
    withholding_.delivered(withheld(), now_);
    return newest().outcome;
  }

  Withholder withholder_;
  Exchanger withholding_{withholder_, faults_, traffic_, devices_.printers.jobs()};
};

TEST_F(WithheldTest, WhatComesInsteadOfAReplyComes) {
  EXPECT_EQ(outcome(), Outcome::Unanswered);
  withholder_.instead = After::Close;
  EXPECT_EQ(outcome(), Outcome::Closed);
  withholder_.instead = After::Reset;
  EXPECT_EQ(outcome(), Outcome::Reset);
  EXPECT_EQ(newest().result, std::nullopt);
  EXPECT_EQ(newest().faults, std::vector<std::string>{});
}

TEST_F(WithheldTest, FaultsMakeNoReplyOfIt) {
  withholder_.instead = After::Close;
  for (const FaultKind kind :
       {FaultKind::WrongType, FaultKind::Oversized, FaultKind::Garbage, FaultKind::TwoPieces}) {
    breakWith(kind);
  }
  FaultRule refusal = rule(FaultKind::Result);
  refusal.carriedOut = true;
  faults_.add(refusal);
  const Delivery delivery = withheld();
  EXPECT_EQ(delivery.reply, "");
  EXPECT_EQ(delivery.firstPiece, 0U);
  EXPECT_EQ(delivery.after, After::Close);
}

// What each fault does by itself.

TEST_F(ExchangerTest, ADelayComesBeforeTheReply) {
  breakWith(FaultKind::Delay);
  const Delivery delivery = weigh();
  EXPECT_EQ(delivery.delay, milliseconds(1500));
  EXPECT_EQ(delivery.reply, kWeighReply);
  EXPECT_EQ(newest().faults, std::vector<std::string>{"delay"});
}

TEST_F(ExchangerTest, NoAnswerKeepsTheConnection) {
  breakWith(FaultKind::NoAnswer);
  const Delivery delivery = weigh();
  EXPECT_EQ(delivery.reply, "");
  EXPECT_EQ(delivery.after, After::Keep);
  EXPECT_TRUE(isCarriedOut());
  EXPECT_EQ(newest().result, 0);
  EXPECT_EQ(newest().reply, "");
  exchanger_.delivered(delivery, now_);
  EXPECT_EQ(newest().outcome, Outcome::Unanswered);
}

TEST_F(ExchangerTest, CloseAndResetEndTheConnectionWithoutAReply) {
  breakWith(FaultKind::Close);
  const Delivery close = weigh();
  EXPECT_EQ(close.reply, "");
  EXPECT_EQ(close.after, After::Close);
  exchanger_.delivered(close, now_);
  EXPECT_EQ(newest().outcome, Outcome::Closed);
  faults_.clear();
  breakWith(FaultKind::Reset);
  const Delivery reset = weigh();
  EXPECT_EQ(reset.reply, "");
  EXPECT_EQ(reset.after, After::Reset);
  exchanger_.delivered(reset, now_);
  EXPECT_EQ(newest().outcome, Outcome::Reset);
}

TEST_F(ExchangerTest, TwoPiecesAreSplitWhereTheRuleSays) {
  FaultRule split = rule(FaultKind::TwoPieces);
  for (const auto& [wanted, first] : std::vector<std::pair<std::size_t, std::size_t>>{
           {0, 14}, {1, 1}, {28, 28}, {29, 14}, {1000, 14}}) {
    faults_.clear();
    split.firstPiece = wanted;
    faults_.add(split);
    const Delivery delivery = weigh();
    EXPECT_EQ(delivery.reply, kWeighReply);
    EXPECT_EQ(delivery.firstPiece, first) << wanted;
    EXPECT_EQ(delivery.pause, milliseconds(200));
  }
}

TEST_F(ExchangerTest, GarbageOversizedAndWrongTypeChangeTheText) {
  breakWith(FaultKind::Garbage);
  EXPECT_EQ(weigh().reply.size(), 64U);
  EXPECT_EQ(newest().result, 0);
  faults_.clear();
  breakWith(FaultKind::Oversized);
  EXPECT_EQ(weigh().reply.size(), 4096U);
  faults_.clear();
  breakWith(FaultKind::WrongType);
  EXPECT_EQ(weigh().reply, R"({"result":0,"tare":"1.000"})");
}

TEST_F(ExchangerTest, ARefusalIsNotCarriedOutUnlessItSaysSo) {
  breakWith(FaultKind::Result);
  EXPECT_EQ(weigh().reply, R"({"result":"2006"})");
  EXPECT_FALSE(isCarriedOut());
  EXPECT_EQ(newest().result, 2006);
  faults_.clear();
  FaultRule carriedOut = rule(FaultKind::Result);
  carriedOut.carriedOut = true;
  faults_.add(carriedOut);
  EXPECT_EQ(weigh().reply, R"({"result":"2006"})");
  EXPECT_TRUE(isCarriedOut());
}

TEST_F(ExchangerTest, WhatIsNotCarriedOutChangesNothing) {
  for (const FaultKind kind : faultKinds()) {
    if (kind == FaultKind::Refuse) continue;
    faults_.clear();
    breakWithoutEffect(kind);
    weigh();
    EXPECT_FALSE(isCarriedOut()) << name(kind);
  }
}

TEST_F(ExchangerTest, AReplyWithoutAServiceIsThatTheErrorIsUnknown) {
  breakWithoutEffect(FaultKind::Delay);
  EXPECT_EQ(weigh().reply, R"({"result":"1"})");
  EXPECT_EQ(newest().result, std::nullopt);
}

TEST_F(ExchangerTest, OneRuleIsEnoughToKeepARequestFromBeingCarriedOut) {
  breakWithoutEffect(FaultKind::NoAnswer);
  breakWith(FaultKind::Delay);
  weigh();
  EXPECT_FALSE(isCarriedOut());
}

// Several at once.

TEST_F(ExchangerTest, AllFaultsOfAReplyActTogetherInWhateverOrderTheyWereSwitchedOn) {
  breakWith(FaultKind::TwoPieces);
  breakWith(FaultKind::Delay);
  breakWith(FaultKind::Oversized);
  breakWith(FaultKind::WrongType);
  breakWith(FaultKind::Result);
  const Delivery delivery = weigh();
  EXPECT_EQ(delivery.delay, milliseconds(1500));
  EXPECT_EQ(delivery.reply.substr(0, 29), R"({"result":2006,"padding":"xxx)");
  EXPECT_EQ(delivery.reply.size(), 4096U);
  EXPECT_EQ(delivery.firstPiece, 2048U);
  EXPECT_EQ(delivery.pause, milliseconds(200));
  EXPECT_EQ(newest().faults,
            (std::vector<std::string>{"two-pieces", "delay", "oversized", "wrong-type", "result"}));
}

TEST_F(ExchangerTest, GarbageTakesThePlaceOfTheText) {
  breakWith(FaultKind::Garbage);
  breakWith(FaultKind::Oversized);
  EXPECT_EQ(weigh().reply.size(), 64U);
}

TEST_F(ExchangerTest, AnEndComesAfterItsDelay) {
  breakWith(FaultKind::Reset);
  breakWith(FaultKind::Delay);
  breakWith(FaultKind::TwoPieces);
  const Delivery delivery = weigh();
  EXPECT_EQ(delivery.delay, milliseconds(1500));
  EXPECT_EQ(delivery.reply, "");
  EXPECT_EQ(delivery.firstPiece, 0U);
  EXPECT_EQ(delivery.after, After::Reset);
}

TEST_F(ExchangerTest, DelaysAddUpAndOfOthersTheLastOneActs) {
  breakWith(FaultKind::Delay);
  breakWith(FaultKind::Delay);
  breakWith(FaultKind::Result);
  FaultRule other = rule(FaultKind::Result);
  other.code = 5;
  faults_.add(other);
  breakWith(FaultKind::Reset);
  breakWith(FaultKind::Close);
  Delivery delivery = weigh();
  EXPECT_EQ(delivery.delay, milliseconds(3000));
  EXPECT_EQ(delivery.after, After::Close);
  EXPECT_EQ(newest().result, 5);
}

}  // namespace
}  // namespace tolvex::sim
