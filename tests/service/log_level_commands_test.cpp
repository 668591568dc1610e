// The log level of the service's two halves.
#include <gtest/gtest.h>

#include "service/service_test.h"

namespace tolvex {
namespace {

class GetLogLevel : public ServiceTest {
 protected:
  GetLogLevel() {
    weighing.reply = R"({"result":"0","level":"debug"})";
    printing.reply = R"({"result":"0","level":"info"})";
  }

  void expectUntouched() { EXPECT_EQ(out, "########"); }

  std::string out = "########";
};

TEST_F(GetLogLevel, OfPrintAsksThePrintingConnection) {
  EXPECT_EQ(client.getLogLevel("print", out.data(), 8), 0U);
  expectSentOn(printing, R"({"cmd":"getloglevel","module":"print"})");
  EXPECT_EQ(out, "info####");
  EXPECT_EQ(client.getLastErrCode(), 0);
}

TEST_F(GetLogLevel, OfLoadcellAsksTheWeighingConnection) {
  EXPECT_EQ(client.getLogLevel("loadcell", out.data(), 8), 0U);
  expectSentOn(weighing, R"({"cmd":"getloglevel","module":"loadcell"})");
  EXPECT_EQ(out, "debug###");
}

TEST_F(GetLogLevel, CopiesExactlyTheTextWithoutTerminator) {
  EXPECT_EQ(client.getLogLevel("print", out.data(), 4), 0U);
  EXPECT_EQ(out, "info####");
}

TEST_F(GetLogLevel, OfABufferOneByteTooSmallCopiesNothing) {
  EXPECT_EQ(client.getLogLevel("print", out.data(), 3), 5U);
  EXPECT_EQ(client.getLastErrCode(), 5);
  expectUntouched();
  EXPECT_EQ(log.records(), Texts{});
}

TEST_F(GetLogLevel, IntoANullBufferGivesBufferNotEnough) {
  EXPECT_EQ(client.getLogLevel("print", nullptr, 8), 5U);
  EXPECT_EQ(client.getLastErrCode(), 5);
  expectSentOn(printing, R"({"cmd":"getloglevel","module":"print"})");
}

TEST_F(GetLogLevel, OfAnyOtherModuleIsUnknown) {
  for (const char* const module : {"Print", "LOADCELL", "", "print ", "prin", "scale"}) {
    leaveLastError(77);
    EXPECT_EQ(client.getLogLevel(module, out.data(), 8), 1U) << module;
    EXPECT_EQ(client.getLastErrCode(), 1) << module;
  }
  expectUntouched();
  expectNothingSent();
}

TEST_F(GetLogLevel, OfANullModuleIsUnknown) {
  leaveLastError(77);
  EXPECT_EQ(client.getLogLevel(nullptr, out.data(), 8), 1U);
  EXPECT_EQ(client.getLastErrCode(), 1);
  expectNothingSent();
}

TEST_F(GetLogLevel, LogsAReplyWithoutALevel) {
  printing.reply = R"({"result":"0"})";
  EXPECT_EQ(client.getLogLevel("print", out.data(), 8), 7U);
  EXPECT_EQ(client.getLastErrCode(), 7);
  expectUntouched();
  EXPECT_EQ(log.records(),
            Texts{R"([W] L:421 M:DLL [service_test][getLogLevel] json parse fail:{"result":"0"})"});
}

TEST_F(GetLogLevel, LogsALevelThatIsNoText) {
  weighing.reply = R"({"result":"0","level":3})";
  EXPECT_EQ(client.getLogLevel("loadcell", out.data(), 8), 7U);
  expectUntouched();
  EXPECT_EQ(log.records(), Texts{"[W] L:421 M:DLL [service_test][getLogLevel] json parse fail:"
                                 R"({"result":"0","level":3})"});
}

TEST_F(GetLogLevel, KeepsTheServicesCodeAndCopiesNothing) {
  printing.reply = R"({"result":"10","level":"info"})";
  EXPECT_EQ(client.getLogLevel("print", out.data(), 8), 10U);
  EXPECT_EQ(client.getLastErrCode(), 10);
  expectUntouched();
  EXPECT_EQ(log.records(), Texts{});
}

TEST_F(GetLogLevel, KeepsAnUnreadableReply) {
  printing.reply = "?";
  EXPECT_EQ(client.getLogLevel("print", out.data(), 8), kUnreadable);
  EXPECT_EQ(client.getLastErrCode(), -1);
  expectUntouched();
}

TEST_F(GetLogLevel, KeepsTheMissingConnectionOfTheModule) {
  VcoClientApi none(nullptr, nullptr);
  EXPECT_EQ(none.getLogLevel("print", out.data(), 8), 2001U);
  EXPECT_EQ(none.getLastErrCode(), 2001);
  EXPECT_EQ(none.getLogLevel("loadcell", out.data(), 8), 1001U);
  EXPECT_EQ(none.getLastErrCode(), 1001);
}

using SetLogLevel = ServiceTest;

TEST_F(SetLogLevel, OfPrintGoesOutOnThePrintingConnection) {
  printing.reply = R"({"result":"9"})";
  EXPECT_EQ(client.setLogLevel("print", "debug"), 9U);
  expectSentOn(printing, R"({"cmd":"setloglevel","module":"print","level":"debug"})");
  EXPECT_EQ(client.getLastErrCode(), 9);
}

TEST_F(SetLogLevel, OfLoadcellGoesOutOnTheWeighingConnection) {
  leaveLastError(77);
  EXPECT_EQ(client.setLogLevel("loadcell", "3"), 0U);
  expectSentOn(weighing, R"({"cmd":"setloglevel","module":"loadcell","level":"3"})");
  EXPECT_EQ(client.getLastErrCode(), 0);
}

TEST_F(SetLogLevel, SendsAnEmptyLevel) {
  EXPECT_EQ(client.setLogLevel("print", ""), 0U);
  expectSentOn(printing, R"({"cmd":"setloglevel","module":"print","level":""})");
}

TEST_F(SetLogLevel, OfANullArgumentLeavesTheLastErrorAlone) {
  leaveLastError(77);
  EXPECT_EQ(client.setLogLevel(nullptr, "debug"), 2U);
  EXPECT_EQ(client.setLogLevel("print", nullptr), 2U);
  EXPECT_EQ(client.setLogLevel("scale", nullptr), 2U);
  EXPECT_EQ(client.getLastErrCode(), 77);
  expectNothingSent();
}

TEST_F(SetLogLevel, OfAnyOtherModuleIsUnknownAndKept) {
  for (const char* const module : {"Print", "Loadcell", "", "scale"}) {
    leaveLastError(77);
    EXPECT_EQ(client.setLogLevel(module, "debug"), 1U) << module;
    EXPECT_EQ(client.getLastErrCode(), 1) << module;
  }
  expectNothingSent();
}

}  // namespace
}  // namespace tolvex
