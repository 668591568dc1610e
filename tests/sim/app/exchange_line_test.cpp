#include "app/exchange_line.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

class ExchangeLineTest : public ::testing::Test {
 protected:
  std::string line(const std::vector<std::string>& faults = {}) const {
    return exchangeLine({caller_, {}, {}, request_, R"({"result":"0"})", delivery_, faults});
  }

  Caller caller_{Half::Printing, 3, "127.0.0.1:40112"};
  std::string request_ = R"({"cmd":"opencashbox"})";
  Delivery delivery_;
};

TEST_F(ExchangeLineTest, ShowsRequestAndReply) {
  delivery_.reply = R"({"result":"2001"})";
  EXPECT_EQ(line(), R"(printing 127.0.0.1:40112 {"cmd":"opencashbox"} -> {"result":"2001"})");
}

TEST_F(ExchangeLineTest, NamesTheFaultsThatActed) {
  delivery_.reply = "{}";
  EXPECT_EQ(line({"delay", "two-pieces"}),
            R"(printing 127.0.0.1:40112 {"cmd":"opencashbox"} -> {} [delay, two-pieces])");
}

TEST_F(ExchangeLineTest, SaysWhatCameInsteadOfAReply) {
  const std::string begin = R"(printing 127.0.0.1:40112 {"cmd":"opencashbox"} -> )";
  EXPECT_EQ(line({"no-answer"}), begin + "(no answer) [no-answer]");
  delivery_.after = After::Close;
  EXPECT_EQ(line({"close"}), begin + "(closed) [close]");
  delivery_.after = After::Reset;
  EXPECT_EQ(line({"reset"}), begin + "(reset) [reset]");
}

TEST_F(ExchangeLineTest, IsOneLineOfBoundedLength) {
  request_ = "\n\x1B" + std::string(1000, 'x');
  delivery_.reply = std::string("\0\xFF", 2) + std::string(5000, 'y');
  EXPECT_EQ(line(), "printing 127.0.0.1:40112 \\x0a\\x1b" + std::string(398, 'x') +
                        "... (1002 bytes) -> \\x00\\xff" + std::string(398, 'y') +
                        "... (5002 bytes)");
}

}  // namespace
}  // namespace tolvex::sim
