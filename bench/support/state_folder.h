// Where a benchmark's logger writes.
#pragma once

#include <cstdint>
#include <string>

namespace bench {

enum class Logging { kDefault, kSilenced };

// A temporary folder in place of the user's own, from the making of this object to its end.
class StateFolder {
 public:
  // Silenced: with an NLog.ini that lets through only what no call of a benchmark logs.
  explicit StateFolder(Logging logging = Logging::kDefault);
  ~StateFolder();
  StateFolder(const StateFolder&) = delete;
  StateFolder& operator=(const StateFolder&) = delete;

  // The folder itself, and the one of the library's log in it.
  const std::string& path() const { return path_; }
  std::string logFolder() const { return path_ + "/varn/log"; }

  // What the log files hold at the moment: their bytes, or all of the text, file after file.
  std::uint64_t logSize() const;
  std::string logText() const;

 private:
  std::string path_;
};

}  // namespace bench
