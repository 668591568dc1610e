// The library's own log.
#pragma once

#include <atomic>
#include <cstdarg>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "log/log_file.h"
#include "log/recursive_lock.h"
#include "platform/compiler.h"

namespace tolvex {

// Module tags, as NLog.ini names them.
inline constexpr char kModuleDll[] = "DLL";        // the library proper
inline constexpr char kModuleSocket[] = "Socket";  // the transport
inline constexpr char kModuleNLog[] = "NLog";      // the logger itself

// Levels the library uses, of 1 to 7. A higher number is more important.
constexpr int kLevelTraffic = 2;       // requests and replies
constexpr int kLevelFailure = 5;       // something did not work
constexpr int kLevelTrace = 6;         // routine entry and outcome
constexpr int kLevelServiceError = 7;  // a reply that reports an error

// The leveled logger, one for each process, made at the first use and never destroyed. A record is
// shown to the debugger and appended to the ring of log files if its level reaches the threshold of
// its module. Any thread may log; no call throws or fails towards its caller.
//
// The line number of a record is part of the log's format, known to those who read logs by program.
// It is written at the call as a number and stays when the code around it moves.
class NLog {
 public:
  // The instance, made with the defaults ("NLog" in the logger's default folder) where there is
  // none. Null only when memory ran out.
  static NLog* GetInstance();

  // The same; a new instance gets this name and folder (null: the default), an existing one takes
  // the name and nothing else: its folder and its open file stay.
  static NLog* GetInstance(const char* name, const char* dir);

  // Writes one record of at most 510 characters; the rest of a longer one is cut. The format and
  // its arguments are those of printf.
  static void Log(NLog* logger, const char* module, int level, unsigned line, const char* format,
                  ...) TOLVEX_PRINTF_FORMAT(5, 6);

  // Writes the header as one record and the text, of any length, as another one.
  static void LogString(NLog* logger, const char* module, int level, unsigned line,
                        const std::string& text);

  // The threshold of a module: 5 for null, empty and unknown tags. An unknown tag is stored.
  int GetModuleLevel(const char* module);
  void SetModuleLevel(const char* module, int level);

  // Writes what stands before a message: local time, level letter, line, module ("M:tag ", nothing
  // when null). Returns the length written, at most size - 1.
  static int FormatHeader(const char* module, int level, unsigned line, char* buffer, int size);

  // Appends one record to the ring. level is not used.
  void WriteLocalFile(int level, const char* text);

  // Opens a file of the ring. Returns 1 when it found one with room, otherwise 0. Called by
  // WriteLocalFile, under the writer lock.
  int OpenFile();

 private:
  NLog(const char* name, const char* dir);

  void LoadConfig();
  void rename(const char* name);
  bool passes(const char* module, int level);
  void write(const char* module, int level, unsigned line, const char* format, va_list arguments)
      TOLVEX_PRINTF_FORMAT(5, 0);
  // Where the threshold of a module is at hand without a look-up; null of a tag that is not one of ours
  // above.
  std::atomic<std::int64_t>* atHand(const char* module);
  std::string filePath(const char* name) const { return dir_ + name; }

  std::string name_;  // under the writer lock
  const std::string dir_;
  LogFile file_;               // under the writer lock
  std::string lastPrintFile_;  // under the writer lock; kept for the print side
  platform::CriticalSection levelsLock_;
  std::map<std::string, int, std::less<>> levels_;
  // Copies for those who ask under our own tags, at every record; kNotRead before the first time.
  static constexpr std::int64_t kNotRead = INT64_MAX;
  std::atomic<std::int64_t> dllLevel_{kNotRead};
  std::atomic<std::int64_t> socketLevel_{kNotRead};

  static std::atomic<NLog*> instance_;
};

}  // namespace tolvex
