// What the tests of print jobs stand on.
#pragma once

#include <string>
#include <vector>

#include "service/print_job_records.h"
#include "service/service_test.h"

namespace tolvex {

// A client whose service answers each command with the next of some codes, then with success.
class PrintingTest : public ServiceTest {
 protected:
  PrintingTest() { leaveLastError(77); }

  void answerWith(const std::vector<std::string>& codes) {
    for (const std::string& code : codes) {
      printing.nextReplies.push_back(R"({"result":")" + code + R"("})");
    }
  }

  void queue(PrintJobKind kind, std::uint16_t param1, std::uint16_t param2,
             const std::string& payload) {
    client.printJob().append(kind, param1, param2, payload);
  }
  void queueLine(const std::string& text) { queue(PrintJobKind::kText, 24, 0, text); }

  // What is left in the queue.
  Records queued() { return takeAll(client.printJob()); }

  void expectQueueReset() {
    EXPECT_TRUE(client.printJob().isEmpty());
    EXPECT_EQ(queued(), Records{});
  }
};

// The request for a line of queueLine.
inline std::string lineRequest(const std::string& text, int printerType) {
  return R"({"cmd":"printtext","printerType":")" + std::to_string(printerType) +
         R"(","fontsize":"24","text":")" + text + R"("})";
}

inline std::string beginPrintRequest(int printerType) {
  return R"({"cmd":"beginPrint","printerType":")" + std::to_string(printerType) + R"("})";
}

}  // namespace tolvex
