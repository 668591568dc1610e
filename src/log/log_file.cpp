#include "log/log_file.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>

#include "platform/clock.h"

namespace tolvex {
namespace {

constexpr std::size_t kPathSize = 256;  // with the terminator; a longer path is cut

// Another process may write to the same file. Its share is looked up once in a while, not for each
// record, because asking costs as much as writing.
constexpr std::int64_t kTrustedGrowth = 65536;

// A deleted file is noticed after so many milliseconds at the latest: asking is a system call of its own,
// which a record would have to wait for.
constexpr std::int64_t kLookInterval = 100;

constexpr char kClearLine[] = " ===== Clear All logs =====";

void say(const char* what, const char* path, const char* outcome) {
  std::printf("%s%s%s\n", what, path, outcome);
  std::fflush(stdout);
}

// Gathers a line with its line ends translated, to be written in one piece: between two of them another
// process may write. Only where memory is missing a long line takes several.
class LineBuffer {
 public:
  static constexpr std::size_t kFew = 2048;  // enough for every record with a header

  explicit LineBuffer(std::size_t size) {
    if (size <= sizeof(few_)) return;
    many_.reset(new (std::nothrow) char[size]);
    if (many_ == nullptr) return;
    bytes_ = many_.get();
    room_ = size;
  }
  template <typename Sink>
  bool put(const char* text, std::size_t length, Sink&& sink) {
    while (length > room_ - used_) {
      const std::size_t part = room_ - used_;
      std::memcpy(bytes_ + used_, text, part);
      used_ = room_;
      if (!flush(sink)) return false;
      text += part;
      length -= part;
    }
    std::memcpy(bytes_ + used_, text, length);
    used_ += length;
    return true;
  }
  template <typename Sink>
  bool flush(Sink&& sink) {
    const std::size_t size = used_;
    used_ = 0;
    return size == 0 || sink(bytes_, size);
  }

 private:
  char few_[kFew];
  std::unique_ptr<char[]> many_;
  char* bytes_ = few_;
  std::size_t room_ = sizeof(few_);
  std::size_t used_ = 0;
};

// What a line takes in the file, with the end of a torn one before it; of a short line the most that it
// may take, which costs no look at it.
std::size_t sizeInFile(const char* text, std::size_t length) {
  const std::size_t lineEnd = std::strlen(platform::kLineEnd);
  const auto sizeWith = [&](std::size_t lineFeeds) { return length + (lineFeeds + 2) * lineEnd; };
  if (sizeWith(length) <= LineBuffer::kFew) return sizeWith(length);
  return sizeWith(static_cast<std::size_t>(std::count(text, text + length, '\n')));
}

}  // namespace

bool LogFile::open(const std::string& base) {
  char path[kPathSize];
  for (unsigned i = 0; i < kRingFiles; ++i) {
    std::snprintf(path, sizeof(path), "%s_%u.log", base.c_str(), i);
    if (openWithRoom(path)) {
      path_ = path;
      return true;
    }
  }
  emptyRing(base);
  std::snprintf(path, sizeof(path), "%s_0.log", base.c_str());
  if (begin(path)) {
    torn_ = false;
    if (position_ <= kFullSize) {
      writeLine(kClearLine, std::strlen(kClearLine));
      return false;
    }
    file_.close();  // it could not be emptied, and would grow without end
  }
  say("NLog::OpenFile", " Fail", "");
  return false;
}

// Opens the file and takes note of its end.
bool LogFile::begin(const char* path) {
  if (!file_.open(path)) return false;
  position_ = file_.size();
  unchecked_ = 0;
  lookedAt_ = platform::coarseMilliseconds();
  return true;
}

bool LogFile::openWithRoom(const char* path) {
  if (!begin(path)) {
    say("NLog::OpenFile: ", path, " Fail");
    return false;
  }
  if (position_ > kFullSize) {
    file_.close();
    return false;
  }
  torn_ = platform::endsInsideLine(path);
  say("NLog::OpenFile: ", path, " Succ");
  return true;
}

void LogFile::emptyRing(const std::string& base) {
  char path[kPathSize];
  for (unsigned i = 0; i < kRingFiles; ++i) {
    std::snprintf(path, sizeof(path), "%s_%u.log", base.c_str(), i);
    platform::truncateFile(path);
  }
}

void LogFile::writeLine(const char* text, std::size_t length) {
  const auto sink = [this](const char* data, std::size_t size) { return append(data, size); };
  LineBuffer line(sizeInFile(text, length));
  const std::size_t lineEnd = std::strlen(platform::kLineEnd);
  const auto putLineEnd = [&] { return line.put(platform::kLineEnd, lineEnd, sink); };
  if (torn_) putLineEnd();
  for (std::string_view rest(text, length);;) {
    const std::string_view part = rest.substr(0, rest.find('\n'));
    if (!line.put(part.data(), part.size(), sink) || !putLineEnd()) return;
    if (part.size() == rest.size()) break;
    rest.remove_prefix(part.size() + 1);
  }
  line.flush(sink);
}

bool LogFile::append(const char* data, std::size_t size) {
  const std::size_t written = file_.write(data, size);
  if (written > 0) torn_ = data[written - 1] != '\n';
  position_ += static_cast<std::int64_t>(written);
  unchecked_ += static_cast<std::int64_t>(written);
  return written == size;
}

bool LogFile::isFull() {
  if (unchecked_ >= kTrustedGrowth) {
    unchecked_ = 0;
    const std::int64_t size = file_.size();
    if (size >= 0) position_ = size;
  }
  return position_ > kFullSize;
}

bool LogFile::isGone() {
  const std::int64_t now = platform::coarseMilliseconds();
  if (now - lookedAt_ < kLookInterval) return false;
  lookedAt_ = now;
  return file_.isGone();
}

void LogFile::close() { file_.close(); }

}  // namespace tolvex
