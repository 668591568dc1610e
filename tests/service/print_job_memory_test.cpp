// What a print job takes of the memory, and what it does when there is none.
#include <gtest/gtest.h>

#include <new>
#include <string>

#include "service/print_job_buffer.h"
#include "support/heap_watch.h"

namespace tolvex {
namespace {

constexpr std::size_t kHeader = PrintJobBuffer::kHeaderSize;

void append(PrintJobBuffer& job, const std::string& text) {
  job.append(PrintJobKind::kText, 24, 0, text);
}

void fill(PrintJobBuffer& job, std::size_t lines, const std::string& line) {
  for (std::size_t count = 0; count < lines; ++count) append(job, line);
}

TEST(PrintJobMemory, IsOneBlockFromTheBeginning) {
  const test::HeapWatch heap;
  const PrintJobBuffer job;
  EXPECT_EQ(heap.allocations(), 1U);
  EXPECT_EQ(heap.bytes(), 20480U);
}

TEST(PrintJobMemory, IsNotTakenForARecordThatFits) {
  PrintJobBuffer job;
  const std::string text(20479 - kHeader, 'x');
  const test::HeapWatch heap;
  append(job, text);
  EXPECT_EQ(heap.allocations(), 0U);
}

TEST(PrintJobMemory, IsTakenOnceForARecordOfAnyLength) {
  PrintJobBuffer job;
  const std::string text(10U << 20, 'x');
  const test::HeapWatch heap;
  append(job, text);
  EXPECT_EQ(heap.allocations(), 1U);
  EXPECT_EQ(heap.bytes(), job.capacity());
}

// The new block, at most twice the job, and beside it the old one of half the size.
TEST(PrintJobMemory, IsAtMostThreeTimesTheJobWhileItGrows) {
  const std::string line(88, 'x');
  const test::HeapWatch heap;
  PrintJobBuffer job;
  fill(job, 100000, line);
  EXPECT_LE(heap.peak(), 3 * 100000 * (kHeader + line.size()));
}

TEST(PrintJobMemory, IsTakenAnewOnlyWhenTheJobHasDoubled) {
  const std::string line(88, 'x');
  PrintJobBuffer job;
  const test::HeapWatch heap;
  fill(job, 100000, line);  // 10,000,000 bytes: nine doublings of 20480
  EXPECT_EQ(heap.allocations(), 9U);
  EXPECT_LT(heap.bytes(), 2 * std::size_t{job.capacity()});
}

// All of what growing copies lies in the blocks that it takes.
TEST(PrintJobMemory, GrowsInProportionToTheJob) {
  const std::string line(88, 'x');
  const auto bytesFor = [&line](std::size_t lines) {
    const test::HeapWatch heap;
    PrintJobBuffer job;
    fill(job, lines, line);
    return heap.bytes();
  };
  for (const std::size_t lines : {1000U, 10000U, 100000U}) {
    EXPECT_LE(bytesFor(lines), 4 * lines * (kHeader + line.size())) << lines;
  }
}

TEST(PrintJobMemory, OfASecondJobOfTheSameLengthIsThere) {
  PrintJobBuffer job;
  fill(job, 10000, "a line of the job");
  job.reset();
  const std::string line = "a line of the job";
  const test::HeapWatch heap;
  fill(job, 10000, line);
  EXPECT_EQ(heap.allocations(), 0U);
}

TEST(PrintJobMemory, TakenWhileReadingIsThatOfOneLine) {
  PrintJobBuffer job;
  fill(job, 10000, std::string(1000, 'x'));
  const test::HeapWatch heap;
  std::size_t lines = 0;
  while (job.takeNext().kind != PrintJobKind::kNone) ++lines;
  EXPECT_EQ(lines, 10000U);
  EXPECT_LE(heap.peak(), 2 * 1000U);
  EXPECT_EQ(heap.allocations(), 10000U);
}

// ---- Exhaustion ----

struct Picture {
  std::string bytes;
  std::uint32_t capacity, count, writeOffset;
  const char* block;

  explicit Picture(const PrintJobBuffer& job)
      : bytes(job.data(), job.mark().writeOffset),
        capacity(job.capacity()),
        count(job.mark().count),
        writeOffset(job.mark().writeOffset),
        block(job.data()) {}

  bool operator==(const Picture& other) const {
    return bytes == other.bytes && capacity == other.capacity && count == other.count &&
           writeOffset == other.writeOffset && block == other.block;
  }
};

TEST(PrintJobWithoutMemory, IsNotMade) {
  const test::Scarcity scarcity(0);
  EXPECT_THROW(PrintJobBuffer(), std::bad_alloc);
}

TEST(PrintJobWithoutMemory, StaysAsItWasWhenItCannotGrow) {
  PrintJobBuffer job;
  fill(job, 1, "first");
  fill(job, 1, "second");
  const std::string text(100000, 'x');
  const Picture before(job);
  const std::size_t failures = test::failEachAllocation(
      [&] { append(job, text); }, [&] { EXPECT_TRUE(Picture(job) == before); });
  EXPECT_EQ(failures, 1U);
  EXPECT_EQ(job.takeNext().payload, "first");
  EXPECT_EQ(job.takeNext().payload, "second");
  EXPECT_EQ(job.takeNext().payload, text);
}

TEST(PrintJobWithoutMemory, StillTakesWhatFits) {
  PrintJobBuffer job;
  const std::string large(100000, 'x');
  EXPECT_THROW(
      {
        const test::Scarcity scarcity(0);
        append(job, large);
      },
      std::bad_alloc);
  append(job, "small");
  EXPECT_EQ(job.takeNext().payload, "small");
  EXPECT_EQ(job.takeNext().kind, PrintJobKind::kNone);
}

TEST(PrintJobWithoutMemory, GivesTheSameRecordAgain) {
  PrintJobBuffer job;
  const std::string text(1000, 'x');
  append(job, text);
  append(job, "next");
  EXPECT_THROW(
      {
        const test::Scarcity scarcity(0);
        job.takeNext();
      },
      std::bad_alloc);
  EXPECT_EQ(job.takeNext().payload, text);
  EXPECT_EQ(job.takeNext().payload, "next");
}

// A length that 32 bits cannot count, or the capacity for it. Nothing looks at its bytes.
TEST(PrintJobWithoutMemory, RefusesALengthThatItCannotCount) {
  PrintJobBuffer job;
  append(job, "first");
  const Picture before(job);
  const char byte = 'x';
  for (const std::uint64_t size :
       {0xC0000000ULL, 0xFFFFFFFFULL - 11, 0xFFFFFFFFULL, 0x100000000ULL, 0xFFFFFFFFFFFFULL}) {
    EXPECT_THROW(job.append(PrintJobKind::kText, 24, 0,
                            std::string_view(&byte, static_cast<std::size_t>(size))),
                 std::bad_alloc)
        << size;
    EXPECT_TRUE(Picture(job) == before) << size;
  }
}

}  // namespace
}  // namespace tolvex
