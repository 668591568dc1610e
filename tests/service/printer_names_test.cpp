// The printer's name, in every command that addresses a printer by it. (The raw command, which does
// not keep its code, has its own tests.)
#include <gtest/gtest.h>

#include <ostream>

#include "service/service_test.h"

namespace tolvex {
namespace {

struct NamingCommand {
  const char* testName;
  unsigned (*run)(VcoClientApi& client, const char* printerName);
  const char* before;  // the request up to the name
  const char* after;   // and behind it
};

void PrintTo(const NamingCommand& command, std::ostream* out) { *out << command.testName; }

// The whole reply of the version goes here.
char versionReply[2048];

const NamingCommand kNamingCommands[] = {
    {"GetPrinterVersion",
     [](VcoClientApi& client, const char* name) {
       return client.getPrinterVersion(versionReply, sizeof(versionReply), name);
     },
     R"({"cmd":"getprinterversion","printerName":")", R"("})"},
    {"SetLeftMargin",
     [](VcoClientApi& client, const char* name) { return client.setLeftMargin(8, name); },
     R"({"cmd":"setLeftMargin","printerName":")", R"(","leftMargin":"8"})"},
    {"SetRightMargin",
     [](VcoClientApi& client, const char* name) { return client.setRightMargin(8, name); },
     R"({"cmd":"setRightMargin","printerName":")", R"(","rightMargin":"8"})"},
    {"SetPrtAutoPrint",
     [](VcoClientApi& client, const char* name) { return client.setPrtAutoPrint(8, name); },
     R"({"cmd":"setPrtAutoPrint","printerName":")", R"(","enable":"8"})"},
    {"SetPaperOffset",
     [](VcoClientApi& client, const char* name) { return client.setPaperOffset(8, name); },
     R"({"cmd":"setPaperOffset","offset":"8","printerName":")", R"("})"},
    {"SetContrast",
     [](VcoClientApi& client, const char* name) { return client.setContrast(8, name); },
     R"({"cmd":"setcontrast","contrast":"8","printerName":")", R"("})"},
    {"SetPrintSpeed",
     [](VcoClientApi& client, const char* name) { return client.setPrintSpeed(8, name); },
     R"({"cmd":"setprintspeed","speed":"8","printerName":")", R"("})"},
    {"SetRollback",
     [](VcoClientApi& client, const char* name) { return client.setRollback(8, name); },
     R"({"cmd":"setRollback","enable":"8","printerName":")", R"("})"},
    {"SetTakePaperSensor",
     [](VcoClientApi& client, const char* name) { return client.setTakePaperSensor(8, name); },
     R"({"cmd":"settakepapersensor","enable":"1","printerName":")", R"("})"},
};

class PrinterName : public ServiceTest, public ::testing::WithParamInterface<NamingCommand> {
 protected:
  PrinterName() { leaveLastError(77); }

  void expectSentAs(const std::string& name, const std::string& escaped) {
    EXPECT_EQ(GetParam().run(client, name.c_str()), 0U);
    expectSentOn(printing, GetParam().before + escaped + GetParam().after);
    EXPECT_EQ(client.getLastErrCode(), 0);
  }

  void expectRefused(const char* name) {
    EXPECT_EQ(GetParam().run(client, name), 2U);
    EXPECT_EQ(client.getLastErrCode(), 2);
    expectNothingSent();
    EXPECT_EQ(log.records(), Texts{});
  }
};

TEST_P(PrinterName, MayBeEmpty) { expectSentAs("", ""); }

TEST_P(PrinterName, MayHoldQuotesAndBackslashes) {
  expectSentAs(R"(\\shop\"Till" 1)", R"(\\\\shop\\\"Till\" 1)");
}

TEST_P(PrinterName, GoesOutByteForByte) {
  expectSentAs("K\xC3\xA4sse \xC6\xBB\xFF%s%n", "K\xC3\xA4sse \xC6\xBB\xFF%s%n");
}

TEST_P(PrinterName, HasItsControlCharactersEscaped) { expectSentAs("a\nb\x1F", "a\\nb\\u001F"); }

TEST_P(PrinterName, MayHave255Bytes) { expectSentAs(std::string(255, 'n'), std::string(255, 'n')); }

TEST_P(PrinterName, Of256BytesIsInvalidParam) { expectRefused(std::string(256, 'n').c_str()); }

TEST_P(PrinterName, OfAMegabyteIsInvalidParam) {
  expectRefused(std::string(1U << 20, 'n').c_str());
}

TEST_P(PrinterName, OfNullIsInvalidParam) { expectRefused(nullptr); }

INSTANTIATE_TEST_SUITE_P(Of, PrinterName, ::testing::ValuesIn(kNamingCommands),
                         [](const auto& command) { return std::string(command.param.testName); });

}  // namespace
}  // namespace tolvex
