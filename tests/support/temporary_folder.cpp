#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "support/os_support.h"

namespace tolvex::test {
namespace {

namespace fs = std::filesystem;

fs::path native(const std::string& utf8) { return fs::u8path(utf8); }

}  // namespace

TemporaryFolder::TemporaryFolder() {
  static std::atomic<unsigned> count{0};
  const std::string name =
      "tolvex-" + std::to_string(processId()) + "-" + std::to_string(++count) + "/";
  path_ = (fs::temp_directory_path() / name).generic_u8string();
  fs::remove_all(native(path_));
  fs::create_directories(native(path_));
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code
      ignored;  // the logger still has its file open, which some systems hold against us
  fs::remove_all(native(path_), ignored);
}

bool exists(const std::string& path) { return fs::exists(native(path)); }

void makeFolder(const std::string& path) { fs::create_directories(native(path)); }

void removeTree(const std::string& path) { fs::remove_all(native(path)); }

std::string readBytes(const std::string& path) {
  std::ifstream file(native(path), std::ios::binary);
  EXPECT_TRUE(file.is_open()) << path;
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void writeBytes(const std::string& path, const std::string& bytes) {
  std::ofstream file(native(path), std::ios::binary | std::ios::trunc);
  file << bytes;
  file.close();
  ASSERT_TRUE(file.good()) << path;
}

void makeFileOfSize(const std::string& path, std::uint64_t size) {
  writeBytes(path, "");
  fs::resize_file(native(path), size);
  if (size == 0) return;
  std::fstream file(native(path), std::ios::binary | std::ios::in | std::ios::out);
  file.seekp(static_cast<std::streamoff>(size - 1));
  file.put('\n');
}

std::uint64_t sizeOf(const std::string& path) { return fs::file_size(native(path)); }

}  // namespace tolvex::test
