#include <gtest/gtest.h>

#include <cstring>

#include "service/service_test.h"

namespace tolvex {
namespace {

constexpr char kClearRequest[] = R"({"cmd":"clear_tare"})";

class PresetTare : public ServiceTest {
 protected:
  // Runs the command with the text in a buffer of 16 bytes, the rest of it '#'.
  unsigned preset(const std::string& text, unsigned size = 10) {
    buffer = std::string(16, '#');
    buffer.replace(0, text.size() + 1, text + '\0');
    return client.setPresetTare(buffer.data(), size);
  }

  void expectPreset(const std::string& text) {
    weighing.requests.clear();
    preset(text);
    EXPECT_EQ(weighing.requests, Texts{R"({"cmd":"setpretare","tareValue":")" + text + R"("})"});
  }

  void expectClear(const std::string& text) {
    weighing.requests.clear();
    preset(text);
    EXPECT_EQ(weighing.requests, Texts{kClearRequest}) << text;
  }

  std::string buffer;
};

TEST_F(PresetTare, SendsTheTextAsItIs) {
  weighing.reply = R"({"result":"0","tare":"1.250"})";
  EXPECT_EQ(preset("01.25 kg"), 0U);
  expectSentOn(weighing, R"({"cmd":"setpretare","tareValue":"01.25 kg"})");
  EXPECT_EQ(client.getLastErrCode(), 0);
  EXPECT_EQ(log.records(), Texts{});
}

TEST_F(PresetTare, CopiesTheTareThatWasTaken) {
  weighing.reply = R"({"result":"0","tare":"1.250"})";
  EXPECT_EQ(preset("1.25", 16), 0U);
  EXPECT_EQ(buffer, std::string("1.250\0\0\0\0\0######", 16));
}

TEST_F(PresetTare, TerminatesATareOfNineCharacters) {
  weighing.reply = R"({"result":"0","tare":"12.345678"})";
  EXPECT_EQ(preset("1.25"), 0U);
  EXPECT_EQ(buffer, std::string("12.345678\0######", 16));
}

TEST_F(PresetTare, LeavesATareOfTenCharactersWithoutTerminator) {
  weighing.reply = R"({"result":"0","tare":"12.3456789"})";
  EXPECT_EQ(preset("1.25", 16), 0U);
  EXPECT_EQ(buffer, "12.3456789######");
}

TEST_F(PresetTare, CutsATareTextAtTenCharacters) {
  weighing.reply = R"({"result":"0","tare":"12.345678901"})";
  EXPECT_EQ(preset("1.25", 16), 0U);
  EXPECT_EQ(buffer, "12.3456789######");
}

TEST_F(PresetTare, KeepsBufferNotEnoughForANullText) {
  EXPECT_EQ(client.setPresetTare(nullptr, 10), 5U);
  EXPECT_EQ(client.getLastErrCode(), 5);
  expectNothingSent();
}

TEST_F(PresetTare, KeepsBufferNotEnoughForEightAndNineBytes) {
  for (const unsigned size : {8U, 9U}) {
    leaveLastError(77);
    EXPECT_EQ(preset("1.25", size), 5U);
    EXPECT_EQ(client.getLastErrCode(), 5);
  }
  expectNothingSent();
}

TEST_F(PresetTare, KeepsTheServicesCodeAndLeavesTheText) {
  weighing.reply = R"({"result":"2","tare":"9"})";
  EXPECT_EQ(preset("1.25"), 2U);
  EXPECT_EQ(client.getLastErrCode(), 2);
  EXPECT_EQ(buffer, std::string("1.25\0###########", 16));
}

TEST_F(PresetTare, KeepsAFailedExchangeAndLeavesTheText) {
  weighing.sendResult = -1;
  EXPECT_EQ(preset("1.25"), 4U);
  EXPECT_EQ(client.getLastErrCode(), 4);
  EXPECT_EQ(buffer, std::string("1.25\0###########", 16));
}

TEST_F(PresetTare, KeepsAnUnreadableReplyAndLeavesTheText) {
  weighing.reply = "[]";
  EXPECT_EQ(preset("1.25"), kUnreadable);
  EXPECT_EQ(client.getLastErrCode(), -1);
  EXPECT_EQ(buffer, std::string("1.25\0###########", 16));
}

TEST_F(PresetTare, LogsAReplyWithoutATare) {
  weighing.reply = R"({"result":"0","tare":null})";
  EXPECT_EQ(preset("1.25"), 7U);
  EXPECT_EQ(client.getLastErrCode(), 7);
  EXPECT_EQ(buffer, std::string("1.25\0###########", 16));
  EXPECT_EQ(log.records(),
            Texts{R"([W] L:236 M:DLL [setPresetTare] json parse fail:{"result":"0","tare":null})"});
}

TEST_F(PresetTare, OfNothingButZerosAndPointsClears) {
  for (const char* const text : {"", "0", "0.000", "0.00", ".", "..", "000", ".0", "0.0.0"}) {
    expectClear(text);
  }
}

TEST_F(PresetTare, OfASignIsSent) {
  expectPreset("-0.5");
  expectPreset("-0");
  expectPreset("+0");
}

TEST_F(PresetTare, OfADigitOtherThanZeroIsSent) {
  expectPreset("1");
  expectPreset("0.001");
}

TEST_F(PresetTare, OfABlankIsSent) {
  expectPreset(" 0");
  expectPreset("0 ");
}

TEST_F(PresetTare, OfACommaIsSent) { expectPreset("0,0"); }

TEST_F(PresetTare, OfZeroCopiesTheClearedTareAndFillsTheBuffer) {
  weighing.reply = R"({"result":"0","tare":"0.000"})";
  EXPECT_EQ(preset("0", 14), 0U);
  EXPECT_EQ(buffer, "0.000" + std::string(9, '\0') + "##");
  EXPECT_EQ(client.getLastErrCode(), 0);
}

TEST_F(PresetTare, OfZeroTakesTenCharactersOfTheClearedTare) {
  weighing.reply = R"({"result":"0","tare":"12.345678901"})";
  EXPECT_EQ(preset("0"), 0U);
  EXPECT_EQ(buffer, "12.3456789######");
}

TEST_F(PresetTare, OfZeroReturnsTheCodeOfClearingAndEmptiesTheText) {
  weighing.reply = R"({"result":"1002"})";
  EXPECT_EQ(preset("0.00"), 1002U);
  EXPECT_EQ(client.getLastErrCode(), 1002);
  EXPECT_EQ(buffer, std::string(10, '\0') + "######");
}

TEST_F(PresetTare, OfZeroLogsAMissingTareAsClearing) {
  EXPECT_EQ(preset("0"), 7U);
  EXPECT_EQ(log.records(), Texts{R"([W] L:304 M:DLL [clearTare] json parse fail:{"result":"0"})"});
}

// A client whose tare is cleared in another way.
class OtherClient final : public VcoClientApi {
 public:
  using VcoClientApi::VcoClientApi;
  unsigned clearTare(char* out, unsigned outLen) override {
    given = outLen;
    std::strcpy(out, "other");
    return 42;
  }
  unsigned given = 0;
};

TEST_F(PresetTare, OfZeroClearsTheWayOfTheDerivedClient) {
  OtherClient other(&weighing, &printing);
  char text[13] = "0\0##########";
  EXPECT_EQ(other.setPresetTare(text, 12), 42U);
  EXPECT_EQ(other.given, 12U);
  EXPECT_EQ(std::string(text, sizeof(text)), "other" + std::string(8, '\0'));
  EXPECT_EQ(other.getLastErrCode(), 0);
  expectNothingSent();
}

TEST_F(PresetTare, OfAValueDoesNotTouchTheDerivedClientsClearing) {
  OtherClient other(&weighing, &printing);
  weighing.reply = R"({"result":"0","tare":"1.5"})";
  char text[10] = "1.5";
  EXPECT_EQ(other.setPresetTare(text, 10), 0U);
  EXPECT_EQ(other.given, 0U);
}

}  // namespace
}  // namespace tolvex
