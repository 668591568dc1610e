// What goes out and comes in, on either connection.
#include "service/exchange_sides.h"

namespace tolvex {
namespace {

class Exchange : public BothSides {};

TEST_P(Exchange, SendsTheBytesAndFillsTheReply) {
  connection().reply = "the reply";
  EXPECT_EQ(send(), 0U);
  EXPECT_EQ(connection().requests, Texts{"request"});
  EXPECT_STREQ(reply, "the reply");
}

TEST_P(Exchange, SendsExactlyTheGivenLength) {
  EXPECT_EQ(send(client, "a\0b-and-more", 3, reply), 0U);
  EXPECT_EQ(connection().requests, Texts{std::string("a\0b", 3)});
}

TEST_P(Exchange, HandsCapacityAndTimeoutToTheConnection) {
  EXPECT_EQ(send(client, "request", 7, reply, 33, 4321), 0U);
  EXPECT_EQ(connection().receives, (std::vector<ScriptedConnection::Receive>{{33, 4321}}));
}

TEST_P(Exchange, UsesItsOwnConnectionOnly) {
  send();
  const ScriptedConnection& other = GetParam().weighing ? printing : weighing;
  EXPECT_TRUE(other.requests.empty());
  EXPECT_TRUE(other.receives.empty());
}

TEST_P(Exchange, DoesNotNeedTheOtherConnection) {
  VcoClientApi half(GetParam().weighing ? &weighing : nullptr,
                    GetParam().weighing ? nullptr : &printing);
  EXPECT_EQ(send(half, "request", 7, reply), 0U);
  EXPECT_EQ(connection().requests, Texts{"request"});
}

TEST_P(Exchange, TakesASendOfAPartForASend) {
  connection().sendResult = 1;
  EXPECT_EQ(send(), 0U);
  EXPECT_STREQ(reply, R"({"result":"0"})");
}

TEST_P(Exchange, TakesOneReceivedByteForAReply) {
  connection().reply = "{";
  EXPECT_EQ(send(), 0U);
  EXPECT_STREQ(reply, "{");
}

TEST_P(Exchange, DoesNotLookAtTheReply) {
  connection().reply = R"({"result":"2006"})";
  EXPECT_EQ(send(), 0U);
}

TEST_P(Exchange, DoesNotKeepItsResultAsTheLastError) {
  leaveLastError(77);
  EXPECT_EQ(send(), 0U);
  EXPECT_EQ(client.getLastErrCode(), 77);
  connection().sendResult = -1;
  EXPECT_EQ(send(), 4U);
  EXPECT_EQ(client.getLastErrCode(), 77);
}

TEST_P(Exchange, LogsNothingByDefault) {
  send();
  EXPECT_EQ(log.records(), Texts{});
}

TEST_P(Exchange, LogsRequestAndReplyAtTheTrafficThreshold) {
  logTraffic();
  connection().reply = "the reply";
  send();
  EXPECT_EQ(log.records(), (Texts{std::string(GetParam().sending) + "request.",
                                  std::string(GetParam().received) + "the reply"}));
}

TEST_P(Exchange, LogsNoTrafficOneAboveItsThreshold) {
  NLog::GetInstance()->SetModuleLevel(kModuleDll, kLevelTraffic + 1);
  send();
  EXPECT_EQ(log.records(), Texts{});
}

INSTANTIATE_TEST_SUITE_P(On, Exchange, ::testing::ValuesIn(kSides), sideName);

TEST_F(ServiceTest, TakesAReplyOfTheWholeCapacity) {
  const std::string before = R"({"result":"8","x":")";
  weighing.reply = before + std::string(2048 - before.size() - 2, 'y') + R"("})";
  ASSERT_EQ(weighing.reply.size(), 2048U);
  EXPECT_EQ(client.setZero(), 8U);
}

TEST_F(ServiceTest, TakesTheFirstPartOfALongerReplyForTheReply) {
  const std::string before = R"({"result":"8","x":")";
  weighing.reply = before + std::string(2049 - before.size() - 2, 'y') + R"("})";
  ASSERT_EQ(weighing.reply.size(), 2049U);
  EXPECT_EQ(client.setZero(), kUnreadable);
}

TEST_F(ServiceTest, BeginsWithoutAnError) { EXPECT_EQ(client.getLastErrCode(), 0); }

}  // namespace
}  // namespace tolvex
