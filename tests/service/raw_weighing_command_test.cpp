#include <gtest/gtest.h>

#include "service/service_test.h"

namespace tolvex {
namespace {

constexpr char kScaleReply[] = R"({"result":"1002","a":"b"})";  // 25 bytes

class RawWeighingCommand : public ServiceTest {
 protected:
  RawWeighingCommand() {
    weighing.reply = kScaleReply;
    leaveLastError(77);
  }

  unsigned raw(const char* command, const char* parameters, char* buffer, unsigned size) {
    return client.sendRawCmdToLC(command, parameters, buffer, size, 40000);
  }

  void expectLastErrorUnchanged() { EXPECT_EQ(client.getLastErrCode(), 77); }

  std::string out = std::string(32, '#');
};

TEST_F(RawWeighingCommand, SendsTheCommandAndItsParameters) {
  EXPECT_EQ(raw("setpretare", "a=1;b=\"2\"", out.data(), 32), 1002U);
  expectSentOn(weighing, R"({"cmd":"setpretare","paramList":"a=1;b=\"2\""})");
}

TEST_F(RawWeighingCommand, CopiesTheWholeReply) {
  raw("x", "y", out.data(), 30);
  EXPECT_EQ(out, kScaleReply + std::string(5, '\0') + "##");
}

TEST_F(RawWeighingCommand, SendsNoParametersForANull) {
  raw("anything", nullptr, out.data(), 32);
  expectSentOn(weighing, R"({"cmd":"anything"})");
}

TEST_F(RawWeighingCommand, SendsNoParametersForAnEmptyText) {
  raw("anything", "", out.data(), 32);
  expectSentOn(weighing, R"({"cmd":"anything"})");
}

TEST_F(RawWeighingCommand, SendsAnEmptyCommand) {
  raw("", nullptr, out.data(), 32);
  expectSentOn(weighing, R"({"cmd":""})");
}

TEST_F(RawWeighingCommand, HandsTheTimeoutToTheConnection) {
  client.sendRawCmdToLC("x", nullptr, nullptr, 0, 1234);
  client.sendRawCmdToLC("x", nullptr, nullptr, 0, 0xFFFFFFFFU);
  EXPECT_EQ(weighing.receives,
            (std::vector<ScriptedConnection::Receive>{{2048, 1234}, {2048, 0xFFFFFFFFU}}));
}

TEST_F(RawWeighingCommand, DoesNotKeepItsCode) {
  EXPECT_EQ(raw("x", nullptr, out.data(), 32), 1002U);
  expectLastErrorUnchanged();
  weighing.reply = R"({"result":"0"})";
  EXPECT_EQ(raw("x", nullptr, out.data(), 32), 0U);
  expectLastErrorUnchanged();
}

TEST_F(RawWeighingCommand, OfANullCommandKeepsBufferNotEnough) {
  EXPECT_EQ(raw(nullptr, "y", out.data(), 32), 5U);
  EXPECT_EQ(client.getLastErrCode(), 5);
  EXPECT_EQ(out, std::string(32, '#'));
  expectNothingSent();
}

TEST_F(RawWeighingCommand, WithoutABufferReturnsTheCode) {
  EXPECT_EQ(raw("x", nullptr, nullptr, 32), 1002U);
  EXPECT_EQ(raw("x", nullptr, nullptr, 0), 1002U);
  expectLastErrorUnchanged();
}

TEST_F(RawWeighingCommand, IntoABufferOfTheExactSizeHasNoTerminator) {
  EXPECT_EQ(raw("x", nullptr, out.data(), 25), 1002U);
  EXPECT_EQ(out, kScaleReply + std::string(7, '#'));
}

TEST_F(RawWeighingCommand, IntoOneByteLessCopiesTheBeginning) {
  EXPECT_EQ(raw("x", nullptr, out.data(), 24), 5U);
  EXPECT_EQ(out, std::string(kScaleReply).substr(0, 24) + std::string(8, '#'));
  expectLastErrorUnchanged();
}

TEST_F(RawWeighingCommand, ReturnsAFailedExchange) {
  weighing.sendResult = -1;
  EXPECT_EQ(raw("x", nullptr, out.data(), 32), 4U);
  EXPECT_EQ(raw("x", nullptr, nullptr, 0), 4U);
  EXPECT_EQ(out, std::string(32, '#'));
  expectLastErrorUnchanged();
}

TEST_F(RawWeighingCommand, ReturnsAMissingConnection) {
  VcoClientApi half(nullptr, &printing);
  EXPECT_EQ(half.sendRawCmdToLC("x", nullptr, out.data(), 32, 1), 1001U);
  EXPECT_EQ(half.getLastErrCode(), 0);
}

TEST_F(RawWeighingCommand, ReturnsAnUnreadableReply) {
  weighing.reply = "?";
  EXPECT_EQ(raw("x", nullptr, out.data(), 32), kUnreadable);
  EXPECT_EQ(raw("x", nullptr, nullptr, 0), kUnreadable);
  EXPECT_EQ(out, "?" + std::string(31, '\0'));
  expectLastErrorUnchanged();
}

TEST_F(RawWeighingCommand, IsNotLogged) {
  raw("x", "y", out.data(), 32);
  EXPECT_EQ(log.records(), Texts{});
}

}  // namespace
}  // namespace tolvex
