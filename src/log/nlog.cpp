#include "log/nlog.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>

#include "log/log_config.h"
#include "platform/clock.h"
#include "platform/debug_output.h"
#include "platform/file.h"
#include "platform/paths.h"

namespace tolvex {
namespace {

constexpr char kDefaultName[] = "NLog";
constexpr int kLoggerThreshold = 3;  // of the module "NLog"
constexpr int kRecordSize = 512;     // a record holds two bytes less than this

// The locks outlive every caller: threads may log until the process is gone. They take no memory from
// the heap, so that a record can be written, or dropped, when there is none left.
RecursiveLock& creationLock() {
  alignas(RecursiveLock) static unsigned char storage[sizeof(RecursiveLock)];
  static RecursiveLock* const lock = new (storage) RecursiveLock;
  return *lock;
}

RecursiveLock& writerLock() {
  alignas(RecursiveLock) static unsigned char storage[sizeof(RecursiveLock)];
  static RecursiveLock* const lock = new (storage) RecursiveLock;
  return *lock;
}

class ScopedSection {
 public:
  explicit ScopedSection(platform::CriticalSection& section) : section_(section) {
    section_.enter();
  }
  ~ScopedSection() { section_.leave(); }
  ScopedSection(const ScopedSection&) = delete;
  ScopedSection& operator=(const ScopedSection&) = delete;

 private:
  platform::CriticalSection& section_;
};

char levelLetter(int level) {
  constexpr char letters[] = "VDINWTE";
  return level >= 1 && level <= kHighestLevel ? letters[level - 1] : '*';
}

// The first number that takes more digits, by digits.
constexpr unsigned kFirstWider[] = {1, 10, 100, 1000, 10000};

// Decimal, with zeros before it up to the width, as "%0*u" prints it.
template <int kWidth>
char* putNumber(char* at, unsigned number) {
  int count = kWidth;
  for (unsigned rest = number / kFirstWider[kWidth]; rest > 0; rest /= 10) ++count;
  char* const end = at + count;
  for (char* digit = end; digit != at; number /= 10) {
    *--digit = static_cast<char>('0' + number % 10);
  }
  return end;
}

char* putText(char* at, std::string_view text) { return at + text.copy(at, text.size()); }

// What stands before the module: no more than eight numbers of ten digits, and what is between them.
constexpr std::size_t kHeadSize = 128;

// "2024-03-05 14:07:09 Ms:042 [W] L:044 ". Put together by hand: printf takes several times as long.
char* putHead(char* at, const platform::LocalTime& now, int level, unsigned line) {
  at = putText(putNumber<4>(at, now.year), "-");
  at = putText(putNumber<2>(at, now.month), "-");
  at = putText(putNumber<2>(at, now.day), " ");
  at = putText(putNumber<2>(at, now.hour), ":");
  at = putText(putNumber<2>(at, now.minute), ":");
  at = putText(putNumber<2>(at, now.second), " Ms:");
  at = putText(putNumber<3>(at, now.millisecond), " [");
  *at++ = levelLetter(level);
  return putText(putNumber<3>(putText(at, "] L:"), line), " ");
}

// A text in a buffer of some size, cut where that ends, and always terminated.
class CutText {
 public:
  CutText(char* buffer, std::size_t size) : at_(buffer), begin_(buffer), room_(size - 1) {
    *at_ = '\0';
  }
  void add(const char* text, std::size_t length) {
    const std::size_t part = std::min(length, room_);
    std::memcpy(at_, text, part);
    at_ += part;
    room_ -= part;
    *at_ = '\0';
  }
  int end() const { return static_cast<int>(at_ - begin_); }

 private:
  char* at_;
  char* begin_;
  std::size_t room_;
};

bool endsInSeparator(const std::string& path) {
  return !path.empty() && (path.back() == '/' || path.back() == '\\');
}

std::string folder(const char* dir) {
  std::string path = dir != nullptr ? dir : platform::loggerDefaultDirectory();
  if (!endsInSeparator(path)) path += '/';
  return path;
}

}  // namespace

std::atomic<NLog*> NLog::instance_{nullptr};

NLog::NLog(const char* name, const char* dir)
    : name_(name != nullptr ? name : kDefaultName), dir_(folder(dir)) {
  levels_.emplace(kModuleNLog, kLoggerThreshold);
}

NLog* NLog::GetInstance() {
  NLog* const instance = instance_.load(std::memory_order_acquire);
  return instance != nullptr ? instance : GetInstance(nullptr, nullptr);
}

NLog* NLog::GetInstance(const char* name, const char* dir) {
  try {
    const ScopedLock lock(creationLock());
    NLog* instance = instance_.load(std::memory_order_acquire);
    if (instance != nullptr) {
      instance->rename(name);
      return instance;
    }
    std::unique_ptr<NLog> made(new NLog(name, dir));
    made->LoadConfig();  // without it there is no logger, and the next call tries again
    instance = made.release();
    instance_.store(instance, std::memory_order_release);
    return instance;
  } catch (const std::bad_alloc&) {
    return instance_.load(std::memory_order_acquire);
  }
}

void NLog::rename(const char* name) {
  if (name == nullptr) return;
  const ScopedLock lock(writerLock());
  if (name_ != name) name_ = name;
}

void NLog::LoadConfig() {
  const std::string path = filePath("NLog.ini");
  std::string text;
  if (!platform::readFile(path.c_str(), text)) {
    Log(this, kModuleNLog, 3, 88, "[NLog] No config file in: %s", path.c_str());
    return;
  }
  readThresholds(text, [this](const Threshold& threshold) {
    levels_[std::string(threshold.module)] = threshold.level;  // nobody else knows the logger yet
  });
}

int NLog::GetModuleLevel(const char* module) {
  if (module == nullptr || module[0] == '\0') return kDefaultThreshold;
  std::atomic<std::int64_t>* const copy = atHand(module);
  try {
    // One lock for both: a threshold that another thread stores meanwhile stays.
    const ScopedSection lock(levelsLock_);
    const auto found = levels_.find(module);
    const int level = found != levels_.end() ? found->second : kDefaultThreshold;
    if (found == levels_.end()) levels_.emplace(module, level);
    if (copy != nullptr) copy->store(level, std::memory_order_relaxed);
    return level;
  } catch (const std::bad_alloc&) {
    return kDefaultThreshold;  // an unknown module has it anyway
  }
}

void NLog::SetModuleLevel(const char* module, int level) {
  try {
    const ScopedSection lock(levelsLock_);
    levels_[module] = level;
    for (std::atomic<std::int64_t>* const copy : {&dllLevel_, &socketLevel_}) {
      copy->store(kNotRead, std::memory_order_relaxed);
    }
  } catch (const std::bad_alloc&) {
    // The module keeps the threshold that it had.
  }
}

// By the place of the tag, not by its text: a tag that merely reads the same is looked up.
std::atomic<std::int64_t>* NLog::atHand(const char* module) {
  if (module == kModuleDll) return &dllLevel_;
  if (module == kModuleSocket) return &socketLevel_;
  return nullptr;
}

bool NLog::passes(const char* module, int level) {
  const std::atomic<std::int64_t>* const copy = atHand(module);
  const std::int64_t known = copy != nullptr ? copy->load(std::memory_order_relaxed) : kNotRead;
  const std::int64_t threshold = known != kNotRead ? known : GetModuleLevel(module);
  return threshold != 0 && threshold <= level;
}

int NLog::FormatHeader(const char* module, int level, unsigned line, char* buffer, int size) {
  if (size < 1) return 0;
  char head[kHeadSize];
  const char* const end = putHead(head, platform::localTime(), level, line);
  CutText text(buffer, static_cast<std::size_t>(size));
  text.add(head, static_cast<std::size_t>(end - head));
  if (module != nullptr) {
    text.add("M:", 2);
    text.add(module, std::strlen(module));
    text.add(" ", 1);
  }
  return text.end();
}

void NLog::Log(NLog* logger, const char* module, int level, unsigned line, const char* format,
               ...) {
  if (logger == nullptr) logger = GetInstance(nullptr, nullptr);
  if (logger == nullptr || !logger->passes(module, level)) return;
  va_list arguments;
  va_start(arguments, format);
  logger->write(module, level, line, format, arguments);
  va_end(arguments);
}

// By itself, so that a record that is turned down does without its room on the stack.
void NLog::write(const char* module, int level, unsigned line, const char* format,
                 va_list arguments) {
  char record[kRecordSize];
  const int header = FormatHeader(module, level, line, record, kRecordSize);
  const int room = kRecordSize - 1 - header;
  if (room > 0 &&
      std::vsnprintf(record + header, static_cast<std::size_t>(room), format, arguments) < 0) {
    record[header] = '\0';
  }
  record[kRecordSize - 2] = '\0';  // a module tag may fill more than that with the header alone
  WriteLocalFile(level, record);
}

void NLog::LogString(NLog* logger, const char* module, int level, unsigned line,
                     const std::string& text) {
  if (logger == nullptr) logger = GetInstance();
  if (logger == nullptr || !logger->passes(module, level)) return;
  char header[kRecordSize];
  FormatHeader(module, level, line, header, kRecordSize);
  const ScopedLock lock(writerLock());  // so that no other record comes between the two
  logger->WriteLocalFile(level, header);
  logger->WriteLocalFile(level, text.c_str());
}

void NLog::WriteLocalFile(int, const char* text) {
  const ScopedLock lock(writerLock());
  platform::debugOutput(text);
  if (!file_.isOpen() || file_.isGone()) OpenFile();
  if (!file_.isOpen()) {
    std::printf("NLog::WriteLocalFile File Open Failed\n");
    std::fflush(stdout);
    return;
  }
  file_.writeLine(text, std::strlen(text));
  if (!file_.isFull()) return;
  file_.close();
  std::printf("NLog::WriteLocalFile File too Big to close it\n");
  std::fflush(stdout);
}

int NLog::OpenFile() {
  try {
    lastPrintFile_ = filePath("last_print.log");
    return file_.open(filePath(name_.empty() ? kDefaultName : name_.c_str())) ? 1 : 0;
  } catch (const std::bad_alloc&) {
    return 0;  // the record is lost for the file; the next one tries again
  }
}

}  // namespace tolvex
