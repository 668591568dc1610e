// The first call: address, INI file, banner, connections.
#include "support/library_test.h"

namespace tolvex::test {
namespace {

constexpr char kZeroOk[] = R"({"result":"0"})";

const Lines kBanner = {
    "[T] L:180 M:DLL ===========================================",
    "[T] L:181 M:DLL ======= tolvex_dll V3.0.3.2  ================",
    "[T] L:182 M:DLL ===========================================",
};

std::string iniLine(const std::string& address) {
  return "[W] L:172 M:DLL [DLL] setting Server IP from zelkad_ip_config.ini file, IP: " + address;
}

std::string noConfigLine(const std::string& folder) {
  return "[I] L:088 M:NLog [NLog] No config file in: " + folder + "NLog.ini";
}

std::string libraryLogFolder(const Host& host) {
#ifdef _WIN32
  static_cast<void>(host);
  return "c:/VARN/Log/";
#else
  return host.logFolder().string() + "/";
#endif
}

std::string loggerFolder(const Host& host) {
#ifdef _WIN32
  static_cast<void>(host);
  return "c:\\Corvane\\Log\\";
#else
  return host.defaultLogFolder().string() + "/";
#endif
}

class Context : public LibraryTest {
 protected:
  // Makes the first call; the result says whether the service was reached.
  int firstCall() { return host.call(send_zero); }
  Lines head(std::size_t count) {
    Lines lines = log.lines();
    if (lines.size() > count) lines.resize(count);
    return lines;
  }
};

TEST_F(Context, WithoutAnIniFileSaysSoAndUsesTheLoopbackAddress) {
  host.withoutIni();
  ScriptedService service("127.0.0.1");
  service.answers(kZeroOk);
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(firstCall(), TOLVEX_OK);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Error: Failed to open INI file\n");
  EXPECT_TRUE(service.printing().hasAccepted(1));
  EXPECT_EQ(head(4),
            (Lines{noConfigLine(libraryLogFolder(host)), kBanner[0], kBanner[1], kBanner[2]}));
}

TEST_F(Context, TakesTheAddressOfTheIniFileForBothConnections) {
  host.withIni("; the shop's service\r\n[zelkad]\r\nip_addr=" + host.address() + "\r\n");
  ScriptedService service(host.address());
  service.answers(kZeroOk);
  EXPECT_EQ(firstCall(), TOLVEX_OK);
  EXPECT_TRUE(service.weighing().hasAccepted(1));
  EXPECT_TRUE(service.printing().hasAccepted(1));
  EXPECT_EQ(head(5), (Lines{noConfigLine(libraryLogFolder(host)), iniLine(host.address()),
                            kBanner[0], kBanner[1], kBanner[2]}));
}

struct IniCase {
  const char* name;
  const char* text;
};

class IgnoredIni : public Context, public ::testing::WithParamInterface<IniCase> {};

TEST_P(IgnoredIni, LeavesTheLoopbackAddressWithoutAWord) {
  host.withIni(GetParam().text);
  ScriptedService service("127.0.0.1");
  service.answers(kZeroOk);
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(firstCall(), TOLVEX_OK);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(head(4),
            (Lines{noConfigLine(libraryLogFolder(host)), kBanner[0], kBanner[1], kBanner[2]}));
}

INSTANTIATE_TEST_SUITE_P(
    With, IgnoredIni,
    ::testing::Values(IniCase{"NoText", ""},
                      IniCase{"FirstPartZero", "[zelkad]\nip_addr=0.1.2.3\n"},
                      IniCase{"PartAbove255", "[zelkad]\nip_addr=256.1.1.1\n"},
                      IniCase{"NoValue", "[zelkad]\nip_addr=\n"},
                      IniCase{"BlanksAroundTheSign", "[zelkad]\nip_addr = 127.99.1.2\n"},
                      IniCase{"OtherCaseOfTheSection", "[Zelkad]\nip_addr=127.99.1.2\n"},
                      IniCase{"BlankInTheSection", "[ zelkad]\nip_addr=127.99.1.2\n"},
                      IniCase{"NoSection", "ip_addr=127.99.1.2\n"},
                      IniCase{"OtherCaseOfTheKey", "[zelkad]\nIP_ADDR=127.99.1.2\n"},
                      IniCase{"PortBehindTheAddress", "[zelkad]\nip_addr=127.99.1.2:53264\n"}),
    [](const auto& test) { return test.param.name; });

TEST_F(Context, ASetAddressKeepsTheIniFileFromBeingRead) {
  host.withIni("[zelkad]\nip_addr=127.99.1.2\n");
  ScriptedService service(host.address());
  service.answers(kZeroOk);
  EXPECT_EQ(host.call(SetServerIpForRemoteAccess, host.address().c_str()), TOLVEX_OK);
  EXPECT_EQ(service.weighing().connections(), 0U) << "setting an address connects nothing";
  EXPECT_EQ(firstCall(), TOLVEX_OK);
  EXPECT_TRUE(service.weighing().hasAccepted(1));
  EXPECT_TRUE(service.printing().hasAccepted(1));
}

TEST_F(Context, AnAddressSetBeforeEverythingMakesTheLoggerUseItsOwnFolderAndName) {
  ScriptedService service(host.address());
  service.answers(kZeroOk);
  host.call(SetServerIpForRemoteAccess, host.address().c_str());
  firstCall();
  const LogReader early(host.earlyLogFile());
  EXPECT_EQ(
      early.lines(),
      (Lines{noConfigLine(loggerFolder(host)),
             "[W] L:123 M:DLL [DLL] setting Server IP from SetServerIpForRemoteAccess API, "
             "IP: " +
                 host.address(),
             kBanner[0], kBanner[1], kBanner[2], "[T] L:412 M:DLL [library_tests][send_zero] Enter",
             "[T] L:418 M:DLL [library_tests][send_zero] OK"}));
  EXPECT_TRUE(std::filesystem::is_empty(host.logFolder()));
}

TEST_F(Context, AnAddressSetAfterTheStartChangesNothingButTheLog) {
  ScriptedService service(host.address());
  service.weighing().alwaysAnswers(kZeroOk);
  firstCall();
  EXPECT_EQ(host.call(SetServerIpForRemoteAccess, "127.99.1.2"), TOLVEX_OK);
  EXPECT_TRUE(
      log.has("[W] L:123 M:DLL [DLL] setting Server IP from SetServerIpForRemoteAccess "
              "API, IP: 127.99.1.2"));
  EXPECT_EQ(host.call(send_zero), TOLVEX_OK);
  service.weighing().resetsConnections();
  EXPECT_EQ(host.call(send_zero), TOLVEX_OK) << "reconnects to the earlier address";
  EXPECT_EQ(service.requests().size(), 3U);
}

TEST_F(Context, ARefusedAddressTextChangesNothing) {
  ScriptedService service(host.address());
  service.weighing().alwaysAnswers(kZeroOk);
  for (const char* text : {"10.0.0", "", "0.1.2.3", "1.2.3.4 ", "name"}) {
    EXPECT_EQ(host.call(SetServerIpForRemoteAccess, text), TOLVEX_FAILED) << text;
    EXPECT_EQ(host.call(SetServerIpForRemoteAccess_stdcall, text), TOLVEX_FAILED) << text;
  }
  EXPECT_EQ(firstCall(), TOLVEX_OK) << "the INI file is still read";
  const LogReader early(host.earlyLogFile());
  EXPECT_EQ(early.count("[W] L:127 M:DLL [DLL] setting Server IP failed from "
                        "SetServerIpForRemoteAccess API, IP: 10.0.0"),
            2U);
  EXPECT_TRUE(early.has(iniLine(host.address())));
}

TEST_F(Context, ANullAddressIsRefusedAndShownAsNull) {
  const char* const none = nullptr;
  EXPECT_EQ(host.call(SetServerIpForRemoteAccess, none), TOLVEX_FAILED);
  const LogReader early(host.earlyLogFile());
  EXPECT_TRUE(
      early.has("[W] L:127 M:DLL [DLL] setting Server IP failed from "
                "SetServerIpForRemoteAccess API, IP: (null)"));
}

TEST_F(Context, AnAddressMayBeSetUnderTheTwinsName) {
  host.withIni("[zelkad]\nip_addr=127.99.1.2\n");
  ScriptedService service(host.address());
  service.answers(kZeroOk);
  EXPECT_EQ(host.call(SetServerIpForRemoteAccess_stdcall, host.address().c_str()), TOLVEX_OK);
  EXPECT_EQ(firstCall(), TOLVEX_OK);
}

TEST_F(Context, TheBannerIsWrittenOnceForTheProcess) {
  ScriptedService service(host.address());
  service.weighing().alwaysAnswers(kZeroOk);
  for (int i = 0; i < 3; ++i) firstCall();
  EXPECT_EQ(log.count(kBanner[0]), 1U);
  EXPECT_EQ(log.count(kBanner[1]), 1U);
  EXPECT_EQ(log.count(kBanner[2]), 1U);
}

TEST_F(Context, AConnectionThatDoesNotOpenIsLoggedAndStartUpGoesOn) {
  host.withIni("[zelkad]\nip_addr=255.255.255.255\n");  // valid text, no address to connect to
  EXPECT_EQ(firstCall(), TOLVEX_FAILED);
  EXPECT_EQ(host.call(getLastErrCode), 4);
  EXPECT_EQ(log.sinceBanner(),
            (Lines{"[W] L:138 M:Socket [Connect] Invalid IP:255.255.255.255",
                   "[W] L:187 M:DLL [DLL] Init conn to LC 255.255.255.255:53264 Fail",
                   "[W] L:138 M:Socket [Connect] Invalid IP:255.255.255.255",
                   "[W] L:193 M:DLL [DLL] Init conn to Prt 255.255.255.255:53265 Fail",
                   "[T] L:412 M:DLL [library_tests][send_zero] Enter",
                   "[W] L:138 M:Socket [Connect] Invalid IP:255.255.255.255",
                   "[W] L:044 M:Socket [CTcpClient::Send] Open conn fail",
                   "[W] L:086 M:DLL [SndCmdToLC] Snd failed, ret:-1.",
                   "[W] L:415 M:DLL [send_zero] Err:4"}));
}

TEST_F(Context, TheLastErrorStartsAtZeroAndAskingForItSendsNothing) {
  ScriptedService service(host.address());
  EXPECT_EQ(host.call(getLastErrCode), 0);
  EXPECT_TRUE(service.weighing().hasAccepted(1));
  EXPECT_TRUE(service.printing().hasAccepted(1));
  EXPECT_TRUE(service.requests().empty());
  EXPECT_TRUE(service.printing().requests().empty());
}

TEST_F(Context, LoadingTheLibraryOpensNothing) {
  ScriptedService service(host.address());
  EXPECT_EQ(service.weighing().connections(), 0U);
  EXPECT_TRUE(std::filesystem::is_empty(host.logFolder()));
}

}  // namespace
}  // namespace tolvex::test
