// The printer settings: values, printer names, and which of them leave a last error.
#include <climits>

#include "library/printing_test.h"

namespace tolvex::test {
namespace {

using Settings = PrintingTest;

TEST_F(Settings, SetDefaultPaperWidthIsSetDefaultPaperWidthOfTheDefaultPrinter) {
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(host.call(SetDefaultPaperWidth, 58U), 0);
  EXPECT_EQ(host.call(setDefaultPaperWidth, 58U, 100U), 0);
  EXPECT_EQ(host.call(SetDefaultPaperWidth_stdcall, 58U), 0);
  EXPECT_EQ(newRequests(),
            Lines(3, R"({"cmd":"setpaperwidth","width":"464","printerType":"100"})"));
}

TEST_F(Settings, APaperWidthGoesOutTimesEightWithoutALimit) {
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(host.call(setDefaultPaperWidth, 0U, 0U), 0);
  EXPECT_EQ(host.call(setDefaultPaperWidth, 1000U, 0U), 0);
  EXPECT_EQ(host.call(setDefaultPaperWidth, UINT_MAX, UINT_MAX), 0);
  EXPECT_EQ(newRequests(), (Lines{R"({"cmd":"setpaperwidth","width":"0","printerType":"0"})",
                                  R"({"cmd":"setpaperwidth","width":"8000","printerType":"0"})",
                                  R"({"cmd":"setpaperwidth","width":"-8","printerType":"-1"})"}));
}

TEST_F(Settings, TheCapitalisedNamesOfSpeedAndContrastSendNothing) {
  EXPECT_EQ(host.call(SetPrintSpeed), 240);
  EXPECT_EQ(host.call(SetPrintContrast), 240);
  EXPECT_EQ(printer.connections(), 0U);
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(host.call(setPrintSpeed, 5U, "Bon"), 0);
  EXPECT_EQ(host.call(setPrintContrast, 6U, "Bon"), 0);
  EXPECT_EQ(newRequests(), (Lines{R"({"cmd":"setprintspeed","speed":"5","printerName":"Bon"})",
                                  R"({"cmd":"setcontrast","contrast":"6","printerName":"Bon"})"}));
}

using ByName = int (*)(unsigned value, const char* printerName);

struct NamedSetting {
  const char* name;
  ByName set;
  std::string (*request)(const std::string& value, const std::string& printerName);
};

template <char first>  // which member comes first: the 'n'ame or the 'v'alue
std::string request(const char* command, const char* key, const std::string& value,
                    const std::string& printerName) {
  const std::string name = R"("printerName":")" + printerName + '"';
  const std::string member = '"' + std::string(key) + R"(":")" + value + '"';
  return R"({"cmd":")" + std::string(command) + "\"," +
         (first == 'n' ? name + ',' + member : member + ',' + name) + '}';
}

#define SETTING(function, first, command, key)                                                  \
  NamedSetting {                                                                                \
#function, function,                                                                        \
        [](const std::string& value,                                                            \
           const std::string& printer) { return request<first>(command, key, value, printer); } \
  }

const NamedSetting kNamedSettings[] = {
    SETTING(setLeftMargin, 'n', "setLeftMargin", "leftMargin"),
    SETTING(setRightMargin, 'n', "setRightMargin", "rightMargin"),
    SETTING(setPrtAutoPrint, 'n', "setPrtAutoPrint", "enable"),
    SETTING(setPaperOffset, 'v', "setPaperOffset", "offset"),
    SETTING(setPrintContrast, 'v', "setcontrast", "contrast"),
    SETTING(setPrintSpeed, 'v', "setprintspeed", "speed"),
    SETTING(setRollback, 'v', "setRollback", "enable"),
};

TEST_F(Settings, ValuesGoOutAsSignedNumbersWithoutACheck) {
  printer.alwaysAnswers(kOk);
  for (const NamedSetting& setting : kNamedSettings) {
    for (const auto& [value, shown] : {std::pair<unsigned, const char*>{0U, "0"},
                                       {99999U, "99999"},
                                       {UINT_MAX, "-1"},
                                       {0x80000000U, "-2147483648"}}) {
      EXPECT_EQ(host.call(setting.set, value, "Bon"), 0) << setting.name;
      EXPECT_EQ(newRequests(), Lines{setting.request(shown, "Bon")}) << setting.name;
    }
  }
  EXPECT_EQ(host.call(setGapType, UINT_MAX, UINT_MAX), 0);
  EXPECT_EQ(host.call(setPrinterDirection, 0U, 0x80000000U), 0);
  EXPECT_EQ(host.call(setTextWrapMode, UINT_MAX, 0U), 0);
  EXPECT_EQ(newRequests(),
            (Lines{R"({"cmd":"setGapType","gapType":"-1","printerType":"-1"})",
                   R"({"cmd":"setdirection","direction":"0","printerType":"-2147483648"})",
                   R"({"cmd":"setTextWrapMode","printerType":"0","WrapMode":"-1"})"}));
}

TEST_F(Settings, APrinterNameGoesOutAsItIsUpTo255Bytes) {
  printer.alwaysAnswers(kOk);
  const std::string longest(255, 'n');
  for (const NamedSetting& setting : kNamedSettings) {
    EXPECT_EQ(host.call(setting.set, 1U, longest.c_str()), 0) << setting.name;
    EXPECT_EQ(host.call(setting.set, 2U, ""), 0) << setting.name;
    EXPECT_EQ(host.call(setting.set, 3U, "\"Bon\"\\\t\xE4%s"), 0) << setting.name;
    EXPECT_EQ(newRequests(), (Lines{setting.request("1", longest), setting.request("2", ""),
                                    setting.request("3", "\\\"Bon\\\"\\\\\\t\xE4%s")}))
        << setting.name;
  }
}

TEST_F(Settings, ANullPrinterNameOrOneOf256BytesIsTwoWithoutARequest) {
  const std::string tooLong(256, 'n');
  printer.alwaysAnswers(kOk);
  for (const NamedSetting& setting : kNamedSettings) {
    for (const char* const name : {static_cast<const char*>(nullptr), tooLong.c_str()}) {
      EXPECT_EQ(host.call(setGapType, 1U, 1U), 0) << "so that the last error is 0";
      newRequests();
      EXPECT_EQ(host.call(setting.set, 1U, name), 2) << setting.name;
      EXPECT_EQ(lastError(), 2) << setting.name;
      EXPECT_EQ(newRequests(), Lines{}) << setting.name;
    }
  }
  EXPECT_EQ(log.sinceBanner(), Lines{});
}

TEST_F(Settings, TheTakeupSensorIsSwitchedByOneAndZeroAndLogsWhatTheCallerSaid) {
  printer.alwaysAnswers(kOk);
  for (const auto& [enable, sent] :
       {std::pair<int, const char*>{0, "0"}, {1, "1"}, {-1, "1"}, {INT_MIN, "1"}}) {
    EXPECT_EQ(host.call(setTakeupPaperSensor, enable, "Bon"), 240);
    EXPECT_EQ(newRequests(), Lines{request<'v'>("settakepapersensor", "enable", sent, "Bon")});
    EXPECT_EQ(newLines(),
              (Lines{"[T] L:894 M:DLL [library_tests][setTakeupPaperSensor] Entry",
                     "[T] L:901 M:DLL [library_tests][setTakeupPaperSensor] OK, iEnable: " +
                         std::to_string(enable)}));
  }
}

TEST_F(Settings, TheTakeupSensorOfAPrinterWithoutAUsableNameIsLoggedAsTwo) {
  const std::string tooLong(256, 'n');
  for (const char* const name : {static_cast<const char*>(nullptr), tooLong.c_str()}) {
    EXPECT_EQ(host.call(setTakeupPaperSensor, 1, name), 255);
    EXPECT_EQ(newLines(), (Lines{"[T] L:894 M:DLL [library_tests][setTakeupPaperSensor] Entry",
                                 "[W] L:898 M:DLL [setTakeupPaperSensor] Err: 2"}));
    EXPECT_EQ(lastError(), 2);
  }
  EXPECT_EQ(newRequests(), Lines{});
}

TEST_F(Settings, TheTextWrapModeLeavesTheLastErrorAlone) {
  printer.answers(replyWith(2005));
  EXPECT_EQ(host.call(setGapType, 1U, 1U), 2005);
  printer.answers(kOk);
  EXPECT_EQ(host.call(setTextWrapMode, 1U, 1U), 0);
  EXPECT_EQ(lastError(), 2005);
  printer.answers(replyWith(2003));
  EXPECT_EQ(host.call(setTextWrapMode, 1U, 1U), 2003);
  EXPECT_EQ(lastError(), 2005);
}

}  // namespace
}  // namespace tolvex::test
