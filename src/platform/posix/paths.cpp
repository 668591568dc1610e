#include "platform/paths.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <vector>

namespace tolvex::platform {
namespace {

// The system marks the path of a program whose file was replaced while it runs.
constexpr char kReplacedMark[] = " (deleted)";

std::string readLink(const char* link) {
  std::vector<char> path(512);
  for (;;) {
    const ssize_t length = readlink(link, path.data(), path.size());
    if (length < 0) return {};
    if (static_cast<std::size_t>(length) < path.size()) {
      return std::string(path.data(), static_cast<std::size_t>(length));
    }
    path.resize(path.size() * 2);
  }
}

std::string stateDirectory() {
  const char* state = std::getenv("XDG_STATE_HOME");
  if (state != nullptr && state[0] == '/') return state;  // a relative one is to be ignored
  const char* home = std::getenv("HOME");
  return std::string(home != nullptr ? home : "") + "/.local/state";
}

// Makes the folder and what is missing above it, for this user only. A folder that cannot be made
// shows when the first file in it cannot be opened.
void makeFolders(const std::string& path) {
  for (std::size_t end = path.find('/', 1); end != std::string::npos;
       end = path.find('/', end + 1)) {
    mkdir(path.substr(0, end).c_str(), 0700);
  }
}

std::string logDirectory(const char* product) {
  std::string path = stateDirectory() + '/' + product + "/log/";
  makeFolders(path);
  return path;
}

}  // namespace

const char kPathSeparator = '/';

std::string hostExecutable() {
  std::string path = readLink("/proc/self/exe");
  const std::size_t mark = sizeof(kReplacedMark) - 1;
  if (path.size() > mark && path.compare(path.size() - mark, mark, kReplacedMark) == 0) {
    path.resize(path.size() - mark);
  }
  return path;
}

std::string hostExecutableUtf8() { return hostExecutable(); }

std::string libraryLogDirectory() { return logDirectory("varn"); }

std::string loggerDefaultDirectory() { return logDirectory("corvane"); }

}  // namespace tolvex::platform
