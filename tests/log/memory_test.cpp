// What the log does when there is no memory.
#include <gtest/gtest.h>

#include <string>

#include "log/fake_disk.h"
#include "log/log_file.h"
#include "support/heap_watch.h"

namespace tolvex {
namespace {

TEST(LogFileWithoutMemory, WritesALongLineInPieces) {
  LogFile file;
  ASSERT_TRUE(file.open("till"));
  const std::string line(5000, 'x');
  test::disk.files["till_0.log"].reserve(10000);  // the disk itself takes no memory then
  {
    const test::Scarcity scarcity(0);
    file.writeLine(line.data(), line.size());
  }
  EXPECT_EQ(test::disk.files["till_0.log"], line + "\r\n");
  EXPECT_EQ(test::disk.writes, 3);
}

TEST(LogFileWithoutMemory, IsNotAskedForAnyByARecord) {
  LogFile file;
  ASSERT_TRUE(file.open("till"));
  const std::string record(510, 'r');
  test::disk.files["till_0.log"].reserve(1000);
  const test::HeapWatch heap;
  file.writeLine(record.data(), record.size());
  EXPECT_EQ(heap.allocations(), 0u);
}

}  // namespace
}  // namespace tolvex
