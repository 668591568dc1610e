// Jobs far larger than the first block of the queue.
#include "library/printing_test.h"

namespace tolvex::test {
namespace {

using PrintJobSize = PrintingTest;

TEST_F(PrintJobSize, TenThousandLinesArePrintedInOrder) {
  constexpr int kLines = 10000;
  printer.alwaysAnswers(kOk);
  Lines expected;
  for (int i = 0; i < kLines; ++i) {
    // Of many lengths, so that the records end anywhere in the block.
    const std::string line = std::to_string(i) + std::string(static_cast<unsigned>(i % 97), 'x');
    ASSERT_EQ(host.call(PrintText, line.c_str(), 12U + static_cast<unsigned>(i % 61)), 240);
    expected.push_back(textRequest(line, 12 + i % 61));
  }
  expected.push_back(confirmation());
  const Lines requests = requestsOfTicket();
  ASSERT_EQ(requests.size(), expected.size());
  for (std::size_t i = 0; i < requests.size(); ++i) ASSERT_EQ(requests[i], expected[i]) << i;
}

TEST_F(PrintJobSize, ATextOfTenThousandLinesIsTheSameJob) {
  constexpr int kLines = 10000;
  printer.alwaysAnswers(kOk);
  std::string text;
  Lines expected;
  for (int i = 0; i < kLines; ++i) {
    text += std::to_string(i) + "\r\n";
    expected.push_back(widthRequest(std::to_string(i), 24, 464));
  }
  expected.push_back(confirmation());
  EXPECT_EQ(host.call(PrintTextByPaperWidth, text.c_str(), 24U, 58U), 240);
  EXPECT_TRUE(requestsOfTicket() == expected);
}

TEST_F(PrintJobSize, TheBlockMayEndAnywhereInARecord) {
  printer.alwaysAnswers(kOk);
  // The first block has 20480 bytes, a record 12 more than its text.
  for (const std::size_t size : {20466U, 20467U, 20468U, 20469U, 40948U, 40949U}) {
    const std::string text(size, 'x');
    EXPECT_EQ(host.call(PrintTextByPaperWidth, "A", 24U, 58U), 240);
    EXPECT_EQ(host.call(PrintTextByPaperWidth, text.c_str(), 24U, 58U), 240);
    EXPECT_EQ(host.call(PrintTextByPaperWidth, "B", 24U, 58U), 240);
    EXPECT_TRUE(requestsOfTicket() ==
                (Lines{widthRequest("A", 24, 464), widthRequest(text, 24, 464),
                       widthRequest("B", 24, 464), confirmation()}))
        << size;
  }
}

TEST_F(PrintJobSize, ALineOfAMegabyteArrivesWhole) {
  printer.alwaysAnswers(kOk);
  std::string text(1 << 20, ' ');
  for (std::size_t i = 0; i < text.size(); ++i) text[i] = static_cast<char>('a' + i % 26);
  EXPECT_EQ(host.call(PrintTextByPaperWidth, text.c_str(), 24U, 80U), 240);
  const Lines requests = requestsOfTicket();
  ASSERT_EQ(requests.size(), 2U);
  EXPECT_TRUE(requests[0] == widthRequest(text, 24, 640)) << requests[0].size() << " bytes";
  EXPECT_EQ(requests[1], confirmation());
}

}  // namespace
}  // namespace tolvex::test
