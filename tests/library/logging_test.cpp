// The library's log, as the application's owner configures and finds it.
#include <cstdlib>

#include "support/library_test.h"
#include "support/os_support.h"

namespace tolvex::test {
namespace {

using Logging = ServiceTest;

TEST_F(Logging, TrafficIsShownWhenTheThresholdIsLowered) {
  host.withLogConfig("[levels]\nDLL=2\n");
  service.answers(kOk);
  service.printing().answers(R"({"result":"2010"})");
  host.call(send_zero);
  host.call(setOverloadAlarm, 1U);
  EXPECT_EQ(
      log.sinceBanner(),
      (Lines{"[T] L:412 M:DLL [library_tests][send_zero] Enter",
             R"([D] L:082 M:DLL [library_tests]==>[Zelkad][SndCmdToLC] Snd: {"cmd":"setzero"}.)",
             R"([D] L:098 M:DLL [library_tests]<==[Zelkad][SndCmdToLC] Rcv: {"result":"0"})",
             "[T] L:418 M:DLL [library_tests][send_zero] OK",
             "[D] L:118 M:DLL [library_tests]==>[Zelkad][SndCmdToPrinter] Snd: "
             R"({"cmd":"setOverloadAlarm","enable":"1"}.)",
             "[D] L:134 M:DLL [library_tests]<==[Zelkad][SndCmdToPrinter] Rcv: "
             R"({"result":"2010"})"}));
}

TEST_F(Logging, OnlyServiceErrorsRemainAtSeven) {
  host.withLogConfig("DLL=7\n");
  service.answers(R"({"result":"00"})");
  BaseInfoBuffer record;
  host.call(read_baseinfo, record);
  EXPECT_EQ(log.lines(),
            (Lines{R"([E] L:039 M:DLL [FormatBaseInfo] varn ret err:{"result":"00"}.)"}));
}

TEST_F(Logging, ALongRequestIsCutAt510Characters) {
  host.withLogConfig("DLL=2\n");
  service.weighing().alwaysAnswers(kOk);
  const std::string command(1000, 'c');
  host.call(sendRawCmdToLC, const_cast<char*>(command.c_str()), nullptr, nullptr, 0U, 10000U);
  EXPECT_EQ(service.requests(), (Lines{R"({"cmd":")" + command + "\"}"}));
  const std::string bytes = readBytes(log.file());
  const std::size_t at = bytes.find("ccc");
  const std::size_t begin = bytes.rfind('\n', at) + 1;
  EXPECT_EQ(bytes.find(kLineEnd, begin) - begin, 510U);
}

// What standard output gets for so many records that find no file to go to.
std::string complaints(const std::string& folder, int records) {
  std::string once;
  for (int i = 0; i < 10; ++i) {
    once += "NLog::OpenFile: " + folder + "DLL_" + std::to_string(i) + ".log Fail\n";
  }
  once += "NLog::OpenFile Fail\nNLog::WriteLocalFile File Open Failed\n";
  std::string all;
  for (int record = 0; record < records; ++record) all += once;
  return all;
}

constexpr int kRecordsOfAFirstCall = 7;  // configuration, address, three of the banner, two lines

#ifdef _WIN32
TEST_F(Logging, WithoutItsFolderRecordsAreLostAndEveryCallWorks) {
  host.withoutLogFolder();
  service.weighing().alwaysAnswers(kOk);
  ::testing::internal::CaptureStdout();
  EXPECT_EQ(host.call(send_zero), 240);
  EXPECT_EQ(::testing::internal::GetCapturedStdout(),
            complaints("c:/VARN/Log/", kRecordsOfAFirstCall));
  EXPECT_FALSE(std::filesystem::exists(host.logFolder())) << "an installer's task";
}
#else
TEST_F(Logging, AMissingFolderIsMadeAtTheStart) {
  host.withoutLogFolder();
  service.weighing().alwaysAnswers(kOk);
  EXPECT_EQ(host.call(send_zero), 240);
  EXPECT_TRUE(log.has("[T] L:418 M:DLL [library_tests][send_zero] OK"));
}

TEST_F(Logging, AFolderThatCannotBeMadeCostsTheRecordsAndNothingElse) {
  setenv("XDG_STATE_HOME", "/proc/no/such/place", 1);
  service.weighing().alwaysAnswers(kOk);
  ::testing::internal::CaptureStdout();
  EXPECT_EQ(host.call(send_zero), 240);
  EXPECT_EQ(::testing::internal::GetCapturedStdout(),
            complaints("/proc/no/such/place/varn/log/", kRecordsOfAFirstCall));
}
#endif

TEST_F(Logging, EachFileOpenedIsToldOnStandardOutput) {
  ::testing::internal::CaptureStdout();
  service.answers(kOk);
  host.call(send_zero);
#ifdef _WIN32
  const std::string path = "c:/VARN/Log/DLL_0.log";
#else
  const std::string path = (host.logFolder() / "DLL_0.log").string();
#endif
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "NLog::OpenFile: " + path + " Succ\n");
}

}  // namespace
}  // namespace tolvex::test
