#include "log/logger_test.h"

namespace tolvex {
namespace {

using test::Lines;

class Record : public test::LoggerTest {
 protected:
  Record() { open(); }

  // A message that makes the record of log() as long as told.
  std::string messageFor(std::size_t recordLength) const {
    return std::string(recordLength - record("").size(), 'x');
  }
};

TEST_F(Record, FollowsItsHeaderAtOnce) {
  NLog::Log(NLog::GetInstance(), "Socket", 5, 44, "[CTcpClient::Send] Open conn fail");
  EXPECT_EQ(lines(), (Lines{"2024-03-05 14:07:09 Ms:042 [W] L:044 M:Socket "
                            "[CTcpClient::Send] Open conn fail"}));
}

TEST_F(Record, FormatsItsArguments) {
  NLog::Log(NLog::GetInstance(), "DLL", 6, 123, "[%s] Err:%d %5.1f%% %lu", "send_zero", -7, 1.25,
            4000000000UL);
  EXPECT_EQ(lines(), (Lines{"2024-03-05 14:07:09 Ms:042 [T] L:123 M:DLL "
                            "[send_zero] Err:-7   1.2% 4000000000"}));
}

TEST_F(Record, ShowsANullText) {
  const char* volatile none = nullptr;  // unknown to the compiler's own check
  NLog::Log(NLog::GetInstance(), "DLL", 5, 1, "[%s]", none);
  EXPECT_EQ(lines(), (Lines{"2024-03-05 14:07:09 Ms:042 [W] L:001 M:DLL [(null)]"}));
}

TEST_F(Record, MayBeEmpty) {
  log("");
  EXPECT_EQ(lines(), (Lines{"2024-03-05 14:07:09 Ms:042 [E] L:001 M:DLL "}));
}

TEST_F(Record, HasNoModulePartWithoutAModule) {
  NLog::Log(NLog::GetInstance(), nullptr, 5, 1, "text");
  EXPECT_EQ(lines(), (Lines{"2024-03-05 14:07:09 Ms:042 [W] L:001 text"}));
}

TEST_F(Record, KeepsBytesBeyondAscii) {
  log("\xE7\xA7\xA4 \xFF\x01\t");
  EXPECT_EQ(lines(), (Lines{record("\xE7\xA7\xA4 \xFF\x01\t")}));
}

TEST_F(Record, CarriesTheTimeOfTheCall) {
  log("first");
  test::clockTime = {2024, 12, 31, 23, 59, 59, 999};
  log("second");
  EXPECT_EQ(lines(), (Lines{record("first"), "2024-12-31 23:59:59 Ms:999 [E] L:001 M:DLL second"}));
}

TEST_F(Record, Of509CharactersIsWhole) {
  log(messageFor(509));
  EXPECT_EQ(lines(), (Lines{record(messageFor(509))}));
}

TEST_F(Record, Of510CharactersIsWhole) {
  log(messageFor(510));
  EXPECT_EQ(lines(), (Lines{record(messageFor(510))}));
}

TEST_F(Record, Of511CharactersIsCutAt510) {
  log(messageFor(510) + "y");
  EXPECT_EQ(lines(), (Lines{record(messageFor(510))}));
}

TEST_F(Record, OfAnyLengthIsCutAt510) {
  log(std::string(100000, 'x'));
  EXPECT_EQ(lines(), (Lines{record(messageFor(510))}));
}

TEST_F(Record, IsNoLongerForALongModule) {
  const std::string module(600, 'm');
  NLog::Log(NLog::GetInstance(), module.c_str(), 7, 1, "%s", "message");
  EXPECT_EQ(lines(), (Lines{(test::kClockStamp + ("[E] L:001 M:" + module)).substr(0, 510)}));
}

TEST_F(Record, IsWrittenInTheOrderOfTheCalls) {
  for (const char* message : {"a", "b", "c"}) log(message);
  EXPECT_EQ(lines(), (Lines{record("a"), record("b"), record("c")}));
}

TEST_F(Record, IsInTheFileWhenTheCallReturns) {
  log("a");
  EXPECT_EQ(lines().size(), 1u);
  log("b");
  EXPECT_EQ(lines().size(), 2u);
}

TEST_F(Record, IsShownToTheDebuggerWithoutALineEnd) {
  log("a\nb");
  log("c");
  EXPECT_EQ(test::debuggerTexts, (Lines{record("a\nb"), record("c")}));
}

TEST_F(Record, ThatIsHeldBackIsNotShownToTheDebugger) {
  NLog::Log(NLog::GetInstance(), "DLL", 2, 1, "traffic");
  EXPECT_EQ(test::debuggerTexts, Lines());
}

TEST_F(Record, ThatIsHeldBackOpensNoFile) {
  NLog::Log(NLog::GetInstance(), "DLL", 2, 1, "traffic");
  EXPECT_FALSE(test::exists(file(0)));
}

}  // namespace
}  // namespace tolvex
