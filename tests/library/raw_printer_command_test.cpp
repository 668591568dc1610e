// Printer commands of the caller's making.
#include <climits>

#include "library/printing_test.h"

namespace tolvex::test {
namespace {

struct RawPrinterCommand : PrintingTest {
  int raw(const char* name, const char* command, int number, const char* parameters, char* reply,
          unsigned size, unsigned wait = 10000) {
    return host.call(sendRawCmdToPrt, name, command, number, parameters, reply, size, wait);
  }
  static std::string logged(const std::string& request) {
    return "[T] L:1012 M:DLL [sendRawCmdToPrt] Req: " + request;
  }
};

TEST_F(RawPrinterCommand, SendsItsArgumentsInOrderAndCopiesTheReply) {
  const std::string reply = R"({"result":"0","x":"y"})";
  printer.answers(reply);
  CallerBuffer<64> buffer;
  EXPECT_EQ(raw("Bon \"1\"", "set\\x", INT_MIN, "a\n\xE4", buffer, 64), 0);
  const std::string request =
      "{\"cmd\":\"set\\\\x\",\"printerName\":\"Bon \\\"1\\\"\",\"intParam\":\"-2147483648\","
      "\"paramList\":\"a\\n\xE4\"}";
  EXPECT_EQ(newRequests(), Lines{request});
  EXPECT_EQ(newLines(), Lines{logged(request)});
  EXPECT_EQ(buffer.bytes(), padded(reply, 64));
  EXPECT_TRUE(buffer.guardHolds());
}

TEST_F(RawPrinterCommand, LeavesOutEmptyAndMissingParameters) {
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(raw("Bon", "a", 0, "", nullptr, 0), 0);
  EXPECT_EQ(raw("", "b", 1, nullptr, nullptr, 0), 0);
  EXPECT_EQ(newRequests(), (Lines{R"({"cmd":"a","printerName":"Bon","intParam":"0"})",
                                  R"({"cmd":"b","printerName":"","intParam":"1"})"}));
}

TEST_F(RawPrinterCommand, ANullCommandIsTwoAndTheOnlyCodeKept) {
  EXPECT_EQ(raw("Bon", nullptr, 0, "x", nullptr, 0), 2);
  EXPECT_EQ(raw(nullptr, nullptr, 0, "x", nullptr, 0), 2);
  EXPECT_EQ(lastError(), 2);
  EXPECT_EQ(newRequests(), Lines{});
  EXPECT_EQ(newLines(), Lines{});
  printer.answers(kOk);
  EXPECT_EQ(raw("Bon", "a", 0, nullptr, nullptr, 0), 0);
  EXPECT_EQ(lastError(), 2);
  printer.answers(replyWith(2002));
  EXPECT_EQ(raw("Bon", "a", 0, nullptr, nullptr, 0), 2002);
  EXPECT_EQ(lastError(), 2);
}

TEST_F(RawPrinterCommand, ForAPrinterWithoutAUsableNameIsTwoWithoutARequest) {
  CallerBuffer<8> buffer;
  EXPECT_EQ(raw(nullptr, "a", 0, nullptr, buffer, 8), 2);
  EXPECT_EQ(raw(std::string(256, 'n').c_str(), "a", 0, nullptr, buffer, 8), 2);
  EXPECT_TRUE(buffer.isUntouched());
  EXPECT_EQ(newRequests(), Lines{});
  EXPECT_EQ(lastError(), 0) << "not kept";
  printer.answers(kOk);
  const std::string longest(255, 'n');
  EXPECT_EQ(raw(longest.c_str(), "a", 0, nullptr, nullptr, 0), 0);
  EXPECT_EQ(newRequests(),
            Lines{R"({"cmd":"a","printerName":")" + longest + R"(","intParam":"0"})"});
}

TEST_F(RawPrinterCommand, AReplyOfExactlyTheSizeFitsAndALongerOneIsFive) {
  printer.alwaysAnswers(kOk);  // 14 bytes
  CallerBuffer<14> exact;
  EXPECT_EQ(raw("Bon", "a", 0, nullptr, exact, 14), 0);
  EXPECT_EQ(exact.bytes(), kOk);
  EXPECT_TRUE(exact.guardHolds());
  CallerBuffer<13> small;
  EXPECT_EQ(raw("Bon", "a", 0, nullptr, small, 13), 5);
  EXPECT_EQ(small.bytes(), R"({"result":"0")");
  EXPECT_TRUE(small.guardHolds());
  CallerBuffer<4> none;
  EXPECT_EQ(raw("Bon", "a", 0, nullptr, none, 0), 5);
  EXPECT_TRUE(none.isUntouched());
}

TEST_F(RawPrinterCommand, TheReplyIsCopiedWhateverItsCode) {
  printer.answers("nonsense");
  CallerBuffer<16> buffer;
  EXPECT_EQ(raw("Bon", "a", 0, nullptr, buffer, 16), -1);
  EXPECT_EQ(buffer.bytes(), padded("nonsense", 16));
}

TEST_F(RawPrinterCommand, WaitsAsLongAsTheCallerSays) {
  printer.staysSilent();
  CallerBuffer<64> buffer;
  EXPECT_EQ(raw("Bon", "a", 0, nullptr, buffer, 64, 30), 4);
  EXPECT_TRUE(buffer.isUntouched());
  EXPECT_EQ(lastError(), 0) << "not kept";
  EXPECT_EQ(newLines(), (Lines{logged(R"({"cmd":"a","printerName":"Bon","intParam":"0"})"),
                               "[W] L:129 M:DLL [SndCmdToPrinter] Rcv failed: 0!"}));
}

}  // namespace
}  // namespace tolvex::test
