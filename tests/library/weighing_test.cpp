// Zero, version, overload alarm, high resolution and raw commands.
#include <climits>

#include "support/library_test.h"

namespace tolvex::test {
namespace {

using Weighing = ServiceTest;

std::string text(const char* literal) { return literal; }

TEST_F(Weighing, SendZeroSendsItsCommandAndLogsBothEnds) {
  service.answers(R"({"result":"0"})");
  EXPECT_EQ(host.call(send_zero), 240);
  EXPECT_EQ(service.requests(), (Lines{R"({"cmd":"setzero"})"}));
  EXPECT_EQ(host.call(getLastErrCode), 0);
  EXPECT_EQ(log.sinceBanner(), (Lines{"[T] L:412 M:DLL [library_tests][send_zero] Enter",
                                      "[T] L:418 M:DLL [library_tests][send_zero] OK"}));
}

TEST_F(Weighing, SendZeroLogsTheCodeOfARefusal) {
  service.answers(R"({"result":"1005"})");
  EXPECT_EQ(host.call(send_zero_stdcall), 255);
  EXPECT_EQ(host.call(getLastErrCode), 1005);
  EXPECT_EQ(log.sinceBanner(), (Lines{"[T] L:412 M:DLL [library_tests][send_zero] Enter",
                                      "[W] L:415 M:DLL [send_zero] Err:1005"}));
}

TEST_F(Weighing, AnUnreadableReplyIsMinusOne) {
  for (const char* reply : {R"({"result":0})", R"({"code":"0"})", "nonsense", R"(["0"])",
                            R"({"result":"0")", R"("0")"}) {
    service.answers(reply);
    EXPECT_EQ(host.call(send_zero), 255) << reply;
    EXPECT_EQ(host.call(getLastErrCode), -1) << reply;
  }
  EXPECT_EQ(log.count("[W] L:415 M:DLL [send_zero] Err:-1"), 6U);
}

TEST_F(Weighing, ATextWithoutDigitsIsSuccess) {
  service.answers(R"({"result":"abc"})");
  EXPECT_EQ(host.call(send_zero), 240);
}

TEST_F(Weighing, ACodeThatIsInNoTableIsPassedThrough) {
  service.answers(R"({"result":"31337"})");
  EXPECT_EQ(host.call(send_zero), 255);
  EXPECT_EQ(host.call(getLastErrCode), 31337);
}

TEST_F(Weighing, GetLCVersionCopiesTheWholeReply) {
  const std::string reply = R"({"result":"0","version":"7.1"})";
  service.answers(reply);
  CallerBuffer<64> buffer;
  EXPECT_EQ(host.call(getLCVersion, buffer, 64U), 0);
  EXPECT_EQ(buffer.bytes(), padded(reply, 64));
  EXPECT_TRUE(buffer.guardHolds());
  EXPECT_EQ(service.requests(), (Lines{R"({"cmd":"getLCVersion"})"}));
  EXPECT_EQ(log.sinceBanner(), Lines{});
}

TEST_F(Weighing, GetLCVersionOfExactlyTheSizeArrivesWithoutATerminator) {
  const std::string reply = R"({"result":"0"})";
  service.answers(reply);
  CallerBuffer<14> buffer;
  EXPECT_EQ(host.call(getLCVersion, buffer, 14U), 0);
  EXPECT_EQ(buffer.bytes(), reply);
  EXPECT_TRUE(buffer.guardHolds());
}

TEST_F(Weighing, GetLCVersionOneByteShortIsFiveWithTheBeginningCopied) {
  service.answers(R"({"result":"0"})");
  CallerBuffer<13> buffer;
  EXPECT_EQ(host.call(getLCVersion, buffer, 13U), 5);
  EXPECT_EQ(buffer.bytes(), R"({"result":"0")");
  EXPECT_TRUE(buffer.guardHolds());
  EXPECT_EQ(host.call(getLastErrCode), 5);
}

TEST_F(Weighing, GetLCVersionWithANullBufferIsFive) {
  service.answers(R"({"result":"0"})");
  char* const none = nullptr;
  EXPECT_EQ(host.call(getLCVersion, none, 64U), 5);
}

TEST_F(Weighing, GetLCVersionHandsTheServicesCodeOn) {
  service.answers(R"({"result":"1007"})");
  CallerBuffer<64> buffer;
  EXPECT_EQ(host.call(getLCVersion, buffer, 64U), 1007);
  EXPECT_EQ(buffer.bytes(), padded(R"({"result":"1007"})", 64));
}

TEST_F(Weighing, SetOverloadAlarmTravelsOnThePrintingConnection) {
  service.printing().alwaysAnswers(R"({"result":"0"})");
  EXPECT_EQ(host.call(setOverloadAlarm, 1U), 0);
  EXPECT_EQ(host.call(setOverloadAlarm, 0U), 0);
  EXPECT_EQ(host.call(setOverloadAlarm, UINT_MAX), 0);
  EXPECT_EQ(service.printing().requests(), (Lines{R"({"cmd":"setOverloadAlarm","enable":"1"})",
                                                  R"({"cmd":"setOverloadAlarm","enable":"0"})",
                                                  R"({"cmd":"setOverloadAlarm","enable":"-1"})"}));
  EXPECT_TRUE(service.requests().empty());
  EXPECT_EQ(log.sinceBanner(), Lines{});
}

TEST_F(Weighing, SetOverloadAlarmReturnsAndKeepsTheCode) {
  service.printing().answers(R"({"result":"2010"})");
  EXPECT_EQ(host.call(setOverloadAlarm, 1U), 2010);
  EXPECT_EQ(host.call(getLastErrCode), 2010);
}

TEST_F(Weighing, TheHighResolutionModeNeedsNoContext) {
  EXPECT_EQ(host.call(getHighResWeightMode), 0);
  EXPECT_EQ(host.call(setHighResWeightMode, 5), 0);
  EXPECT_EQ(host.call(getHighResWeightMode), 1);
  EXPECT_EQ(host.call(setHighResWeightMode, 0), 0);
  EXPECT_EQ(host.call(getHighResWeightMode), 0);
  EXPECT_EQ(host.call(setHighResWeightMode, -1), 0);
  EXPECT_EQ(host.call(getHighResWeightMode), 1);
  EXPECT_EQ(service.weighing().connections(), 0U);
  EXPECT_TRUE(std::filesystem::is_empty(host.logFolder()));
}

struct RawCommand : ServiceTest {
  int raw(const char* command, const char* parameters, char* reply, unsigned size,
          unsigned wait = 10000) {
    return host.call(sendRawCmdToLC, const_cast<char*>(command), const_cast<char*>(parameters),
                     reply, size, wait);
  }
};

TEST_F(RawCommand, SendsCommandAndParametersAndCopiesTheReply) {
  const std::string reply = R"({"result":"0","x":"y"})";
  service.answers(reply);
  CallerBuffer<64> buffer;
  EXPECT_EQ(raw("setpretare", "\"0.5\"\\\n\xE4", buffer, 64), 0);
  EXPECT_EQ(service.requests(),
            (Lines{text(R"({"cmd":"setpretare","paramList":"\"0.5\"\\\n)") + "\xE4\"}"}));
  EXPECT_EQ(buffer.bytes(), padded(reply, 64));
  EXPECT_EQ(log.sinceBanner(), Lines{});
}

TEST_F(RawCommand, LeavesOutEmptyAndMissingParameters) {
  service.weighing().alwaysAnswers(R"({"result":"0"})");
  EXPECT_EQ(raw("a", "", nullptr, 0), 0);
  EXPECT_EQ(raw("b", nullptr, nullptr, 0), 0);
  EXPECT_EQ(service.requests(), (Lines{R"({"cmd":"a"})", R"({"cmd":"b"})"}));
}

TEST_F(RawCommand, ANullCommandIsFiveAndTheOnlyOneKept) {
  EXPECT_EQ(raw(nullptr, "x", nullptr, 0), 5);
  EXPECT_EQ(host.call(getLastErrCode), 5);
  EXPECT_TRUE(service.requests().empty());
  service.answers(R"({"result":"1002"})");
  EXPECT_EQ(raw("b", nullptr, nullptr, 0), 1002);
  EXPECT_EQ(host.call(getLastErrCode), 5);
}

TEST_F(RawCommand, AReplyThatDoesNotFitIsFive) {
  service.weighing().alwaysAnswers(R"({"result":"0"})");
  CallerBuffer<4> small;
  EXPECT_EQ(raw("a", nullptr, small, 4), 5);
  EXPECT_EQ(small.bytes(), R"({"re)");
  EXPECT_TRUE(small.guardHolds());
  CallerBuffer<4> none;
  EXPECT_EQ(raw("a", nullptr, none, 0), 5);
  EXPECT_TRUE(none.isUntouched());
}

TEST_F(RawCommand, WaitsAsLongAsTheCallerSays) {
  service.weighing().staysSilent();
  CallerBuffer<64> buffer;
  EXPECT_EQ(raw("a", nullptr, buffer, 64, 30), 4);
  EXPECT_TRUE(buffer.isUntouched());
  EXPECT_EQ(host.call(getLastErrCode), 0) << "not kept";
  EXPECT_EQ(log.sinceBanner(), (Lines{"[W] L:093 M:DLL [SndCmdToLC] Rcv failed:0!"}));
}

}  // namespace
}  // namespace tolvex::test
