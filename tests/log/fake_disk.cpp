#include "log/fake_disk.h"

#include <algorithm>
#include <vector>

#include "platform/file.h"

namespace tolvex::test {
namespace {

// The files that were opened once, by handle.
std::vector<std::string>& openPaths() {
  static std::vector<std::string> paths;
  return paths;
}

std::string& contentsOf(std::intptr_t handle) {
  return disk.files[openPaths()[static_cast<std::size_t>(handle)]];
}

}  // namespace

FakeDisk disk;

}  // namespace tolvex::test

namespace tolvex::platform {

const char* const kLineEnd = "\r\n";

AppendFile::~AppendFile() { close(); }

bool AppendFile::open(const char* path) {
  auto& paths = test::openPaths();
  const auto known = std::find(paths.begin(), paths.end(), path);
  handle_ = known - paths.begin();
  if (known == paths.end()) paths.emplace_back(path);
  test::contentsOf(handle_);
  return true;
}

bool AppendFile::isOpen() const { return handle_ != kNone; }

std::size_t AppendFile::write(const char* data, std::size_t size) {
  ++test::disk.writes;
  const std::size_t written = std::min(size, test::disk.room);
  test::contentsOf(handle_).append(data, written);
  test::disk.room -= written;
  return written;
}

std::int64_t AppendFile::size() const {
  ++test::disk.questions;
  if (!test::disk.sizesKnown) return -1;
  return static_cast<std::int64_t>(test::contentsOf(handle_).size());
}

bool AppendFile::isGone() const { return false; }

void AppendFile::close() { handle_ = kNone; }

bool endsInsideLine(const char* path) {
  const std::string& contents = test::disk.files[path];
  return !contents.empty() && contents.back() != '\n';
}

bool truncateFile(const char* path) {
  if (!test::disk.canBeEmptied) return false;
  test::disk.files[path].clear();
  return true;
}

bool readFile(const char* path, std::string& contents) {
  const auto file = test::disk.files.find(path);
  if (file == test::disk.files.end()) return false;
  contents = file->second;
  return true;
}

}  // namespace tolvex::platform
