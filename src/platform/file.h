// Files, by paths in UTF-8 on every system. Nothing here throws but std::bad_alloc from readFile.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tolvex::platform {

// What ends a line of a text file: "\r\n" on Windows, "\n" elsewhere.
extern const char* const kLineEnd;

// A file that grows at its end. Others may read and write it meanwhile; where two processes append
// to one file, no record of the one lands inside a record of the other. Not for two threads at
// once.
class AppendFile {
 public:
  AppendFile() = default;
  ~AppendFile();
  AppendFile(const AppendFile&) = delete;
  AppendFile& operator=(const AppendFile&) = delete;

  // Opens the file for appending and creates it where it is missing. A file that is open already
  // is closed first. Returns whether a file is open now.
  bool open(const char* path);
  bool isOpen() const;

  // Appends the bytes in one system call. Returns how many of them were written: fewer than size,
  // possibly none, on a full disk or another failure.
  std::size_t write(const char* data, std::size_t size);

  // The file's length in bytes, or -1 when it cannot be told.
  std::int64_t size() const;

  // Whether somebody has deleted the file, so that nobody will read what is written to it.
  bool isGone() const;

  void close();

 private:
  static constexpr std::intptr_t kNone = -1;
  std::intptr_t handle_ = kNone;
};

// Whether the file's last line has no end: its writer was killed at it, or the disk was full. Takes
// 10 ms where it has none, in which somebody who is just writing it comes to its end.
bool endsInsideLine(const char* path);

// Empties the file and creates it where it is missing. Returns whether it could.
bool truncateFile(const char* path);

// Reads the whole file into contents. Returns false when the path cannot be opened or read.
bool readFile(const char* path, std::string& contents);

}  // namespace tolvex::platform
