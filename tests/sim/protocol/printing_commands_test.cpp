// The commands of the printing port, with whole replies.
#include "service_fixture.h"

namespace tolvex::sim {
namespace {

class PrintingCommands : public ServiceFixture {};

TEST_F(PrintingCommands, SetOverloadAlarmReachesTheScale) {
  EXPECT_EQ(printing(R"({"cmd":"setOverloadAlarm","enable":"1"})"), R"({"result":"0"})");
  EXPECT_TRUE(scale_.overloadAlarm());
  EXPECT_EQ(printing(R"({"cmd":"setOverloadAlarm","enable":"0"})"), R"({"result":"0"})");
  EXPECT_FALSE(scale_.overloadAlarm());
}

TEST_F(PrintingCommands, SetOverloadAlarmChecksItsValue) {
  EXPECT_EQ(printing(R"({"cmd":"setOverloadAlarm"})"), R"({"result":"8"})");
  EXPECT_EQ(printing(R"({"cmd":"setOverloadAlarm","enable":true})"), R"({"result":"8"})");
  for (const char* value : {"", "2", "-1", "true", "01", "1 "}) {
    EXPECT_EQ(printing(R"({"cmd":"setOverloadAlarm","enable":")" + std::string(value) + R"("})"),
              R"({"result":"2"})")
        << value;
  }
  EXPECT_FALSE(scale_.overloadAlarm());
}

TEST_F(PrintingCommands, LogLevelCanBeSetAndRead) {
  EXPECT_EQ(printing(R"({"cmd":"getloglevel","module":"print"})"), R"({"result":"0","level":"5"})");
  EXPECT_EQ(printing(R"({"cmd":"setloglevel","module":"print","level":"3"})"), R"({"result":"0"})");
  EXPECT_EQ(printing(R"({"cmd":"getloglevel","module":"print"})"), R"({"result":"0","level":"3"})");
}

TEST_F(PrintingCommands, LogLevelChecksItsValues) {
  EXPECT_EQ(printing(R"({"cmd":"getloglevel"})"), R"({"result":"8"})");
  EXPECT_EQ(printing(R"({"cmd":"getloglevel","module":"loadcell"})"), R"({"result":"2"})");
  EXPECT_EQ(printing(R"({"cmd":"setloglevel","module":"print"})"), R"({"result":"8"})");
  EXPECT_EQ(printing(R"({"cmd":"setloglevel","module":"loadcell","level":"3"})"),
            R"({"result":"2"})");
  EXPECT_EQ(printing(R"({"cmd":"setloglevel","module":"print","level":"9"})"), R"({"result":"2"})");
}

}  // namespace
}  // namespace tolvex::sim
