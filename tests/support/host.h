// The application that loads the library: this test process, its executable's folder, and the
// folders that the library writes to.
#pragma once

#include <filesystem>
#include <string>
#include <utility>

namespace tolvex::test {

class Host {
 public:
  // Gives the process folders of its own (on Windows: empties the fixed ones) and puts an INI file
  // with the address beside the executable.
  Host();
  ~Host();

  // An address of the loopback range that belongs to this process.
  const std::string& address() const { return address_; }

  // The file beside the executable: with this text, or none.
  void withIni(const std::string& text);
  void withoutIni();

  // NLog.ini in the library's log folder.
  void withLogConfig(const std::string& text);
  // Takes the library's log folder away.
  void withoutLogFolder();

  // Calls an export.
  template <typename Export, typename... Arguments>
  auto call(Export function, Arguments&&... arguments) {
    return function(std::forward<Arguments>(arguments)...);
  }

  // Where the library logs, and where the logger goes when it is used before the library started.
  std::filesystem::path logFolder() const { return logFolder_; }
  std::filesystem::path defaultLogFolder() const { return defaultLogFolder_; }
  // The first files there.
  std::string logFile() const { return (logFolder_ / "DLL_0.log").string(); }
  std::string earlyLogFile() const { return (defaultLogFolder_ / "NLog_0.log").string(); }

 private:
  std::string address_;
  std::filesystem::path scratch_;
  std::filesystem::path logFolder_;
  std::filesystem::path defaultLogFolder_;
};

}  // namespace tolvex::test
