// Connection check, last error and the service's log levels.
#include "support/library_test.h"

namespace tolvex::test {
namespace {

using CheckConnection = ServiceTest;

TEST_F(CheckConnection, IsOneForEveryAnswer) {
  const std::pair<const char*, int> answers[] = {
      {R"({"result":"0"})", 0}, {R"({"result":"1007"})", 1007}, {"nonsense", -1},
      {R"({"result":4})", -1},  {R"({"result":"4"})", 4},       {R"({"result":"1001"})", 1001}};
  for (const auto& [reply, code] : answers) {
    service.answers(reply);
    EXPECT_EQ(host.call(checkConnection), 1) << reply;
    EXPECT_EQ(host.call(getLastErrCode), code) << reply;
  }
  EXPECT_EQ(service.requests(), Lines(6, R"({"cmd":"checkConnection"})"));
  EXPECT_EQ(log.sinceBanner(), Lines{});
}

TEST_F(CheckConnection, IsZeroWhenNoAnswerComes) {
  service.weighing().closes();
  EXPECT_EQ(host.call(checkConnection), 0);
  EXPECT_EQ(host.call(getLastErrCode), 4);
}

TEST_F(CheckConnection, IsZeroWhenTheServiceIsGone) {
  host.call(getLastErrCode);
  service.weighing().goesAway();
  EXPECT_EQ(host.call(checkConnection), 0);
  EXPECT_EQ(host.call(getLastErrCode), 4);
  service.weighing().comesBack();
  service.answers(R"({"result":"0"})");
  EXPECT_EQ(host.call(checkConnection), 1);
}

struct LogLevel : ServiceTest {
  int get(const char* module, char* buffer, unsigned size) {
    return host.call(getLogLevel, const_cast<char*>(module), buffer, size);
  }
  int set(const char* module, const char* level) {
    return host.call(setLogLevel, const_cast<char*>(module), const_cast<char*>(level));
  }
};

TEST_F(LogLevel, GoesToTheHalfOfTheServiceThatTheModuleNames) {
  service.answers(R"({"result":"0","level":"debug"})");
  service.printing().answers(R"({"result":"0","level":"3"})");
  CallerBuffer<8> level;
  EXPECT_EQ(get("loadcell", level, 8), 0);
  EXPECT_EQ(level.bytes(), "debug###") << "exactly the text, without a NUL";
  EXPECT_EQ(get("print", level, 8), 0);
  EXPECT_EQ(level.bytes(), "3ebug###");
  EXPECT_EQ(service.requests(), (Lines{R"({"cmd":"getloglevel","module":"loadcell"})"}));
  EXPECT_EQ(service.printing().requests(), (Lines{R"({"cmd":"getloglevel","module":"print"})"}));
  EXPECT_EQ(log.sinceBanner(), Lines{});
}

TEST_F(LogLevel, OfAnyOtherModuleIsOneWithoutARequest) {
  CallerBuffer<8> level;
  EXPECT_EQ(get("Print", level, 8), 1);
  EXPECT_EQ(host.call(getLastErrCode), 1);
  EXPECT_EQ(get("", level, 8), 1);
  EXPECT_EQ(get(nullptr, level, 8), 1);
  EXPECT_EQ(set("Loadcell", "5"), 1);
  EXPECT_TRUE(level.isUntouched());
  EXPECT_TRUE(service.requests().empty());
  EXPECT_TRUE(service.printing().requests().empty());
}

TEST_F(LogLevel, ThatDoesNotFitIsFiveAndNothingIsCopied) {
  service.weighing().alwaysAnswers(R"({"result":"0","level":"debug"})");
  CallerBuffer<4> small;
  EXPECT_EQ(get("loadcell", small, 4), 5);
  EXPECT_TRUE(small.isUntouched());
  CallerBuffer<5> exact;
  EXPECT_EQ(get("loadcell", exact, 5), 0);
  EXPECT_EQ(exact.bytes(), "debug");
  EXPECT_TRUE(exact.guardHolds());
  EXPECT_EQ(get("loadcell", nullptr, 5), 5);
}

TEST_F(LogLevel, ThatIsMissingInTheReplyIsSevenWithItsLine) {
  service.answers(R"({"result":"0","level":5})");
  CallerBuffer<8> level;
  EXPECT_EQ(get("loadcell", level, 8), 7);
  EXPECT_EQ(log.sinceBanner(), (Lines{"[W] L:421 M:DLL [library_tests][getLogLevel] json parse "
                                      R"(fail:{"result":"0","level":5})"}));
}

TEST_F(LogLevel, IsSetByModuleAndLevel) {
  service.weighing().alwaysAnswers(R"({"result":"0"})");
  service.printing().alwaysAnswers(R"({"result":"2"})");
  EXPECT_EQ(set("loadcell", "7"), 0);
  EXPECT_EQ(set("print", "x"), 2);
  EXPECT_EQ(host.call(getLastErrCode), 2);
  EXPECT_EQ(service.requests(),
            (Lines{R"({"cmd":"setloglevel","module":"loadcell","level":"7"})"}));
  EXPECT_EQ(service.printing().requests(),
            (Lines{R"({"cmd":"setloglevel","module":"print","level":"x"})"}));
}

TEST_F(LogLevel, WithANullArgumentIsTwoAndNotKept) {
  EXPECT_EQ(set(nullptr, "5"), 2);
  EXPECT_EQ(set("print", nullptr), 2);
  EXPECT_EQ(host.call(getLastErrCode), 0);
}

}  // namespace
}  // namespace tolvex::test
