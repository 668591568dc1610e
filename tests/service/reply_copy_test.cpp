#include "service/reply_copy.h"

#include <gtest/gtest.h>

#include <string>

#include "service/result_codes.h"

namespace tolvex {
namespace {

// Twelve bytes that are not the text's, to see what was written.
std::string buffer() { return std::string(12, '#'); }

std::string bytes(const std::string& text, std::size_t nuls, std::size_t untouched) {
  return text + std::string(nuls, '\0') + std::string(untouched, '#');
}

TEST(BoundedCopy, FillsAShorterTextUpWithNuls) {
  std::string out = buffer();
  boundedCopy(out.data(), "1.25", 10);
  EXPECT_EQ(out, bytes("1.25", 6, 2));
}

TEST(BoundedCopy, LeavesATextOfTheExactSizeWithoutTerminator) {
  std::string out = buffer();
  boundedCopy(out.data(), "1234567890", 10);
  EXPECT_EQ(out, bytes("1234567890", 0, 2));
}

TEST(BoundedCopy, TerminatesATextOneShorterThanTheSize) {
  std::string out = buffer();
  boundedCopy(out.data(), "123456789", 10);
  EXPECT_EQ(out, bytes("123456789", 1, 2));
}

TEST(BoundedCopy, CutsALongerText) {
  std::string out = buffer();
  boundedCopy(out.data(), "12.345678901", 10);
  EXPECT_EQ(out, bytes("12.3456789", 0, 2));
}

TEST(BoundedCopy, OfNoBytesWritesNothing) {
  std::string out = buffer();
  boundedCopy(out.data(), "text", 0);
  EXPECT_EQ(out, buffer());
}

TEST(BoundedCopy, OfAnEmptyTextZeroesTheSize) {
  std::string out = buffer();
  boundedCopy(out.data(), "", 10);
  EXPECT_EQ(out, bytes("", 10, 2));
}

TEST(BoundedCopy, TakesANullBuffer) {
  const std::string text = "text";
  boundedCopy(nullptr, text.c_str(), 10);
  EXPECT_EQ(text, "text");
}

TEST(WholeReplyCopy, OfTheExactSizeKeepsTheCodeAndHasNoTerminator) {
  std::string out = buffer();
  EXPECT_EQ(copyWholeReply(out.data(), 8, "{\"a\":12}", 1005), 1005);
  EXPECT_EQ(out, bytes("{\"a\":12}", 0, 4));
}

TEST(WholeReplyCopy, OneByteTooLongGivesBufferNotEnoughAndTheBeginning) {
  std::string out = buffer();
  EXPECT_EQ(copyWholeReply(out.data(), 7, "{\"a\":12}", 1005), result::kBufferNotEnough);
  EXPECT_EQ(out, bytes("{\"a\":12", 0, 5));
}

TEST(WholeReplyCopy, OneByteShorterIsTerminated) {
  std::string out = buffer();
  EXPECT_EQ(copyWholeReply(out.data(), 9, "{\"a\":12}", 0), 0);
  EXPECT_EQ(out, bytes("{\"a\":12}", 1, 3));
}

TEST(WholeReplyCopy, KeepsTheCodeOfAnUnreadableReply) {
  std::string out = buffer();
  EXPECT_EQ(copyWholeReply(out.data(), 12, "?", result::kUnreadableReply), -1);
  EXPECT_EQ(out, bytes("?", 11, 0));
}

TEST(WholeReplyCopy, WithoutABufferGivesBufferNotEnough) {
  EXPECT_EQ(copyWholeReply(nullptr, 100, "{}", 0), result::kBufferNotEnough);
}

TEST(WholeReplyCopy, IntoNoBytesGivesBufferNotEnough) {
  std::string out = buffer();
  EXPECT_EQ(copyWholeReply(out.data(), 0, "{}", 0), result::kBufferNotEnough);
  EXPECT_EQ(out, buffer());
}

TEST(ExactTextCopy, WritesNoTerminator) {
  std::string out = buffer();
  EXPECT_EQ(copyExactText(out.data(), 10, "info"), result::kOk);
  EXPECT_EQ(out, bytes("info", 0, 8));
}

TEST(ExactTextCopy, TakesATextOfTheExactSize) {
  std::string out = buffer();
  EXPECT_EQ(copyExactText(out.data(), 4, "info"), result::kOk);
  EXPECT_EQ(out, bytes("info", 0, 8));
}

TEST(ExactTextCopy, OfATextOneTooLongCopiesNothing) {
  std::string out = buffer();
  EXPECT_EQ(copyExactText(out.data(), 3, "info"), result::kBufferNotEnough);
  EXPECT_EQ(out, buffer());
}

TEST(ExactTextCopy, WithoutABufferGivesBufferNotEnough) {
  EXPECT_EQ(copyExactText(nullptr, 10, "info"), result::kBufferNotEnough);
  EXPECT_EQ(copyExactText(nullptr, 0, ""), result::kBufferNotEnough);
}

TEST(ExactTextCopy, OfAnEmptyTextWritesNothing) {
  std::string out = buffer();
  EXPECT_EQ(copyExactText(out.data(), 0, ""), result::kOk);
  EXPECT_EQ(out, buffer());
}

}  // namespace
}  // namespace tolvex
