// The commands of the scale that take no tare: base information, weight, zero, version, and whether
// the service answers.
#include <gtest/gtest.h>

#include "service/service_test.h"

namespace tolvex {
namespace {

constexpr char kBaseInfoRequest[] = R"({"cmd":"getbaseinfo","VcoVersion":"3.0.3.2"})";
constexpr char kOhYe[] = "[T] L:318 M:DLL [service_test][getWeight] Oh Ye~";

class ScaleCommand : public ServiceTest {
 protected:
  // A reply of exactly this many bytes with the result.
  static std::string replyOf(std::size_t size, const std::string& code = "0") {
    std::string text = R"({"result":")" + code + R"(","x":")";
    return text + std::string(size - text.size() - 2, 'x') + R"("})";
  }

  std::string out = std::string(1024, '#');
};

using GetBaseInfo = ScaleCommand;

TEST_F(GetBaseInfo, SendsTheLibraryVersion) {
  EXPECT_EQ(client.getBaseInfo(out.data(), 1024), 0U);
  expectSentOn(weighing, kBaseInfoRequest);
}

TEST_F(GetBaseInfo, CopiesTheWholeReply) {
  weighing.reply = R"({"result":"0","maxRange1":"15"})";
  EXPECT_EQ(client.getBaseInfo(out.data(), 1000), 0U);
  EXPECT_EQ(
      out, weighing.reply + std::string(1000 - weighing.reply.size(), '\0') + std::string(24, '#'));
}

TEST_F(GetBaseInfo, KeepsTheServicesCode) {
  weighing.reply = R"({"result":"1007"})";
  EXPECT_EQ(client.getBaseInfo(out.data(), 1024), 1007U);
  EXPECT_EQ(client.getLastErrCode(), 1007);
}

TEST_F(GetBaseInfo, OfANullBufferLeavesTheLastErrorAlone) {
  leaveLastError(77);
  EXPECT_EQ(client.getBaseInfo(nullptr, 1024), 5U);
  EXPECT_EQ(client.getLastErrCode(), 77);
  expectNothingSent();
}

TEST_F(GetBaseInfo, OfABufferOf199BytesLeavesTheLastErrorAlone) {
  leaveLastError(77);
  EXPECT_EQ(client.getBaseInfo(out.data(), 199), 5U);
  EXPECT_EQ(client.getLastErrCode(), 77);
  EXPECT_EQ(out, std::string(1024, '#'));
  expectNothingSent();
}

TEST_F(GetBaseInfo, TakesABufferOf200Bytes) {
  weighing.reply = replyOf(200);
  EXPECT_EQ(client.getBaseInfo(out.data(), 200), 0U);
  EXPECT_EQ(out, weighing.reply + std::string(824, '#'));
}

TEST_F(GetBaseInfo, OfALongerReplyGivesBufferNotEnoughAndTheBeginning) {
  weighing.reply = replyOf(201);
  EXPECT_EQ(client.getBaseInfo(out.data(), 200), 5U);
  EXPECT_EQ(client.getLastErrCode(), 5);
  EXPECT_EQ(out, weighing.reply.substr(0, 200) + std::string(824, '#'));
}

TEST_F(GetBaseInfo, CopiesAnUnreadableReplyToo) {
  weighing.reply = "no JSON";
  EXPECT_EQ(client.getBaseInfo(out.data(), 200), kUnreadable);
  EXPECT_EQ(client.getLastErrCode(), -1);
  EXPECT_EQ(out, "no JSON" + std::string(193, '\0') + std::string(824, '#'));
}

TEST_F(GetBaseInfo, OfAFailedExchangeLeavesTheBufferAlone) {
  weighing.receiveResult = 0;
  EXPECT_EQ(client.getBaseInfo(out.data(), 1024), 4U);
  EXPECT_EQ(client.getLastErrCode(), 4);
  EXPECT_EQ(out, std::string(1024, '#'));
}

using GetWeight = ScaleCommand;

TEST_F(GetWeight, SendsItsRequestAndLogsIt) {
  EXPECT_EQ(client.getWeight(out.data(), 1024), 0U);
  expectSentOn(weighing, R"({"cmd":"getweight"})");
  EXPECT_EQ(log.records(), Texts{kOhYe});
}

TEST_F(GetWeight, CopiesTheWholeReply) {
  weighing.reply = R"({"result":"1005","net":"1.5"})";
  EXPECT_EQ(client.getWeight(out.data(), 1000), 1005U);
  EXPECT_EQ(client.getLastErrCode(), 1005);
  EXPECT_EQ(
      out, weighing.reply + std::string(1000 - weighing.reply.size(), '\0') + std::string(24, '#'));
}

TEST_F(GetWeight, OfANullBufferIsLoggedAndKept) {
  EXPECT_EQ(client.getWeight(nullptr, 1024), 5U);
  EXPECT_EQ(client.getLastErrCode(), 5);
  EXPECT_EQ(log.records(), Texts{kOhYe});
  expectNothingSent();
}

TEST_F(GetWeight, OfABufferOf199BytesIsLoggedAndKept) {
  EXPECT_EQ(client.getWeight(out.data(), 199), 5U);
  EXPECT_EQ(client.getLastErrCode(), 5);
  EXPECT_EQ(log.records(), Texts{kOhYe});
  EXPECT_EQ(out, std::string(1024, '#'));
  expectNothingSent();
}

TEST_F(GetWeight, TakesABufferOf200Bytes) {
  weighing.reply = replyOf(200, "1005");
  EXPECT_EQ(client.getWeight(out.data(), 200), 1005U);
  EXPECT_EQ(out, weighing.reply + std::string(824, '#'));
}

TEST_F(GetWeight, OfALongerReplyGivesBufferNotEnoughAndTheBeginning) {
  weighing.reply = replyOf(201, "1005");
  EXPECT_EQ(client.getWeight(out.data(), 200), 5U);
  EXPECT_EQ(client.getLastErrCode(), 5);
  EXPECT_EQ(out, weighing.reply.substr(0, 200) + std::string(824, '#'));
}

using SetZero = ScaleCommand;

TEST_F(SetZero, SendsItsRequest) {
  leaveLastError(77);
  EXPECT_EQ(client.setZero(), 0U);
  expectSentOn(weighing, R"({"cmd":"setzero"})");
  EXPECT_EQ(client.getLastErrCode(), 0);
  EXPECT_EQ(log.records(), Texts{});
}

TEST_F(SetZero, KeepsACodeThatTheTableDoesNotHave) {
  weighing.reply = R"({"result":"31337"})";
  EXPECT_EQ(client.setZero(), 31337U);
  EXPECT_EQ(client.getLastErrCode(), 31337);
}

TEST_F(SetZero, KeepsAnUnreadableReply) {
  weighing.reply = R"({"result":0})";
  EXPECT_EQ(client.setZero(), kUnreadable);
  EXPECT_EQ(client.getLastErrCode(), -1);
}

TEST_F(SetZero, KeepsAFailedExchange) {
  weighing.sendResult = -1;
  EXPECT_EQ(client.setZero(), 4U);
  EXPECT_EQ(client.getLastErrCode(), 4);
}

TEST_F(SetZero, KeepsAMissingConnection) {
  VcoClientApi half(nullptr, &printing);
  EXPECT_EQ(half.setZero(), 1001U);
  EXPECT_EQ(half.getLastErrCode(), 1001);
}

using GetLcVersion = ScaleCommand;

TEST_F(GetLcVersion, SendsItsRequestAndCopiesTheWholeReply) {
  weighing.reply = R"({"result":"0","version":"1.2"})";
  EXPECT_EQ(client.getLCVersion(out.data(), 100), 0U);
  expectSentOn(weighing, R"({"cmd":"getLCVersion"})");
  EXPECT_EQ(
      out, weighing.reply + std::string(100 - weighing.reply.size(), '\0') + std::string(924, '#'));
}

TEST_F(GetLcVersion, KnowsNoLeastSize) {
  EXPECT_EQ(client.getLCVersion(out.data(), 14), 0U);
  EXPECT_EQ(out, R"({"result":"0"})" + std::string(1010, '#'));
  EXPECT_EQ(client.getLCVersion(out.data(), 0), 5U);
}

TEST_F(GetLcVersion, KeepsBufferNotEnough) {
  EXPECT_EQ(client.getLCVersion(out.data(), 13), 5U);
  EXPECT_EQ(client.getLastErrCode(), 5);
  EXPECT_EQ(out, R"({"result":"0")" + std::string(1011, '#'));
}

TEST_F(GetLcVersion, OfANullBufferIsSentAndGivesBufferNotEnough) {
  EXPECT_EQ(client.getLCVersion(nullptr, 100), 5U);
  EXPECT_EQ(client.getLastErrCode(), 5);
  expectSentOn(weighing, R"({"cmd":"getLCVersion"})");
}

using CheckConnection = ScaleCommand;

TEST_F(CheckConnection, SendsItsRequest) {
  leaveLastError(77);
  EXPECT_TRUE(client.checkConnection());
  expectSentOn(weighing, R"({"cmd":"checkConnection"})");
  EXPECT_EQ(client.getLastErrCode(), 0);
}

TEST_F(CheckConnection, IsTrueForEveryReply) {
  for (const int code : {1, 4, 7, 1001, 1007, 2001}) {
    weighing.reply = R"({"result":")" + std::to_string(code) + R"("})";
    EXPECT_TRUE(client.checkConnection()) << code;
    EXPECT_EQ(client.getLastErrCode(), code);
  }
}

TEST_F(CheckConnection, IsTrueForAnUnreadableReply) {
  weighing.reply = "?";
  EXPECT_TRUE(client.checkConnection());
  EXPECT_EQ(client.getLastErrCode(), -1);
}

TEST_F(CheckConnection, IsFalseWhenSendingFails) {
  weighing.sendResult = 0;
  EXPECT_FALSE(client.checkConnection());
  EXPECT_EQ(client.getLastErrCode(), 4);
}

TEST_F(CheckConnection, IsFalseWhenReceivingFails) {
  weighing.receiveResult = -1;
  EXPECT_FALSE(client.checkConnection());
  EXPECT_EQ(client.getLastErrCode(), 4);
}

TEST_F(CheckConnection, IsFalseWithoutAConnection) {
  VcoClientApi half(nullptr, &printing);
  EXPECT_FALSE(half.checkConnection());
  EXPECT_EQ(half.getLastErrCode(), 1001);
}

}  // namespace
}  // namespace tolvex
