// How a text becomes records of the print job.
#include "printing/queue_text.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/text_encoding.h"
#include "service/print_job_records.h"

namespace tolvex {
namespace {

class QueueText : public ::testing::Test {
 protected:
  void expectLines(const std::string& text, const std::vector<std::string>& lines) {
    queueText(job, PrintJobKind::kTextByWidth, 24, 58, text.c_str());
    Records expected;
    for (const std::string& line : lines) {
      expected.push_back({PrintJobKind::kTextByWidth, 24, 58, line});
    }
    EXPECT_EQ(takeAll(job), expected);
  }

  PrintJobBuffer job;
};

TEST_F(QueueText, OfOneLineQueuesOneRecord) { expectLines("Apples 1.25 kg", {"Apples 1.25 kg"}); }

TEST_F(QueueText, OfAnEmptyTextQueuesNothing) {
  expectLines("", {});
  EXPECT_TRUE(job.isEmpty());
}

TEST_F(QueueText, CutsAtEveryLineFeed) { expectLines("a\nb\nc", {"a", "b", "c"}); }

TEST_F(QueueText, DropsTheCarriageReturnBeforeALineFeed) { expectLines("A\r\nB", {"A", "B"}); }

TEST_F(QueueText, BeginsNoLineAfterTheLastLineFeed) { expectLines("L1\r\nL2\r\n", {"L1", "L2"}); }

TEST_F(QueueText, QueuesABlankForAnEmptyLine) { expectLines("A\n\nB\n", {"A", " ", "B"}); }

TEST_F(QueueText, QueuesABlankForAnEmptyFirstLine) { expectLines("\nA", {" ", "A"}); }

TEST_F(QueueText, OfOneLineFeedQueuesABlank) { expectLines("\n", {" "}); }

TEST_F(QueueText, OfTwoLineFeedsQueuesTwoBlanks) { expectLines("\n\n", {" ", " "}); }

TEST_F(QueueText, OfOneLineEndQueuesABlank) { expectLines("\r\n", {" "}); }

TEST_F(QueueText, QueuesABlankForALineOfOneCarriageReturn) {
  expectLines("a\n\r\nb", {"a", " ", "b"});
}

TEST_F(QueueText, QueuesABlankForALastLineOfOneCarriageReturn) { expectLines("a\n\r", {"a", " "}); }

TEST_F(QueueText, DropsOneCarriageReturnOnly) {
  expectLines("\r\r\na\r\r\n\r\r\r", {"\r", "a\r", "\r\r"});
}

TEST_F(QueueText, DropsTheCarriageReturnAtTheEndOfTheLastLine) {
  expectLines("a\nb\r", {"a", "b"});
}

TEST_F(QueueText, KeepsTheCarriageReturnOfATextWithoutLineFeed) { expectLines("L1\r", {"L1\r"}); }

TEST_F(QueueText, KeepsACarriageReturnAlone) { expectLines("\r", {"\r"}); }

TEST_F(QueueText, KeepsACarriageReturnInsideALine) { expectLines("a\rb\n\rc", {"a\rb", "\rc"}); }

TEST_F(QueueText, KeepsTheBlanksOfALine) { expectLines("  a \n \n\tb", {"  a ", " ", "\tb"}); }

TEST_F(QueueText, KeepsOtherControlCharacters) {
  expectLines("a\vb\fc\x01\nd\x1F", {"a\vb\fc\x01", "d\x1F"});
}

TEST_F(QueueText, KeepsALongLine) {
  const std::string line(1U << 20, 'x');
  expectLines(line, {line});
  expectLines(line + "\n" + line + "y\r\n", {line, line + "y"});
}

TEST_F(QueueText, QueuesTenThousandLines) {
  std::string text;
  std::vector<std::string> lines;
  for (int line = 0; line < 10000; ++line) {
    lines.push_back("line " + std::to_string(line));
    text += lines.back() + "\r\n";
  }
  expectLines(text, lines);
}

TEST_F(QueueText, QueuesBehindWhatIsThere) {
  queueText(job, PrintJobKind::kText, 12, 0, "first");
  queueText(job, PrintJobKind::kImageFile, 90, 2, "second.bmp");
  queueText(job, PrintJobKind::kTextByWidth, 72, 80, "third\nfourth");
  EXPECT_EQ(takeAll(job), (Records{{PrintJobKind::kText, 12, 0, "first"},
                                   {PrintJobKind::kImageFile, 90, 2, "second.bmp"},
                                   {PrintJobKind::kTextByWidth, 72, 80, "third"},
                                   {PrintJobKind::kTextByWidth, 72, 80, "fourth"}}));
}

// What the byte becomes is the system's business (tests/platform); here it must not stay alone,
// which would be no UTF-8.
TEST_F(QueueText, ConvertsToUtf8) {
  const std::string converted = platform::AnsiToUtf8("caf\xE9");
  ASSERT_NE(converted, "caf\xE9");
  expectLines("caf\xE9", {converted});
}

TEST_F(QueueText, ConvertsEveryLine) {
  const std::string converted = platform::AnsiToUtf8("\xE9");
  expectLines("\xE9\r\n\xE9 \n", {converted, converted + " "});
}

}  // namespace
}  // namespace tolvex
