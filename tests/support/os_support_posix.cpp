#include <dirent.h>
#include <malloc.h>
#include <sched.h>
#include <stdlib.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>
#include <utility>

#include "support/os_support.h"
#include "support/temporary_folder.h"

namespace tolvex::test {

const std::string kLineEnd = "\n";
const std::size_t kHandlesOfLocks = 0;

unsigned long processId() { return static_cast<unsigned long>(getpid()); }

void becomeOrdinaryUser() {
  constexpr unsigned kNobody = 65534;
  if (geteuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0)) std::abort();
}

ReadOnlyFile::ReadOnlyFile(std::string path) : path_(std::move(path)) {
  chmod(path_.c_str(), 0444);
}

ReadOnlyFile::~ReadOnlyFile() { chmod(path_.c_str(), 0666); }

namespace {

// Who may mount: an administrator, or each user where only he and what he starts can see it.
bool mayMount() {
  if (unshare(CLONE_NEWNS) == 0) return true;
  const auto self = [](unsigned id) {
    return std::to_string(id) + " " + std::to_string(id) + " 1";
  };
  const std::string user = self(geteuid());
  const std::string group = self(getegid());
  if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
  std::ofstream("/proc/self/setgroups") << "deny";
  std::ofstream("/proc/self/gid_map") << group;
  return static_cast<bool>(std::ofstream("/proc/self/uid_map") << user << std::flush);
}

}  // namespace

bool makeDiskOfItsOwn(const std::string& folder, std::size_t room) {
  const std::string options = "size=" + std::to_string(room) + ",mode=777";
  return mayMount() && mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
         mount("tmpfs", folder.c_str(), "tmpfs", 0, options.c_str()) == 0;
}

bool appendsAreWhole() { return true; }

std::size_t handleCount() {
  std::size_t count = 0;
  DIR* const folder = opendir("/proc/self/fd");
  while (readdir(folder) != nullptr) ++count;
  closedir(folder);
  return count;
}

namespace {

// Counted page by page. The other files of the system tell what each core last reported, which may be
// dozens of pages behind.
std::size_t residentMemory() {
  std::ifstream file("/proc/self/smaps_rollup");
  std::string word;
  std::size_t kibibytes = 0;
  while (file >> word) {
    if (word == "Rss:" && file >> kibibytes) return kibibytes * 1024;
  }
  throw std::runtime_error("the system does not tell the resident memory");
}

}  // namespace

MemoryUse memoryUse() {
  const struct mallinfo2 heap = mallinfo2();
  return {heap.uordblks + heap.hblkhd, residentMemory()};
}

// The blocks that each thread keeps at hand count as used, a few more with every size that was ever
// freed: they are done without.
void countMemoryExactly(char** arguments) {
  constexpr char kTunables[] = "GLIBC_TUNABLES";
  if (getenv(kTunables) != nullptr) return;
  setenv(kTunables, "glibc.malloc.tcache_count=0", 1);
  execv("/proc/self/exe", arguments);
}

void setEnvironment(const char* name, const char* value) { setenv(name, value, 1); }

std::FILE* secondStandardOutput() { return fdopen(dup(STDOUT_FILENO), "w"); }

namespace {

std::string madeBelow(const std::string& parent, const char* name) {
  setenv("XDG_STATE_HOME", parent.substr(0, parent.size() - 1).c_str(), 1);
  std::string folder = parent + name;
  makeFolder(folder);
  return folder;
}

}  // namespace

std::string emptyDefaultLogFolder(const std::string& parent) {
  return madeBelow(parent, "corvane/log/");
}

std::string emptyLibraryFolder(const std::string& parent) { return madeBelow(parent, "varn/log/"); }

}  // namespace tolvex::test
