// What printing takes of the memory, and what happens when there is none.
#include <gtest/gtest.h>

#include <cstring>
#include <new>
#include <string>

#include "printing/drain.h"
#include "printing/queue_text.h"
#include "service/print_job_records.h"
#include "service/vco_client_api.h"
#include "support/heap_watch.h"
#include "support/log_watch.h"

namespace tolvex {
namespace {

// Agrees to everything and counts. Allocates nothing.
class CountingConnection final : public CTcpClient {
 public:
  CountingConnection() : CTcpClient("127.0.0.1", 1) {}
  int Send(const char*, unsigned length) override {
    ++requests;
    bytes += length;
    return static_cast<int>(length);
  }
  int RecvTimeout(char* buffer, unsigned, unsigned) override {
    constexpr char kReply[] = R"({"result":"0"})";
    std::memcpy(buffer, kReply, sizeof(kReply) - 1);
    return static_cast<int>(sizeof(kReply) - 1);
  }

  std::size_t requests = 0;
  std::size_t bytes = 0;
};

const std::string kLine(60, 'x');

std::string manyLines(std::size_t count) {
  std::string text;
  for (std::size_t line = 0; line < count; ++line) text += kLine + "\r\n";
  return text;
}

class PrintingMemory : public ::testing::Test {
 protected:
  void queue(const std::string& text) {
    queueText(client.printJob(), PrintJobKind::kText, 24, 0, text.c_str());
  }

  struct Cost {
    std::size_t allocations, bytes, peak, requests, sent;
  };

  // Of a job of this many lines, from its text to its last command.
  static Cost costOf(std::size_t lines) {
    CountingConnection connection;
    VcoClientApi client(nullptr, &connection);
    const std::string text = manyLines(lines);
    const test::HeapWatch heap;
    queueText(client.printJob(), PrintJobKind::kText, 24, 0, text.c_str());
    EXPECT_EQ(drainPrintJob(client, 1), 0U);
    return {heap.allocations(), heap.bytes(), heap.peak(), connection.requests, connection.bytes};
  }

  LogWatch log;
  CountingConnection connection;
  VcoClientApi client{nullptr, &connection};
};

TEST_F(PrintingMemory, GrowsInProportionToTheLines) {
  const Cost few = costOf(1000);
  const Cost many = costOf(10000);
  EXPECT_EQ(few.requests, 1000U);
  EXPECT_EQ(many.requests, 10000U);
  EXPECT_EQ(many.sent, 10 * few.sent);
  // One for each line that is taken; beside them those of the text's conversion and of the queue,
  // which takes twice the memory each time.
  constexpr std::size_t kDoublings = 40;
  EXPECT_LE(few.allocations, 1000 + kDoublings);
  EXPECT_LE(many.allocations, 10000 + kDoublings);
  // The text, its conversion, the queue while it grows, and each line once.
  EXPECT_LE(few.bytes, 10 * manyLines(1000).size());
  EXPECT_LE(many.bytes, 10 * manyLines(10000).size());
}

TEST_F(PrintingMemory, HoldsTheTextOnceWhileItIsPrinted) {
  queue(manyLines(10000));
  const test::HeapWatch heap;
  EXPECT_EQ(drainPrintJob(client, 1), 0U);
  EXPECT_EQ(connection.requests, 10000U);
  EXPECT_LE(heap.peak(), 4 * kLine.size());
}

TEST_F(PrintingMemory, OfALineOfOneMegabyteIsItsConversionAndTheQueue) {
  const std::string line(1U << 20, 'x');
  const test::HeapWatch heap;
  queue(line);
  EXPECT_LE(heap.peak(), 5 * line.size());
}

// ---- Exhaustion ----

TEST_F(PrintingMemory, ThatRunsOutQueuesNothingOfATextOfOneLine) {
  queue("kept");
  const std::string line(100000, 'x');
  const auto expectUnchanged = [this] {
    EXPECT_EQ(client.printJob().mark().count, 1U);
    EXPECT_EQ(client.printJob().mark().writeOffset, 16U);
  };
  EXPECT_GT(test::failEachAllocation([&] { queue(line); }, expectUnchanged), 0U);
  EXPECT_EQ(takeAll(client.printJob()),
            (Records{{PrintJobKind::kText, 24, 0, "kept"}, {PrintJobKind::kText, 24, 0, line}}));
}

TEST_F(PrintingMemory, ThatRunsOutQueuesNothingOfATextOfManyLines) {
  queue("kept");
  const std::string text = manyLines(2000);  // the queue grows three times
  const auto expectUnchanged = [this] {
    EXPECT_EQ(client.printJob().mark().count, 1U);
    EXPECT_EQ(client.printJob().mark().writeOffset, 16U);
    EXPECT_EQ(std::string(client.printJob().data() + 12, 4), "kept");
  };
  EXPECT_GT(test::failEachAllocation([&] { queue(text); }, expectUnchanged), 2U);
  Records expected(2001, {PrintJobKind::kText, 24, 0, kLine});
  expected[0].payload = "kept";
  EXPECT_EQ(takeAll(client.printJob()), expected);
}

// Taking a line is all that takes memory here, where it is longer than those before, so that each failure
// meets another line.
TEST_F(PrintingMemory, ThatRunsOutWhilePrintingEmptiesTheQueue) {
  std::string text;
  for (std::size_t length = 40; length < 1000; length *= 3) text += std::string(length, 'x') + '\n';
  for (std::size_t allowed = 0; allowed < 3; ++allowed) {
    connection.requests = 0;
    queue(text);
    EXPECT_THROW(
        {
          const test::Scarcity scarcity(allowed);
          drainPrintJob(client, 1);
        },
        std::bad_alloc);
    EXPECT_TRUE(client.printJob().isEmpty()) << allowed;
    EXPECT_EQ(client.printJob().takeNext().kind, PrintJobKind::kNone) << allowed;
    EXPECT_EQ(connection.requests, allowed);
  }
  queue("next");
  EXPECT_EQ(drainPrintJob(client, 1), 0U);
}

}  // namespace
}  // namespace tolvex
