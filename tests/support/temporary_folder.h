// A folder of a test's own, and the files in it.
#pragma once

#include <cstdint>
#include <string>

namespace tolvex::test {

// Paths are UTF-8 and use '/' on every system.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  // With a separator at the end.
  const std::string& path() const { return path_; }
  std::string file(const std::string& name) const { return path_ + name; }

 private:
  std::string path_;
};

bool exists(const std::string& path);
void makeFolder(const std::string& path);  // with what is missing above it
void removeTree(const std::string& path);

// The bytes of a file, as they are on the disk. A file that is missing fails the test and is empty.
std::string readBytes(const std::string& path);
void writeBytes(const std::string& path, const std::string& bytes);

// Gives a file a length, without writing what it holds but the end of its last line.
void makeFileOfSize(const std::string& path, std::uint64_t size);
std::uint64_t sizeOf(const std::string& path);

}  // namespace tolvex::test
