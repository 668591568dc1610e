// Where memory runs out.
#include <gtest/gtest.h>

#include "platform/file.h"
#include "support/heap_watch.h"
#include "support/os_support.h"
#include "support/temporary_folder.h"

namespace tolvex::platform {
namespace {

TEST(WholeFile, IsClosedWhereItDoesNotFitIntoMemory) {
  const test::TemporaryFolder folder;
  const std::string path = folder.file("NLog.ini");
  const std::string bytes(100000, 'x');
  test::writeBytes(path, bytes);
  std::string read;
  const auto readIt = [&] {
    std::string contents;
    EXPECT_TRUE(readFile(path.c_str(), contents));
    read = std::move(contents);
  };
  test::failEachAllocation(readIt, [] {});  // once, for what the system keeps
  const std::size_t handles = test::handleCount();
  EXPECT_GT(test::failEachAllocation(readIt, [] {}), 1U);
  EXPECT_EQ(test::handleCount(), handles);
  EXPECT_EQ(read, bytes);
}

}  // namespace
}  // namespace tolvex::platform
