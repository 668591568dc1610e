// The files of the log, joined in time order.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "logs/line_reader.h"
#include "logs/record_builder.h"

namespace tolvex::ctl {

struct LogFile {
  std::filesystem::path path;
  std::string name;  // "DLL_3.log"
  std::string base;  // "DLL"
  unsigned number;   // 0 to 9
  std::int64_t size;
};

// The folders in which the library logs on this system: its own, and that of applications which name
// the service's address themselves (SetServerIpForRemoteAccess). UTF-8, with a separator at the end.
// On POSIX systems the call makes them, as the library does.
std::vector<std::string> logFolders();

// The files of the ring in the folders that are there, with their present sizes; by folder, name and
// number. Folders that are missing have none.
std::vector<LogFile> findLogFiles(const std::vector<std::string>& folders);

// Reads all records of the files in time order. The order within a file stays, even where the clock
// was set back. Holds one block and one record of each file, so that memory does not grow with the
// log. Files that are emptied or removed meanwhile just end early.
class LogRing {
 public:
  explicit LogRing(const std::vector<LogFile>& files);
  ~LogRing();
  LogRing(const LogRing&) = delete;
  LogRing& operator=(const LogRing&) = delete;

  // The next record; nullopt when there is none.
  std::optional<LogRecord> next();

 private:
  class Source;
  void settleOrphans(const std::vector<LogFile>& files);
  std::vector<std::unique_ptr<Source>> sources_;
};

}  // namespace tolvex::ctl
