// resync=1: a reply that comes too late, or more than was asked for, answers nothing.
#include "support/library_test.h"

namespace tolvex::test {
namespace {

// The records of the resynchronising, without anything else.
Lines resyncsIn(const Lines& records) {
  Lines resyncs;
  for (const std::string& record : records) {
    if (record.find("Resync") != std::string::npos) resyncs.push_back(record);
  }
  return resyncs;
}

struct Resync : ServiceTest {
  Resync() { host.withIni("[zelkad]\nip_addr=" + host.address() + "\nresync=1\n"); }

  // A weight is asked for; the service answers it and all that follow.
  int weigh() {
    service.weighing().alwaysAnswers(kUnderLoad);
    return host.call(read_standard, static_cast<char*>(record));
  }
  int raw(unsigned wait) {
    return host.call(sendRawCmdToLC, "probe", nullptr, static_cast<char*>(reply), 4096U, wait);
  }
  Lines resyncs() { return resyncsIn(log.sinceBanner()); }

  static constexpr char kUnderLoad[] = R"({"result":"1003"})";  // what the right answer says
  static constexpr char kOverLoad[] = R"({"result":"1004"})";   // and the wrong one
  WeightBuffer record;
  CallerBuffer<4096> reply;
};

TEST_F(Resync, IsToldAtTheStart) {
  EXPECT_EQ(weigh(), TOLVEX_UNDER_LOAD);
  EXPECT_TRUE(log.has("[W] L:175 M:DLL [DLL] resync is on by zelkad_ip_config.ini file"));
}

TEST_F(Resync, ChangesNothingWhereNothingFails) {
  for (int i = 0; i < 3; ++i) EXPECT_EQ(weigh(), TOLVEX_UNDER_LOAD);
  EXPECT_EQ(service.weighing().connections(), 1U);
  EXPECT_EQ(resyncs(), Lines());
}

TEST_F(Resync, ALateReplyAnswersNothing) {
  service.weighing().holdsBack("", kOverLoad);
  EXPECT_EQ(raw(50), 4);
  service.weighing().sendsWhatItHeldBack();  // to a connection that may be gone
  EXPECT_EQ(weigh(), TOLVEX_UNDER_LOAD);
  EXPECT_EQ(service.weighing().connections(), 2U);
  EXPECT_EQ(resyncs(),
            (Lines{"[W] L:103 M:DLL [SndCmdToLC] Resync: no reply, closing the connection"}));
}

TEST_F(Resync, BytesNobodyAskedForAnswerNothing) {
  host.call(getLastErrCode);
  ASSERT_TRUE(service.weighing().hasAccepted(1));
  service.weighing().sends(kOverLoad);
  EXPECT_EQ(weigh(), TOLVEX_UNDER_LOAD);
  EXPECT_EQ(service.weighing().connections(), 2U);
  EXPECT_EQ(resyncs(), (Lines{"[W] L:101 M:DLL [SndCmdToLC] Resync: 17 bytes nobody asked for, "
                              "connecting anew"}));
}

TEST_F(Resync, AServiceThatWasRestartedIsFoundByTheFirstCall) {
  EXPECT_EQ(weigh(), TOLVEX_UNDER_LOAD);
  service.weighing().closesConnections();
  EXPECT_EQ(weigh(), TOLVEX_UNDER_LOAD);
  EXPECT_EQ(
      resyncs(),
      (Lines{"[W] L:102 M:DLL [SndCmdToLC] Resync: the connection had ended, connecting anew"}));
}

TEST_F(Resync, TheRestOfAReplyInPiecesAnswersNothing) {
  service.answers(R"({"resu)");
  EXPECT_EQ(host.call(send_zero), 255);
  EXPECT_EQ(host.call(getLastErrCode), -1);
  EXPECT_EQ(weigh(), TOLVEX_UNDER_LOAD);
  EXPECT_EQ(service.weighing().connections(), 2U);
  EXPECT_EQ(resyncs(), (Lines{"[W] L:104 M:DLL [SndCmdToLC] Resync: unreadable reply, closing the "
                              "connection"}));
}

TEST_F(Resync, AReplyWithoutAResultClosesTheConnection) {
  for (const char* unreadable : {R"({"code":"0"})", R"({"result":0})", R"(["0"])"}) {
    service.answers(unreadable);
    EXPECT_EQ(host.call(send_zero), 255) << unreadable;
    EXPECT_EQ(host.call(getLastErrCode), -1) << unreadable;
  }
  EXPECT_EQ(resyncs().size(), 3U);
  EXPECT_EQ(weigh(), TOLVEX_UNDER_LOAD);
  EXPECT_EQ(service.weighing().connections(), 4U);
}

TEST_F(Resync, AReplyThatFillsTheBufferClosesTheConnection) {
  std::string whole = R"({"result":"0","x":")";
  whole += std::string(2048 - whole.size() - 2, 'x') + "\"}";
  service.answers(whole);
  EXPECT_EQ(raw(10000), 0) << "the reply itself is taken";
  EXPECT_EQ(reply.bytes(), padded(whole, 4096));
  EXPECT_EQ(weigh(), TOLVEX_UNDER_LOAD);
  EXPECT_EQ(service.weighing().connections(), 2U);
  EXPECT_EQ(resyncs(), (Lines{"[W] L:105 M:DLL [SndCmdToLC] Resync: the reply fills the buffer, "
                              "closing the connection"}));
}

TEST_F(Resync, ARefusalIsAReplyLikeAnyOther) {
  service.weighing().alwaysAnswers(R"({"result":"1005"})");
  EXPECT_EQ(host.call(send_zero), 255);
  EXPECT_EQ(host.call(send_zero), 255);
  EXPECT_EQ(service.weighing().connections(), 1U);
}

TEST_F(Resync, HoldsForPrintingToo) {
  host.call(getLastErrCode);
  ServicePort& printing = service.printing();
  ASSERT_TRUE(printing.hasAccepted(1));
  printing.sends(kOverLoad);
  printing.answers(kOk);
  EXPECT_EQ(host.call(GetPrinterStatus, 2U), 0);
  printing.closes();
  EXPECT_EQ(host.call(GetPrinterStatus, 2U), 4);
  printing.answers("?");
  EXPECT_EQ(host.call(GetPrinterStatus, 2U), -1);
  printing.answers(std::string(2048, 'x'));
  EXPECT_EQ(host.call(GetPrinterStatus, 2U), -1);
  printing.answers(kOk);
  EXPECT_EQ(host.call(GetPrinterStatus, 2U), 0);
  printing.closesConnections();
  printing.answers(kOk);
  EXPECT_EQ(host.call(GetPrinterStatus, 2U), 0);
  const std::string head = "[SndCmdToPrinter] Resync: ";
  EXPECT_EQ(resyncs(),
            (Lines{"[W] L:137 M:DLL " + head + "17 bytes nobody asked for, connecting anew",
                   "[W] L:139 M:DLL " + head + "no reply, closing the connection",
                   "[W] L:140 M:DLL " + head + "unreadable reply, closing the connection",
                   "[W] L:141 M:DLL " + head + "the reply fills the buffer, closing the connection",
                   "[W] L:138 M:DLL " + head + "the connection had ended, connecting anew"}));
}

TEST_F(Resync, IsReadWhereTheApplicationChoseTheAddress) {
  host.withIni("[zelkad]\nip_addr=127.99.1.2\nresync=1\n");
  EXPECT_EQ(host.call(SetServerIpForRemoteAccess, host.address().c_str()), TOLVEX_OK);
  EXPECT_EQ(weigh(), TOLVEX_UNDER_LOAD);
  service.weighing().sends(kOverLoad);
  EXPECT_EQ(weigh(), TOLVEX_UNDER_LOAD);
  EXPECT_EQ(service.weighing().connections(), 2U);
}

TEST_F(Resync, NeedsNoFileWhereTheApplicationChoseTheAddress) {
  host.withoutIni();
  EXPECT_EQ(host.call(SetServerIpForRemoteAccess, host.address().c_str()), TOLVEX_OK);
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(weigh(), TOLVEX_UNDER_LOAD);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

struct ResyncOff : Resync, ::testing::WithParamInterface<const char*> {};

TEST_P(ResyncOff, UnlessTheFileSaysOne) {
  host.withIni("[zelkad]\nip_addr=" + host.address() + "\n" + GetParam());
  host.call(getLastErrCode);
  ASSERT_TRUE(service.weighing().hasAccepted(1));
  service.weighing().sends(kOverLoad);
  service.weighing().staysSilent();  // its answer could join what waits
  EXPECT_EQ(host.call(read_standard, static_cast<char*>(record)), TOLVEX_OVER_LOAD);
  EXPECT_EQ(service.weighing().connections(), 1U);
  EXPECT_EQ(resyncs(), Lines());
  EXPECT_EQ(log.count("[W] L:175 M:DLL [DLL] resync is on by zelkad_ip_config.ini file"), 0U);
}

INSTANTIATE_TEST_SUITE_P(Text, ResyncOff,
                         ::testing::Values("", "resync=0\n", "resync=\n", "resync=2\n",
                                           "resync= 1\n", "resync =1\n", "Resync=1\n",
                                           "resync=1\nresync=0\n", "[other]\nresync=1\n"));

}  // namespace
}  // namespace tolvex::test
