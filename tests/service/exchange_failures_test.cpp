// How an exchange fails, and what it logs then, on either connection.
#include <thread>

#include "service/exchange_sides.h"

namespace tolvex {
namespace {

class ExchangeFailure : public BothSides {
 protected:
  void expectLogged(const std::string& record) { EXPECT_EQ(log.records(), Texts{record}); }

  // The lock is recursive: only another thread notices that it was not released.
  void expectAnotherThreadCanExchange() {
    connection().sendResult.reset();
    connection().receiveResult.reset();
    unsigned code = 99;
    std::thread other([&] { code = send(); });
    other.join();
    EXPECT_EQ(code, 0U);
  }
};

TEST_P(ExchangeFailure, OfANullRequestIsInvalidParam) {
  EXPECT_EQ(send(client, nullptr, 7, reply), 2U);
  expectNothingSent();
  expectLogged(GetParam().nullArgument);
}

TEST_P(ExchangeFailure, OfANullReplyIsInvalidParam) {
  EXPECT_EQ(send(client, "request", 7, nullptr), 2U);
  expectNothingSent();
  expectLogged(GetParam().nullArgument);
}

TEST_P(ExchangeFailure, OfANullArgumentComesBeforeAMissingConnection) {
  VcoClientApi none(nullptr, nullptr);
  EXPECT_EQ(send(none, nullptr, 7, reply), 2U);
  expectLogged(GetParam().nullArgument);
}

TEST_P(ExchangeFailure, OfAMissingConnectionHasItsOwnCode) {
  VcoClientApi none(nullptr, nullptr);
  EXPECT_EQ(send(none, "request", 7, reply), GetParam().missingCode);
  EXPECT_STREQ(reply, "");
  expectLogged(GetParam().noConnection);
}

TEST_P(ExchangeFailure, OfAMissingConnectionLogsNoTraffic) {
  logTraffic();
  VcoClientApi none(nullptr, nullptr);
  EXPECT_EQ(send(none, "request", 7, reply), GetParam().missingCode);
  expectLogged(GetParam().noConnection);
}

TEST_P(ExchangeFailure, OfASendWithoutAByteIsSocketInterrupt) {
  connection().sendResult = 0;
  EXPECT_EQ(send(), 4U);
  expectLogged(std::string(GetParam().sendFailed) + "0.");
}

TEST_P(ExchangeFailure, OfAFailedSendIsSocketInterrupt) {
  connection().sendResult = -1;
  EXPECT_EQ(send(), 4U);
  expectLogged(std::string(GetParam().sendFailed) + "-1.");
}

TEST_P(ExchangeFailure, OfASendWaitsForNoReply) {
  connection().sendResult = -1;
  EXPECT_EQ(send(), 4U);
  EXPECT_TRUE(connection().receives.empty());
  EXPECT_STREQ(reply, "");
}

TEST_P(ExchangeFailure, OfAReceiveThatTimedOutIsSocketInterrupt) {
  connection().receiveResult = 0;
  EXPECT_EQ(send(), 4U);
  expectLogged(std::string(GetParam().receiveFailed) + "0!");
}

TEST_P(ExchangeFailure, OfAFailedReceiveIsSocketInterrupt) {
  connection().receiveResult = -1;
  EXPECT_EQ(send(), 4U);
  expectLogged(std::string(GetParam().receiveFailed) + "-1!");
}

TEST_P(ExchangeFailure, OfASendStandsBehindItsTrafficRecord) {
  logTraffic();
  connection().sendResult = -1;
  send();
  EXPECT_EQ(log.records(), (Texts{std::string(GetParam().sending) + "request.",
                                  std::string(GetParam().sendFailed) + "-1."}));
}

TEST_P(ExchangeFailure, OfAReceiveStandsInPlaceOfTheReply) {
  logTraffic();
  connection().receiveResult = 0;
  send();
  EXPECT_EQ(log.records(), (Texts{std::string(GetParam().sending) + "request.",
                                  std::string(GetParam().receiveFailed) + "0!"}));
}

TEST_P(ExchangeFailure, OfASendReleasesTheConnection) {
  connection().sendResult = -1;
  EXPECT_EQ(send(), 4U);
  expectAnotherThreadCanExchange();
}

TEST_P(ExchangeFailure, OfAReceiveReleasesTheConnection) {
  connection().receiveResult = -1;
  EXPECT_EQ(send(), 4U);
  expectAnotherThreadCanExchange();
}

// Whose connection may hold the reply of an exchange that was given up.
class ExchangeInStep : public BothSides {
 protected:
  ExchangeInStep() { connection().reply = R"({"result":"0"})"; }
  VcoClientApi inStep{&weighing, &printing, true};
  unsigned send() { return BothSides::send(inStep, "request", 7, reply); }
};

TEST_P(ExchangeInStep, ClosesNothingAfterAReply) {
  EXPECT_EQ(send(), 0U);
  EXPECT_EQ(connection().closed, 0);
  EXPECT_TRUE(log.records().empty());
}

TEST_P(ExchangeInStep, ClosesTheConnectionWithoutAReply) {
  connection().receiveResult = 0;
  EXPECT_EQ(send(), 4U);
  EXPECT_EQ(connection().closed, 1);
}

TEST_P(ExchangeInStep, ClosesTheConnectionWhenMemoryRunsOutInTheMiddle) {
  connection().receiveFails = true;
  EXPECT_THROW(send(), std::bad_alloc);
  EXPECT_EQ(connection().closed, 1);
}

TEST_P(ExchangeInStep, LeavesTheConnectionToTheSendThatFailed) {
  connection().sendResult = -1;
  EXPECT_EQ(send(), 4U);
  EXPECT_EQ(connection().closed, 0);
}

TEST_P(ExchangeInStep, DropsWhatWaitsBeforeTheRequest) {
  connection().unread = "late";
  EXPECT_EQ(send(), 0U);
  EXPECT_STREQ(reply, R"({"result":"0"})");
  EXPECT_EQ(connection().closed, 1);
  EXPECT_EQ(connection().requests, Texts{"request"});
}

TEST_P(ExchangeInStep, IsAnOption) {
  connection().unread = "late";
  EXPECT_EQ(BothSides::send(), 0U);
  EXPECT_STREQ(reply, "late");
  EXPECT_EQ(connection().closed, 0);
}

INSTANTIATE_TEST_SUITE_P(On, ExchangeInStep, ::testing::ValuesIn(kSides), sideName);

INSTANTIATE_TEST_SUITE_P(On, ExchangeFailure, ::testing::ValuesIn(kSides), sideName);

}  // namespace
}  // namespace tolvex
