// The tare exports, for an application without a rule of its own.
#include "support/library_test.h"

namespace tolvex::test {
namespace {

using Tare = ServiceTest;

constexpr char kTared[] = R"({"result":"0","tare":"0.120"})";
constexpr char kCleared[] = R"({"result":"0","tare":"0.000"})";

TEST_F(Tare, SetTareByKeyReturnsTheTare) {
  service.answers(kTared);
  TareBuffer reply;
  EXPECT_EQ(host.call(set_tare_bykey, reply), 240);
  EXPECT_EQ(reply.bytes(), padded("0.120", 10));
  EXPECT_TRUE(reply.guardHolds());
  EXPECT_EQ(service.requests(), (Lines{R"({"cmd":"settarebykey"})"}));
  EXPECT_EQ(log.sinceBanner(), (Lines{"[T] L:456 M:DLL [library_tests][set_tare_bykey] Enter",
                                      "[T] L:472 M:DLL [library_tests][set_tare_bykey] OK"}));
}

TEST_F(Tare, SendTareIsSetTareByKeyWithASecondEnterLine) {
  service.answers(kTared);
  TareBuffer reply;
  EXPECT_EQ(host.call(send_tare, reply), 240);
  EXPECT_EQ(reply.bytes(), padded("0.120", 10));
  EXPECT_EQ(service.requests(), (Lines{R"({"cmd":"settarebykey"})"}));
  EXPECT_EQ(log.sinceBanner(), (Lines{"[T] L:478 M:DLL [library_tests][send_tare] Enter",
                                      "[T] L:456 M:DLL [library_tests][set_tare_bykey] Enter",
                                      "[T] L:472 M:DLL [library_tests][set_tare_bykey] OK"}));
}

TEST_F(Tare, ClearTareReturnsTheTareThatIsLeft) {
  service.answers(kCleared);
  TareBuffer reply;
  EXPECT_EQ(host.call(clear_tare, reply), 240);
  EXPECT_EQ(reply.bytes(), padded("0.000", 10));
  EXPECT_EQ(service.requests(), (Lines{R"({"cmd":"clear_tare"})"}));
  EXPECT_EQ(log.sinceBanner(), (Lines{"[T] L:489 M:DLL [library_tests][clear_tare] Enter",
                                      "[T] L:505 M:DLL [library_tests][clear_tare] OK"}));
}

TEST_F(Tare, SendPreTareAlwaysClearsAndLogsTheText) {
  service.answers(kCleared);
  TareBuffer text("1.250");
  EXPECT_EQ(host.call(send_pre_tare, text), 240);
  EXPECT_EQ(text.bytes(), padded("0.000", 10));
  EXPECT_TRUE(text.guardHolds());
  EXPECT_EQ(service.requests(), (Lines{R"({"cmd":"clear_tare"})"}));
  EXPECT_EQ(log.sinceBanner(), (Lines{"[T] L:433 M:DLL [library_tests][send_pre_tare] Enter 1.250",
                                      "[T] L:445 M:DLL [library_tests][send_pre_tare] OK"}));
}

TEST_F(Tare, ATextIsLoggedAndNotTakenForAFormat) {
  service.answers(kCleared);
  CallerBuffer<16> text("%s%n%d");
  EXPECT_EQ(host.call(send_pre_tare, text), 240);
  EXPECT_TRUE(log.has("[T] L:433 M:DLL [library_tests][send_pre_tare] Enter %s%n%d"));
}

TEST_F(Tare, ALongTareTextIsCutAtTenCharactersWithoutATerminator) {
  service.answers(R"({"result":"0","tare":"12.345678901"})");
  CallerBuffer<16> reply;
  EXPECT_EQ(host.call(set_tare_bykey, reply), 240);
  EXPECT_EQ(reply.bytes(), "12.3456789######");
}

TEST_F(Tare, AReplyWithoutATareIsSevenAndShownWhole) {
  const std::string missing = R"({"result":"0"})";
  const std::string number = R"({"result":"0","tare":0.1})";
  service.answers(missing);
  service.answers(number);
  service.answers(missing);
  TareBuffer reply;
  EXPECT_EQ(host.call(set_tare_bykey, reply), 255);
  EXPECT_EQ(host.call(getLastErrCode), 7);
  EXPECT_EQ(host.call(clear_tare, reply), 255);
  EXPECT_EQ(host.call(send_pre_tare, reply), 255);
  EXPECT_TRUE(reply.isUntouched());
  EXPECT_EQ(log.count("[W] L:270 M:DLL [library_tests][setTare] json parse fail:" + missing), 1U);
  EXPECT_EQ(log.count("[W] L:304 M:DLL [clearTare] json parse fail:" + number), 1U);
  EXPECT_EQ(log.count("[W] L:304 M:DLL [clearTare] json parse fail:" + missing), 1U);
  EXPECT_EQ(log.count("[W] L:465 M:DLL [set_tare_bykey] Err:7"), 1U);
  EXPECT_EQ(log.count("[W] L:498 M:DLL [clear_tare] Err:7"), 1U);
  EXPECT_EQ(log.count("[W] L:438 M:DLL [send_pre_tare] Err:7"), 1U);
}

TEST_F(Tare, ARefusalLeavesTheBufferAloneAndTheCodeAsTheLastError) {
  service.weighing().alwaysAnswers(R"({"result":"1005","tare":"0.500"})");
  TareBuffer reply;
  EXPECT_EQ(host.call(set_tare_bykey, reply), 255);
  EXPECT_EQ(host.call(send_tare, reply), 255);
  EXPECT_EQ(host.call(clear_tare, reply), 255);
  EXPECT_EQ(host.call(send_pre_tare, reply), 255);
  EXPECT_TRUE(reply.isUntouched());
  EXPECT_EQ(host.call(getLastErrCode), 1005);
  EXPECT_EQ(log.count("[W] L:465 M:DLL [set_tare_bykey] Err:1005"), 2U);
  EXPECT_EQ(log.count("[W] L:498 M:DLL [clear_tare] Err:1005"), 1U);
  EXPECT_EQ(log.count("[W] L:438 M:DLL [send_pre_tare] Err:1005"), 1U);
}

TEST_F(Tare, TwinsDoTheSame) {
  service.weighing().alwaysAnswers(kTared);
  for (int (*const twin)(char*) :
       {send_tare_stdcall, set_tare_bykey_stdcall, clear_tare_stdcall, send_pre_tare_stdcall}) {
    TareBuffer reply("1.0");
    EXPECT_EQ(host.call(twin, reply), 240);
    EXPECT_EQ(reply.bytes(), padded("0.120", 10));
  }
  EXPECT_EQ(service.requests(), (Lines{R"({"cmd":"settarebykey"})", R"({"cmd":"settarebykey"})",
                                       R"({"cmd":"clear_tare"})", R"({"cmd":"clear_tare"})"}));
}

}  // namespace
}  // namespace tolvex::test
