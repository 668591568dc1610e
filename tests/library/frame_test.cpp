// What all full exports share: the order of checks and lines, twins, null arguments.
#include "support/library_test.h"

namespace tolvex::test {
namespace {

using Frame = ServiceTest;

struct BufferExport {
  const char* name;
  int (*function)(char*);
  int (*twin)(char*);
  Lines linesForNull;
};

const BufferExport kBufferExports[] = {
    {"read_baseinfo",
     read_baseinfo,
     read_baseinfo_stdcall,
     {"[W] L:368 M:DLL [read_baseinfo] Input param is NULL"}},
    {"read_standard",
     read_standard,
     read_standard_stdcall,
     {"[W] L:388 M:DLL [read_standard] Input param is NULL"}},
    {"send_pre_tare",
     send_pre_tare,
     send_pre_tare_stdcall,
     {"[W] L:430 M:DLL [send_pre_tare] Input param is NULL"}},
    {"set_tare_bykey",
     set_tare_bykey,
     set_tare_bykey_stdcall,
     {"[T] L:456 M:DLL [library_tests][set_tare_bykey] Enter",
      "[W] L:459 M:DLL [set_tare_bykey] Input param is NULL"}},
    {"send_tare",
     send_tare,
     send_tare_stdcall,
     {"[T] L:478 M:DLL [library_tests][send_tare] Enter",
      "[T] L:456 M:DLL [library_tests][set_tare_bykey] Enter",
      "[W] L:459 M:DLL [set_tare_bykey] Input param is NULL"}},
    {"clear_tare",
     clear_tare,
     clear_tare_stdcall,
     {"[T] L:489 M:DLL [library_tests][clear_tare] Enter",
      "[W] L:492 M:DLL [clear_tare] Input param is NULL"}},
};

TEST_F(Frame, ANullBufferIs255WithItsLineAndWithoutACommand) {
  char* const none = nullptr;
  Lines expected;
  for (const BufferExport& entry : kBufferExports) {
    EXPECT_EQ(host.call(entry.function, none), 255) << entry.name;
    EXPECT_EQ(host.call(entry.twin, none), 255) << entry.name;
    for (int i = 0; i < 2; ++i) {
      expected.insert(expected.end(), entry.linesForNull.begin(), entry.linesForNull.end());
    }
  }
  EXPECT_EQ(log.sinceBanner(), expected);
  EXPECT_TRUE(service.requests().empty());
  EXPECT_EQ(host.call(getLastErrCode), 0);
}

TEST_F(Frame, TwinsGiveTheResultOfTheMainExport) {
  const std::string reply =
      R"({"result":"0","net":"1.5","tare":"0.2","zero":"0","tareType":"N","weightUnit":"kg"})";
  service.weighing().alwaysAnswers(reply);
  for (const BufferExport& entry : kBufferExports) {
    BaseInfoBuffer first;
    BaseInfoBuffer second;
    EXPECT_EQ(host.call(entry.function, first), host.call(entry.twin, second)) << entry.name;
    EXPECT_EQ(first, second) << entry.name;
  }
  EXPECT_EQ(host.call(send_zero), host.call(send_zero_stdcall));
  const Lines requests = service.requests();
  ASSERT_EQ(requests.size() % 2, 0U);
  for (std::size_t i = 0; i < requests.size(); i += 2) EXPECT_EQ(requests[i], requests[i + 1]);
}

TEST_F(Frame, ACallThatFailsInTheServiceLeavesTheBufferUntouched) {
  service.weighing().alwaysAnswers(R"({"result":"10"})");
  for (const BufferExport& entry : kBufferExports) {
    BaseInfoBuffer buffer;
    EXPECT_EQ(host.call(entry.function, buffer), 255) << entry.name;
    EXPECT_TRUE(buffer.isUntouched()) << entry.name;
    EXPECT_EQ(host.call(getLastErrCode), 10) << entry.name;
  }
}

// The context comes first: even the first entry line stands behind the banner, in the library's
// own file.
struct FirstCall {
  const char* name;
  int (*call)();
  const char* entry;
};

const FirstCall kFirstCalls[] = {
    {"BeginPrint", [] { return BeginPrint(8); },
     "[T] L:612 M:DLL [library_tests][BeginPrint] 8_CUT Begin"},
    {"printBlanks", [] { return printBlanks(1); }, "[T] L:812 M:DLL [printBlanks] Entry"},
    {"cutPaper", [] { return cutPaper(); }, "[T] L:830 M:DLL [cutPaper] Entry"},
    {"feedPaper", [] { return feedPaper(); }, "[T] L:846 M:DLL [library_tests][feedPaper] Entry"},
    {"feedPaperById", [] { return feedPaperById(1); }, "[T] L:862 M:DLL [feedPaperById] Entry"},
    {"calibrateLabel", [] { return calibrateLabel(0); }, "[T] L:878 M:DLL [calibrateLabel] Entry"},
    {"setTakeupPaperSensor", [] { return setTakeupPaperSensor(1, "Bon"); },
     "[T] L:894 M:DLL [library_tests][setTakeupPaperSensor] Entry"},
    {"OpenCashDrawerEx", [] { return OpenCashDrawerEx(); },
     "[T] L:944 M:DLL [library_tests][OpenCashDrawerEx] Enter"},
    {"GetPrinterList", [] { return GetPrinterList(nullptr, 0); },
     "[T] L:912 M:DLL [library_tests][GetPrinterList] Enter"},
    {"getPrinterVersion", [] { return getPrinterVersion(nullptr, 0, "Bon"); },
     "[T] L:928 M:DLL [library_tests][getPrinterVersion] Entry"},
    {"PrintText", [] { return PrintText("x", 24); },
     "[T] L:528 M:DLL [library_tests][PrintText] font:24 [x]"},
    {"PrintTextByPaperWidth", [] { return PrintTextByPaperWidth("x", 24, 72); },
     "[T] L:555 M:DLL "},
    {"PrintBitmapFile", [] { return PrintBitmapFile("x.bmp", 0); },
     "[T] L:752 M:DLL [library_tests][PrintBitmapFile] Angle:0 [x.bmp]"},
    {"PrintBitmapFileWithAlign", [] { return PrintBitmapFileWithAlign("x.bmp", 0, 2); },
     "[T] L:766 M:DLL [library_tests][PrintBitmapFileWithAlign] Angle:0, Align:2 [x.bmp]"},
};

struct PrintingFrame : ServiceTest, ::testing::WithParamInterface<FirstCall> {};

TEST_P(PrintingFrame, CreatesTheContextBeforeItsFirstLine) {
  service.printing().alwaysAnswers(R"({"result":"0"})");
  GetParam().call();
  const Lines lines = log.sinceBanner();
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(lines[0], GetParam().entry);
  EXPECT_FALSE(exists(host.earlyLogFile()));
}

INSTANTIATE_TEST_SUITE_P(Exports, PrintingFrame, ::testing::ValuesIn(kFirstCalls),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace tolvex::test
