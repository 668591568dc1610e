#include "app/unfinished_file.h"

#include <cerrno>
#include <fstream>

namespace tolvex::sim {

namespace {

// Streams only tell that they failed; the reason is left in errno.
std::error_code lastError() {
  return errno == 0 ? std::make_error_code(std::errc::io_error)
                    : std::error_code(errno, std::generic_category());
}

}  // namespace

UnfinishedFile::UnfinishedFile(const std::filesystem::path& path) : path_(path), unfinished_(path) {
  unfinished_ += ".tmp";
}

UnfinishedFile::~UnfinishedFile() {
  std::error_code ignored;
  if (exists_) std::filesystem::remove(unfinished_, ignored);
}

std::error_code UnfinishedFile::write(const std::string& content) {
  errno = 0;
  std::ofstream file(unfinished_, std::ios::binary | std::ios::trunc);
  if (!file) return lastError();
  exists_ = true;
  file.write(content.data(), static_cast<std::streamsize>(content.size()));
  if (!file.flush()) return lastError();
  file.close();
  return file ? std::error_code() : lastError();
}

std::error_code UnfinishedFile::publish() {
  std::error_code error;
  std::filesystem::rename(unfinished_, path_, error);
  if (!error) exists_ = false;
  return error;
}

}  // namespace tolvex::sim
