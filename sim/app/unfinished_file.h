// A file that nobody sees before it is whole.
#pragma once

#include <filesystem>
#include <string>
#include <system_error>

namespace tolvex::sim {

/// Written under another name (with .tmp at its end) and then renamed, which replaces an older file
/// at once. Not thread-safe.
class UnfinishedFile {
 public:
  explicit UnfinishedFile(const std::filesystem::path& path);
  /// Leaves no trace of a file that was not published.
  ~UnfinishedFile();
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;

  /// The name that it is to have.
  const std::filesystem::path& path() const { return path_; }

  /// Writes the whole content. The error is the system's own.
  std::error_code write(const std::string& content);

  /// Gives the file its name.
  std::error_code publish();

 private:
  std::filesystem::path path_;
  std::filesystem::path unfinished_;
  bool exists_ = false;  // under the other name
};

}  // namespace tolvex::sim
