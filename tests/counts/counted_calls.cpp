#include "counts/counted_calls.h"

#include <array>

namespace tolvex::test {
namespace {

constexpr int kWarmRounds = 3;
constexpr char kLine[] = "Tomatoes on the vine      1.250 kg   3.49";

// Whether texts become UTF-8 by way of UTF-16.
#ifdef _WIN32
constexpr bool kWide = true;
#else
constexpr bool kWide = false;
#endif

constexpr HeapUse kNothing = {0, 0, 0};
// A line that is queued takes its UTF-8, and what it is made by.
constexpr HeapUse kOfQueuedLines = {kWide ? 200 : 100, kWide ? 13200 : 4200, kWide ? 88 : 42};
// All lines of a job are taken from the queue into the same memory.
constexpr HeapUse kOfPrintedLines = {1, 42, 42};
// As above, and the text that is logged.
constexpr HeapUse kOfALineByWidth = {kWide ? 4 : 3, kWide ? 223 : 133, kWide ? 88 : 66};

constexpr unsigned kReplySize = 2050;
constexpr unsigned kWaitMs = 40000;

std::array<char, kReplySize> buffer;

char* reply() { return buffer.data(); }

char* tareText() {
  buffer = {"0.200"};
  return buffer.data();
}

// What is left of the job before this one, so that the queue has as much room as it had then.
void emptyTheJob(const Exports& library) { library.BeginPrint(0); }

int queueLines(const Exports& library) {
  int result = TOLVEX_OK;
  for (std::size_t line = 0; line < kLinesOfTheJob; ++line) {
    if (library.PrintText(kLine, 24) != TOLVEX_OK) result = TOLVEX_FAILED;
  }
  return result;
}

void prepareJob(const Exports& library) {
  emptyTheJob(library);
  queueLines(library);
}

}  // namespace

// clang-format off
#define TOLVEX_RUN(...) [](const Exports& library) -> int { return library.__VA_ARGS__; }

const std::vector<CountedCall>& countedCalls() {
  // Exchanges, records of a log at its defaults, and allocations, their bytes and the largest one.
  static const std::vector<CountedCall> calls = {
      {"read_standard", nullptr, TOLVEX_RUN(read_standard(reply())), TOLVEX_OK, 1, 1, kNothing},
      {"read_baseinfo", nullptr, TOLVEX_RUN(read_baseinfo(reply())), TOLVEX_OK, 1, 2, kNothing},
      {"set_tare_bykey", nullptr, TOLVEX_RUN(set_tare_bykey(reply())), TOLVEX_OK, 1, 2, kNothing},
      {"send_pre_tare", nullptr, TOLVEX_RUN(send_pre_tare(tareText())), TOLVEX_OK, 1, 2, kNothing},
      {"clear_tare", nullptr, TOLVEX_RUN(clear_tare(reply())), TOLVEX_OK, 1, 2, kNothing},
      {"sendRawCmdToLC", nullptr, TOLVEX_RUN(sendRawCmdToLC("anything", "1", reply(), kReplySize, kWaitMs)),
       TOLVEX_RESULT_OK, 1, 0, kNothing},
      {"getLCVersion", nullptr, TOLVEX_RUN(getLCVersion(reply(), kReplySize)), TOLVEX_RESULT_OK, 1, 0, kNothing},
      {"sendRawCmdToPrt", nullptr,
       TOLVEX_RUN(sendRawCmdToPrt("ticket", "anything", 7, "1", reply(), kReplySize, kWaitMs)), TOLVEX_RESULT_OK, 1, 1, kNothing},
      {"printTextById", nullptr, TOLVEX_RUN(printTextById(kLine, 24, 1)), TOLVEX_RESULT_OK, 1, 0, kNothing},
      {"feedPaper", nullptr, TOLVEX_RUN(feedPaper()), TOLVEX_OK, 1, 2, kNothing},
      {"GetPrinterList", nullptr, TOLVEX_RUN(GetPrinterList(reply(), kReplySize)), TOLVEX_OK, 1, 2, kNothing},
      {"getPrinterVersion", nullptr,
       TOLVEX_RUN(getPrinterVersion(reply(), kReplySize, "ticket")), TOLVEX_OK, 1, 2, kNothing},
      {"GetPrinterStatus", nullptr, TOLVEX_RUN(GetPrinterStatus(1)), TOLVEX_RESULT_OK, 1, 0, kNothing},
      {"checkConnection", nullptr, TOLVEX_RUN(checkConnection()), 1, 1, 0, kNothing},
      {"PrintText, 100 lines", emptyTheJob, queueLines, TOLVEX_OK, 0, 100, kOfQueuedLines},
      {"BeginPrint of 100 lines", prepareJob, TOLVEX_RUN(BeginPrint(0)), TOLVEX_OK, 101, 2, kOfPrintedLines},
      // By the logger's way for texts of any length: the header is one record, the text another.
      {"PrintTextByPaperWidth", emptyTheJob,
       TOLVEX_RUN(PrintTextByPaperWidth(kLine, 24, 72)), TOLVEX_OK, 0, 2, kOfALineByWidth},
      // It does nothing but log it; in a log that keeps nothing it is a record that is rejected.
      {"one record", nullptr, TOLVEX_RUN(PrintText("", 24)), TOLVEX_OK, 0, 1, kNothing},
  };
  return calls;
}
// clang-format on

std::size_t CountedCall::recordsWith(LogKeeps keeps) const {
  switch (keeps) {
    case LogKeeps::kNothing:
      return 0;
    case LogKeeps::kEverything:
      return records + 2 * exchanges;  // each request and each reply
    case LogKeeps::kItsDefaults:
      break;
  }
  return records;
}

void warmUp(const Exports& library) {
  for (int round = 0; round < kWarmRounds; ++round) {
    for (const CountedCall& call : countedCalls()) {
      if (call.prepare != nullptr) call.prepare(library);
      call.run(library);
    }
  }
}

}  // namespace tolvex::test
