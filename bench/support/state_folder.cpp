#include "support/state_folder.h"

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <system_error>

namespace bench {
namespace {

namespace fs = std::filesystem;

std::set<fs::path> logFiles(const std::string& folder) {
  std::set<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.path().extension() == ".log") files.insert(entry.path());
  }
  return files;
}

}  // namespace

StateFolder::StateFolder(Logging logging) {
  path_ = (fs::temp_directory_path() / "tolvex_bench.XXXXXX").string();
  if (mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no temporary folder");
  setenv("XDG_STATE_HOME", path_.c_str(), 1);
  // The second is the folder of what is logged before the library has named its own.
  for (const char* product : {"varn", "corvane"}) {
    const fs::path folder = fs::path(path_) / product / "log";
    fs::create_directories(folder);
    if (logging == Logging::kSilenced) std::ofstream(folder / "NLog.ini") << "DLL=7\nSocket=7\n";
  }
}

StateFolder::~StateFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

std::uint64_t StateFolder::logSize() const {
  std::uint64_t size = 0;
  for (const fs::path& file : logFiles(path_)) size += fs::file_size(file);
  return size;
}

std::string StateFolder::logText() const {
  std::string text;
  for (const fs::path& file : logFiles(path_)) {
    std::ifstream in(file, std::ios::binary);
    text.append(std::istreambuf_iterator<char>(in), {});
  }
  return text;
}

}  // namespace bench
