// What holds for the requests of both ports.
#include "protocol/service.h"

#include "service_fixture.h"

namespace tolvex::sim {
namespace {

class ServiceTest : public ServiceFixture {};

TEST_F(ServiceTest, RefusesWhatIsNoJson) {
  EXPECT_EQ(weighing("{cmd}"), R"({"result":"7"})");
  EXPECT_EQ(printing("{cmd}"), R"({"result":"7"})");
}

TEST_F(ServiceTest, MissesTheCommand) {
  EXPECT_EQ(weighing("{}"), R"({"result":"8"})");
  EXPECT_EQ(weighing(R"({"cmd":1})"), R"({"result":"8"})");
  EXPECT_EQ(printing(R"({"CMD":"setOverloadAlarm"})"), R"({"result":"8"})");
}

TEST_F(ServiceTest, RefusesUnknownCommandsWithTheCodeOfThePort) {
  EXPECT_EQ(weighing(R"({"cmd":"brew"})"), R"({"result":"1002"})");
  EXPECT_EQ(printing(R"({"cmd":"brew"})"), R"({"result":"2002"})");
  EXPECT_EQ(weighing(R"({"cmd":""})"), R"({"result":"1002"})");
}

TEST_F(ServiceTest, CommandNamesAreCaseSensitive) {
  EXPECT_EQ(weighing(R"({"cmd":"GetWeight"})"), R"({"result":"1002"})");
  EXPECT_EQ(printing(R"({"cmd":"setoverloadalarm","enable":"1"})"), R"({"result":"2002"})");
}

TEST_F(ServiceTest, ACommandOfTheOtherPortIsUnknown) {
  EXPECT_EQ(weighing(R"({"cmd":"setOverloadAlarm","enable":"1"})"), R"({"result":"1002"})");
  for (const char* name : {"getbaseinfo", "getweight", "setzero", "setpretare", "settarebykey",
                           "clear_tare", "getLCVersion", "checkConnection"}) {
    EXPECT_EQ(printing(R"({"cmd":")" + std::string(name) + R"("})"), R"({"result":"2002"})")
        << name;
  }
}

TEST_F(ServiceTest, ReportsAnUnknownCommandBeforeMissingMembers) {
  EXPECT_EQ(printing(R"({"cmd":"setpretare"})"), R"({"result":"2002"})");
}

TEST_F(ServiceTest, IgnoresMembersItDoesNotKnow) {
  EXPECT_EQ(weighing(R"({"extra":["x"],"cmd":"setzero","paramList":"1"})"), R"({"result":"0"})");
}

TEST_F(ServiceTest, EachHalfHasItsOwnLogLevel) {
  EXPECT_EQ(weighing(R"({"cmd":"setloglevel","module":"loadcell","level":"2"})"),
            R"({"result":"0"})");
  EXPECT_EQ(weighing(R"({"cmd":"getloglevel","module":"loadcell"})"),
            R"({"result":"0","level":"2"})");
  EXPECT_EQ(printing(R"({"cmd":"getloglevel","module":"print"})"), R"({"result":"0","level":"5"})");
}

TEST_F(ServiceTest, RestoringBringsTheLogLevelsOfTheStartBack) {
  weighing(R"({"cmd":"setloglevel","module":"loadcell","level":"2"})");
  printing(R"({"cmd":"setloglevel","module":"print","level":"7"})");
  service_.restore();
  EXPECT_EQ(weighing(R"({"cmd":"getloglevel","module":"loadcell"})"),
            R"({"result":"0","level":"5"})");
  EXPECT_EQ(printing(R"({"cmd":"getloglevel","module":"print"})"), R"({"result":"0","level":"5"})");
}

TEST_F(ServiceTest, RepliesFitTheBuffersOfClients) {
  ScaleConfig config;
  config.unit = "\"\"\"\"";
  config.systemVersion.assign(64, '"');
  config.ranges = {
      {kilograms(999'999.99998), 10}, {kilograms(999'999.99999), 10}, {kilograms(1'000'000), 10}};
  config.maxTare = config.maxPreTare = config.minRange = config.max();
  Devices devices(config, Scale::kMaxLoad);
  Service service(devices);
  for (const char* request :
       {R"({"cmd":"getbaseinfo","VcoVersion":"3"})", R"({"cmd":"getweight"})"}) {
    const std::string reply = service.answer(Half::Weighing, request, now_).json();
    EXPECT_EQ(reply.substr(0, 14), R"({"result":"0",)") << reply;
    EXPECT_LT(reply.size(), 1024U) << reply;
  }
}

}  // namespace
}  // namespace tolvex::sim
