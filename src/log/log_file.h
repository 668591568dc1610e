// The ring of ten log files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/file.h"

namespace tolvex {

constexpr unsigned kRingFiles = 10;
// A file is full when it is larger than this; one of exactly this size is still written to.
constexpr std::int64_t kFullSize = 5242880;  // 5 MiB

// The file side of the logger: appends lines to <base>_0.log ... <base>_9.log, always to the lowest
// one with room, and empties all ten when none has any. What goes wrong is told on standard output,
// never to the caller. Not for two threads at once: the logger's writer lock is held around it.
class LogFile {
 public:
  // Opens the file of the ring to write to; base is folder and name. Returns true when it found one
  // with room, false when it had to empty the ring or could open none (isOpen() tells which).
  bool open(const std::string& base);
  bool isOpen() const { return file_.isOpen(); }
  // Whether the open file was deleted meanwhile. Looked up ten times a second at most.
  bool isGone();

  // The path that the latest open() with room found; it stays when the ring is emptied.
  const std::string& path() const { return path_; }

  // Appends the text and a line end; '\n' inside the text becomes this system's line end too. A
  // line that cannot be written is lost. A line that was written in part is ended before the next.
  void writeLine(const char* text, std::size_t length);

  // Whether the latest line took the file past kFullSize.
  bool isFull();
  void close();

 private:
  bool begin(const char* path);
  bool openWithRoom(const char* path);
  void emptyRing(const std::string& base);
  bool append(const char* data, std::size_t size);

  platform::AppendFile file_;
  std::string path_;
  std::int64_t position_ = 0;  // the end of the file, as far as known
  std::int64_t unchecked_ = 0;
  std::int64_t lookedAt_ = 0;
  bool torn_ = false;  // the last line in the file is incomplete
};

}  // namespace tolvex
