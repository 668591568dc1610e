#include "log/nlog.h"

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
  try {
    // One lock for both: a threshold that another thread reads from NLog.ini meanwhile stays.
    const ScopedSection lock(levelsLock_);
    const auto level = levels_.find(module);
    if (level != levels_.end()) return level->second;
    levels_.emplace(module, kDefaultThreshold);
  } catch (const std::bad_alloc&) {
    // An unknown module has the default threshold anyway.
  }
  return kDefaultThreshold;
}

void NLog::SetModuleLevel(const char* module, int level) {
  try {
    const ScopedSection lock(levelsLock_);
    levels_[module] = level;
  } catch (const std::bad_alloc&) {
    // The module keeps the threshold that it had.
  }
}

bool NLog::passes(const char* module, int level) {
  const int threshold = GetModuleLevel(module);
  return threshold != 0 && threshold <= level;
}

int NLog::FormatHeader(const char* module, int level, unsigned line, char* buffer, int size) {
  if (size < 1) return 0;
  const platform::LocalTime now = platform::localTime();
  const bool named = module != nullptr;
  const int length =
      std::snprintf(buffer, static_cast<std::size_t>(size),
                    "%04u-%02u-%02u %02u:%02u:%02u Ms:%03u [%c] L:%03u %s%s%s", now.year, now.month,
                    now.day, now.hour, now.minute, now.second, now.millisecond, levelLetter(level),
                    line, named ? "M:" : "", named ? module : "", named ? " " : "");
  if (length < 0) buffer[0] = '\0';
  return length < 0 ? 0 : (length < size ? length : size - 1);
}

void NLog::Log(NLog* logger, const char* module, int level, unsigned line, const char* format,
               ...) {
  if (logger == nullptr) logger = GetInstance(nullptr, nullptr);
  if (logger == nullptr || !logger->passes(module, level)) return;

  char record[kRecordSize];
  const int header = FormatHeader(module, level, line, record, kRecordSize);
  const int room = kRecordSize - 1 - header;
  if (room > 0) {
    va_list arguments;
    va_start(arguments, format);
    if (std::vsnprintf(record + header, static_cast<std::size_t>(room), format, arguments) < 0) {
      record[header] = '\0';
    }
    va_end(arguments);
  }
  record[kRecordSize - 2] = '\0';  // a module tag may fill more than that with the header alone
  logger->WriteLocalFile(level, record);
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
