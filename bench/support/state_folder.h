// Where a benchmark's logger writes.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

namespace bench {

// A temporary folder in place of the user's own, from the making of this object to its end.
class StateFolder {
 public:
  StateFolder() {
    path_ = (std::filesystem::temp_directory_path() / "tolvex_bench.XXXXXX").string();
    if (mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no temporary folder");
    setenv("XDG_STATE_HOME", path_.c_str(), 1);
  }
  ~StateFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  StateFolder(const StateFolder&) = delete;
  StateFolder& operator=(const StateFolder&) = delete;

 private:
  std::string path_;
};

}  // namespace bench
