// The commands of the weighing port, with whole replies.
#include "base/version.h"
#include "service_fixture.h"

namespace tolvex::sim {
namespace {

class WeighingCommands : public ServiceFixture {};

TEST_F(WeighingCommands, GetBaseInfoDescribesTheScale) {
  EXPECT_EQ(weighing(R"({"cmd":"getbaseinfo","VcoVersion":"3.0.3.2"})"),
            R"({"result":"0","maxRange1":"3","maxRange2":"6","maxRange3":"15","minRange":":0.02",)"
            R"("maxTare":"6","maxPreTare":"3","resolution1":"0.001","resolution2":"0.002",)"
            R"("resolution3":"0.005","weightUnit":"kg","systemVersion":"SIM 1.0"})");
}

TEST_F(WeighingCommands, GetBaseInfoHasZerosForRangesThatTheScaleHasNot) {
  ScaleConfig config;
  config.ranges = {{kilograms(30), kilograms(0.01)}};
  config.unit = "lb";
  Devices devices(config);
  EXPECT_EQ(Service(devices)
                .answer(Half::Weighing, R"({"cmd":"getbaseinfo","VcoVersion":"3"})", now_)
                .json(),
            R"({"result":"0","maxRange1":"30","maxRange2":"0","maxRange3":"0","minRange":":0.02",)"
            R"("maxTare":"6","maxPreTare":"3","resolution1":"0.01","resolution2":"0",)"
            R"("resolution3":"0","weightUnit":"lb","systemVersion":"SIM 1.0"})");
}

TEST_F(WeighingCommands, GetBaseInfoChecksTheClientsVersion) {
  EXPECT_EQ(weighing(R"({"cmd":"getbaseinfo"})"), R"({"result":"8"})");
  EXPECT_EQ(weighing(R"({"cmd":"getbaseinfo","VcoVersion":3})"), R"({"result":"8"})");
  for (const char* version : {"2.9.9.9", "4.0", "30.1", "", "x", ".3", "03.1"}) {
    EXPECT_EQ(weighing(R"({"cmd":"getbaseinfo","VcoVersion":")" + std::string(version) + R"("})"),
              R"({"result":"9"})")
        << version;
  }
}

TEST_F(WeighingCommands, GetBaseInfoNeedsTheScale) {
  scale_.setInvalid(true);
  EXPECT_EQ(weighing(R"({"cmd":"getbaseinfo","VcoVersion":"3"})").substr(0, 14),
            R"({"result":"0",)");
  scale_.unplug();
  EXPECT_EQ(weighing(R"({"cmd":"getbaseinfo","VcoVersion":"3"})"), R"({"result":"1007"})");
}

TEST_F(WeighingCommands, GetWeightOfAnEmptyScale) {
  EXPECT_EQ(weighing(R"({"cmd":"getweight"})"),
            R"({"result":"0","net":"0.000","tare":"0.000","zero":"1","tareType":"N",)"
            R"("highResNet":"0.0000","weightUnit":"kg"})");
}

TEST_F(WeighingCommands, GetWeightOfALoad) {
  settle(0.182);
  EXPECT_EQ(weighing(R"({"cmd":"getweight"})"),
            R"({"result":"0","net":"0.182","tare":"0.000","zero":"0","tareType":"N",)"
            R"("highResNet":"0.1820","weightUnit":"kg"})");
}

TEST_F(WeighingCommands, GetWeightOfAMovingLoadHasItsMembers) {
  scale_.setLoad(kilograms(1), now_);
  EXPECT_EQ(weighing(R"({"cmd":"getweight"})"),
            R"({"result":"1005","net":"0.000","tare":"0.000","zero":"1","tareType":"N",)"
            R"("highResNet":"0.0000","weightUnit":"kg"})");
}

TEST_F(WeighingCommands, GetWeightWithoutAWeightIsTheCodeAlone) {
  settle(-0.021);
  EXPECT_EQ(weighing(R"({"cmd":"getweight"})"), R"({"result":"1003"})");
  settle(16);
  EXPECT_EQ(weighing(R"({"cmd":"getweight"})"), R"({"result":"1004"})");
  scale_.setInvalid(true);
  EXPECT_EQ(weighing(R"({"cmd":"getweight"})"), R"({"result":"1006"})");
  scale_.unplug();
  EXPECT_EQ(weighing(R"({"cmd":"getweight"})"), R"({"result":"1007"})");
}

TEST_F(WeighingCommands, GetWeightFollowsTheDecimalsOfTheScale) {
  ScaleConfig config;
  config.ranges = {{kilograms(150), kilograms(0.05)}};
  Devices devices(config, kilograms(20.125));
  EXPECT_EQ(Service(devices).answer(Half::Weighing, R"({"cmd":"getweight"})", now_).json(),
            R"({"result":"0","net":"20.15","tare":"0.00","zero":"0","tareType":"N",)"
            R"("highResNet":"20.125","weightUnit":"kg"})");
}

TEST_F(WeighingCommands, SetZeroMakesTheLoadZero) {
  settle(0.1);
  EXPECT_EQ(weighing(R"({"cmd":"setzero"})"), R"({"result":"0"})");
  EXPECT_EQ(weighing(R"({"cmd":"getweight"})"),
            R"({"result":"0","net":"0.000","tare":"0.000","zero":"1","tareType":"N",)"
            R"("highResNet":"0.0000","weightUnit":"kg"})");
}

TEST_F(WeighingCommands, SetZeroTellsWhyNot) {
  settle(1);
  EXPECT_EQ(weighing(R"({"cmd":"setzero"})"), R"({"result":"10"})");
  scale_.setLoad(0, now_);
  EXPECT_EQ(weighing(R"({"cmd":"setzero"})"), R"({"result":"1005"})");
}

TEST_F(WeighingCommands, SetTareByKeyConfirmsTheTare) {
  settle(0.12);
  EXPECT_EQ(weighing(R"({"cmd":"settarebykey"})"), R"({"result":"0","tare":"0.120"})");
  settle(0.602);
  EXPECT_EQ(weighing(R"({"cmd":"getweight"})"),
            R"({"result":"0","net":"0.482","tare":"0.120","zero":"0","tareType":"T",)"
            R"("highResNet":"0.4820","weightUnit":"kg"})");
}

TEST_F(WeighingCommands, SetTareByKeyTellsWhyNot) {
  scale_.setLoad(kilograms(1), now_);
  EXPECT_EQ(weighing(R"({"cmd":"settarebykey"})"), R"({"result":"1005"})");
  settle(-1);
  EXPECT_EQ(weighing(R"({"cmd":"settarebykey"})"), R"({"result":"1003"})");
  settle(20);
  EXPECT_EQ(weighing(R"({"cmd":"settarebykey"})"), R"({"result":"1004"})");
}

TEST_F(WeighingCommands, SetPreTareConfirmsTheTare) {
  EXPECT_EQ(weighing(R"({"cmd":"setpretare","tareValue":"0.12"})"),
            R"({"result":"0","tare":"0.120"})");
  EXPECT_EQ(weighing(R"({"cmd":"getweight"})"),
            R"({"result":"0","net":"-0.120","tare":"0.120","zero":"1","tareType":"PT",)"
            R"("highResNet":"-0.1200","weightUnit":"kg"})");
}

TEST_F(WeighingCommands, SetPreTareOfZeroClearsTheTare) {
  EXPECT_EQ(weighing(R"({"cmd":"setpretare","tareValue":"1"})"),
            R"({"result":"0","tare":"1.000"})");
  EXPECT_EQ(weighing(R"({"cmd":"setpretare","tareValue":"0.000"})"),
            R"({"result":"0","tare":"0.000"})");
}

TEST_F(WeighingCommands, SetPreTareChecksItsValue) {
  EXPECT_EQ(weighing(R"({"cmd":"setpretare"})"), R"({"result":"8"})");
  EXPECT_EQ(weighing(R"({"cmd":"setpretare","tareValue":0.12})"), R"({"result":"8"})");
  for (const char* value : {"", "-0.5", "-0", " 0", "0.1 ", ".5", "1.", "+1", "1e0", "1,5", "abc",
                            "0x1", "nan", "3.001", "999999999999", "1000000000000000000000"}) {
    EXPECT_EQ(weighing(R"({"cmd":"setpretare","tareValue":")" + std::string(value) + R"("})"),
              R"({"result":"2"})")
        << value;
  }
}

TEST_F(WeighingCommands, ClearTareConfirmsThatThereIsNone) {
  EXPECT_EQ(weighing(R"({"cmd":"setpretare","tareValue":"1"})"),
            R"({"result":"0","tare":"1.000"})");
  EXPECT_EQ(weighing(R"({"cmd":"clear_tare"})"), R"({"result":"0","tare":"0.000"})");
  scale_.unplug();
  EXPECT_EQ(weighing(R"({"cmd":"clear_tare"})"), R"({"result":"1007"})");
}

TEST_F(WeighingCommands, GetLcVersionIsTheServicesOwnVersion) {
  scale_.unplug();
  EXPECT_EQ(weighing(R"({"cmd":"getLCVersion"})"),
            R"({"result":"0","version":")" + std::string(version()) + R"("})");
  EXPECT_NE(std::string(version()), "");
}

TEST_F(WeighingCommands, CheckConnectionTellsWhetherTheScaleIsThere) {
  scale_.setInvalid(true);
  EXPECT_EQ(weighing(R"({"cmd":"checkConnection"})"), R"({"result":"0"})");
  scale_.unplug();
  EXPECT_EQ(weighing(R"({"cmd":"checkConnection"})"), R"({"result":"1007"})");
}

TEST_F(WeighingCommands, LogLevelIsFiveUntilItIsSet) {
  EXPECT_EQ(weighing(R"({"cmd":"getloglevel","module":"loadcell"})"),
            R"({"result":"0","level":"5"})");
  for (const char* level : {"1", "7"}) {
    EXPECT_EQ(weighing(R"({"cmd":"setloglevel","module":"loadcell","level":")" +
                       std::string(level) + R"("})"),
              R"({"result":"0"})");
    EXPECT_EQ(weighing(R"({"cmd":"getloglevel","module":"loadcell"})"),
              R"({"result":"0","level":")" + std::string(level) + R"("})");
  }
}

TEST_F(WeighingCommands, LogLevelKnowsOnlyItsOwnModule) {
  EXPECT_EQ(weighing(R"({"cmd":"getloglevel"})"), R"({"result":"8"})");
  EXPECT_EQ(weighing(R"({"cmd":"getloglevel","module":"print"})"), R"({"result":"2"})");
  EXPECT_EQ(weighing(R"({"cmd":"setloglevel","module":"print","level":"3"})"), R"({"result":"2"})");
  EXPECT_EQ(weighing(R"({"cmd":"setloglevel","module":"loadcell"})"), R"({"result":"8"})");
  EXPECT_EQ(weighing(R"({"cmd":"setloglevel","level":"3"})"), R"({"result":"8"})");
}

TEST_F(WeighingCommands, LogLevelsAreOneToSeven) {
  for (const char* level : {"0", "8", "", "55", "-1", "x", " 3", "3 "}) {
    EXPECT_EQ(weighing(R"({"cmd":"setloglevel","module":"loadcell","level":")" +
                       std::string(level) + R"("})"),
              R"({"result":"2"})")
        << level;
  }
  EXPECT_EQ(weighing(R"({"cmd":"getloglevel","module":"loadcell"})"),
            R"({"result":"0","level":"5"})");
}

}  // namespace
}  // namespace tolvex::sim
