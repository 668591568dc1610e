// Tare by key and clearing the tare, which differ in their request and their log line only.
#include <gtest/gtest.h>

#include <ostream>

#include "service/service_test.h"

namespace tolvex {
namespace {

struct TareCommand {
  const char* testName;
  unsigned (VcoClientApi::*run)(char*, unsigned);
  const char* request;
  const char* missing;  // the log record of a reply without a tare; the reply follows
};

void PrintTo(const TareCommand& command, std::ostream* out) { *out << command.testName; }

const TareCommand kTareCommands[] = {
    {"SetTare", &VcoClientApi::setTare, R"({"cmd":"settarebykey"})",
     "[W] L:270 M:DLL [service_test][setTare] json parse fail:"},
    {"ClearTare", &VcoClientApi::clearTare, R"({"cmd":"clear_tare"})",
     "[W] L:304 M:DLL [clearTare] json parse fail:"},
};

class Tare : public ServiceTest, public ::testing::WithParamInterface<TareCommand> {
 protected:
  unsigned run(char* buffer, unsigned size) { return (client.*GetParam().run)(buffer, size); }

  // The reply brings this tare text; whatever follows the ten bytes must stay.
  void expectTare(const std::string& text, const std::string& copied) {
    weighing.reply = R"({"result":"0","tare":")" + text + R"("})";
    EXPECT_EQ(run(out.data(), 16), 0U);
    EXPECT_EQ(out, copied + "######");
    EXPECT_EQ(client.getLastErrCode(), 0);
  }

  void expectUntouched() { EXPECT_EQ(out, std::string(16, '#')); }

  std::string out = std::string(16, '#');
};

TEST_P(Tare, SendsItsRequest) {
  weighing.reply = R"({"result":"0","tare":"1"})";
  EXPECT_EQ(run(out.data(), 10), 0U);
  expectSentOn(weighing, GetParam().request);
  EXPECT_EQ(log.records(), Texts{});
}

TEST_P(Tare, FillsAShortTextUpToTenBytes) {
  expectTare("1.250", std::string("1.250\0\0\0\0\0", 10));
}

TEST_P(Tare, TerminatesATextOfNineCharacters) {
  expectTare("12.345678", std::string("12.345678\0", 10));
}

TEST_P(Tare, LeavesATextOfTenCharactersWithoutTerminator) {
  expectTare("12.3456789", "12.3456789");
}

TEST_P(Tare, CutsATextOfTwelveCharactersAtTen) { expectTare("12.345678901", "12.3456789"); }

TEST_P(Tare, TakesAnEmptyText) { expectTare("", std::string(10, '\0')); }

TEST_P(Tare, TakesABufferOfTenBytes) {
  weighing.reply = R"({"result":"0","tare":"12.345678901"})";
  EXPECT_EQ(run(out.data(), 10), 0U);
  EXPECT_EQ(out, "12.3456789######");
}

TEST_P(Tare, KeepsBufferNotEnoughForNineBytes) {
  EXPECT_EQ(run(out.data(), 9), 5U);
  EXPECT_EQ(client.getLastErrCode(), 5);
  expectUntouched();
  expectNothingSent();
}

TEST_P(Tare, KeepsBufferNotEnoughForANullBuffer) {
  EXPECT_EQ(run(nullptr, 10), 5U);
  EXPECT_EQ(client.getLastErrCode(), 5);
  expectNothingSent();
}

TEST_P(Tare, KeepsTheServicesCodeAndCopiesNothing) {
  weighing.reply = R"({"result":"1002","tare":"1.250"})";
  EXPECT_EQ(run(out.data(), 16), 1002U);
  EXPECT_EQ(client.getLastErrCode(), 1002);
  expectUntouched();
  EXPECT_EQ(log.records(), Texts{});
}

TEST_P(Tare, KeepsAnUnreadableReplyAndCopiesNothing) {
  weighing.reply = R"({"result":0,"tare":"1.250"})";
  EXPECT_EQ(run(out.data(), 16), kUnreadable);
  EXPECT_EQ(client.getLastErrCode(), -1);
  expectUntouched();
  EXPECT_EQ(log.records(), Texts{});
}

TEST_P(Tare, LogsAReplyWithoutATare) {
  weighing.reply = R"({"result":"0"})";
  EXPECT_EQ(run(out.data(), 16), 7U);
  EXPECT_EQ(client.getLastErrCode(), 7);
  expectUntouched();
  EXPECT_EQ(log.records(), Texts{GetParam().missing + weighing.reply});
}

TEST_P(Tare, LogsATareThatIsNoText) {
  weighing.reply = R"({"result":"0","tare":1.25})";
  EXPECT_EQ(run(out.data(), 16), 7U);
  EXPECT_EQ(client.getLastErrCode(), 7);
  expectUntouched();
  EXPECT_EQ(log.records(), Texts{GetParam().missing + weighing.reply});
}

TEST_P(Tare, KeepsAFailedExchange) {
  weighing.receiveResult = 0;
  EXPECT_EQ(run(out.data(), 16), 4U);
  EXPECT_EQ(client.getLastErrCode(), 4);
  expectUntouched();
}

INSTANTIATE_TEST_SUITE_P(By, Tare, ::testing::ValuesIn(kTareCommands),
                         [](const auto& command) { return std::string(command.param.testName); });

}  // namespace
}  // namespace tolvex
