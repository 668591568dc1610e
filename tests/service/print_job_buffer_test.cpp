#include "service/print_job_buffer.h"

#include <gtest/gtest.h>

#include <string>

#include "service/print_job_records.h"

namespace tolvex {

namespace {

const PrintJobRecord kNothing;

class PrintJob : public ::testing::Test {
 protected:
  void append(const PrintJobRecord& record) {
    job.append(record.kind, record.param1, record.param2, record.payload);
  }
  void appendText(const std::string& text) { append({PrintJobKind::kText, 24, 0, text}); }
  // A record that takes this many bytes in the buffer.
  void appendBytes(std::size_t size) { appendText(std::string(size - 12, 'x')); }

  std::string bytes(std::size_t size) const { return {job.data(), size}; }

  PrintJobBuffer job;
};

// ---- Records ----

TEST_F(PrintJob, BeginsEmpty) {
  EXPECT_TRUE(job.isEmpty());
  EXPECT_EQ(job.takeNext(), kNothing);
  EXPECT_EQ(job.capacity(), 20480U);
}

TEST_F(PrintJob, LaysATextOutAfterItsHeader) {
  append({PrintJobKind::kText, 24, 0, "Apples"});
  EXPECT_EQ(bytes(18), std::string("\3\0\0\0\x12\0\0\0\x18\0\0\0Apples", 18));
}

TEST_F(PrintJob, LaysATextByWidthOutAfterItsHeader) {
  append({PrintJobKind::kTextByWidth, 72, 80, "a"});
  EXPECT_EQ(bytes(13), std::string("\1\0\0\0\x0D\0\0\0\x48\0\x50\0a", 13));
}

TEST_F(PrintJob, LaysAnImageOutAfterItsHeader) {
  append({PrintJobKind::kImageFile, 65446, 2, "b.bmp"});
  EXPECT_EQ(bytes(17), std::string("\2\0\0\0\x11\0\0\0\xA6\xFF\2\0b.bmp", 17));
}

TEST_F(PrintJob, WritesItsNumbersLittleEndian) {
  append({PrintJobKind::kTextByWidth, 0x1234, 0xABCD, std::string(0x010203 - 12, 'x')});
  EXPECT_EQ(bytes(12), std::string("\1\0\0\0\3\2\1\0\x34\x12\xCD\xAB", 12));
}

TEST_F(PrintJob, PacksItsRecordsWithoutAGap) {
  append({PrintJobKind::kText, 1, 0, "abc"});
  append({PrintJobKind::kImageFile, 2, 1, ""});
  append({PrintJobKind::kTextByWidth, 3, 4, "d"});
  EXPECT_EQ(bytes(15 + 12 + 13), std::string("\3\0\0\0\x0F\0\0\0\1\0\0\0abc", 15) +
                                     std::string("\2\0\0\0\x0C\0\0\0\2\0\1\0", 12) +
                                     std::string("\1\0\0\0\x0D\0\0\0\3\0\4\0d", 13));
}

TEST_F(PrintJob, GivesItsRecordsInTheirOrder) {
  const Records records = {{PrintJobKind::kText, 12, 0, "a"},
                           {PrintJobKind::kImageFile, 65535, 65535, "b.bmp"},
                           {PrintJobKind::kTextByWidth, 0, 80, " "}};
  for (const PrintJobRecord& record : records) append(record);
  EXPECT_EQ(takeAll(job), records);
}

TEST_F(PrintJob, GivesNothingAfterTheLastRecord) {
  appendText("a");
  job.takeNext();
  EXPECT_EQ(job.takeNext(), kNothing);
  EXPECT_EQ(job.takeNext(), kNothing);
}

TEST_F(PrintJob, TakesAnEmptyPayload) {
  appendText("");
  EXPECT_EQ(takeAll(job), (Records{{PrintJobKind::kText, 24, 0, ""}}));
}

TEST_F(PrintJob, TakesEveryByteInAPayload) {
  std::string payload;
  for (int byte = 0; byte < 256; ++byte) payload += static_cast<char>(byte);
  appendText(payload);
  appendText("next");
  EXPECT_EQ(takeAll(job),
            (Records{{PrintJobKind::kText, 24, 0, payload}, {PrintJobKind::kText, 24, 0, "next"}}));
}

TEST_F(PrintJob, TakesFurtherRecordsWhileItIsRead) {
  appendText("a");
  EXPECT_EQ(job.takeNext().payload, "a");
  appendText("b");
  EXPECT_EQ(job.takeNext().payload, "b");
  EXPECT_EQ(job.takeNext(), kNothing);
}

TEST_F(PrintJob, MovesNothingWhileItIsRead) {
  for (int line = 0; line < 100; ++line) appendText(std::to_string(line));
  const char* const block = job.data();
  const std::string before = bytes(std::size_t{100} * 12);
  takeAll(job);
  EXPECT_EQ(job.data(), block);
  EXPECT_EQ(bytes(std::size_t{100} * 12), before);
}

// ---- Emptiness ----

TEST_F(PrintJob, IsNotEmptyOnceSomethingWasAppended) {
  appendText("");
  EXPECT_FALSE(job.isEmpty());
}

TEST_F(PrintJob, IsNotEmptyWhenAllWasTaken) {
  appendText("a");
  takeAll(job);
  EXPECT_FALSE(job.isEmpty());
}

TEST_F(PrintJob, IsEmptyAfterAReset) {
  appendText("a");
  appendText("b");
  job.takeNext();
  job.reset();
  EXPECT_TRUE(job.isEmpty());
  EXPECT_EQ(job.takeNext(), kNothing);
}

TEST_F(PrintJob, BeginsAtTheFrontAfterAReset) {
  appendText("old");
  takeAll(job);
  job.reset();
  append({PrintJobKind::kTextByWidth, 5, 6, "new"});
  EXPECT_EQ(bytes(15), std::string("\1\0\0\0\x0F\0\0\0\5\0\6\0new", 15));
  EXPECT_EQ(takeAll(job), (Records{{PrintJobKind::kTextByWidth, 5, 6, "new"}}));
}

TEST_F(PrintJob, KeepsItsMemoryOverAReset) {
  appendBytes(100000);
  const char* const block = job.data();
  job.reset();
  EXPECT_EQ(job.capacity(), 163840U);
  EXPECT_EQ(job.data(), block);
}

// ---- Growth ----

TEST_F(PrintJob, DoesNotGrowForARecordThatLeavesOneByte) {
  appendBytes(20479);
  EXPECT_EQ(job.capacity(), 20480U);
}

TEST_F(PrintJob, DoublesForARecordThatWouldFillIt) {
  appendBytes(20480);
  EXPECT_EQ(job.capacity(), 40960U);
}

TEST_F(PrintJob, CountsWhatIsInItAlready) {
  appendBytes(20000);
  appendBytes(479);
  EXPECT_EQ(job.capacity(), 20480U);
  appendBytes(12);
  EXPECT_EQ(job.capacity(), 40960U);
}

TEST_F(PrintJob, CountsWhatWasTakenAsWell) {
  appendBytes(20000);
  job.takeNext();
  appendBytes(480);
  EXPECT_EQ(job.capacity(), 40960U);
}

TEST_F(PrintJob, DoublesAgainAtTheNextBoundary) {
  appendBytes(20480);
  appendBytes(20479);
  EXPECT_EQ(job.capacity(), 40960U);
  appendBytes(12);
  EXPECT_EQ(job.capacity(), 81920U);
}

TEST_F(PrintJob, DoublesUntilOneRecordOfMegabytesFits) {
  const std::string text(5U << 20, 'm');  // 20480 doubled eight times is just too small for it
  appendText("before");
  appendText(text);
  appendText("after");
  EXPECT_EQ(job.capacity(), 20480U << 9);
  EXPECT_EQ(takeAll(job), (Records{{PrintJobKind::kText, 24, 0, "before"},
                                   {PrintJobKind::kText, 24, 0, text},
                                   {PrintJobKind::kText, 24, 0, "after"}}));
}

TEST_F(PrintJob, KeepsTenThousandRecordsIntact) {
  Records records;
  for (unsigned line = 0; line < 10000; ++line) {
    records.push_back({line % 2 == 0 ? PrintJobKind::kText : PrintJobKind::kTextByWidth,
                       static_cast<std::uint16_t>(line), static_cast<std::uint16_t>(line * 7),
                       std::string(line % 50, static_cast<char>('a' + line % 26))});
    append(records.back());
  }
  EXPECT_EQ(takeAll(job), records);
}

TEST_F(PrintJob, KeepsItsPlaceWhenItGrowsWhileItIsRead) {
  appendText("first");
  appendText("second");
  job.takeNext();
  appendBytes(100000);
  EXPECT_EQ(job.takeNext().payload, "second");
  EXPECT_EQ(job.takeNext().payload, std::string(100000 - 12, 'x'));
}

// ---- Marks ----

TEST_F(PrintJob, DropsWhatWasAppendedSinceTheMark) {
  appendText("kept");
  const PrintJobBuffer::Mark mark = job.mark();
  appendText("dropped");
  appendBytes(50000);
  job.rewind(mark);
  appendText("next");
  EXPECT_EQ(takeAll(job),
            (Records{{PrintJobKind::kText, 24, 0, "kept"}, {PrintJobKind::kText, 24, 0, "next"}}));
}

TEST_F(PrintJob, ReadsOnBehindTheMarkWhenWhatWasDroppedHadBeenTaken) {
  const PrintJobBuffer::Mark mark = job.mark();
  appendText("dropped, and longer than what follows");
  job.takeNext();
  job.rewind(mark);
  appendText("first");
  appendText("second");
  EXPECT_EQ(takeAll(job), (Records{{PrintJobKind::kText, 24, 0, "first"},
                                   {PrintJobKind::kText, 24, 0, "second"}}));
}

TEST_F(PrintJob, IsEmptyAgainAtTheMarkOfAnEmptyOne) {
  const PrintJobBuffer::Mark mark = job.mark();
  appendText("dropped");
  job.rewind(mark);
  EXPECT_TRUE(job.isEmpty());
  EXPECT_EQ(job.takeNext(), kNothing);
}

}  // namespace
}  // namespace tolvex
