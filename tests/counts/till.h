// The till whose calls are counted: the library, its service, and its log.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "api/exports.h"
#include "support/host.h"
#include "support/loaded_library.h"
#include "support/scripted_service.h"

namespace tolvex::test {

// The exports that are called, found before anything is counted.
#define TOLVEX_COUNTED_EXPORTS(EXPORT) \
  EXPORT(read_standard)                \
  EXPORT(read_baseinfo)                \
  EXPORT(set_tare_bykey)               \
  EXPORT(send_pre_tare)                \
  EXPORT(clear_tare)                   \
  EXPORT(sendRawCmdToLC)               \
  EXPORT(sendRawCmdToPrt)              \
  EXPORT(printTextById)                \
  EXPORT(feedPaper)                    \
  EXPORT(PrintText)                    \
  EXPORT(PrintTextByPaperWidth)        \
  EXPORT(BeginPrint)                   \
  EXPORT(GetPrinterList)               \
  EXPORT(getLCVersion)                 \
  EXPORT(getPrinterVersion)            \
  EXPORT(GetPrinterStatus)             \
  EXPORT(checkConnection)

struct Exports {
#define TOLVEX_FOUND(name) decltype(&::name) name = nullptr;
  TOLVEX_COUNTED_EXPORTS(TOLVEX_FOUND)
#undef TOLVEX_FOUND
};

// What NLog.ini asks of the log.
enum class LogKeeps { kNothing, kItsDefaults, kEverything };
constexpr LogKeeps kLogSettings[] = {LogKeeps::kNothing, LogKeeps::kItsDefaults,
                                     LogKeeps::kEverything};
const char* nameOf(LogKeeps keeps);

class Till {
 public:
  // Listens, and answers every request with success. The library's file is the one that
  // TOLVEX_LIBRARY names.
  Till();
  ~Till();
  Till(const Till&) = delete;
  Till& operator=(const Till&) = delete;

  // The library as it is before its first call, with a log that keeps this. What the heap and the
  // system are asked for is told to ScarceMemory and ScarceCalls from then on.
  void loadAfresh(LogKeeps keeps);

  const Exports& exports() const { return exports_; }

  // What the log has taken so far.
  struct LogSize {
    std::size_t records = 0;  // lines with a time, and the texts below one
    std::size_t bytes = 0;
  };
  LogSize logSize() const;

 private:
  // With what it has open, which holds its files on Windows.
  void unload();

  Host host_;
  ScriptedService service_;
  std::unique_ptr<LoadedLibrary> library_;
  Exports exports_;
};

}  // namespace tolvex::test
