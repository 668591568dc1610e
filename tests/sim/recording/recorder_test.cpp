#include "recording/recorder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "base/version.h"

namespace tolvex::sim {
namespace {

namespace fs = std::filesystem;

std::string contentOf(const std::string& path) {
  std::ifstream file(fs::u8path(path), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class RecorderTest : public ::testing::Test {
 protected:
  RecorderTest() { fs::create_directories(fs::u8path(folder_)); }
  ~RecorderTest() override { fs::remove_all(fs::u8path(folder_)); }

  const std::string folder_ = testing::TempDir() + "recorder Käse " +
                              testing::UnitTest::GetInstance()->current_test_info()->name();
  const std::string path_ = folder_ + "/sale.jsonl";
};

TEST_F(RecorderTest, WritesEachExchangeAtOnce) {
  std::ofstream(fs::u8path(path_)) << "what an earlier run left, which is longer than a header is";
  Recorder recorder(path_);
  const std::string header = recordingHeader(version()) + "\n";
  EXPECT_EQ(contentOf(path_), header);
  const RecordedExchange exchange{
      1, std::chrono::microseconds(5), Half::Weighing, 1, "{}", "{}", "", 2};
  EXPECT_TRUE(recorder.add(exchange));
  EXPECT_EQ(contentOf(path_), header + recordingLine(exchange) + "\n");
}

TEST_F(RecorderTest, SaysWhyItCanNotBegin) {
  try {
    Recorder recorder(folder_ + "/missing/sale.jsonl");
    FAIL() << "it began";
  } catch (const std::runtime_error& error) {
    EXPECT_EQ(error.what(), "cannot write the recording " + folder_ +
                                "/missing/sale.jsonl: No such file or directory. Choose another "
                                "file with --record.");
  }
}

}  // namespace
}  // namespace tolvex::sim
