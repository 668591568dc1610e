// What the tests of the printing exports have in common.
#pragma once

#include <string>

#include "support/library_test.h"

namespace tolvex::test {

inline std::string replyWith(int code) { return R"({"result":")" + std::to_string(code) + "\"}"; }

// The requests of a job. Texts and paths stand here as JSON writes them.
inline std::string textRequest(const std::string& text, int fontSize = 24, int printerType = 1) {
  return R"({"cmd":"printtext","printerType":")" + std::to_string(printerType) +
         R"(","fontsize":")" + std::to_string(fontSize) + R"(","text":")" + text + "\"}";
}
inline std::string widthRequest(const std::string& text, int fontSize, int width,
                                int printerType = 1) {
  return R"({"cmd":"print_text_width","printerType":")" + std::to_string(printerType) +
         R"(","fontsize":")" + std::to_string(fontSize) + R"(","width":")" + std::to_string(width) +
         R"(","text":")" + text + "\"}";
}
inline std::string imageRequest(const std::string& path, int angle = 0, int printerType = 1) {
  return R"({"cmd":"printbmpfile","printerType":")" + std::to_string(printerType) +
         R"(","angle":")" + std::to_string(angle) + R"(","filename":")" + path + "\"}";
}
inline std::string confirmation(int printerType = 1) {
  return R"({"cmd":"beginPrint","printerType":")" + std::to_string(printerType) + "\"}";
}

class PrintingTest : public ServiceTest {
 protected:
  // The requests and the log's lines since the last call of these.
  Lines newRequests() { return newOf(printer.requests(), seenRequests_); }
  Lines newLines() { return newOf(log.sinceBanner(), seenLines_); }

  int lastError() { return host.call(getLastErrCode); }

  // Sends the queued job as a ticket and returns the requests that it took.
  Lines requestsOfTicket() {
    newRequests();
    EXPECT_EQ(host.call(BeginPrint, 0), 240);
    return newRequests();
  }

  // After a connection that the service closed: until a command gets through. The first send after
  // the close may be accepted by the system and lost.
  void reconnect() {
    int code = 4;
    for (int i = 0; i < 3 && code != 0; ++i) {
      printer.forgetsItsScript();
      printer.answers(kOk);
      code = host.call(setOverloadAlarm, 0U);
    }
    EXPECT_EQ(code, 0);
    printer.forgetsItsScript();
    newRequests();
    newLines();
  }

  ServicePort& printer = service.printing();

 private:
  static Lines newOf(const Lines& all, std::size_t& seen) {
    const auto first = all.begin() + static_cast<std::ptrdiff_t>(seen);
    seen = all.size();
    return {first, all.end()};
  }

  std::size_t seenRequests_ = 0;
  std::size_t seenLines_ = 0;
};

}  // namespace tolvex::test
